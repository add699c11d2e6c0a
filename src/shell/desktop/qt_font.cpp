#include "shell/desktop/qt_font.h"

#include "shell/desktop/qt_text.h"

#include <QFontDatabase>
#include <QFontInfo>

namespace veldrane {

QFont FontToQt(const PreviewFont& font)
{
    QFont made(NameToQt(font.Name));
    made.setPointSize(font.Size);
    made.setBold(font.Bold);
    made.setItalic(font.Italic);
    return made;
}

PreviewFont FontFromQt(const QFont& font)
{
    return {.Name = FromQt(font.family()),
            .Size = font.pointSize() > 0 ? font.pointSize() : QFontInfo(font).pointSize(),
            .Bold = font.bold(),
            .Italic = font.italic()};
}

std::string MonospacedFontName()
{
    return FromQt(QFontDatabase::systemFont(QFontDatabase::FixedFont).family());
}

} // namespace veldrane
