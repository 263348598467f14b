// The exercises' rules on the library, without a window: what each event does to the state
// and what the window is asked to show.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

#include "drill/keyboard.h"
#include "drill/palette.h"
#include "drill/rules.h"
#include "drill/steering.h"
#include "pairs/pairs.h"
#include "support/scripted_random.h"

namespace drill {
namespace {

class Rules : public ::testing::Test {
  protected:
    void SetUp() override {
        state.cWidth = 71;
        MapKeys(state);
        KeyboardReady(state);
    }
    // Presses the keys of these cards; gives what the last press asked to show.
    Show press(std::string_view cards) {
        Show last;
        for (const std::int16_t key : test_support::keysOf(cards))
            last = PressKey(state, key);
        return last;
    }
    void deal(std::string_view cards) {
        test_support::scriptDeal(random, test_support::keysOf(cards));
    }
    // A steering row of 4 to 6 takes the first deal as it comes.
    void unsteered() { random.script.push_back(0.6f); }

    State state;
    test_support::ScriptedRandom random;
};

TEST_F(Rules, FivePickedCardsAreFannedAndNamed) {
    EXPECT_TRUE(press("2c").drawn.empty()) << "a key answered before any Start";
    const std::pair<const char*, std::int16_t> rows[] = {
        {"As Ks Qs Js Ts", 0}, {"2c 3d 4h 5s Ac", 4}, {"Qc Kd Ah 2s 3c", 8}};
    for (const auto& [cards, marked] : rows) {
        SCOPED_TRACE(cards);
        StartNamesPick(state);
        std::vector<std::int32_t> places;
        Show last;
        for (const std::int16_t key : test_support::keysOf(cards)) {
            last = PressKey(state, key);
            ASSERT_EQ(last.drawn.size(), 1u);
            places.push_back(last.drawn[0].x);
        }
        EXPECT_EQ(places, (std::vector<std::int32_t>{38, 52, 66, 80, 94}))
            << "a fifth of a 71-pixel card apart, from a third of a card";
        EXPECT_EQ(last.markedName, marked);
        EXPECT_EQ(last.allKeysEnabled, false);
    }
}

TEST_F(Rules, PickedHandsGetTheirVerdictAndTheSecondHandStartsAfresh) {
    StartRanksPick(state);
    press("As Ah Ac Ks Kh");
    EXPECT_EQ(press("Qc").drawn.at(0).x, 38) << "the second hand starts at the first card's place";
    EXPECT_EQ(press("Qd Qs Jc Jd").message, "Hand (1) wins with aces full of kings");
    EXPECT_TRUE(state.messageBlinking);
    EXPECT_FALSE(ClickSurface(state).message) << "a surface answered in exercise 1";
}

TEST_F(Rules, ADealtHandIsAnsweredOnceByItsNameWhileTheBorderFollowsThePointer) {
    unsteered();
    deal("9c 9d Kh Ks 4c");
    EXPECT_EQ(StartNamesRandom(state, random).drawn.size(), 5u);
    EXPECT_EQ(HoverName(state, 5).borderedName, 5);
    const Show wrong = ClickName(state, 5);
    EXPECT_EQ(wrong.sound, Sound::no);
    EXPECT_FALSE(wrong.markedName);
    const Show right = ClickName(state, 6);
    EXPECT_EQ(right.sound, Sound::yes);
    EXPECT_EQ(right.markedName, 6);
    for (std::int16_t name = -1; name <= 9; ++name) {
        EXPECT_FALSE(ClickName(state, name).sound) << "answered: the list is silent";
        EXPECT_FALSE(HoverName(state, name).borderedName) << "answered: the list is still";
    }
}

// Rows 1 to 3 of a Start deal until the first hand's category is in the row's set, rows 4 to 6
// take the first deal. A second hand shares no card with the first.
TEST_F(Rules, SteeredDealsStayInTheirRows) {
    const std::tuple<Show (*)(State&, cards::RandomSource&), steering::Table, bool> screens[] = {
        {StartNamesRandom, steering::kHandNames, false},
        {StartRanksRandom, steering::kRankings, true}};
    for (const auto& [start, table, twoHands] : screens) {
        for (int row = 1; row <= 6; ++row) {
            SCOPED_TRACE(std::to_string(row) + (twoHands ? " rankings" : " names"));
            for (int deal = 0; deal < 60; ++deal) {
                random.script.push_back((float(row) - 0.5f) / 6.0f);
                const int reseedsBefore = random.reseeds;
                start(state, random);
                if (row <= 3)
                    ASSERT_TRUE(steering::accepts(table[std::size_t(row - 1)], state.hand1Result))
                        << "dealt " << state.hand1Result;
                else
                    ASSERT_EQ(random.reseeds - reseedsBefore, 2) << "dealt more than once";
                std::set<std::int16_t> ids;
                for (std::size_t i = 0; i < 5; ++i)
                    ids.insert({state.hand1[i].drawId, state.hand2[i].drawId});
                ASSERT_TRUE(!twoHands || ids.size() == 10u) << "the hands share a card";
            }
        }
    }
}

// Exercise 1 marks the first label whose lowest rank (90, 70, 60, 50) the pair reaches;
// exercise 2 accepts only the label of the rank's band (90+, 80s, 70s, 60s, below 60).
TEST_F(Rules, PairValueLabelsFollowTheRankInBothExercises) {
    struct Row {
        const char *cards, *tableKey;
        int rank, shown, accepted;
    };
    const Row rows[] = {
        {"Ah 2c", "A2", 100, 2, 2}, {"Kh 2c", "K2", 90, 2, 2}, {"Qh 2c", "Q2", 89, 3, 3},
        {"Jh 2c", "J2", 80, 3, 3},  {"Th 2c", "T2", 79, 3, 4}, {"9h 2c", "92", 70, 3, 4},
        {"8h 2c", "82", 69, 4, 5},  {"7h 2c", "72", 60, 4, 5}, {"6h 2c", "62", 59, 5, 6},
        {"5h 2c", "52", 50, 5, 6},  {"4h 2c", "42", 49, 6, 6}};
    state.pairTable.items.assign(169, {"", "x"});  // each key at the first position of its rank
    for (const Row& r : rows) {
        int position = 1;
        while (position < 169 && pairs::RankOfPosition(position) != r.rank)
            ++position;
        state.pairTable.items[std::size_t(position - 1)].second = r.tableKey;
    }
    for (const Row& r : rows) {
        SCOPED_TRACE(r.tableKey);
        const std::string rankText = "Preflop rank is " + std::to_string(r.rank) + "%";
        StartPairPick(state);
        const Show picked = press(r.cards);
        EXPECT_EQ(picked.markedName, r.shown);
        EXPECT_EQ(picked.message, rankText);

        deal(r.cards);
        StartPairRandom(state, random);
        ASSERT_EQ(state.hand2Result, r.rank) << "not dealt as scripted";
        std::string sounds;
        for (int n = 1; n <= 5; ++n) {  // every other label first, each a wrong answer
            const auto label = std::int16_t(2 + (r.accepted - 2 + n) % 5);
            const Show answer = ClickName(state, label);
            sounds += answer.sound == Sound::yes ? 'Y' : answer.sound == Sound::no ? 'n' : '-';
            EXPECT_TRUE(answer.sound != Sound::yes || answer.markedName == r.accepted);
        }
        EXPECT_EQ(sounds, "nnnnY");
        EXPECT_FALSE(ClickName(state, std::int16_t(r.accepted)).sound) << "answered twice";
    }
}

// The answer reads the board as dealt; the picks, the first open keys, only trigger it.
TEST_F(Rules, BestHandDealsThenTakesTwoPicksThenGivesTheBoardsAnswer) {
    const std::pair<const char*, const char*> boards[] = {
        {"3c 9c 9d Kc Kh", "Any K makes a full house"},
        {"2c 5d 8s Jh Kc", "Best Hand is 3 of a Kind (KKK)"},
    };
    state.messageBlinking = true;
    for (const auto& [cards, answer] : boards) {
        SCOPED_TRACE(cards);
        deal(cards);
        const Show dealt = StartBestHand(state, random);
        EXPECT_FALSE(dealt.clearEnabled) << "Clear comes with the answer";
        EXPECT_TRUE(state.messageBlinking) << "the deal leaves the blinking alone";
        EXPECT_FALSE(press("Ac").message);
        const Show second = press("Ad");
        EXPECT_EQ(second.message, answer);
    }
    EXPECT_EQ(Clear(state, random).disabledKeys.size(), 5u) << "Clear deals again";
    EXPECT_FALSE(state.messageBlinking) << "Clear stops the blinking";
    for (int deal = 0; deal < 300; ++deal) {  // three of a value are dealt again
        StartBestHand(state, random);
        std::map<std::int16_t, int> perValue;
        for (std::size_t i = 0; i < 5; ++i)
            ASSERT_LT(++perValue[keyboard::CardOfKey(state.deck[i]).value], 3) << "deal " << deal;
    }
}

TEST_F(Rules, BlinkingShowsTheMessageForFourTicksAndHidesItForOne) {
    std::int32_t colour = palette::kBlack;
    state.messageBlinking = false;
    EXPECT_FALSE(Tick(state, colour)) << "a tick without blinking changed it";
    state.messageBlinking = true;
    std::string seen;
    for (int tick = 0; tick < 15; ++tick) {
        colour = Tick(state, colour).value_or(colour);
        seen += colour == palette::kBlack ? '-' : '#';
    }
    EXPECT_EQ(seen, "####-####-####-");
    StartNamesPick(state);  // a Start stops the blinking with the message shown
    EXPECT_FALSE(Tick(state, palette::kBlack));
}

}  // namespace
}  // namespace drill
