// Best Hand Recognition over thousands of seeded deals: the rule of the deal, the open keys,
// and an answer that depends on the board alone, never on the picks.
#include <random>

#include "pair_best_support.h"
#include "support/window_fixture.h"

namespace {

constexpr std::uint32_t kSeed = 20240611;
constexpr int kDeals = 4000;

class BestDealsTest : public test_support::WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        startWindow();
        clickTopic(QStringLiteral("Best Hand Recognition"));
    }

    // Two picks chosen by `pick` among the open keys; gives the answer shown.
    QString pickTwo(std::mt19937& pick) {
        for (int n = 0; n < 2; ++n) {
            const std::vector<int> open = enabledKeys();
            if (open.empty()) {
                return {};
            }
            const int key =
                open[std::uniform_int_distribution<std::size_t>(0, open.size() - 1)(pick)];
            form->cmdKey[static_cast<std::size_t>(key)]->click();
        }
        return form->lblMessage->caption();
    }

    void expectDealRule(const std::vector<int>& board) {
        ASSERT_EQ(board.size(), 5u);
        std::array<int, 13> perValue{};
        for (const int key : board) {
            ASSERT_GE(key, 0);
            ++perValue[static_cast<std::size_t>(key % 13)];
        }
        EXPECT_LT(*std::max_element(perValue.begin(), perValue.end()), 3) << "three of one value";
        const std::vector<int> open = enabledKeys();
        EXPECT_EQ(open.size(), 47u);
        for (const int key : board) {
            EXPECT_EQ(std::find(open.begin(), open.end(), key), open.end())
                << "board key " << key << " open";
        }
    }
};

TEST_F(BestDealsTest, EveryBoardKeepsTheRuleAndAnswersAlikeForAnyPicks) {
    SCOPED_TRACE(::testing::Message() << "seed " << kSeed);
    std::mt19937 values(kSeed);
    std::mt19937 picks(kSeed + 1);
    std::uniform_real_distribution<float> unit(0.0f, 0.99999994f);
    int replayed = 0;
    int oneSuitBoards = 0;
    for (int deal = 0; deal < kDeals && !HasFailure(); ++deal) {
        SCOPED_TRACE(::testing::Message() << "deal " << deal);
        std::vector<float> script(52);
        for (float& u : script) {
            u = unit(values);
        }
        random->script.assign(script.begin(), script.end());
        const int reseeds = random->reseeds;
        form->cmdStart4->click();
        const std::vector<int> board = pair_best::KeysOnSurface(*form, *form->picShow);
        expectDealRule(board);
        const QString first = pickTwo(picks);
        EXPECT_EQ(first, pair_best::AnswerForBoard(board));
        std::array<int, 4> perRow{};
        for (const int key : board) {
            ++perRow[static_cast<std::size_t>(key / 13)];
        }
        if (*std::max_element(perRow.begin(), perRow.end()) == 5) {
            ++oneSuitBoards;
        }

        // A board dealt in one pass can be dealt again: other picks, the same sentence.
        if (random->reseeds - reseeds != 1) {
            continue;
        }
        random->script.assign(script.begin(), script.end());
        form->cmdStart4->click();
        ASSERT_EQ(pair_best::KeysOnSurface(*form, *form->picShow), board);
        EXPECT_EQ(pickTwo(picks), first);
        ++replayed;
    }
    EXPECT_GT(replayed, kDeals * 9 / 10);
    std::printf("%d deals, %d replayed with other picks, %d boards of one suit\n", kDeals, replayed,
                oneSuitBoards);
}

}  // namespace
