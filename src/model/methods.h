#pragma once

#include "collections/keyed_collection.h"
#include "model/parameters.h"
#include "model/stored_procedures.h"

#include <memory>
#include <string>
#include <string_view>

namespace veldrane {

struct TTCMethod
{
    // An independent copy, except that `StoredProcedure` is shared: a change of its parameters shows in both.
    [[nodiscard]] std::shared_ptr<TTCMethod> Clone() const;

    std::string MethodName;     // its key in TTCMethods and TTCMembers
    std::string ReturnDataType; // "" for a Sub
    std::string Scope;          // "Public", "Private" or "Friend"
    bool DefaultMethod = false;
    bool PlusMethod = false; // a built-in method, whose text the generator knows
    KZMArguments Arguments;
    bool MethodIsSP = false;
    bool SPReturnValuesOnly = false;     // never saved
    std::shared_ptr<SP> StoredProcedure; // only when MethodIsSP
};

class TTCMethods : public KeyedCollection<TTCMethod, CollectionRules{.Item = OnMissing::YieldsNothing,
                                                                     .Extra = Extras::AddExistingAndLastIndex}>
{
  public:
    // Throws RuntimeError 457 if the key is in use.
    std::shared_ptr<TTCMethod> Add(std::string_view methodName, bool plusMethod, KZMArguments arguments,
                                   std::string_view returnDataType, std::string_view scope, bool defaultMethod,
                                   std::string_view key);
};

} // namespace veldrane
