#include "shell/desktop/qt_look_dialogs.h"

#include "shell/desktop/qt_color.h"
#include "shell/desktop/qt_font.h"
#include "shell/desktop/room_for_dialog.h"

#include <QColorDialog>
#include <QFontDatabase>
#include <QFontDialog>
#include <QGuiApplication>

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

// The dialog looks for a style by its name, which each family chooses for itself ("Book", "Roman"), and takes any other
// where there is none of that name. Of several that will do, the longer names add a word such as "Condensed".
QFont WithStyleName(QFont font)
{
    QString name;
    for (const QString& style : QFontDatabase::styles(font.family())) {
        const QFont styled = QFontDatabase::font(font.family(), style, font.pointSize());
        const bool willDo = styled.weight() == font.weight() && styled.italic() == font.italic();
        if (willDo && (name.isEmpty() || style.size() < name.size()))
            name = style;
    }
    if (!name.isEmpty())
        font.setStyleName(name);
    return font;
}

} // namespace

std::optional<Color> QtLookDialogs::AskForColor(Color shown)
{
    const QColor before = ColorToQt(shown, QGuiApplication::palette());
    QColorDialog dialog(before, WindowInFront());
    dialog.setObjectName(u"colorDialog"_s);
    dialog.setWindowTitle(u"Color"_s);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.selectedColor() == before ? shown : ColorFromQt(dialog.selectedColor());
}

std::optional<PreviewFont> QtLookDialogs::AskForFont(const PreviewFont& shown)
{
    QFontDialog dialog(WithStyleName(FontToQt(shown)), WindowInFront());
    const QFont before = dialog.currentFont();
    dialog.setObjectName(u"fontDialog"_s);
    dialog.setWindowTitle(u"Font"_s);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.selectedFont() == before ? shown : FontFromQt(dialog.selectedFont());
}

} // namespace veldrane
