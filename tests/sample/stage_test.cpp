// The stage between the steps: where the dealer button stands, and what clicks served inside
// the scenes' waits do to the hand.
#include <QTimer>
#include <functional>
#include <ostream>

#include "support/window_fixture.h"

namespace {

constexpr double kHomeLeft = 7905, kHomeTop = 4080;
constexpr double kSharkyLeft = 6605, kSharkyTop = 5380;

class SampleStage : public test_support::WindowTest {
  protected:
    void openSample() { clickTopic("Sample Poker Game"); }
    void clickNextUntil(int step) {
        while (form->sampleStep < step)
            form->cmdNext->click();
    }
    void expectButtonAt(double left, double top) const {
        EXPECT_EQ(form->picDealer->Left(), left);
        EXPECT_EQ(form->picDealer->Top(), top);
    }
    // Plays step 3 with its real waits; `during` runs inside the first of them.
    void dealWithClickInside(std::function<void()> during) {
        platform::seams().waitScale = 1;
        QTimer::singleShot(50, form.get(), std::move(during));
        form->cmdNext->click();
    }
};

TEST_F(SampleStage, TheDealSlidesTheButtonToSharkyAndEveryRestartBringsItHome) {
    startWindow();
    openSample();
    expectButtonAt(kHomeLeft, kHomeTop);
    clickNextUntil(3);
    expectButtonAt(kSharkyLeft, kSharkyTop);
    clickNextUntil(34);
    expectButtonAt(kSharkyLeft, kSharkyTop);
    // Replays by the button and by the tree, the screen left in the middle of a hand between.
    for (int round = 0; round < 3; ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        form->cmdNext->click();
        expectButtonAt(kHomeLeft, kHomeTop);
        clickNextUntil(5);
        clickTopic("Intro");
        openSample();
        expectButtonAt(kHomeLeft, kHomeTop);
        clickNextUntil(34);
        expectButtonAt(kSharkyLeft, kSharkyTop);
    }
}

TEST_F(SampleStage, AClickDuringTheDealPlaysTheNextStepAtOnce) {
    startWindow();
    openSample();
    clickNextUntil(2);
    int stepInside = 0;
    bool dealStillRunning = false;
    QString mackarelliInside;
    dealWithClickInside([&] {
        form->cmdNext->click();
        stepInside = form->sampleStep;
        dealStillRunning = form->picPocket[7]->isHidden();
        mackarelliInside = form->lblArray[2]->caption();
    });
    EXPECT_EQ(stepInside, 4);
    EXPECT_TRUE(dealStillRunning);
    EXPECT_EQ(mackarelliInside, "50c");
    // The deal went on to its end and then wrote its own comment over the one of step 4.
    EXPECT_EQ(form->sampleStep, 4);
    for (auto* pocket : form->picPocket)
        EXPECT_FALSE(pocket->isHidden());
    EXPECT_FALSE(form->lblArray[2]->isHidden());
    EXPECT_TRUE(form->txtComments->Text().startsWith(" After the cards are dealt"));
    expectButtonAt(kSharkyLeft, kSharkyTop);
    // The count of clicks goes on: the next click is step 5.
    platform::seams().waitScale = 0;
    form->cmdNext->click();
    EXPECT_EQ(form->sampleStep, 5);
    EXPECT_EQ(form->lblArray[3]->caption(), "50c");
}

struct Departure {
    const char* topic;
    bool quizShown;
};
void PrintTo(const Departure& departure, std::ostream* out) {
    *out << departure.topic;
}

class SampleStageLeft : public SampleStage, public ::testing::WithParamInterface<Departure> {};

TEST_P(SampleStageLeft, ATreeClickDuringTheDealLeavesTheScreen) {
    startWindow();
    openSample();
    clickNextUntil(2);
    dealWithClickInside([&] { clickTopic(GetParam().topic); });
    EXPECT_TRUE(form->picDemo->isHidden());
    EXPECT_EQ(form->picQuiz->isHidden(), !GetParam().quizShown);
    EXPECT_EQ(form->WebBrowser1->isHidden(), GetParam().quizShown);
    // The interrupted deal finished on the hidden stage; coming back deals afresh.
    platform::seams().waitScale = 0;
    openSample();
    EXPECT_EQ(form->sampleStep, 1);
    expectButtonAt(kHomeLeft, kHomeTop);
    clickNextUntil(34);
    EXPECT_EQ(form->cmdNext->caption(), "Replay");
}

INSTANTIATE_TEST_SUITE_P(Topics, SampleStageLeft,
                         ::testing::Values(Departure{"Poker Hand Names", true},
                                           Departure{"Intro", false}));

TEST_F(SampleStage, ReturningToTheTopicDuringTheDealRestartsTheHand) {
    startWindow();
    openSample();
    clickNextUntil(2);
    dealWithClickInside([&] { openSample(); });
    // The restart showed step 1; the deal then finished its moves and wrote its comment.
    EXPECT_FALSE(form->picDemo->isHidden());
    EXPECT_EQ(form->sampleStep, 1);
    EXPECT_EQ(form->cmdNext->caption(), "Next");
    platform::seams().waitScale = 0;
    clickNextUntil(3);
    expectButtonAt(kSharkyLeft, kSharkyTop);
}

TEST_F(SampleStage, TheLinkOutAtTheEndShowsItsWholeCaption) {
    startWindow();
    openSample();
    clickNextUntil(34);
    const auto* link = form->lblEnough;
    ASSERT_FALSE(link->isHidden());
    EXPECT_GE(link->width(), link->fontMetrics().horizontalAdvance(link->caption()));
    EXPECT_LE(link->Left() + link->Width(), form->picDemo->Width());
}

TEST_F(SampleStage, AZeroWaitServesNothing) {
    startWindow();
    platform::seams().waitScale = 1;
    bool served = false;
    QTimer::singleShot(0, form.get(), [&] { served = true; });
    form->shortDelay(0);
    EXPECT_FALSE(served);
    form->shortDelay(20);
    EXPECT_TRUE(served);
}

}  // namespace
