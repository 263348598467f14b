// The sample hand through its Next button: it runs to its end, replays, and a click served
// inside a scene's wait takes effect at once.
#include <QTimer>

#include "support/window_fixture.h"

namespace {

class SampleGame : public test_support::WindowTest {
  protected:
    void openSample() { clickTopic("Sample Poker Game"); }
    platform::CommandButton* next() const { return child<platform::CommandButton>("cmdNext"); }
    QString comment() const { return child<platform::TextBox>("txtComments")->Text(); }
};

TEST_F(SampleGame, TheHandRunsToItsEndOffersTheRealGameAndReplays) {
    startWindow();
    openSample();
    auto* link = child<platform::Label>("lblEnough");
    for (int round = 0; round < 2; ++round) {  // the first hand, then its replay
        EXPECT_TRUE(comment().startsWith(" Here is a sample commented demonstration")) << round;
        EXPECT_TRUE(link->isHidden());
        int clicks = 0;
        for (; next()->caption() == "Next" && clicks < 40; ++clicks)
            next()->click();
        EXPECT_EQ(clicks, 33);
        EXPECT_FALSE(link->isHidden());
        next()->click();
    }
    // The link out shows its whole caption.
    EXPECT_GE(link->width(), link->fontMetrics().horizontalAdvance(link->caption()));
}

// Step 3 played with its real waits; a click comes inside the first of them. A click on Next
// plays step 4 at once and the deal then ends over it; the tree's entry restarts the hand.
TEST_F(SampleGame, AClickDuringTheDealTakesEffectAtOnce) {
    startWindow();
    for (const bool restart : {false, true}) {
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
        EXPECT_TRUE(dealRunning) << "restart " << restart;
        if (!restart) {  // step 4 was played inside; the deal then wrote its own comment over it
            EXPECT_TRUE(comment().startsWith(" After the cards are dealt"));
            next()->click();
            EXPECT_EQ(comment(), "\r\n whaland calls") << "step 5 comes next";
        } else {  // restarted, then the deal ended
            next()->click();
            EXPECT_TRUE(comment().startsWith(" A new game starts with the clockwise"));
        }
    }
}

}  // namespace
