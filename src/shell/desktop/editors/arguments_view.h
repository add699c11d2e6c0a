#pragma once

#include "editors/argument_list.h"

#include <QWidget>

#include <memory>

namespace Ui {
class ArgumentsView;
}

namespace veldrane {

// The list of arguments in the dialogs of a method and of an event, with its buttons and keys.
class ArgumentsView : public QWidget
{
    Q_OBJECT

  public:
    explicit ArgumentsView(QWidget* parent = nullptr);
    ~ArgumentsView() override;

    // The rules behind the list. To be called once; they must outlive the widget. Whoever follows their `Changed` calls
    // ShowState.
    void ShowList(ArgumentList& list);

    // Puts what the rules hold into the controls.
    void ShowState();

  private:
    void ShowWhyFixed();
    void ConnectButtons();
    void ConnectKeys();
    void ShowButtons();

    ArgumentList* list_ = nullptr;
    std::unique_ptr<Ui::ArgumentsView> ui_;
};

} // namespace veldrane
