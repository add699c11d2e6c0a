#include "shell/desktop/qt_error_report.h"

#include "shell/desktop/guarded_application.h"
#include "widgets.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;

const RuntimeError kError(53, "Veldrane", "/p/Shop.kzm: No such file or directory");

QString Summary(QWidget& dialog)
{
    return Find<QLabel>(dialog, "lblError").text();
}

QString Report(QWidget& dialog)
{
    return Find<QPlainTextEdit>(dialog, "txtError").toPlainText();
}

TEST(QtErrorReport, ShowsTheWordsTheHintAndTheReport)
{
    QtErrorReport report([](const RuntimeError&) { return std::vector<ADOError>{{.Number = 7, .SQLState = "08001"}}; });
    WithDialogs(
        [&] {
            report.ReportError(
                kError,
                {.ModuleName = "TTCFileManagement", .RoutineName = "OpenProject", .Hint = "Choose another file."});
        },
        {[](QWidget& dialog) {
            EXPECT_EQ(dialog.objectName(), u"frmError"_s);
            EXPECT_EQ(Summary(dialog), u"/p/Shop.kzm: No such file or directory. Choose another file."_s);
            EXPECT_EQ(Report(dialog),
                      u"Last Error Number: 53.\nError Description: /p/Shop.kzm: No such file or directory\n"
                      "Error Source: Veldrane\nLast DLL Error: 0\nError Help File: \nError Help Context: 0\n"
                      "Class Name: TTCFileManagement\nRoutine: OpenProject\n\n\n\nADO Errors Follow:\n"
                      "-------------------------------------------\nADO Error #:7\nADO Description: \n"
                      "ADO Native Error #:0\nADO Source: \nADO SQL State: 08001\n"_s);
            Click(dialog, "cmdCopy");
            EXPECT_EQ(QGuiApplication::clipboard()->text(), Summary(dialog) + u"\n\n"_s + Report(dialog));
            Click(dialog, "cmdOK");
        }});
}

TEST(QtErrorReport, BecomesABugReportIfThePersonWants)
{
    QtErrorReport report;
    WithDialogs([&] { report.ReportError(kError, {.ModuleName = "frmMain", .RoutineName = "DisplayClasses"}); },
                {[](QWidget& dialog) {
                     Click(dialog, "cmdReport");
                     Click(dialog, "cmdOK");
                 },
                 [](QWidget& dialog) {
                     EXPECT_EQ(dialog.objectName(), u"frmBug"_s);
                     const QString known = Find<QPlainTextEdit>(dialog, "txtDescription").toPlainText();
                     EXPECT_TRUE(known.startsWith(u"/p/Shop.kzm: No such file or directory"_s));
                     EXPECT_TRUE(known.contains(u"Class Name: frmMain"_s));
                     Click(dialog, "cmdCancel");
                 }});
}

TEST(QtErrorReport, ShowsAHintAlone)
{
    QtErrorReport report;
    WithDialogs([&] { report.ReportError(kError, {.Mode = 4, .Hint = "Set the output folder."}); },
                {[](QWidget& dialog) {
                    EXPECT_EQ(Summary(dialog), u"Set the output folder."_s);
                    EXPECT_FALSE(Find<QPlainTextEdit>(dialog, "txtError").isVisible());
                    QTest::keyClick(&dialog, Qt::Key_Escape);
                }});
}

TEST(QtErrorReport, AddsAFailureOfTheMeantimeToTheOneThatIsShown)
{
    QtErrorReport report;
    WithDialogs([&] { report.ReportError(kError, {.ModuleName = "frmMain", .RoutineName = "DisplayClasses"}); },
                {[&](QWidget& dialog) {
                    report.ReportError(RuntimeError(5, "Veldrane", "Invalid call"), {});
                    EXPECT_EQ(Summary(dialog), u"/p/Shop.kzm: No such file or directory\n\nInvalid call"_s);
                    EXPECT_TRUE(Report(dialog).contains(u"Last Error Number: 5."_s));
                    Click(dialog, "cmdOK");
                }});
    WithDialogs([&] { report.ReportError(kError, {}); }, {[](QWidget& dialog) {
                    EXPECT_EQ(Summary(dialog), u"/p/Shop.kzm: No such file or directory"_s);
                    Click(dialog, "cmdOK");
                }});
}

TEST(GuardedApplication, ReportsAFailureOfAHandlerAndGoesOn)
{
    struct Failing : QWidget
    {
        bool event(QEvent* event) override
        {
            if (event->type() == QEvent::User)
                throw RuntimeError(5, "Veldrane", "Invalid call");
            return QWidget::event(event);
        }
    };
    Failing receiver;
    QtErrorReport report;
    auto& application = dynamic_cast<GuardedApplication&>(*QCoreApplication::instance());
    application.ReportTo(&report);
    WithDialogs(
        [&] {
            QEvent event(QEvent::User);
            QCoreApplication::sendEvent(&receiver, &event);
        },
        {[](QWidget& dialog) {
            EXPECT_EQ(Summary(dialog), u"Invalid call"_s);
            Click(dialog, "cmdOK");
        }});
    application.ReportTo(nullptr);
}

} // namespace
} // namespace veldrane::testing
