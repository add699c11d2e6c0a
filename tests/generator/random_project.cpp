#include "random_project.h"

#include "model/xml_assist.h"
#include "projectfile/value_tables.h"
#include "random_class.h"

namespace veldrane::testing {
namespace {

constexpr std::size_t kMostAtTop = 3;
constexpr std::size_t kMostChildren = 2;
constexpr int kLevels = 3;

void SetFlags(RandomNumbers& random, TTCProject& project)
{
    for (const auto& line : project_format::kProjectLines)
        if (const auto* flag = std::get_if<bool TTCProject::*>(&line.Member))
            project.*(*flag) = random.Flag();
}

std::string RandomConnection(RandomNumbers& random)
{
    constexpr auto kConnections = std::to_array<std::string_view>({
        "PROVIDER=MSDASQL;DSN=Shop;UID=me;PWD=secret;DATABASE=shop",
        "PROVIDER=MSDASQL;Driver=SQLite3;Database=/data/shop.db;",
        "Provider=SQLOLEDB;Data Source=server;Initial Catalog=shop;User ID=me;Password=;",
        "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\\Data\\Shop.mdb;Persist Security Info=False",
        "PROVIDER=MSDASQL;Driver={Microsoft Access Driver (*.mdb)};DBQ=C:\\Data\\Shop.mdb;",
    });
    return std::string(random.Pick(kConnections));
}

void SetPrefixes(RandomNumbers& random, TTCProject& project)
{
    constexpr auto kPrefixes = std::to_array<std::string_view>({"", "v", "str", "Lng", "var"});
    for (std::string TTCProject::*prefix :
         {&TTCProject::PrefixBoolean, &TTCProject::PrefixByte, &TTCProject::PrefixCollection, &TTCProject::PrefixCurrency, &TTCProject::PrefixDate, &TTCProject::PrefixDouble,
          &TTCProject::PrefixInteger, &TTCProject::PrefixLong, &TTCProject::PrefixObject, &TTCProject::PrefixOther, &TTCProject::PrefixSingle, &TTCProject::PrefixString, &TTCProject::PrefixVariant})
        project.*prefix = random.Pick(kPrefixes);
    constexpr auto kFilePrefixes = std::to_array<std::string_view>({"", "shop", "c_"});
    project.ClassPrefix = random.Pick(kFilePrefixes);
    project.ModulePrefix = random.Pick(kFilePrefixes);
    project.FormPrefix = random.Pick(kFilePrefixes);
}

void SetProject(RandomNumbers& random, TTCProject& project)
{
    SetFlags(random, project);
    SetPrefixes(random, project);
    project.SetProjectName("Shop of Größe");
    project.ProjectDescription = "All that is \"sold\"";
    project.Author = random.Flag() ? "The author" : "";
    project.VBProjectName = "Shop";
    project.VBProjectDescription = "Shop Object";
    project.WrapperClassName = "Auto";
    project.VBVersion = random.Flag() ? visual_basic_version::kVisualBasic6 : visual_basic_version::kVisualBasic5;
    project.LoggingLevel = static_cast<std::int32_t>(random.Below(4));
    project.LogDatabaseConnection = RandomConnection(random);
    project.LogTableName = "Transaction Log";
    project.OutputPath = "C:\\Out";
    project.SetConnectionString(RandomConnection(random));
}

void AddClasses(RandomNumbers& random, RandomNames& names, TTCProject& project, KZMClasses& classes, const KZMClass* parent, int level)
{
    const std::size_t count = level == 1 ? 1 + random.Below(kMostAtTop) : random.Below(kMostChildren + 1);
    for (std::size_t i = count; i > 0; --i) {
        const auto added = MakeRandomClass(random, names, parent);
        project.ClassCollectionNames.Add(added->ClassName, added->ClassName);
        if (added->CreateCollection)
            project.ClassCollectionNames.Add(added->CollectionName, added->CollectionName);
        classes.AddExisting(added, added->ClassName);
        if (level < kLevels)
            AddClasses(random, names, project, classes, added.get(), level + 1);
    }
}

} // namespace

void MakeRandomProject(TTCProject& project, KZMClasses& classes, unsigned seed)
{
    RandomNumbers random(seed);
    RandomNames names(random);
    SetProject(random, project);
    if (project.MTSEnabled && random.Flag())
        AddXmlAssist(project, classes);
    if (!random.OneIn(25))
        AddClasses(random, names, project, classes, nullptr, 1);
    if (project.MTSEnabled)
        AddXmlAssist(project, classes);
}

} // namespace veldrane::testing
