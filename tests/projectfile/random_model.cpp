#include "random_model.h"

#include "projectfile/value_tables.h"
#include "support/random_numbers.h"

#include <array>
#include <cstddef>
#include <limits>
#include <string>

namespace veldrane::testing {
namespace {

using namespace project_format;

class Random : public RandomNumbers
{
  public:
    using RandomNumbers::RandomNumbers;

    std::string Text()
    {
        constexpr auto kTexts = std::to_array<std::string_view>({
            "",
            "String",
            "Größe",
            "€ 1.000,–",
            "a\nb",
            "End",
            "#,##0.00",
            "\"quoted\"",
            "x=y;z",
            "-",
            "0",
            "Begin",
            "`tick`",
            "\t",
            "\xC2\x81",
            "True",
        });
        return std::string(Pick(kTexts));
    }

    // A name that is not given twice, blanks and foreign letters among its characters.
    std::string Name() { return kNameHeads[Below(kNameHeads.size())] + std::to_string(++names_); }

    template <class Integer>
    Integer Number()
    {
        return Pick(std::to_array<Integer>(
            {0, 1, -1, 5, 255, std::numeric_limits<Integer>::max(), std::numeric_limits<Integer>::min()}));
    }

    void Fill(std::string& value) { value = Text(); }
    void Fill(bool& value) { value = Flag(); }
    void Fill(std::int32_t& value) { value = Number<std::int32_t>(); }
    void Fill(std::int16_t& value) { value = Number<std::int16_t>(); }

    // Fills every member that the table carries.
    template <class Record, class Table>
    void FillRecord(Record& record, const Table& table)
    {
        for (const ValueLine<Record>& line : table)
            std::visit(
                [&](const auto& member) {
                    if constexpr (std::is_member_object_pointer_v<std::decay_t<decltype(member)>>)
                        Fill(record.*member);
                    else
                        (record.*member.Set)(Text());
                },
                line.Member);
    }

  private:
    inline static const std::vector<std::string> kNameHeads = {"Order", "größe", "With blank ", " lead", "@p", "Ü"};

    unsigned names_ = 0;
};

template <class Table>
std::shared_ptr<TTCColumn> RandomColumn(Random& random, const Table& table)
{
    auto column = std::make_shared<TTCColumn>();
    random.FillRecord(*column, table);
    column->ColumnName = random.Name();
    return column;
}

void AddKeysAndRelationships(Random& random, KZMClass& item)
{
    for (std::int32_t keyType = 0; keyType < static_cast<std::int32_t>(random.Below(3)); ++keyType) {
        const auto key = item.TTCKeys.Add(keyType, TTCColumns{}, KeyTypeText(keyType));
        for (std::size_t i = random.Below(3); i > 0; --i) {
            const auto column = RandomColumn(random, kKeyColumnLines);
            key->TTCColumns.AddExisting(column, column->ColumnName);
        }
    }
    for (std::size_t i = random.Below(3); i > 0; --i) {
        const std::string name = random.Name();
        const auto relationship = item.TTCRelationships.Add(name, random.Text(), Columns{}, name);
        for (std::size_t j = random.Below(3); j > 0; --j) {
            const auto column = RandomColumn(random, kRelationshipColumnLines);
            relationship->Columns.AddExisting(column, column->ColumnName);
        }
    }
}

void AddProperties(Random& random, KZMClass& item)
{
    for (std::size_t i = random.Below(4); i > 0; --i) {
        auto property = std::make_shared<TTCProperty>();
        random.FillRecord(*property, kPropertyLines);
        property->PropertyName = random.Name();
        for (std::size_t j = property->LookupTable.empty() ? 0 : random.Below(3); j > 0; --j) {
            const std::string name = random.Name();
            property->TTCLookupFields.Add(random.Name(), random.Text(), name, name);
        }
        item.TTCProperties.AddExisting(property, property->PropertyName);
    }
}

template <class Collection>
void AddArguments(Random& random, Collection& arguments)
{
    for (std::size_t i = random.Below(3); i > 0; --i) {
        auto argument = std::make_shared<TTCParameter>();
        random.FillRecord(*argument, kArgumentLines);
        argument->VariableName = random.Name();
        arguments.AddExisting(argument, argument->VariableName);
    }
}

void AddMethods(Random& random, KZMClass& item)
{
    for (std::size_t i = random.Below(4); i > 0; --i) {
        auto method = std::make_shared<TTCMethod>();
        random.FillRecord(*method, kMethodLines);
        method->MethodName = random.Name();
        if (method->MethodIsSP) {
            method->StoredProcedure = std::make_shared<SP>();
            random.FillRecord(*method->StoredProcedure, kStoredProcedureLines);
            for (std::size_t j = random.Below(3); j > 0; --j) {
                auto parameter = std::make_shared<SPParameter>();
                random.FillRecord(*parameter, kSPParameterLines);
                parameter->ParameterName = random.Name();
                method->StoredProcedure->SPParameters.AddExisting(parameter, parameter->ParameterName);
            }
        }
        AddArguments(random, method->Arguments);
        item.TTCMethods.AddExisting(method, method->MethodName);
    }
}

void AddEvents(Random& random, KZMClass& item)
{
    for (std::size_t i = random.Below(3); i > 0; --i) {
        auto event = std::make_shared<ttcEvent>();
        event->EventName = random.Name();
        event->PlusEvent = random.Flag();
        AddArguments(random, event->TTCEventParameters);
        for (TTCParameter& argument : event->TTCEventParameters)
            argument.ColumnName.clear(); // an argument of an event binds no column
        item.TTCEvents.AddExisting(event, event->EventName);
    }
}

} // namespace

void FillAtRandom(TTCProject& project, KZMClasses& classes, unsigned seed)
{
    Random random(seed);
    random.FillRecord(project, kProjectLines);
    for (std::size_t i = random.Below(4); i > 0; --i) {
        const std::string name = "T" + random.Name();
        project.AttachedTables.Add(name, name);
    }
    for (std::size_t i = random.Below(5); i > 0; --i) {
        auto item = std::make_shared<KZMClass>();
        random.FillRecord(*item, kClassLines);
        item->ClassName = random.Name();
        item->CollectionName = random.Name();
        AddKeysAndRelationships(random, *item);
        AddProperties(random, *item);
        AddMethods(random, *item);
        AddEvents(random, *item);
        classes.AddExisting(item, item->ClassName);
    }
}

} // namespace veldrane::testing
