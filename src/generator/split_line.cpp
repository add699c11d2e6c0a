#include "generator/outputs.h"

#include "text/characters.h"

#include <cmath>

namespace veldrane {
namespace {

constexpr std::size_t kPieceLimit = 400; // characters
constexpr double kMostContinuations = 15;

// Cuts one statement. Once it was cut inside a string, every later piece opens with a quote, those that start outside
// a string as well: on purpose.
class Splitter
{
  public:
    Splitter(std::string_view text, TTCOutputs& lines, LineClass lineClass) : text_(text), lines_(lines), lineClass_(lineClass) {}

    void Run()
    {
        bool inString = false;
        std::size_t character = 1;
        for (std::size_t at = 0; at < text_.size(); at += text::CharacterSize(text_, at), ++character) {
            if (text_[at] == '"')
                inString = !inString;
            count_ = character - start_;
            if (count_ < kPieceLimit)
                continue;
            if (inString)
                BreakInString(at, character);
            else if (text_[at] == ',' || text_[at] == ' ')
                BreakAtGap(at, character);
        }
        // A text of one character is lost: the count is that of the last round, a break notwithstanding.
        if (count_ > 0)
            AddRest();
    }

  private:
    void BreakInString(std::size_t at, std::size_t character)
    {
        lines_.Add(Piece(at) + "\" & _", lineClass_);
        reopen_ = true;
        StartAt(at, character);
    }

    void BreakAtGap(std::size_t at, std::size_t character)
    {
        lines_.Add(Piece(at) + " _", lineClass_);
        StartAt(at, character);
    }

    void AddRest()
    {
        Color codeColor = kCodeColor;
        lines_.Add(Piece(text_.size()), LookOf(lineClass_, lines_.Colors()).Bold, codeColor, "");
    }

    [[nodiscard]] std::string Piece(std::size_t end) const
    {
        std::string piece = reopen_ ? "    \"" : "    ";
        piece += text_.substr(startByte_, end - startByte_);
        return piece;
    }

    void StartAt(std::size_t at, std::size_t character)
    {
        startByte_ = at;
        start_ = character;
    }

    std::string_view text_;
    TTCOutputs& lines_;
    LineClass lineClass_;
    std::size_t startByte_ = 0;
    std::size_t start_ = 1; // 1-based character
    std::size_t count_ = 1;
    bool reopen_ = false;
};

} // namespace

void AddSplitLine(std::string_view text, TTCOutputs& lines, LineClass lineClass, Messages& messages)
{
    // Rounded with halves to even.
    if (std::nearbyint(static_cast<double>(text::Length(text)) / kPieceLimit) > kMostContinuations) {
        messages.Tell("", "Unable to add lines to code. The splitting of lines is limited to 16.");
        return;
    }
    Splitter(text, lines, lineClass).Run();
}

} // namespace veldrane
