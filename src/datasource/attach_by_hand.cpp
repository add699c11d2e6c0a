#include "datasource/attach_by_hand.h"

#include "datasource/naming.h"
#include "text/case_folding.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <vector>

namespace veldrane {
namespace {

// The name as the data source has it; nothing if it has none such.
using FindName = std::optional<std::string> (*)(Catalog& catalog, const std::string& name);

std::optional<std::string> FindTable(Catalog& catalog, const std::string& name)
{
    static_cast<void>(catalog.Fields("SELECT * FROM " + name + " WHERE 1=0"));
    return name;
}

std::optional<std::string> FindProcedure(Catalog& catalog, const std::string& name)
{
    const std::vector<std::string> names = catalog.Procedures();
    if (std::ranges::find(names, name) != names.end())
        return name;
    const auto found =
        std::ranges::find_if(names, [&](const std::string& known) { return text::EqualFolded(known, name); });
    return found == names.end() ? std::nullopt : std::optional(*found);
}

std::optional<std::string> FindInSource(const NameSource& source, const std::string& name, FindName find)
{
    if (source.Connection == nullptr || name.empty())
        return std::nullopt;
    try {
        std::optional<std::string> found;
        source.Watched([&] { found = find(*source.Connection->OpenCatalog(), name); });
        return found;
    } catch (const RuntimeError&) {
        return std::nullopt; // a name that leads to no answer is a wrong one, whatever the reason
    }
}

struct WrongName
{
    std::string_view Title;
    std::string_view Text;
};

std::string GetName(const NameSource& source, const AskForName& ask, FindName find, const WrongName& wrong)
{
    while (const std::optional<std::string> name = ask()) {
        if (const std::optional<std::string> found = FindInSource(source, *name, find))
            return *found;
        source.Messages.Tell(std::string(wrong.Title), std::string(wrong.Text));
    }
    return "";
}

template <class Names, class Get>
std::string Attach(const Attachment& attachment, const AskForName& ask, Names& attached, Get get)
{
    while (true) {
        std::string name = get(attachment.Source, ask);
        if (name.empty())
            return name;
        if (!FitsProject(name, attachment.CodePage, attachment.Source.Messages) || !attached.Add(name, name))
            continue;
        attachment.Project.SetModified(true);
        attachment.RefreshLists();
        return name;
    }
}

} // namespace

std::string GetTableName(const NameSource& source, const AskForName& ask)
{
    return GetName(source, ask, FindTable,
                   {.Title = "Table Validation Failed", .Text = "Invalid Table Name, please try again."});
}

std::string GetStoredProcedureName(const NameSource& source, const AskForName& ask)
{
    return GetName(
        source, ask, FindProcedure,
        {.Title = "Stored Procedure Validation Failed", .Text = "Invalid Stored Procedure Name, please try again."});
}

std::string AttachTable(const Attachment& attachment, const AskForName& ask)
{
    return Attach(attachment, ask, attachment.Project.AttachedTables, GetTableName);
}

std::string AttachStoredProcedure(const Attachment& attachment, const AskForName& ask)
{
    return Attach(attachment, ask, attachment.Project.AttachedSPs, GetStoredProcedureName);
}

} // namespace veldrane
