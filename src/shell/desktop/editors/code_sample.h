#pragma once

#include "generator/outputs.h"
#include "shell/desktop/preview_delegate.h"
#include "shell/desktop/preview_model.h"
#include "shell/main_window/preview_look.h"

#include <QListView>

namespace veldrane {

// The code of the member that a dialog has in hand, as the preview shows it. It keeps its place while the member
// changes.
class CodeSample : public QListView
{
    Q_OBJECT

  public:
    explicit CodeSample(QWidget* parent = nullptr);

    // The font and the background of the preview.
    void SetLook(const PreviewLook& look);

    void ShowLines(TTCOutputs lines);

    // Room for a dozen lines of the usual length.
    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void Dress();
    void Measure();

    PreviewPane pane_;
    PreviewFind find_{pane_}; // of nothing: the delegate wants one
    PreviewModel model_;
    PreviewDelegate delegate_;
    PreviewLook look_;
};

} // namespace veldrane
