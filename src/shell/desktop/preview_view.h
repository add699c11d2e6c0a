#pragma once

#include "shell/desktop/find_bar.h"
#include "shell/desktop/preview_delegate.h"
#include "shell/desktop/preview_model.h"
#include "shell/main_window/preview_look.h"
#include "shell/main_window/preview_text.h"

#include <QListView>
#include <QWidget>

#include <functional>
#include <string_view>
#include <vector>

class QAction;

namespace veldrane {

// The preview: the lines of the pane (`lstPreview`) over a bar to find text in them. Whatever line a person goes to is
// selected in the pane, and the other way round. It has actions, which are its context menu as well: those of the tools
// "CopyLines" (the selected ones), "CopyAll", "Find", "FindNext", "FindPrevious", "SavePreview" and "PrintPreview", and
// of its own "SelectAllPreview" and "MonospacedPreview".
class PreviewView : public QWidget
{
    Q_OBJECT

  public:
    // The pane, and what the saving refers to, must outlive the view.
    PreviewView(PreviewPane& pane, const PreviewSaving& saving, QWidget* parent = nullptr);

    // Shows the lines in this font, on this background.
    void SetLook(const PreviewLook& look);

    [[nodiscard]] QListView& List() { return lstPreview_; }
    [[nodiscard]] PreviewFind& Search() { return find_; }

    // The action of the name; nullptr if there is none.
    [[nodiscard]] QAction* Action(std::string_view name) const;

  Q_SIGNALS:
    // A person wants the lines in a font whose letters are equally wide. It is shown when SetLook says so.
    void MonospacedFontWanted();

  protected:
    void changeEvent(QEvent* event) override;

  private:
    QAction& AddAction(std::function<void()> run);
    QAction& AddTool(std::string_view tool, std::function<void()> run);
    void AddActions();
    void ListenToPane();
    void GoTo(int row);
    void ShowMatch();
    void FindFurther(void (PreviewFind::*step)());
    void Copy();
    void CopyAll();
    void Print();
    void Relayout();

    PreviewPane& pane_;
    PreviewSaving saving_;
    PreviewFind find_;
    PreviewModel model_;
    PreviewDelegate delegate_;
    QListView lstPreview_;
    FindBar findBar_;
    PreviewLook look_;
    bool personSelects_ = false; // in the list itself, which then shows the row as it likes
    std::vector<Connection> connections_;
};

} // namespace veldrane
