// The Poker Hand Rankings screen: two picked hands and their verdict; two dealt hands and
// the verdict that a click on either surface asks for.
#include "keyboard_helpers.h"
#include "support/window_fixture.h"

namespace {

using exercises_test::pressCards;
using exercises_test::userClick;

class Rankings : public test_support::WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        startWindow();
        form->Timer1->stop();
        clickTopic(QStringLiteral("Poker Hand Rankings"));
    }
    QString message() const { return form->lblMessage->caption(); }
    // Clicks both surfaces; gives the message if both left the same, else a mark of the split.
    QString clickBothSurfaces() {
        form->lblMessage->setCaption(QStringLiteral("before"));
        userClick(form->picShow);
        const QString first = message();
        form->lblMessage->setCaption(QStringLiteral("before"));
        userClick(form->picLabels);
        return message() == first ? first
                                  : QStringLiteral("surfaces differ: ") + first + " / " + message();
    }
};

TEST_F(Rankings, TenPicksGiveTheVerdictAndCloseTheKeyboard) {
    struct Case {
        std::initializer_list<const char*> cards;  // hand 1, then hand 2
        const char* verdict;
    };
    const std::array<Case, 4> cases{{
        {{"Ace of Spades", "Ace of Hearts", "Ace of Clubs", "King of Spades", "King of Hearts",
          "Queen of Clubs", "Queen of Diamonds", "Queen of Spades", "Jack of Clubs",
          "Jack of Diamonds"},
         "Hand (1) wins with aces full of kings"},
        {{"Ace of Clubs", "Two of Diamonds", "Three of Hearts", "Four of Spades", "Five of Clubs",
          "Two of Clubs", "Three of Diamonds", "Four of Hearts", "Five of Spades", "Six of Clubs"},
         "Hand (2) wins with a six high straight"},
        {{"Nine of Clubs", "Nine of Diamonds", "Nine of Hearts", "Four of Spades", "Four of Clubs",
          "Two of Hearts", "Seven of Hearts", "Jack of Hearts", "Queen of Hearts",
          "King of Hearts"},
         "Hand (1) wins with a full house "},
        {{"Six of Clubs", "Six of Diamonds", "Ten of Hearts", "Eight of Spades", "Three of Clubs",
          "Six of Hearts", "Six of Spades", "Ten of Clubs", "Eight of Diamonds",
          "Three of Diamonds"},
         "There is a tie"},
    }};
    EXPECT_EQ(clickBothSurfaces(), "before") << "a surface answered before Start";
    for (const auto& c : cases) {
        SCOPED_TRACE(c.verdict);
        ASSERT_TRUE(userClick(form->cmdStart2A));
        pressCards(*form, c.cards);
        EXPECT_EQ(message(), c.verdict);
        EXPECT_TRUE(form->messageBlinking);
        EXPECT_TRUE(enabledKeys().empty());
        EXPECT_EQ(form->picLabels->drawnItems().size(), 5);
        EXPECT_EQ(clickBothSurfaces(), "before") << "a surface answered in exercise 1";
    }
}

TEST_F(Rankings, BothSurfacesGiveTheSameVerdictAgainAndAgain) {
    for (int deal = 0; deal < 25; ++deal) {
        ASSERT_TRUE(userClick(form->cmdStart2B));
        ASSERT_EQ(message(), "Click the window with the best hand..");
        ASSERT_FALSE(form->messageBlinking);
        const QString verdict = clickBothSurfaces();
        EXPECT_TRUE(form->messageBlinking);
        EXPECT_EQ(clickBothSurfaces(), verdict) << "a second click";
        // The lower category wins; equal categories are settled card by card.
        const QString winner = form->hand1Result < form->hand2Result   ? "Hand (1) wins with a "
                               : form->hand1Result > form->hand2Result ? "Hand (2) wins with a "
                                                                       : "";
        EXPECT_TRUE(verdict.startsWith(winner) &&
                    (verdict.startsWith("Hand (") || verdict == "There is a tie"))
            << verdict.toStdString() << " for categories " << form->hand1Result << ", "
            << form->hand2Result;
    }
    EXPECT_TRUE(form->answerPending) << "a verdict closed the question";
    EXPECT_TRUE(recorded.sounds.empty());
}

TEST_F(Rankings, KeysLeftOpenFromExerciseOneDoNothingInExerciseTwo) {
    form->cmdStart2A_Click();
    pressCards(*form, {"Two of Clubs", "Three of Clubs"});
    ASSERT_TRUE(userClick(form->cmdStart2B));
    const auto open = enabledKeys();
    ASSERT_EQ(open.size(), 50u);
    const QStringList firstHand = form->picShow->drawnItems();
    const QStringList secondHand = form->picLabels->drawnItems();
    pressCards(*form, {"Ace of Hearts", "King of Diamonds", "Ten of Spades"});
    EXPECT_EQ(enabledKeys(), open);
    EXPECT_EQ(form->picShow->drawnItems(), firstHand);
    EXPECT_EQ(form->picLabels->drawnItems(), secondHand);
    EXPECT_EQ(form->cardCount, 2);
    EXPECT_EQ(message(), "Click the window with the best hand..");
}

}  // namespace
