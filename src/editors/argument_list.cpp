#include "editors/argument_list.h"

#include "editors/frm_add_edit_argument.h"

#include <algorithm>
#include <utility>

namespace veldrane {
ArgumentList::ArgumentList(const MemberSurroundings& surroundings, ArgumentOwner owner, Arguments arguments,
                           ArgumentsPreview preview)
    : surroundings_(surroundings), owner_(std::move(owner)), items_(std::move(arguments)), atFirst_(items_),
      preview_(std::move(preview))
{}

std::vector<ArgumentRow> ArgumentList::Rows() const
{
    std::vector<ArgumentRow> rows;
    for (const TTCParameter& argument : items_)
        rows.push_back({.Name = argument.VariableName, .Signature = ArgumentSignature(argument)});
    return rows;
}

std::string ArgumentList::Signature() const
{
    std::string signature;
    for (const TTCParameter& argument : items_)
        signature += (signature.empty() ? "" : ", ") + ArgumentSignature(argument);
    return signature;
}

void ArgumentList::Select(std::vector<std::size_t> rows)
{
    std::erase_if(rows, [this](std::size_t row) { return row >= items_.size(); });
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    selected_ = std::move(rows);
}

bool ArgumentList::IsSelected(std::size_t row) const
{
    return std::binary_search(selected_.begin(), selected_.end(), row);
}

bool ArgumentList::MayRise(std::size_t row) const
{
    return row > 0 && !IsSelected(row - 1);
}

bool ArgumentList::MaySink(std::size_t row) const
{
    return row + 1 < items_.size() && !IsSelected(row + 1);
}

bool ArgumentList::CanMoveUp() const
{
    return MayChange() &&
           std::any_of(selected_.begin(), selected_.end(), [this](std::size_t row) { return MayRise(row); });
}

bool ArgumentList::CanMoveDown() const
{
    return MayChange() &&
           std::any_of(selected_.begin(), selected_.end(), [this](std::size_t row) { return MaySink(row); });
}

void ArgumentList::Run(std::string_view command, const std::function<void()>& body)
{
    if (!MayChange())
        return;
    Guarded(surroundings_.Edit.Errors, owner_.FormName, command, body);
    Changed.Raise();
}

void ArgumentList::New()
{
    Run("New", [this] {
        frmAddEditArgument form(surroundings_, items_, preview_, owner_.WhyRequired);
        form.AddArgument();
        if (!surroundings_.Dialogs.Show(form))
            return;
        items_.push_back(form.Argument());
        selected_ = {items_.size() - 1};
    });
}

void ArgumentList::Edit()
{
    if (!CanEdit())
        return;
    Run("Edit", [this] {
        const std::size_t row = selected_.front();
        frmAddEditArgument form(surroundings_, items_, preview_, owner_.WhyRequired);
        form.EditArgument(row);
        if (!surroundings_.Dialogs.Show(form))
            return;
        items_.at(row) = form.Argument();
    });
}

bool ArgumentList::ConfirmDeletion(std::size_t row) const
{
    return surroundings_.Edit.Messages.Ask(
               {.Title = "Confirm Delete",
                .Text = "Are you sure you want to delete the " + items_.at(row).VariableName + " argument?",
                .Offered = Buttons::OkCancel,
                .Icon = MessageIcon::Question,
                .Default = Answer::Cancel}) == Answer::Ok;
}

void ArgumentList::Delete()
{
    if (!CanDelete())
        return;
    Run("Delete", [this] {
        std::size_t row = 0;
        while (!selected_.empty() && ConfirmDeletion(selected_.front())) {
            row = selected_.front();
            items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(row));
            selected_.erase(selected_.begin());
            for (std::size_t& other : selected_)
                --other;
        }
        if (selected_.empty() && !items_.empty())
            selected_ = {std::min(row, items_.size() - 1)};
    });
}

// The upper of two rows would have to be given behind one that may be left out. Where none may, nothing becomes so.
bool ArgumentList::SinksBehindOptional(std::size_t upper) const
{
    return owner_.WhyRequired.empty() && items_.at(upper + 1).OptionalIndicator && !items_.at(upper).OptionalIndicator;
}

bool ArgumentList::ConfirmSwap(std::size_t upper, const std::string& question) const
{
    return !SinksBehindOptional(upper) ||
           surroundings_.Edit.Messages.Ask({.Title = "Optional Parameter Move Confirmation",
                                            .Text = question,
                                            .Offered = Buttons::YesNo,
                                            .Icon = MessageIcon::Question,
                                            .Default = Answer::No}) == Answer::Yes;
}

void ArgumentList::SwapWithNext(std::size_t upper)
{
    if (SinksBehindOptional(upper))
        items_.at(upper).OptionalIndicator = true;
    std::swap(items_.at(upper), items_.at(upper + 1));
    for (std::size_t& row : selected_)
        if (row == upper || row == upper + 1)
            row = 2 * upper + 1 - row;
}

bool ArgumentList::RaiseRow(std::size_t row)
{
    if (!MayRise(row))
        return true;
    if (!ConfirmSwap(row - 1, "Moving this Argument up will force the " + items_.at(row - 1).VariableName +
                                  " argument to become an 'Optional' parameter. Are you sure you want to do this?"))
        return false;
    SwapWithNext(row - 1);
    return true;
}

bool ArgumentList::SinkRow(std::size_t row)
{
    if (!MaySink(row))
        return true;
    if (!ConfirmSwap(row, "Moving this Argument down will force the " + items_.at(row).VariableName +
                              " argument to become an 'Optional' parameter. Are you sure you want to do this?"))
        return false;
    SwapWithNext(row);
    return true;
}

void ArgumentList::MoveUp()
{
    Run("MoveUp", [this] {
        const std::vector<std::size_t> rows = selected_;
        static_cast<void>(std::all_of(rows.begin(), rows.end(), [this](std::size_t row) { return RaiseRow(row); }));
    });
}

void ArgumentList::MoveDown()
{
    Run("MoveDown", [this] {
        const std::vector<std::size_t> rows = selected_;
        static_cast<void>(std::all_of(rows.rbegin(), rows.rend(), [this](std::size_t row) { return SinkRow(row); }));
    });
}

void ArgumentList::KeyDown(ArgumentKey key)
{
    switch (key) {
    case ArgumentKey::Insert:
        return New();
    case ArgumentKey::Delete:
        return Delete();
    case ArgumentKey::ControlUp:
        return MoveUp();
    case ArgumentKey::ControlDown:
        return MoveDown();
    }
}

} // namespace veldrane
