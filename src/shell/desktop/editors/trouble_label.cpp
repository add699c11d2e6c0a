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
    setVisible(false);
    Dress();
}

void TroubleLabel::ShowTrouble(std::string_view words)
{
    QString text = ToQt(words);
    setVisible(!words.empty());
    if (QWidget* field = buddy()) {
        field->setAccessibleDescription(text);
        text.replace(u'&', QStringLiteral("&&")); // what was typed has no access keys
    }
    setText(text);
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
