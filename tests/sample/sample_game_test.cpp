// The sample hand through its Next button: a click served inside a scene's wait takes effect
// at once.
#include <QTimer>

#include "support/window_fixture.h"

namespace {

class SampleGame : public test_support::WindowTest {
  protected:
    void openSample() { clickTopic("Sample Poker Game"); }
    platform::CommandButton* next() const { return child<platform::CommandButton>("cmdNext"); }
    QString comment() const { return child<platform::TextBox>("txtComments")->Text(); }
};

// Step 3 played with its real waits; a click comes inside the first of them. A click on Next
// plays step 4 at once, the tree's entry restarts the hand; either way the deal then ends with
// its own comment, and the next Next goes on from where the click left the hand.
TEST_F(SampleGame, AClickDuringTheDealTakesEffectAtOnce) {
    startWindow();
    const std::pair<bool, const char*> rows[] = {{false, "\r\n whaland calls"},
                                                 {true, " A new game starts with the clockwise"}};
    for (const auto& [restart, afterNext] : rows) {
        openSample();
        next()->click();
        bool dealRunning = false;
        platform::seams().waitScale = 1;
        QTimer::singleShot(50, form.get(), [&, restart = restart] {
            dealRunning = child("picPocket(7)")->isHidden();
            restart ? openSample() : next()->click();
        });
        next()->click();
        platform::seams().waitScale = 0;
        EXPECT_TRUE(dealRunning) << "restart " << restart;
        EXPECT_TRUE(comment().startsWith(" After the cards are dealt")) << "the deal ended";
        next()->click();
        EXPECT_TRUE(comment().startsWith(afterNext)) << "restart " << restart;
    }
}

}  // namespace
