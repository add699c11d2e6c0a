#pragma once

#include "datasource/table_lists.h"
#include "shell/desktop/icons.h"

#include <QAbstractListModel>
#include <string>
#include <string_view>
#include <vector>

namespace veldrane {

// One of the lists of a data source as a view with one headed column shows it.
class RowListModel : public QAbstractListModel
{
    Q_OBJECT

  public:
    // Header and pictures must outlive the model.
    RowListModel(std::string_view header, IconSet& icons, QObject* parent = nullptr);

    // Replaces all rows.
    void Show(std::vector<ListRow> rows);

    // The row behind a valid index of this model.
    [[nodiscard]] const ListRow& Row(const QModelIndex& index) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

  private:
    std::string_view header_;
    IconSet& icons_;
    QIcon noPicture_;
    std::vector<ListRow> rows_;
};

} // namespace veldrane
