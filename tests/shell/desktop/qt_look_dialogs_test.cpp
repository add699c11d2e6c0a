#include "shell/desktop/qt_look_dialogs.h"

#include "widgets.h"

#include <QColorDialog>
#include <QFontDialog>

#include <gtest/gtest.h>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;

TEST(ColorDialog, StartsFromTheColourShownAndGivesTheOneChosen)
{
    std::optional<Color> chosen;
    WithDialogs([&] { chosen = QtLookDialogs().AskForColor(0xFF0000); }, {[](QWidget& dialog) {
                    auto& colors = dynamic_cast<QColorDialog&>(dialog);
                    EXPECT_EQ(colors.currentColor(), QColor(Qt::blue));
                    colors.setCurrentColor(Qt::red);
                    colors.accept();
                }});
    EXPECT_EQ(chosen, 0x0000FF);
}

TEST(ColorDialog, KeepsAColourOfTheSystemThatWasNotChanged)
{
    std::optional<Color> chosen;
    const auto gray = static_cast<Color>(0x80000011U);
    WithDialogs([&] { chosen = QtLookDialogs().AskForColor(gray); },
                {[](QWidget& dialog) { dynamic_cast<QDialog&>(dialog).accept(); }});
    EXPECT_EQ(chosen, gray);
}

TEST(ColorDialog, GivesNothingWhenItIsCancelled)
{
    std::optional<Color> chosen = 1;
    WithDialogs([&] { chosen = QtLookDialogs().AskForColor(0xFF0000); }, {[](QWidget& dialog) { dialog.close(); }});
    EXPECT_EQ(chosen, std::nullopt);
}

TEST(FontDialog, StartsFromTheFontShownAndGivesTheOneChosen)
{
    std::optional<PreviewFont> chosen;
    WithDialogs([&] { chosen = QtLookDialogs().AskForFont({.Name = "DejaVu Sans", .Size = 12}); },
                {[](QWidget& dialog) {
                    auto& fonts = dynamic_cast<QFontDialog&>(dialog);
                    EXPECT_EQ(fonts.currentFont().pointSize(), 12);
                    EXPECT_FALSE(fonts.currentFont().bold());
                    EXPECT_FALSE(fonts.currentFont().italic());
                    fonts.setCurrentFont(QFont(u"DejaVu Sans Mono"_s, 20, QFont::Bold));
                    fonts.accept();
                }});
    EXPECT_EQ(chosen, (PreviewFont{.Name = "DejaVu Sans Mono", .Size = 20, .Bold = true}));
}

TEST(FontDialog, KeepsAFontThatWasNotChanged)
{
    for (const PreviewFont& font : {PreviewFont{}, PreviewFont{.Name = "DejaVu Sans Mono", .Size = 11},
                                    PreviewFont{.Name = "DejaVu Sans", .Size = 11, .Bold = true, .Italic = true}}) {
        std::optional<PreviewFont> chosen;
        WithDialogs([&] { chosen = QtLookDialogs().AskForFont(font); },
                    {[](QWidget& dialog) { dynamic_cast<QDialog&>(dialog).accept(); }});
        EXPECT_EQ(chosen, font) << font.Name;
    }
}

TEST(FontDialog, GivesNothingWhenItIsCancelled)
{
    std::optional<PreviewFont> chosen = PreviewFont{};
    WithDialogs([&] { chosen = QtLookDialogs().AskForFont({}); }, {[](QWidget& dialog) { dialog.close(); }});
    EXPECT_EQ(chosen, std::nullopt);
}

} // namespace
} // namespace veldrane::testing
