#pragma once

#include <QDialog>
#include <QListView>

#include <memory>

namespace Ui {
class frmZoom;
}

namespace veldrane {

// `frmZoom`: the lines of the preview in a window of their own, in large letters. It shows the same model as the
// preview, so its icons, colours and weights are those.
class ZoomDialog : public QDialog
{
    Q_OBJECT

  public:
    // Takes model, selection, font and palette of the list, which outlives it, and follows the palette. When it is
    // shown, the current line stands in the middle.
    ZoomDialog(QListView& preview, QWidget* parent);
    ~ZoomDialog() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void ChangeSize(double factor);

    std::unique_ptr<Ui::frmZoom> ui_;
    QListView& preview_;
};

} // namespace veldrane
