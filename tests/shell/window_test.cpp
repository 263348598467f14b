// The main window's shell: the state at start-up, the topic tree, and the layout of the panes.
#include <QLineEdit>
#include <QTest>
#include <random>

#include "support/window_fixture.h"

namespace {

class Shell : public test_support::WindowTest {};

std::string shownView(const frmMain& f) {
    return !f.picQuiz->isHidden() ? "quiz" : !f.picDemo->isHidden() ? "demo" : "browser";
}

TEST_F(Shell, FirstUserActionFindsTheHomePageAndABoldOpenTree) {
    startWindow();
    frmMain& f = *form;
    EXPECT_EQ(f.windowTitle(), "Tablewright..");
    EXPECT_EQ(shownView(f), "browser");
    EXPECT_TRUE(f.WebBrowser1->LocationURL().endsWith("/html/intro.html"));
    ASSERT_EQ(f.TreeView1->nodeCount(), 34);
    EXPECT_EQ(f.TreeView1->selectedIndex(), 1);
    int topLevel = 0;
    for (int index = 1; index <= 34; ++index) {
        const bool top = f.TreeView1->node(index)->parent() == nullptr;
        topLevel += top;
        EXPECT_EQ(f.TreeView1->isBold(index), top) << index;
        EXPECT_TRUE(!top || f.TreeView1->node(index)->isExpanded()) << index;
    }
    EXPECT_EQ(topLevel, 6);
    EXPECT_FALSE(f.TreeView1->accessibleName().isEmpty());
    EXPECT_EQ(f.TreeView1->focusPolicy() & Qt::TabFocus, Qt::TabFocus);
    EXPECT_TRUE(f.messageBlinking && f.Timer1->isActive() && f.Timer1->interval() == 750);
    EXPECT_EQ(f.pairTable.Count(), 169u);
    EXPECT_TRUE(recorded.messages.empty());
    f.activateWindow();
    QTest::qWait(50);
    f.TreeView1->clearFocus();
    f.Form_Activate();
    EXPECT_TRUE(f.TreeView1->hasFocus());
}

TEST_F(Shell, EntriesSwitchThePaneOnAClickOrAnArrowKey) {
    startWindow();
    frmMain& f = *form;
    auto* elsewhere = new QLineEdit(&f);  // somewhere else for the focus to be
    elsewhere->show();
    struct Row {
        const char *text, *view, *page;
        bool treeTakesFocus;
    };
    const Row rows[] = {
        {"Intro", "browser", "intro.html", false},
        {"Interactive Lesson I", "browser", "quiz1.html", true},
        {"Poker Hand Names", "quiz", "", true},
        {"Starting Pair Awareness", "quiz", "", false},
        {"Sample Poker Game", "demo", "", false},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.text);
        elsewhere->setFocus();
        clickTopic(r.text);
        EXPECT_EQ(shownView(f), r.view);
        EXPECT_EQ(f.WebBrowser1->isHidden() ? "" : f.WebBrowser1->LocationURL().section('/', -1),
                  r.page);
        EXPECT_EQ(QApplication::focusWidget() == f.TreeView1, r.treeTakesFocus);
    }
    f.TreeView1->setSelected(9);  // a selection by program opens nothing
    EXPECT_EQ(shownView(f), "demo");
    f.TreeView1->setSelected(1);
    f.TreeView1->setFocus();
    QTest::keyClick(f.TreeView1, Qt::Key_Down);  // the arrow keys do
    EXPECT_TRUE(f.WebBrowser1->LocationURL().endsWith("usage.html"));
}

// The design's outer size, 13935 x 10200 twips with borders, gives the design's places.
TEST_F(Shell, DesignSizeGivesTheWorkedExampleAndTheKeyboardGrid) {
    startWindow();
    frmMain& f = *form;
    const QSize frame = f.frameGeometry().size() - f.size();
    f.resize(frame.isNull() ? QSize(921, 653) : QSize(929, 680) - frame);  // usual: 8 x 27
    QCoreApplication::processEvents();
    f.Form_Resize();
    const std::pair<const platform::TwipsGeometry*, std::array<double, 4>> places[] = {
        {f.TreeView1, {135, 165, 3015, 9350}},
        {f.WebBrowser1, {3300.75, 165, 10320, 9350}},
        {f.picDemo, {3300.75, 165, 10320, 9350}},
        {f.lblHeading1, {3232.5, 467.5, 3855, 465}},
        {f.picShow, {1950, 9350.0 / 9, 3210, 2820}},
        {f.picLabels, {5160, 9350.0 / 9, 3210, 2820}},
        {f.lblMessage, {1950, 9350.0 / 9 + 2820, 6420, 240}},
        {f.picSuits, {1416.6, 4675, 1335, 1755}},
        {f.picKeys, {2805, 4675, 6045, 1740}},
        {f.cmdClear, {4560, 7270, 1200, 855}},
        {f.Frame1, {1084.5, 7082, 3135, 1890}},
        {f.Frame2, {6100.5, 7082, 3135, 1890}},
    };
    for (std::size_t row = 0; row < std::size(places); ++row) {
        const auto& [control, want] = places[row];
        const std::array<double, 4> got{control->Left(), control->Top(), control->Width(),
                                        control->Height()};
        for (std::size_t i = 0; i < 4; ++i)
            EXPECT_NEAR(got[i], want[i], 1e-6) << "row " << row << ", " << i;
    }
    // Thirteen columns, two to ace, in four suit rows; a screen reader says the card.
    const QString captions[] = {"2", "3", "4", "5", "6", "7", "8", "9", "10", "J", "Q", "K", "A"};
    for (std::size_t k = 0; k < 52; ++k) {
        EXPECT_EQ(f.cmdKey[k]->caption(), captions[k % 13]) << k;
        EXPECT_DOUBLE_EQ(f.cmdKey[k]->Left(), 465.0 * double(k % 13)) << k;
        EXPECT_DOUBLE_EQ(f.cmdKey[k]->Top(), 435.0 * double(k / 13)) << k;
    }
    QStringList spoken;
    for (const std::size_t k : {0, 21, 38, 47})
        spoken << f.cmdKey[k]->accessibleName();
    EXPECT_EQ(spoken.join(", "), "Two of Clubs, Ten of Diamonds, Ace of Spades, Ten of Hearts");
}

// A size a pane cannot take (below zero) is refused; the panes stay in step. The layout runs
// again on a resize and on restore; it closes the keyboard of a running pick.
TEST_F(Shell, ResizesKeepThePanesInStepAndCloseTheKeyboardButKeepTheExercise) {
    startWindow();
    frmMain& f = *form;
    std::mt19937 engine(7);
    std::uniform_int_distribution<int> size(1, 3000);
    for (int i = 0; i < 150; ++i) {
        f.resize(size(engine), size(engine));
        f.Form_Resize();
        SCOPED_TRACE(i);
        ASSERT_DOUBLE_EQ(f.picQuiz->Width(), f.WebBrowser1->Width());
        ASSERT_DOUBLE_EQ(f.picQuiz->Height(), f.WebBrowser1->Height());
        ASSERT_DOUBLE_EQ(f.picDemo->Left(), f.WebBrowser1->Left());
        ASSERT_DOUBLE_EQ(f.TreeView1->Height(), f.WebBrowser1->Height());
        ASSERT_GE(f.WebBrowser1->Width(), 0);
    }
    platform::seams().screenWidthPixels = [] { return 800; };  // the stage reaches over the tree
    f.Form_Resize();
    EXPECT_NEAR(f.picDemo->Left(), f.WebBrowser1->Left() - 800, 1e-9);
    EXPECT_NEAR(f.picDemo->Width(), f.WebBrowser1->Width() + 950, 1e-9);
    EXPECT_NEAR(f.picQuiz->Left(), f.WebBrowser1->Left(), 1e-9);

    clickTopic("Poker Hand Rankings");
    for (const bool restore : {false, true}) {
        SCOPED_TRACE(restore ? "minimise and restore" : "resize");
        f.cmdStart2A->click();
        for (std::size_t i = 0; i < 7; ++i)
            f.cmdKey[i * 7]->click();
        if (restore) {
            f.showMinimized();
            serveEvents();
            f.showNormal();
        } else {
            f.resize(f.width() + 16, f.height() + 8);
        }
        serveEvents();
        EXPECT_TRUE(enabledKeys().empty());
        EXPECT_FALSE(f.cmdClear->isEnabledTo(f.picQuiz));
        EXPECT_EQ(f.lblMessage->caption(), "Click [Start] to begin...");
        EXPECT_TRUE(f.modeRanksPick);
        EXPECT_EQ(f.cardCount, 7);
    }
}

}  // namespace
