#pragma once

#include "shell/desktop/icons.h"
#include "shell/desktop/project_tree_model.h"
#include "shell/desktop/row_list_model.h"
#include "shell/desktop/tool_actions.h"
#include "shell/main_window/frm_main.h"
#include "shell/main_window/window_geometry.h"

#include <QMainWindow>

#include <array>
#include <memory>
#include <vector>

class QDockWidget;
class QLabel;
class QListView;
class QProgressBar;

namespace Ui {
class frmMain;
}

namespace veldrane {

class PreviewView;
class RowListView;

// The main window: shows what its rules hold, and tells them what the person does.
class MainWindow : public QMainWindow
{
    Q_OBJECT

  public:
    // Both must outlive the window.
    MainWindow(frmMain& rules, const Application& application);
    ~MainWindow() override;

    [[nodiscard]] QListView& PreviewList() const;

    // How the preview looks.
    [[nodiscard]] const PreviewLook& Look() const { return rules_.Look(); }

    // Lets the person type over the label of the tree's selected node.
    void StartLabelEdit();

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void ListenToRules();
    void BuildStatusBar();
    void ConnectTree();
    void ConnectLists();
    void ConnectPanes();

    void Show(WindowPart part);
    void ShowTools();
    void ShowCaption();
    void ShowModified();
    void ShowTreeState();
    void ShowLists();
    void ShowNavigator();
    void ShowStatus();
    void ShowPanes();

    void RunTool(std::string_view tool);
    bool TakeLabel(const NodeKey& node, const std::string& label);
    void ListChoices(QMenu& menu, std::string_view tool);
    void OpenTreeMenu(const QPoint& where);
    void OpenMenuOfFocus();
    void OpenListMenu(RowListView& list, const QPoint& where);

    // A pane that can be hidden.
    struct Pane
    {
        QDockWidget* Dock = nullptr;
        bool PaneManagement::*Shown = nullptr;
        QAction* Tool = nullptr;
        PanePlace Place; // where it stands in the window, or stood when it was last seen there
    };

    void FollowDock(Pane& pane);
    void ShowPane(Pane& pane);
    void RestorePlace();
    void ArrangePanes();
    void StorePlace();

    frmMain& rules_;
    const Application& application_;
    std::unique_ptr<Ui::frmMain> ui_;
    IconSet icons_; // of the tree, the lists and the navigator
    ProjectTreeModel tree_;
    std::array<RowListModel, kDataSourceTabs> lists_;
    std::array<RowListView*, kDataSourceTabs> listViews_{};
    PreviewView* preview_ = nullptr;
    ToolActions* tools_ = nullptr;
    Pane datasourcePane_;
    Pane previewPane_;
    QLabel* iconPanel_ = nullptr;
    QLabel* statusPanel_ = nullptr;
    QProgressBar* progress_ = nullptr;
    QLabel* adPanel_ = nullptr;
    bool showing_ = false; // widgets are being set from the rules, which are not to hear of it
    std::vector<Connection> listening_;
    Connection projectModified_;
};

} // namespace veldrane
