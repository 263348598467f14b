// Picks, Clear, Start buttons, label clicks and tree clicks in a seeded random order over the
// Pair Value and Best Hand screens: nothing crashes, and every answer is the one of the cards
// on the screen at that moment.
#include <random>

#include "pair_best_support.h"
#include "pairs/pairs.h"
#include "support/window_fixture.h"

namespace {

constexpr std::uint32_t kSeed = 7031;
constexpr int kSteps = 4000;

enum class Action { Key, Clear, Start3A, Start3B, Start4, Name, Hover, Topic };
constexpr std::array<Action, 14> kActionWeights{
    Action::Key,   Action::Key,     Action::Key,     Action::Key,    Action::Key,
    Action::Clear, Action::Start3A, Action::Start3B, Action::Start4, Action::Name,
    Action::Name,  Action::Hover,   Action::Topic,   Action::Key};
constexpr std::array<const char*, 4> kTopics{"Starting Pair Awareness", "Best Hand Recognition",
                                             "Poker Basics", "Starting Pair Awareness"};

class BestBadInputTest : public test_support::WindowTest {
  protected:
    // Clicks only what a user could reach: shown, and enabled where it matters.
    static void click(QAbstractButton* button) {
        if (button->isVisible()) {
            button->click();
        }
    }

    // Carries out one action; true when it was a key press that took.
    bool act(Action action, std::mt19937& rng) {
        const auto any = [&rng](int n) {
            return std::uniform_int_distribution<int>(0, n - 1)(rng);
        };
        switch (action) {
            case Action::Key: {
                auto* key = form->cmdKey[static_cast<std::size_t>(any(52))];
                const bool open = key->isVisible() && key->isEnabled();
                click(key);
                return open;
            }
            case Action::Clear:
                click(form->cmdClear);
                break;
            case Action::Start3A:
                click(form->cmdStart3A);
                break;
            case Action::Start3B:
                click(form->cmdStart3B);
                break;
            case Action::Start4:
                click(form->cmdStart4);
                break;
            case Action::Name: {
                auto* name = form->lblName[static_cast<std::size_t>(any(9))];
                if (name->isVisible()) {
                    QTest::mouseClick(name, Qt::LeftButton);
                }
                break;
            }
            case Action::Hover: {
                const int index = any(9);
                if (form->lblName[static_cast<std::size_t>(index)]->isVisible()) {
                    form->lblName_MouseMove(static_cast<std::int16_t>(index));
                }
                break;
            }
            case Action::Topic:
                clickTopic(QString::fromLatin1(kTopics[static_cast<std::size_t>(any(4))]));
                break;
        }
        return false;
    }

    int bestAnswers = 0;
    int pairAnswers = 0;

    std::int16_t rankOfKeys(const std::vector<int>& keys) const {
        cards::Hand hand{};
        for (std::size_t i = 0; i < 2; ++i) {
            cards::CardFromKey(static_cast<std::int16_t>(keys[i]), form->keyMap, hand[i]);
        }
        return pairs::PairValueKey(form->pairTable, hand);
    }

    // What must hold after every step.
    void checkState(bool keyPressed) {
        const std::vector<int> shown = pair_best::KeysOnSurface(*form, *form->picShow);
        const std::vector<int> open = enabledKeys();
        if (form->modeBestHand && !open.empty()) {
            ASSERT_EQ(shown.size(), 5u) << "an open keyboard stands under a dealt board";
            ASSERT_TRUE(form->cardCount == 0 || form->cardCount == 1);
            EXPECT_EQ(open.size(), 47u - static_cast<std::size_t>(form->cardCount));
            for (const int key : shown) {
                EXPECT_EQ(std::find(open.begin(), open.end(), key), open.end());
            }
        }
        if (form->modeBestHand && keyPressed && form->cardCount == 0) {
            EXPECT_TRUE(open.empty());
            EXPECT_EQ(form->lblMessage->caption(), pair_best::AnswerForBoard(shown));
            ++bestAnswers;
        }
        if (form->modePairPick && keyPressed && form->cardCount == 0) {
            ASSERT_EQ(shown.size(), 2u);
            EXPECT_EQ(form->lblMessage->caption(),
                      QStringLiteral("Preflop rank is %1%").arg(rankOfKeys(shown)));
            EXPECT_GE(markedName(), 2);
            EXPECT_LE(markedName(), 6);
            EXPECT_TRUE(open.empty());
            ++pairAnswers;
        }
        if (form->modePairRandom) {
            EXPECT_TRUE(open.empty()) << "exercise 2 keeps the keyboard closed";
        }
    }
};

TEST_F(BestBadInputTest, AnyOrderOfClicksKeepsAnswersTrueToTheCardsShown) {
    startWindow();
    std::mt19937 rng(kSeed);
    int presses = 0;
    for (int step = 0; step < kSteps; ++step) {
        const Action action = kActionWeights[std::uniform_int_distribution<std::size_t>(
            0, kActionWeights.size() - 1)(rng)];
        SCOPED_TRACE(::testing::Message() << "seed " << kSeed << ", step " << step << ", action "
                                          << static_cast<int>(action));
        const bool keyPressed = act(action, rng);
        if (keyPressed) {
            ++presses;
        }
        checkState(keyPressed);
        if (HasFailure()) {
            break;
        }
    }
    EXPECT_GT(presses, kSteps / 20) << "enough presses reached an open keyboard";
    EXPECT_GT(bestAnswers, 20);
    EXPECT_GT(pairAnswers, 20);
    std::printf("%d steps: %d key presses, %d best-hand answers, %d pair ranks checked\n", kSteps,
                presses, bestAnswers, pairAnswers);
}

}  // namespace
