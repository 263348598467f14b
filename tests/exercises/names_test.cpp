// The Poker Hand Names screen as a user meets it: the dealt question and its answers, the
// pointer's border, what survives leaving the screen, and the steering of the deals of
// both hand screens.
#include <map>
#include <set>

#include "keyboard_helpers.h"
#include "platform/cardface.h"
#include "support/window_fixture.h"

namespace {

using exercises_test::nameRowOf;
using exercises_test::userClick;

class HandNames : public test_support::WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        startWindow();
        form->Timer1->stop();
        clickTopic(QStringLiteral("Poker Hand Names"));
    }
    std::int16_t rightRow() const {
        return static_cast<std::int16_t>(nameRowOf(form->hand1Result));
    }
    std::int16_t wrongRow() const { return rightRow() == 0 ? 1 : 0; }
    std::vector<int> borderedRows() const {
        std::vector<int> rows;
        for (int i = 0; i < 9; ++i) {
            if (form->lblName[static_cast<std::size_t>(i)]->BorderStyle() == 1)
                rows.push_back(i);
        }
        return rows;
    }
};

TEST_F(HandNames, RoadOfOneEventFromTheTreeToTheRightName) {
    EXPECT_FALSE(form->picQuiz->isHidden());
    EXPECT_TRUE(form->WebBrowser1->isHidden());
    ASSERT_TRUE(userClick(form->cmdStart1B));
    EXPECT_EQ(form->lblMessage->caption(), "Click a poker hand name from the list..");
    EXPECT_TRUE(form->answerPending);
    EXPECT_EQ(exercises_test::modeFlags(*form), "NamesRandom");
    EXPECT_TRUE(enabledKeys().empty());
    // The five cards on the surface are the hand that is asked about.
    const QStringList shown = form->picShow->drawnItems();
    ASSERT_EQ(shown.size(), 5);
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_EQ(shown[static_cast<int>(i)], platform::cardName(form->hand1[i].drawId));
    ASSERT_GE(rightRow(), 0);

    ASSERT_TRUE(userClick(form->lblName[static_cast<std::size_t>(wrongRow())]));
    ASSERT_EQ(recorded.sounds.size(), 1u);
    EXPECT_TRUE(recorded.sounds.back().endsWith("/wavs/no.wav"))
        << recorded.sounds.back().toStdString();
    EXPECT_EQ(markedName(), -1);
    EXPECT_TRUE(form->answerPending);

    ASSERT_TRUE(userClick(form->lblName[static_cast<std::size_t>(rightRow())]));
    ASSERT_EQ(recorded.sounds.size(), 2u);
    EXPECT_TRUE(recorded.sounds.back().startsWith(appFolder()));
    EXPECT_TRUE(recorded.sounds.back().endsWith("/wavs/yes.wav"))
        << recorded.sounds.back().toStdString();
    EXPECT_EQ(markedName(), rightRow());
    EXPECT_FALSE(form->answerPending);
    EXPECT_EQ(form->lblMessage->caption(), "Click a poker hand name from the list..");
}

TEST_F(HandNames, WrongAnswersRepeatTheAnsweredStateIsSilentAndStartAsksAgain) {
    form->cmdStart1B_Click();
    for (int i = 0; i < 3; ++i)
        form->lblName_Click(wrongRow());
    EXPECT_EQ(recorded.sounds.size(), 3u);
    EXPECT_EQ(markedName(), -1);
    form->lblName_Click(rightRow());
    for (std::int16_t row = 0; row < 9; ++row)
        form->lblName_Click(row);
    EXPECT_EQ(recorded.sounds.size(), 4u) << "a click after the right answer played a sound";
    EXPECT_EQ(markedName(), rightRow());

    form->cmdStart1B_Click();
    EXPECT_EQ(markedName(), -1);
    EXPECT_TRUE(form->answerPending);
}

TEST_F(HandNames, HoverBorderFollowsThePointerOnlyWhileTheQuestionIsOpen) {
    form->cmdStart1A_Click();  // exercise 1: the list does not answer
    form->lblName_MouseMove(3);
    form->lblName_Click(3);
    EXPECT_TRUE(borderedRows().empty());
    EXPECT_TRUE(recorded.sounds.empty());

    form->cmdStart1B_Click();
    form->lblName_MouseMove(0);  // the remembered label starts at 0: no border yet
    EXPECT_TRUE(borderedRows().empty());
    form->lblName_MouseMove(3);
    EXPECT_EQ(borderedRows(), std::vector<int>{3});
    // The remembered label survives a Start: 3 gets no border until the pointer moved on.
    form->cmdStart1B_Click();
    form->lblName_MouseMove(3);
    EXPECT_TRUE(borderedRows().empty());
    const std::int16_t right = rightRow();
    const auto other = static_cast<std::int16_t>(right == 6 ? 5 : 6);
    form->lblName_MouseMove(other);
    form->lblName_MouseMove(right);
    EXPECT_EQ(borderedRows(), std::vector<int>{right});

    // The marked label shows light grey on black and keeps its border; hovering stops.
    form->lblName_Click(right);
    EXPECT_EQ(form->lblName[static_cast<std::size_t>(right)]->ForeColor(), 0xE0E0E0);
    EXPECT_EQ(form->lblName[static_cast<std::size_t>(right)]->BackColor(), 0);
    form->lblName_MouseMove(other);
    EXPECT_EQ(borderedRows(), std::vector<int>{right});
}

TEST_F(HandNames, LeavingAQuestionAndComingBackStillAnswersTheOldHands) {
    form->cmdStart1B_Click();
    const std::int16_t oldRow = rightRow();
    clickTopic(QStringLiteral("Intro"));
    clickTopic(QStringLiteral("Poker Hand Names"));
    EXPECT_TRUE(form->picShow->drawnItems().isEmpty());
    EXPECT_FALSE(form->cmdClear->isEnabledTo(form->picQuiz));
    EXPECT_EQ(form->lblMessage->caption(), "Click [Start] to begin..");
    ASSERT_TRUE(userClick(form->lblName[static_cast<std::size_t>(oldRow)]));
    ASSERT_EQ(recorded.sounds.size(), 1u);
    EXPECT_TRUE(recorded.sounds.back().endsWith("/wavs/yes.wav"));

    // The same on the rankings screen: the verdict is still the old hands'.
    clickTopic(QStringLiteral("Poker Hand Rankings"));
    form->cmdStart2B_Click();
    form->picShow_Click();
    const QString verdict = form->lblMessage->caption();
    clickTopic(QStringLiteral("Poker Hand Names"));
    clickTopic(QStringLiteral("Poker Hand Rankings"));
    EXPECT_TRUE(form->picLabels->drawnItems().isEmpty());
    EXPECT_EQ(form->lblMessage->caption(), "Click [Start] to begin...");
    ASSERT_TRUE(userClick(form->picLabels));
    EXPECT_EQ(form->lblMessage->caption(), verdict);
}

// With r chosen, many deals per row: the first hand lands in its row's set, rows 4 to 6
// deal once, only they ever show a high card, and a second hand shares no card.
TEST_F(HandNames, SteeredDealsOfBothScreensStayInTheirRows) {
    struct Screen {
        void (frmMain::*start)();
        std::map<int, std::set<std::int16_t>> accepted;
    };
    const std::array<Screen, 2> screens{{
        {&frmMain::cmdStart1B_Click,
         {{1, {2, 3, 4, 5, 6, 7}}, {2, {4, 5, 6, 7, 8}}, {3, {6, 7, 8, 9}}}},
        {&frmMain::cmdStart2B_Click, {{1, {4, 5, 6, 7}}, {2, {4, 5, 6, 7, 8}}, {3, {7, 8, 9}}}},
    }};
    constexpr int kDealsPerRow = 200;
    for (const Screen& screen : screens) {
        const bool twoHands = screen.start == &frmMain::cmdStart2B_Click;
        for (int row = 1; row <= 6; ++row) {
            SCOPED_TRACE((twoHands ? "rankings, row " : "names, row ") + std::to_string(row));
            int highCards = 0;
            for (int deal = 0; deal < kDealsPerRow; ++deal) {
                random->script.push_back(exercises_test::uForRow(row));
                const int reseedsBefore = random->reseeds;
                (form.get()->*screen.start)();
                highCards += form->hand1Result == 20;
                if (row <= 3) {
                    ASSERT_TRUE(screen.accepted.at(row).contains(form->hand1Result))
                        << "dealt " << form->hand1Result;
                } else {
                    ASSERT_EQ(random->reseeds - reseedsBefore, 2)
                        << "an unsteered row dealt more than once";
                }
                ASSERT_EQ(form->picShow->drawnItems().size(), 5)
                    << "a rejected hand stayed on the surface";
                if (!twoHands)
                    continue;
                std::set<std::int16_t> ids;
                for (const auto& card : form->hand1)
                    ids.insert(card.drawId);
                for (const auto& card : form->hand2)
                    ids.insert(card.drawId);
                ASSERT_EQ(ids.size(), 10u) << "the hands share a card";
                ASSERT_EQ(form->picLabels->drawnItems().front(),
                          platform::cardName(form->hand2[0].drawId));
            }
            if (row <= 3) {
                EXPECT_EQ(highCards, 0);
            } else {
                EXPECT_GT(highCards, 0);
            }
        }
    }
}

}  // namespace
