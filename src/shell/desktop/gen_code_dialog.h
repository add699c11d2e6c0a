#pragma once

#include "shell/desktop/arrow_over.h"
#include "shell/desktop/settled_files_model.h"
#include "shell/wizard/frm_gen_code.h"

#include <QDialog>
#include <QFileSystemModel>
#include <QSignalBlocker>
#include <QTimer>

#include <memory>
#include <optional>

class QAction;
class QMenu;
class QPushButton;

namespace Ui {
class frmGenCode;
}

namespace veldrane {

// `frmGenCode` as a window, with the windows that the wizard opens. Closing it is its Cancel.
class GenCodeDialog : public QDialog, private WizardDialogs
{
    Q_OBJECT

  public:
    // All must outlive the dialog.
    GenCodeDialog(const Application& application, TTCProject& project, KZMClasses& classes, QWidget* parent);
    ~GenCodeDialog() override;

    void reject() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void ConnectButtons();
    void ConnectFolder();
    void KeepFolderThatGoes();
    void ConnectOptions();
    void ShowAll();
    void ShowPage();
    void ShowButton(QPushButton& shown, const WizardButton& button);
    void ShowFolder();
    void ShowFolderInTree();
    void ScrollToFolder();
    void TellOfFolder();
    void ChooseInTree(const QModelIndex& index);
    void OfferFolderMenu(const QPoint& where);
    void ShowSteps();
    void ShowEnd();
    void StartWhenPainted();

    // WizardDialogs
    void Show(frmFile& conflict) override;
    [[nodiscard]] std::string DefaultFolder() override;
    [[nodiscard]] std::string NewFolderName() override;
    void MakeFolder(const std::string& path) override;
    void Close() override;

    frmGenCode rules_;
    std::unique_ptr<Ui::frmGenCode> ui_;
    QFileSystemModel folders_;
    SettledFilesModel files_;
    std::optional<QSignalBlocker> quietTree_; // while rows go
    QTimer tmrStart_;
    QAction* newFolder_;
    QMenu* popFolder_;
    ArrowOver* overCancel_ = nullptr;
    int shownPage_ = -1;
    Connection changed_;
};

} // namespace veldrane
