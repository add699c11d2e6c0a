#pragma once

#include "model/signal.h"
#include "ports/mouse_pointer.h"
#include "preview/preview.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veldrane {

// What lstPreview holds: the lines of the node that was shown last, in their order, and which of them is selected. The
// lines stand where the writers left them; a row is a look into them and is made when it is asked for.
class PreviewPane
{
  public:
    // Shows the node: its lines replace those that are there, and the first is selected. While a class with properties
    // is rendered the pointer is an hourglass. What writing text says in `ErrorText` of the generator is of this node
    // alone. Returns false and leaves the pane as it is while it is not available, and for a node that there is no view
    // of. A failure to write is reported; the lines made before it are shown.
    bool DisplayPreview(const std::optional<PreviewNode>& node, const PreviewSource& source, MousePointer& pointer);

    // Shows lines made elsewhere under a title, as DisplayPreview does.
    void Show(PreviewText text, std::string title);

    void Clear() { Show({}, {}); }

    // The blocks of lines as the writers gave them; their lines, one behind the other, are the rows.
    [[nodiscard]] const std::vector<TTCOutputs>& Blocks() const { return text_.Blocks; }

    [[nodiscard]] std::size_t Count() const { return rows_.size(); }

    // The line, its picture, colour and weight. The row must be below Count; the reference holds until Replacing.
    [[nodiscard]] const TTCOutput& Row(std::size_t row) const { return *rows_[row]; }

    // The first row at or after `from` whose text holds `words`, letter by letter; nothing if there is none.
    [[nodiscard]] std::optional<std::size_t> RowWith(std::string_view words, std::size_t from = 0) const;

    // The row that a person stands on; nothing while the pane is empty.
    [[nodiscard]] std::optional<std::size_t> Selected() const { return selected_; }

    // Selects the row and has it scrolled into view; a row that is not there is passed over.
    void Select(std::size_t row);

    // What the lines are of: the name of a class or a collection, "Preview" for any other node, "" for an empty pane.
    [[nodiscard]] const std::string& Title() const { return title_; }

    // False while the pane is hidden: nothing is rendered for it then.
    bool Available = true;

    Signal<> Replacing;                   // the rows are about to go
    Signal<> Replaced;                    // the new ones are there
    Signal<std::size_t> SelectionChanged; // the row
  private:
    PreviewText text_;
    std::vector<const TTCOutput*> rows_; // into text_
    std::optional<std::size_t> selected_;
    std::string title_;
};

} // namespace veldrane
