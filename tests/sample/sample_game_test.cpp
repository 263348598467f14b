// The sample hand click by click, its restarts, and clicks served inside the scenes' waits.
#include <QTimer>
#include <functional>
#include <string>

#include "support/window_fixture.h"

namespace {

// What the table shows after each step. A comment ending in '*' is a prefix of the text. Seat
// labels 0..8 are split by '|', "-" for a hidden one; the cards are the pockets of seats 0..7,
// then flop, turn, river and the two showdown hands: 'c' a card shown, '.' none.
struct Scene {
    const char *comment, *labels, *cards;
};
constexpr Scene kHand[34] = {
    {" Here is a sample commented demonstration*", "-|-|-|-|-|-|-|-|-", "........ ......."},
    {" A new game starts with the clockwise*", "-|-|-|-|-|-|-|-|-", "........ ......."},
    {" After the cards are dealt*", "0.25|0.50|-|-|-|-|-|-|-", "cccccccc ......."},
    {"\r\n mackarelli calls", "0.25|0.50|50c|-|-|-|-|-|-", "cccccccc ......."},
    {"\r\n whaland calls", "0.25|0.50|50c|50c|-|-|-|-|-", "cccccccc ......."},
    {"\r\n McCoddy folds", "0.25|0.50|50c|50c|folded|-|-|-|-", "cccc.ccc ......."},
    {"\r\n flounders folds", "0.25|0.50|50c|50c|folded|folded|-|-|-", "cccc..cc ......."},
    {"\r\n tunasia calls", "0.25|0.50|50c|50c|folded|folded|50c|-|-", "cccc..cc ......."},
    {"\r\n sharky calls", "0.25|0.50|50c|50c|folded|folded|50c|50c|-", "cccc..cc ......."},
    {"Jonah who posted*", "50c|0.50|50c|50c|folded|folded|50c|50c|-", "cccc..cc ......."},
    {" We have a flop*", "-|-|-|-|-|-|-|-|Pot  $3.00", "cccc..cc ccc...."},
    {"\r\nJonah checks", "chk|-|-|-|-|-|-|-|Pot  $3.00", "cccc..cc ccc...."},
    {"\r\nbassinger checks", "chk|chk|-|-|-|-|-|-|Pot  $3.00", "cccc..cc ccc...."},
    {"\r\nmackarelli checks", "chk|chk|chk|-|-|-|-|-|Pot  $3.00", "cccc..cc ccc...."},
    {"\r\nwhaland bets", "chk|chk|chk|50c|-|-|-|-|Pot  $3.00", "cccc..cc ccc...."},
    {"\r\ntunasia folds", "chk|chk|chk|50c|-|-|folds|-|Pot  $3.00", "cccc...c ccc...."},
    {"\r\nsharky calls", "chk|chk|chk|50c|-|-|folds|50c|Pot  $3.00", "cccc...c ccc...."},
    {"\r\nJonah folds", "folds|chk|chk|50c|-|-|folds|50c|Pot  $3.00", ".ccc...c ccc...."},
    {"\r\nbassinger folds", "folds|folds|chk|50c|-|-|folds|50c|Pot  $3.00", "..cc...c ccc...."},
    {"\r\nmackarelli calls", "folds|folds|50c|50c|-|-|folds|50c|Pot  $3.00", "..cc...c ccc...."},
    {"The fourth card on the board*", "-|-|-|-|-|-|-|-|Pot  $4.50", "..cc...c cccc..."},
    {"\r\nmackarelli checks", "-|-|chk|-|-|-|-|-|Pot  $4.50", "..cc...c cccc..."},
    {"\r\nwhaland checks (probably was bluffing on the flop or has a weak underpair)",
     "-|-|chk|chk|-|-|-|-|Pot  $4.50", "..cc...c cccc..."},
    {"\r\nsharky bets", "-|-|chk|chk|-|-|-|$1|Pot  $4.50", "..cc...c cccc..."},
    {"\r\nmackarelli calls", "-|-|$1|chk|-|-|-|$1|Pot  $4.50", "..cc...c cccc..."},
    {"\r\nwhaland folds", "-|-|$1|folds|-|-|-|$1|Pot  $4.50", "..c....c cccc..."},
    {"The fifth and final community*", "-|-|-|-|-|-|-|-|Pot  $6.50", "..c....c ccccc.."},
    {"\r\nmackarelli checks", "-|-|chk|-|-|-|-|-|Pot  $6.50", "..c....c ccccc.."},
    {"\r\nsharky bets", "-|-|chk|-|-|-|-|$1|Pot  $6.50", "..c....c ccccc.."},
    {"\r\nmackarelli raises", "-|-|$2|-|-|-|-|$1|Pot  $6.50", "..c....c ccccc.."},
    {"sharky calls - sharky (JJ)*", "-|-|$2|-|-|-|-|$2|Pot  $6.50", "..c....c ccccc.."},
    {"\r\nShowdown: mackarelli wins with a straight", "-|-|-|-|-|-|-|-|Pot  $10.50",
     "..c....c ccccccc"},
    {"Summary of the action..\r\nThere were no raises preflop*", "-|-|-|-|-|-|-|-|Pot  $10.50",
     "..c....c ccccccc"},
    {"Ready to play poker online ? \r\n*", "-|-|-|-|-|-|-|-|Pot  $10.50", "..c....c ccccccc"},
};
constexpr double kHomeLeft = 7905, kHomeTop = 4080;
constexpr double kSharkyLeft = 6605, kSharkyTop = 5380;

class SampleGame : public test_support::WindowTest {
  protected:
    void openSample() { clickTopic("Sample Poker Game"); }
    void clickNextUntil(int step) {
        while (form->sampleStep < step)
            form->cmdNext->click();
    }
    bool buttonAt(double left, double top) const {
        return form->picDealer->Left() == left && form->picDealer->Top() == top;
    }
    void expectScene(int step) const {
        SCOPED_TRACE("step " + std::to_string(step));
        const Scene& want = kHand[step - 1];
        EXPECT_EQ(form->sampleStep, step);
        const QString comment = form->txtComments->Text(), wanted = want.comment;
        if (wanted.endsWith('*')) {
            EXPECT_TRUE(comment.startsWith(wanted.chopped(1))) << comment.toStdString();
        } else {
            EXPECT_EQ(comment, wanted);
        }
        std::string labels, cards;
        for (const auto* label : form->lblArray) {
            labels += (labels.empty() ? "" : "|") +
                      (label->isHidden() ? std::string("-") : label->caption().toStdString());
        }
        for (const auto* pocket : form->picPocket)
            cards += pocket->isHidden() ? '.' : 'c';
        cards += ' ';
        for (const auto* card : form->picFlop)
            cards += card->isHidden() ? '.' : 'c';
        for (const auto* hand : {form->picShowDown1, form->picShowDown2})
            cards += hand->isHidden() ? '.' : 'c';
        EXPECT_EQ(labels, want.labels);
        EXPECT_EQ(cards, want.cards);
        EXPECT_EQ(form->cmdNext->caption(), step == 34 ? "Replay" : "Next");
        EXPECT_EQ(!form->lblEnough->isHidden(), step == 34);
    }
    // Plays step 3 with its real waits; `during` runs inside the first of them.
    void dealWithClickInside(std::function<void()> during) {
        platform::seams().waitScale = 1;
        QTimer::singleShot(50, form.get(), std::move(during));
        form->cmdNext->click();
        platform::seams().waitScale = 0;
    }
};

TEST_F(SampleGame, EveryStepShowsItsCommentSeatsAndCardsAndTheLastClickReplays) {
    startWindow();
    openSample();
    EXPECT_FALSE(form->picDemo->isHidden());
    QString summary;
    for (int round = 0; round < 2; ++round) {
        SCOPED_TRACE(round == 0 ? "first hand" : "replay");
        if (round == 1)
            form->cmdNext->click();
        EXPECT_TRUE(buttonAt(kHomeLeft, kHomeTop));
        for (int step = 1; step <= 34; ++step) {
            if (step > 1)
                form->cmdNext->click();
            expectScene(step);
            if (step == 33)
                summary = form->txtComments->Text();
        }
        EXPECT_TRUE(buttonAt(kSharkyLeft, kSharkyTop)) << "the deal slides the button";
    }
    EXPECT_TRUE(summary.endsWith("while yelling 'you lucky (bleep bleep) at the monitor :-)"));
    const auto* link = form->lblEnough;  // the link out shows its whole caption
    EXPECT_GE(link->width(), link->fontMetrics().horizontalAdvance(link->caption()));
    EXPECT_LE(link->Left() + link->Width(), form->picDemo->Width());
}

TEST_F(SampleGame, AClickDuringTheDealPlaysTheNextStepAtOnce) {
    startWindow();
    openSample();
    clickNextUntil(2);
    int stepInside = 0;
    bool dealStillRunning = false;
    dealWithClickInside([&] {
        form->cmdNext->click();
        stepInside = form->sampleStep;
        dealStillRunning = form->picPocket[7]->isHidden();
    });
    EXPECT_EQ(stepInside, 4);
    EXPECT_TRUE(dealStillRunning);
    // The deal went on to its end, then wrote its own comment over the one of step 4.
    EXPECT_EQ(form->sampleStep, 4);
    for (auto* pocket : form->picPocket)
        EXPECT_FALSE(pocket->isHidden());
    EXPECT_TRUE(form->txtComments->Text().startsWith(" After the cards are dealt"));
    form->cmdNext->click();
    EXPECT_EQ(form->sampleStep, 5);
    EXPECT_EQ(form->lblArray[3]->caption(), "50c");
}

TEST_F(SampleGame, ATreeClickDuringTheDealTakesEffectAndTheHandRestartsClean) {
    startWindow();
    const std::pair<const char*, QWidget*> cases[] = {{"Poker Hand Names", form->picQuiz},
                                                      {"Intro", form->WebBrowser1},
                                                      {"Sample Poker Game", form->picDemo}};
    for (const auto& [topic, view] : cases) {
        SCOPED_TRACE(topic);
        openSample();
        clickNextUntil(2);
        dealWithClickInside([&, topic = topic] { clickTopic(topic); });
        EXPECT_FALSE(view->isHidden());
        EXPECT_EQ(form->picDemo->isHidden(), view != form->picDemo);
        if (view == form->picDemo) {  // the restart showed step 1, then the deal finished
            EXPECT_EQ(form->sampleStep, 1);
            EXPECT_EQ(form->cmdNext->caption(), "Next");
        }
        openSample();
        expectScene(1);
        EXPECT_TRUE(buttonAt(kHomeLeft, kHomeTop));
    }
}

}  // namespace
