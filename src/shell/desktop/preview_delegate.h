#pragma once

#include "shell/main_window/preview_find.h"

#include <QStyledItemDelegate>

namespace veldrane {

// Draws the lines of the preview: room for a picture, then the text, with the places of the search marked. All lines
// have one height and one width, that of the widest.
class PreviewDelegate : public QStyledItemDelegate
{
    Q_OBJECT

  public:
    // Both must outlive the delegate.
    PreviewDelegate(const PreviewPane& pane, const PreviewFind& find, QObject* parent);

    // Has the widest line looked for anew: the lines or the font have changed.
    void Measure(const QFont& font);

    // Where the place stands in its line, in pixels from the line's left edge.
    [[nodiscard]] std::pair<int, int> ExtentOf(const PreviewMatch& match, const QFont& font) const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  private:
    void PaintMatches(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;

    const PreviewPane& pane_;
    const PreviewFind& find_;
    QSize lineSize_;
};

} // namespace veldrane
