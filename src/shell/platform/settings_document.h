#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace veldrane {

// The text of a settings file, and what it says:
//
//   ; a comment, as is a line that begins with #
//   [Options]
//   Author=Ann Baker
//   WrapperClassName=" "
//   Greeting="two%0D%0Alines, a %22quote%22, a blank at the end "
//   PreviewBackgroundColor=dword:00fef8f3
//   "a name=with oddities%3D"=1
//
// A value stands as it is when it reads back as it is. Any other stands between quotes, with %HH for a byte that a
// line can't carry: a control character, a quote, %, a byte that is no UTF-8. `dword:` and eight hexadecimal digits,
// high byte first, are a 32-bit number, read as its signed decimal text. Names follow the same rule. Sections and
// names are compared without regard to case and keep their order; a section that comes twice is one, and of two values
// of one name the last counts. Lines that are not changed stay as they were written.
class SettingsDocument
{
  public:
    // Throws RuntimeError (5) that says which line is wrong and why.
    [[nodiscard]] static SettingsDocument Parse(std::string_view text);

    [[nodiscard]] std::string Text() const;

    [[nodiscard]] std::optional<std::string> Find(std::string_view section, std::string_view name) const;
    [[nodiscard]] std::vector<std::pair<std::string, std::string>> All(std::string_view section) const;

    void Set(std::string_view section, std::string_view name, std::string_view value);
    void Remove(std::string_view section, std::string_view name);
    void RemoveSection(std::string_view section);

  private:
    struct Line
    {
        std::string Text;
        std::optional<std::string> Name; // none for comments and blank lines
        std::string Value;
    };
    using Places = std::unordered_map<std::string, std::size_t>; // by folded name

    struct Section
    {
        std::string Header; // the line
        std::vector<Line> Lines;
        Places Names; // of the lines that have one
    };

    void ParseLine(std::string_view line, std::size_t number);
    void OpenSection(std::string_view line, std::string_view name);
    Section& AddSection(std::string header, std::string_view name);
    void AddEntry(std::string_view line);
    [[nodiscard]] const Section* FindSection(std::string_view name) const;
    [[nodiscard]] Section* FindSection(std::string_view name);

    // Over the line of that name, else to the place.
    static void Put(Section& section, Line line, std::size_t place);

    // Takes the name out; what stood behind it stands one place further ahead.
    static void Forget(Places& places, Places::const_iterator name);

    std::vector<Line> preamble_; // lines before the first section
    std::vector<Section> sections_;
    Places names_;         // of the sections
    std::size_t open_ = 0; // the section that the next line belongs to, while reading
};

} // namespace veldrane
