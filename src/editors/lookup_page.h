#pragma once

#include "datasource/table_lists.h"
#include "editors/member_surroundings.h"
#include "model/properties.h"

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veldrane {

// What stands in a box of the lookup where nothing is chosen.
inline constexpr std::string_view kNoLookup = "<none>";

// A field that the lookup can bring in.
struct LookupFieldRow
{
    std::string FieldName;
    std::string PropertyName; // the alias: the name that the field gets in the class
    std::string DataType;     // the second column, a Visual Basic type name
    std::string Icon = "Field";
    bool Ticked = false;
};

// The lookup tab of a field's property: the table that is joined, the identity field that joins it, and the fields that
// are brought in. What the property has is always there to be chosen, whatever the data source says.
class LookupPage
{
  public:
    LookupPage(const MemberSurroundings& surroundings, std::shared_ptr<const TTCProperty> property);

    // The tab has come to the front: the first time, and after a reading of the tables that the person ended, reads the
    // tables and, of the lookup that there is, the fields. What is chosen stays. What can't be read is reported, and
    // the lists show what the property has.
    void Load();

    // The tables and views behind "<none>", and the row that is chosen.
    [[nodiscard]] const std::vector<ListRow>& Tables() const { return tables_; }
    [[nodiscard]] std::size_t cmbTable() const { return table_; }
    [[nodiscard]] const std::string& TableName() const { return tables_.at(table_).Text; }

    // Chooses a table and reads its fields; what was ticked of it before is ticked again. A failure is reported: the
    // table stays chosen, without fields but those that the property has of it. The table that is chosen is read again
    // only if that failed before or the person ended it.
    void cmbTable_Click(std::size_t row);

    // What is typed into the box. It chooses nothing yet; where it is the name of no row, OK is refused.
    void cmbTable_Change(std::string typed);
    [[nodiscard]] const std::string& cmbTable_Text() const { return typedTable_; }

    // Chooses the table whose name is typed, as OK does. True if another one was chosen before.
    bool ChooseTypedTable();

    // The boxes that refuse the table and the field that joins it: a table that isn't listed, and names that the
    // project's files can't hold where OK makes a lookup of them.
    [[nodiscard]] std::optional<Question> TableRefusal() const;
    [[nodiscard]] std::optional<Question> JoinRefusal() const;

    // The identity fields of the table behind "<none>", and the row that is chosen.
    [[nodiscard]] const std::vector<ListRow>& JoinFields() const { return joins_; }
    [[nodiscard]] std::size_t cmbField() const { return join_; }
    [[nodiscard]] const std::string& JoinField() const { return joins_.at(join_).Text; }
    void cmbField_Click(std::size_t row);

    bool chkUseOuterJoin;

    [[nodiscard]] const std::vector<LookupFieldRow>& lstFields() const { return rows_; }
    void lstFields_ItemCheck(const std::vector<std::size_t>& rows, bool ticked);

    // The person typed another alias. A name that is not legal for another reason than its characters is made so, which
    // is told.
    void lstFields_AfterLabelEdit(std::size_t row, const std::string& alias);

    // Whether OK makes or changes a lookup: both boxes hold something.
    [[nodiscard]] bool MakesLookup() const;

    // What is wrong with the alias of a row that is ticked, "" if nothing; `propertyName` is what the property will be
    // called.
    [[nodiscard]] std::string Trouble(std::size_t row, std::string_view propertyName) const;

    // Says that and why the table that is chosen can't be joined, "" if it can or none is.
    [[nodiscard]] std::string JoinTrouble() const;

    // The box that refuses a field of the lookup, if OK would bring in one that can't be.
    [[nodiscard]] std::optional<Question> FieldsRefusal(std::string_view propertyName) const;

    // Puts the lookup into the property of the class. Without a join field it stays as it was; without a table it goes.
    // Names that it has already keep their letter case, whatever that of the data source.
    void Store(KZMClass& item, TTCProperty& property) const;

  private:
    enum class ReadingEnd
    {
        Whole,
        Cancelled, // by the person
        Failed,    // which was reported
    };

    // What was chosen of a table.
    struct Choice
    {
        std::vector<LookupFieldRow> Rows;
        std::string Join;
    };

    [[nodiscard]] DataSourceView View() const;
    [[nodiscard]] std::vector<CatalogField> FieldsOf(const std::string& table) const;
    [[nodiscard]] ReadingEnd Read(std::string_view routine, const std::function<void()>& reading) const;
    [[nodiscard]] ReadingEnd ReadFromOpenSource(const std::function<void()>& reading) const;
    void ShowTables(std::vector<ListRow> tables, const std::string& chosen);
    void ReadFields(std::string_view routine);
    void ShowFields(const std::vector<CatalogField>& fields);
    void ShowJoins(const std::vector<CatalogField>& fields);
    void AddPresentFields();
    [[nodiscard]] std::size_t TypedRow() const;
    void LeaveTable();
    void TickAgain();
    void TakeOver(const Choice& before);
    void ChooseJoin(const std::string& field);
    [[nodiscard]] bool IsPresentTable() const;
    [[nodiscard]] bool IsPresentJoin() const;
    void StoreJoin(TTCProperty& property) const;
    void StoreFields(KZMClass& item, TTCProperty& property) const;
    [[nodiscard]] bool IsAliasTaken(std::size_t row, std::string_view propertyName) const;
    [[nodiscard]] std::optional<Question> AliasRefusal(std::size_t row, std::string_view propertyName) const;

    MemberSurroundings surroundings_;
    std::shared_ptr<const TTCProperty> property_;
    std::vector<ListRow> tables_;
    std::size_t table_ = 0;
    std::string typedTable_;
    std::vector<ListRow> joins_;
    std::size_t join_ = 0;
    std::vector<LookupFieldRow> rows_;
    std::map<std::string, Choice, std::less<>> left_; // by the name of the table
    bool loaded_ = false;                             // or it was tried and failed
    bool fieldsRead_ = false;                         // of the table that is chosen
};

} // namespace veldrane
