// The script of the sample hand: one step per click on cmdNext. Each step may first play a
// scene, then writes its comment and changes a seat. The comments are the screen's content,
// written exactly as they are to appear ("\r\n" is the text box's line break).
#include <span>
#include <string_view>

#include "shell/frmMain.h"

namespace {

enum class Scene { None, Deal, Flop, Turn, River, Showdown };

// A seat label shows a new caption; a player who folds has his cards taken away.
struct SeatChange {
    int seat = -1;  // none
    std::string_view caption{};
    bool cardsTaken = false;
};

struct ScriptStep {
    Scene before = Scene::None;
    std::string_view comment{};  // replaces the text of the box
    SeatChange seat{};
    std::span<const std::string_view> appended{};  // added to the box one by one
    bool offersRealGame = false;                   // the last step: "Replay" and the link out
};

constexpr std::array<std::string_view, 21> kSummaryBody{
    "There were no raises preflop, everyone smooth called the blinds. ",
    "sharky (JJ) could have raised preflop to try to thin the field but he played conservatively. ",
    "At the flop, whaland tried a bluff but got called by sharky and mackarelli. ",
    "Again, sharky should have raised on the flop but decided to slow play his trips. ",
    "whaland has nothing so he is not about to bet or call and ends up folding on the turn. ",
    "The turn gives mackarelli a gutshot straight draw so she hangs around for the river. ",
    "The river gives mackarelli her miracle 'runner runner' gutshot ",
    "so she gleefully pulls a check-raise routine on the unsuspecting sharky. ",
    "sharky bets and is blindsided by a most unwelcome raise. ",
    "sharky notices (too late) that the board shows 4 to a str8 and figures he is beat. ",
    "But he is in too deep to fold with trips so he reluctantly calls. ",
    "Losing with trips to a runner runner gutshot could qualify as a bad beat ",
    "mackarelli had no business being in that hand. ",
    "but sharky shares some blame for slow playing and letting mackarelli in cheap. ",
    "In the long run, calling with 10-4 is a good way to go broke. ",
    "but at the low limit tables, the action is wild and loose. ",
    "and such are the ways of Texas Hold'em. ",
    "A hand can go from worthless on the flop to a monster by the river. ",
    "These crazy swings in the value of a hand make Texas Hold'em an addictively exciting and "
    "exhilarating game when the cards hit, and a maddening exercise in futility when the bad luck "
    "streaks strike. ",
    "sharky being the gentleman that he is, politely types 'nice hand' ",
    "while yelling 'you lucky (bleep bleep) at the monitor :-)",
};

constexpr std::array<ScriptStep, 34> kScript{{
    // 1
    {.comment = " Here is a sample commented demonstration of an online low limit 50c/$1 Texas "
                "Hold'em Poker game\r\n (click next  to continue)"},
    // 2
    {.comment =
         " A new game starts with the clockwise rotation of the dealer position (button) The "
         "blinds (mandatory bets) are posted by the 2 players next to the dealer, and each "
         "player is dealt 2 cards\r\n  (click next to continue)"},
    // 3
    {.before = Scene::Deal,
     .comment =
         " After the cards are dealt, a round of betting follows. The blinds have each already "
         "posted a bet, so the first person to act is the player immediately next to the big "
         "blind (mackarelli). The action proceeds clockwise until every player either (a) "
         "Calls the big blind amount (or any amount equal to any raises) (b) Raises or (c) "
         "Folds "},
    // 4 to 9: the first round of betting
    {.comment = "\r\n mackarelli calls", .seat = {2, "50c"}},
    {.comment = "\r\n whaland calls", .seat = {3, "50c"}},
    {.comment = "\r\n McCoddy folds", .seat = {4, "folded", true}},
    {.comment = "\r\n flounders folds", .seat = {5, "folded", true}},
    {.comment = "\r\n tunasia calls", .seat = {6, "50c"}},
    {.comment = "\r\n sharky calls", .seat = {7, "50c"}},
    // 10
    {.comment = "Jonah who posted the small blind has the option to call and make it a full bet or "
                "fold. Bassinger who posted the big blind has the option to raise or just check if "
                "there were no raises by anyone else. Jonah calls and Bassinger checks.",
     .seat = {0, "50c"}},
    // 11
    {.before = Scene::Flop,
     .comment =
         " We have a flop and a new round of betting starts. This time there are no mandatory "
         "blind bets and the first person to act is the small blind (Jonah).  At this stage "
         "the options are (a) Check (b) Bet or (c) Fold. If someone does make a bet, then "
         "everyone else will have to call (or raise) to stay in the hand"},
    // 12 to 20: betting on the flop
    {.comment = "\r\nJonah checks", .seat = {0, "chk"}},
    {.comment = "\r\nbassinger checks", .seat = {1, "chk"}},
    {.comment = "\r\nmackarelli checks", .seat = {2, "chk"}},
    {.comment = "\r\nwhaland bets", .seat = {3, "50c"}},
    {.comment = "\r\ntunasia folds", .seat = {6, "folds", true}},
    {.comment = "\r\nsharky calls", .seat = {7, "50c"}},
    {.comment = "\r\nJonah folds", .seat = {0, "folds", true}},
    {.comment = "\r\nbassinger folds", .seat = {1, "folds", true}},
    {.comment = "\r\nmackarelli calls", .seat = {2, "50c"}},
    // 21
    {.before = Scene::Turn,
     .comment =
         "The fourth card on the board is the 'turn' or sometimes called '4th street'. "
         "Another betting round starts with the minimum bets and raises now increased to the "
         "higher level of $1 "
         "This is how limit poker betting structure is different from no limit variety where "
         "anyone can bet as much as they like.  Preflop and at the flop, the betting is "
         "limited to the lower number "
         "and the maximum bets and raises allowed per round is 4. "
         "bet->raise->reraise->reraise->call.  This makes it possible to play without losing "
         "all your money in one round. "
         "and if you are at a full table, with alot of action, you can win some nice pots "
         "without risking too many for your chips.  Low limit games of 25c and 50c are very "
         "popular online "},
    // 22 to 26: betting on the turn
    {.comment = "\r\nmackarelli checks", .seat = {2, "chk"}},
    {.comment = "\r\nwhaland checks (probably was bluffing on the flop or has a weak underpair)",
     .seat = {3, "chk"}},
    {.comment = "\r\nsharky bets", .seat = {7, "$1"}},
    {.comment = "\r\nmackarelli calls", .seat = {2, "$1"}},
    {.comment = "\r\nwhaland folds", .seat = {3, "folds", true}},
    // 27
    {.before = Scene::River,
     .comment = "The fifth and final community card on the board is the 'river'. Another betting "
                "round starts with the minimum bet at $1"},
    // 28 to 31: betting on the river
    {.comment = "\r\nmackarelli checks", .seat = {2, "chk"}},
    {.comment = "\r\nsharky bets", .seat = {7, "$1"}},
    {.comment = "\r\nmackarelli raises", .seat = {2, "$2"}},
    {.comment =
         "sharky calls - sharky (JJ) has a strong hand and would normally reraise,  but with 4 "
         "to a straight showing on the board, he knows better ",
     .seat = {7, "$2"}},
    // 32
    {.before = Scene::Showdown, .comment = "\r\nShowdown: mackarelli wins with a straight"},
    // 33
    {.comment = "Summary of the action..\r\n", .appended = kSummaryBody},
    // 34
    {.comment = "Ready to play poker online ? \r\n" TABLEWRIGHT_ROOM_NAME
                " has free games,\r\nfree $1000 practice "
                "play chips \r\n and a free lunch buffet (ok ok :-) no free lunch buffet but its a "
                "great place to play poker. Click the link below and check em out ",
     .offersRealGame = true},
}};

QString textOf(std::string_view text) {
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

void playScene(frmMain& form, Scene scene) {
    switch (scene) {
        case Scene::None:
            break;
        case Scene::Deal:
            form.ShowSampleDeal();
            break;
        case Scene::Flop:
            form.ShowSampleFlop();
            break;
        case Scene::Turn:
            form.ShowSampleTurn();
            break;
        case Scene::River:
            form.ShowSampleRiver();
            break;
        case Scene::Showdown:
            form.ShowSampleShowdown();
            break;
    }
}

}  // namespace

void frmMain::cmdNext_Click() {
    ensureStage();
    ++sampleStep;
    if (sampleStep > static_cast<std::int16_t>(kScript.size())) {
        sampleStep = 0;
        ShowSampleGame();  // plays step 1 itself, which is then played once more below
    }
    // The scene runs to its end first (a click served inside its waits plays the next step
    // in between); only then is this step's comment written.
    const ScriptStep& step = kScript[static_cast<std::size_t>(sampleStep - 1)];
    playScene(*this, step.before);
    txtComments->setText(textOf(step.comment));
    for (std::string_view piece : step.appended)
        txtComments->setText(txtComments->Text() + textOf(piece));
    if (step.seat.seat >= 0) {
        const auto seat = static_cast<std::size_t>(step.seat.seat);
        lblArray[seat]->setCaption(textOf(step.seat.caption));
        lblArray[seat]->setVisible(true);
        if (step.seat.cardsTaken)
            picPocket[seat]->setVisible(false);
    }
    if (step.offersRealGame) {
        cmdNext->setCaption(QStringLiteral("Replay"));
        lblEnough->setVisible(true);
    }
}
