#include "editors/frm_add_edit_argument.h"

#include "datasource/naming.h"
#include "text/case_folding.h"

#include <utility>

namespace veldrane {
namespace {

constexpr std::string_view kNameControl = "txtArgumentName";
constexpr std::string_view kDefaultValueControl = "txtDefaultValue";

void TellNotPropagated(Messages& messages, std::string_view text)
{
    messages.Tell("Optional Setting Not Propogated", std::string(text), MessageIcon::Warning);
}

} // namespace

frmAddEditArgument::frmAddEditArgument(const MemberSurroundings& surroundings, Arguments list, ArgumentsPreview preview,
                                       std::string whyRequired)
    : surroundings_(surroundings), list_(std::move(list)), preview_(std::move(preview)),
      whyRequired_(std::move(whyRequired))
{}

void frmAddEditArgument::AddArgument()
{
    caption_ = "Add Argument";
    position_ = list_.size();
    TTCParameter argument;
    argument.ParameterDataType = "Variant"; // the language's own default
    argument.OptionalIndicator = whyRequired_.empty() && HasOptionalBefore(list_, position_);
    list_.push_back(argument);
    ShowArgument();
}

void frmAddEditArgument::EditArgument(std::size_t position)
{
    caption_ = "Edit Argument";
    nameTouch_.Touch();
    position_ = position;
    ShowArgument();
}

void frmAddEditArgument::ShowArgument()
{
    const TTCParameter& argument = list_.at(position_);
    txtArgumentName = argument.VariableName;
    present_ = argument.ParameterDataType;
    cmbDataType = TypeKey(present_);
    chkByVal = argument.ByValIndicator;
    chkArray = argument.IsArray;
    txtDefaultValue = argument.DefaultValue;
    isOptional_ = argument.OptionalIndicator;
}

std::vector<TypeItem> frmAddEditArgument::DataTypes() const
{
    return TypeList({.None = true, .Present = present_});
}

void frmAddEditArgument::chkOptional_Click(bool on)
{
    if (!whyRequired_.empty())
        isOptional_ = isOptional_ && on;
    else if (on && HasRequiredAfter(list_, position_))
        TellNotPropagated(
            surroundings_.Edit.Messages,
            "The 'Optional' setting may only be applied to the last items in an argument list. There are arguments that are not optional appearing after this argument.");
    else if (!on && HasOptionalBefore(list_, position_))
        TellNotPropagated(
            surroundings_.Edit.Messages,
            "The 'Optional' setting may only be applied to the last items in an argument list. There are arguments that are optional appearing before this argument.");
    else
        isOptional_ = on;
    Changed.Raise();
}

void frmAddEditArgument::txtArgumentName_Change(std::string typed)
{
    txtArgumentName = std::move(typed);
    nameTouch_.Touch();
}

TypedName frmAddEditArgument::NameRules() const
{
    return {.Kind = "argument",
            .TakenTitle = "Duplicate Argument Name",
            .Rival = "argument of this list",
            .IsTaken =
                [this](std::string_view name) {
                    for (std::size_t i = 0; i < list_.size(); ++i)
                        if (i != position_ && text::EqualFolded(list_[i].VariableName, name))
                            return true;
                    return false;
                },
            .CodePage = surroundings_.Edit.CodePage};
}

std::string frmAddEditArgument::DataTypeHint() const
{
    return TypeOfKey(cmbDataType).empty()
               ? "Without a type the generated line ends in 'as', which Visual Basic does not compile."
               : "";
}

// A project file ends a value at a line break, and the rest of it could be read as anything.
std::string frmAddEditArgument::DefaultValueTrouble() const
{
    const std::string fault = UnwritablePart(txtDefaultValue, surroundings_.Edit.CodePage);
    if (!isOptional_ || fault.empty())
        return {};
    return "The default value '" + txtDefaultValue + "' has " + fault +
           ", so it can't enter the project. Please enter another value.";
}

std::string frmAddEditArgument::Trouble(std::string_view control) const
{
    if (control == kNameControl)
        return nameTouch_.IsSilentOf(txtArgumentName) ? std::string() : NameTrouble(txtArgumentName, NameRules());
    if (control == "cmbDataType")
        return DataTypeHint();
    return control == kDefaultValueControl ? DefaultValueTrouble() : std::string();
}

TTCParameter frmAddEditArgument::Argument() const
{
    TTCParameter argument = list_.at(position_);
    argument.VariableName = MakeValidName(txtArgumentName);
    if (cmbDataType != TypeKey(argument.ParameterDataType)) // what was not touched stays, be it as no box has it
        argument.ParameterDataType = TypeOfKey(cmbDataType);
    argument.ByValIndicator = chkByVal;
    argument.IsArray = chkArray;
    if (isOptional_)
        argument.DefaultValue = txtDefaultValue;
    else if (argument.OptionalIndicator)
        argument.DefaultValue.clear();
    argument.OptionalIndicator = isOptional_;
    return argument;
}

TTCOutputs frmAddEditArgument::Preview() const
{
    Arguments list = list_;
    list.at(position_) = Argument();
    return preview_(list);
}

bool frmAddEditArgument::Accept()
{
    if (!AcceptName(txtArgumentName, NameRules(), surroundings_.Edit.Messages)) {
        FocusWanted.Raise(kNameControl);
        return false;
    }
    if (std::string trouble = DefaultValueTrouble(); !trouble.empty()) {
        surroundings_.Edit.Messages.Tell("Default Value Not Writable", std::move(trouble), MessageIcon::Warning);
        FocusWanted.Raise(kDefaultValueControl);
        return false;
    }
    return true;
}

bool frmAddEditArgument::cmdOK_Click()
{
    bool accepted = false;
    nameTouch_.Touch();
    Guarded(surroundings_.Edit.Errors, "frmAddEditArgument", "cmdOK_Click", [&] { accepted = Accept(); });
    return accepted;
}

} // namespace veldrane
