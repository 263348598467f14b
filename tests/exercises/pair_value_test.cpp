// Pre-Flop Pair Value through the window: ranks from the 169 file at the edges of the label
// tables, in both exercises, and the lookup of picked and dealt cards.
#include <QFile>
#include <QTextStream>

#include "pair_best_support.h"
#include "pairs/pairs.h"
#include "support/window_fixture.h"

namespace {

using pair_best::kClubs;
using pair_best::kDiamonds;
using pair_best::Key;
using pair_best::kHearts;
using pair_best::kSpades;

constexpr const char* kValueLetters = "AKQJT98765432";

// All 169 keys: pairs, then suited, then offsuit.
std::vector<std::string> AllKeys() {
    std::vector<std::string> keys;
    for (int i = 0; i < 13; ++i) {
        keys.push_back(std::string(2, kValueLetters[i]));
    }
    for (const char* suffix : {"s", ""}) {
        for (int i = 0; i < 13; ++i) {
            for (int j = i + 1; j < 13; ++j) {
                keys.push_back(std::string{kValueLetters[i], kValueLetters[j]} + suffix);
            }
        }
    }
    return keys;
}

int PositionOfRank(int rank) {
    for (int position = 1; position <= 169; ++position) {
        if (pairs::RankOfPosition(position) == rank) {
            return position;
        }
    }
    ADD_FAILURE() << "no position has rank " << rank;
    return 1;
}

class PairValueTest : public test_support::WindowTest {
  protected:
    // Writes a full 169 file in which each named key stands at the position of its rank.
    void writeTable(const std::vector<std::pair<std::string, int>>& keyAtRank) {
        std::vector<std::string> rest = AllKeys();
        std::vector<std::string> table(169);
        for (const auto& [key, rank] : keyAtRank) {
            table[static_cast<std::size_t>(PositionOfRank(rank) - 1)] = key;
            rest.erase(std::find(rest.begin(), rest.end(), key));
        }
        auto next = rest.begin();
        for (auto& entry : table) {
            if (entry.empty()) {
                entry = *next++;
            }
        }
        QFile file(appFile(QStringLiteral("169.txt")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text));
        QTextStream out(&file);
        for (const auto& entry : table) {
            out << QString::fromStdString(entry) << ",\n";
        }
    }

    void openScreen() {
        startWindow();
        clickTopic(QStringLiteral("Starting Pair Awareness"));
    }

    // Exercise 1: picks two keys; the result shows.
    void pickPair(int first, int second) {
        form->cmdStart3A->click();
        form->cmdKey[static_cast<std::size_t>(first)]->click();
        form->cmdKey[static_cast<std::size_t>(second)]->click();
    }

    // Exercise 2: deals exactly these two keys.
    void dealPair(int first, int second) {
        const std::array<int, 2> wanted{first, second};
        for (const float u : pair_best::ScriptDeal(wanted)) {
            random->script.push_back(u);
        }
        form->cmdStart3B->click();
        // The deal lies over whatever picShow held: its last two cards are the new pair.
        const auto onSurface = pair_best::KeysOnSurface(*form, *form->picShow);
        ASSERT_GE(onSurface.size(), 2u);
        ASSERT_EQ(std::vector<int>(onSurface.end() - 2, onSurface.end()),
                  (std::vector<int>{first, second}));
    }

    QString message() const { return form->lblMessage->caption(); }
};

struct RankCase {
    int rank;
    int shownLabel;     // exercise 1 highlights this label
    int acceptedLabel;  // exercise 2 accepts this label only
};

class PairValueRankTest : public PairValueTest, public ::testing::WithParamInterface<RankCase> {};

TEST_P(PairValueRankTest, BothExercisesUseTheirOwnLabelTable) {
    const RankCase c = GetParam();
    writeTable({{"A2", c.rank}});
    openScreen();
    const QString rankText = QStringLiteral("Preflop rank is %1%").arg(c.rank);

    pickPair(Key(kHearts, "A"), Key(kClubs, "2"));
    EXPECT_EQ(markedName(), c.shownLabel);
    EXPECT_EQ(message(), rankText);
    EXPECT_TRUE(enabledKeys().empty());
    EXPECT_TRUE(recorded.sounds.empty()) << "exercise 1 plays no sound";

    dealPair(Key(kClubs, "2"), Key(kDiamonds, "A"));
    EXPECT_EQ(markedName(), -1);
    EXPECT_EQ(message(), QStringLiteral("Click a pair value label from the list.."));
    for (int label = 2; label <= 6; ++label) {
        if (label == c.acceptedLabel) {
            continue;
        }
        pair_best::ClickName(*form, label);
        ASSERT_EQ(recorded.sounds.size(), 1u);
        EXPECT_TRUE(recorded.sounds.back().endsWith(QStringLiteral("no.wav"))) << "label " << label;
        recorded.sounds.clear();
        EXPECT_EQ(markedName(), -1) << "a wrong label changes nothing";
        EXPECT_EQ(message(), QStringLiteral("Click a pair value label from the list.."));
    }
    pair_best::ClickName(*form, c.acceptedLabel);
    ASSERT_EQ(recorded.sounds.size(), 1u);
    EXPECT_TRUE(recorded.sounds.back().endsWith(QStringLiteral("yes.wav")));
    EXPECT_EQ(markedName(), c.acceptedLabel);
    EXPECT_EQ(message(), rankText);

    // Answered: no label does anything any more, not even a sound.
    for (int label = 0; label <= 8; ++label) {
        pair_best::ClickName(*form, label);
    }
    EXPECT_EQ(recorded.sounds.size(), 1u);
    EXPECT_EQ(markedName(), c.acceptedLabel);
    EXPECT_EQ(message(), rankText);
}

INSTANTIATE_TEST_SUITE_P(
    TableEdges, PairValueRankTest,
    ::testing::Values(RankCase{100, 2, 2}, RankCase{90, 2, 2}, RankCase{89, 3, 3},
                      RankCase{80, 3, 3}, RankCase{79, 3, 4}, RankCase{75, 3, 4},
                      RankCase{70, 3, 4}, RankCase{69, 4, 5}, RankCase{65, 4, 5},
                      RankCase{60, 4, 5}, RankCase{59, 5, 6}, RankCase{55, 5, 6},
                      RankCase{50, 5, 6}, RankCase{49, 6, 6}, RankCase{0, 6, 6}),
    [](const auto& info) { return "rank" + std::to_string(info.param.rank); });

TEST_F(PairValueTest, MissingTableRanksEveryPairZeroAndSaysSoOnceBeforeTheWindowShows) {
    ASSERT_TRUE(QFile::remove(appFile(QStringLiteral("169.txt"))));
    std::vector<bool> windowVisibleAtMessage;
    platform::seams().messageBox = [this, &windowVisibleAtMessage](const QString& text) {
        recorded.messages.push_back(text);
        windowVisibleAtMessage.push_back(form && form->isVisible());
    };
    openScreen();
    ASSERT_EQ(recorded.messages.size(), 1u);
    EXPECT_TRUE(recorded.messages[0].startsWith(QStringLiteral("error in load169 -")));
    EXPECT_GT(recorded.messages[0].size(), QStringLiteral("error in load169 -").size())
        << "the platform's description follows";
    EXPECT_FALSE(windowVisibleAtMessage[0]);

    pickPair(Key(kSpades, "A"), Key(kHearts, "A"));
    EXPECT_EQ(markedName(), 6);
    EXPECT_EQ(message(), QStringLiteral("Preflop rank is 0%"));

    dealPair(Key(kSpades, "A"), Key(kSpades, "K"));
    pair_best::ClickName(*form, 6);
    EXPECT_EQ(markedName(), 6);
    ASSERT_EQ(recorded.sounds.size(), 1u);
    EXPECT_TRUE(recorded.sounds[0].endsWith(QStringLiteral("yes.wav")));
    EXPECT_EQ(recorded.messages.size(), 1u) << "the message shows once, at start-up only";
}

// Suited, offsuit and pair keys at ranks that show in the message.
struct LookupCase {
    const char* name;
    int first;
    int second;
    int rank;
};

TEST_F(PairValueTest, PickedAndDealtCardsLookUpTheirOwnKind) {
    writeTable({{"AKs", 95}, {"AK", 85}, {"KK", 99}, {"T9s", 62}, {"T9", 40}, {"92", 3}});
    openScreen();
    const std::array<LookupCase, 7> cases{{
        {"one row is suited", Key(kSpades, "A"), Key(kSpades, "K"), 95},
        {"either order", Key(kHearts, "K"), Key(kHearts, "A"), 95},
        {"two rows are offsuit", Key(kClubs, "A"), Key(kDiamonds, "K"), 85},
        {"one column is a pair", Key(kClubs, "K"), Key(kHearts, "K"), 99},
        {"ten as T, suited", Key(kDiamonds, "9"), Key(kDiamonds, "10"), 62},
        {"ten as T, offsuit", Key(kDiamonds, "9"), Key(kClubs, "10"), 40},
        {"low offsuit", Key(kClubs, "2"), Key(kSpades, "9"), 3},
    }};
    for (const LookupCase& c : cases) {
        SCOPED_TRACE(c.name);
        pickPair(c.first, c.second);
        EXPECT_EQ(message(), QStringLiteral("Preflop rank is %1%").arg(c.rank));
        dealPair(c.first, c.second);
        EXPECT_EQ(form->hand2Result, form->hand1Result) << "dealt and picked cards agree";
        EXPECT_EQ(form->hand2[0].category, form->hand2Result);
    }
}

}  // namespace
