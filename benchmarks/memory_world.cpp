#include "memory_world.h"

#include "shell/commands.h"
#include "support/fake_catalog.h"
#include "support/fake_driver_manager.h"

#include <stdexcept>

namespace veldrane::bench {
namespace {

class SchemaConnection : public DataSourceConnection
{
  public:
    explicit SchemaConnection(const std::vector<SchemaTable>& schema) : schema_(schema) {}

    void Open(const std::string& connectionString) override { text_ = connectionString; }
    void Close() override {}
    [[nodiscard]] bool IsOpen() const override { return true; }
    [[nodiscard]] const std::string& ConnectionString() const override { return text_; }
    [[nodiscard]] const std::vector<ADOError>& Errors() const override { return errors_; }

    void Execute(const std::string& /*statement*/) override {}

    [[nodiscard]] std::unique_ptr<Catalog> OpenCatalog() override
    {
        auto catalog = std::make_unique<testing::FakeCatalog>();
        for (const SchemaTable& table : schema_)
            Describe(table, catalog->Add(table.Name));
        return catalog;
    }

  private:
    static void Describe(const SchemaTable& table, testing::FakeTable& described)
    {
        for (const SchemaColumn& column : table.Columns)
            described.Fields.push_back(
                {.Name = column.Name,
                 .Type = column.Type->AdoType,
                 .DefinedSize = column.Type->DefinedSize,
                 .Attributes = column.Nullable ? field_attribute::kIsNullable | field_attribute::kMayBeNull : 0});
        described.Fields.front().IsAutoIncrement = table.IsNumbered();
        described.Indexes.push_back(testing::PrimaryIndex(table.PrimaryKey));
        for (const SchemaForeignKey& key : table.ForeignKeys) {
            std::vector<CatalogKeyColumn> columns;
            for (std::size_t at = 0; at < key.Columns.size(); ++at)
                columns.push_back({.Name = key.Columns[at], .RelatedColumn = key.RelatedColumns[at]});
            const std::string name = "FK" + std::to_string(described.Keys.size());
            described.Keys.push_back(testing::ForeignKey(name, key.RelatedTable, std::move(columns)));
        }
    }

    const std::vector<SchemaTable>& schema_;
    std::string text_;
    std::vector<ADOError> errors_;
};

} // namespace

std::string DefineInMemory(const std::vector<SchemaTable>& schema)
{
    MemoryWorld world;
    ModuleState state;
    NoProgress progress;
    NoFileWindows windows;
    const testing::FakeDriverManager installed;
    const Application application{
        .UserSettings = world.UserSettings,
        .Asking = world.Messages,
        .Errors = world.Errors,
        .Files = world.Files,
        .Recovery = world.Recovery,
        .Time = world.Clock,
        .Programs = world.Processes,
        .Connect = [&](const std::string& /*text*/,
                       StringOrigin /*origin*/) { return std::make_unique<SchemaConnection>(schema); },
        .Installed = installed,
        .State = state,
        .Output = world.Output,
        .ErrorOutput = world.Output,
        .Progress = progress,
        .Windows = windows.Windows(),
    };
    const DefineCommand command{
        .File = kProjectPath,
        .Connection = "PROVIDER=MSDASQL;Driver=SQLite3;Database=/schema.db;",
        .Request = {.Tables = {}, .Lookups = {}, .All = true},
        .Collections = true,
        .Settings = {},
    };
    if (RunDefine(application, command) != exit_code::kDone)
        throw std::runtime_error("define in memory: " + world.Output.str());
    return world.Files.Files.at(kProjectPath);
}

} // namespace veldrane::bench
