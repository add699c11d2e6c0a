#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace veldrane {

// Emitted text is written as it will stand in the file, with a backtick for a double quote and `{Name}` for a value:
//
//     emit("{Scope} Property Get {PropertyName}() as {DataType}", LineClass::HeadProperty);
//
// The names that a line may use are the vocabulary of its scope: the facts that the line is about. A literal is parsed
// while the program is compiled, so a misspelled name or an unpaired brace does not build.

// One name of a vocabulary. Append adds the value to the line being made; it is not expanded again.
template <class Scope>
struct Placeholder
{
    std::string_view Name;
    void (*Append)(std::string& line, const Scope& scope);
};

// The names that lines about a `Scope` may use, a std::array of Placeholder<Scope>. Each scope specialises it:
//
//     template <> inline constexpr auto Vocabulary<MyScope> = std::to_array<Placeholder<MyScope>>({...});
template <class Scope>
inline constexpr std::array<Placeholder<Scope>, 0> Vocabulary{};

// The vocabulary of `Base` for the scope `Derived` that derives from it.
template <class Derived, class Base>
[[nodiscard]] consteval auto InheritedVocabulary()
{
    return []<std::size_t... I>(std::index_sequence<I...>)
    {
        return std::array<Placeholder<Derived>, sizeof...(I)>{
            Placeholder<Derived>{Vocabulary<Base>[I].Name, [](std::string& line, const Derived& scope) { Vocabulary<Base>[I].Append(line, scope); }}...};
    }
    (std::make_index_sequence<Vocabulary<Base>.size()>{});
}

// Two vocabularies as one. A name that stands in both has the meaning of the first.
template <class Scope, std::size_t A, std::size_t B>
[[nodiscard]] consteval std::array<Placeholder<Scope>, A + B> JoinVocabularies(const std::array<Placeholder<Scope>, A>& first, const std::array<Placeholder<Scope>, B>& second)
{
    std::array<Placeholder<Scope>, A + B> joined{};
    for (std::size_t i = 0; i < A; ++i)
        joined[i] = first[i];
    for (std::size_t i = 0; i < B; ++i)
        joined[A + i] = second[i];
    return joined;
}

// Text with no placeholders: braces in it belong to the text. Backticks in it stay, unless the emitter converts all lines.
struct Verbatim
{
    consteval explicit Verbatim(const char* text) : Text(text) {}
    std::string_view Text;
};

namespace template_error {
// None of these is constexpr: reaching one of them ends the build at the writer's line, which shows the literal.
void ThisLineUsesANameThatItsScopeDoesNotHave(std::string_view literal);
void ThisLineHasAnUnpairedBrace(std::string_view literal);
void ThisLineHasTooManyPieces(std::string_view literal);
} // namespace template_error

// One emitted line, parsed.
template <class Scope>
class TemplateLine
{
  public:
    consteval TemplateLine(const char* literal) : literal_(literal) // NOLINT(google-explicit-constructor): emit("...")
    {
        std::string_view rest = literal_;
        while (!rest.empty()) {
            const std::size_t brace = rest.find_first_of("{}");
            if (brace == std::string_view::npos) {
                Push({.Text = rest, .Append = nullptr});
                break;
            }
            if (brace > 0)
                Push({.Text = rest.substr(0, brace), .Append = nullptr});
            const std::size_t close = rest.find('}', brace);
            if (rest[brace] == '}' || close == std::string_view::npos) {
                template_error::ThisLineHasAnUnpairedBrace(literal_);
                break;
            }
            Push({.Text = {}, .Append = Find(rest.substr(brace + 1, close - brace - 1))});
            rest.remove_prefix(close + 1);
        }
    }

    // Appends the line's text to `line`.
    void Expand(std::string& line, const Scope& scope) const
    {
        for (std::size_t i = 0; i < count_; ++i) {
            const Piece& piece = pieces_[i];
            if (piece.Append != nullptr)
                piece.Append(line, scope);
            else
                line.append(piece.Text);
        }
    }

    // Whether the literal asks for double quotes.
    [[nodiscard]] bool HasBacktick() const { return literal_.find('`') != std::string_view::npos; }

    [[nodiscard]] std::string_view Literal() const { return literal_; }

  private:
    struct Piece
    {
        std::string_view Text;
        void (*Append)(std::string& line, const Scope& scope) = nullptr;
    };

    static constexpr std::size_t kMostPieces = 20;

    consteval void Push(Piece piece)
    {
        if (count_ == kMostPieces)
            template_error::ThisLineHasTooManyPieces(literal_);
        pieces_[count_++] = piece;
    }

    consteval auto Find(std::string_view name) const
    {
        for (const Placeholder<Scope>& placeholder : Vocabulary<Scope>)
            if (placeholder.Name == name)
                return placeholder.Append;
        template_error::ThisLineUsesANameThatItsScopeDoesNotHave(literal_);
        return Vocabulary<Scope>[0].Append;
    }

    std::string_view literal_;
    std::array<Piece, kMostPieces> pieces_{};
    std::size_t count_ = 0;
};

} // namespace veldrane
