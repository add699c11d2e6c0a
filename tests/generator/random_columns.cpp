#include "random_columns.h"

#include "datasource/naming.h"

#include <algorithm>
#include <vector>

namespace veldrane::testing {
namespace {

constexpr auto kColumnTypes = std::to_array<ColumnTypes>({
    {"String", "VarChar"},
    {"String", "Long VarWChar"},
    {"String", "GUID"},
    {"Long", "Int"},
    {"Integer", "Small Int"},
    {"Byte", "Tiny Int"},
    {"Boolean", "Boolean"},
    {"Currency", "Money/Currency"},
    {"Date", "DateTime"},
    {"Double", "Numeric"},
    {"Single", "Single"},
    {"Variant", "Var Binary"},
    {"Variant", "GUID"},
    {"Object", "IUnknown"},
    {"Picture", "Binary"},
    {"", "<unknown>"},
});

constexpr ColumnTypes kIdentityTypes{"Long", "Int"};

constexpr std::size_t kMostKeyColumns = 3;
constexpr std::size_t kMostColumns = 9;

// Letters name the joined tables of a statement; the last number is one table too many.
constexpr auto kManyLookups = std::to_array<std::size_t>({14, 15, 16, 17});

void SetLengthRules(RandomNumbers& random, TTCProperty& property)
{
    property.EnforceMaxLength = random.Flag();
    property.DisplayTruncationMessage = random.OneIn(3);
    property.MaxLength = random.Pick(std::to_array<std::int32_t>({0, 1, 38, 50, 255, 65536}));
}

void SetFormats(RandomNumbers& random, TTCProperty& property)
{
    constexpr auto kFormats = std::to_array<std::string_view>({"", "#,##0.00", ">", "dd/mm/yyyy", "(@@@) @@@"});
    property.FormatOnGet = random.OneIn(3);
    property.FormatOnLet = random.OneIn(3);
    property.FormatStringOnGet = random.Pick(kFormats);
    property.FormatStringOnLet = random.Pick(kFormats);
}

void AddKey(KZMClass& owner, std::int32_t keyType, const std::vector<const TTCProperty*>& properties)
{
    const auto key = owner.TTCKeys.Add(keyType, TTCColumns{}, KeyTypeText(keyType));
    for (const TTCProperty* property : properties)
        key->TTCColumns.Add(property->FieldName, property->DataType, "", property->FieldName);
}

// Identity, primary key, both, both on one column, or neither.
void AddKeys(RandomNumbers& random, RandomNames& names, KZMClass& owner)
{
    const TTCProperty* identity = nullptr;
    if (random.OneIn(2)) {
        TTCProperty& added = AddRandomColumn(random, names, owner, kIdentityTypes);
        added.FieldIsIdentityCol = true;
        AddKey(owner, key_type::kIdentityColumn, {&added});
        identity = &added;
    }
    if (random.OneIn(4))
        return;
    std::vector<const TTCProperty*> columns;
    if (identity != nullptr && random.Flag())
        columns.push_back(identity);
    else
        for (std::size_t i = 1 + random.Below(kMostKeyColumns); i > 0; --i)
            columns.push_back(&AddRandomColumn(random, names, owner, RandomColumnTypes(random)));
    AddKey(owner, key_type::kPrimaryKey, columns);
}

// The foreign key to the columns that identify a row of the parent's table.
void AddRelationship(RandomNumbers& random, RandomNames& names, KZMClass& owner, const KZMClass& parent)
{
    const std::string keyName = "FK_" + names.Identifier();
    const auto relationship = owner.TTCRelationships.Add(keyName, parent.TableName, Columns{}, keyName);
    for (const TTCKey& key : parent.TTCKeys) {
        if (parent.TTCKeys.Count() > 1 && key.KeyType != key_type::kPrimaryKey)
            continue;
        for (const TTCColumn& column : key.TTCColumns) {
            const TTCProperty& added = AddRandomColumn(random, names, owner, {column.ColumnDataType, "Int"});
            relationship->Columns.Add(added.FieldName, added.DataType, column.ColumnName, added.FieldName);
        }
    }
}

// The name of a field that a lookup brings in: often one that another table of the statement has, too.
std::string LookedUpField(RandomNumbers& random, RandomNames& names, const KZMClass& owner)
{
    const std::string& owned = owner.TTCProperties.Item(1 + random.Below(owner.TTCProperties.Count()))->FieldName;
    if (random.Flag() && !owned.empty())
        return owned;
    return random.OneIn(3) ? "Name" : names.OfData();
}

void AddLookup(RandomNumbers& random, RandomNames& names, KZMClass& owner, TTCProperty& property)
{
    property.LookupTable = names.OfData();
    property.LookupJoinField = random.Flag() ? property.FieldName : names.OfData();
    property.LookupUseOuterJoin = random.Flag();
    for (std::size_t i = 1 + random.Below(3); i > 0; --i) {
        const std::string name = names.Identifier();
        owner.TTCMembers.Add(name, name);
        property.TTCLookupFields.Add(LookedUpField(random, names, owner), RandomColumnTypes(random).DataType, name, name);
    }
}

void AddLookups(RandomNumbers& random, RandomNames& names, KZMClass& owner)
{
    if (random.OneIn(8)) {
        for (std::size_t i = random.Pick(kManyLookups); i > 0; --i)
            AddLookup(random, names, owner, AddRandomColumn(random, names, owner, RandomColumnTypes(random)));
        return;
    }
    for (TTCProperty& property : owner.TTCProperties)
        if (random.OneIn(6))
            AddLookup(random, names, owner, property);
}

} // namespace

const ColumnTypes& RandomColumnTypes(RandomNumbers& random)
{
    return random.Pick(kColumnTypes);
}

TTCProperty& AddRandomColumn(RandomNumbers& random, RandomNames& names, KZMClass& owner, const ColumnTypes& types)
{
    const auto property = std::make_shared<TTCProperty>();
    property->FieldName = names.OfData();
    property->FieldDataType = types.FieldDataType;
    property->PropertyName = MakeValidName(property->FieldName);
    std::erase_if(property->PropertyName, [](char letter) { return letter == '_' || letter == '.'; });
    property->DataType = types.DataType;
    property->Scope = random.OneIn(5) ? "Friend" : "Public";
    property->AttributeDescription = random.OneIn(3) ? "What the \"row\" is worth" : "";
    property->AddToClass = !random.OneIn(8);
    property->PropertyGet = !random.OneIn(8);
    property->PropertyLetSet = !random.OneIn(5);
    property->ReadOnly = !property->PropertyLetSet;
    property->DefaultProperty = random.OneIn(10);
    property->FieldAllowsNull = random.Flag();
    property->AllowPropertyToBeNull = random.OneIn(4);
    SetLengthRules(random, *property);
    SetFormats(random, *property);
    owner.TTCMembers.Add(property->PropertyName, property->PropertyName);
    owner.TTCProperties.AddExisting(property, property->PropertyName);
    return *property;
}

void AddRandomTable(RandomNumbers& random, RandomNames& names, KZMClass& owner, const KZMClass* parent)
{
    owner.TableName = names.OfData();
    AddKeys(random, names, owner);
    for (std::size_t i = 1 + random.Below(kMostColumns); i > 0; --i)
        AddRandomColumn(random, names, owner, RandomColumnTypes(random));
    if (parent != nullptr && !parent->TableName.empty() && !random.OneIn(10))
        AddRelationship(random, names, owner, *parent);
    AddLookups(random, names, owner);
}

} // namespace veldrane::testing
