#pragma once

#include "datasource/connection_policy.h"
#include "datasource/data_source_error.h"
#include "datasource/odbc/driver_sockets.h"
#include "datasource/odbc/failure_hint.h"
#include "ports/reading_watch.h"

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace veldrane {

// An ODBC handle that is freed with its owner.
class OdbcHandle
{
  public:
    OdbcHandle() = default;

    // Allocates a handle under its parent; a null one if the parent refuses.
    OdbcHandle(SQLSMALLINT type, SQLHANDLE parent);
    OdbcHandle(OdbcHandle&& other) noexcept;
    OdbcHandle& operator=(OdbcHandle&& other) noexcept;
    OdbcHandle(const OdbcHandle&) = delete;
    OdbcHandle& operator=(const OdbcHandle&) = delete;
    ~OdbcHandle();

    [[nodiscard]] SQLHANDLE Get() const { return handle_; }
    [[nodiscard]] SQLSMALLINT Type() const { return type_; }

  private:
    SQLSMALLINT type_ = 0;
    SQLHANDLE handle_ = nullptr;
};

using OdbcErrors = std::vector<ADOError>;

struct SessionOptions
{
    std::chrono::seconds ConnectTimeout{15};
    std::chrono::seconds StatementTimeout{60};
    ReadingWatch* Watch = nullptr; // told of the rows that are fetched; nothing for nobody
};

// One open connection of the driver manager. Catalogs share it with the connection that opened it, and see it closed
// when that closes it.
class OdbcSession
{
  public:
    // Connects. A server that keeps the driver busy is cut off after three times the limit, for drivers that heed it
    // heed it with each wait: for the network, the greeting and the login; an SQL Server that sends more than a login
    // takes, at once. Throws DataSourceError kFailed with the
    // driver's words, kNoOpenConnection in words of its own if the server was cut off. What drivers say about failures,
    // now and later, is kept in `errors`.
    OdbcSession(const OdbcLogon& logon, const SessionOptions& options, std::shared_ptr<OdbcErrors> errors);
    OdbcSession(const OdbcSession&) = delete;
    OdbcSession& operator=(const OdbcSession&) = delete;
    ~OdbcSession();

    void Disconnect();

    // Throws DataSourceError kNoOpenConnection after Disconnect.
    void RequireOpen() const;

    [[nodiscard]] const DriverProfile& Profile() const { return *scene_.Logon.Profile; }
    [[nodiscard]] bool IsWide() const { return Profile().Width == CallWidth::Wide; }
    [[nodiscard]] SQLHDBC Handle() const { return connection_.Get(); }
    [[nodiscard]] std::chrono::seconds StatementTimeout() const { return scene_.StatementTimeout; }

    // Tells whoever watches that so many rows of a statement were fetched. Throws ReadingCancelled.
    void TellRows(std::uint64_t rows) const
    {
        if (readingWatch_ != nullptr)
            readingWatch_->Read(rows);
    }

    // Whether the driver gives a value in pieces that it has already put, cut off, where the row's values go.
    [[nodiscard]] bool ReadsBoundValuesAgain() const { return readsBoundValuesAgain_; }

    // A text that the driver tells of itself, "" if it has none.
    [[nodiscard]] std::string Info(SQLUSMALLINT what) const;

    // Begins the time that a statement may take until its handle is freed. A second after the limit, which is the
    // driver's own, the connection is cut under the driver. None for a driver without connections.
    [[nodiscard]] std::unique_ptr<SocketWatch::Limit> LimitStatement() const;

    // Begins a call of the statement that has the limit, which may read an answer's description or a row: half a
    // megabyte, which 1024 columns with the longest names stay below. A server that sends more, messages without end
    // for example, is cut off: the driver manager goes through all messages once more for each of them. Holds for SQL
    // Server's drivers; others read whole answers in a call.
    void BeginCall() const;

    // The same for what the driver drops when the statement is freed: all that is on its way, which is more.
    void BeginFreeing() const;

    // Throws what the driver says about the handle, and what can be done, unless the call went well. Once a statement
    // has been cut off, throws kNoOpenConnection in words that say why.
    void Check(SQLRETURN result, const OdbcHandle& handle) const;

    // Forgets what drivers said: of a failure that was expected.
    void ForgetErrors() const { errors_->clear(); }

    // Ends the connection under the driver, which would wait for the end of the answer before it frees a statement, and
    // throws kNoOpenConnection for this reason.
    [[noreturn]] void GiveUp(const std::string& reason) const;

  private:
    void Connect(const SocketWatch& watch);
    [[nodiscard]] DataSourceError ErrorWithHint() const;
    [[nodiscard]] bool ReadsByCalls() const { return Profile().Family == DriverFamily::Tds; }
    [[noreturn]] void Fail(const std::string& reason, const std::string& state) const;

    FailureScene scene_;
    std::shared_ptr<OdbcErrors> errors_;
    OdbcHandle environment_;
    OdbcHandle connection_;
    OpenSockets sockets_; // the driver's, as far as it has any
    std::unique_ptr<SocketWatch> watch_;
    ReadingWatch* readingWatch_;
    bool open_ = false;
    bool readsBoundValuesAgain_ = false;
};

} // namespace veldrane
