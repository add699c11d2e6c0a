#include "shell/desktop/preview_printing.h"

#include "shell/main_window/shown_lines.h"
#include "support/scripted_messages.h"
#include "widgets.h"

#include <QFile>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
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

TEST_F(ThePrintedPreview, CanBeReadOnPaper)
{
    for (const Color light : {0xFFFFFF, 0xC0FFFF, 0x80FF80, 0xFFE0E0})
        EXPECT_LT(InkOf(light).lightness(), 140) << light;
    EXPECT_GT(InkOf(0x80FF80).green(), InkOf(0x80FF80).red());
    EXPECT_EQ(InkOf(0), QColor(Qt::black));
    EXPECT_EQ(InkOf(0x0000FF), QColor(Qt::red));
    EXPECT_EQ(InkOf(static_cast<Color>(0x80000011U)), QColor(Qt::darkGray));
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

// Has one page.
class LastSheet : public QPdfWriter
{
  public:
    using QPdfWriter::QPdfWriter;
    bool newPage() override { return false; }
};

TEST_F(ThePrintedPreview, HasFailedWhereItsLastPageCouldNotBeMade)
{
    LastSheet sheet(folder.filePath(u"sheet.pdf"_s));
    ShowLines(pane, {"a"});
    EXPECT_EQ(PrintLines(pane, QFont(), sheet), 1);
    ShowLines(pane, std::vector<std::string>(500, "a line"));
    EXPECT_EQ(PrintLines(pane, QFont(), sheet), 0);
}

struct ThePrintDialog : ThePrintedPreview
{
    ThePrintDialog() { ShowLines(pane, {"a"}, "Customer"); }

    // Asks, with `answer` in front of the dialog, which prints into the file.
    void Ask(const QString& path, QDialog::DialogCode answer)
    {
        QWidget window;
        WithDialogs([&] { AskAndPrint(pane, QFont(), messages, window); }, {[&](QWidget& dialog) {
                        EXPECT_EQ(dialog.objectName(), u"printDialog"_s);
                        auto& printing = dynamic_cast<QPrintDialog&>(dialog);
                        EXPECT_FALSE(printing.testOption(QAbstractPrintDialog::PrintPageRange));
                        EXPECT_EQ(printing.printer()->docName(), u"Customer"_s);
                        printing.printer()->setOutputFormat(QPrinter::PdfFormat);
                        printing.printer()->setOutputFileName(path);
                        printing.QDialog::done(answer);
                    }});
    }

    ScriptedMessages messages;
};

TEST_F(ThePrintDialog, PrintsWhereThePersonSays)
{
    const QString path = folder.filePath(u"preview.pdf"_s);
    Ask(path, QDialog::Accepted);
    EXPECT_GT(QFile(path).size(), 500);
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(ThePrintDialog, PrintsNothingWhenItIsCancelled)
{
    const QString path = folder.filePath(u"preview.pdf"_s);
    Ask(path, QDialog::Rejected);
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(ThePrintDialog, SaysThatNothingCouldBePrinted)
{
    Ask(folder.filePath(u"missing/preview.pdf"_s), QDialog::Accepted);
    ASSERT_EQ(messages.Asked().size(), 1U);
    EXPECT_EQ(messages.Asked().front().Title, "Print Preview");
    EXPECT_EQ(messages.Asked().front().Text,
              "The preview could not be printed: the printer, or the file that it prints "
              "to, can't be written to.");
}

} // namespace
} // namespace veldrane::testing
