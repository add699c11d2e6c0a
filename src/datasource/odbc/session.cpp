#include "datasource/odbc/session.h"

#include "datasource/odbc/diagnostics.h"
#include "datasource/odbc/utf16.h"
#include "text/characters.h"

#include <array>
#include <utility>

namespace veldrane {
namespace {

constexpr const char* kTimeout = "HYT00"; // the state by which hints know a limit that was met
constexpr const char* kGeneralError = "HY000";

// Bytes that a call of an SQL Server's driver reads at most. Connecting takes a few thousand, with certificates some
// ten; a description of columns 300 thousand; and what is on its way fills the buffers of both sides.
constexpr std::uint64_t kKilobyte = 1024;
constexpr std::uint64_t kMostOfLogin = 64 * kKilobyte;
constexpr std::uint64_t kMostOfCall = 512 * kKilobyte;
constexpr std::uint64_t kMostOfFreeing = 64 * kKilobyte * kKilobyte;

// By these words hints know it.
std::string SendsWithoutEnd(std::uint64_t bytes)
{
    return "The server sends without end: more than " + std::to_string(bytes / kKilobyte) +
           " KB came in place of an answer.";
}

// Attributes are numbers in the place of a pointer.
SQLPOINTER AsPointer(std::uintptr_t number)
{
    return reinterpret_cast<SQLPOINTER>(number); // NOLINT(performance-no-int-to-ptr)
}

} // namespace

OdbcHandle::OdbcHandle(SQLSMALLINT type, SQLHANDLE parent) : type_(type)
{
    if (!SQL_SUCCEEDED(SQLAllocHandle(type, parent, &handle_)))
        handle_ = nullptr;
}

OdbcHandle::OdbcHandle(OdbcHandle&& other) noexcept : type_(other.type_), handle_(std::exchange(other.handle_, nullptr))
{}

OdbcHandle& OdbcHandle::operator=(OdbcHandle&& other) noexcept
{
    std::swap(type_, other.type_);
    std::swap(handle_, other.handle_);
    return *this;
}

OdbcHandle::~OdbcHandle()
{
    if (handle_ != nullptr)
        SQLFreeHandle(type_, handle_);
}

OdbcSession::OdbcSession(const OdbcLogon& logon, const SessionOptions& options, std::shared_ptr<OdbcErrors> errors)
    : scene_{.Logon = logon, .ConnectTimeout = options.ConnectTimeout, .StatementTimeout = options.StatementTimeout},
      errors_(std::move(errors)), environment_(SQL_HANDLE_ENV, SQL_NULL_HANDLE), readingWatch_(options.Watch)
{
    SQLSetEnvAttr(environment_.Get(), SQL_ATTR_ODBC_VERSION, AsPointer(SQL_OV_ODBC3), 0);
    connection_ = OdbcHandle(SQL_HANDLE_DBC, environment_.Get());
    // Drivers that know no such limit say so, and connect all the same.
    SQLSetConnectAttr(connection_.Get(), SQL_ATTR_LOGIN_TIMEOUT,
                      AsPointer(static_cast<std::uintptr_t>(options.ConnectTimeout.count())), 0);
    const OpenSockets before = FindSockets();
    {
        constexpr int kWaits = 3;
        SocketWatch watch([&before] { return SocketsSince(before); },
                          ReadsByCalls() ? kMostOfLogin : SocketWatch::kUnbounded);
        const SocketWatch::Limit limit(watch, kWaits * options.ConnectTimeout);
        Connect(watch);
    }
    sockets_ = SocketsSince(before);
    if (!sockets_.empty())
        watch_ = std::make_unique<SocketWatch>([this] { return sockets_; });
    scene_.Logon.Text.clear(); // it holds the password
}

OdbcSession::~OdbcSession()
{
    Disconnect();
}

void OdbcSession::Connect(const SocketWatch& watch)
{
    SQLRETURN result = SQL_ERROR;
    if (IsWide()) {
        std::u16string wide = ToUtf16(scene_.Logon.Text);
        result = SQLDriverConnectW(connection_.Get(), nullptr, reinterpret_cast<SQLWCHAR*>(wide.data()), SQL_NTS,
                                   nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    } else {
        std::string narrow = scene_.Logon.Text;
        result = SQLDriverConnect(connection_.Get(), nullptr, reinterpret_cast<SQLCHAR*>(narrow.data()), SQL_NTS,
                                  nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    }
    if (!SQL_SUCCEEDED(result) && watch.WhyCut() == SocketCut::Time)
        Fail("Timeout expired.", kTimeout);
    if (!SQL_SUCCEEDED(result) && watch.WhyCut() == SocketCut::Bytes)
        Fail(SendsWithoutEnd(kMostOfLogin), kGeneralError);
    Check(result, connection_);
    open_ = true;
    SQLUINTEGER extensions = 0;
    SQLGetInfo(Handle(), SQL_GETDATA_EXTENSIONS, &extensions, sizeof(extensions), nullptr);
    readsBoundValuesAgain_ = (extensions & SQL_GD_BOUND) != 0;
}

void OdbcSession::Disconnect()
{
    if (std::exchange(open_, false))
        SQLDisconnect(connection_.Get());
}

void OdbcSession::RequireOpen() const
{
    if (!open_)
        throw DataSourceError(data_source_error::kNoOpenConnection, "ODBC", "The connection is closed.");
}

std::string OdbcSession::Info(SQLUSMALLINT what) const
{
    RequireOpen();
    SQLSMALLINT size = 0;
    if (IsWide()) {
        std::array<char16_t, 512> wide{};
        const auto bytes = static_cast<SQLSMALLINT>(sizeof(wide) - sizeof(char16_t));
        return SQL_SUCCEEDED(SQLGetInfoW(Handle(), what, wide.data(), bytes, &size)) ? FromUtf16(wide.data()) : "";
    }
    std::array<char, 512> narrow{};
    const auto bytes = static_cast<SQLSMALLINT>(sizeof(narrow) - 1);
    return SQL_SUCCEEDED(SQLGetInfo(Handle(), what, narrow.data(), bytes, &size)) ? text::WellFormed(narrow.data())
                                                                                  : "";
}

std::unique_ptr<SocketWatch::Limit> OdbcSession::LimitStatement() const
{
    constexpr std::chrono::seconds kMargin(1);
    return watch_ ? std::make_unique<SocketWatch::Limit>(*watch_, StatementTimeout() + kMargin) : nullptr;
}

void OdbcSession::BeginCall() const
{
    if (watch_ && ReadsByCalls())
        watch_->BeginCall(kMostOfCall);
}

void OdbcSession::BeginFreeing() const
{
    if (watch_ && ReadsByCalls())
        watch_->BeginCall(kMostOfFreeing);
}

void OdbcSession::Check(SQLRETURN result, const OdbcHandle& handle) const
{
    if (watch_ && watch_->WhyCut() == SocketCut::Time)
        Fail("The answer did not come to its end.", kTimeout);
    if (watch_ && watch_->WhyCut() == SocketCut::Bytes)
        Fail(SendsWithoutEnd(kMostOfCall), kGeneralError);
    if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA)
        return;
    *errors_ = ReadDiagnostics(handle.Type(), handle.Get(), Profile().Width);
    throw ErrorWithHint();
}

DataSourceError OdbcSession::ErrorWithHint() const
{
    return ErrorFrom(*errors_, open_ ? HintOnStatement(*errors_, scene_) : HintOnConnecting(*errors_, scene_));
}

void OdbcSession::Fail(const std::string& reason, const std::string& state) const
{
    *errors_ = {
        {.Number = data_source_error::kNoOpenConnection, .Description = reason, .Source = "ODBC", .SQLState = state}};
    throw ErrorWithHint();
}

void OdbcSession::GiveUp(const std::string& reason) const
{
    CutSockets(sockets_);
    Fail(reason, kGeneralError);
}

} // namespace veldrane
