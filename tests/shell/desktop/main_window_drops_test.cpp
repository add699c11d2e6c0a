#include "main_window_fixture.h"

#include <QDialog>
#include <QDir>
#include <QDropEvent>
#include <QLineEdit>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolBar>
#include <QUrl>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Files from a file manager, let go of over the window.
class MainWindowDrops : public MainWindowTest
{
  protected:
    static std::unique_ptr<QMimeData> Files(const QStringList& paths)
    {
        auto data = std::make_unique<QMimeData>();
        QList<QUrl> urls;
        for (const QString& path : paths)
            urls.push_back(QUrl::fromLocalFile(path));
        data->setUrls(urls);
        return data;
    }

    // Where a person may let go.
    std::vector<QWidget*> Places()
    {
        return {Tree().viewport(), Tables().viewport(), Preview().viewport(), &Find<QToolBar>(*window_, "actBar"),
                &Find<QStatusBar>(*window_, "Status")};
    }

    bool LetGoOfFile(const QString& path) { return LetGo(*window_, *Files({path}), {300, 5}); }

    // "/Shop.kzm", with the class Customer.
    void SaveShop()
    {
        StartInShop();
        ASSERT_TRUE(AddTable(u"Customers"_s, kParents));
        world_.Dialogs.Add("/Shop.kzm");
        Tool("SaveAs").trigger();
        world_.Messages.Forget();
    }

    // What the connection dialog proposes when the file is let go of.
    QString Offered(const QString& path, const char* page)
    {
        QString offered;
        WithDialogs([&] { EXPECT_TRUE(LetGoOfFile(path)); }, {[&](QWidget& dialog) {
                        EXPECT_EQ(Find<QTabWidget>(dialog, "tabMain").currentWidget()->objectName(),
                                  QLatin1String(page));
                        offered = Find<QLineEdit>(Find<QWidget>(dialog, page), "txtDatabase").text();
                        Click(dialog, "cmdCancel");
                    }});
        return offered;
    }
};

TEST_F(MainWindowDrops, AProjectIsOpenedWhereverItIsLetGoOf)
{
    SaveShop();
    for (std::size_t place = 0; place < 5; ++place) {
        Start();
        EXPECT_FALSE(HasNode(u"Customer"_s));
        QWidget& over = *Places().at(place);
        EXPECT_TRUE(LetGo(over, *Files({u"/Shop.kzm"_s}), over.rect().center())) << place;
        EXPECT_TRUE(HasNode(u"Customer"_s)) << place;
    }
}

TEST_F(MainWindowDrops, AProjectIsKnownByItsEndingInAnyCase)
{
    SaveShop();
    world_.Files.Files["/SHOP.KZM"] = world_.Files.Files.at("/Shop.kzm");
    Start();
    EXPECT_TRUE(LetGoOfFile(u"/SHOP.KZM"_s));
    EXPECT_TRUE(HasNode(u"Customer"_s));
    EXPECT_EQ(rules_->Project().FullPath, "/SHOP.KZM");
}

TEST_F(MainWindowDrops, ADatabaseIsOfferedAsDataSource)
{
    world_.Installed.Libraries["SQLite3"] = "libsqlite3odbc.so";
    Start();
    EXPECT_EQ(Offered(u"/data/Shop.db"_s, "page0"), u"/data/Shop.db"_s);
    EXPECT_EQ(Offered(u"/data/Books.mdb"_s, "page1"), u"/data/Books.mdb"_s);
    EXPECT_EQ(Offered(u"/data/BOOKS.MDB"_s, "page1"), u"/data/BOOKS.MDB"_s);
    EXPECT_EQ(rules_->Project().ConnectionString(), "");
}

TEST_F(MainWindowDrops, ADatabaseOnAProjectThatHasOneIsOfferedAfterAYes)
{
    SaveShop();
    EXPECT_TRUE(LetGoOfFile(u"/data/Shop.db"_s)); // the question says No unless told otherwise
    EXPECT_THAT(Titles(), ElementsAre("Edit DataSource Message"));
    world_.Messages.Add(Answer::Yes);
    EXPECT_EQ(Offered(u"/data/Shop.db"_s, "page0"), u"/data/Shop.db"_s);
    EXPECT_EQ(rules_->Project().ConnectionString(), kShop);
}

TEST_F(MainWindowDrops, WhatIsNoSingleFileIsRefused)
{
    SaveShop();
    QMimeData text;
    text.setText(u"/Shop.kzm"_s);
    QMimeData page;
    page.setUrls({QUrl(u"http://shop.example/Shop.kzm"_s)});
    for (QWidget* over : Places()) {
        const QPoint where = over->rect().center();
        EXPECT_FALSE(LetGo(*over, *Files({u"/Shop.kzm"_s, u"/Shop.db"_s}), where));
        EXPECT_FALSE(LetGo(*over, *Files({QDir::tempPath()}), where));
        EXPECT_FALSE(LetGo(*over, text, where));
        EXPECT_FALSE(LetGo(*over, page, where));
    }
    EXPECT_THAT(Titles(), IsEmpty());
    EXPECT_TRUE(HasNode(u"Customer"_s));
}

TEST_F(MainWindowDrops, NothingIsTakenWhileADialogIsOpen)
{
    SaveShop();
    Start();
    WithDialogs([&] { Tool("About").trigger(); }, {[&](QWidget& dialog) {
                    EXPECT_FALSE(LetGoOfFile(u"/Shop.kzm"_s));
                    EXPECT_FALSE(LetGoOfFile(u"/data/Shop.db"_s));
                    dynamic_cast<QDialog&>(dialog).reject();
                }});
    EXPECT_FALSE(HasNode(u"Customer"_s));
}

TEST_F(MainWindowDrops, ADialogThatOpensBeforeTheFileIsTakenKeepsTheProject)
{
    SaveShop();
    Start();
    const auto file = Files({u"/Shop.kzm"_s});
    QDropEvent drop({300, 5}, Qt::CopyAction, file.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window_.get(), &drop);
    WithDialogs([&] { Tool("About").trigger(); }, {[&](QWidget& dialog) {
                    QApplication::processEvents();
                    dynamic_cast<QDialog&>(dialog).reject();
                }});
    EXPECT_FALSE(HasNode(u"Customer"_s));
}

TEST_F(MainWindowDrops, NothingIsTakenUnderTheHourglass)
{
    SaveShop();
    Start();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    EXPECT_FALSE(LetGoOfFile(u"/Shop.kzm"_s));
    QApplication::restoreOverrideCursor();
    EXPECT_FALSE(HasNode(u"Customer"_s));
}

TEST_F(MainWindowDrops, ANameThatIsBeingTypedIsAskedAboutBeforeAnotherProjectIsOpened)
{
    SaveShop();
    Start();
    TypeName(u"Books"_s);
    world_.Messages.Add(Answer::Cancel);
    EXPECT_TRUE(LetGoOfFile(u"/Shop.kzm"_s));
    EXPECT_THAT(Titles(), ElementsAre("Save Changes?"));
    EXPECT_EQ(rules_->Project().ProjectName(), "Books");
}

TEST_F(MainWindowDrops, ADamagedProjectLeavesTheOneThatIsOpen)
{
    SaveShop();
    world_.Files.Files["/letter.kzm"] = "Dear customer\r\n";
    EXPECT_TRUE(LetGoOfFile(u"/letter.kzm"_s));
    ASSERT_THAT(Titles(), ElementsAre("Invalid File"));
    EXPECT_EQ(world_.Messages.Asked().front().Text,
              "This file is not a Veldrane Professional 2000 Data File. Unable to open file.");
    world_.Files.Files["/broken.kzm"] = "Veldrane Professional 2000 Data File\r\nBegin Project\r\n"
                                        "MTSEnabled\2perhaps\r\nEnd Project\r\n";
    EXPECT_TRUE(LetGoOfFile(u"/broken.kzm"_s));
    EXPECT_EQ(world_.Errors.Reported.size(), 1U);
    EXPECT_TRUE(HasNode(u"Customer"_s));
    EXPECT_EQ(rules_->Project().FullPath, "/Shop.kzm");
    EXPECT_THAT(TableRows(), ElementsAre("<Add a Table>", "Customers", "Orders", "Countries"));
}

} // namespace
} // namespace veldrane::testing
