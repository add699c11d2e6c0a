#include "datasource/row_identifier.h"

#include "datasource/naming.h"
#include "datasource/table_keys.h"

namespace veldrane {
namespace {

struct Flags
{
    bool& ByIdentity;
    bool& ByPrimaryKey;
};

Flags FlagsOf(KZMClass& item, RowMethod method)
{
    if (method == RowMethod::Retrieve)
        return {item.RetrieveByIdentityCol, item.RetrieveByPrimaryKey};
    return {item.DeleteByIdentityColumn, item.DeleteByPrimaryKey};
}

Question ChoiceQuestion(RowMethod method)
{
    Question question{.Offered = Buttons::YesNo, .Icon = MessageIcon::Question, .Default = Answer::No};
    if (method == RowMethod::Retrieve) {
        question.Title = "Choose Retrieval Method";
        question.Text =
            "Do you want to retrieve records by the Identity Column or the Primary Key?\r\nClick 'Yes' to retrieve records by their Identity Column value OR\r\nClick 'No' to retrieve records by their Primary Key value(s).";
    } else {
        question.Title = "Add Delete Method to Class";
        question.Text =
            "A Delete Method will be added to this class (NO RECORDS WILL EVER BE AFFECTED BY THIS APPLICATION).\r\nDo you want the delete method in this class to delete rows based on the Identity Column or the Primary Key?\r\nClick 'Yes' to have the delete method use the Identity Column value OR\r\nClick 'No' to have the delete method use the Primary Key value(s).";
    }
    return question;
}

Question NoIdentifierBox(RowMethod method)
{
    const std::string refusal = method == RowMethod::Retrieve ? "Unable to add the Retrieve Method to this class."
                                                              : "Unable to add the Delete Method to this class.";
    return {
        .Title = "No Row Identifier Found",
        .Text =
            refusal +
            "\r\nThere is no Identity Column (a.k.a. AutoNumber) field or Primary Key defined for this database table. \r\nUnable to add method at this time.\r\nPlease set a Primary Key or Identity Column for this table. \r\nYou will need to modify the database table and add either: \r\n     1) A Primary Key to a field or fields with a unique value.\r\n     2) An Identity (a.k.a. AutoNumber) column to the table.\r\nIn the 'Properties' tab, click on the field(s) you want as the key, then right-click and select 'Set as Primary Key'",
        .Icon = MessageIcon::Warning};
}

// The question about the two keys says the same and more.
void TellOfDelete(Messages& messages, bool byIdentity)
{
    messages.Tell(
        "Add Delete Method to Class",
        byIdentity
            ? "A Delete Method will be added to this class (NO RECORDS WILL EVER BE AFFECTED BY THIS APPLICATION).\r\nThe delete method in this class will delete rows based on the Identity Column value."
            : "A Delete Method will be added to this class (NO RECORDS WILL EVER BE AFFECTED BY THIS APPLICATION).\r\nThe delete method in this class will delete rows based on the Primary Key value(s).",
        MessageIcon::Information);
}

ColumnArgument ArgumentFor(const std::string& columnName, const std::string& dataType)
{
    return {.VariableName = ArgumentName(columnName), .DataType = dataType, .ColumnName = columnName};
}

} // namespace

std::optional<RowMethod> RowMethodOf(std::string_view builtInName)
{
    if (builtInName == "Retrieve")
        return RowMethod::Retrieve;
    if (builtInName == "Delete")
        return RowMethod::Delete;
    return std::nullopt;
}

std::optional<Question> NoRowIdentifier(const KZMClass& item, RowMethod method)
{
    if (FirstKey(item, key_type::kIdentityColumn) != nullptr || FirstKey(item, key_type::kPrimaryKey) != nullptr)
        return std::nullopt;
    return NoIdentifierBox(method);
}

bool ChooseRowIdentifier(ClassEdit& edit, RowMethod method, Occasion occasion)
{
    const Flags flags = FlagsOf(edit.Class, method);
    flags.ByIdentity = FirstKey(edit.Class, key_type::kIdentityColumn) != nullptr;
    flags.ByPrimaryKey = FirstKey(edit.Class, key_type::kPrimaryKey) != nullptr;
    if (const auto refusal = NoRowIdentifier(edit.Class, method)) {
        edit.Messages.Ask(*refusal);
        return false;
    }
    if (flags.ByIdentity && flags.ByPrimaryKey) {
        flags.ByIdentity = edit.Messages.Ask(ChoiceQuestion(method)) == Answer::Yes;
        flags.ByPrimaryKey = !flags.ByIdentity;
    } else if (method == RowMethod::Delete && occasion == Occasion::Ticked) {
        TellOfDelete(edit.Messages, flags.ByIdentity);
    }
    return true;
}

std::vector<ColumnArgument> PrimaryKeyArguments(const KZMClass& item)
{
    std::vector<ColumnArgument> arguments;
    if (const auto key = FirstKey(item, key_type::kPrimaryKey))
        for (const TTCColumn& column : key->TTCColumns)
            arguments.push_back(ArgumentFor(column.ColumnName, column.ColumnDataType));
    return arguments;
}

std::vector<ColumnArgument> RowArguments(const KZMClass& item, RowMethod method)
{
    const bool byIdentity = method == RowMethod::Retrieve ? item.RetrieveByIdentityCol : item.DeleteByIdentityColumn;
    if (!byIdentity)
        return PrimaryKeyArguments(item);
    const TTCProperty* property = IdentityProperty(item);
    return property ? std::vector{ArgumentFor(property->FieldName, property->DataType)} : std::vector<ColumnArgument>{};
}

} // namespace veldrane
