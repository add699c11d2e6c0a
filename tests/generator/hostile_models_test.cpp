// Models that no editor lets a person make, but a damaged or malicious project file can hold. Whatever they are, a run
// ends, once, and the texts that are shown end as well.

#include "generation_world.h"
#include "previews.h"
#include "projectfile/value_tables.h"
#include "random_project.h"

#include <gtest/gtest.h>

#include <limits>

namespace veldrane::testing {
namespace {

using namespace project_format;

// What a run did to end.
struct Ending
{
    std::string Event;
    std::size_t Errors = 0;
};

// Shows everything, generates, shows everything again.
Ending Generate(const TTCProject& project, KZMClasses& classes)
{
    GenerationWorld world(project, {.DebugTiming = true});
    RandomNumbers random(1);
    PreviewEverything(world.Generation, classes, random);
    world.Generate(classes);
    PreviewEverything(world.Generation, classes, random);
    EXPECT_EQ(world.Endings(), 1U);
    return {world.Run.Events.back(), world.Errors.Reported.size()};
}

void ExpectComplete(const TTCProject& project, KZMClasses& classes)
{
    const Ending ending = Generate(project, classes);
    EXPECT_TRUE(ending.Event.starts_with("complete: ")) << ending.Event;
    EXPECT_EQ(ending.Errors, 0U);
}

constexpr auto kBuiltInMethods =
    std::to_array<std::string_view>({"Add", "Update", "Delete", "Retrieve", "RetrieveIdentity", "RetrieveList", "RetrieveListToTreeView", "Clear", "Clone", "AddAttribute", "AddElement"});

KZMClass& AddClass(KZMClasses& classes, const std::string& name, const std::string& parent = "")
{
    const auto added = std::make_shared<KZMClass>();
    added->ClassName = name;
    added->CollectionName = name + "s";
    added->ParentClassName = parent;
    added->TableName = name;
    added->CreateCollection = true;
    for (bool KZMClass::*flag : {&KZMClass::RetrieveByIdentityCol, &KZMClass::RetrieveByPrimaryKey, &KZMClass::DeleteByIdentityColumn, &KZMClass::DeleteByPrimaryKey})
        (*added).*flag = true;
    for (const std::string_view method : kBuiltInMethods)
        added->TTCMethods.Add(method, true, {}, "Boolean", "Public", false, method);
    classes.AddExisting(added, name);
    return *added;
}

TTCProperty& AddProperty(KZMClass& owner, const std::string& name)
{
    const auto property = owner.TTCProperties.Add(
        {.AddToClass = true, .FieldName = name, .FieldDataType = "Int", .PropertyName = name, .DataType = "Long", .Scope = "Public", .PropertyGet = true, .PropertyLetSet = true}, name);
    return *property;
}

void AddKey(KZMClass& owner, std::int32_t keyType, const std::string& column)
{
    owner.TTCKeys.Add(keyType, TTCColumns{}, KeyTypeText(keyType))->TTCColumns.Add(column, "String", "", column);
}

TTCRelationship& AddRelationship(KZMClass& owner, const std::string& parentTable, const std::string& column, const std::string& joinColumn)
{
    const std::string name = "FK" + std::to_string(owner.TTCRelationships.Count());
    const auto relationship = owner.TTCRelationships.Add(name, parentTable, Columns{}, name);
    relationship->Columns.Add(column, "Long", joinColumn, column);
    return *relationship;
}

// Each of the tests with the component, with the component beside a connection, and without it.
class HostileModels : public ::testing::TestWithParam<int>
{
  protected:
    HostileModels()
    {
        Project.VBProjectName = "Shop";
        Project.WrapperClassName = "Auto";
        Project.SetConnectionString("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\\Shop.mdb");
        Project.MTSEnabled = GetParam() > 0;
        Project.MTSDontRetrieve = GetParam() > 1;
        Project.TrackPropertyChanges = true;
        Project.UseTransactions = true;
        Project.LogTransactions = true;
        Project.WrapClasses = true;
    }

    TTCProject Project;
    KZMClasses Classes;
};

INSTANTIATE_TEST_SUITE_P(Each, HostileModels, ::testing::Range(0, 3));

TEST_P(HostileModels, WithoutAnythingComplete)
{
    Project.VBProjectName = "P";
    Classes.AddExisting(std::make_shared<KZMClass>(), "");
    Classes.Item(std::size_t{1})->ClassName = "C";
    ExpectComplete(Project, Classes);
}

TEST_P(HostileModels, WithKeysAndRelationshipsOnMissingColumnsComplete)
{
    AddClass(Classes, "Parent");
    KZMClass& child = AddClass(Classes, "Child", "Parent");
    AddKey(child, key_type::kPrimaryKey, "gone");
    AddKey(child, key_type::kIdentityColumn, "gone, too");
    AddRelationship(child, "Parent", "lost", "never there");
    AddRelationship(child, "no such table", "", "");
    child.TTCRelationships.Add("empty", "", Columns{}, "empty");
    ExpectComplete(Project, Classes);
}

TEST_P(HostileModels, WithKeysWithoutColumnsComplete)
{
    KZMClass& owner = AddClass(Classes, "Order");
    owner.TTCKeys.Add(key_type::kPrimaryKey, TTCColumns{}, "");
    owner.TTCKeys.Add(key_type::kPrimaryKey, TTCColumns{}, "");
    owner.TTCKeys.Add(key_type::kIdentityColumn, TTCColumns{}, "");
    owner.TTCKeys.Add(std::numeric_limits<std::int32_t>::min(), TTCColumns{}, "");
    ExpectComplete(Project, Classes);
}

TEST_P(HostileModels, UnderAParentThatDoesNotExistComplete)
{
    KZMClass& orphan = AddClass(Classes, "Orphan", "Nobody");
    AddKey(orphan, key_type::kPrimaryKey, "ID");
    AddProperty(orphan, "ID");
    AddRelationship(orphan, "Nobodies", "ID", "ID");
    ExpectComplete(Project, Classes);
}

TEST_P(HostileModels, InACircleOfParentsComplete)
{
    for (const auto& [name, parent] : {std::pair{"A", "B"}, std::pair{"B", "A"}, std::pair{"Self", "Self"}}) {
        KZMClass& owner = AddClass(Classes, name, parent);
        AddProperty(owner, "ID").FieldIsIdentityCol = true;
        AddProperty(owner, "Deleted").PlusProperty = true;
        AddKey(owner, key_type::kIdentityColumn, "ID");
        AddKey(owner, key_type::kPrimaryKey, "ID");
        AddRelationship(owner, parent, "ID", "ID");
    }
    ExpectComplete(Project, Classes);
}

TEST_P(HostileModels, WithNamesThatDifferInCaseOnlyComplete)
{
    AddClass(Classes, "order");
    AddClass(Classes, "Child", "ORDER");
    KZMClass& owner = AddClass(Classes, "Other");
    for (const std::string_view name : {"ADD", "clear", "rETRIEVE"}) {
        owner.TTCMethods.Remove(name);
        owner.TTCMethods.Add(name, true, {}, "", "", true, name);
    }
    ExpectComplete(Project, Classes);
}

TEST_P(HostileModels, WithEmptyNamesComplete)
{
    KZMClass& owner = AddClass(Classes, "Order");
    owner.TableName.clear();
    owner.CollectionName = "x";
    for (int i = 0; i < 2; ++i) {
        owner.TTCProperties.Add({.AddToClass = true, .PropertyGet = true, .PropertyLetSet = true, .EnforceMaxLength = true}, "")->TTCLookupFields.Add("", "", "", "");
        owner.TTCProperties.Add({.AddToClass = true, .PlusProperty = true}, "");
        owner.TTCMethods.Add("", i == 0, {}, "", "", true, "")->Arguments.Add("", 1, true, "", "", true, "", true, "");
        owner.TTCEvents.Add("", {}, true, "")->TTCEventParameters.Add(1, true, "", "", true, "", true, "");
    }
    AddKey(owner, key_type::kPrimaryKey, "");
    AddKey(owner, key_type::kIdentityColumn, "");
    AddRelationship(AddClass(Classes, "Child", "Order"), "", "", "");
    ExpectComplete(Project, Classes);
}

// A class without a name is the parent of all classes at the top, and of itself.
TEST_P(HostileModels, UnderAClassWithoutANameComplete)
{
    Project.ClassPrefix = "c_";
    KZMClass& nameless = AddClass(Classes, "");
    nameless.CollectionName = "All";
    AddProperty(nameless, "ID");
    AddKey(nameless, key_type::kPrimaryKey, "ID");
    AddRelationship(nameless, "", "ID", "ID");
    AddProperty(AddClass(Classes, "Order"), "ID");
    ExpectComplete(Project, Classes);
}

TEST_P(HostileModels, WithArgumentsOutOfOrderComplete)
{
    KZMClass& owner = AddClass(Classes, "Order");
    AddKey(owner, key_type::kPrimaryKey, "ID");
    AddProperty(owner, "ID");
    for (const std::string_view name : {"Retrieve", "Delete", "Add", "Load"}) {
        const auto method = owner.TTCMethods.Contains(name) ? owner.TTCMethods.Item(name) : owner.TTCMethods.Add(name, false, {}, "", "Public", false, name);
        for (const std::int16_t index : std::to_array<std::int16_t>({0, -1, 2, 2, 7, std::numeric_limits<std::int16_t>::max(), std::numeric_limits<std::int16_t>::min()}))
            method->Arguments.Add("ID", index, false, "", "Long", false, "", false, "");
    }
    owner.TTCEvents.Add("Changed", {}, false, "Changed")->TTCEventParameters.Add(-5, true, "a", "Long", false, "", false, "");
    ExpectComplete(Project, Classes);
}

TEST_P(HostileModels, WithAMethodThatLacksItsProcedureComplete)
{
    KZMClass& owner = AddClass(Classes, "Order");
    owner.TTCMethods.Add("Load", false, {}, "", "Public", false, "Load")->MethodIsSP = true;
    const auto empty = owner.TTCMethods.Add("Save", false, {}, "", "Public", false, "Save");
    empty->MethodIsSP = true;
    empty->StoredProcedure = std::make_shared<SP>();
    const auto parameter = empty->StoredProcedure->SPParameters.Add("", "", std::numeric_limits<std::int16_t>::min(), "");
    parameter->Direction = -1;
    ExpectComplete(Project, Classes);
}

TEST_P(HostileModels, WithLookupsOnEverythingComplete)
{
    KZMClass& owner = AddClass(Classes, "Order");
    for (int i = 0; i < 40; ++i) {
        TTCProperty& property = AddProperty(owner, "P" + std::to_string(i));
        property.FieldName = i % 2 == 0 ? "" : "same";
        property.LookupTable = i % 3 == 0 ? "Order" : " ";
        property.PlusProperty = i % 5 == 0;
        for (const char* field : {"same", "same", "", "a.same", "bsame"})
            property.TTCLookupFields.Add(field, "Variant", field, "");
    }
    ExpectComplete(Project, Classes);
}

TEST_P(HostileModels, WithTwoThousandPropertiesComplete)
{
    KZMClass& owner = AddClass(Classes, "Wide");
    for (int i = 0; i < 2000; ++i) {
        TTCProperty& property = AddProperty(owner, "Column " + std::to_string(i));
        property.FieldIsIdentityCol = i % 2 == 0;
        property.DataType = i % 3 == 0 ? "String" : "Long";
    }
    AddKey(owner, key_type::kPrimaryKey, "Column 0");
    for (int i = 1; i < 2000; ++i)
        owner.TTCKeys.Item(KeyTypeText(key_type::kPrimaryKey))->TTCColumns.Add("Column " + std::to_string(i), "Long", "", "");
    AddRelationship(AddClass(Classes, "Child", "Wide"), "Wide", "Column 1", "Column 1");
    ExpectComplete(Project, Classes);
}

TEST_P(HostileModels, InAChainOfThreeHundredComplete)
{
    for (int i = 0; i < 300; ++i) {
        KZMClass& owner = AddClass(Classes, "C" + std::to_string(i), i == 0 ? "" : "C" + std::to_string(i - 1));
        AddProperty(owner, "ID").FieldIsIdentityCol = true;
        AddKey(owner, key_type::kIdentityColumn, "ID");
        AddRelationship(owner, i == 0 ? "" : "C" + std::to_string(i - 1), "ID", "ID");
    }
    ExpectComplete(Project, Classes);
}

// Puts the text behind every text of the record, but where that names a file: there it would end the run at once.
template <class Record, class Table>
void Spoil(Record& record, const Table& table, std::string_view spoil, std::string_view spoilOfNames)
{
    for (const ValueLine<Record>& line : table) {
        const bool namesAFile = line.Key == "VBProjectName" || line.Key == "WrapperClassName" || line.Key == "ClassPrefix" || line.Key == "ModulePrefix" || line.Key == "CollectionName";
        const std::string_view tail = namesAFile ? spoilOfNames : spoil;
        if (const auto* text = std::get_if<std::string Record::*>(&line.Member))
            (record.*(*text)).append(tail);
        else if (const auto* property = std::get_if<TextProperty<Record>>(&line.Member))
            (record.*property->Set)(std::string((record.*property->Get)()).append(tail));
    }
}

void SpoilClass(KZMClass& owner, std::string_view spoil, std::string_view spoilOfNames)
{
    Spoil(owner, kClassLines, spoil, spoilOfNames);
    owner.ClassName += spoilOfNames;
    for (TTCKey& key : owner.TTCKeys)
        for (TTCColumn& column : key.TTCColumns)
            Spoil(column, kKeyColumnLines, spoil, "");
    for (TTCRelationship& relationship : owner.TTCRelationships) {
        Spoil(relationship, kRelationshipLines, spoil, "");
        for (TTCColumn& column : relationship.Columns)
            Spoil(column, kRelationshipColumnLines, spoil, "");
    }
    for (TTCProperty& property : owner.TTCProperties) {
        property.PropertyName += spoil;
        Spoil(property, kPropertyLines, spoil, "");
        for (TTCLookupField& field : property.TTCLookupFields)
            Spoil(field, kLookupFieldLines, spoil, "");
    }
    for (TTCMethod& method : owner.TTCMethods) {
        if (!method.PlusMethod)
            Spoil(method, kMethodLines, spoil, "");
        for (TTCParameter& argument : method.Arguments)
            Spoil(argument, kArgumentLines, spoil, "");
        if (method.StoredProcedure == nullptr)
            continue;
        Spoil(*method.StoredProcedure, kStoredProcedureLines, spoil, "");
        for (SPParameter& parameter : method.StoredProcedure->SPParameters)
            Spoil(parameter, kSPParameterLines, spoil, "");
    }
    for (ttcEvent& event : owner.TTCEvents)
        for (TTCParameter& argument : event.TTCEventParameters)
            Spoil(argument, kArgumentLines, spoil, "");
}

// The texts that mean something to some part of the generator, as a value's tail.
constexpr auto kSpoils =
    std::to_array<std::string_view>({"\"", "`", "``\"", "\r\n", "\n", "{", "}", "{ClassName}", "{Nobody}", "~", " AND ", " & `", "' AND ", ", ", "%1", "$&", "[x]", " ", "_", " _"});

TEST(HostileTexts, InEveryValueComplete)
{
    for (unsigned seed = 0; seed < 3 * kSpoils.size(); ++seed) {
        const std::string spoil(kSpoils.at(seed % kSpoils.size()));
        SCOPED_TRACE("seed " + std::to_string(seed) + ", spoiled by <" + spoil + ">");
        const bool mayNameAFile = spoil.find_first_of("\r\n") == std::string::npos;
        TTCProject project;
        KZMClasses classes;
        MakeRandomProject(project, classes, seed);
        Spoil(project, kProjectLines, spoil, mayNameAFile ? spoil : "");
        for (KZMClass& owner : classes)
            SpoilClass(owner, spoil, mayNameAFile ? spoil : "");
        ExpectComplete(project, classes);
    }
}

TEST(HostileTexts, InNamesOfFilesEndTheRunBeforeAnythingIsWritten)
{
    for (const char* spoil : {"\r\n", "/", "\\", "/../x", "\x01"}) {
        SCOPED_TRACE(spoil);
        TTCProject project;
        KZMClasses classes;
        MakeRandomProject(project, classes, 0);
        project.VBProjectName += spoil;
        const Ending ending = Generate(project, classes);
        EXPECT_TRUE(ending.Event.starts_with("aborted: ")) << ending.Event;
        EXPECT_EQ(ending.Errors, 0U);
    }
}

TEST(HostileTexts, OfGreatLengthComplete)
{
    for (unsigned seed = 0; seed < 5; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        TTCProject project;
        KZMClasses classes;
        MakeRandomProject(project, classes, seed);
        const std::string spoil(10'000, 'x');
        Spoil(project, kProjectLines, spoil, "");
        for (KZMClass& owner : classes)
            SpoilClass(owner, spoil, "");
        ExpectComplete(project, classes);
    }
}

} // namespace
} // namespace veldrane::testing
