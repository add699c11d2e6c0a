#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace veldrane {

// The text as Qt holds it. Bytes that are no UTF-8 become U+FFFD; CR LF, which the rules' texts have, becomes the one
// line break that Qt shows.
[[nodiscard]] QString ToQt(std::string_view text);

// The same without a look at line breaks, for paths and names.
[[nodiscard]] inline QString NameToQt(std::string_view name)
{
    return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

// In UTF-8.
[[nodiscard]] inline std::string FromQt(const QString& text)
{
    return text.toStdString();
}

} // namespace veldrane
