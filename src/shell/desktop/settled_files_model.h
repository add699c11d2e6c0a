#pragma once

#include "generator/code_generation.h"
#include "shell/desktop/icons.h"

#include <QAbstractTableModel>

#include <vector>

namespace veldrane {

// What became of each file of a run: its name, and in a second column the outcome in a word.
class SettledFilesModel : public QAbstractTableModel
{
    Q_OBJECT

  public:
    explicit SettledFilesModel(QObject* parent = nullptr) : QAbstractTableModel(parent) {}

    // Replaces all rows.
    void Show(std::vector<SettledFile> files);

    // "12 files: 9 new, 3 overwritten".
    [[nodiscard]] QString Summary() const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;

  private:
    std::vector<SettledFile> files_;
    mutable IconSet icons_;
};

} // namespace veldrane
