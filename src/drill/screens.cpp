// How each screen of the exercise panel sets itself up, whatever the screen before left.
#include "drill/detail.h"
#include "drill/palette.h"

namespace drill {
namespace {

std::array<bool, 9> NamesShown(bool shown) {
    std::array<bool, 9> names{};
    names.fill(shown);
    return names;
}

// What every screen does alike: no key and no Clear, an empty first surface.
Layout Base(std::string heading) {
    Layout layout;
    layout.heading = std::move(heading);
    layout.show.clearEnabled = false;
    layout.show.setAllKeys(false);
    layout.show.wipe(Surface::first);
    return layout;
}

Layout NamesLayout() {
    Layout layout = Base("Poker Hand Names");
    layout.namesShown = NamesShown(true);
    // The Pre-Flop Pair Value screen writes its own captions on names 2 to 6.
    layout.nameCaptions = {
        {2, "Full House"}, {3, "Flush"}, {4, "Straight"}, {5, "Three of a Kind"}, {6, "Two Pair"}};
    layout.secondSurfaceColour = palette::kLightGrey;
    layout.secondSurfaceName = "Hand names";
    layout.firstSurfaceName = "Hand";
    layout.show.setNamesPlain();
    layout.message = "Click [Start] to begin..";
    layout.exercise1 =
        "You pick 5 cards from the keyboard the program displays the poker hand name";
    layout.exercise2 =
        "The program will display a random hand, you pick the correct name from the list";
    layout.starts = {Start::names1, Start::names2};
    return layout;
}

Layout RankingsLayout(State& state) {
    Layout layout = Base("Poker Hand Rankings");
    layout.secondSurfaceColour = palette::kTableGreen;
    layout.secondSurfaceName = "Second hand";
    layout.firstSurfaceName = "First hand";
    layout.show.wipe(Surface::second);
    layout.exercise1 =
        "You pick  2 sets of 5 cards from the keyboard, the program picks the higher ranked hand";
    layout.exercise2 = "The program will display 2 random hands, you pick the highest ranked hand";
    state.messageBlinking = true;
    layout.message = "Click [Start] to begin...";
    layout.starts = {Start::rankings1, Start::rankings2};
    return layout;
}

Layout PairValueLayout() {
    Layout layout = Base("Pre-Flop Pair Value");
    layout.namesShown = {false, false, true, true, true, true, true, false, false};
    layout.nameCaptions = {
        {2, "Very Good"}, {3, "Good"}, {4, "Average"}, {5, "Bad"}, {6, "Very Bad"}};
    layout.show.setNamesPlain();
    layout.secondSurfaceColour = palette::kLightGrey;
    layout.firstSurfaceName = "Two cards";
    layout.secondSurfaceName = "Pair values";
    layout.message = "Click [Start] to begin..";
    layout.exercise1 = "Pick 2 cards from the keyboard, program displays the preflop pair value";
    layout.exercise2 =
        "The program will display a random pair, you pick a value label from the list";
    layout.starts = {Start::pair1, Start::pair2};
    return layout;
}

Layout BestHandLayout(State& state) {
    Layout layout = Base("Best Hand Recognition");
    layout.secondSurfaceColour = palette::kTableGreen;
    layout.firstSurfaceName = "Board";
    layout.secondSurfaceName = "Your two cards";
    layout.show.wipe(Surface::second);
    layout.exercise1 = "Pick the best pocket pair to the board. (full house or less)";
    state.messageBlinking = true;
    layout.message = "Click [Start] to begin...";
    layout.starts = {Start::bestHand};
    layout.exercise2Enabled = false;
    return layout;
}

}  // namespace

Layout OpenScreen(State& state, Screen screen) {
    switch (screen) {
        case Screen::names:
            return NamesLayout();
        case Screen::rankings:
            return RankingsLayout(state);
        case Screen::pairValue:
            return PairValueLayout();
        case Screen::bestHand:
            return BestHandLayout(state);
    }
    return NamesLayout();
}

}  // namespace drill
