#include "editors/property_preview.h"

#include "editors/told_text.h"
#include "generator/property_routines.h"

namespace veldrane {

TTCOutputs PropertyPreview(const PreviewSource& source, KZMClass& owner, std::size_t position)
{
    const GenerationSettings& settings = source.Generation.Settings;
    TTCOutputs lines(settings.Colors);
    const auto property = owner.TTCProperties.Item(position);
    if (!property)
        return lines;
    HeardMessages asking;
    std::string errorText;
    const ChildIndex children(source.Classes);
    const GenerationContext context{{source.Project, settings}, source.Classes, children, asking, errorText};
    const PropertyScope scope{{context, owner}, *property};
    DefaultMark mark;
    WriteProperty(PropertyEmitter(lines, scope), mark);
    return lines;
}

std::size_t PositionOf(const KZMClass& owner, const TTCProperty& property)
{
    std::size_t position = 0;
    for (const TTCProperty& each : owner.TTCProperties) {
        ++position;
        if (&each == &property)
            return position;
    }
    return 0;
}

} // namespace veldrane
