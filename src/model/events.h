#pragma once

#include "collections/keyed_collection.h"
#include "model/parameters.h"

#include <memory>
#include <string>
#include <string_view>

namespace veldrane {

struct ttcEvent
{
    // An independent copy.
    [[nodiscard]] std::shared_ptr<ttcEvent> Clone() const;

    std::string EventName;  // its key in TTCEvents and TTCMembers
    bool PlusEvent = false; // a built-in event
    veldrane::TTCEventParameters TTCEventParameters;
};

class TTCEvents : public KeyedCollection<ttcEvent, CollectionRules{.Item = OnMissing::YieldsNothing,
                                                                   .Extra = Extras::AddExistingAndLastIndex}>
{
  public:
    // Throws RuntimeError 457 if the key is in use.
    std::shared_ptr<ttcEvent> Add(std::string_view eventName, TTCEventParameters eventParameters, bool plusEvent,
                                  std::string_view key);
};

} // namespace veldrane
