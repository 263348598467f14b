// The promotion window from inside: closing the main window runs its animation within that
// call; closing it ends everything. (tests/system closes the real process's windows.)
#include <gmock/gmock.h>

#include <QTest>
#include <QTimer>
#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/mDefs.h"
#include "promotion/frmPacific.h"
#include "promotion/frmPacific2.h"
#include "support/window_fixture.h"

namespace {

using ::testing::ElementsAre;

const QString kSchool = QStringLiteral(TABLEWRIGHT_SCHOOL_URL);
const QString kRoom = QStringLiteral(TABLEWRIGHT_ROOM_URL);
// Where Picture1(0..4) start, and where they stand once the board is spread.
constexpr std::array<double, 5> kStackLefts{2265, 2265, 2280, 2280, 1905};
constexpr std::array<double, 5> kSpreadLefts{2265, 2676, 3102, 3513, 1905 + 1644};

struct Entry {
    std::string control;  // "Picture2(7)", "Picture3"...
    bool shown;
    std::array<double, 5> boardLefts;
};

// Logs every card picture the promotion window shows or hides, from the moment the window is
// on the screen, and lets a test act at that moment.
class AnimationLog : public QObject {
  public:
    std::function<void(const Entry&, frmPacific&)> onEntry;
    std::vector<Entry> entries;

    AnimationLog() { test_support::app().installEventFilter(this); }
    ~AnimationLog() override { QCoreApplication::instance()->removeEventFilter(this); }
    std::size_t find(const std::string& control, bool shown, std::size_t from = 0) const {
        while (from < entries.size() &&
               (entries[from].control != control || entries[from].shown != shown))
            ++from;
        return from;
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool shown = event->type() == QEvent::ShowToParent;
        auto* widget = qobject_cast<QWidget*>(watched);
        auto* window = widget ? qobject_cast<frmPacific*>(widget->window()) : nullptr;
        if ((!shown && event->type() != QEvent::HideToParent) || window == nullptr)
            return false;
        const QString name = widget->objectName();
        if (window->isVisible())
            started_ = window;
        if (window != started_ ||
            !(name.startsWith(QStringLiteral("Picture1(")) ||
              name.startsWith(QStringLiteral("Picture2(")) || name == QStringLiteral("Picture3")))
            return false;
        Entry& entry = entries.emplace_back(Entry{name.toStdString(), shown, {}});
        for (std::size_t i = 0; i < 5; ++i)
            entry.boardLefts[i] = window->Picture1.at(i)->Left();
        if (onEntry)
            onEntry(entries.back(), *window);
        return false;
    }

  private:
    const frmPacific* started_ = nullptr;
};

class PromotionTest : public test_support::WindowTest {
  protected:
    AnimationLog log;
};

// Closing the main window (here as the session ends, asking every window to close) opens the
// promotion window in its place, whose animation runs until that is closed in turn.
TEST_F(PromotionTest, OnePassDealsSpreadsTheBoardClearsTheTableAndStacksItAgainAndACloseStopsIt) {
    startWindow();
    std::size_t closedAt = 0;
    bool mainHidden = false;
    log.onEntry = [&](const Entry& entry, frmPacific& window) {
        if (log.entries.size() == 1)
            mainHidden = form->isHidden();
        if (entry.shown && entry.control == "Picture2(0)" &&
            log.find("Picture2(0)", false) < log.entries.size()) {
            closedAt = log.entries.size();  // as the second deal starts
            window.close();
        }
    };
    QApplication::closeAllWindows();
    ASSERT_NE(qobject_cast<frmPacific2*>(form->promotionWindow()), nullptr);
    EXPECT_EQ(form->promotionWindow()->windowTitle(),
              QStringLiteral("Play Poker Online for FREE ... Real People Real Fun"));
    EXPECT_TRUE(mainHidden);
    EXPECT_TRUE(recorded.addresses.empty());

    // The front player's cards turn up once the eighth seat has its cards, before the ninth.
    std::vector<std::string> firstShown;
    for (std::size_t i = 0; i < log.entries.size() && log.entries[i].shown; ++i)
        firstShown.push_back(log.entries[i].control);
    EXPECT_THAT(firstShown, ElementsAre("Picture2(0)", "Picture2(1)", "Picture2(2)", "Picture2(3)",
                                        "Picture2(4)", "Picture2(5)", "Picture2(6)", "Picture2(7)",
                                        "Picture3", "Picture2(8)", "Picture1(0)", "Picture1(1)",
                                        "Picture1(2)", "Picture1(3)", "Picture1(4)"));
    const std::size_t clearing = log.find("Picture2(0)", false);
    const std::size_t nextDeal = log.find("Picture2(0)", true, clearing);
    ASSERT_LT(nextDeal, log.entries.size());
    EXPECT_THAT(log.entries[clearing].boardLefts, ::testing::ElementsAreArray(kSpreadLefts));
    EXPECT_THAT(log.entries[nextDeal].boardLefts, ::testing::ElementsAreArray(kStackLefts));
    int onTable = 0;  // every picture of the deal is hidden before the next deal starts
    for (std::size_t i = 0; i < nextDeal; ++i)
        onTable += log.entries[i].shown ? 1 : -1;
    EXPECT_EQ(onTable, 0);
    EXPECT_EQ(log.entries.size(), closedAt) << "nothing shows or hides once the window is closed";
    for (std::size_t i = 0; i < kStackLefts.size(); ++i)
        EXPECT_EQ(form->promotionWindow()->Picture1.at(i)->Left(), kStackLefts[i])
            << "no slide after the close";
    EXPECT_THAT(recorded.ends, ElementsAre(0));
}

// The sample game waits between its scenes; a close served inside that wait runs the
// promotion there, and closing the promotion ends that wait too.
TEST_F(PromotionTest, ACloseServedInsideAWaitRunsThePromotionAndItsCloseEndsEveryWait) {
    startWindow();
    // The clock stands still, so only a stop ends a wait; should one run on, a watchdog lets
    // time run after a few seconds so that the test fails instead of hanging.
    auto now = std::make_shared<std::int64_t>(0);
    platform::seams().waitScale = 1;
    platform::seams().tickCount = [now] { return *now; };
    QTimer watchdog;
    watchdog.callOnTimeout([now] {
        *now += 3'600'000;
        platform::InterruptWaits();
    });
    watchdog.start(5000);
    QTimer::singleShot(0, [this] {
        QTimer::singleShot(0, [this] { form->promotionWindow()->close(); });
        form->close();
    });
    platform::WaitServingEvents(60'000);

    EXPECT_EQ(*now, 0) << "a wait ran on after the promotion window closed";
    ASSERT_NE(qobject_cast<frmPacific2*>(form->promotionWindow()), nullptr);
    EXPECT_TRUE(form->promotionWindow()->isEnd);
    EXPECT_TRUE(platform::programEnding());
    EXPECT_THAT(recorded.ends, ElementsAre(0));
}

TEST_F(PromotionTest, TheLinkLeavesAtOnceAndNoPromotionFollows) {
    startWindow();
    form->lblEnough_Click();
    EXPECT_THAT(recorded.addresses, ElementsAre(kSchool));

    form->close();
    EXPECT_EQ(form->promotionWindow(), nullptr);
    EXPECT_TRUE(log.entries.empty());
    EXPECT_THAT(recorded.ends, ElementsAre(0));
}

TEST_F(PromotionTest, TheRoomOfferOpensTheRoomsWindowWhoseButtonOpensTheRoomsPage) {
    startWindow();
    mDefs::showRoomOffer = true;
    log.onEntry = [](const Entry&, frmPacific& window) {
        QTest::mouseClick(window.cmdPokerRoom, Qt::LeftButton);
    };
    form->close();
    mDefs::showRoomOffer = false;

    ASSERT_NE(form->promotionWindow(), nullptr);
    EXPECT_EQ(qobject_cast<const frmPacific2*>(form->promotionWindow()), nullptr);
    EXPECT_EQ(form->promotionWindow()->windowTitle(),
              QStringLiteral("Play Poker Online Today... Real People Real Money Real Fun"));
    EXPECT_THAT(recorded.addresses, ElementsAre(kRoom));
    EXPECT_THAT(recorded.ends, ElementsAre(0));
}

}  // namespace
