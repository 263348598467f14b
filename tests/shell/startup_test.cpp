// What a newcomer meets: the state of the window at the first user action.
#include <QDir>
#include <QFile>
#include <QTest>

#include "support/window_fixture.h"

namespace {

class StartupTest : public test_support::WindowTest {};

TEST_F(StartupTest, FirstUserActionFindsTheHomePageAndAClosedKeyboard) {
    startWindow();
    frmMain& f = *form;
    EXPECT_EQ(f.windowTitle(), QStringLiteral("Tablewright.."));
    EXPECT_FALSE(f.WebBrowser1->isHidden());
    EXPECT_TRUE(f.picQuiz->isHidden());
    EXPECT_TRUE(f.picDemo->isHidden());
    EXPECT_TRUE(f.WebBrowser1->LocationURL().endsWith(QStringLiteral("/html/intro.html")));

    EXPECT_EQ(f.TreeView1->nodeCount(), 34);
    EXPECT_EQ(f.TreeView1->selectedIndex(), 1);
    EXPECT_EQ(f.TreeView1->nodeText(1), QStringLiteral("Intro"));
    for (int index = 1; index <= 34; ++index) {
        const bool topLevel = f.TreeView1->node(index)->parent() == nullptr;
        EXPECT_EQ(f.TreeView1->isBold(index), topLevel) << index;
        if (topLevel) {
            EXPECT_TRUE(f.TreeView1->node(index)->isExpanded()) << index;
        }
    }
    EXPECT_TRUE(enabledKeys().empty());
    EXPECT_FALSE(f.cmdClear->isEnabledTo(f.picQuiz));
    EXPECT_EQ(f.lblMessage->caption(), QStringLiteral("Click [Start] to begin..."));
    EXPECT_TRUE(f.lblEnough->isHidden());
    EXPECT_TRUE(f.Timer1->isActive());
    EXPECT_EQ(f.Timer1->interval(), 750);
    EXPECT_TRUE(f.messageBlinking);
    EXPECT_TRUE(f.promoteOnClose);
    EXPECT_FALSE(mDefs::showRoomOffer);
    EXPECT_EQ(f.cWidth, 71);
    EXPECT_EQ(f.cHeight, 96);
    EXPECT_EQ(f.xincr, 24);
    EXPECT_EQ(f.pairTable.Count(), 169u);
    EXPECT_TRUE(recorded.messages.empty());
}

TEST_F(StartupTest, TheTreeHasTheFocusOnceTheWindowIsActive) {
    startWindow();
    form->activateWindow();
    QTest::qWait(50);
    form->Form_Activate();
    EXPECT_TRUE(form->TreeView1->hasFocus());
}

TEST_F(StartupTest, ModeFlagsAndStateStartCleared) {
    startWindow();
    const frmMain& f = *form;
    for (bool flag : {f.modeNamesPick, f.modeNamesRandom, f.modeRanksPick, f.modeRanksRandom,
                      f.modePairPick, f.modePairRandom, f.modeBestHand, f.answerPending}) {
        EXPECT_FALSE(flag);
    }
    EXPECT_EQ(f.cardCount, 0);
    EXPECT_EQ(f.sampleStep, 0);
    EXPECT_EQ(f.keyMap[0], 0);
    EXPECT_EQ(f.keyMap[2], 39);
    EXPECT_EQ(f.keyMap[51], 38);
}

TEST_F(StartupTest, MissingTableShowsItsMessageOnceBeforeTheWindowAndStartsAnyway) {
    QFile::remove(appFile(QStringLiteral("169.txt")));
    form = std::make_unique<frmMain>();
    form->Form_Load();
    ASSERT_EQ(recorded.messages.size(), 1u);
    EXPECT_TRUE(recorded.messages[0].startsWith(QStringLiteral("error in load169 -")));
    EXPECT_GT(recorded.messages[0].size(), QStringLiteral("error in load169 -").size());
    EXPECT_FALSE(form->isVisible());
    form->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(form.get()));
    EXPECT_EQ(form->pairTable.Count(), 0u);
    EXPECT_EQ(recorded.messages.size(), 1u);
}

TEST_F(StartupTest, MissingLessonsAndSoundsGoUnnoticed) {
    QDir(appFile(QStringLiteral("html"))).removeRecursively();
    QDir(appFile(QStringLiteral("wavs"))).removeRecursively();
    startWindow();
    form->WebBrowser1->startPane();
    clickTopic(QStringLiteral("Rules"));
    clickTopic(QStringLiteral("Poker Hand Names"));
    EXPECT_FALSE(form->picQuiz->isHidden());
    clickTopic(QStringLiteral("Intro"));
    EXPECT_FALSE(form->WebBrowser1->isHidden());
    EXPECT_TRUE(form->picQuiz->isHidden());
    EXPECT_TRUE(recorded.messages.empty());
}

}  // namespace
