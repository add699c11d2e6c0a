#include "block_check.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <sstream>

namespace veldrane::testing {
namespace {

// A kind of block: how it begins, what ends it, what may stand between the two.
struct BlockKind
{
    std::string_view Opener; // words in capitals
    std::string_view Closer;
    std::string_view Middle = {};
    bool IsRoutine = false;
};

constexpr auto kKinds = std::to_array<BlockKind>({
    {"SUB", "END SUB", "", true},
    {"FUNCTION", "END FUNCTION", "", true},
    {"PROPERTY", "END PROPERTY", "", true},
    {"IF", "END IF", "ELSE"},
    {"SELECT CASE", "END SELECT", "CASE"},
    {"WITH", "END WITH"},
    {"FOR", "NEXT"},
    {"DO", "LOOP"},
    {"WHILE", "WEND"},
    {"TYPE", "END TYPE"},
    {"ENUM", "END ENUM"},
    {"BEGINPROPERTY", "ENDPROPERTY"},
    {"BEGIN", "END"}, // a form's control, the head of a class module
});

std::string_view Trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(" \t\r");
    return first == std::string_view::npos ? std::string_view() : text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

bool StartsWithWords(std::string_view statement, std::string_view words)
{
    return statement.starts_with(words) && (statement.size() == words.size() || statement[words.size()] == ' ' || statement[words.size()] == '(');
}

std::string_view WithoutScope(std::string_view statement)
{
    for (const std::string_view scope : {"PUBLIC", "PRIVATE", "FRIEND", "STATIC"})
        if (StartsWithWords(statement, scope))
            statement = Trimmed(statement.substr(scope.size()));
    return statement;
}

// A physical line as code: in capitals, its strings empty, without its comment.
struct CodeLine
{
    std::string Code;
    bool StringLeftOpen = false;
    bool IsContinued = false;
};

CodeLine CodeOf(std::string_view line)
{
    CodeLine code;
    for (const char letter : line) {
        if (letter == '"')
            code.StringLeftOpen = !code.StringLeftOpen;
        else if (code.StringLeftOpen)
            continue;
        else if (letter == '\'')
            break;
        code.Code += static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
    }
    code.Code = Trimmed(code.Code);
    code.IsContinued = !code.StringLeftOpen && code.Code.ends_with(" _");
    if (code.IsContinued)
        code.Code.pop_back();
    return code;
}

// The statements between the colons of a line. What stands behind the Then of an If belongs to it.
std::vector<std::string_view> StatementsOf(std::string_view code)
{
    if (StartsWithWords(code, "IF"))
        return {code};
    std::vector<std::string_view> statements;
    std::size_t from = 0;
    for (std::size_t at = 0; at <= code.size(); ++at)
        if (at == code.size() || (code[at] == ':' && code.substr(at, 2) != ":=")) {
            statements.push_back(Trimmed(code.substr(from, at - from)));
            from = at + 1;
        }
    return statements;
}

const BlockKind* OpenedBy(std::string_view statement)
{
    const std::string_view words = WithoutScope(statement);
    const auto* const kind = std::find_if(kKinds.begin(), kKinds.end(), [&](const BlockKind& it) { return StartsWithWords(words, it.Opener); });
    if (kind == kKinds.end() || (kind->Opener == "IF" && !words.ends_with(" THEN")))
        return nullptr;
    return kind;
}

class BlockChecker
{
  public:
    std::vector<FoundDefect> Check(std::string_view moduleText)
    {
        std::istringstream lines{std::string(moduleText)};
        for (std::string line; std::getline(lines, line);)
            ReadLine(line);
        if (!code_.empty())
            ReadStatements();
        while (!open_.empty())
            LeaveOpen();
        return std::move(found_);
    }

  private:
    struct OpenBlock
    {
        const BlockKind* Kind;
        std::size_t Line;
        std::string Text;
    };

    void ReadLine(std::string_view line)
    {
        ++number_;
        const CodeLine read = CodeOf(line);
        if (code_.empty()) {
            text_ = Trimmed(line);
            start_ = number_;
        }
        if (read.StringLeftOpen)
            found_.push_back({BlockDefect::StringLeftOpen, number_, std::string(Trimmed(line))});
        code_ += read.Code;
        if (read.IsContinued && !code_.empty())
            return;
        ReadStatements();
    }

    void ReadStatements()
    {
        for (const std::string_view statement : StatementsOf(code_))
            if (!statement.empty())
                ReadStatement(statement);
        code_.clear();
    }

    void ReadStatement(std::string_view statement)
    {
        if (const BlockKind* kind = OpenedBy(statement))
            return Open(*kind);
        const auto* const closed = std::find_if(kKinds.begin(), kKinds.end(), [&](const BlockKind& it) { return StartsWithWords(statement, it.Closer); });
        if (closed != kKinds.end())
            return Close(*closed);
        const auto* const middle = std::find_if(kKinds.begin(), kKinds.end(), [&](const BlockKind& it) { return !it.Middle.empty() && statement.starts_with(it.Middle); });
        if (middle != kKinds.end() && (StartsWithWords(statement, middle->Middle) || statement.starts_with("ELSEIF "))) {
            if (open_.empty() || open_.back().Kind != middle)
                Report(BlockDefect::ClosesNothing);
        } else if (open_.empty() && anyRoutine_ && !statement.starts_with("ATTRIBUTE ")) {
            Report(BlockDefect::OutsideRoutine);
        }
    }

    // No routine stands in another one, so what is open by then was forgotten.
    void Open(const BlockKind& kind)
    {
        if (kind.IsRoutine) {
            anyRoutine_ = true;
            while (!open_.empty())
                LeaveOpen();
        }
        open_.push_back({&kind, start_, text_});
    }

    void Close(const BlockKind& kind)
    {
        const auto matching = std::find_if(open_.rbegin(), open_.rend(), [&](const OpenBlock& block) { return block.Kind == &kind || (kind.IsRoutine && block.Kind->IsRoutine); });
        if (matching == open_.rend())
            return Report(BlockDefect::ClosesNothing);
        for (auto above = matching - open_.rbegin(); above > 0; --above)
            LeaveOpen();
        if (open_.back().Kind != &kind)
            found_.push_back({BlockDefect::ClosedAsOther, number_, open_.back().Text});
        open_.pop_back();
    }

    void LeaveOpen()
    {
        found_.push_back({BlockDefect::NotClosed, open_.back().Line, open_.back().Text});
        open_.pop_back();
    }

    void Report(BlockDefect defect) { found_.push_back({defect, start_, text_}); }

    std::vector<OpenBlock> open_;
    std::vector<FoundDefect> found_;
    std::string code_; // of the statement so far, over all lines that it is continued on
    std::string text_; // the first of these lines
    std::size_t start_ = 0;
    std::size_t number_ = 0;
    bool anyRoutine_ = false;
};

} // namespace

std::string_view NameOf(BlockDefect defect)
{
    switch (defect) {
    case BlockDefect::StringLeftOpen:
        return "string left open";
    case BlockDefect::NotClosed:
        return "not closed";
    case BlockDefect::ClosedAsOther:
        return "closed as another kind of routine";
    case BlockDefect::ClosesNothing:
        return "closes nothing";
    case BlockDefect::OutsideRoutine:
        return "outside of every routine";
    }
    return "";
}

std::vector<FoundDefect> CheckBlocks(std::string_view moduleText)
{
    return BlockChecker().Check(moduleText);
}

} // namespace veldrane::testing
