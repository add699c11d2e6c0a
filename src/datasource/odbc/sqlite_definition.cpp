#include "datasource/odbc/sqlite_definition.h"

#include "text/case_folding.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>

namespace veldrane {
namespace {

struct Token
{
    std::string Text;
    bool Quoted = false;

    [[nodiscard]] bool Is(std::string_view keyword) const { return !Quoted && text::EqualFolded(Text, keyword); }
};

// Splits a statement into words, quoted names and single signs; comments and blanks are passed over.
class Tokens
{
  public:
    explicit Tokens(std::string_view statement) : rest_(statement) {}

    std::optional<Token> Next()
    {
        SkipBlanksAndComments();
        if (rest_.empty())
            return std::nullopt;
        const char first = rest_.front();
        if (first == '"' || first == '`' || first == '\'')
            return Quoted(first);
        if (first == '[')
            return Quoted(']');
        if (!IsWordPart(first))
            return Token{.Text = std::string(Take(1))};
        return Token{.Text = std::string(Take(static_cast<std::size_t>(
                         std::find_if_not(rest_.begin(), rest_.end(), IsWordPart) - rest_.begin())))};
    }

  private:
    // Every byte of a letter beyond ASCII belongs to a word.
    static bool IsWordPart(char c)
    {
        const auto byte = static_cast<unsigned char>(c);
        return byte >= 0x80 || std::isalnum(byte) != 0 || c == '_' || c == '$';
    }

    std::string_view Take(std::size_t size)
    {
        const std::string_view taken = rest_.substr(0, size);
        rest_.remove_prefix(taken.size());
        return taken;
    }

    void SkipPast(std::string_view end)
    {
        const std::size_t at = rest_.find(end);
        Take(at == std::string_view::npos ? rest_.size() : at + end.size());
    }

    void SkipBlanksAndComments()
    {
        for (;;) {
            Take(std::min(rest_.find_first_not_of(" \t\r\n\f"), rest_.size()));
            if (rest_.starts_with("--"))
                SkipPast("\n");
            else if (rest_.starts_with("/*"))
                SkipPast("*/");
            else
                return;
        }
    }

    // A quote within is doubled, but a closing bracket can't be.
    Token Quoted(char end)
    {
        Token token{.Text = {}, .Quoted = true};
        for (Take(1); !rest_.empty();) {
            const char c = Take(1).front();
            if (c == end && (end == ']' || !rest_.starts_with(end)))
                break;
            if (c == end)
                Take(1);
            token.Text.push_back(c);
        }
        return token;
    }

    std::string_view rest_;
};

} // namespace

std::string PrimaryKeyNameOf(std::string_view createStatement)
{
    // The last four tokens, in a window that moves: CONSTRAINT name PRIMARY KEY.
    std::array<Token, 4> window;
    Tokens tokens(createStatement);
    while (std::optional<Token> token = tokens.Next()) {
        std::rotate(window.begin(), window.begin() + 1, window.end());
        window.back() = std::move(*token);
        if (window[0].Is("CONSTRAINT") && window[2].Is("PRIMARY") && window[3].Is("KEY"))
            return window[1].Text;
    }
    return {};
}

} // namespace veldrane
