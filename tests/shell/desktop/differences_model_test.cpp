#include "shell/desktop/differences_model.h"

#include "widgets.h"

#include <QAbstractItemModelTester>
#include <QColor>
#include <QTextDocumentFragment>

#include <gtest/gtest.h>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;

QString Cell(const DifferencesModel& model, int row, int column)
{
    return model.index(row, column).data().toString();
}

TEST(DifferencesModel, HoldsWhatAModelPromisesInEitherLayout)
{
    DifferencesModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.Show(DifferencesOf("a\nb\n", "a\nc\nd\n"));
    model.SetLayout(DifferenceLayout::SideBySide);
    model.Show({});
    EXPECT_EQ(model.rowCount(), 0);
    model.SetLayout(DifferenceLayout::Unified);
}

TEST(DifferencesModel, ShowsBothTextsInOneColumn)
{
    DifferencesModel model;
    model.Show(DifferencesOf("a\nb\n", "a\n\tc\n"));
    ASSERT_EQ(model.rowCount(), 3);
    EXPECT_EQ(Cell(model, 0, 2), u"  a"_s);
    EXPECT_EQ(Cell(model, 1, 2), u"- b"_s);
    EXPECT_EQ(Cell(model, 2, 2), u"+     c"_s);
    EXPECT_EQ(Cell(model, 1, 0) + u"|"_s + Cell(model, 1, 1), u"2|"_s);
    EXPECT_EQ(Cell(model, 2, 0) + u"|"_s + Cell(model, 2, 1), u"|2"_s);
    EXPECT_FALSE(model.index(0, 2).data(Qt::BackgroundRole).isValid());
    EXPECT_NE(model.index(1, 2).data(Qt::BackgroundRole), model.index(2, 2).data(Qt::BackgroundRole));
    EXPECT_EQ(model.Longest(), 7);
}

TEST(DifferencesModel, ShowsBothTextsSideBySide)
{
    DifferencesModel model;
    model.SetLayout(DifferenceLayout::SideBySide);
    model.Show(DifferencesOf("a\nb\n", "a\nc\nd\n"));
    ASSERT_EQ(model.rowCount(), 3);
    ASSERT_EQ(model.columnCount(), 4);
    EXPECT_EQ(Cell(model, 1, 1), u"- b"_s);
    EXPECT_EQ(Cell(model, 1, 3), u"+ c"_s);
    EXPECT_EQ(Cell(model, 2, 1), QString());
    EXPECT_EQ(Cell(model, 2, 3), u"+ d"_s);
    EXPECT_EQ(model.headerData(3, Qt::Horizontal).toString(), u"Line of the New Text"_s);
}

TEST(DifferencesModel, TipsShowTheLineAsItStands)
{
    const QString line = u"    If a < b And c = \"<b>\" & d Then"_s;
    DifferencesModel model;
    model.SetLayout(DifferenceLayout::SideBySide);
    model.Show(DifferencesOf("", line.toStdString() + "\n"));
    const QString tip = model.index(0, 3).data(Qt::ToolTipRole).toString();
    EXPECT_TRUE(Qt::mightBeRichText(tip));
    EXPECT_EQ(QTextDocumentFragment::fromHtml(tip).toPlainText(), line);
}

TEST(DifferencesModel, FindsWhereDifferencesBegin)
{
    DifferencesModel model;
    model.Show(DifferencesOf("1\n2\n3\n4\n5\n", "x\n2\n3\n4\ny\n"));
    for (const DifferenceLayout layout : {DifferenceLayout::Unified, DifferenceLayout::SideBySide}) {
        model.SetLayout(layout);
        const int last = layout == DifferenceLayout::Unified ? 5 : 4;
        EXPECT_EQ(model.DifferenceBelow(-1), 0);
        EXPECT_EQ(model.DifferenceBelow(0), last);
        EXPECT_EQ(model.DifferenceBelow(last), std::nullopt);
        EXPECT_EQ(model.DifferenceAbove(last), 0);
        EXPECT_EQ(model.DifferenceAbove(0), std::nullopt);
    }
}

} // namespace
} // namespace veldrane::testing
