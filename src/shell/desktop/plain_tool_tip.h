#pragma once

#include <QString>

namespace veldrane {

// A tool tip that shows the text as it stands, blanks included, and breaks a long line. Qt guesses whether a tool tip
// is rich text, and breaks the lines of no other.
[[nodiscard]] inline QString PlainToolTip(const QString& text)
{
    return QStringLiteral("<p style=\"white-space: pre-wrap\">") + text.toHtmlEscaped() + QStringLiteral("</p>");
}

} // namespace veldrane
