// Pre-Flop Pair Value: the screen, the keyboard through both exercises, and what survives
// leaving the screen and coming back.
#include "pair_best_support.h"
#include "support/window_fixture.h"

namespace {

using pair_best::Key;

class PairStatesTest : public test_support::WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        startWindow();
    }
    QString message() const { return form->lblMessage->caption(); }
    std::size_t cardsOnShow() const { return form->picShow->drawnItems().size(); }
};

TEST_F(PairStatesTest, ScreenComesBackWholeAfterBestHand) {
    clickTopic(QStringLiteral("Best Hand Recognition"));
    form->cmdStart4->click();
    const std::vector<int> open = enabledKeys();
    form->cmdKey[static_cast<std::size_t>(open[0])]->click();
    form->cmdKey[static_cast<std::size_t>(open[1])]->click();
    ASSERT_FALSE(form->Frame2->isEnabledTo(form->picQuiz));

    clickTopic(QStringLiteral("Starting Pair Awareness"));
    const std::array<const char*, 9> captions{"",    "",         "Very Good", "Good", "Average",
                                              "Bad", "Very Bad", "",          ""};
    for (std::size_t i = 0; i < 9; ++i) {
        const bool shown = i >= 2 && i <= 6;
        EXPECT_EQ(!form->lblName[i]->isHidden(), shown) << "label " << i;
        if (shown) {
            EXPECT_EQ(form->lblName[i]->caption(), QString::fromLatin1(captions[i]));
        }
    }
    EXPECT_EQ(markedName(), -1);
    EXPECT_EQ(form->picLabels->BackColor(), 0xE0E0E0);
    EXPECT_EQ(cardsOnShow(), 0u);
    EXPECT_EQ(message(), QStringLiteral("Click [Start] to begin.."));
    EXPECT_EQ(form->lblHeading1->caption(), QStringLiteral("Pre-Flop Pair Value"));
    EXPECT_TRUE(form->Frame2->isEnabledTo(form->picQuiz));
    EXPECT_FALSE(form->cmdClear->isEnabledTo(form->picQuiz));
    EXPECT_TRUE(enabledKeys().empty());
    EXPECT_FALSE(form->cmdStart3A->isHidden());
    EXPECT_FALSE(form->cmdStart3B->isHidden());
    EXPECT_TRUE(form->cmdStart4->isHidden());
}

TEST_F(PairStatesTest, PickingTwoCardsClosesTheKeyboardAndLabelsStayInert) {
    clickTopic(QStringLiteral("Starting Pair Awareness"));
    form->cmdStart3A->click();
    EXPECT_EQ(message(), QStringLiteral("Pick 2 cards from the keyboard.."));
    EXPECT_EQ(enabledKeys().size(), 52u);
    form->cmdKey[7]->click();
    EXPECT_EQ(enabledKeys().size(), 51u);
    EXPECT_EQ(cardsOnShow(), 1u);
    EXPECT_EQ(markedName(), -1);
    form->cmdKey[20]->click();
    EXPECT_TRUE(enabledKeys().empty());
    const int marked = markedName();
    EXPECT_GE(marked, 2);
    const QString result = message();
    EXPECT_TRUE(result.startsWith(QStringLiteral("Preflop rank is ")));
    form->lblName_MouseMove(3);
    for (int label = 2; label <= 6; ++label) {
        pair_best::ClickName(*form, label);
    }
    EXPECT_EQ(markedName(), marked);
    EXPECT_EQ(form->lblName[3]->BorderStyle(), 0) << "no hover border in exercise 1";
    EXPECT_TRUE(recorded.sounds.empty());

    form->cmdClear->click();
    EXPECT_EQ(cardsOnShow(), 0u);
    EXPECT_EQ(enabledKeys().size(), 52u);
    EXPECT_EQ(markedName(), -1);
    EXPECT_EQ(message(), QStringLiteral("Pick 2 cards from the keyboard.."));
}

TEST_F(PairStatesTest, DealtPairsPileUpUntilClearAndTheKeyboardGivesNothing) {
    clickTopic(QStringLiteral("Starting Pair Awareness"));
    form->cmdStart3B->click();
    form->cmdStart3B->click();
    EXPECT_EQ(cardsOnShow(), 4u) << "a new pair is drawn over the old one";
    EXPECT_TRUE(enabledKeys().empty());
    form->cmdKey_Click(Key(pair_best::kClubs, "5"));
    EXPECT_EQ(cardsOnShow(), 4u);
    form->lblName_MouseMove(4);
    EXPECT_EQ(form->lblName[4]->BorderStyle(), 1) << "the open question shows the hover border";
    form->cmdClear->click();
    EXPECT_EQ(cardsOnShow(), 2u);
    EXPECT_TRUE(form->answerPending);
    EXPECT_EQ(message(), QStringLiteral("Click a pair value label from the list.."));
}

TEST_F(PairStatesTest, LeavingKeepsTheRunningExerciseUntilTheNextStart) {
    clickTopic(QStringLiteral("Starting Pair Awareness"));
    form->cmdStart3A->click();
    form->cmdKey[3]->click();  // one card in
    clickTopic(QStringLiteral("Best Hand Recognition"));
    clickTopic(QStringLiteral("Starting Pair Awareness"));
    EXPECT_TRUE(form->modePairPick);
    EXPECT_TRUE(enabledKeys().empty()) << "only a Start button goes on";
    form->cmdStart3A->click();
    form->cmdKey[3]->click();
    EXPECT_EQ(enabledKeys().size(), 51u) << "the half-made pick before leaving is gone";

    // An open question survives the trip; its hidden pair still answers.
    form->cmdStart3B->click();
    const std::int16_t rank = form->hand2Result;
    clickTopic(QStringLiteral("Poker Basics"));
    clickTopic(QStringLiteral("Starting Pair Awareness"));
    EXPECT_TRUE(form->modePairRandom);
    EXPECT_TRUE(form->answerPending);
    for (int label = 2; label <= 6 && form->answerPending; ++label) {
        pair_best::ClickName(*form, label);
    }
    EXPECT_FALSE(form->answerPending);
    EXPECT_EQ(message(), QStringLiteral("Preflop rank is %1%").arg(rank));
}

}  // namespace
