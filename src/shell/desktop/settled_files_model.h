#pragma once

#include "generator/code_generation.h"
#include "shell/desktop/icons.h"
#include "shell/desktop/read_only_table.h"

#include <vector>

namespace veldrane {

// What became of each file of a run: its name, and in a second column the outcome in a word.
class SettledFilesModel : public ReadOnlyTable
{
    Q_OBJECT

  public:
    using ReadOnlyTable::ReadOnlyTable;

    // Replaces all rows.
    void Show(std::vector<SettledFile> files);

    // "12 files: 9 new, 3 overwritten".
    [[nodiscard]] QString Summary() const;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

  protected:
    [[nodiscard]] QStringList Headers() const override;
    [[nodiscard]] std::size_t Rows() const override { return files_.size(); }

  private:
    std::vector<SettledFile> files_;
    mutable IconSet icons_;
};

} // namespace veldrane
