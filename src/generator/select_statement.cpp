#include "generator/select_statement.h"

#include "text/case_folding.h"
#include "text/strings.h"

#include <unordered_map>

// The statement in Jet's dialect, where each join closes one of the parentheses before the class's own table:
//
//     SELECT a.OrderID,a.CustomerID,b.City FROM (Orders a INNER JOIN Customers b ON a.CustomerID=b.CustomerID)
namespace veldrane {
namespace {

// Names of the joined tables, in their order. The class's own is `a`.
constexpr std::string_view kJoinLetters = "bcdefghijklmnop";

// Where the opening parentheses go once their number is known.
constexpr std::string_view kOpeningMark = "~";

void CutComma(std::string& list)
{
    if (list.ends_with(','))
        list.pop_back();
}

std::string Bracketed(std::string_view name)
{
    std::string text;
    AppendBracketed(text, name);
    return text;
}

// A text made from a name is bracketed where the name is.
std::string BracketedAs(std::string_view name, const std::string& madeFromName)
{
    return NeedsBrackets(name) ? "[" + madeFromName + "]" : madeFromName;
}

class SelectBuilder
{
  public:
    explicit SelectBuilder(const ClassScope& scope) : scope_(scope) {}

    std::string Build()
    {
        from_ = " FROM ~" + Bracketed(scope_.Class.TableName) + " a ";
        TakeFields();
        if (!TakeLookups())
            return {};
        ListColumns();
        if (lookups_.empty())
            CutComma(columns_);
        CutComma(lookups_);
        return "SELECT " + columns_ + lookups_ + text::ReplaceAll(from_, kOpeningMark, std::string(joins_, '('));
    }

  private:
    void TakeFields()
    {
        for (TTCProperty& property : scope_.Class.TTCProperties) {
            if (property.FieldName.empty())
                continue;
            property.FieldAlias.clear();
            property.FieldReference = property.FieldName;
            Track({.FieldName = property.FieldName, .PropertyName = property.PropertyName, .FieldReference = "a." + Bracketed(property.FieldName), .FieldAlias = {}}, property.FieldName);
        }
    }

    // False if there are too many joins.
    bool TakeLookups()
    {
        for (TTCProperty& property : scope_.Class.TTCProperties) {
            if (property.LookupTable.empty())
                continue;
            if (joins_ == kJoinLetters.size()) {
                scope_.Asking.Tell("Join Limit Exceeded", "Unable to construct query. There are too many joins for SQL To handle. Please remove some Lookup fields from this class.",
                                   MessageIcon::Critical);
                return false;
            }
            const std::string letter(1, kJoinLetters[joins_++]);
            Join(property, letter);
            for (TTCLookupField& field : property.TTCLookupFields)
                TakeLookupField(field, letter);
        }
        return true;
    }

    void Join(const TTCProperty& property, const std::string& letter)
    {
        from_ += property.LookupUseOuterJoin ? "LEFT JOIN " : "INNER JOIN ";
        // The reference stands as it is, without brackets of its own: on purpose.
        from_ += Bracketed(property.LookupTable) + " " + letter + " ON a." + property.FieldReference + "=" + letter + "." + Bracketed(property.LookupJoinField) + ") ";
    }

    void TakeLookupField(TTCLookupField& field, const std::string& letter)
    {
        const std::string reference = letter + "." + Bracketed(field.FieldName);
        field.FieldAlias = field.FieldName;
        TrackFields record{.FieldName = field.FieldName, .PropertyName = field.PropertyName, .FieldReference = reference, .FieldAlias = {}};
        if (Track(record, field.FieldName)) {
            field.FieldReference = reference;
            lookups_ += reference + ",";
            return;
        }
        RenameEarlierOwner(field.FieldName);
        field.FieldAlias = letter + field.FieldName;
        record.FieldAlias = field.FieldAlias;
        lookups_ += reference + " as " + BracketedAs(field.FieldName, field.FieldAlias) + ",";
        Track(record, reference);
    }

    // Two tables have the name. The property that had it first is read by an alias, which keeps the brackets it needs
    // and is put in brackets once more where it is listed: on purpose. A lookup field that had it first keeps its name.
    void RenameEarlierOwner(const std::string& fieldName)
    {
        TrackFields record = tracked_.at(text::Fold(fieldName));
        const auto owner = scope_.Class.TTCProperties.Item(record.PropertyName);
        if (owner == nullptr)
            return;
        owner->FieldAlias = BracketedAs(owner->FieldName, "a" + owner->FieldName);
        owner->FieldReference = "a." + BracketedAs(owner->FieldName, owner->FieldReference);
        record.FieldAlias = owner->FieldAlias;
        Track(record, owner->FieldAlias);
    }

    void ListColumns()
    {
        for (TTCProperty& property : scope_.Class.TTCProperties) {
            if (!property.FieldAlias.empty())
                columns_ += "a." + Bracketed(property.FieldName) + " as " + BracketedAs(property.FieldName, property.FieldAlias) + ",";
            else if (!property.FieldReference.empty())
                columns_ += "a." + Bracketed(property.FieldReference) + ",";
            if (property.FieldAlias.empty())
                property.FieldAlias = property.FieldReference;
        }
    }

    // False if the name is taken.
    bool Track(const TrackFields& record, std::string_view name) { return tracked_.try_emplace(text::Fold(name), record).second; }

    const ClassScope& scope_;
    std::unordered_map<std::string, TrackFields> tracked_; // by the name, without regard to case
    std::string columns_;
    std::string lookups_;
    std::string from_;
    std::size_t joins_ = 0;
};

} // namespace

std::string BuildSelectStatement(const ClassScope& scope)
{
    return SelectBuilder(scope).Build();
}

} // namespace veldrane
