#include "model/events.h"

namespace veldrane {

std::shared_ptr<ttcEvent> ttcEvent::Clone() const
{
    auto clone = std::make_shared<ttcEvent>();
    clone->EventName = EventName;
    clone->PlusEvent = PlusEvent;
    for (const TTCParameter& argument : TTCEventParameters)
        clone->TTCEventParameters.Add(argument.Index, argument.ByValIndicator, argument.VariableName,
                                      argument.ParameterDataType, argument.OptionalIndicator, argument.DefaultValue,
                                      argument.IsArray, argument.VariableName);
    return clone;
}

std::shared_ptr<ttcEvent> TTCEvents::Add(std::string_view eventName, TTCEventParameters eventParameters, bool plusEvent,
                                         std::string_view key)
{
    auto item = std::make_shared<ttcEvent>();
    item->EventName = eventName;
    item->TTCEventParameters = std::move(eventParameters);
    item->PlusEvent = plusEvent;
    return Insert(std::move(item), key);
}

} // namespace veldrane
