#include "shell/desktop/preview_model.h"

#include "shell/desktop/qt_color.h"
#include "shell/main_window/shown_lines.h"

#include <QAbstractItemModelTester>
#include <QColor>
#include <QFont>
#include <QGuiApplication>

#include <gtest/gtest.h>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;

struct ThePreviewModel : ::testing::Test
{
    [[nodiscard]] QVariant At(int row, int role) const { return model.data(model.index(row), role); }

    PreviewPane pane;
    PreviewModel model{pane};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(ThePreviewModel, FollowsThePane)
{
    EXPECT_EQ(model.rowCount(), 0);
    ShowLines(pane, {"Größe", "  b"});
    EXPECT_EQ(model.rowCount(), 2);
    EXPECT_EQ(At(0, Qt::DisplayRole).toString(), u"Größe"_s);
    EXPECT_EQ(At(1, Qt::DisplayRole).toString(), u"  b"_s);
    ShowLines(pane, {"c"});
    EXPECT_EQ(model.rowCount(), 1);
    pane.Clear();
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(ThePreviewModel, HasALinesColourWeightAndPicture)
{
    PreviewText text;
    TTCOutputs& lines = text.Blocks.emplace_back();
    lines.Add("Project Summary", LineClass::Head).Icon = "Root";
    lines.Add("Attribute", LineClass::Hidden).Icon = "Unknown";
    lines.Add("    City = mCity");
    pane.Show(std::move(text), "Preview");
    EXPECT_EQ(At(0, Qt::ForegroundRole).value<QColor>(), QColor(Qt::blue));
    EXPECT_TRUE(At(0, Qt::FontRole).value<QFont>().bold());
    EXPECT_FALSE(At(0, Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_EQ(At(1, Qt::ForegroundRole).value<QColor>(),
              ColorToQt(static_cast<Color>(0x80000011U), QGuiApplication::palette()));
    EXPECT_FALSE(At(2, Qt::FontRole).isValid());
    EXPECT_FALSE(At(2, Qt::DecorationRole).isValid());
    EXPECT_TRUE(At(1, Qt::DecorationRole).value<QIcon>().isNull());
}

TEST_F(ThePreviewModel, HasNothingBeyondItsLines)
{
    ShowLines(pane, {"a"});
    EXPECT_FALSE(model.data({}, Qt::DisplayRole).isValid());
    EXPECT_EQ(model.rowCount(model.index(0)), 0);
}

TEST(QtColor, HasRedInTheLowByte)
{
    EXPECT_EQ(ColorToQt(0xFEF8F3, QPalette()), QColor(0xF3, 0xF8, 0xFE));
    EXPECT_EQ(ColorFromQt(QColor(0xF3, 0xF8, 0xFE)), 0xFEF8F3);
}

TEST(QtColor, TakesTheSystemsColoursFromThePalette)
{
    QPalette palette(Qt::darkBlue);
    palette.setColor(QPalette::Base, Qt::yellow);
    palette.setColor(QPalette::Text, Qt::red);
    palette.setColor(QPalette::Window, QColor(10, 20, 30));
    palette.setColor(QPalette::WindowText, QColor(110, 220, 130));
    const auto system = [](std::uint32_t number) { return static_cast<Color>(0x80000000U | number); };
    EXPECT_EQ(ColorToQt(system(5), palette), QColor(Qt::yellow));
    EXPECT_EQ(ColorToQt(system(8), palette), QColor(Qt::red));
    EXPECT_EQ(ColorToQt(system(17), palette), QColor(60, 120, 80));
    EXPECT_EQ(ColorToQt(system(200), palette), QColor(Qt::red));
}

} // namespace
} // namespace veldrane::testing
