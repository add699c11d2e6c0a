#include "shell/desktop/options_dialog.h"

#include "screenshots.h"
#include "shell/desktop/qt_font.h"
#include "shell/desktop/warning_dialog.h"
#include "shell/main_window/recorded_options_owner.h"
#include "shell/main_window/scripted_look_dialogs.h"
#include "support/memory_settings.h"
#include "support/recorded_errors.h"
#include "support/scripted_messages.h"
#include "text/runtime_error.h"
#include "widgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTreeWidget>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;

struct TheOptionsWindow : ::testing::Test
{
    OptionsDialog& Show()
    {
        options.emplace(OptionsPorts{settings, messages, errors, dialogs, warning}, owner, PreviewLook{});
        dialog = std::make_unique<OptionsDialog>(*options, nullptr);
        dialog->show();
        return *dialog;
    }

    void ShowTab(const std::string& name)
    {
        Find<QTabWidget>(*dialog, "tabMain").setCurrentWidget(&Find<QWidget>(*dialog, name));
    }

    [[nodiscard]] std::string Option(std::string_view name) const { return settings.GetKeyValue("Options", name); }

    MemorySettings settings;
    ScriptedMessages messages;
    RecordedErrors errors;
    ScriptedLookDialogs dialogs;
    frmWarning warning{settings, errors, ShowWarning};
    RecordedOptionsOwner owner;
    std::optional<frmOptions> options;
    std::unique_ptr<OptionsDialog> dialog;
};

TEST_F(TheOptionsWindow, ShowsWhatIsStored)
{
    settings.SaveSetting("Options", "ShowSystemTables", "1");
    settings.SaveSetting("Options", "MaxTablesToDisplay", "-1");
    settings.SaveSetting("Help", "warnOpenDatasource", "1");
    QWidget& window = Show();
    EXPECT_EQ(window.windowTitle(), u"Options"_s);
    EXPECT_FALSE(Find<QCheckBox>(window, "chkDontShowStartupDialog").isChecked());
    EXPECT_TRUE(Find<QCheckBox>(window, "chkShowSystemTables").isChecked());
    EXPECT_EQ(Find<QComboBox>(window, "cmbMaxTablesToDisplay").currentText(), u"None: I name my tables"_s);
    EXPECT_EQ(Find<QComboBox>(window, "cmbMaxProcsToDisplay").currentText(), u"2000"_s);
    EXPECT_EQ(Find<QComboBox>(window, "cmbMaxProcsToDisplay").itemText(0), u"None"_s);
    EXPECT_EQ(Find<QComboBox>(window, "cmbMaxProcsToDisplay").toolTip(),
              u"Kept in the settings; the list of procedures is always complete"_s);
    EXPECT_EQ(Find<QLabel>(window, "lblFont").text(), u"Tahoma, 8 points"_s);
    EXPECT_EQ(Find<QPushButton>(window, "cmdHeaderTextColor").toolTip(), u"#0000ff"_s);
    auto& messagesList = Find<QTreeWidget>(window, "lstHelpMessages");
    EXPECT_EQ(messagesList.topLevelItemCount(), 6);
    EXPECT_EQ(messagesList.topLevelItem(1)->text(1), u"Yes"_s);
    EXPECT_EQ(messagesList.topLevelItem(2)->text(0), u"Opening another data source"_s);
    EXPECT_EQ(messagesList.topLevelItem(2)->text(1), u"No"_s);
}

TEST_F(TheOptionsWindow, StoresWhatWasChangedAndCloses)
{
    QWidget& window = Show();
    Find<QCheckBox>(window, "chkDontShowStartupDialog").setFocus();
    QTest::keyClick(&Find<QWidget>(window, "chkDontShowStartupDialog"), Qt::Key_Space);
    QTest::keyClick(&Find<QWidget>(window, "cmbMaxTablesToDisplay"), Qt::Key_Home);
    QTest::keyClick(&Find<QWidget>(window, "cmbMaxProcsToDisplay"), Qt::Key_Down);
    ShowTab("tabPreview");
    dialogs.ColorChosen = 0x0000FF;
    Click(window, "cmdKeyTextColor");
    dialogs.FontChosen = PreviewFont{.Name = "Serif", .Size = 12, .Bold = true, .Italic = true};
    Click(window, "cmdFont");
    EXPECT_EQ(Find<QLabel>(window, "lblFont").text(), u"Serif, 12 points, bold, italic"_s);
    EXPECT_EQ(Find<QPushButton>(window, "cmdKeyTextColor").toolTip(), u"#ff0000"_s);
    Click(window, "cmdOK");
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(Option("DontShowStartupDialog"), "1");
    EXPECT_EQ(Option("MaxTablesToDisplay"), "-1");
    EXPECT_EQ(Option("MaxProcsToDisplay"), "5000");
    EXPECT_EQ(Option("PreviewPaneKeyTextColor"), "255");
    EXPECT_EQ(Option("PreviewPaneFontItalic"), "True");
    EXPECT_EQ(owner.Told.size(), 5U);
}

TEST_F(TheOptionsWindow, ForgetsWhatWasChangedWhenItIsCancelled)
{
    for (const bool byKey : {false, true}) {
        QWidget& window = Show();
        ShowTab("tabPreview");
        dialogs.ColorChosen = 0x0000FF;
        Click(window, "cmdCodeTextColor");
        if (byKey)
            QTest::keyClick(&window, Qt::Key_Escape);
        else
            Click(window, "cmdCancel");
        EXPECT_FALSE(window.isVisible());
        EXPECT_EQ(dialog->result(), QDialog::Rejected);
        EXPECT_TRUE(settings.GetAllSettings("Options").empty());
        EXPECT_TRUE(owner.Told.empty());
    }
}

TEST_F(TheOptionsWindow, ChoosesAndResetsEachColour)
{
    QWidget& window = Show();
    ShowTab("tabPreview");
    dialogs.ColorChosen = 0x010203;
    for (const char* color :
         {"Background", "CodeText", "HeaderText", "HiddenText", "CommentText", "KeyText", "ErrorText"}) {
        Click(window, "cmd" + std::string(color) + "Color");
        EXPECT_EQ(Find<QPushButton>(window, "cmd" + std::string(color) + "Color").toolTip(), u"#030201"_s) << color;
    }
    for (const char* color : {"Background", "CodeText", "HeaderText", "HiddenText"})
        Click(window, "cmdReset" + std::string(color) + "Color");
    EXPECT_EQ(options->Shown(OptionColor::Background), 0xFEF8F3);
    EXPECT_EQ(options->Shown(OptionColor::Code), 0);
    EXPECT_EQ(options->Shown(OptionColor::Header), 0xFF0000);
    EXPECT_EQ(options->Shown(OptionColor::Hidden), static_cast<Color>(0x80000011U));
    EXPECT_EQ(options->Shown(OptionColor::Error), 0x010203);
}

TEST_F(TheOptionsWindow, OffersAMonospacedFontAndGoesBackToTheFirst)
{
    QWidget& window = Show();
    ShowTab("tabPreview");
    Click(window, "cmdMonospacedFont");
    EXPECT_EQ(options->Font().Name, MonospacedFontName());
    Click(window, "cmdResetFont");
    EXPECT_EQ(options->Font(), PreviewFont{});
    EXPECT_EQ(Find<QLabel>(window, "lblFont").text(), u"Tahoma, 8 points"_s);
}

TEST_F(TheOptionsWindow, ShowsASampleOfThePreview)
{
    QWidget& window = Show();
    ShowTab("tabPreview");
    dialogs.ColorChosen = 0x00FFFF;
    Click(window, "cmdBackgroundColor");
    dialogs.ColorChosen = 0x0000FF;
    Click(window, "cmdCodeTextColor");
    auto& sample = Find<QListWidget>(window, "lstSample");
    EXPECT_EQ(sample.palette().color(QPalette::Base), QColor(Qt::yellow));
    EXPECT_EQ(sample.count(), 6);
    EXPECT_EQ(sample.item(4)->text(), u"    City = mCity"_s);
    EXPECT_EQ(sample.item(4)->foreground().color(), QColor(Qt::red));
}

TEST_F(TheOptionsWindow, SamplesAlertsAsThePreviewPaintsThem)
{
    QWidget& window = Show();
    ShowTab("tabPreview");
    dialogs.ColorChosen = 0xFF0000;
    Click(window, "cmdErrorTextColor");
    EXPECT_EQ(Find<QListWidget>(window, "lstSample").item(5)->foreground().color(), QColor(Qt::red));
}

TEST_F(TheOptionsWindow, NamesEachResetButtonForAScreenReader)
{
    QWidget& window = Show();
    for (const auto& [button, name] : {std::pair{"cmdResetBackgroundColor", u"Reset the background color"_s},
                                       {"cmdResetCodeTextColor", u"Reset the code text color"_s},
                                       {"cmdResetHeaderTextColor", u"Reset the header text color"_s},
                                       {"cmdResetHiddenTextColor", u"Reset the hidden text color"_s}})
        EXPECT_EQ(Find<QPushButton>(window, button).accessibleName(), name);
}

TEST_F(TheOptionsWindow, HasTheHelpMessagesShownAgainAtOnce)
{
    settings.SaveSetting("Help", "warnLoggingTable", "1");
    QWidget& window = Show();
    const auto shown = [&] { return Find<QTreeWidget>(window, "lstHelpMessages").topLevelItem(5)->text(1); };
    EXPECT_EQ(shown(), u"No"_s);
    WithDialogs([&] { Click(window, "cmdResetMessages"); }, {[&](QWidget& message) {
                    EXPECT_EQ(message.windowTitle(), u"Showing all help messages again"_s);
                    EXPECT_EQ(settings.GetKeyValue("Help", "warnLoggingTable"), "0");
                    EXPECT_EQ(shown(), u"Yes"_s);
                    Photograph(message, "frmWarning-all-shown");
                    Click(message, "cmdOK");
                }});
    EXPECT_EQ(shown(), u"Yes"_s);
    Click(window, "cmdCancel");
    EXPECT_EQ(settings.GetKeyValue("Help", "warnLoggingTable"), "0");
}

// The settings file may be write-protected.
TEST(TheOptionsWindowOnALockedStore, StaysOpenWithWhatWasChanged)
{
    class LockedSettings : public MemorySettings
    {
      public:
        void SaveSetting(std::string_view /*section*/, std::string_view /*name*/, std::string_view /*value*/) override
        {
            throw RuntimeError(error_number::kPathAccess, "Settings", "/settings.ini: Permission denied");
        }
    };
    LockedSettings settings;
    ScriptedMessages messages;
    RecordedErrors errors;
    ScriptedLookDialogs dialogs;
    frmWarning warning(settings, errors, ShowWarning);
    RecordedOptionsOwner owner;
    frmOptions options({settings, messages, errors, dialogs, warning}, owner, {});
    OptionsDialog window(options, nullptr);
    window.show();
    Find<QCheckBox>(window, "chkShowSystemTables").setChecked(true);
    Click(window, "cmdOK");
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(Find<QCheckBox>(window, "chkShowSystemTables").isChecked());
    EXPECT_EQ(errors.Reported.size(), 1U);
    EXPECT_TRUE(owner.Told.empty());
}

TEST_F(TheOptionsWindow, IsDrawnInEitherPalette)
{
    QWidget& window = Show();
    for (const char* tab : {"tabGeneral", "tabPreview"}) {
        ShowTab(tab);
        Photograph(window, std::string("frmOptions-") + tab);
    }
}

} // namespace
} // namespace veldrane::testing
