#include "shell/desktop/bug_dialog.h"

#include "generator/generation_settings.h"
#include "screenshots.h"
#include "widgets.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QTest>

#include <gmock/gmock.h>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::HasSubstr;

TEST(TheBugWindow, MakesAReportThatIsCopiedWhole)
{
    QString report;
    WithDialogs(
        [] { ReportBug(nullptr, "It broke."); },
        {[](QWidget& dialog) {
             EXPECT_EQ(dialog.objectName(), u"frmBug"_s);
             EXPECT_EQ(Find<QPlainTextEdit>(dialog, "txtDescription").toPlainText(), u"It broke."_s);
             auto& category = Find<QComboBox>(dialog, "cmbCategory");
             EXPECT_EQ(category.itemText(1), u"    in Class Module"_s);
             category.setCurrentIndex(1);
             QTest::keyClicks(&Find<QPlainTextEdit>(dialog, "txtSteps"), u"Click"_s);
             Photograph(dialog, "frmBug");
             Click(dialog, "cmdGenerate");
             Click(dialog, "cmdCancel");
         },
         [&](QWidget& dialog) {
             EXPECT_EQ(dialog.objectName(), u"frmBugReport"_s);
             report = Find<QPlainTextEdit>(dialog, "txtReport").toPlainText();
             Photograph(dialog, "frmBugReport");
             Click(dialog, "cmdCopy");
             EXPECT_EQ(Find<QPlainTextEdit>(dialog, "txtReport").textCursor().selectedText().size(), report.size());
             Click(dialog, "cmdClose");
         },
         [](QWidget& dialog) {
             EXPECT_EQ(dialog.windowTitle(), u"Report Copied"_s);
             EXPECT_TRUE(
                 qobject_cast<QMessageBox*>(&dialog)->text().startsWith(u"Report has been copied to the clipboard."_s));
             QTest::keyClick(&dialog, Qt::Key_Return);
         }});
    EXPECT_EQ(QGuiApplication::clipboard()->text(), report);
    EXPECT_THAT(report.toStdString(), ::testing::StartsWith(std::string(kAppTitle) + " Bug Report\n"));
    EXPECT_THAT(report.toStdString(), HasSubstr("Invalid code was generated in Class Module"));
    EXPECT_THAT(report.toStdString(), HasSubstr("Version "));
    EXPECT_THAT(report.toStdString(), HasSubstr("It broke."));
    EXPECT_THAT(report.toStdString(), HasSubstr("Click"));
}

} // namespace
} // namespace veldrane::testing
