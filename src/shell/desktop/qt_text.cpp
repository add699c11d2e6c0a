#include "shell/desktop/qt_text.h"

namespace veldrane {

QString ToQt(std::string_view text)
{
    return NameToQt(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

} // namespace veldrane
