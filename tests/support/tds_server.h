#pragma once

#include "support/tds_contents.h"

#include <chrono>
#include <memory>
#include <string>

namespace veldrane::testing {

// What a caller has asked for when the server's temper shows.
enum class TdsMoment
{
    Greeting, // the first bytes, before the login
    Login,
    Question, // a statement or a call of the catalog
    Opening,  // a table that is opened for its columns
};

enum class TdsTemper
{
    Willing,
    Silent,    // says nothing more, and stays
    HangsUp,   // closes the connection in place of an answer
    BreaksOff, // closes it in the middle of one
    Babbles,   // answers what is no answer
    NeverEnds, // answers without end
    Drips,     // answers a byte at a time, with a pause before each; for answers that fit into a packet
};

// What an answer without end consists of.
enum class TdsEndless
{
    Rows,
    Changes, // of the database that is in use
    Messages,
    LongMessages, // as long as the driver manager has room for: few of them are many bytes
    Value,        // of one column; from version 7.2 of the protocol on
};

struct TdsManners
{
    TdsTemper Temper = TdsTemper::Willing;
    TdsMoment From = TdsMoment::Question;
    TdsEndless Endless = TdsEndless::Rows; // nobody is sent rows before the login: changes in their place
    std::chrono::milliseconds Pause{0};    // before each row, change, message, piece of a value or byte
};

// A stand-in for SQL Server on a port of its own of 127.0.0.1: it speaks the protocol's versions 7.1 to 7.4 as far as
// reading a catalog needs it, without encryption, and holds what a test states. Goes with the object, whoever is still
// connected.
class TdsServer
{
  public:
    explicit TdsServer(TdsContents contents, TdsManners manners = {});
    TdsServer(const TdsServer&) = delete;
    TdsServer& operator=(const TdsServer&) = delete;
    ~TdsServer();

    // "127.0.0.1,PORT", as it stands behind "Data Source=".
    [[nodiscard]] std::string Address() const;

    // The project's string with which the login gets in.
    [[nodiscard]] std::string ConnectionString() const;
    [[nodiscard]] std::string ConnectionString(const std::string& user, const std::string& password,
                                               const std::string& database) const;

  private:
    class Calls;
    std::unique_ptr<Calls> calls_;
};

} // namespace veldrane::testing
