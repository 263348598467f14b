// The exercise screens through the window, as a user meets them: what the clicks and keys
// reach, where the cards land, what the list and the message line show. The rules themselves
// are tested on the library (tests/drill).
#include <QTest>

#include "drill/keyboard.h"
#include "support/window_fixture.h"

namespace {

class Exercises : public test_support::WindowTest {
  protected:
    void open(const char* topic) {
        startWindow();
        clickTopic(topic);
    }
    platform::PictureBox* surface(const char* name) const {
        return child<platform::PictureBox>(name);
    }
    QString message() const { return child<platform::Label>("lblMessage")->caption(); }
    bool userClick(QWidget* widget) {
        if (!widget->isVisible() || !widget->isEnabled())
            return false;
        QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, widget->rect().center());
        return true;
    }
    void press(std::string_view cards) {
        for (const int k : test_support::keysOf(cards, drill::keyboard::CardOfKey))
            ASSERT_TRUE(userClick(key(k))) << "key " << k;
    }
    void space(QWidget* widget) {
        widget->setFocus();
        QTest::keyClick(widget, Qt::Key_Space);
    }
};

TEST_F(Exercises, PickedCardsLandAFifthDownTheSurfaceAndTheHandIsNamed) {
    open("Poker Hand Names");
    ASSERT_TRUE(userClick(child("cmdStart1A")));
    press("As Ks Qs Js Ts");
    auto* hand = surface("picShow");
    EXPECT_EQ(hand->drawnItems().join(", "),
              "Ace of Spades, King of Spades, Queen of Spades, Jack of Spades, Ten of Spades");
    const int top = int(hand->ScaleHeight() / 5 / 15 + 0.5);
    const int firstLeft = 38;  // a fifth of a 71-pixel card from a third of one
    EXPECT_NE(qAlpha(hand->surfacePixel(firstLeft + 3, top + 3)), 0) << "no card at its place";
    EXPECT_EQ(qAlpha(hand->surfacePixel(firstLeft + 3, top - 3)), 0) << "a card above its place";
    EXPECT_EQ(name(0)->BackColor(), 0) << "the hand's name is not marked";
    EXPECT_EQ(name(0)->caption(), "Straight Flush");
    EXPECT_TRUE(enabledKeys().empty());

    ASSERT_TRUE(userClick(child("cmdClear")));
    EXPECT_EQ(qAlpha(hand->surfacePixel(firstLeft + 3, top + 3)), 0) << "a card left behind";
    EXPECT_EQ(enabledKeys().size(), 52u);
    EXPECT_EQ(message(), "Pick 5 cards..");
    EXPECT_NE(name(0)->BackColor(), 0) << "the name stays marked";
}

// The list answers the keyboard as the mouse: Space on a name is a click on it.
TEST_F(Exercises, ANameAnswersBySpaceAndTheAnswerSoundsOnce) {
    open("Poker Hand Names");
    random->script.push_back(0.6f);  // the first deal stands
    test_support::scriptDeal(*random,
                             test_support::keysOf("9c 9d Kh Ks 4c", drill::keyboard::CardOfKey));
    ASSERT_TRUE(userClick(child("cmdStart1B")));
    EXPECT_EQ(surface("picShow")->drawnItems().size(), 5);
    form->lblName_MouseMove(5);
    EXPECT_EQ(name(5)->BorderStyle(), 1) << "the open question shows the pointer's border";
    space(name(5));
    space(name(6));
    space(name(6));
    QStringList sounds;
    for (const QString& sound : recorded.sounds)
        sounds << sound.mid(appFolder().size());
    EXPECT_EQ(sounds.join(' '), "/wavs/no.wav /wavs/yes.wav");
    EXPECT_EQ(name(6)->BackColor(), 0) << "the answer is not marked";
}

// Either surface gives the verdict by a click or by Space.
TEST_F(Exercises, EitherSurfaceGivesTheVerdictOfTheDealtHands) {
    open("Poker Hand Rankings");
    random->script.push_back(0.6f);
    test_support::scriptDeal(
        *random, test_support::keysOf("9c 9d 9h 4s 4c 2h 7h Jh Qh Kh", drill::keyboard::CardOfKey));
    ASSERT_TRUE(userClick(child("cmdStart2B")));
    EXPECT_EQ(message(), "Click the window with the best hand..");
    for (const char* which : {"picShow", "picLabels"}) {
        SCOPED_TRACE(which);
        child<platform::Label>("lblMessage")->setCaption("before");
        space(surface(which));
        EXPECT_EQ(message(), "Hand (1) wins with a full house ");
        child<platform::Label>("lblMessage")->setCaption("before");
        userClick(surface(which));
        EXPECT_EQ(message(), "Hand (1) wins with a full house ");
    }
    EXPECT_TRUE(recorded.sounds.empty());
}

TEST_F(Exercises, TheBoardIsDealtAndTwoPicksBringTheAnswer) {
    open("Best Hand Recognition");
    test_support::scriptDeal(*random,
                             test_support::keysOf("Qh 2c Ah 7d Kh", drill::keyboard::CardOfKey));
    ASSERT_TRUE(userClick(child("cmdStart4")));
    EXPECT_EQ(surface("picShow")->drawnItems().join(", "),
              "Queen of Hearts, Two of Clubs, Ace of Hearts, Seven of Diamonds, King of Hearts");
    EXPECT_EQ(enabledKeys().size(), 47u);
    key(enabledKeys().at(0))->click();
    key(enabledKeys().at(0))->click();
    EXPECT_EQ(message(), "Best hand is a Hearts Flush (J10)");
    EXPECT_EQ(surface("picLabels")->drawnItems().size(), 2);
    EXPECT_TRUE(enabledKeys().empty());
}

}  // namespace
