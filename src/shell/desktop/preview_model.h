#pragma once

#include "shell/desktop/icons.h"
#include "shell/main_window/preview_pane.h"

#include <QAbstractListModel>

namespace veldrane {

// The lines of the preview pane as a view shows them, each made when it is asked for: its text, picture, colour and
// weight. The system's colours are those of the application's palette.
class PreviewModel : public QAbstractListModel
{
    Q_OBJECT

  public:
    // The pane must outlive the model.
    explicit PreviewModel(PreviewPane& pane, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

  private:
    PreviewPane& pane_;
    mutable IconSet icons_; // which are loaded as they are met
    Connection replacing_;
    Connection replaced_;
};

} // namespace veldrane
