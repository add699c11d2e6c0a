#pragma once

#include "model/enumerations.h"
#include "model/events.h"
#include "model/keys.h"
#include "model/members.h"
#include "model/methods.h"
#include "model/properties.h"
#include "model/relationships.h"

#include <memory>
#include <string>

namespace veldrane {

// One class of a project: a generated class module and, optionally, a collection module.
struct KZMClass
{
    // An independent copy. It is not read only and not required, whatever this class is; of the keys it holds the last
    // one alone; its properties and methods come through `Add` of their collections and lose what that drops.
    [[nodiscard]] std::shared_ptr<KZMClass> Clone() const;

    std::string TableName; // the table or view behind the class, "" for none
    std::string ClassName; // its key in KZMClasses
    std::string ParentClassName;
    bool IsDomainTable = false; // shown under "Lookup/Domain Classes"
    TTCEnumerations Enumerations;
    veldrane::TTCEvents TTCEvents;
    veldrane::TTCProperties TTCProperties;
    veldrane::TTCMethods TTCMethods;
    veldrane::TTCRelationships TTCRelationships;
    bool CreateCollection = false;
    std::string CollectionName;
    bool IncludeAddExisting = false;
    bool RetrieveByIdentityCol = false;
    bool RetrieveByPrimaryKey = false;
    veldrane::TTCKeys TTCKeys;
    veldrane::TTCMembers TTCMembers;
    bool ReadOnly = false;
    bool CollectionAddNewKey = false;
    bool DeleteByIdentityColumn = false;
    bool DeleteByPrimaryKey = false;
    bool IsMTSRequiredClass = false; // set by the program, not by the user
};

} // namespace veldrane
