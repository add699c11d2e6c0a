#pragma once

#include <QComboBox>

namespace veldrane {

// A box with a long list: what is typed offers the rows that have it anywhere in them, letter case apart. `activated`
// tells the row that was chosen: from either list, by its whole text, or by Return where one row alone has the text in
// it. Any other text stays as it was typed. The wheel chooses only where the focus is.
class SearchBox : public QComboBox
{
    Q_OBJECT

  public:
    explicit SearchBox(QWidget* parent = nullptr);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    void Settle(Qt::MatchFlags match);
};

} // namespace veldrane
