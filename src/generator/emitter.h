#pragma once

#include "generator/outputs.h"
#include "generator/template_line.h"

#include <string>
#include <type_traits>
#include <utility>

namespace veldrane {

// Whether the backticks of an expanded line become double quotes, those of its values included.
enum class Quotes
{
    AsWritten, // if the literal holds a backtick
    Keep,
    Convert,
};

// Emits lines about one scope. Called with a literal in the template notation, it appends the line, expanded.
template <class ScopeType>
class Emitter
{
  public:
    // Both must outlive the emitter. `quotes` is what it does with lines that ask for nothing else.
    Emitter(TTCOutputs& lines, const ScopeType& scope, Quotes quotes = Quotes::AsWritten) : lines_(lines), scope_(scope), quotes_(quotes) {}
    Emitter(TTCOutputs& lines, const ScopeType&& scope, Quotes quotes = Quotes::AsWritten) = delete;

    void operator()(TemplateLine<std::type_identity_t<ScopeType>> line, LineClass lineClass = LineClass::Code, Quotes quotes = Quotes::AsWritten) const { lines_.Add(Text(line, quotes), lineClass); }

    void operator()(Verbatim line, LineClass lineClass = LineClass::Code) const { lines_.Add(quotes_ == Quotes::Convert ? ConvertQuotes(std::string(line.Text)) : std::string(line.Text), lineClass); }

    // The expanded text of a line, for a writer that does more with it than append it.
    [[nodiscard]] std::string Text(const TemplateLine<std::type_identity_t<ScopeType>>& line, Quotes quotes = Quotes::AsWritten) const
    {
        std::string text;
        text.reserve(2 * line.Literal().size());
        line.Expand(text, scope_);
        const Quotes asked = quotes == Quotes::AsWritten ? quotes_ : quotes;
        const bool convert = asked == Quotes::Convert || (asked == Quotes::AsWritten && line.HasBacktick());
        return convert ? ConvertQuotes(std::move(text)) : text;
    }

    // An emitter of lines about something else, into the same list.
    template <class Other>
    [[nodiscard]] Emitter<Other> About(const Other& scope) const
    {
        return Emitter<Other>(lines_, scope, quotes_);
    }
    template <class Other>
    Emitter<Other> About(const Other&& scope) const = delete;

    // A narrower scope knows all that a wider one does, so an emitter about it can write the lines of both.
    template <class Wider>
    requires(std::is_base_of_v<Wider, ScopeType> && !std::is_same_v<Wider, ScopeType>) operator Emitter<Wider>() const // NOLINT(google-explicit-constructor): passed as it stands
    {
        return Emitter<Wider>(lines_, scope_, quotes_);
    }

    [[nodiscard]] const ScopeType& Scope() const { return scope_; }
    [[nodiscard]] TTCOutputs& Lines() const { return lines_; }

  private:
    TTCOutputs& lines_;
    const ScopeType& scope_;
    Quotes quotes_;
};

} // namespace veldrane
