#pragma once

#include <QPushButton>

namespace veldrane {

// A button that looks like a word of text, and like a link while the mouse is over it or it has the focus: blue and
// underlined. Tab reaches it, Enter and Space press it.
class LinkButton : public QPushButton
{
    Q_OBJECT

  public:
    explicit LinkButton(QWidget* parent);

    // Whether it looks like a link just now.
    [[nodiscard]] bool IsLit() const;

    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
};

} // namespace veldrane
