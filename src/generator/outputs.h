#pragma once

#include "generator/line_class.h"
#include "ports/messages.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace veldrane {

// One generated line.
struct TTCOutput
{
    std::string Icon; // name of the small picture beside the line; "" for none
    Color ForeColor = 0;
    bool Bold = false;
    std::string LineText; // without a line end
};

// Generated lines in their order, coloured with the given colours.
class TTCOutputs
{
  public:
    explicit TTCOutputs(const LineColors& colors = {}) : colors_(colors) {}

    // Appends a line as it stands. A `foreColor` of -1 means the code colour and is overwritten with it. With a key
    // that is not empty the line is reached by it; RuntimeError 457 if the key is in use without regard to case.
    // The reference holds until the next line is added.
    TTCOutput& Add(std::string lineText, bool bold, Color& foreColor, std::string_view icon, std::string_view key = {});

    // Appends a line of the class, as it stands.
    TTCOutput& Add(std::string lineText, LineClass lineClass = LineClass::Code);

    // By 1-based position (RuntimeError 9) or by key (RuntimeError 5).
    [[nodiscard]] const TTCOutput& Item(std::size_t position) const;
    [[nodiscard]] const TTCOutput& Item(std::string_view key) const;

    [[nodiscard]] std::size_t Count() const { return lines_.size(); }

    void Remove(std::size_t position);
    void Remove(std::string_view key);

    [[nodiscard]] auto begin() const { return lines_.begin(); }
    [[nodiscard]] auto end() const { return lines_.end(); }

    [[nodiscard]] const LineColors& Colors() const { return colors_; }

  private:
    [[nodiscard]] std::size_t PositionOf(std::string_view key) const;

    LineColors colors_;
    std::vector<TTCOutput> lines_;
    std::unordered_map<std::string, std::size_t> keys_; // folded key to 0-based position
};

// The text with every backtick turned into a double quote.
[[nodiscard]] std::string ConvertQuotes(std::string text);

// Every line's text, each followed by CR LF.
[[nodiscard]] std::string OutputsToText(const TTCOutputs& lines);

// The same at the end of a text.
void AppendOutputs(std::string& text, const TTCOutputs& lines);

// Adds one Visual Basic statement as several physical lines, because the language holds neither lines of any length
// nor more than 16 pieces. A statement that is too long for that is answered with a message and adds nothing. Lengths
// are counted in characters.
void AddSplitLine(std::string_view text, TTCOutputs& lines, LineClass lineClass, Messages& messages);

} // namespace veldrane
