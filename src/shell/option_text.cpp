#include "shell/option_text.h"

#include "text/conversion.h"
#include "text/runtime_error.h"

namespace veldrane {

bool BooleanOf(std::string_view text, bool whenEmpty)
{
    if (text.empty())
        return whenEmpty;
    try {
        return text::ToBoolean(text);
    } catch (const RuntimeError&) {
        return false;
    }
}

} // namespace veldrane
