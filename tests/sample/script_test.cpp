// The sample hand as the user sees it, click by click: the comment, every seat label, the
// cards on the table, the button's caption and the link out.
#include <string>

#include "support/window_fixture.h"

namespace {

// What the table shows after a step. Seat labels 0..8 are separated by '|', "-" for a hidden
// one; for cards, 'c' is a card on the table and '.' an empty place.
struct Scene {
    const char* comment;
    const char* labels;
    const char* pockets;   // seats 0..7
    const char* board;     // flop, turn, river
    const char* showdown;  // the two hands shown at the end
    const char* button = "Next";
    bool linkOut = false;
};

const std::string kSummary =
    "Summary of the action..\r\n"
    "There were no raises preflop, everyone smooth called the blinds. "
    "sharky (JJ) could have raised preflop to try to thin the field but he played conservatively. "
    "At the flop, whaland tried a bluff but got called by sharky and mackarelli. "
    "Again, sharky should have raised on the flop but decided to slow play his trips. "
    "whaland has nothing so he is not about to bet or call and ends up folding on the turn. "
    "The turn gives mackarelli a gutshot straight draw so she hangs around for the river. "
    "The river gives mackarelli her miracle 'runner runner' gutshot "
    "so she gleefully pulls a check-raise routine on the unsuspecting sharky. "
    "sharky bets and is blindsided by a most unwelcome raise. "
    "sharky notices (too late) that the board shows 4 to a str8 and figures he is beat. "
    "But he is in too deep to fold with trips so he reluctantly calls. "
    "Losing with trips to a runner runner gutshot could qualify as a bad beat "
    "mackarelli had no business being in that hand. "
    "but sharky shares some blame for slow playing and letting mackarelli in cheap. "
    "In the long run, calling with 10-4 is a good way to go broke. "
    "but at the low limit tables, the action is wild and loose. "
    "and such are the ways of Texas Hold'em. "
    "A hand can go from worthless on the flop to a monster by the river. "
    "These crazy swings in the value of a hand make Texas Hold'em an addictively exciting and "
    "exhilarating game "
    "when the cards hit, and a maddening exercise in futility when the bad luck streaks strike. "
    "sharky being the gentleman that he is, politely types 'nice hand' "
    "while yelling 'you lucky (bleep bleep) at the monitor :-)";

const std::string kTurnLecture =
    "The fourth card on the board is the 'turn' or sometimes called '4th street'. Another betting "
    "round "
    "starts with the minimum bets and raises now increased to the higher level of $1 This is how "
    "limit "
    "poker betting structure is different from no limit variety where anyone can bet as much as "
    "they "
    "like.  Preflop and at the flop, the betting is limited to the lower number and the maximum "
    "bets and "
    "raises allowed per round is 4. bet->raise->reraise->reraise->call.  This makes it possible to "
    "play "
    "without losing all your money in one round. and if you are at a full table, with alot of "
    "action, "
    "you can win some nice pots without risking too many for your chips.  Low limit games of 25c "
    "and 50c "
    "are very popular online ";

const Scene kHand[34] = {
    {" Here is a sample commented demonstration of an online low limit 50c/$1 Texas Hold'em Poker "
     "game\r\n (click next  to continue)",
     "-|-|-|-|-|-|-|-|-", "........", ".....", ".."},
    {" A new game starts with the clockwise rotation of the dealer position (button) The blinds "
     "(mandatory bets) are posted by the 2 players next to the dealer, and each player is dealt 2 "
     "cards\r\n  (click next to continue)",
     "-|-|-|-|-|-|-|-|-", "........", ".....", ".."},
    {" After the cards are dealt, a round of betting follows. The blinds have each already posted "
     "a "
     "bet, so the first person to act is the player immediately next to the big blind "
     "(mackarelli). "
     "The action proceeds clockwise until every player either (a) Calls the big blind amount (or "
     "any "
     "amount equal to any raises) (b) Raises or (c) Folds ",
     "0.25|0.50|-|-|-|-|-|-|-", "cccccccc", ".....", ".."},
    {"\r\n mackarelli calls", "0.25|0.50|50c|-|-|-|-|-|-", "cccccccc", ".....", ".."},
    {"\r\n whaland calls", "0.25|0.50|50c|50c|-|-|-|-|-", "cccccccc", ".....", ".."},
    {"\r\n McCoddy folds", "0.25|0.50|50c|50c|folded|-|-|-|-", "cccc.ccc", ".....", ".."},
    {"\r\n flounders folds", "0.25|0.50|50c|50c|folded|folded|-|-|-", "cccc..cc", ".....", ".."},
    {"\r\n tunasia calls", "0.25|0.50|50c|50c|folded|folded|50c|-|-", "cccc..cc", ".....", ".."},
    {"\r\n sharky calls", "0.25|0.50|50c|50c|folded|folded|50c|50c|-", "cccc..cc", ".....", ".."},
    {"Jonah who posted the small blind has the option to call and make it a full bet or fold. "
     "Bassinger who posted the big blind has the option to raise or just check if there were no "
     "raises by anyone else. Jonah calls and Bassinger checks.",
     "50c|0.50|50c|50c|folded|folded|50c|50c|-", "cccc..cc", ".....", ".."},
    {" We have a flop and a new round of betting starts. This time there are no mandatory blind "
     "bets "
     "and the first person to act is the small blind (Jonah).  At this stage the options are (a) "
     "Check (b) Bet or (c) Fold. If someone does make a bet, then everyone else will have to call "
     "(or "
     "raise) to stay in the hand",
     "-|-|-|-|-|-|-|-|Pot  $3.00", "cccc..cc", "ccc..", ".."},
    {"\r\nJonah checks", "chk|-|-|-|-|-|-|-|Pot  $3.00", "cccc..cc", "ccc..", ".."},
    {"\r\nbassinger checks", "chk|chk|-|-|-|-|-|-|Pot  $3.00", "cccc..cc", "ccc..", ".."},
    {"\r\nmackarelli checks", "chk|chk|chk|-|-|-|-|-|Pot  $3.00", "cccc..cc", "ccc..", ".."},
    {"\r\nwhaland bets", "chk|chk|chk|50c|-|-|-|-|Pot  $3.00", "cccc..cc", "ccc..", ".."},
    {"\r\ntunasia folds", "chk|chk|chk|50c|-|-|folds|-|Pot  $3.00", "cccc...c", "ccc..", ".."},
    {"\r\nsharky calls", "chk|chk|chk|50c|-|-|folds|50c|Pot  $3.00", "cccc...c", "ccc..", ".."},
    {"\r\nJonah folds", "folds|chk|chk|50c|-|-|folds|50c|Pot  $3.00", ".ccc...c", "ccc..", ".."},
    {"\r\nbassinger folds", "folds|folds|chk|50c|-|-|folds|50c|Pot  $3.00", "..cc...c", "ccc..",
     ".."},
    {"\r\nmackarelli calls", "folds|folds|50c|50c|-|-|folds|50c|Pot  $3.00", "..cc...c", "ccc..",
     ".."},
    {kTurnLecture.c_str(), "-|-|-|-|-|-|-|-|Pot  $4.50", "..cc...c", "cccc.", ".."},
    {"\r\nmackarelli checks", "-|-|chk|-|-|-|-|-|Pot  $4.50", "..cc...c", "cccc.", ".."},
    {"\r\nwhaland checks (probably was bluffing on the flop or has a weak underpair)",
     "-|-|chk|chk|-|-|-|-|Pot  $4.50", "..cc...c", "cccc.", ".."},
    {"\r\nsharky bets", "-|-|chk|chk|-|-|-|$1|Pot  $4.50", "..cc...c", "cccc.", ".."},
    {"\r\nmackarelli calls", "-|-|$1|chk|-|-|-|$1|Pot  $4.50", "..cc...c", "cccc.", ".."},
    {"\r\nwhaland folds", "-|-|$1|folds|-|-|-|$1|Pot  $4.50", "..c....c", "cccc.", ".."},
    {"The fifth and final community card on the board is the 'river'. Another betting round starts "
     "with the minimum bet at $1",
     "-|-|-|-|-|-|-|-|Pot  $6.50", "..c....c", "ccccc", ".."},
    {"\r\nmackarelli checks", "-|-|chk|-|-|-|-|-|Pot  $6.50", "..c....c", "ccccc", ".."},
    {"\r\nsharky bets", "-|-|chk|-|-|-|-|$1|Pot  $6.50", "..c....c", "ccccc", ".."},
    {"\r\nmackarelli raises", "-|-|$2|-|-|-|-|$1|Pot  $6.50", "..c....c", "ccccc", ".."},
    {"sharky calls - sharky (JJ) has a strong hand and would normally reraise,  but with 4 to a "
     "straight showing on the board, he knows better ",
     "-|-|$2|-|-|-|-|$2|Pot  $6.50", "..c....c", "ccccc", ".."},
    {"\r\nShowdown: mackarelli wins with a straight", "-|-|-|-|-|-|-|-|Pot  $10.50", "..c....c",
     "ccccc", "cc"},
    {kSummary.c_str(), "-|-|-|-|-|-|-|-|Pot  $10.50", "..c....c", "ccccc", "cc"},
    {"Ready to play poker online ? \r\nPacificPoker has free games,\r\nfree $1000 practice play "
     "chips "
     "\r\n and a free lunch buffet (ok ok :-) no free lunch buffet but its a great place to play "
     "poker. "
     "Click the link below and check em out ",
     "-|-|-|-|-|-|-|-|Pot  $10.50", "..c....c", "ccccc", "cc", "Replay", true},
};

template <std::size_t N>
std::string cardsShown(const std::array<platform::PictureBox*, N>& places) {
    std::string shown;
    for (const auto* place : places)
        shown += place->isHidden() ? '.' : 'c';
    return shown;
}

class SampleScript : public test_support::WindowTest {
  protected:
    std::string labelsShown() const {
        std::string shown;
        for (const auto* label : form->lblArray) {
            if (!shown.empty())
                shown += '|';
            shown += label->isHidden() ? std::string("-") : label->caption().toStdString();
        }
        return shown;
    }

    void expectScene(const Scene& expected) const {
        EXPECT_EQ(form->txtComments->Text().toStdString(), expected.comment);
        EXPECT_EQ(labelsShown(), expected.labels);
        EXPECT_EQ(cardsShown(form->picPocket), expected.pockets);
        EXPECT_EQ(cardsShown(form->picFlop), expected.board);
        EXPECT_EQ(cardsShown(std::array{form->picShowDown1, form->picShowDown2}),
                  expected.showdown);
        EXPECT_EQ(form->cmdNext->caption().toStdString(), expected.button);
        EXPECT_EQ(!form->lblEnough->isHidden(), expected.linkOut);
    }

    // Plays the hand from the step now shown (1) to the end, checking every step.
    void playWholeHand() {
        for (int step = 1; step <= 34; ++step) {
            SCOPED_TRACE("step " + std::to_string(step));
            if (step > 1)
                form->cmdNext->click();
            EXPECT_EQ(form->sampleStep, step);
            expectScene(kHand[step - 1]);
        }
    }
};

TEST_F(SampleScript, EveryStepShowsItsCommentSeatsAndCards) {
    startWindow();
    clickTopic("Sample Poker Game");
    EXPECT_FALSE(form->picDemo->isHidden());
    playWholeHand();
}

TEST_F(SampleScript, TheClickAfterTheLastStepDealsTheSameHandAgain) {
    startWindow();
    clickTopic("Sample Poker Game");
    for (int step = 2; step <= 34; ++step)
        form->cmdNext->click();
    form->cmdNext->click();
    playWholeHand();
}

TEST_F(SampleScript, ChoosingTheTopicAgainRestartsAtAnyStep) {
    startWindow();
    for (int leaveAt : {2, 15, 33}) {
        SCOPED_TRACE("left at step " + std::to_string(leaveAt));
        clickTopic("Sample Poker Game");
        for (int step = 2; step <= leaveAt; ++step)
            form->cmdNext->click();
        clickTopic("Poker Hand Names");
    }
    clickTopic("Sample Poker Game");
    playWholeHand();
}

}  // namespace
