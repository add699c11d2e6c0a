#include "shell/main_window/preview_find.h"

#include "shown_lines.h"

#include <gmock/gmock.h>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct ThePreviewSearch : ::testing::Test
{
    void Show(const std::vector<std::string>& lines) { testing::ShowLines(pane, lines); }

    PreviewPane pane;
    PreviewFind find{pane};
};

TEST_F(ThePreviewSearch, FindsEveryPlaceLetterCaseAside)
{
    Show({"Dim City as String", "", "city = City"});
    find.Find("CITY");
    EXPECT_THAT(find.Matches(), ElementsAre(PreviewMatch{0, 4, 4}, PreviewMatch{2, 0, 4}, PreviewMatch{2, 7, 4}));
}

TEST_F(ThePreviewSearch, FindsTheTextAsItStands)
{
    Show({"a.c", "abc", "a.*"});
    find.Find("a.");
    EXPECT_THAT(find.Matches(), ElementsAre(PreviewMatch{0, 0, 2}, PreviewMatch{2, 0, 2}));
}

TEST_F(ThePreviewSearch, CountsPlacesInBytes)
{
    Show({"Größe ÄRZTE"});
    find.Find("ärzte");
    EXPECT_THAT(find.Matches(), ElementsAre(PreviewMatch{0, 8, 6}));
}

TEST_F(ThePreviewSearch, MeasuresAPlaceByTheLettersThatStandThere)
{
    Show({"as ſ, as s"}); // the long s folds to the letter of half its bytes
    find.Find("S,");
    EXPECT_THAT(find.Matches(), ElementsAre(PreviewMatch{0, 3, 3}));
}

TEST_F(ThePreviewSearch, FindsPlacesThatDoNotOverlap)
{
    Show({"aaaaa"});
    find.Find("aa");
    EXPECT_THAT(find.Matches(), ElementsAre(PreviewMatch{0, 0, 2}, PreviewMatch{0, 2, 2}));
}

TEST_F(ThePreviewSearch, GoesBackToWhereItBeganWhenALetterIsTakenAway)
{
    Show({"none", "can", "car", "cat", "call"});
    pane.Select(1);
    find.Begin();
    find.Find("ca");
    EXPECT_EQ(pane.Selected(), 1U);
    find.Find("cal");
    EXPECT_EQ(pane.Selected(), 4U);
    find.Find("calx");
    EXPECT_EQ(pane.Selected(), 4U);
    find.Find("ca");
    EXPECT_EQ(pane.Selected(), 1U);
}

TEST_F(ThePreviewSearch, BeginsAnewWhereThePersonWent)
{
    Show({"can", "car", "cat", "call"});
    find.Begin();
    find.Find("ca");
    find.Next();
    find.Find("c");
    EXPECT_EQ(pane.Selected(), 1U);
    pane.Select(2);
    find.Find("ca");
    EXPECT_EQ(pane.Selected(), 2U);
}

TEST_F(ThePreviewSearch, FindsAnEmptyTextNowhere)
{
    Show({"", "a"});
    find.Find("");
    EXPECT_THAT(find.Matches(), IsEmpty());
    EXPECT_EQ(find.Status(), "");
}

TEST_F(ThePreviewSearch, GoesToTheFirstPlaceAtOrBehindTheSelectedRow)
{
    Show({"a", "b", "a", "a"});
    pane.Select(2);
    find.Find("a");
    EXPECT_EQ(find.Current(), 1U);
    EXPECT_EQ(pane.Selected(), 2U);
    pane.Select(3);
    find.Find("b");
    EXPECT_EQ(pane.Selected(), 1U);
}

TEST_F(ThePreviewSearch, GoesOnWithEachStepAndRoundTheEnd)
{
    Show({"a a", "b", "a"});
    find.Find("a");
    EXPECT_EQ(find.Status(), "1 of 3");
    find.Next();
    EXPECT_EQ(find.Status(), "2 of 3");
    EXPECT_EQ(pane.Selected(), 0U);
    find.Next();
    EXPECT_EQ(find.Status(), "3 of 3");
    EXPECT_EQ(pane.Selected(), 2U);
    find.Next();
    EXPECT_EQ(find.Status(), "1 of 3");
    EXPECT_EQ(pane.Selected(), 0U);
}

TEST_F(ThePreviewSearch, GoesBackWithEachStepAndRoundTheBeginning)
{
    Show({"a", "b", "a"});
    find.Find("a");
    find.Previous();
    EXPECT_EQ(find.Status(), "2 of 2");
    find.Previous();
    EXPECT_EQ(find.Status(), "1 of 2");
}

TEST_F(ThePreviewSearch, GoesOnFromARowThatWasSelectedMeanwhile)
{
    Show({"a", "a", "b", "a", "a"});
    find.Find("a");
    pane.Select(2);
    find.Next();
    EXPECT_EQ(pane.Selected(), 3U);
    pane.Select(2);
    find.Previous();
    EXPECT_EQ(pane.Selected(), 1U);
}

TEST_F(ThePreviewSearch, StaysWhereItIsWithoutAPlace)
{
    Show({"a", "b"});
    pane.Select(1);
    find.Find("c");
    EXPECT_EQ(find.Status(), "Not found");
    find.Next();
    find.Previous();
    EXPECT_EQ(find.Current(), std::nullopt);
    EXPECT_EQ(pane.Selected(), 1U);
}

TEST_F(ThePreviewSearch, TellsThePlacesInARow)
{
    Show({"a a", "b", "a"});
    find.Find("a");
    EXPECT_THAT(find.MatchesIn(0), ElementsAre(PreviewMatch{0, 0, 1}, PreviewMatch{0, 2, 1}));
    EXPECT_THAT(find.MatchesIn(1), IsEmpty());
    EXPECT_THAT(find.MatchesIn(2), ElementsAre(PreviewMatch{2, 0, 1}));
}

TEST_F(ThePreviewSearch, SearchesNewLinesAndStaysAtTheirTop)
{
    Show({"a"});
    find.Find("a");
    Show({"b", "a", "a"});
    EXPECT_EQ(find.Status(), "2 matches");
    EXPECT_EQ(pane.Selected(), 0U);
    find.Next();
    EXPECT_EQ(pane.Selected(), 1U);
    Show({"a"});
    EXPECT_EQ(find.Status(), "1 match");
    Show({});
    EXPECT_EQ(find.Status(), "Not found");
}

TEST_F(ThePreviewSearch, BeginsAtTheTopOfNewLines)
{
    Show({"cat", "b", "cow"});
    pane.Select(2);
    find.Begin();
    find.Find("ca"); // round the end
    ASSERT_EQ(pane.Selected(), 0U);
    Show({"x", "cab", "cat", "cap"});
    find.Find("cap");
    find.Find("ca");
    EXPECT_EQ(pane.Selected(), 1U);
}

TEST_F(ThePreviewSearch, TellsOfEveryChange)
{
    Show({"a"});
    int changes = 0;
    const Connection connection = find.Changed.Connect([&] { ++changes; });
    find.Find("a");
    EXPECT_EQ(changes, 1);
    find.Next();
    EXPECT_EQ(changes, 2);
    find.Find("b");
    EXPECT_EQ(changes, 3);
    Show({"b"});
    EXPECT_EQ(changes, 4);
}

} // namespace
} // namespace veldrane
