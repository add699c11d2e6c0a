#pragma once

#include "datasource/logon/frm_odbc_logon.h"
#include "datasource/logon/logon_string.h"
#include "support/fake_driver_manager.h"
#include "support/recorded_errors.h"
#include "support/recorded_pointer.h"
#include "support/scripted_file_dialogs.h"
#include "support/scripted_messages.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace veldrane {

using testing::kAccess;

// A connection that opens nothing and writes down what happens to it.
class LoggedConnection : public DataSourceConnection
{
  public:
    LoggedConnection(std::string text, std::vector<std::string>& log) : text_(std::move(text)), log_(log) {}

    void Open(const std::string& connectionString) override
    {
        log_.push_back("reopen " + connectionString);
        if (OpenFails)
            throw DataSourceError(data_source_error::kFailed, "ODBC", "can't reopen");
        text_ = connectionString;
    }

    void Close() override
    {
        log_.push_back("close " + text_);
        text_.clear();
        if (CloseFails)
            throw DataSourceError(data_source_error::kFailed, "ODBC", "can't close");
    }

    [[nodiscard]] bool IsOpen() const override { return !text_.empty(); }
    [[nodiscard]] const std::string& ConnectionString() const override { return text_; }
    [[nodiscard]] const std::vector<ADOError>& Errors() const override { return errors_; }
    [[nodiscard]] std::unique_ptr<Catalog> OpenCatalog() override { return nullptr; }
    void Execute(const std::string& /*statement*/) override {}

    bool OpenFails = false;
    bool CloseFails = false;

  private:
    std::string text_;
    std::vector<std::string>& log_;
    std::vector<ADOError> errors_;
};

class LogonTest : public ::testing::Test
{
  protected:
    [[nodiscard]] LogonSurroundings Surroundings()
    {
        return {.Asking = messages,
                .Errors = errors,
                .Files = files,
                .Pointer = pointer,
                .Installed = installed,
                .Connect = [this](const std::string& text, StringOrigin origin) { return Connect(text, origin); },
                .ActiveConnection = shared};
    }

    // The dialog as it stands after its load.
    [[nodiscard]] std::unique_ptr<frmODBCLogon> Loaded(LogonMode mode = LogonMode::Normal)
    {
        auto dialog = std::make_unique<frmODBCLogon>(project, LogonPurpose::NewDataSource, mode, Surroundings());
        dialog->Load();
        return dialog;
    }

    [[nodiscard]] std::unique_ptr<frmODBCLogon> LoadedOn(const std::string& connectionString)
    {
        project.SetConnectionString(connectionString);
        return Loaded();
    }

    // The dialog with a page in front.
    [[nodiscard]] std::unique_ptr<frmODBCLogon> LoadedAt(std::string_view provider)
    {
        auto dialog = Loaded();
        Select(*dialog, provider);
        return dialog;
    }

    static void Select(frmODBCLogon& dialog, std::string_view provider)
    {
        for (std::size_t row = 0; row < dialog.Providers().size(); ++row)
            if (dialog.Providers()[row].Key == provider)
                dialog.cmbProviders_Click(row);
        EXPECT_EQ(dialog.Provider().Key, provider);
    }

    // Clicks the row of the current page with the text.
    static void SelectDSN(frmODBCLogon& dialog, std::string_view text)
    {
        dialog.cmbDSN_Click(RowOf(dialog.Page().cmbDSN, text));
        EXPECT_EQ(dialog.Page().cmbDSN.Text(), text);
    }

    static void SelectDriver(frmODBCLogon& dialog, std::string_view text)
    {
        dialog.cmbDrivers_Click(RowOf(dialog.Page().cmbDrivers, text));
        EXPECT_EQ(dialog.Page().cmbDrivers.Text(), text);
    }

    static std::size_t RowOf(const ComboBox& list, std::string_view text)
    {
        std::size_t row = 0;
        while (row < list.Rows.size() && list.Rows[row].Text != text)
            ++row;
        return row;
    }

    // What the string of an OK is, or would have been.
    static std::string StringOf(frmODBCLogon& dialog) { return BuildLogonString(dialog.Provider(), dialog.Page()); }

    [[nodiscard]] std::unique_ptr<DataSourceConnection> Connect(const std::string& text, StringOrigin origin)
    {
        log.push_back((origin == StringOrigin::ProjectFile ? "open " : "open whatever it holds ") + text);
        shapeWhileOpening = pointer.Current;
        if (fails)
            throw DataSourceError(data_source_error::kFailed, "ODBC", "refused");
        return std::make_unique<LoggedConnection>(text, log);
    }

    TTCProject project;
    testing::FakeDriverManager installed;
    testing::ScriptedMessages messages;
    testing::RecordedErrors errors;
    testing::ScriptedFileDialogs files;
    testing::RecordedPointer pointer;
    std::unique_ptr<DataSourceConnection> shared;
    std::vector<std::string> log;
    PointerShape shapeWhileOpening = PointerShape::Default;
    bool fails = false;
};

} // namespace veldrane
