// The sample hand through its Next button: it runs to its end, replays, and a click served
// inside a scene's wait takes effect at once.
#include <QTimer>
#include <string>

#include "support/window_fixture.h"

namespace {

class SampleGame : public test_support::WindowTest {
  protected:
    void openSample() { clickTopic("Sample Poker Game"); }
    platform::CommandButton* next() const { return child<platform::CommandButton>("cmdNext"); }
    QString comment() const { return child<platform::TextBox>("txtComments")->Text(); }
    bool buttonHome() const {
        const auto* dealer = child<platform::PictureBox>("picDealer");
        return dealer->Left() == 7905 && dealer->Top() == 4080;
    }
};

TEST_F(SampleGame, TheHandRunsToItsEndOffersTheRealGameAndReplays) {
    startWindow();
    openSample();
    auto* link = child<platform::Label>("lblEnough");
    for (int round = 0; round < 2; ++round) {  // the first hand, then its replay
        SCOPED_TRACE(round);
        EXPECT_TRUE(buttonHome());
        EXPECT_TRUE(comment().startsWith(" Here is a sample commented demonstration"));
        int clicks = 0;
        while (next()->caption() == "Next" && clicks < 40) {
            EXPECT_TRUE(link->isHidden());
            next()->click();
            ++clicks;
        }
        EXPECT_EQ(clicks, 33);
        EXPECT_EQ(next()->caption(), "Replay");
        EXPECT_FALSE(link->isHidden());
        EXPECT_TRUE(comment().startsWith("Ready to play poker online ? \r\n"));
        next()->click();
    }
    next()->click();
    next()->click();  // the deal slides the button, the link out shows its whole caption
    const auto* dealer = child<platform::PictureBox>("picDealer");
    EXPECT_TRUE(dealer->Left() == 6605 && dealer->Top() == 5380);
    EXPECT_GE(link->width(), link->fontMetrics().horizontalAdvance(link->caption()));
    EXPECT_LE(link->Left() + link->Width(), child<platform::PictureBox>("picDemo")->Width());
}

// Step 3 played with its real waits; a click comes inside the first of them. A click on Next
// plays step 4 at once and the deal then ends over it; the tree's entry restarts the hand.
TEST_F(SampleGame, AClickDuringTheDealTakesEffectAtOnce) {
    startWindow();
    for (const bool restart : {false, true}) {
        SCOPED_TRACE(restart ? "the tree's entry" : "Next");
        openSample();
        next()->click();
        bool dealRunning = false;
        platform::seams().waitScale = 1;
        QTimer::singleShot(50, form.get(), [&] {
            dealRunning = child("picPocket(7)")->isHidden();
            restart ? openSample() : next()->click();
        });
        next()->click();
        platform::seams().waitScale = 0;
        EXPECT_TRUE(dealRunning);
        if (!restart) {  // step 4 was played inside; the deal then wrote its own comment over it
            EXPECT_TRUE(comment().startsWith(" After the cards are dealt"));
            next()->click();
            EXPECT_EQ(comment(), "\r\n whaland calls") << "step 5 comes next";
        } else {  // restarted, then the deal ended
            EXPECT_EQ(next()->caption(), "Next");
            next()->click();
            EXPECT_TRUE(comment().startsWith(" A new game starts with the clockwise"));
        }
        openSample();
        EXPECT_TRUE(buttonHome());
    }
}

}  // namespace
