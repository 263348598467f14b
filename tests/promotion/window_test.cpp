// The promotion windows from inside: closing the main window runs the animation within that
// call; the link leaves without one; the room's name is the build's. (tests/system closes the
// real process's windows and checks the program ends.)
#include <gmock/gmock.h>

#include <QLabel>
#include <QRegularExpression>

#include "promotion/frmPacific2.h"
#include "support/window_fixture.h"

namespace {

using ::testing::ElementsAre;

// Logs "+Picture2(7)", "-Picture3"... for every card picture the promotion window shows or
// hides once it is on the screen, with the left of the second board card then, and closes the
// window as the second deal starts.
class AnimationLog : public QObject {
  public:
    std::vector<std::string> entries;
    std::vector<double> boardLefts;  // of Picture1(1), the board card that slides furthest
    AnimationLog() { test_support::app().installEventFilter(this); }
    ~AnimationLog() override { QCoreApplication::instance()->removeEventFilter(this); }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool shown = event->type() == QEvent::ShowToParent;
        auto* widget = qobject_cast<QWidget*>(watched);
        auto* window = widget ? qobject_cast<frmPacific*>(widget->window()) : nullptr;
        if ((!shown && event->type() != QEvent::HideToParent) || window == nullptr)
            return false;
        started_ = window->isVisible() ? window : started_;
        static const QRegularExpression card(QStringLiteral("^Picture(1\\(|2\\(|3$)"));
        if (window != started_ || !card.match(widget->objectName()).hasMatch())
            return false;
        entries.push_back((shown ? "+" : "-") + widget->objectName().toStdString());
        boardLefts.push_back(window->Picture1.at(1)->Left());
        if (entries.back() == "+Picture2(0)" &&
            std::count(entries.begin(), entries.end(), "-Picture2(0)"))
            window->close();
        return false;
    }

  private:
    const frmPacific* started_ = nullptr;
};

class PromotionTest : public test_support::WindowTest {};

// Closing the main window (here as the session ends, asking every window to close) opens the
// promotion window in its place, whose deal runs until that is closed in turn: the seats get
// their cards, the front player's after the eighth seat's, then the board, which spreads;
// everything is cleared and the board stacked again for the next deal.
TEST_F(PromotionTest, OnePassDealsSpreadsTheBoardClearsTheTableAndStacksItAgainAndACloseStopsIt) {
    AnimationLog log;
    startWindow();
    QApplication::closeAllWindows();
    const auto clearing = std::find(log.entries.begin(), log.entries.end(), "-Picture2(0)");
    const auto nextDeal = std::find(clearing, log.entries.end(), "+Picture2(0)");
    ASSERT_EQ(nextDeal - log.entries.begin() + 1, std::ssize(log.entries))  // the last: the close
        << "nothing shows or hides once the window is closed";
    EXPECT_EQ(log.entries.at(8), "+Picture3");
    const auto hidden =
        std::count_if(log.entries.begin(), nextDeal, [](auto& e) { return e[0] == '-'; });
    EXPECT_EQ(hidden * 2, nextDeal - log.entries.begin()) << "all hidden before the next deal";
    EXPECT_GT(log.boardLefts[std::size_t(clearing - log.entries.begin())], log.boardLefts[0]);
    EXPECT_EQ(log.boardLefts.back(), log.boardLefts.front()) << "stacked again";
}

// A close that comes while the address opens (the session ending, say) runs no promotion.
TEST_F(PromotionTest, TheLinkLeavesAtOnceAndNoPromotionFollows) {
    startWindow();
    platform::seams().openAddress = [this](const QString& address) {
        recorded.addresses.push_back(address);
        QTimer::singleShot(0, form.get(), [this] { form->close(); });
    };
    form->lblEnough_Click();
    EXPECT_THAT(recorded.addresses, ElementsAre(QStringLiteral(TABLEWRIGHT_SCHOOL_URL)));
    EXPECT_EQ(form->promotionWindow(), nullptr);
    EXPECT_THAT(recorded.ends, ElementsAre(0));
}

// The room's name and trade-mark line are the build's, in both windows and the last step.
TEST_F(PromotionTest, TheWindowsAndTheLastStepNameTheRoomTheBuildGives) {
    startWindow();
    const QString name = QStringLiteral(TABLEWRIGHT_ROOM_NAME);
    const QString mark = QStringLiteral(TABLEWRIGHT_ROOM_TRADEMARK);
    frmPacific room(*form);
    frmPacific2 school(*form);
    EXPECT_EQ(school.Label2->text(), name + " Sample Table");
    EXPECT_EQ(QStringList({room.Label2->text(), room.findChild<QLabel*>("Label25")->text()}),
              QStringList({name, name}));
    EXPECT_EQ(QStringList({school.Label1->text(), room.Label1->text()}), QStringList({mark, mark}));
    clickTopic("Sample Poker Game");
    for (int step = 1; step < 34; ++step)
        form->cmdNext_Click();
    EXPECT_TRUE(child<platform::TextBox>("txtComments")
                    ->Text()
                    .startsWith("Ready to play poker online ? \r\n" + name +
                                " has free games,\r\nfree $1000 "));
}

}  // namespace
