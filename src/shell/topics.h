// The topic tree as one table: it builds the tree and drives TreeView1_NodeClick.
#pragma once

#include <array>
#include <string_view>

namespace topics {

enum class Action { Page, Exercise, SampleGame };
enum class Screen { None, HandNames, Rankings, PairValue, BestHand, SampleGame };

struct Topic {
    int parentIndex;  // 0 for a top-level entry
    std::string_view key;
    std::string_view text;
    Action action;
    std::string_view page;  // "\html\..." for a page
    Screen screen;
    bool treeTakesFocus;
};

inline constexpr std::array<Topic, 34> kTopics{{
    {0, "R1", "Intro", Action::Page, "\\html\\intro.html", Screen::None, false},
    {1, "A2", "How this works..", Action::Page, "\\html\\usage.html", Screen::None, false},
    {0, "R2", "Poker Basics", Action::Page, "\\html\\basics.html", Screen::None, false},
    {3, "A4", "History of Poker", Action::Page, "\\html\\history.html", Screen::None, false},
    {3, "A5", "Poker Hands and Ranking", Action::Page, "\\html\\rank.html", Screen::None, false},
    {3, "A6", "Poker Variants", Action::Page, "\\html\\variants.html", Screen::None, false},
    {3, "A66", "Poker Terms", Action::Page, "\\html\\terms.html", Screen::None, false},
    {0, "", "Interactive Lesson I", Action::Page, "\\html\\quiz1.html", Screen::None, true},
    {8, "A7", "Poker Hand Names", Action::Exercise, "", Screen::HandNames, true},
    {8, "A8", "Poker Hand Rankings", Action::Exercise, "", Screen::Rankings, true},
    {0, "", "Texas Hold'em Poker", Action::Page, "\\html\\txholdem.html", Screen::None, true},
    {11, "A9", "Introduction", Action::Page, "\\html\\txintro.html", Screen::None, false},
    {11, "A10", "Rules", Action::Page, "\\html\\txrules.html", Screen::None, false},
    {11, "A11", "Limit vs No Limit", Action::Page, "\\html\\txlimit.html", Screen::None, false},
    {11, "A12", "Pocket pair odds", Action::Page, "\\html\\txpair.html", Screen::None, false},
    {11, "A13", "Preflop strategy", Action::Page, "\\html\\txprestrategy.html", Screen::None,
     false},
    {11, "A14", "Post flop strategy", Action::Page, "\\html\\txpoststrategy.html", Screen::None,
     false},
    {11, "A15", "Pot odds", Action::Page, "\\html\\txpot.html", Screen::None, false},
    {11, "A16", "Position", Action::Page, "\\html\\txposition.html", Screen::None, false},
    {11, "A17", "Software", Action::Page, "\\html\\txsoftware.html", Screen::None, false},
    {0, "", "Interactive Lesson II", Action::Page, "\\html\\quiz2.html", Screen::None, false},
    {21, "A18", "Starting Pair Awareness", Action::Exercise, "", Screen::PairValue, false},
    {21, "A19", "Best Hand Recognition", Action::Exercise, "", Screen::BestHand, false},
    {21, "A30", "Sample Poker Game", Action::SampleGame, "", Screen::SampleGame, false},
    {0, "", "Play Poker Online", Action::Page, "\\html\\online.html", Screen::None, false},
    {25, "A20", "Select a site", Action::Page, "\\html\\onselect.html", Screen::None, false},
    {25, "A21", "Practice with play money", Action::Page, "\\html\\onpractice.html", Screen::None,
     false},
    {25, "A22", "Online poker table etiquette", Action::Page, "\\html\\onetiquette.html",
     Screen::None, false},
    {25, "A23", "Deposit real money", Action::Page, "\\html\\ondeposit.html", Screen::None, false},
    {25, "A25", "Online Poker software reliability", Action::Page, "\\html\\onreliable.html",
     Screen::None, false},
    {25, "A26", "Online Poker cheating concerns", Action::Page, "\\html\\oncheating.html",
     Screen::None, false},
    {25, "A27", "Online gambling legal issues", Action::Page, "\\html\\onlegal.html", Screen::None,
     false},
    {25, "A28", "Gambling addiction awareness", Action::Page, "\\html\\onaddiction.html",
     Screen::None, false},
    {25, "A29", "Enjoy..", Action::Page, "\\html\\enjoy.html", Screen::None, false},
}};

// The Index values of the top-level entries, the ones BoldTopTopics marks.
inline constexpr std::array<int, 6> kTopLevelIndices{1, 3, 8, 11, 21, 25};

}  // namespace topics
