// Every tree entry switches the pane: which view, which address, where the focus goes.
#include <QLineEdit>
#include <QTest>

#include "shell/topics.h"
#include "support/window_fixture.h"

namespace {

class TreeTest : public test_support::WindowTest {};

enum class View { Browser, Quiz, Demo };

View visibleView(const frmMain& f) {
    const int shown =
        int(!f.WebBrowser1->isHidden()) + int(!f.picQuiz->isHidden()) + int(!f.picDemo->isHidden());
    EXPECT_EQ(shown, 1);
    if (!f.picQuiz->isHidden())
        return View::Quiz;
    if (!f.picDemo->isHidden())
        return View::Demo;
    return View::Browser;
}

struct Expected {
    const char* text;
    View view;
    const char* page;  // file under html/, or "" for a screen
    bool treeTakesFocus;
};

// Written out again here, apart from the table the program uses, so a slip in either shows.
constexpr Expected kEntries[] = {
    {"Intro", View::Browser, "intro.html", false},
    {"How this works..", View::Browser, "usage.html", false},
    {"Poker Basics", View::Browser, "basics.html", false},
    {"History of Poker", View::Browser, "history.html", false},
    {"Poker Hands and Ranking", View::Browser, "rank.html", false},
    {"Poker Variants", View::Browser, "variants.html", false},
    {"Poker Terms", View::Browser, "terms.html", false},
    {"Interactive Lesson I", View::Browser, "quiz1.html", true},
    {"Poker Hand Names", View::Quiz, "", true},
    {"Poker Hand Rankings", View::Quiz, "", true},
    {"Texas Hold'em Poker", View::Browser, "txholdem.html", true},
    {"Introduction", View::Browser, "txintro.html", false},
    {"Rules", View::Browser, "txrules.html", false},
    {"Limit vs No Limit", View::Browser, "txlimit.html", false},
    {"Pocket pair odds", View::Browser, "txpair.html", false},
    {"Preflop strategy", View::Browser, "txprestrategy.html", false},
    {"Post flop strategy", View::Browser, "txpoststrategy.html", false},
    {"Pot odds", View::Browser, "txpot.html", false},
    {"Position", View::Browser, "txposition.html", false},
    {"Software", View::Browser, "txsoftware.html", false},
    {"Interactive Lesson II", View::Browser, "quiz2.html", false},
    {"Starting Pair Awareness", View::Quiz, "", false},
    {"Best Hand Recognition", View::Quiz, "", false},
    {"Sample Poker Game", View::Demo, "", false},
    {"Play Poker Online", View::Browser, "online.html", false},
    {"Select a site", View::Browser, "onselect.html", false},
    {"Practice with play money", View::Browser, "onpractice.html", false},
    {"Online poker table etiquette", View::Browser, "onetiquette.html", false},
    {"Deposit real money", View::Browser, "ondeposit.html", false},
    {"Online Poker software reliability", View::Browser, "onreliable.html", false},
    {"Online Poker cheating concerns", View::Browser, "oncheating.html", false},
    {"Online gambling legal issues", View::Browser, "onlegal.html", false},
    {"Gambling addiction awareness", View::Browser, "onaddiction.html", false},
    {"Enjoy..", View::Browser, "enjoy.html", false},
};

TEST_F(TreeTest, EachEntryShowsItsViewNavigatesAndPlacesTheFocus) {
    startWindow();
    frmMain& f = *form;
    ASSERT_EQ(f.TreeView1->nodeCount(), 34);
    auto* probe = new QLineEdit(&f);  // somewhere else for the focus to be
    probe->show();
    for (int index = 1; index <= 34; ++index) {
        const Expected& e = kEntries[index - 1];
        SCOPED_TRACE(e.text);
        EXPECT_EQ(f.TreeView1->nodeText(index), QString::fromUtf8(e.text));
        for (int repeat = 0; repeat < 2; ++repeat) {  // a second click repeats the action
            probe->setFocus();
            const QString before = f.WebBrowser1->LocationURL();
            f.TreeView1_NodeClick(index);
            EXPECT_EQ(visibleView(f), e.view);
            if (e.view == View::Browser) {
                EXPECT_EQ(f.WebBrowser1->LocationURL(),
                          appFile(QStringLiteral("html/") + QString::fromUtf8(e.page)));
            } else {
                EXPECT_EQ(f.WebBrowser1->LocationURL(), before);
            }
            EXPECT_EQ(f.TreeView1->hasFocus() || QApplication::focusWidget() == f.TreeView1,
                      e.treeTakesFocus);
        }
    }
}

TEST_F(TreeTest, TopLevelEntriesAreParentsOfTheirRows) {
    startWindow();
    for (int index = 1; index <= 34; ++index) {
        const auto& topic = topics::kTopics[static_cast<std::size_t>(index - 1)];
        const QTreeWidgetItem* parent = form->TreeView1->node(index)->parent();
        if (topic.parentIndex == 0) {
            EXPECT_EQ(parent, nullptr) << index;
        } else {
            EXPECT_EQ(parent, form->TreeView1->node(topic.parentIndex)) << index;
        }
    }
    EXPECT_EQ(form->TreeView1->nodeKey(7), QStringLiteral("A66"));
    EXPECT_EQ(form->TreeView1->nodeKey(8), QString());
}

TEST_F(TreeTest, ProgramSelectionRunsNoClickButKeyboardSelectionDoes) {
    startWindow();
    frmMain& f = *form;
    f.TreeView1->setSelected(9);  // "Poker Hand Names", by program
    EXPECT_TRUE(f.picQuiz->isHidden());
    f.TreeView1->setSelected(1);
    f.TreeView1->setFocus();
    QTest::keyClick(f.TreeView1, Qt::Key_Down);  // to "How this works.."
    EXPECT_TRUE(f.WebBrowser1->LocationURL().endsWith(QStringLiteral("usage.html")));
    QTest::keyClick(f.TreeView1, Qt::Key_Down);  // "Poker Basics"
    EXPECT_TRUE(f.WebBrowser1->LocationURL().endsWith(QStringLiteral("basics.html")));
}

TEST_F(TreeTest, SampleGameEntryRestartsTheHandAndPageEntriesLeaveExercisesAlone) {
    startWindow();
    frmMain& f = *form;
    clickTopic(QStringLiteral("Poker Hand Names"));
    f.modeNamesPick = true;
    f.cardCount = 3;
    clickTopic(QStringLiteral("Rules"));
    EXPECT_TRUE(f.modeNamesPick);
    EXPECT_EQ(f.cardCount, 3);
    f.sampleStep = 17;
    clickTopic(QStringLiteral("Poker Hand Names"));
    EXPECT_EQ(f.sampleStep, 17);
}

TEST_F(TreeTest, TheTreeSpeaksAndWorksFromTheKeyboard) {
    startWindow();
    EXPECT_FALSE(form->TreeView1->accessibleName().isEmpty());
    EXPECT_EQ(form->TreeView1->focusPolicy() & Qt::TabFocus, Qt::TabFocus);
}

}  // namespace
