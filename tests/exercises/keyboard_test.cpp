// The card keyboard under the two hand exercises: picking by the card a key says, the fan
// of cards on a surface, Clear, the resize that closes the keyboard, the blinking line.
#include <optional>

#include "keyboard_helpers.h"
#include "support/window_fixture.h"

namespace {

using exercises_test::pressCards;

class Keyboard : public test_support::WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        startWindow();
        form->Timer1->stop();
        clickTopic(QStringLiteral("Poker Hand Names"));
    }

    // Presses a key and gives back the top left corner of what changed on the surface.
    std::optional<QPoint> pressAndLocate(const char* cardName,
                                         const platform::PictureBox& surface) {
        const int width = surface.width() - 2 * surface.borderPixels();
        const int height = surface.height() - 2 * surface.borderPixels();
        std::vector<QRgb> before;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x)
                before.push_back(surface.surfacePixel(x, y));
        }
        pressCards(*form, {cardName});
        std::optional<QPoint> corner;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                if (surface.surfacePixel(x, y) == before[static_cast<std::size_t>(y * width + x)])
                    continue;
                corner = QPoint(std::min(x, corner ? corner->x() : x),
                                std::min(y, corner ? corner->y() : y));
            }
        }
        return corner;
    }
};

TEST_F(Keyboard, KeysFoundByTheirSpokenNamesPickARoyalStraightFlush) {
    ASSERT_TRUE(exercises_test::userClick(form->cmdStart1A));
    ASSERT_EQ(enabledKeys().size(), 52u);
    pressCards(*form, {"Ace of Spades", "King of Spades", "Queen of Spades", "Jack of Spades",
                       "Ten of Spades"});
    EXPECT_EQ(markedName(), 0);
    EXPECT_EQ(form->lblName[0]->caption(), "Straight Flush");
    EXPECT_EQ(form->picShow->accessibleDescription(),
              "Ace of Spades, King of Spades, Queen of Spades, Jack of Spades, Ten of Spades");
    // The pick is complete: the keyboard closes and the message stays the Start's.
    EXPECT_TRUE(enabledKeys().empty());
    EXPECT_EQ(form->cardCount, 0);
    EXPECT_EQ(form->lblMessage->caption(), "Pick 5 cards from the keyboard..");
}

TEST_F(Keyboard, CardsFanOutAFifthOfACardApartAndTheSecondHandStartsAgain) {
    ASSERT_EQ(form->cWidth, 71);
    const int top = static_cast<int>(std::nearbyint(form->picShow->ScaleHeight() / 5 / 15));
    form->cmdStart1A_Click();
    const std::array<const char*, 5> cards{"Two of Hearts", "Nine of Clubs", "Nine of Diamonds",
                                           "Queen of Spades", "Ace of Hearts"};
    const std::array<int, 5> lefts{38, 52, 66, 80, 94};
    for (std::size_t i = 0; i < cards.size(); ++i) {
        EXPECT_EQ(pressAndLocate(cards[i], *form->picShow), QPoint(lefts[i], top)) << cards[i];
    }
    EXPECT_EQ(markedName(), 7);  // one pair

    // In a ranking pick the sixth card opens the second surface at the first card's place.
    clickTopic(QStringLiteral("Poker Hand Rankings"));
    form->cmdStart2A_Click();
    pressCards(*form, {"Two of Clubs", "Three of Clubs", "Four of Clubs", "Five of Clubs",
                       "Seven of Diamonds"});
    EXPECT_EQ(pressAndLocate("Two of Hearts", *form->picLabels), QPoint(38, top));
    EXPECT_EQ(pressAndLocate("Three of Hearts", *form->picLabels), QPoint(52, top));
    EXPECT_EQ(form->picShow->drawnItems().size(), 5);
}

TEST_F(Keyboard, ClearAfterThreeCardsReopensTheKeyboardOnAnEmptySurface) {
    form->cmdStart1A_Click();
    pressCards(*form, {"Two of Clubs", "Two of Diamonds", "Two of Hearts"});
    ASSERT_TRUE(exercises_test::userClick(form->cmdClear));
    EXPECT_TRUE(form->picShow->drawnItems().isEmpty());
    EXPECT_EQ(qAlpha(form->picShow->surfacePixel(60, 60)), 0) << "a card is left on the surface";
    EXPECT_EQ(enabledKeys().size(), 52u);
    EXPECT_EQ(form->lblMessage->caption(), "Pick 5 cards..");
    EXPECT_EQ(form->cardCount, 0);
    // A fresh pick of five: the three cards before Clear play no part.
    pressCards(*form, {"Five of Hearts", "Six of Hearts", "Seven of Hearts", "Eight of Hearts",
                       "Nine of Hearts"});
    EXPECT_EQ(markedName(), 0);
}

TEST_F(Keyboard, ResizingInTheMiddleOfAPickClosesTheKeyboardButKeepsTheExercise) {
    struct Case {
        const char* screen;
        void (frmMain::*start)();
        bool frmMain::*mode;
        int picks;
    };
    const std::array<Case, 2> cases{
        {{"Poker Hand Names", &frmMain::cmdStart1A_Click, &frmMain::modeNamesPick, 3},
         {"Poker Hand Rankings", &frmMain::cmdStart2A_Click, &frmMain::modeRanksPick, 7}}};
    int grow = 0;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.screen);
        clickTopic(QString::fromLatin1(c.screen));
        (form.get()->*c.start)();
        for (int i = 0; i < c.picks; ++i)
            ASSERT_TRUE(exercises_test::userClick(form->cmdKey[static_cast<std::size_t>(i * 7)]));
        ASSERT_TRUE(form->cmdClear->isEnabledTo(form->picQuiz));

        grow += 16;
        form->resize(form->width() + grow, form->height() + grow / 2);
        serveEvents();
        EXPECT_TRUE(enabledKeys().empty());
        EXPECT_FALSE(form->cmdClear->isEnabledTo(form->picQuiz));
        EXPECT_EQ(form->lblMessage->caption(), "Click [Start] to begin...");
        EXPECT_TRUE(form->messageBlinking);
        EXPECT_TRUE(form.get()->*c.mode);
        EXPECT_EQ(form->cardCount, c.picks);
    }
}

TEST_F(Keyboard, BlinkingMessageShowsForFourTicksAndHidesForOne) {
    form->lblMessage->setForeColor(0xFFFFFF);
    form->blinkTicks = 0;
    form->messageBlinking = false;
    for (int i = 0; i < 6; ++i)
        form->Timer1_Timer();
    EXPECT_EQ(form->lblMessage->ForeColor(), 0xFFFFFF)
        << "ticks without blinking changed the message";

    form->messageBlinking = true;
    std::string seen;
    for (int tick = 0; tick < 15; ++tick) {
        form->Timer1_Timer();
        seen += form->lblMessage->ForeColor() == 0 ? '-' : '#';
    }
    EXPECT_EQ(seen, "###-####-####-#");
    // A Start stops the blinking with the message shown.
    form->cmdStart1A_Click();
    EXPECT_FALSE(form->messageBlinking);
    EXPECT_EQ(form->lblMessage->ForeColor(), 0xFFFFFF);
}

}  // namespace
