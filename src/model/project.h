#pragma once

#include "model/attached_objects.h"
#include "model/class_collection_names.h"
#include "model/signal.h"

#include <cstdint>
#include <string>

namespace veldrane {

// The kinds of connection, as `TTCProject::DataSource` numbers them.
namespace data_source_kind {
inline constexpr std::int32_t kOdbc = 0;
inline constexpr std::int32_t kSqlServer = 1;
inline constexpr std::int32_t kJet = 2;
} // namespace data_source_kind

namespace visual_basic_version {
inline constexpr std::int32_t kVisualBasic6 = 0;
inline constexpr std::int32_t kVisualBasic5 = 1;
} // namespace visual_basic_version

// Everything that a generation project knows apart from its classes. It validates nothing.
class TTCProject
{
  public:
    // Forgets names, connection and the first options, then raises ProjectNameChanged(""),
    // ProjectConnectionChanged("") and ProjectModified. Everything else keeps its value: a new project starts from a
    // new object.
    void Clear();

    // The kind of connection, derived from the latest connection string that named a provider.
    [[nodiscard]] std::int32_t DataSource() const { return dataSource_; }

    [[nodiscard]] const std::string& ConnectionString() const { return connectionString_; }

    // Derives `DataSource`; if the text differs from the stored one, stores it and raises ProjectConnectionChanged,
    // whose listener opens the database.
    void SetConnectionString(const std::string& value);

    [[nodiscard]] const std::string& ProjectName() const { return projectName_; }

    // Raises ProjectNameChanged if the text differs from the stored one.
    void SetProjectName(const std::string& value);

    [[nodiscard]] bool Modified() const { return modified_; }

    // Raises ProjectModified when the flag becomes True; clearing it raises nothing.
    void SetModified(bool value);

    std::string DataSourceName;
    std::string FileName;
    std::string FullPath;
    std::string ProjectDescription;
    std::string DataSourceServerName;
    std::string DataSourceDatabaseName;
    std::string DataSourceLogin;
    std::string DataSourceDriver;
    bool UseTransactions = false;
    bool WriteErrorsToApplicationLog = false;
    std::string Author;
    bool AutosaveProject = false;
    std::int32_t AutosaveProjectInterval = 0; // minutes
    std::string TempFileName;
    std::int32_t AutosaveCurrentInterval = 0; // minutes since the last autosave
    TTCClassCollectionNames ClassCollectionNames;
    std::string VBProjectName;
    std::string VBProjectDescription;
    bool WrapClasses = false;
    std::string WrapperClassName;
    bool Recovered = false;
    std::string OutputPath;
    bool UseGlobalADOObject = false;
    bool IncludeGlobalsBas = false;
    bool MakeWebCompatible = false;
    std::string DataSourcePassword;         // never written
    std::string DataSourceDatabasePassword; // never written
    bool MTSEnabled = false;
    bool FormsEnabled = false;
    bool MTSDontRetrieve = false;
    std::string ClassPrefix;
    std::string ModulePrefix;
    std::string FormPrefix;
    std::int32_t VBVersion = visual_basic_version::kVisualBasic6;
    std::string PrefixBoolean;
    std::string PrefixByte;
    std::string PrefixCollection;
    std::string PrefixCurrency;
    std::string PrefixDate;
    std::string PrefixDouble;
    std::string PrefixInteger;
    std::string PrefixLong;
    std::string PrefixObject;
    std::string PrefixOther;
    std::string PrefixSingle;
    std::string PrefixString;
    std::string PrefixVariant;
    std::int32_t LoggingLevel = 0;
    bool LogTransactions = false;
    std::string LogDatabaseConnection;
    std::string LogTableName;
    bool DoNotExposeChildrenMethods = false;
    bool TrackPropertyChanges = false;
    bool AllowLogTargetChange = false;
    bool ConnectSameDirectory = false;
    bool UseADOR = false;
    veldrane::AttachedTables AttachedTables;
    veldrane::AttachedSPs AttachedSPs;

    Signal<const std::string&> ProjectNameChanged;
    Signal<const std::string&> MTSProjectNameChanged; // declared for listeners; nothing raises it
    Signal<> ProjectModified;
    Signal<const std::string&> ProjectConnectionChanged;

  private:
    std::int32_t dataSource_ = data_source_kind::kOdbc;
    std::string connectionString_;
    std::string projectName_;
    bool modified_ = false;
};

// Whether generated reads and writes go through an ADO connection of the client process.
[[nodiscard]] bool LocalConnection(const TTCProject& project);

// Whether generated reads go through the component.
[[nodiscard]] bool RetrievesThroughComponent(const TTCProject& project);

} // namespace veldrane
