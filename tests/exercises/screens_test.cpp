// The exercise screens through the window, as a user meets them: what the clicks and keys
// reach, where the cards land, what the list and the message line show. The rules themselves
// are tested on the library (tests/drill).
#include <QTest>

#include "support/window_fixture.h"

namespace {

class Exercises : public test_support::WindowTest {
  protected:
    // Opens the topic, scripts a deal (after a steering row that takes the first deal) and
    // clicks the Start button.
    void start(const char* topic, const char* button, std::string_view dealt = {}) {
        startWindow();
        clickTopic(topic);
        random->script.push_back(0.6f);
        test_support::scriptDeal(*random, test_support::keysOf(dealt));
        userClick(child(button));
    }
    QString drawn(const char* surface) const {
        return child<platform::PictureBox>(surface)->drawnItems().join(", ");
    }
    QString message() const { return child<platform::Label>("lblMessage")->caption(); }
    void userClick(QWidget* widget) {
        ASSERT_TRUE(widget->isVisible() && widget->isEnabled())
            << widget->objectName().toStdString();
        QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, widget->rect().center());
    }
    void space(QWidget* widget) {
        widget->setFocus();
        QTest::keyClick(widget, Qt::Key_Space);
    }
};

TEST_F(Exercises, PickedCardsLandAFifthDownTheSurfaceAndTheHandIsNamed) {
    start("Poker Hand Names", "cmdStart1A");
    for (const int k : test_support::keysOf("As Ks Qs Js Ts"))
        userClick(key(k));
    EXPECT_EQ(drawn("picShow"),
              "Ace of Spades, King of Spades, Queen of Spades, Jack of Spades, Ten of Spades");
    const auto* hand = child<platform::PictureBox>("picShow");
    const int top = int(hand->ScaleHeight() / 5 / 15 + 0.5);
    const int left = 38 + 3;  // a fifth of a 71-pixel card from a third of one
    EXPECT_NE(qAlpha(hand->surfacePixel(left, top + 3)), 0) << "no card at its place";
    EXPECT_EQ(qAlpha(hand->surfacePixel(left, top - 3)), 0) << "a card above its place";
    EXPECT_EQ(name(0)->BackColor(), 0) << "the hand's name is not marked";
    EXPECT_TRUE(enabledKeys().empty());

    userClick(child("cmdClear"));
    EXPECT_EQ(qAlpha(hand->surfacePixel(left, top + 3)), 0) << "a card left behind";
    EXPECT_EQ(enabledKeys().size(), 52u);
    EXPECT_EQ(message(), "Pick 5 cards..");
}

// The list answers the keyboard as the mouse: Space on a name is a click on it.
TEST_F(Exercises, ANameAnswersBySpace) {
    start("Poker Hand Names", "cmdStart1B", "9c 9d Kh Ks 4c");
    space(name(6));
    ASSERT_EQ(recorded.sounds.size(), 1u);
    EXPECT_EQ(recorded.sounds[0], appFolder() + "/wavs/yes.wav");
    EXPECT_EQ(name(6)->BackColor(), 0) << "the answer is not marked";
}

// Either surface gives the verdict by a click or by Space.
TEST_F(Exercises, EitherSurfaceGivesTheVerdictOfTheDealtHands) {
    start("Poker Hand Rankings", "cmdStart2B", "9c 9d 9h 4s 4c 2h 7h Jh Qh Kh");
    EXPECT_EQ(message(), "Click the window with the best hand..");
    for (const char* surface : {"picShow", "picLabels"}) {
        for (const bool bySpace : {true, false}) {
            child<platform::Label>("lblMessage")->setCaption("before");
            bySpace ? space(child(surface)) : userClick(child(surface));
            EXPECT_EQ(message(), "Hand (1) wins with a full house ") << surface << bySpace;
        }
    }
    EXPECT_TRUE(recorded.sounds.empty());
}

}  // namespace
