#include "shell/desktop/editors/code_sample.h"

#include "shell/desktop/qt_color.h"
#include "shell/desktop/qt_font.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScrollBar>

#include <utility>

namespace veldrane {
namespace {

// What is seen of the code without scrolling.
constexpr int kCharacters = 72;
constexpr int kLines = 14;

} // namespace

CodeSample::CodeSample(QWidget* parent) : QListView(parent), model_(pane_), delegate_(pane_, find_, nullptr)
{
    setModel(&model_);
    setItemDelegate(&delegate_);
    setHorizontalScrollMode(ScrollPerPixel);
    setUniformItemSizes(true);
    setSelectionMode(ContiguousSelection);
    setAccessibleName(tr("Code"));
    Dress();
}

void CodeSample::SetLook(const PreviewLook& look)
{
    look_ = look;
    Dress();
}

void CodeSample::ShowLines(TTCOutputs lines)
{
    const int row = verticalScrollBar()->value();
    const int column = horizontalScrollBar()->value();
    PreviewText text;
    text.Blocks.push_back(std::move(lines));
    pane_.Show(std::move(text), "Preview");
    Measure();
    verticalScrollBar()->setValue(row);
    horizontalScrollBar()->setValue(column);
}

QSize CodeSample::sizeHint() const
{
    const int rowHeight = delegate_.sizeHint({}, {}).height();
    return {kCharacters * fontMetrics().averageCharWidth(), kLines * rowHeight + 2 * frameWidth()};
}

void CodeSample::changeEvent(QEvent* event)
{
    QListView::changeEvent(event);
    const QColor ground = ColorToQt(look_.Background, QGuiApplication::palette());
    if (event->type() == QEvent::PaletteChange && palette().color(QPalette::Base) != ground)
        Dress();
}

void CodeSample::Dress()
{
    QPalette ground; // the rest stays that of the application
    ground.setColor(QPalette::Base, ColorToQt(look_.Background, ground));
    setPalette(ground);
    setFont(FontToQt(look_.Font));
    Measure();
}

void CodeSample::Measure()
{
    delegate_.Measure(font());
    doItemsLayout(); // at once: the scroll bars go back to where they were
}

} // namespace veldrane
