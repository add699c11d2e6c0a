#pragma once

#include <QAbstractTableModel>
#include <QStringList>

#include <cstddef>

namespace veldrane {

// A table that is only looked at: as many columns as headers, and nothing below a row.
class ReadOnlyTable : public QAbstractTableModel
{
    Q_OBJECT

  public:
    using QAbstractTableModel::QAbstractTableModel;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const final;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const final;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const final;

  protected:
    // What stands above the columns now.
    [[nodiscard]] virtual QStringList Headers() const = 0;

    // How many rows there are now.
    [[nodiscard]] virtual std::size_t Rows() const = 0;
};

} // namespace veldrane
