#include "screenshots.h"
#include "shell/desktop/about_dialog.h"
#include "shell/desktop/error_dialog.h"
#include "shell/desktop/loading_window.h"
#include "shell/desktop/name_dialog.h"
#include "shell/desktop/product_text.h"
#include "shell/desktop/reading_window.h"
#include "shell/desktop/splash_form.h"
#include "shell/desktop/zoom_dialog.h"
#include "support/manual_clock.h"
#include "widgets.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;

TEST(FrmAddTable, AsksForAName)
{
    const auto ask = [] { return AskForTableName(nullptr, ""); };
    std::optional<std::string> name;
    WithDialogs([&] { name = ask(); }, {[](QWidget& dialog) {
                    EXPECT_EQ(dialog.objectName(), u"frmAddTable"_s);
                    Type(dialog, "txtName", "Straßen");
                    Photograph(dialog, "frmAddTable");
                    Click(dialog, "cmdOK");
                }});
    EXPECT_EQ(name, "Straßen");
}

TEST(FrmAddTable, CancelGivesNone)
{
    const auto ask = [] { return AskForTableName(nullptr, ""); };
    std::optional<std::string> name;
    for (const auto& leave : std::vector<Act>{[](QWidget& dialog) { Click(dialog, "cmdCancel"); },
                                              [](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }}) {
        WithDialogs([&] { name = ask(); }, {leave});
        EXPECT_EQ(name, std::nullopt);
    }
}

TEST(FrmAddSP, ShowsTheNameOfBeforeReadyToBeTypedOver)
{
    std::optional<std::string> name;
    const auto ask = [&] { name = AskForStoredProcedureName(nullptr, name.value_or("")); };
    WithDialogs([&] { ask(); }, {[](QWidget& dialog) {
                    EXPECT_EQ(dialog.objectName(), u"frmAddSP"_s);
                    QTest::keyClicks(&Find<QLineEdit>(dialog, "txtName"), u"GetOrdrs"_s);
                    QTest::keyClick(&dialog, Qt::Key_Return);
                }});
    EXPECT_EQ(name, "GetOrdrs");
    WithDialogs([&] { ask(); }, {[](QWidget& dialog) {
                    EXPECT_EQ(Find<QLineEdit>(dialog, "txtName").text(), u"GetOrdrs"_s);
                    Photograph(dialog, "frmAddSP");
                    QTest::keyClicks(&Find<QLineEdit>(dialog, "txtName"), u"GetOrders"_s);
                    Click(dialog, "cmdOK");
                }});
    EXPECT_EQ(name, "GetOrders");
}

TEST(FrmAbout, TellsTitleVersionAndSupport)
{
    AboutDialog dialog(nullptr);
    EXPECT_EQ(Find<QLabel>(dialog, "lblTitle").text(), u"Veldrane Professional Edition +Forms"_s);
    EXPECT_EQ(Find<QLabel>(dialog, "lblVersion").text(), VersionLine());
    EXPECT_EQ(Find<QLabel>(dialog, "lblSupport").text(), u"Support: support@quillmere.example"_s);
    Photograph(dialog, "frmAbout");
    Click(dialog, "cmdOK");
    EXPECT_FALSE(dialog.isVisible());
}

TEST(FrmSplash, StaysOnTopUntilItsTimeIsOver)
{
    const QPointer<SplashForm> splash = new SplashForm();
    splash->ShowFor(std::chrono::milliseconds(30));
    EXPECT_TRUE(splash->isVisible());
    EXPECT_TRUE(splash->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    Photograph(*splash, "frmSplash");
    EXPECT_TRUE(QTest::qWaitFor([&] { return splash.isNull(); }));
}

TEST(FrmSplash, GoesAtAClick)
{
    const QPointer<SplashForm> splash = new SplashForm();
    splash->ShowFor(std::chrono::hours(1));
    QTest::mouseClick(splash.data(), Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([&] { return splash.isNull(); }));
}

TEST(FrmLoading, ShowsHowFarTheWorkIs)
{
    LoadingWindow form(Cancelling::NotOffered, nullptr);
    form.show();
    EXPECT_TRUE(form.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    form.SetStatus("Opening Datasource Connection...Please wait");
    EXPECT_EQ(Find<QLabel>(form, "lblStatus").text(), u"Opening Datasource Connection...Please wait"_s);
    form.Watching().Stage(40, "Opening Project...");
    EXPECT_EQ(Find<QLabel>(form, "lblStatus").text(), u"Opening Project..."_s);
    EXPECT_EQ(Find<QProgressBar>(form, "Progress").value(), 40);
    EXPECT_FALSE(Find<QPushButton>(form, "cmdCancel").isVisible());
    QTest::keyClick(&form, Qt::Key_Escape);
    form.close();
    EXPECT_TRUE(form.isVisible());
    EXPECT_FALSE(form.IsCancelled());
    Photograph(form, "frmLoading");
}

TEST(FrmLoading, ComesAndGoesAndIsPutBackAsItWas)
{
    LoadingWindow form(Cancelling::NotOffered, nullptr);
    {
        const LoadingFormWhile shown(form, Visibility::Shown);
        EXPECT_TRUE(form.isVisible());
        {
            const LoadingFormWhile hidden(form, Visibility::Hidden);
            EXPECT_FALSE(form.isVisible());
        }
        EXPECT_TRUE(form.isVisible());
    }
    EXPECT_FALSE(form.isVisible());
}

TEST(FrmLoading, CanBeCancelledWhileTheWorkGoesOn)
{
    LoadingWindow form(Cancelling::Offered, nullptr);
    form.show();
    QTimer::singleShot(0, &form, [&] { Click(form, "cmdCancel"); });
    form.Watching().Stage(40, "Reading tables");
    EXPECT_TRUE(form.IsCancelled());
    EXPECT_FALSE(Find<QPushButton>(form, "cmdCancel").isEnabled());
    form.Begin(Cancelling::Offered);
    EXPECT_FALSE(form.IsCancelled());
    EXPECT_TRUE(Find<QPushButton>(form, "cmdCancel").isEnabled());
    EXPECT_EQ(Find<QPushButton>(form, "cmdCancel").text(), u"Cancel"_s);
}

TEST(FrmLoading, IsCancelledByEscapeAndByClosing)
{
    for (const auto& leave : std::vector<Act>{[](QWidget& form) { QTest::keyClick(&form, Qt::Key_Escape); },
                                              [](QWidget& form) { form.close(); }}) {
        LoadingWindow form(Cancelling::Offered, nullptr);
        form.show();
        form.Watching().Stage(35, "Reading the tables of the data source");
        Photograph(form, "frmLoading-cancel");
        leave(form);
        EXPECT_TRUE(form.IsCancelled());
        EXPECT_TRUE(form.isVisible());
    }
}

class ReadingWindowTest : public ::testing::Test
{
  protected:
    static LoadingWindow* Shown()
    {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            auto* form = qobject_cast<LoadingWindow*>(window);
            if (form != nullptr && form->isVisible())
                return form;
        }
        return nullptr;
    }

    void ReadAfter(std::chrono::milliseconds duration, std::size_t rows)
    {
        clock_.Wait(duration);
        reading_.Read(rows);
    }

    ManualClock clock_;
    CatalogReading reading_{clock_};
    ReadingWindow window_{reading_, nullptr};
};

TEST_F(ReadingWindowTest, ComesWithAReadingThatLastsAndGoesWithIt)
{
    {
        const CatalogReading::Session session(reading_);
        ReadAfter(std::chrono::milliseconds(100), 10);
        EXPECT_EQ(Shown(), nullptr);
        ReadAfter(std::chrono::seconds(1), 1200);
        ASSERT_NE(Shown(), nullptr);
        EXPECT_EQ(Find<QLabel>(*Shown(), "lblStatus").text(), u"Reading the data source... 1200 rows"_s);
        ReadAfter(std::chrono::seconds(1), 1300);
        EXPECT_EQ(Find<QLabel>(*Shown(), "lblStatus").text(), u"Reading the data source... 1300 rows"_s);
        Photograph(*Shown(), "frmLoading-reading");
    }
    EXPECT_EQ(Shown(), nullptr);
}

TEST_F(ReadingWindowTest, EndsTheReadingByItsButton)
{
    const CatalogReading::Session session(reading_);
    ReadAfter(std::chrono::seconds(1), 10);
    ASSERT_NE(Shown(), nullptr);
    QTimer::singleShot(0, Shown(), [] { Click(*Shown(), "cmdCancel"); });
    EXPECT_THROW(ReadAfter(std::chrono::seconds(1), 20), ReadingCancelled);
    EXPECT_TRUE(reading_.WasCancelled());
}

class FrmZoom : public ::testing::Test
{
  protected:
    FrmZoom()
    {
        for (int line = 0; line < 500; ++line)
            model_.appendRow(new QStandardItem(u"    Line %1"_s.arg(line)));
        preview_.setModel(&model_);
        preview_.setCurrentIndex(model_.index(321, 0));
    }

    QStandardItemModel model_;
    QListView preview_;
};

TEST_F(FrmZoom, ShowsTheLinesOfThePreviewLarge)
{
    ZoomDialog zoom(preview_, nullptr);
    zoom.show();
    auto& list = Find<QListView>(zoom, "lstZoom");
    EXPECT_EQ(list.model(), &model_);
    EXPECT_EQ(list.currentIndex().row(), 321);
    const double middle = list.viewport()->height() / 2.0;
    EXPECT_NEAR(list.visualRect(list.currentIndex()).center().y(), middle, middle / 5);
    EXPECT_GT(list.font().pointSizeF(), preview_.font().pointSizeF());
    Photograph(zoom, "frmZoom");
    QTest::keyClick(&zoom, Qt::Key_Escape);
    EXPECT_FALSE(zoom.isVisible());
}

TEST_F(FrmZoom, GrowsAndShrinksWithinBounds)
{
    ZoomDialog zoom(preview_, nullptr);
    zoom.show();
    auto& list = Find<QListView>(zoom, "lstZoom");
    const double before = list.font().pointSizeF();
    Click(zoom, "cmdLarger");
    EXPECT_GT(list.font().pointSizeF(), before);
    for (int click = 0; click < 40; ++click)
        Click(zoom, "cmdSmaller");
    EXPECT_DOUBLE_EQ(list.font().pointSizeF(), 6);
    for (int click = 0; click < 40; ++click)
        Click(zoom, "cmdLarger");
    EXPECT_DOUBLE_EQ(list.font().pointSizeF(), 96);
}

TEST_F(FrmZoom, FollowsTheColoursOfThePreview)
{
    ZoomDialog zoom(preview_, nullptr);
    zoom.show();
    QPalette ground;
    ground.setColor(QPalette::Base, Qt::yellow);
    preview_.setPalette(ground);
    EXPECT_EQ(Find<QListView>(zoom, "lstZoom").palette().color(QPalette::Base), QColor(Qt::yellow));
}

TEST(FrmError, NeverOutgrowsTheScreen)
{
    ErrorDialog dialog(nullptr);
    dialog.show();
    for (int failure = 0; failure < 50; ++failure)
        dialog.Add("The driver says a great many words about what it could not do, and then some more of them.",
                   "Last Error Number: 5.\r\n");
    QApplication::processEvents();
    EXPECT_LT(dialog.minimumSizeHint().height(), dialog.screen()->availableGeometry().height());
    EXPECT_LE(dialog.height(), dialog.screen()->availableGeometry().height());
    EXPECT_TRUE(dialog.rect().contains(Find<QPushButton>(dialog, "cmdOK").geometry()));
    EXPECT_GT(Find<QScrollArea>(dialog, "scrError").verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(Find<QLabel>(dialog, "lblError").text().count(u"and then some more of them."_s), 50);
}

TEST(FrmError, LeavesTheRoomThatTheWordsDoNotNeedToTheReport)
{
    ErrorDialog dialog(nullptr);
    dialog.Add(
        "The driver says a few words about what it could not do, and those fill more than one line of the form, "
        "even more than two, for a driver and its manager each have a name and put it in front of what they say.",
        "Last Error Number: 5.\r\n");
    dialog.show();
    QApplication::processEvents();
    const auto& words = Find<QLabel>(dialog, "lblError");
    EXPECT_EQ(Find<QScrollArea>(dialog, "scrError").height(), words.heightForWidth(words.width()));
}

TEST(FrmError, LooksWell)
{
    ErrorDialog dialog(nullptr);
    dialog.Add(
        "[unixODBC][Driver Manager]Data source name not found and no default driver specified. If you would like "
        "to modify your DataSource, you may do so by selecting Project|Edit DataSource from the menu.",
        "Last Error Number: -2147467259.\r\nError Description: Data source name not found\r\nError Source: ODBC\r\n");
    Photograph(dialog, "frmError");
}

} // namespace
} // namespace veldrane::testing
