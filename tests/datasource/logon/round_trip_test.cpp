#include "logon_fixture.h"

#include "datasource/connection_string.h"
#include "support/random_numbers.h"

#include <array>

namespace veldrane {
namespace {

using testing::RandomNumbers;

// Pieces that a value is made of: ordinary ones and all that means something in a connection string.
constexpr std::array<std::string_view, 20> kPieces{"a",  "Shop", "1",  ";",    "=",       "{",      "}",
                                                   "}}", "{{",   " ",  "'",    "\"",      "Größe",  "Ελλάς",
                                                   "\\", "%41",  "()", "PWD=", ";DSN=x;", ",[]!@*?"};

std::string AnyValue(RandomNumbers& numbers)
{
    std::string value;
    for (std::size_t left = numbers.Below(6); left > 0; --left)
        value += numbers.Pick(kPieces);
    return value;
}

// What a page's controls hold, without what is not read back.
struct Typed
{
    std::string Target, Server, UID, PWD, DBPassword, Database;

    friend bool operator==(const Typed&, const Typed&) = default;

    friend void PrintTo(const Typed& typed, std::ostream* out)
    {
        *out << '<' << typed.Target << "> <" << typed.Server << "> <" << typed.UID << "> <" << typed.PWD << "> <"
             << typed.DBPassword << "> <" << typed.Database << '>';
    }
};

class LogonRoundTrip : public LogonTest
{
  protected:
    // Drivers and data sources whose names try the string, for the ODBC and the SQL Server page.
    LogonRoundTrip()
    {
        for (const char* name : {"a=b", " blanks ", "{braced}", "semi;colon", "Ελλάς", "SQLOLEDB"}) {
            installed.Libraries[name];
            installed.Sources.push_back({name, "SQL Server"});
        }
    }

    static void SelectAny(ComboBox& list, RandomNumbers& numbers) { list.Selected = numbers.Below(list.Rows.size()); }

    static Typed TypedOn(const LogonPage& page)
    {
        return {.Target = page.optUseDSN ? page.cmbDSN.Text() : page.cmbDrivers.Text(),
                .Server = page.txtServer,
                .UID = page.txtUID,
                .PWD = page.txtPWD,
                .DBPassword = page.txtDBPassword,
                .Database = page.txtDatabase};
    }

    static void TypeAnything(LogonPage& page, RandomNumbers& numbers)
    {
        for (std::string* text : {&page.txtServer, &page.txtUID, &page.txtPWD, &page.txtDBPassword, &page.txtDatabase})
            *text = numbers.OneIn(3) ? "" : AnyValue(numbers);
    }

    // What comes back of what was typed: the rules drop some of it.
    static Typed Expected(std::size_t page, const LogonPage& typed)
    {
        Typed expected = TypedOn(typed);
        if (page == logon_page::kJet) {
            expected.Target = expected.Server = expected.PWD = "";
            if (expected.UID.empty())
                expected.UID = "Admin";
            return expected;
        }
        if (page == logon_page::kOdbc) {
            if (typed.optUseDSN)
                expected.Server = "";
            if (typed.DriverName() != kAccess)
                expected.Database = "";
            return expected;
        }
        expected.DBPassword = "";
        if (expected.UID.empty())
            expected.PWD = "";
        return expected;
    }

    void RoundTrip(std::string_view provider, RandomNumbers& numbers)
    {
        project.SetConnectionString("");
        const auto written = LoadedAt(provider);
        LogonPage& page = written->Page();
        TypeAnything(page, numbers);
        if (written->CurrentPage() != logon_page::kJet) {
            numbers.Flag() ? written->optUseDSN_Click() : written->optDSNLess_Click();
            SelectAny(page.cmbDSN, numbers);
            SelectAny(page.cmbDrivers, numbers);
        } else if (page.txtDatabase.empty()) {
            page.txtDatabase = "/a.mdb";
        }
        written->cmdOK_Click();
        ASSERT_EQ(written->State(), DialogState::Closed) << StringOf(*written);

        messages.Forget();
        const auto read = Loaded();
        EXPECT_EQ(read->Provider().Key, provider) << project.ConnectionString();
        EXPECT_EQ(TypedOn(read->Page()), Expected(written->CurrentPage(), page)) << project.ConnectionString();
        const bool hasOptions = written->CurrentPage() != logon_page::kJet;
        EXPECT_TRUE(!hasOptions || read->Page().optUseDSN == page.optUseDSN) << project.ConnectionString();
    }
};

TEST_F(LogonRoundTrip, WhatOkWroteIsReadBackIntoTheSameControls)
{
    RandomNumbers numbers(20240501);
    for (int round = 0; round < 500; ++round)
        for (const LogonProvider& provider : kLogonProviders) {
            RoundTrip(provider.Key, numbers);
            if (HasFailure())
                return;
        }
}

TEST_F(LogonRoundTrip, WhatIsNotReadBackIsTheDatabaseAlone)
{
    const auto written = LoadedAt("MSDASQL");
    written->Page().txtDatabase = "main";
    written->cmdOK_Click();
    const auto read = Loaded();
    EXPECT_EQ(read->Page().txtDatabase, "");
    ASSERT_EQ(messages.Asked().size(), 1U);
    EXPECT_EQ(messages.Asked().front().Text, "This functionality has not been implemented yet.");
}

// What PostgreSQL's driver reads under a key: a password to the brace that closes it, if it begins with one, and any
// other value to the next semicolon. "" without the key.
std::string ReadByPostgreSql(std::string_view text, std::string_view key)
{
    while (!text.empty()) {
        const std::string_view name = text.substr(0, text.find('='));
        text.remove_prefix(name.size() + 1);
        std::string value;
        if (name == "PWD" && text.starts_with('{'))
            for (text.remove_prefix(1); !text.starts_with('}') || text.starts_with("}}"); text.remove_prefix(1)) {
                if (text.starts_with('}'))
                    text.remove_prefix(1);
                value += text.front();
            }
        else
            value = text.substr(0, text.find(';'));
        if (name == key)
            return value;
        text.remove_prefix(text.find(';', name == "PWD" ? 0 : value.size()) + 1);
    }
    return "";
}

bool IsPlainForPostgreSql(const std::string& value)
{
    return value.find(';') == std::string::npos && !value.starts_with('{');
}

// A driver is handed what was typed, whatever it was, or the string is refused before one is loaded.
TEST_F(LogonRoundTrip, PostgreSqlIsGivenWhatWasTypedOrTheStringIsRefused)
{
    RandomNumbers numbers(7);
    const auto dialog = LoadedAt("MSDASQL");
    dialog->optDSNLess_Click();
    SelectDriver(*dialog, "PostgreSQL Unicode");
    for (int round = 0; round < 2000; ++round) {
        LogonPage& page = dialog->Page();
        TypeAnything(page, numbers);
        page.txtDBPassword.clear();
        const ConnectionString written(StringOf(*dialog));
        const LogonRules rules{.Origin = StringOrigin::CommandLine};
        if (!IsPlainForPostgreSql(page.txtUID) || !IsPlainForPostgreSql(page.txtDatabase) ||
            !IsPlainForPostgreSql(page.txtServer)) {
            EXPECT_THROW(static_cast<void>(BuildOdbcLogon(written, installed, rules)), DataSourceError);
            continue;
        }
        const std::string given = BuildOdbcLogon(written, installed, rules).Text;
        EXPECT_EQ(ReadByPostgreSql(given, "Driver"), "PostgreSQL Unicode") << given;
        EXPECT_EQ(ReadByPostgreSql(given, "UID"), page.txtUID) << given;
        EXPECT_EQ(ReadByPostgreSql(given, "PWD"), page.txtPWD) << given;
        EXPECT_EQ(ReadByPostgreSql(given, "Database"), page.txtDatabase) << given;
        ASSERT_FALSE(HasFailure());
    }
}

} // namespace
} // namespace veldrane
