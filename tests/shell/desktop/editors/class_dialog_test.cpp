#include "shell/desktop/editors/class_dialog.h"

#include "editors/class_editor_fixture.h"
#include "shell/desktop/editors/code_sample.h"
#include "shell/desktop/editors/editor_list.h"
#include "shell/desktop/editors/trouble_label.h"
#include "shell/desktop/screenshots.h"
#include "shell/desktop/widgets.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

// The editor of a class as a person has it in front of them; questions are answered by a script.
class TheClassDialog : public ClassEditorTest
{
  protected:
    ClassDialog& Show(std::unique_ptr<frmAddEditClass> form)
    {
        form_ = std::move(form);
        EXPECT_TRUE(form_->Load());
        before_ = Saved();
        window_ = std::make_unique<ClassDialog>(*form_, PreviewLook{}, nullptr);
        window_->show();
        window_->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get()));
        return *window_;
    }
    ClassDialog& ShowNew(const NewClass& request) { return Show(std::make_unique<frmAddEditClass>(World, request)); }
    ClassDialog& ShowCustomer()
    {
        MadeCustomer();
        return Show(std::make_unique<frmAddEditClass>(World, Classes.Item("Customer")));
    }
    ClassDialog& ShowOrder()
    {
        MadeCustomer();
        MadeOrder();
        return Show(std::make_unique<frmAddEditClass>(World, Classes.Item("Order")));
    }

    EditorList& List(const std::string& name) { return Find<EditorList>(*window_, name); }
    QLineEdit& Field(const std::string& name) { return Find<QLineEdit>(*window_, name); }
    QAction& Tool(const std::string& name) { return Find<QAction>(*window_, name); }
    QTabWidget& Tabs() { return Find<QTabWidget>(*window_, "tabMain"); }
    QString Title() { return window_->windowTitle(); }
    QString Text(const std::string& label) { return Find<QLabel>(*window_, label).text(); }

    void Turn(ClassTab tab) { Tabs().setCurrentIndex(static_cast<int>(tab)); }

    std::vector<std::string> Rows(const std::string& list)
    {
        std::vector<std::string> rows;
        for (int row = 0; row < List(list).topLevelItemCount(); ++row)
            if (!List(list).topLevelItem(row)->isHidden())
                rows.push_back(List(list).topLevelItem(row)->text(0).toStdString());
        return rows;
    }

    void ClickRow(const std::string& list, const QString& text, Qt::KeyboardModifiers keys = Qt::NoModifier)
    {
        const auto found = List(list).findItems(text, Qt::MatchExactly);
        ASSERT_FALSE(found.isEmpty()) << text.toStdString();
        List(list).scrollToItem(found.front());
        QTest::mouseClick(List(list).viewport(), Qt::LeftButton, keys,
                          List(list).visualItemRect(found.front()).center());
    }

    std::string Sample()
    {
        std::string text;
        const QAbstractItemModel& model = *Find<CodeSample>(*window_, "lstSample").model();
        for (int row = 0; row < model.rowCount(); ++row)
            text += model.index(row, 0).data().toString().toStdString() + "\n";
        return text;
    }
    bool SampleComesToHave(const std::string& words)
    {
        return QTest::qWaitFor([&] { return Sample().find(words) != std::string::npos; });
    }

    std::unique_ptr<frmAddEditClass> form_;
    std::unique_ptr<ClassDialog> window_;
    std::string before_; // what a file would have held when the dialog was opened
};

TEST_F(TheClassDialog, LooksWellOnEveryTab)
{
    ClassDialog& window = ShowOrder();
    const std::array<const char*, 6> names{"class", "collections", "properties", "methods", "events", "relationship"};
    for (std::size_t tab = 0; tab < names.size(); ++tab) {
        Turn(static_cast<ClassTab>(tab));
        Photograph(window, std::string("frmAddEditClass-") + names[tab]);
    }
}

} // namespace
} // namespace veldrane::testing
