#pragma once

#include "shell/main_window/preview_find.h"

#include <QWidget>

#include <memory>

namespace Ui {
class findBar;
}

namespace veldrane {

// The line under the preview in which a person types what is looked for (`txtFind`), with next and previous
// (`cmdFindNext`, `cmdFindPrevious`) and how many places there are (`lblFindStatus`). It searches with each letter.
// Return goes to the next place, Shift+Return to the one before, Escape closes it.
class FindBar : public QWidget
{
    Q_OBJECT

  public:
    // The search must outlive the bar.
    FindBar(PreviewFind& find, QWidget* parent);
    ~FindBar() override;

    // Shows the bar, with the text of the last search selected.
    void Open();

    // Hides it and unmarks the places.
    void Close();

  Q_SIGNALS:
    void Closed();

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void ShowStatus();

    PreviewFind& find_;
    std::unique_ptr<Ui::findBar> ui_;
    Connection changed_;
};

} // namespace veldrane
