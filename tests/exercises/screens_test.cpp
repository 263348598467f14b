// The exercise screens through the window, as a user meets them: what the clicks and keys
// reach, where the cards land, what the list and the message line show. The rules themselves
// are tested on the library (tests/drill).
#include <QTest>

#include "drill/keyboard.h"
#include "support/window_fixture.h"

void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace {

class Exercises : public test_support::WindowTest {
  protected:
    void open(const char* topic) {
        startWindow();
        child<QTimer>("Timer1")->stop();  // the message line's clock ticks only when asked
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
    EXPECT_EQ(enabledKeys().size(), 52u);
    press("As Ks Qs Js Ts");
    auto* hand = surface("picShow");
    EXPECT_EQ(hand->drawnItems().join(", "),
              "Ace of Spades, King of Spades, Queen of Spades, Jack of Spades, Ten of Spades");
    const int top = int(hand->ScaleHeight() / 5 / 15 + 0.5);
    const int firstLeft = 38;  // a fifth of a 71-pixel card from a third of one
    EXPECT_NE(qAlpha(hand->surfacePixel(firstLeft + 3, top + 3)), 0) << "no card at its place";
    EXPECT_EQ(qAlpha(hand->surfacePixel(firstLeft + 3, top - 3)), 0) << "a card above its place";
    EXPECT_EQ(markedName(), 0);
    EXPECT_EQ(name(0)->caption(), "Straight Flush");
    EXPECT_TRUE(enabledKeys().empty());

    ASSERT_TRUE(userClick(child("cmdClear")));
    EXPECT_TRUE(hand->drawnItems().isEmpty());
    EXPECT_EQ(qAlpha(hand->surfacePixel(firstLeft + 3, top + 3)), 0) << "a card left behind";
    EXPECT_EQ(enabledKeys().size(), 52u);
    EXPECT_EQ(message(), "Pick 5 cards..");
    EXPECT_EQ(markedName(), -1);
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
    EXPECT_EQ(markedName(), 6);
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
    EXPECT_TRUE(child("cmdClear")->isEnabled());
}

// Every screen sets itself up whole, whatever the one before left.
TEST_F(Exercises, EachScreenOpensCleanWithItsOwnStartsAndSurfaceNames) {
    open("Best Hand Recognition");
    userClick(child("cmdStart4"));
    key(enabledKeys().at(0))->click();
    const std::array<std::array<const char*, 3>, 4> screens{{
        {"Poker Hand Names", "cmdStart1A cmdStart1B", "Hand/Hand names"},
        {"Poker Hand Rankings", "cmdStart2A cmdStart2B", "First hand/Second hand"},
        {"Starting Pair Awareness", "cmdStart3A cmdStart3B", "Two cards/Pair values"},
        {"Best Hand Recognition", "cmdStart4", "Board/Your two cards"},
    }};
    for (const auto& [topic, starts, surfaces] : screens) {
        SCOPED_TRACE(topic);
        clickTopic(topic);
        QStringList shown;
        for (const char* button : {"cmdStart1A", "cmdStart1B", "cmdStart2A", "cmdStart2B",
                                   "cmdStart3A", "cmdStart3B", "cmdStart4"})
            if (child(button)->isVisible())
                shown << button;
        EXPECT_EQ(shown.join(' '), starts);
        EXPECT_EQ(
            surface("picShow")->accessibleName() + '/' + surface("picLabels")->accessibleName(),
            surfaces);
        EXPECT_TRUE(enabledKeys().empty());
        EXPECT_FALSE(child("cmdClear")->isEnabled());
        EXPECT_TRUE(surface("picShow")->drawnItems().isEmpty());
        EXPECT_EQ(markedName(), -1);
    }
}

TEST_F(Exercises, TheClockBlinksTheMessageAndAStartStopsIt) {
    open("Poker Hand Rankings");
    auto* line = child<platform::Label>("lblMessage");
    std::string seen;
    for (int tick = 0; tick < 10; ++tick) {
        form->Timer1_Timer();
        seen += line->ForeColor() == 0 ? '-' : '#';
    }
    EXPECT_EQ(seen, "###-####-#");
    userClick(child("cmdStart2A"));
    form->Timer1_Timer();
    EXPECT_EQ(line->ForeColor(), 0xFFFFFF);
}

}  // namespace
