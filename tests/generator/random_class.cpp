#include "random_class.h"

#include "datasource/builtin_members.h"
#include "datasource/member_arguments.h"
#include "random_columns.h"
#include "support/recorded_errors.h"

#include <stdexcept>
#include <vector>

namespace veldrane::testing {
namespace {

constexpr auto kScopes = std::to_array<std::string_view>({"Public", "Private", "Friend"});

// Chooses between Yes and No as chance has it.
class RandomAnswers : public Messages
{
  public:
    explicit RandomAnswers(RandomNumbers& random) : random_(random) {}

    Answer Ask(const Question& question) override
    {
        if (question.Offered != Buttons::YesNo)
            return question.Default;
        return random_.Flag() ? Answer::Yes : Answer::No;
    }

  private:
    RandomNumbers& random_;
};

// Some of the names, most of them.
template <class Row>
std::vector<std::string> Ticked(RandomNumbers& random, std::span<const Row> rows)
{
    std::vector<std::string> names;
    for (const Row& row : rows)
        if (!random.OneIn(5))
            names.emplace_back(row.Name);
    return names;
}

// The members come in the order of their lists, and in another one where they were ticked at two sittings.
void AddBuiltInMembers(RandomNumbers& random, KZMClass& owner)
{
    RandomAnswers answers(random);
    RecordedErrors errors;
    const text::CodePage codePage;
    ClassEdit edit{.Class = owner, .Messages = answers, .Errors = errors, .CodePage = codePage};
    AcceptBuiltInProperties(edit, Ticked(random, BuiltInProperties()));
    for (std::size_t sittings = 1 + random.Below(2); sittings > 0; --sittings)
        AcceptBuiltInMethods(edit, Ticked(random, BuiltInMethods()));
    AcceptBuiltInEvents(edit, Ticked(random, BuiltInEvents()));
    if (!errors.Reported.empty())
        throw std::logic_error("a built-in member was refused: " + errors.Reported.front().Error.Description());
}

// A person may take the return type from a built-in method, or give it another scope.
void ChangeBuiltInMethods(RandomNumbers& random, KZMClass& owner)
{
    for (TTCMethod& method : owner.TTCMethods) {
        if (random.OneIn(10))
            method.ReturnDataType.clear();
        if (random.OneIn(6))
            method.Scope = random.Pick(std::to_array<std::string_view>({"", "Private", "Friend"}));
    }
}

template <class Arguments>
void AddArguments(RandomNumbers& random, RandomNames& names, Arguments& arguments)
{
    for (std::size_t i = random.Below(4); i > 0; --i) {
        TTCParameter argument = PlainParameter(names.Identifier(), std::string(RandomColumnTypes(random).DataType));
        argument.ByValIndicator = random.Flag();
        argument.OptionalIndicator = random.OneIn(3);
        argument.IsArray = random.OneIn(5);
        if (argument.OptionalIndicator)
            argument.DefaultValue = random.Pick(std::to_array<std::string_view>({"", "5", "\"none\"", "`none`", "True", "#1/1/1999#"}));
        AddArgument(arguments, std::move(argument));
    }
}

void AddParameters(RandomNumbers& random, RandomNames& names, SPParameters& parameters)
{
    constexpr auto kTypes =
        std::to_array<std::string_view>({"int", "varchar", "nvarchar", "datetime", "money", "float", "uniqueidentifier", "smallint", "tinyint", "image", "decimal", "bit", "sql_variant"});
    for (std::size_t i = random.Below(6); i > 0; --i) {
        const std::string name = "@" + names.Identifier();
        const auto parameter = parameters.Add(name, random.Pick(kTypes), static_cast<std::int16_t>(random.Below(205)), name);
        parameter->Direction = static_cast<std::int32_t>(parameter_direction::kInput + random.Below(4));
        parameter->CharacterMaximumLength = random.Pick(std::to_array<std::string_view>({"", "50", "8000"}));
        parameter->NumericPrecision = random.Pick(std::to_array<std::string_view>({"", "10"}));
        parameter->NumericScale = random.Pick(std::to_array<std::string_view>({"", "2"}));
        parameter->IsNullable = random.OneIn(3);
        parameter->OrdianalPosition = static_cast<std::int16_t>(parameters.Count());
    }
}

void AddMethods(RandomNumbers& random, RandomNames& names, KZMClass& owner)
{
    for (std::size_t i = random.Below(4); i > 0; --i) {
        const std::string name = names.Identifier();
        owner.TTCMembers.Add(name, name);
        const auto method = owner.TTCMethods.Add(name, false, {}, "", random.Pick(kScopes), random.OneIn(8), name);
        method->MethodIsSP = random.Flag();
        if (method->MethodIsSP) {
            method->SPReturnValuesOnly = random.Flag();
            method->StoredProcedure = std::make_shared<SP>();
            method->StoredProcedure->SPName = names.OfData() + ";1";
            method->StoredProcedure->SPMethodName = name;
            AddParameters(random, names, method->StoredProcedure->SPParameters);
        } else {
            method->ReturnDataType = RandomColumnTypes(random).DataType;
            AddArguments(random, names, method->Arguments);
        }
    }
}

void AddEvents(RandomNumbers& random, RandomNames& names, KZMClass& owner)
{
    for (std::size_t i = random.Below(3); i > 0; --i) {
        const std::string name = names.Identifier();
        owner.TTCMembers.Add(name, name);
        AddArguments(random, names, owner.TTCEvents.Add(name, {}, false, name)->TTCEventParameters);
    }
}

void AddEnumerations(RandomNumbers& random, RandomNames& names, KZMClass& owner)
{
    for (std::size_t i = random.Below(2); i > 0; --i) {
        const std::string name = names.Identifier();
        owner.Enumerations.Add(name, name);
    }
}

// A member that only some classes have, and that the generator knows by its name.
void AddDocument(KZMClass& owner)
{
    owner.TTCMembers.Add("Document", "Document");
    owner.TTCProperties.Add({.AddToClass = true, .PropertyName = "Document", .DataType = "DOMDocument", .Scope = "Public", .PlusProperty = true}, "Document");
}

} // namespace

std::shared_ptr<KZMClass> MakeRandomClass(RandomNumbers& random, RandomNames& names, const KZMClass* parent)
{
    auto owner = std::make_shared<KZMClass>();
    owner->ClassName = names.Identifier();
    owner->CollectionName = names.Identifier() + "s";
    owner->ParentClassName = parent == nullptr ? "" : parent->ClassName;
    owner->CreateCollection = !random.OneIn(4);
    owner->IncludeAddExisting = random.Flag();
    owner->CollectionAddNewKey = random.Flag();
    owner->IsDomainTable = parent == nullptr && random.OneIn(4);
    owner->ReadOnly = random.OneIn(6);
    if (!random.OneIn(6))
        AddRandomTable(random, names, *owner, parent);
    AddBuiltInMembers(random, *owner);
    ChangeBuiltInMethods(random, *owner);
    if (random.OneIn(12))
        AddDocument(*owner);
    AddMethods(random, names, *owner);
    AddEvents(random, names, *owner);
    AddEnumerations(random, names, *owner);
    return owner;
}

} // namespace veldrane::testing
