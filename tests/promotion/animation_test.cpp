// The promotion window's animation, watched from inside as it runs after the main window
// is closed.
#include <gmock/gmock.h>

#include "promotion_support.h"

namespace {

using promotion_test::AnimationLog;
using promotion_test::Entry;
using promotion_test::kSpreadLefts;
using promotion_test::kStackLefts;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

class AnimationTest : public test_support::WindowTest {
  protected:
    // Closes the main window; the animation runs inside that call until the promotion
    // window is closed by `act` (or the program otherwise ends).
    void closeMainWindow() {
        log.onEntry = [this](const Entry& entry, frmPacific& window) {
            if (act(entry)) {
                closedAt = log.entries.size();
                window.close();
            }
        };
        form->close();
    }

    AnimationLog log;
    std::function<bool(const Entry&)> act;
    std::size_t closedAt = 0;  // entries logged up to the close
};

TEST_F(AnimationTest, OnePassDealsSpreadsTheBoardAndStacksItAgain) {
    startWindow();
    bool secondPass = false;
    act = [&](const Entry& entry) {
        secondPass = secondPass || !entry.shown;
        return secondPass && entry.shown && entry.control == "Picture2(0)";
    };
    closeMainWindow();

    // The front player's cards turn up once the eighth seat has its cards, before the ninth.
    EXPECT_THAT(
        log.shownBeforeFirstHide(),
        ElementsAre("Picture2(0)", "Picture2(1)", "Picture2(2)", "Picture2(3)", "Picture2(4)",
                    "Picture2(5)", "Picture2(6)", "Picture2(7)", "Picture3", "Picture2(8)",
                    "Picture1(0)", "Picture1(1)", "Picture1(2)", "Picture1(3)", "Picture1(4)"));
    const Entry* clearing = log.first("Picture2(0)", false);
    ASSERT_NE(clearing, nullptr);
    EXPECT_THAT(clearing->boardLefts, ElementsAreArray(kSpreadLefts)) << "spread board";
    const Entry* nextDeal = log.first("Picture2(0)", true, log.indexOf(clearing));
    ASSERT_NE(nextDeal, nullptr);
    EXPECT_THAT(nextDeal->boardLefts, ElementsAreArray(kStackLefts)) << "back on the stack";
    EXPECT_TRUE(log.entries[log.indexOf(nextDeal) - 1].tableClear);
    EXPECT_EQ(log.entries.size(), closedAt) << "nothing moves once the window is closed";
    EXPECT_THAT(recorded.ends, ElementsAre(0));
}

TEST_F(AnimationTest, ClosingBeforeTheSlideLeavesTheBoardStacked) {
    startWindow();
    act = [](const Entry& entry) { return entry.control == "Picture1(4)"; };
    closeMainWindow();

    const frmPacific* window = form->promotionWindow();
    ASSERT_NE(window, nullptr);
    for (std::size_t i = 0; i < kStackLefts.size(); ++i) {
        EXPECT_EQ(window->Picture1.at(i)->Left(), kStackLefts[i]) << "Picture1(" << i << ")";
    }
    EXPECT_EQ(log.entries.size(), closedAt);
    EXPECT_THAT(recorded.ends, ElementsAre(0));
}

TEST_F(AnimationTest, ClosingDuringAWaitEndsItAtOnce) {
    startWindow();
    promotion_test::StillClock clock;
    // The first wait of the animation never ends on its own: only the close can end it.
    QTimer::singleShot(0, [this] {
        QTimer::singleShot(0, [this] { form->promotionWindow()->close(); });
        form->close();
    });
    serveEvents();

    EXPECT_FALSE(clock.watchdogFired) << "a wait ran on after the window closed";
    ASSERT_NE(form->promotionWindow(), nullptr);
    EXPECT_TRUE(form->promotionWindow()->isEnd);
    EXPECT_THAT(recorded.ends, ElementsAre(0));
}

TEST_F(AnimationTest, RaisingIsEndStopsARunningWait) {
    startWindow();
    frmPacific2 window(*form);
    promotion_test::StillClock clock;
    QTimer::singleShot(0, [&window] { window.isEnd = true; });
    window.shortDelay(60'000);
    EXPECT_FALSE(clock.watchdogFired);

    // Once raised, no wait starts at all, and the animation loop returns at once.
    window.shortDelay(60'000);
    window.Command1_Click();
    EXPECT_FALSE(clock.watchdogFired);
    EXPECT_TRUE(recorded.ends.empty()) << "raising the flag alone ends nothing";
}

}  // namespace
