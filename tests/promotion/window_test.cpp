// The promotion window from inside: closing the main window runs its animation within that
// call. (tests/system closes the real process's windows and checks the program ends.)
#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <functional>
#include <string>
#include <vector>

#include <QLabel>
#include <QPushButton>

#include "promotion/frmPacific2.h"
#include "support/window_fixture.h"

namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using Lefts = std::array<double, 5>;
// Where Picture1(0..4) start, and where they stand once the board is spread.
constexpr Lefts kStackLefts{2265, 2265, 2280, 2280, 1905};
constexpr Lefts kSpreadLefts{2265, 2676, 3102, 3513, 1905 + 1644};

// Logs "+Picture2(7)", "-Picture3"... for every card picture the promotion window shows or
// hides once it is on the screen, with the board's lefts then, and lets a test act then.
class AnimationLog : public QObject {
  public:
    std::function<void(frmPacific&)> onEntry;
    std::vector<std::string> entries;
    std::vector<Lefts> boardLefts;

    AnimationLog() { test_support::app().installEventFilter(this); }
    ~AnimationLog() override { QCoreApplication::instance()->removeEventFilter(this); }
    std::size_t find(const std::string& entry, std::size_t from = 0) const {
        return static_cast<std::size_t>(
            std::find(entries.begin() + static_cast<long>(from), entries.end(), entry) -
            entries.begin());
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool shown = event->type() == QEvent::ShowToParent;
        auto* widget = qobject_cast<QWidget*>(watched);
        auto* window = widget ? qobject_cast<frmPacific*>(widget->window()) : nullptr;
        if ((!shown && event->type() != QEvent::HideToParent) || window == nullptr)
            return false;
        started_ = window->isVisible() ? window : started_;
        const QString name = widget->objectName();
        if (window != started_ ||
            !(name.startsWith("Picture1(") || name.startsWith("Picture2(") || name == "Picture3"))
            return false;
        entries.push_back((shown ? "+" : "-") + name.toStdString());
        Lefts& lefts = boardLefts.emplace_back();
        for (std::size_t i = 0; i < 5; ++i)
            lefts[i] = window->Picture1.at(i)->Left();
        if (onEntry)
            onEntry(*window);
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
    log.onEntry = [&](frmPacific& window) {
        if (log.entries.back() == "+Picture2(0)" && log.find("-Picture2(0)") < log.entries.size()) {
            closedAt = log.entries.size();  // as the second deal starts
            window.close();
        }
    };
    QApplication::closeAllWindows();
    ASSERT_NE(qobject_cast<frmPacific2*>(form->promotionWindow()), nullptr);

    const std::size_t clearing = log.find("-Picture2(0)");
    const std::size_t nextDeal = log.find("+Picture2(0)", clearing);
    ASSERT_TRUE(nextDeal > 15 && nextDeal < log.entries.size()) << nextDeal;
    // The front player's cards turn up once the eighth seat has its cards, before the ninth.
    EXPECT_THAT(std::vector(log.entries.begin(), log.entries.begin() + 15),
                ElementsAre("+Picture2(0)", "+Picture2(1)", "+Picture2(2)", "+Picture2(3)",
                            "+Picture2(4)", "+Picture2(5)", "+Picture2(6)", "+Picture2(7)",
                            "+Picture3", "+Picture2(8)", "+Picture1(0)", "+Picture1(1)",
                            "+Picture1(2)", "+Picture1(3)", "+Picture1(4)"));
    EXPECT_THAT(log.boardLefts[clearing], ElementsAreArray(kSpreadLefts));
    EXPECT_THAT(log.boardLefts[nextDeal], ElementsAreArray(kStackLefts));
    int onTable = 0;  // every picture of the deal is hidden before the next deal starts
    for (std::size_t i = 0; i < nextDeal; ++i)
        onTable += log.entries[i][0] == '+' ? 1 : -1;
    EXPECT_EQ(onTable, 0);
    EXPECT_EQ(log.entries.size(), closedAt) << "nothing shows or hides once the window is closed";
    for (std::size_t i = 0; i < kStackLefts.size(); ++i)
        EXPECT_EQ(form->promotionWindow()->Picture1.at(i)->Left(), kStackLefts[i])
            << "no slide after the close";
}

TEST_F(PromotionTest, TheLinkLeavesAtOnceAndNoPromotionFollows) {
    startWindow();
    form->lblEnough_Click();
    EXPECT_THAT(recorded.addresses, ElementsAre(QStringLiteral(TABLEWRIGHT_SCHOOL_URL)));
    form->close();
    EXPECT_EQ(form->promotionWindow(), nullptr);
    EXPECT_THAT(recorded.ends, ElementsAre(0));
}

// The room's name and trade-mark line are the build's; the words around them stand as they are.
TEST_F(PromotionTest, TheWindowsAndTheLastStepNameTheRoomTheBuildGives) {
    startWindow();
    const QString name = QStringLiteral(TABLEWRIGHT_ROOM_NAME);
    const QString mark = QStringLiteral(TABLEWRIGHT_ROOM_TRADEMARK);
    frmPacific room(*form);
    frmPacific2 school(*form);
    const auto text = [](const QWidget& window, const char* control) {
        const auto* widget = window.findChild<const QWidget*>(QString::fromLatin1(control));
        if (const auto* label = qobject_cast<const QLabel*>(widget))
            return label->text();
        const auto* button = qobject_cast<const QPushButton*>(widget);
        return button ? button->text() : QStringLiteral("(none)");
    };
    const struct {
        const QWidget& window;
        const char* control;
        QString expected;
    } rows[] = {
        {school, "Label2", name + " Sample Table"},
        {school, "Label28", "Reduced size image"},
        {school, "cmdPokerRoom", "Home Page"},
        {school, "Label1", mark},
        {room, "Label2", name},
        {room, "Label25", name},
        {room, "Label26", " Name"},
        {room, "Label43", "Winner of Best Online Poker Room Award "},
        {room, "cmdPokerRoom", "Free Download.."},
        {room, "Label1", mark},
    };
    for (const auto& row : rows)
        EXPECT_EQ(text(row.window, row.control), row.expected)
            << row.window.objectName().toStdString() << " " << row.control;
    EXPECT_EQ(school.windowTitle(), "Play Poker Online for FREE ... Real People Real Fun");
    EXPECT_EQ(room.windowTitle(), "Play Poker Online Today... Real People Real Money Real Fun");
    EXPECT_TRUE(room.Label44->text().startsWith("Play poker with real people at "));
    EXPECT_TRUE(school.Label44->text().startsWith("Play poker online with real people for FREE."));

    clickTopic("Sample Poker Game");
    // The last step turns Next into Replay.
    auto* next = form->findChild<platform::CommandButton*>(QStringLiteral("cmdNext"));
    ASSERT_NE(next, nullptr);
    for (int step = 1; step < 34 && next->caption() != QLatin1String("Replay"); ++step)
        form->cmdNext_Click();
    auto* comments = form->findChild<platform::TextBox*>(QStringLiteral("txtComments"));
    ASSERT_NE(comments, nullptr);
    EXPECT_TRUE(comments->Text().startsWith("Ready to play poker online ? \r\n" + name +
                                            " has free games,\r\nfree $1000 "));
}

}  // namespace
