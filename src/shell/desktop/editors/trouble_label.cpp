#include "shell/desktop/editors/trouble_label.h"

#include "shell/desktop/qt_color.h"
#include "shell/desktop/qt_text.h"

#include <QEvent>
#include <QGuiApplication>

namespace veldrane {

TroubleLabel::TroubleLabel(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a long name in the words widens no window
    QSizePolicy anyWidth = sizePolicy();                         // a long name in the words widens no window
    anyWidth.setHorizontalPolicy(QSizePolicy::Ignored);
    setSizePolicy(anyWidth);
    setVisible(false);
    Dress();
}

void TroubleLabel::ShowTrouble(std::string_view words)
{
    QString text = ToQt(words);
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

// A window grows for the least height of what it holds, but asks nobody how high words are at their width.
void TroubleLabel::KeepWhole()
{
    setMinimumHeight(text().isEmpty() || width() == 0 ? 0 : heightForWidth(width()));
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
