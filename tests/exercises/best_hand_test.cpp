// Best Hand Recognition through the window: the screen and its states, chosen boards and the
// order of the reader's questions, and the redeal of a board with three of one value.
#include "pair_best_support.h"
#include "support/window_fixture.h"

namespace {

using pair_best::kClubs;
using pair_best::kDiamonds;
using pair_best::Key;
using pair_best::kHearts;
using pair_best::kSpades;

class BestHandTest : public test_support::WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        startWindow();
        clickTopic(QStringLiteral("Best Hand Recognition"));
    }
    void scriptBoard(const std::array<int, 5>& board) {
        for (const float u : pair_best::ScriptDeal(board)) {
            random->script.push_back(u);
        }
    }
    void pickFirstTwoOpenKeys() {
        const std::vector<int> open = enabledKeys();
        ASSERT_GE(open.size(), 2u);
        form->cmdKey[static_cast<std::size_t>(open[0])]->click();
        form->cmdKey[static_cast<std::size_t>(open[1])]->click();
    }
    std::vector<int> disabledKeys() const {
        std::vector<int> keys;
        const std::vector<int> open = enabledKeys();
        for (int key = 0; key < 52; ++key) {
            if (std::find(open.begin(), open.end(), key) == open.end()) {
                keys.push_back(key);
            }
        }
        return keys;
    }
    QString message() const { return form->lblMessage->caption(); }
};

TEST_F(BestHandTest, ScreenDealPicksAndAnswerFollowOneAnother) {
    for (std::size_t i = 0; i < 9; ++i) {
        EXPECT_TRUE(form->lblName[i]->isHidden());
    }
    EXPECT_EQ(form->picLabels->BackColor(), 0x008000);
    EXPECT_EQ(form->lblEx1->caption(),
              QStringLiteral("Pick the best pocket pair to the board. (full house or less)"));
    EXPECT_EQ(form->lblEx2->caption(), QString());
    EXPECT_EQ(message(), QStringLiteral("Click [Start] to begin..."));
    EXPECT_TRUE(form->messageBlinking);
    EXPECT_FALSE(form->Frame2->isEnabledTo(form->picQuiz));
    EXPECT_TRUE(form->cmdStart1B->isHidden() && form->cmdStart2B->isHidden() &&
                form->cmdStart3B->isHidden());
    EXPECT_FALSE(form->cmdStart4->isHidden());
    EXPECT_TRUE(enabledKeys().empty());

    form->cmdStart4->click();
    EXPECT_EQ(enabledKeys().size(), 47u);
    EXPECT_EQ(message(), QStringLiteral("Select the best pocket pair (full house or less)"));
    EXPECT_FALSE(form->cmdClear->isEnabledTo(form->picQuiz)) << "Clear comes with the answer";
    EXPECT_TRUE(form->messageBlinking) << "the deal leaves the blinking alone";

    // One pick, then a new deal: the pick is gone and two new picks are needed.
    form->cmdKey[static_cast<std::size_t>(enabledKeys()[0])]->click();
    EXPECT_EQ(form->picLabels->drawnItems().size(), 1u);
    form->cmdStart4->click();
    EXPECT_TRUE(form->picLabels->drawnItems().empty());
    form->cmdKey[static_cast<std::size_t>(enabledKeys()[0])]->click();
    EXPECT_EQ(enabledKeys().size(), 46u);
    EXPECT_EQ(message(), QStringLiteral("Select the best pocket pair (full house or less)"));
    form->cmdKey[static_cast<std::size_t>(enabledKeys()[0])]->click();
    EXPECT_TRUE(enabledKeys().empty());
    EXPECT_EQ(form->picLabels->drawnItems().size(), 2u);
    EXPECT_TRUE(form->cmdClear->isEnabledTo(form->picQuiz));
    EXPECT_EQ(message(),
              pair_best::AnswerForBoard(pair_best::KeysOnSurface(*form, *form->picShow)));

    form->cmdClear->click();
    EXPECT_FALSE(form->messageBlinking);
    EXPECT_EQ(enabledKeys().size(), 47u);
    EXPECT_TRUE(form->picLabels->drawnItems().empty());
    EXPECT_EQ(form->picShow->drawnItems().size(), 5u);
}

struct BoardCase {
    const char* shape;
    std::array<int, 5> board;
    const char* answer;
};

TEST_F(BestHandTest, ReaderAsksFullHouseThenFlushThenStraightThenThreeOfAKind) {
    const std::array<BoardCase, 9> cases{{
        {"two pair, three clubs",
         {Key(kClubs, "3"), Key(kClubs, "9"), Key(kDiamonds, "9"), Key(kClubs, "K"),
          Key(kHearts, "K")},
         "Any K makes a full house"},
        {"one pair, three hearts",
         {Key(kHearts, "2"), Key(kSpades, "2"), Key(kHearts, "5"), Key(kHearts, "9"),
          Key(kDiamonds, "10")},
         "Best full house is a (1010)"},
        {"no pair, three clubs",
         {Key(kClubs, "3"), Key(kClubs, "7"), Key(kDiamonds, "9"), Key(kClubs, "K"),
          Key(kSpades, "A")},
         "Best hand is a Club Flush (AQ)"},
        {"three clubs on a straight draw",
         {Key(kClubs, "5"), Key(kClubs, "6"), Key(kClubs, "7"), Key(kDiamonds, "9"),
          Key(kHearts, "K")},
         "Best hand is a Club Flush (AK)"},
        {"five spades in a row",
         {Key(kSpades, "2"), Key(kSpades, "3"), Key(kSpades, "4"), Key(kSpades, "5"),
          Key(kSpades, "6")},
         "Best hand is a Spade Flush (AK)"},
        {"top hearts",
         {Key(kHearts, "Q"), Key(kClubs, "2"), Key(kHearts, "A"), Key(kDiamonds, "7"),
          Key(kHearts, "K")},
         "Best hand is a Hearts Flush (J10)"},
        {"four diamonds from the ace down",
         {Key(kDiamonds, "A"), Key(kDiamonds, "K"), Key(kDiamonds, "Q"), Key(kDiamonds, "J"),
          Key(kClubs, "4")},
         "Best hand is a Diamond Flush (10)"},
        {"straight, two of a suit",
         {Key(kClubs, "2"), Key(kClubs, "5"), Key(kDiamonds, "6"), Key(kDiamonds, "7"),
          Key(kSpades, "K")},
         "Best Hand is a Straight (56789)"},
        {"nothing",
         {Key(kClubs, "2"), Key(kDiamonds, "5"), Key(kSpades, "8"), Key(kHearts, "J"),
          Key(kClubs, "K")},
         "Best Hand is 3 of a Kind (KKK)"},
    }};
    for (const BoardCase& c : cases) {
        SCOPED_TRACE(c.shape);
        scriptBoard(c.board);
        form->cmdStart4->click();
        std::vector<int> board(c.board.begin(), c.board.end());
        ASSERT_EQ(pair_best::KeysOnSurface(*form, *form->picShow), board);
        std::sort(board.begin(), board.end());
        EXPECT_EQ(disabledKeys(), board);
        pickFirstTwoOpenKeys();
        EXPECT_EQ(message(), QString::fromLatin1(c.answer));
    }
}

TEST_F(BestHandTest, BoardWithThreeOfAValueIsShuffledAgainAsItLies) {
    const std::array<int, 5> threeKings{Key(kClubs, "K"), Key(kDiamonds, "K"), Key(kSpades, "K"),
                                        Key(kClubs, "2"), Key(kHearts, "3")};
    cards::Deck deck{};
    for (std::size_t i = 0; i < deck.size(); ++i) {
        deck[i] = static_cast<std::int16_t>(i);
    }
    for (const float u : pair_best::ScriptPlacing(deck, threeKings)) {
        random->script.push_back(u);
    }
    // The second pass only brings the card of place 10 to the top: no refill before it.
    const int fromPlaceTen = deck[10];
    ASSERT_NE(pair_best::CaptionOfKey(fromPlaceTen), "K");
    const std::array<int, 1> top{fromPlaceTen};
    for (const float u : pair_best::ScriptPlacing(deck, top)) {
        random->script.push_back(u);
    }
    const int reseedsBefore = random->reseeds;

    form->cmdStart4->click();
    EXPECT_EQ(random->reseeds - reseedsBefore, 2) << "one reseed for each pass";
    EXPECT_EQ(pair_best::KeysOnSurface(*form, *form->picShow),
              (std::vector<int>{fromPlaceTen, threeKings[1], threeKings[2], threeKings[3],
                                threeKings[4]}));
    EXPECT_EQ(enabledKeys().size(), 47u);
}

TEST_F(BestHandTest, ComingBackFromAnotherScreenNeedsANewDeal) {
    form->cmdStart4->click();
    form->cmdKey[static_cast<std::size_t>(enabledKeys()[0])]->click();
    clickTopic(QStringLiteral("Starting Pair Awareness"));
    clickTopic(QStringLiteral("Best Hand Recognition"));
    EXPECT_TRUE(form->modeBestHand) << "leaving changes no mode";
    EXPECT_TRUE(enabledKeys().empty());
    EXPECT_FALSE(form->cmdClear->isEnabledTo(form->picQuiz));
    EXPECT_TRUE(form->picShow->drawnItems().empty());
    form->cmdStart4->click();
    form->cmdKey[static_cast<std::size_t>(enabledKeys()[0])]->click();
    EXPECT_EQ(enabledKeys().size(), 46u) << "the pick made before leaving does not count";
}

}  // namespace
