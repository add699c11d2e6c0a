#pragma once

#include "shell/desktop/read_only_table.h"
#include "shell/wizard/file_differences.h"

#include <optional>
#include <vector>

namespace veldrane {

// How the differences of two texts are laid out.
enum class DifferenceLayout
{
    Unified,    // columns: number in the file, number in the new text, line
    SideBySide, // columns: number and line of the file, number and line of the new text
};

// The lines of two texts as a table view shows them: a sign before each line, "-" for one of the file alone and "+" for
// one of the new text alone, and a background in the colour of the sign, for light and dark palettes.
class DifferencesModel : public ReadOnlyTable
{
    Q_OBJECT

  public:
    using ReadOnlyTable::ReadOnlyTable;

    // Replaces all lines; the layout stays.
    void Show(std::vector<DifferenceLine> lines);

    void SetLayout(DifferenceLayout layout);
    [[nodiscard]] DifferenceLayout Layout() const { return layout_; }

    // Whether the column holds lines, not their numbers.
    [[nodiscard]] bool HoldsLines(int column) const;

    // The longest line, in characters with its sign.
    [[nodiscard]] qsizetype Longest() const { return longest_; }

    // The row at which the next difference below `row` begins (the first one for -1), or the one above; nothing if
    // there is none.
    [[nodiscard]] std::optional<int> DifferenceBelow(int row) const;
    [[nodiscard]] std::optional<int> DifferenceAbove(int row) const;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

  protected:
    [[nodiscard]] QStringList Headers() const override;
    [[nodiscard]] std::size_t Rows() const override;

  private:
    [[nodiscard]] const DifferenceLine* LineAt(const QModelIndex& index) const;
    [[nodiscard]] bool IsOfFile(int column) const;
    [[nodiscard]] bool Differs(int row) const;
    [[nodiscard]] bool BeginsDifference(int row) const;

    DifferenceLayout layout_ = DifferenceLayout::Unified;
    std::vector<DifferenceLine> lines_;
    std::vector<DifferenceRow> rows_; // side by side
    qsizetype longest_ = 0;
};

} // namespace veldrane
