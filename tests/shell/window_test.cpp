// The main window's shell: the state at start-up, the topic tree, and the layout of the panes.
#include <QLineEdit>
#include <QTest>
#include <random>

#include "support/window_fixture.h"

namespace {

class Shell : public test_support::WindowTest {
  protected:
    platform::TreeView* tree() const { return child<platform::TreeView>("TreeView1"); }
    platform::WebBrowser* browser() const { return child<platform::WebBrowser>("WebBrowser1"); }
    const platform::TwipsGeometry* place(const char* name) const {
        return dynamic_cast<const platform::TwipsGeometry*>(child(name));
    }
    std::string shownView() const {
        return !child("picQuiz")->isHidden()   ? "quiz"
               : !child("picDemo")->isHidden() ? "demo"
                                               : "browser";
    }
};

TEST_F(Shell, FirstUserActionFindsTheHomePageAndABoldOpenTree) {
    startWindow();
    frmMain& f = *form;
    EXPECT_EQ(f.windowTitle(), "Tablewright..");
    EXPECT_EQ(shownView(), "browser");
    EXPECT_TRUE(browser()->LocationURL().endsWith("/html/intro.html"));
    ASSERT_EQ(tree()->nodeCount(), 34);
    EXPECT_EQ(tree()->selectedIndex(), 1);
    int topLevel = 0;
    for (int index = 1; index <= 34; ++index) {
        const bool top = tree()->node(index)->parent() == nullptr;
        topLevel += top;
        EXPECT_EQ(tree()->isBold(index), top) << index;
        EXPECT_TRUE(!top || tree()->node(index)->isExpanded()) << index;
    }
    EXPECT_EQ(topLevel, 6);
    EXPECT_FALSE(tree()->accessibleName().isEmpty());
    EXPECT_EQ(tree()->focusPolicy() & Qt::TabFocus, Qt::TabFocus);
    EXPECT_TRUE(child<QTimer>("Timer1")->isActive());
    EXPECT_EQ(child<QTimer>("Timer1")->interval(), 750);
    EXPECT_TRUE(recorded.messages.empty());
    f.activateWindow();
    QTest::qWait(50);
    tree()->clearFocus();
    f.Form_Activate();
    EXPECT_TRUE(tree()->hasFocus());
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
        EXPECT_EQ(shownView(), r.view);
        EXPECT_EQ(browser()->isHidden() ? "" : browser()->LocationURL().section('/', -1), r.page);
        EXPECT_EQ(QApplication::focusWidget() == tree(), r.treeTakesFocus);
    }
    tree()->setSelected(9);  // a selection by program opens nothing
    EXPECT_EQ(shownView(), "demo");
    tree()->setSelected(1);
    tree()->setFocus();
    QTest::keyClick(tree(), Qt::Key_Down);  // the arrow keys do
    EXPECT_TRUE(browser()->LocationURL().endsWith("usage.html"));
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
        {place("TreeView1"), {135, 165, 3015, 9350}},
        {place("WebBrowser1"), {3300.75, 165, 10320, 9350}},
        {place("picDemo"), {3300.75, 165, 10320, 9350}},
        {place("lblHeading1"), {3232.5, 467.5, 3855, 465}},
        {place("picShow"), {1950, 9350.0 / 9, 3210, 2820}},
        {place("picLabels"), {5160, 9350.0 / 9, 3210, 2820}},
        {place("lblMessage"), {1950, 9350.0 / 9 + 2820, 6420, 240}},
        {place("picSuits"), {1416.6, 4675, 1335, 1755}},
        {place("picKeys"), {2805, 4675, 6045, 1740}},
        {place("cmdClear"), {4560, 7270, 1200, 855}},
        {place("Frame1"), {1084.5, 7082, 3135, 1890}},
        {place("Frame2"), {6100.5, 7082, 3135, 1890}},
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
        EXPECT_EQ(key(int(k))->caption(), captions[k % 13]) << k;
        EXPECT_DOUBLE_EQ(key(int(k))->Left(), 465.0 * double(k % 13)) << k;
        EXPECT_DOUBLE_EQ(key(int(k))->Top(), 435.0 * double(k / 13)) << k;
    }
    QStringList spoken;
    for (const std::size_t k : {0, 21, 38, 47})
        spoken << key(int(k))->accessibleName();
    EXPECT_EQ(spoken.join(", "), "Two of Clubs, Ten of Diamonds, Ace of Spades, Ten of Hearts");
    QStringList rows;
    for (const char* row : {"zCommand1", "zCommand2", "zCommand3", "zcommandbutton5"})
        rows << child<platform::CommandButton>(row)->caption();
    EXPECT_EQ(rows.join(", "), "Clubs, Diamonds, Spades, Hearts");
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
        ASSERT_DOUBLE_EQ(place("picQuiz")->Width(), browser()->Width());
        ASSERT_DOUBLE_EQ(place("picQuiz")->Height(), browser()->Height());
        ASSERT_DOUBLE_EQ(place("picDemo")->Left(), browser()->Left());
        ASSERT_DOUBLE_EQ(tree()->Height(), browser()->Height());
        ASSERT_GE(browser()->Width(), 0);
    }
    platform::seams().screenWidthPixels = [] { return 800; };  // the stage reaches over the tree
    f.Form_Resize();
    EXPECT_NEAR(place("picDemo")->Left(), browser()->Left() - 800, 1e-9);
    EXPECT_NEAR(place("picDemo")->Width(), browser()->Width() + 950, 1e-9);
    EXPECT_NEAR(place("picQuiz")->Left(), browser()->Left(), 1e-9);

    clickTopic("Poker Hand Rankings");
    for (const bool restore : {false, true}) {
        SCOPED_TRACE(restore ? "minimise and restore" : "resize");
        child<platform::CommandButton>("cmdStart2A")->click();
        for (int i = 0; i < 7; ++i)
            key(i * 7)->click();
        if (restore) {
            f.showMinimized();
            serveEvents();
            f.showNormal();
        } else {
            f.resize(f.width() + 16, f.height() + 8);
        }
        serveEvents();
        EXPECT_TRUE(enabledKeys().empty());
        EXPECT_FALSE(child("cmdClear")->isEnabled());
        EXPECT_EQ(child<platform::Label>("lblMessage")->caption(), "Click [Start] to begin...");
        EXPECT_EQ(child<platform::PictureBox>("picShow")->drawnItems().size(), 5)
            << "the pick stays on the surfaces";
        EXPECT_EQ(child<platform::PictureBox>("picLabels")->drawnItems().size(), 2);
    }
}

}  // namespace
