#include "shell/desktop/editors/trouble_label.h"

#include "shell/desktop/plain_tool_tip.h"
#include "shell/desktop/qt_color.h"
#include "shell/desktop/qt_text.h"
#include "shell/desktop/room_for_dialog.h"

#include <QEvent>
#include <QGuiApplication>

#include <algorithm>

namespace veldrane {

TroubleLabel::TroubleLabel(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    QSizePolicy anyWidth = sizePolicy(); // a long name in the words widens no window
    anyWidth.setHorizontalPolicy(QSizePolicy::Ignored);
    setSizePolicy(anyWidth);
    setVisible(false);
    Dress();
}

void TroubleLabel::ShowTrouble(std::string_view words)
{
    QString text = ToQt(words);
    setToolTip(PlainToolTip(text));
    if (isHidden())
        resize(0, 0); // its width is told by the layout
    setVisible(!words.empty());
    if (QWidget* field = buddy()) {
        field->setAccessibleDescription(text);
        text.replace(u'&', QStringLiteral("&&")); // what was typed has no access keys
    }
    setText(text);
    KeepWhole();
}

void TroubleLabel::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    KeepWhole();
}

// A window grows for the least height of what it holds, but asks nobody how high words are at their width. Very long
// ones are cut, for the buttons have to stay on the screen; the tip has them whole.
void TroubleLabel::KeepWhole()
{
    const int most = MostHeightOfWords(*this);
    const int wanted = text().isEmpty() || width() == 0 ? 0 : heightForWidth(width());
    setMaximumHeight(most);
    setMinimumHeight(std::min(wanted, most));
}

void TroubleLabel::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange &&
        palette().windowText().color() != TroubleColor(QGuiApplication::palette()))
        Dress();
}

void TroubleLabel::Dress()
{
    QPalette red;
    red.setColor(QPalette::WindowText, TroubleColor(QGuiApplication::palette()));
    setPalette(red);
}

} // namespace veldrane
