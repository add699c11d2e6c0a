#pragma once

#include "editors/arguments.h"
#include "editors/member_surroundings.h"
#include "model/signal.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace veldrane {

struct ArgumentRow
{
    std::string Name;
    std::string Signature; // as ArgumentSignature
};

// The keys that stand for commands while the list has the focus.
enum class ArgumentKey
{
    Insert,
    Delete,
    ControlUp,
    ControlDown,
};

// What these keys do, a line each.
inline constexpr std::string_view kArgumentKeysHelp =
    "Insert'           - Adds a new argument.\r\nDelete'           - Deletes the currently selected argument\r\nCTRL-Up Arrow     - Moves the selected argument up one\r\nCTRL-Down Arrow   - Moves the selected argument down one";

// Whose arguments a list holds.
struct ArgumentOwner
{
    std::string_view FormName; // of the dialog
    std::string WhyFixed{};    // why they can't be changed, for a tip; "" if they can
    std::string WhyRequired{}; // why each of them has to be given, for a tip; "" if one may be left out
};

// The list of arguments in the dialogs of a method and of an event, with its commands. It works on a copy.
class ArgumentList
{
  public:
    // `surroundings` must outlive the list.
    ArgumentList(const MemberSurroundings& surroundings, ArgumentOwner owner, Arguments arguments,
                 ArgumentsPreview preview);

    [[nodiscard]] const Arguments& Items() const { return items_; }
    [[nodiscard]] std::vector<ArgumentRow> Rows() const;

    // All arguments as they stand between the parentheses of the member's first line.
    [[nodiscard]] std::string Signature() const;

    // Whether the arguments differ from what they were at first.
    [[nodiscard]] bool IsModified() const { return items_ != atFirst_; }

    // The rows that are selected, from 0 and in their order; they follow their arguments.
    [[nodiscard]] const std::vector<std::size_t>& Selected() const { return selected_; }
    void Select(std::vector<std::size_t> rows);

    // Why no command does anything, for a tip; "" if they do.
    [[nodiscard]] const std::string& WhyFixed() const { return owner_.WhyFixed; }

    // Whether the commands have something to do. `New` has, unless the arguments can't be changed.
    [[nodiscard]] bool CanEdit() const { return MayChange() && selected_.size() == 1; }
    [[nodiscard]] bool CanDelete() const { return MayChange() && !selected_.empty(); }
    [[nodiscard]] bool CanMoveUp() const;
    [[nodiscard]] bool CanMoveDown() const;

    // The commands. A failure is reported.
    void New();
    void Edit();
    void Delete(); // asks for each of the selected rows; Cancel ends it
    void MoveUp(); // the selected rows by one, as far as there is place; asks where one becomes optional by that
    void MoveDown();

    // Does what the key stands for.
    void KeyDown(ArgumentKey key);

    Signal<> Changed; // rows or selection, by a command

  private:
    [[nodiscard]] bool MayChange() const { return owner_.WhyFixed.empty(); }
    [[nodiscard]] bool IsSelected(std::size_t row) const;
    [[nodiscard]] bool MayRise(std::size_t row) const;
    [[nodiscard]] bool MaySink(std::size_t row) const;
    [[nodiscard]] bool ConfirmDeletion(std::size_t row) const;
    [[nodiscard]] bool SinksBehindOptional(std::size_t upper) const;
    [[nodiscard]] bool ConfirmSwap(std::size_t upper, const std::string& question) const;
    bool RaiseRow(std::size_t row);
    bool SinkRow(std::size_t row);
    void SwapWithNext(std::size_t upper);
    void Run(std::string_view command, const std::function<void()>& body);

    const MemberSurroundings& surroundings_;
    ArgumentOwner owner_;
    Arguments items_;
    Arguments atFirst_;
    ArgumentsPreview preview_;
    std::vector<std::size_t> selected_;
};

} // namespace veldrane
