// What of the sample databases is rare, as it stands in the project made from them.

#include "opened_project.h"
#include "sample_database.h"

#include "model/keys.h"

#include <gmock/gmock.h>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using testing::Ended;
using testing::OpenedProject;
using ::testing::Pair;
using testing::SampleDatabaseTest;
using testing::SampleServer;
using testing::SampleSource;

class SampleFacts : public SampleDatabaseTest
{
  protected:
    void Define(const SampleSource& source, const std::vector<std::string>& more = {"--all"})
    {
        std::vector<std::string> arguments{"define", Workspace.Path("Sample.kzm"), "--connection", Load(source)};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const Ended defined = Workspace.Run(arguments);
        EXPECT_EQ(defined.ExitCode, 0) << defined.ErrorOutput;
        opened_ = std::make_unique<OpenedProject>(Workspace.Path("Sample.kzm"), Workspace.ReadFile("Sample.kzm"));
    }

    // The class that was made of a table; an empty one if there is none.
    [[nodiscard]] const KZMClass& ClassOf(const std::string& table) const
    {
        static const KZMClass none;
        for (const KZMClass& item : opened_->Classes)
            if (item.TableName == table)
                return item;
        ADD_FAILURE() << "There is no class of " << table;
        return none;
    }

    [[nodiscard]] const TTCProperty& Field(const std::string& table, const std::string& name) const
    {
        static const TTCProperty none;
        for (const TTCProperty& property : ClassOf(table).TTCProperties)
            if (property.FieldName == name)
                return property;
        ADD_FAILURE() << table << " has no property of " << name;
        return none;
    }

    [[nodiscard]] std::vector<std::string> PrimaryKeyOf(const std::string& table) const
    {
        std::vector<std::string> columns;
        for (const TTCKey& key : ClassOf(table).TTCKeys)
            if (key.KeyType == key_type::kPrimaryKey)
                for (const TTCColumn& column : key.TTCColumns)
                    columns.push_back(column.ColumnName);
        return columns;
    }

    // The name of each relationship to the parent, with its one column.
    [[nodiscard]] std::vector<std::pair<std::string, std::string>> RelationshipsOf(const std::string& table) const
    {
        std::vector<std::pair<std::string, std::string>> found;
        for (const TTCRelationship& relationship : ClassOf(table).TTCRelationships)
            for (const TTCColumn& column : relationship.Columns)
                found.emplace_back(relationship.KeyName, column.ColumnName + "=" + column.JoinColumnName);
        return found;
    }

  private:
    std::unique_ptr<OpenedProject> opened_;
};

TEST_F(SampleFacts, PagilaOrdersTheColumnsOfAKeyOtherwiseThanThoseOfTheTable)
{
    Define({SampleServer::PostgreSql, {"pagila/pagila-schema.sql"}});
    EXPECT_THAT(PrimaryKeyOf("payment"), ElementsAre("payment_date", "payment_id"));
    EXPECT_THAT(PrimaryKeyOf("payment_p2022_07"), ElementsAre("payment_date", "payment_id"));
    EXPECT_EQ(ClassOf("payment").TTCProperties.Item(std::size_t{1})->FieldName, "payment_id");
    EXPECT_THAT(PrimaryKeyOf("film_category"), ElementsAre("film_id", "category_id"));
}

TEST_F(SampleFacts, PagilaHasTypesOfItsOwn)
{
    Define({SampleServer::PostgreSql, {"pagila/pagila-schema.sql"}});
    EXPECT_EQ(Field("film", "release_year").DataType, "Long") << "a domain over integer";
    EXPECT_EQ(Field("film", "rating").DataType, "String") << "an enumeration";
    EXPECT_EQ(Field("film", "special_features").DataType, "String") << "an array";
    EXPECT_EQ(Field("film", "fulltext").DataType, "String") << "a text search vector";
    EXPECT_EQ(Field("customer", "activebool").DataType, "Boolean");
    EXPECT_EQ(Field("customer", "create_date").DataType, "Date");
    EXPECT_EQ(Field("film", "rental_duration").DataType, "Integer");
    EXPECT_EQ(Field("language", "name").MaxLength, 20);
}

TEST_F(SampleFacts, SakilaJoinsAFilmToTheSameTableTwice)
{
    Define({SampleServer::PostgreSql, {"sakila/sakila-postgres-schema.sql"}});
    EXPECT_EQ(ClassOf("film").ParentClassName, "language");
    EXPECT_THAT(RelationshipsOf("film"),
                ElementsAre(Pair("film_language_id_fkey", "language_id=language_id"),
                            Pair("film_original_language_id_fkey", "original_language_id=language_id")));
    EXPECT_THAT(PrimaryKeyOf("payment"), ElementsAre("payment_id"));
    EXPECT_THAT(PrimaryKeyOf("payment_p2007_01"), ElementsAre()) << "keys are not inherited";
    EXPECT_TRUE(Field("payment_p2007_01", "payment_id").FieldIsIdentityCol) << "defaults are";
}

TEST_F(SampleFacts, SakilaCountsWithoutASignInMariaDb)
{
    Define({SampleServer::MariaDb, {"sakila/sakila-mysql-schema.sql"}});
    EXPECT_EQ(Field("actor", "actor_id").FieldDataType, "Unsigned Int");
    EXPECT_TRUE(Field("actor", "actor_id").FieldIsIdentityCol);
    EXPECT_EQ(Field("film", "rental_duration").FieldDataType, "Unsigned Tiny Int");
    EXPECT_EQ(Field("film", "rental_duration").DataType, "Byte");
    EXPECT_EQ(Field("film", "length").FieldDataType, "Unsigned Small Int");
    EXPECT_EQ(Field("rental", "rental_id").FieldDataType, "Int");
    EXPECT_EQ(Field("film", "rating").MaxLength, 5) << "the longest value";
    EXPECT_EQ(Field("film", "special_features").MaxLength, 54) << "all values, with commas";
    EXPECT_THAT(PrimaryKeyOf("film_actor"), ElementsAre("actor_id", "film_id"));
    EXPECT_EQ(ClassOf("film_text").TTCRelationships.Count(), 0U);
    EXPECT_THAT(RelationshipsOf("film"),
                ElementsAre(Pair("fk_film_language", "language_id=language_id"),
                            Pair("fk_film_language_original", "original_language_id=language_id")));
}

class ChinookNumbers : public SampleFacts, public ::testing::WithParamInterface<const char*>
{};

INSTANTIATE_TEST_SUITE_P(PostgreSql, ChinookNumbers, ::testing::Values("serial", "identity"),
                         [](const auto& way) { return std::string(way.param); });

TEST_P(ChinookNumbers, AreGivenByTheServerEitherWay)
{
    Define({SampleServer::PostgreSql, {std::string("chinook/chinook-postgres-") + GetParam() + "-schema.sql"}});
    const TTCProperty& number = Field("album", "album_id");
    EXPECT_TRUE(number.FieldIsIdentityCol);
    EXPECT_FALSE(number.PropertyLetSet);
    EXPECT_FALSE(number.FieldAllowsNull);
    EXPECT_FALSE(Field("album", "artist_id").FieldIsIdentityCol);
    EXPECT_FALSE(Field("playlist_track", "track_id").FieldIsIdentityCol);
    EXPECT_TRUE(ClassOf("album").RetrieveByIdentityCol);
    EXPECT_TRUE(ClassOf("playlist_track").RetrieveByPrimaryKey);
    EXPECT_EQ(ClassOf("employee").ParentClassName, "") << "a table that only refers to itself has no parent";
}

TEST_F(SampleFacts, EmployeesHaveViewsThatAreReadOnly)
{
    Define({SampleServer::MariaDb, {"employees/employees-mysql-schema.sql", "employees/employees-mysql-objects.sql"}},
           {"--table", "v_full_employees", "--table", "current_dept_emp", "--table", "titles"});
    EXPECT_TRUE(ClassOf("v_full_employees").ReadOnly);
    EXPECT_TRUE(ClassOf("current_dept_emp").ReadOnly);
    EXPECT_FALSE(ClassOf("titles").ReadOnly);
    EXPECT_EQ(Field("v_full_employees", "department").DataType, "String") << "what a function answers";
    EXPECT_EQ(Field("v_full_employees", "department").MaxLength, 40);
    EXPECT_EQ(Field("v_full_employees", "gender").MaxLength, 1);
    EXPECT_THAT(PrimaryKeyOf("v_full_employees"), ElementsAre());
    EXPECT_THAT(PrimaryKeyOf("titles"), ElementsAre("emp_no", "title", "from_date"));
}

} // namespace
} // namespace veldrane
