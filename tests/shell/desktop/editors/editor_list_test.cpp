#include "shell/desktop/editors/editor_list.h"

#include "shell/desktop/editors/shown_dialog.h"

#include <QDialogButtonBox>
#include <QVBoxLayout>

#include <gmock/gmock.h>

namespace veldrane::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A dialog with a filter above a list, and a default button.
class TheEditorList : public ::testing::Test
{
  protected:
    TheEditorList()
    {
        list_.setObjectName(QStringLiteral("lstRows"));
        list_.FilterBy(filter_);
        layout_.addWidget(&filter_);
        layout_.addWidget(&list_);
        layout_.addWidget(&buttons_);
        QObject::connect(&buttons_, &QDialogButtonBox::accepted, &dialog_, &QDialog::accept);
        buttons_.button(QDialogButtonBox::Ok)->setDefault(true);
        list_.Show(rows_);
        BringToFront(dialog_);
    }

    // Writes down which rows are opened.
    void Listen()
    {
        QObject::connect(&list_, &EditorList::RowOpened, &list_, [this](std::size_t row) { opened_.push_back(row); });
    }

    [[nodiscard]] std::vector<std::string> Seen() { return Rows(dialog_, "lstRows"); }

    const std::vector<EditorRow> rows_{{.Columns = {"Add"}}, {.Columns = {"Clear"}}, {.Columns = {"Clone"}}};
    std::vector<std::size_t> opened_;
    QDialog dialog_;
    QVBoxLayout layout_{&dialog_};
    QLineEdit filter_;
    EditorList list_;
    QDialogButtonBox buttons_{QDialogButtonBox::Ok};
};

TEST_F(TheEditorList, TheKeyboardSelectsTheCurrentRowWhenItGoesThere)
{
    filter_.setFocus();
    list_.clearSelection();
    Press(Qt::Key_Tab);
    EXPECT_THAT(list_.SelectedRows(), ElementsAre(0U));
    list_.SelectRow(2);
    filter_.setFocus();
    Press(Qt::Key_Tab);
    EXPECT_THAT(list_.SelectedRows(), ElementsAre(2U));
    filter_.setFocus();
    list_.clearSelection();
    list_.setFocus(Qt::ActiveWindowFocusReason);
    EXPECT_THAT(list_.SelectedRows(), IsEmpty());
}

TEST_F(TheEditorList, ReturnInTheFilterGoesToTheRows)
{
    Listen();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Down}) {
        filter_.setFocus();
        filter_.setText(QStringLiteral("cl"));
        Press(key);
        EXPECT_EQ(QApplication::focusWidget(), &list_) << key;
        EXPECT_THAT(list_.SelectedRows(), ElementsAre(1U));
    }
    EXPECT_THAT(opened_, IsEmpty());
    EXPECT_TRUE(dialog_.isVisible());
}

TEST_F(TheEditorList, ReturnInTheFilterStaysWhereNoRowHasTheText)
{
    filter_.setFocus();
    QTest::keyClicks(&filter_, QStringLiteral("xyz"));
    QTest::keyClick(&filter_, Qt::Key_Return);
    EXPECT_TRUE(filter_.hasFocus());
    filter_.clear();
    QTest::keyClick(&filter_, Qt::Key_Return);
    EXPECT_TRUE(list_.hasFocus());
    EXPECT_EQ(list_.SelectedRows(), std::vector<std::size_t>{0});
}

TEST_F(TheEditorList, TheKeyboardSelectsNothingWhereThatIsAPersonsChoice)
{
    list_.KeepSelectionAChoice();
    filter_.setFocus();
    list_.setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(list_.SelectedRows().empty());
    filter_.setFocus();
    list_.setFocus(Qt::ShortcutFocusReason);
    EXPECT_EQ(list_.SelectedRows(), std::vector<std::size_t>{0});
}

TEST_F(TheEditorList, ReturnOpensTheCurrentRowWhetherItIsSelectedOrNot)
{
    Listen();
    list_.setFocus();
    list_.SelectRow(1);
    Press(Qt::Key_Return);
    list_.Show({rows_.front(), rows_.back()}); // as after a deletion
    Press(Qt::Key_Enter);
    EXPECT_THAT(opened_, ElementsAre(1U, 1U));
    EXPECT_TRUE(dialog_.isVisible());
}

TEST_F(TheEditorList, ReturnIsThatOfTheDialogWhereNoRowOpens)
{
    list_.setFocus();
    list_.SelectRow(1);
    Press(Qt::Key_Return);
    EXPECT_EQ(dialog_.result(), QDialog::Accepted);
}

TEST_F(TheEditorList, ReturnIsThatOfTheDialogWhereNoRowIs)
{
    Listen();
    list_.Show({});
    list_.setFocus();
    Press(Qt::Key_Return);
    EXPECT_EQ(dialog_.result(), QDialog::Accepted);
}

TEST_F(TheEditorList, AFilterThatHidesWhatComesSelectedIsEmptied)
{
    filter_.setText(QStringLiteral("clo"));
    EXPECT_THAT(Seen(), ElementsAre("Clone"));
    list_.Show(rows_, {2});
    EXPECT_THAT(Seen(), ElementsAre("Clone"));
    std::vector<EditorRow> more = rows_;
    more.push_back({.Columns = {"Mine"}});
    list_.Show(more, {3});
    EXPECT_THAT(Seen(), ElementsAre("Add", "Clear", "Clone", "Mine"));
    EXPECT_THAT(list_.SelectedRows(), ElementsAre(3U));
    EXPECT_TRUE(filter_.text().isEmpty());
}

} // namespace
} // namespace veldrane::testing
