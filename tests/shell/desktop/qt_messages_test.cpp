#include "shell/desktop/qt_messages.h"

#include "screenshots.h"
#include "widgets.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;

Answer AnswerAfter(const Question& question, const Act& act)
{
    Answer answer = Answer::Ok;
    WithDialogs([&] { answer = QtMessages().Ask(question); }, {act});
    return answer;
}

TEST(QtMessages, AreCaptionedWithTheProgramWhereTheyHaveNoTitle)
{
    WithDialogs([] { QtMessages().Tell("", "Nothing was found."); }, {[](QWidget& dialog) {
                    EXPECT_EQ(dialog.windowTitle(), u"Veldrane Professional Edition +Forms"_s);
                    QTest::keyClick(&dialog, Qt::Key_Return);
                }});
}

TEST(QtMessages, ShowTheQuestionWordByWord)
{
    const Question question{
        .Title = "Confirm Delete",
        .Text = "Are you sure you want to delete <b>Österreich</b> & \"Co\"?\r\nThis action cannot be undone.",
        .Offered = Buttons::OkCancel,
        .Icon = MessageIcon::Warning,
        .Default = Answer::Cancel};
    const Answer answer = AnswerAfter(question, [](QWidget& dialog) {
        auto& box = dynamic_cast<QMessageBox&>(dialog);
        EXPECT_EQ(box.objectName(), u"msgBox"_s);
        EXPECT_EQ(box.windowTitle(), u"Confirm Delete"_s);
        EXPECT_EQ(box.text(),
                  u"Are you sure you want to delete <b>Österreich</b> & \"Co\"?\nThis action cannot be undone."_s);
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        EXPECT_EQ(box.buttons().size(), 2);
        EXPECT_TRUE(Find<QPushButton>(box, "cmdCancel").isDefault());
        Photograph(box, "msgBox");
        Click(box, "cmdOK");
    });
    EXPECT_EQ(answer, Answer::Ok);
}

TEST(QtMessages, KeepTheirButtonsOnTheScreenHoweverLongTheTextIs)
{
    Question question{.Title = "Confirm Delete", .Text = "Delete these?", .Offered = Buttons::OkCancel};
    for (int line = 1; line <= 100; ++line)
        question.Text += "\r\n<Customer> & \"Co\" " + std::to_string(line);
    const Answer answer = AnswerAfter(question, [&](QWidget& box) {
        const QRect screen = box.screen()->availableGeometry();
        EXPECT_LE(box.height(), screen.height());
        EXPECT_TRUE(box.rect().contains(Find<QPushButton>(box, "cmdOK").geometry()));
        EXPECT_TRUE(box.rect().contains(Find<QPushButton>(box, "cmdCancel").geometry()));
        const auto& words = Find<QLabel>(box, "lblText");
        EXPECT_EQ(words.text(), dynamic_cast<QMessageBox&>(box).text());
        EXPECT_TRUE(words.text().endsWith(u"<Customer> & \"Co\" 100"_s));
        EXPECT_EQ(words.textFormat(), Qt::PlainText);
        auto& bar = *Find<QScrollArea>(box, "scrText").verticalScrollBar();
        bar.setValue(bar.maximum());
        EXPECT_LE(words.mapTo(words.parentWidget(), words.rect().bottomLeft()).y(), words.parentWidget()->height());
        Photograph(box, "msgBox-long");
        Click(box, "cmdOK");
    });
    EXPECT_EQ(answer, Answer::Ok);
}

TEST(QtMessages, BreakALineThatIsTooLongForTheScreen)
{
    Question question{.Title = "T"};
    for (int word = 1; word <= 5000; ++word)
        question.Text += "word" + std::to_string(word) + " ";
    AnswerAfter(question, [](QWidget& box) {
        const QSize screen = box.screen()->availableGeometry().size();
        EXPECT_LE(box.height(), screen.height());
        EXPECT_LE(box.width(), screen.width());
        EXPECT_EQ(Find<QScrollArea>(box, "scrText").horizontalScrollBar()->maximum(), 0);
        Click(box, "cmdOK");
    });
}

TEST(QtMessages, KeepSeveralLinesWholeAndBreakVeryLongOnes)
{
    const auto linesOf = [](const std::string& text) {
        int lines = 0;
        AnswerAfter({.Title = "T", .Text = text}, [&](QWidget& box) {
            const auto& label = Find<QLabel>(box, "qt_msgbox_label");
            lines = label.height() / label.fontMetrics().lineSpacing();
            Click(box, "cmdOK");
        });
        return lines;
    };
    const std::string choice = "Click 'No' to open the existing file (THE RECOVERABLE FILE WILL BE LOST)";
    EXPECT_EQ(linesOf(choice + "\r\n" + choice + "\r\n" + choice), 3);
    EXPECT_GT(linesOf("A\r\n" + choice + choice + choice), 3);
    EXPECT_GT(linesOf(choice + choice), 1);
}

struct Row
{
    Buttons Offered;
    std::vector<std::pair<std::string, Answer>> Clicked;
    Answer Escaped;
};

TEST(QtMessages, AnswerByTheButtonClickedAndEscapeLosesNothing)
{
    const std::vector<Row> rows{
        {Buttons::Ok, {{"cmdOK", Answer::Ok}}, Answer::Ok},
        {Buttons::OkCancel, {{"cmdOK", Answer::Ok}, {"cmdCancel", Answer::Cancel}}, Answer::Cancel},
        {Buttons::YesNo, {{"cmdYes", Answer::Yes}, {"cmdNo", Answer::No}}, Answer::No},
        {Buttons::YesNoCancel,
         {{"cmdYes", Answer::Yes}, {"cmdNo", Answer::No}, {"cmdCancel", Answer::Cancel}},
         Answer::Cancel},
    };
    for (const Row& row : rows) {
        const Question question{.Title = "Save Changes?", .Text = "?", .Offered = row.Offered};
        for (const auto& [button, answer] : row.Clicked) {
            const std::string& name = button;
            EXPECT_EQ(AnswerAfter(question, [&](QWidget& box) { Click(box, name); }), answer) << name;
        }
        EXPECT_EQ(AnswerAfter(question, [](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); }), row.Escaped);
        EXPECT_EQ(AnswerAfter(question, [](QWidget& box) { box.close(); }), row.Escaped);
    }
}

TEST(QtMessages, EnterTakesTheDefault)
{
    const Question question{.Title = "T", .Text = "?", .Offered = Buttons::YesNo, .Default = Answer::Yes};
    EXPECT_EQ(AnswerAfter(question, [](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); }), Answer::Yes);
}

TEST(QtMessages, StandInFrontOfWindowsThatStayOnTopWithAnArrow)
{
    QWidget splash(nullptr, Qt::WindowStaysOnTopHint);
    splash.show();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    AnswerAfter({.Title = "T", .Text = "?"}, [&](QWidget& box) {
        EXPECT_FALSE(splash.isVisible());
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
        Click(box, "cmdOK");
    });
    EXPECT_TRUE(splash.isVisible());
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    QApplication::restoreOverrideCursor();
}

} // namespace
} // namespace veldrane::testing
