#include "shell/desktop/editors/trouble_label.h"

#include "shell/desktop/editors/shown_dialog.h"
#include "shell/desktop/room_for_dialog.h"

#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace veldrane::testing {
namespace {

// A dialog with a field, the words below it and a button.
class TheTroubleLabel : public ::testing::Test
{
  protected:
    TheTroubleLabel()
    {
        words_.setBuddy(&field_);
        layout_.addWidget(&field_);
        layout_.addWidget(&words_);
        layout_.addWidget(&button_);
        dialog_.resize(300, 100);
        BringToFront(dialog_);
    }

    void Tell(const std::string& words)
    {
        words_.ShowTrouble(words);
        for (int round = 0; round < 3; ++round) // the window grows, and the label with it
            QApplication::processEvents();
    }

    QDialog dialog_;
    QVBoxLayout layout_{&dialog_};
    QLineEdit field_;
    TroubleLabel words_;
    QPushButton button_;
};

TEST_F(TheTroubleLabel, ShowsWordsWholeAndTakesNoRoomWithout)
{
    EXPECT_FALSE(words_.isVisible());
    Tell("The name & the address are too long for one line of a dialog as narrow as this one is made.");
    EXPECT_TRUE(words_.isVisible());
    EXPECT_GE(words_.height(), words_.heightForWidth(words_.width()));
    EXPECT_EQ(field_.accessibleDescription().count(QLatin1Char('&')), 1);
    Tell("");
    EXPECT_FALSE(words_.isVisible());
    EXPECT_TRUE(field_.accessibleDescription().isEmpty());
}

TEST_F(TheTroubleLabel, VeryLongWordsLeaveTheButtonsOnTheScreen)
{
    std::string words;
    for (int sentence = 0; sentence < 500; ++sentence)
        words += "This sentence is told once more. ";
    Tell(words);
    EXPECT_LE(words_.height(), MostHeightOfWords(dialog_));
    EXPECT_LT(dialog_.height(), dialog_.screen()->availableGeometry().height());
    EXPECT_TRUE(dialog_.rect().contains(button_.geometry()));
    EXPECT_TRUE(words_.toolTip().contains(QString::fromStdString(words).trimmed()));
}

} // namespace
} // namespace veldrane::testing
