// The ways out of the program: closing the main window opens the promotion window once,
// closing that or clicking its button ends the program, and the link at the end of the
// sample game leaves at once with no promotion.
#include <gmock/gmock.h>

#include <QCloseEvent>
#include <QTest>

#include "promotion/open_url.h"
#include "promotion_support.h"

namespace {

using promotion_test::AnimationLog;
using promotion_test::Entry;
using promotion_test::promotionWindowCount;
using ::testing::ElementsAre;

const QString kSchool = QStringLiteral(TABLEWRIGHT_SCHOOL_URL);
const QString kRoom = QStringLiteral(TABLEWRIGHT_ROOM_URL);

// How the main window gets closed: by the program, by the window system (close box,
// system menu, window manager), or by the session ending (every window is asked to close).
enum class CloseWay { Program, WindowSystem, SessionEnd };

void closeMain(frmMain& form, CloseWay way) {
    switch (way) {
        case CloseWay::Program:
            form.close();
            break;
        case CloseWay::WindowSystem: {
            QCloseEvent event;
            QCoreApplication::sendEvent(form.windowHandle(), &event);
            break;
        }
        case CloseWay::SessionEnd:
            QApplication::closeAllWindows();
            break;
    }
}

class WaysOutTest : public test_support::WindowTest {
  protected:
    AnimationLog log;
};

class CloseWaysTest : public WaysOutTest, public ::testing::WithParamInterface<CloseWay> {};

TEST_P(CloseWaysTest, ClosingTheMainWindowOpensOnePromotionWindow) {
    startWindow();
    int windowsSeen = -1;
    bool mainHidden = false;
    QString caption;
    log.onEntry = [&](const Entry&, frmPacific& window) {
        windowsSeen = promotionWindowCount();
        mainHidden = form->isHidden();
        caption = window.windowTitle();
        window.close();
    };
    closeMain(*form, GetParam());

    EXPECT_EQ(windowsSeen, 1);
    ASSERT_NE(qobject_cast<frmPacific2*>(form->promotionWindow()), nullptr);
    EXPECT_EQ(caption, QStringLiteral("Play Poker Online for FREE ... Real People Real Fun"));
    EXPECT_TRUE(mainHidden) << "the main window makes way for the promotion";
    EXPECT_THAT(recorded.ends, ElementsAre(0));
    EXPECT_TRUE(recorded.addresses.empty());
}

std::string closeWayName(const ::testing::TestParamInfo<CloseWay>& info) {
    switch (info.param) {
        case CloseWay::Program:
            return "Program";
        case CloseWay::WindowSystem:
            return "WindowSystem";
        case CloseWay::SessionEnd:
            return "SessionEnd";
    }
    return "Unknown";
}

INSTANTIATE_TEST_SUITE_P(EveryWay, CloseWaysTest,
                         ::testing::Values(CloseWay::Program, CloseWay::WindowSystem,
                                           CloseWay::SessionEnd),
                         closeWayName);

TEST_F(WaysOutTest, ASecondCloseWhileThePromotionRunsStartsNothing) {
    startWindow();
    const frmPacific* first = nullptr;
    bool secondAnimation = false;
    std::size_t hidesBeforeClose = 0;
    log.onEntry = [&](const Entry& entry, frmPacific& window) {
        if (first == nullptr)
            first = &window;
        if (&window != first) {
            secondAnimation = true;
            window.close();
            return;
        }
        if (entry.control == "Picture2(3)" && entry.shown) {
            form->close();
            closeMain(*form, CloseWay::WindowSystem);
            form->Form_QueryUnload();
        }
        if (entry.control == "Picture2(6)" && entry.shown) {
            for (const Entry& seen : log.entries)
                hidesBeforeClose += seen.shown ? 0 : 1;
            window.close();
        }
    };
    form->close();

    EXPECT_FALSE(secondAnimation);
    EXPECT_EQ(promotionWindowCount(), 1);
    EXPECT_EQ(hidesBeforeClose, 0u) << "a second start would have cleared the table";
    EXPECT_THAT(recorded.ends, ElementsAre(0));
}

TEST_F(WaysOutTest, ThePromotionButtonOpensTheSchoolPageAndEnds) {
    startWindow();
    std::size_t clickedAt = 0;
    log.onEntry = [&](const Entry& entry, frmPacific& window) {
        if (entry.control != "Picture2(2)" || clickedAt != 0)
            return;
        clickedAt = log.entries.size();
        QTest::mouseClick(window.cmdPokerRoom, Qt::LeftButton);
    };
    form->close();

    EXPECT_THAT(recorded.addresses, ElementsAre(kSchool));
    EXPECT_THAT(recorded.ends, ElementsAre(0));
    EXPECT_EQ(log.entries.size(), clickedAt) << "the animation stopped with the program";
    EXPECT_TRUE(form->isHidden());
}

TEST_F(WaysOutTest, TheLinkLeavesAtOnceAndNoPromotionFollows) {
    startWindow();
    form->lblEnough_Click();
    EXPECT_THAT(recorded.addresses, ElementsAre(kSchool));
    EXPECT_THAT(recorded.ends, ElementsAre(0));
    EXPECT_FALSE(form->promoteOnClose);

    form->close();
    EXPECT_EQ(form->promotionWindow(), nullptr);
    EXPECT_EQ(promotionWindowCount(), 0);
    EXPECT_TRUE(log.entries.empty());
    EXPECT_THAT(recorded.ends, ElementsAre(0));
}

TEST_F(WaysOutTest, TheRoomOfferChoosesTheRoomWindowAndItsPage) {
    startWindow();
    mDefs::showRoomOffer = true;
    log.onEntry = [&](const Entry&, frmPacific& window) {
        QTest::mouseClick(window.cmdPokerRoom, Qt::LeftButton);
    };
    form->close();
    mDefs::showRoomOffer = false;

    const frmPacific* window = form->promotionWindow();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(qobject_cast<const frmPacific2*>(window), nullptr);
    EXPECT_EQ(window->windowTitle(),
              QStringLiteral("Play Poker Online Today... Real People Real Money Real Fun"));
    EXPECT_THAT(recorded.addresses, ElementsAre(kRoom));
    EXPECT_THAT(recorded.ends, ElementsAre(0));
}

TEST_F(WaysOutTest, WithTheRoomOfferTheLinkOpensTheRoomButFrmPacific2StaysWithTheSchool) {
    startWindow();
    mDefs::showRoomOffer = true;
    frmPacific2 school(*form);
    school.cmdPokerRoom_Click();
    form->lblEnough_Click();
    mDefs::showRoomOffer = false;

    EXPECT_THAT(recorded.addresses, ElementsAre(kSchool, kRoom));
    EXPECT_THAT(recorded.ends, ElementsAre(0, 0));
}

TEST_F(WaysOutTest, ACloseServedInsideAnotherWaitRunsThePromotionThere) {
    startWindow();
    promotion_test::StillClock clock;
    // The sample game waits between its scenes; the close box is served inside that wait.
    QTimer::singleShot(0, [this] {
        QTimer::singleShot(0, [this] { form->promotionWindow()->close(); });
        form->close();
    });
    platform::WaitServingEvents(60'000);

    EXPECT_FALSE(clock.watchdogFired) << "the interrupted wait should end with the program";
    EXPECT_NE(qobject_cast<frmPacific2*>(form->promotionWindow()), nullptr);
    EXPECT_THAT(recorded.ends, ElementsAre(0));
    EXPECT_TRUE(platform::programEnding()) << "so the interrupted routine waits no more";
}

}  // namespace
