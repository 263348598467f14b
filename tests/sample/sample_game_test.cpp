// The sample hand click by click, its restarts, and clicks served inside the scenes' waits.
#include <QTimer>
#include <string>

#include "support/window_fixture.h"

namespace {

// What the table shows after each step. A '*' in a comment stands for any text. Seat
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
    {"\r\nShowdown: mackarelli wins*", "-|-|-|-|-|-|-|-|Pot  $10.50", "..c....c ccccccc"},
    {"Summary of the action..\r\nThere were*at the monitor :-)", "-|-|-|-|-|-|-|-|Pot  $10.50",
     "..c....c ccccccc"},
    {"Ready to play poker online ? \r\n*", "-|-|-|-|-|-|-|-|Pot  $10.50", "..c....c ccccccc"},
};

class SampleGame : public test_support::WindowTest {
  protected:
    void openSample() { clickTopic("Sample Poker Game"); }
    bool buttonHome() const {
        return form->picDealer->Left() == 7905 && form->picDealer->Top() == 4080;
    }
    void expectScene(int step) const {
        SCOPED_TRACE("step " + std::to_string(step));
        const Scene& want = kHand[step - 1];
        const QString comment = form->txtComments->Text();
        const QStringList parts = QString(want.comment).split('*');
        EXPECT_TRUE(parts.size() == 1 ? comment == parts[0]
                                      : comment.startsWith(parts[0]) && comment.endsWith(parts[1]))
            << comment.toStdString();
        QStringList labels;
        for (const auto* label : form->lblArray)
            labels << (label->isHidden() ? "-" : label->caption());
        std::string cards;
        const auto add = [&](const QWidget* card) { cards += card->isHidden() ? '.' : 'c'; };
        std::for_each(form->picPocket.begin(), form->picPocket.end(), add);
        cards += ' ';
        std::for_each(form->picFlop.begin(), form->picFlop.end(), add);
        add(form->picShowDown1);
        add(form->picShowDown2);
        EXPECT_EQ(labels.join('|').toStdString(), want.labels);
        EXPECT_EQ(cards, want.cards);
        EXPECT_EQ(form->sampleStep, step);
        EXPECT_EQ(form->cmdNext->caption(), step == 34 ? "Replay" : "Next");
        EXPECT_EQ(!form->lblEnough->isHidden(), step == 34);
    }
};

TEST_F(SampleGame, EveryStepShowsItsCommentSeatsAndCardsAndTheLastClickReplays) {
    startWindow();
    openSample();
    for (int round = 0; round < 2; ++round) {  // the first hand, then its replay
        EXPECT_TRUE(buttonHome());
        for (int step = 1; step <= 34; ++step) {
            expectScene(step);
            form->cmdNext->click();
        }
    }
    form->cmdNext->click();  // the deal slides the button, the link out shows its whole caption
    form->cmdNext->click();
    EXPECT_TRUE(form->picDealer->Left() == 6605 && form->picDealer->Top() == 5380);
    const auto* link = form->lblEnough;
    EXPECT_GE(link->width(), link->fontMetrics().horizontalAdvance(link->caption()));
    EXPECT_LE(link->Left() + link->Width(), form->picDemo->Width());
}

// Step 3 played with its real waits; a click comes inside the first of them. A click on Next
// plays step 4 at once and the deal then ends over it; the tree's entry restarts the hand.
TEST_F(SampleGame, AClickDuringTheDealTakesEffectAtOnce) {
    startWindow();
    for (const bool restart : {false, true}) {
        SCOPED_TRACE(restart ? "the tree's entry" : "Next");
        openSample();
        form->cmdNext->click();
        bool dealRunning = false;
        platform::seams().waitScale = 1;
        QTimer::singleShot(50, form.get(), [&] {
            dealRunning = form->picPocket[7]->isHidden();
            restart ? openSample() : form->cmdNext->click();
        });
        form->cmdNext->click();
        platform::seams().waitScale = 0;
        EXPECT_TRUE(dealRunning);
        if (!restart) {  // step 4 was played inside; the deal then wrote its own comment over it
            EXPECT_EQ(form->sampleStep, 4);
            EXPECT_TRUE(form->txtComments->Text().startsWith(" After the cards are dealt"));
            form->cmdNext->click();
            expectScene(5);
        } else {  // restarted, then the deal ended
            EXPECT_EQ(form->sampleStep, 1);
            EXPECT_EQ(form->cmdNext->caption(), "Next");
        }
        openSample();
        expectScene(1);
        EXPECT_TRUE(buttonHome());
    }
}

}  // namespace
