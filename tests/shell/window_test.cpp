// The main window's shell: the state at start-up, the topic tree, and the layout of the panes.
#include <QFile>
#include <QLineEdit>
#include <QTest>
#include <random>

#include "support/window_fixture.h"

namespace {

class Shell : public test_support::WindowTest {};

enum class View { Browser, Quiz, Demo };

View shownView(const frmMain& f) {
    EXPECT_EQ(
        int(!f.WebBrowser1->isHidden()) + int(!f.picQuiz->isHidden()) + int(!f.picDemo->isHidden()),
        1);
    return !f.picQuiz->isHidden()   ? View::Quiz
           : !f.picDemo->isHidden() ? View::Demo
                                    : View::Browser;
}

// An outer size, borders included, of 13935 x 10200 twips whatever frame the platform draws.
void resizeToDesignOuterSize(frmMain& f) {
    const int frameWidth = f.frameGeometry().width() - f.width();
    const int frameHeight = f.frameGeometry().height() - f.height();
    if (frameWidth > 0 || frameHeight > 0) {
        f.resize(929 - frameWidth, 680 - frameHeight);
    } else {
        f.resize(921, 653);  // the usual borders: 8 and 27 pixels
    }
    QCoreApplication::processEvents();
    f.Form_Resize();
}

TEST_F(Shell, FirstUserActionFindsTheHomePageAndAClosedKeyboard) {
    startWindow();
    frmMain& f = *form;
    EXPECT_EQ(f.windowTitle(), "Tablewright..");
    EXPECT_EQ(shownView(f), View::Browser);
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
    EXPECT_TRUE(enabledKeys().empty());
    EXPECT_FALSE(f.cmdClear->isEnabledTo(f.picQuiz));
    EXPECT_EQ(f.lblMessage->caption(), "Click [Start] to begin...");
    EXPECT_TRUE(f.messageBlinking);
    EXPECT_TRUE(f.lblEnough->isHidden());
    EXPECT_TRUE(f.Timer1->isActive());
    EXPECT_EQ(f.Timer1->interval(), 750);
    EXPECT_TRUE(f.promoteOnClose);
    EXPECT_FALSE(mDefs::showRoomOffer);
    for (bool flag : {f.modeNamesPick, f.modeNamesRandom, f.modeRanksPick, f.modeRanksRandom,
                      f.modePairPick, f.modePairRandom, f.modeBestHand, f.answerPending})
        EXPECT_FALSE(flag);
    EXPECT_EQ(f.pairTable.Count(), 169u);
    EXPECT_TRUE(recorded.messages.empty());
    f.activateWindow();
    QTest::qWait(50);
    f.Form_Activate();
    EXPECT_TRUE(f.TreeView1->hasFocus());
}

TEST_F(Shell, EntriesSwitchThePaneOnAClickOrAnArrowKeyAndEveryPageShips) {
    startWindow();
    frmMain& f = *form;
    auto* elsewhere = new QLineEdit(&f);  // somewhere else for the focus to be
    elsewhere->show();
    struct Row {
        const char* text;
        View view;
        const char* shows;  // the page's file, or the exercise's heading
        bool treeTakesFocus;
    };
    const Row rows[] = {
        {"Intro", View::Browser, "intro.html", false},
        {"Interactive Lesson I", View::Browser, "quiz1.html", true},
        {"Texas Hold'em Poker", View::Browser, "txholdem.html", true},
        {"Enjoy..", View::Browser, "enjoy.html", false},
        {"Poker Hand Names", View::Quiz, "Poker Hand Names", true},
        {"Poker Hand Rankings", View::Quiz, "Poker Hand Rankings", true},
        {"Starting Pair Awareness", View::Quiz, "Pre-Flop Pair Value", false},
        {"Best Hand Recognition", View::Quiz, "Best Hand Recognition", false},
        {"Sample Poker Game", View::Demo, "", false},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.text);
        elsewhere->setFocus();
        clickTopic(r.text);
        EXPECT_EQ(shownView(f), r.view);
        const QString shows = r.view == View::Quiz ? f.lblHeading1->caption()
                              : r.view == View::Browser
                                  ? f.WebBrowser1->LocationURL().section('/', -1)
                                  : QString();
        EXPECT_EQ(shows, r.shows);
        EXPECT_EQ(f.TreeView1->hasFocus() || QApplication::focusWidget() == f.TreeView1,
                  r.treeTakesFocus);
    }
    int pages = 0;
    for (int index = 1; index <= 34; ++index) {
        f.TreeView1_NodeClick(index);
        if (shownView(f) != View::Browser)
            continue;
        ++pages;
        EXPECT_TRUE(QFile::exists(f.WebBrowser1->LocationURL()))
            << f.WebBrowser1->LocationURL().toStdString();
    }
    EXPECT_EQ(pages, 29);
    f.TreeView1->setSelected(9);  // a selection by program opens nothing
    EXPECT_EQ(shownView(f), View::Browser);
    f.TreeView1->setSelected(1);
    f.TreeView1->setFocus();
    QTest::keyClick(f.TreeView1, Qt::Key_Down);  // the arrow keys do
    EXPECT_TRUE(f.WebBrowser1->LocationURL().endsWith("usage.html"));
}

TEST_F(Shell, DesignSizeGivesTheWorkedExampleAndTheKeyboardGrid) {
    startWindow();
    frmMain& f = *form;
    resizeToDesignOuterSize(f);
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
    EXPECT_EQ(f.cmdKey[0]->accessibleName(), "Two of Clubs");
    EXPECT_EQ(f.cmdKey[21]->accessibleName(), "Ten of Diamonds");
    EXPECT_EQ(f.cmdKey[38]->accessibleName(), "Ace of Spades");
    EXPECT_EQ(f.cmdKey[47]->accessibleName(), "Ten of Hearts");
}

// A size a pane cannot take (below zero) is refused; the panes stay in step.
TEST_F(Shell, ResizeStormsKeepThePanesInStepAndASmallScreenWidensTheStage) {
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
    // On an 800-pixel screen the stage reaches over the tree.
    platform::seams().screenWidthPixels = [] { return 800; };
    f.Form_Resize();
    EXPECT_NEAR(f.picDemo->Left(), f.WebBrowser1->Left() - 800, 1e-9);
    EXPECT_NEAR(f.picDemo->Width(), f.WebBrowser1->Width() + 950, 1e-9);
    EXPECT_NEAR(f.picQuiz->Left(), f.WebBrowser1->Left(), 1e-9);
}

// The layout runs again on a resize and on restore; it closes the keyboard of a running pick.
TEST_F(Shell, ResizeOrRestoreInAPickClosesTheKeyboardButKeepsTheExercise) {
    startWindow();
    frmMain& f = *form;
    clickTopic("Poker Hand Rankings");
    for (int round = 0; round < 2; ++round) {
        SCOPED_TRACE(round == 0 ? "resize" : "minimise and restore");
        f.cmdStart2A->click();
        for (std::size_t i = 0; i < 7; ++i)
            f.cmdKey[i * 7]->click();
        if (round == 0) {
            f.resize(f.width() + 16, f.height() + 8);
        } else {
            f.showMinimized();
            serveEvents();
            f.showNormal();
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
