#include "shell/desktop/preview_printing.h"

#include "shell/main_window/shown_lines.h"

#include <QFile>
#include <QPdfWriter>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;

struct ThePrintedPreview : ::testing::Test
{
    int Print(const QString& path)
    {
        QPdfWriter writer(path);
        writer.setPageSize(QPageSize(QPageSize::A4));
        return PrintLines(pane, QFont(u"DejaVu Sans Mono"_s, 10), writer);
    }

    QTemporaryDir folder;
    PreviewPane pane;
};

TEST_F(ThePrintedPreview, FillsOnePageAfterTheOther)
{
    ShowLines(pane, {"a", "b"});
    EXPECT_EQ(Print(folder.filePath(u"few.pdf"_s)), 1);
    ShowLines(pane, std::vector<std::string>(500, "a line"));
    const int pages = Print(folder.filePath(u"many.pdf"_s));
    EXPECT_GT(pages, 5);
    EXPECT_LT(pages, 20);
    EXPECT_GT(QFile(folder.filePath(u"many.pdf"_s)).size(), 1000);
}

TEST_F(ThePrintedPreview, BreaksALineThatIsTooWide)
{
    ShowLines(pane, std::vector<std::string>(50, "a"));
    const int pages = Print(folder.filePath(u"narrow.pdf"_s));
    ShowLines(pane, std::vector<std::string>(50, std::string(1000, 'W')));
    EXPECT_GT(Print(folder.filePath(u"wide.pdf"_s)), 3 * pages);
}

TEST_F(ThePrintedPreview, HasOnePageWithoutALine)
{
    EXPECT_EQ(Print(folder.filePath(u"empty.pdf"_s)), 1);
}

TEST_F(ThePrintedPreview, HasNoPageWhereNoneCanBeMade)
{
    ShowLines(pane, {"a"});
    EXPECT_EQ(Print(folder.filePath(u"missing/preview.pdf"_s)), 0);
}

} // namespace
} // namespace veldrane::testing
