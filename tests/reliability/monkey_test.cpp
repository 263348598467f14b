// A seeded random walk through the whole window: tree entries, every Start, Clear, keys,
// names, surfaces, Next, timer ticks, resizes (tiny and huge), minimise and restore.
// After every action the window's invariants must hold. A failure names the seed and the
// action number, so it replays: TABLEWRIGHT_MONKEY_SEED=<seed> TABLEWRIGHT_MONKEY_ACTIONS=<n>.
#include <QTest>
#include <cstdlib>
#include <random>
#include <sstream>

#include "support/window_fixture.h"

namespace {

int envOr(const char* name, int fallback) {
    const char* value = std::getenv(name);
    return value ? std::atoi(value) : fallback;
}

class MonkeyTest : public test_support::WindowTest {
  protected:
    // The action chosen, in words, for the failure message.
    std::string act(std::mt19937& engine);
    // Empty when every invariant holds; else what is wrong.
    std::string brokenInvariant() const;

  private:
    static bool reachable(const QWidget* w) { return w->isVisible() && w->isEnabled(); }
};

std::string MonkeyTest::act(std::mt19937& engine) {
    frmMain& f = *form;
    auto pick = [&](int n) { return std::uniform_int_distribution<int>(0, n - 1)(engine); };
    std::ostringstream said;
    switch (pick(12)) {
        case 0: {
            const int index = 1 + pick(34);
            said << "tree " << index;
            f.TreeView1_NodeClick(index);
            break;
        }
        case 1: {
            std::array<QPushButton*, 8> buttons{f.cmdStart1A, f.cmdStart1B, f.cmdStart2A,
                                                f.cmdStart2B, f.cmdStart3A, f.cmdStart3B,
                                                f.cmdStart4,  f.cmdClear};
            QPushButton* button = buttons[static_cast<std::size_t>(pick(8))];
            said << "button " << button->objectName().toStdString();
            if (reachable(button))
                button->click();
            break;
        }
        case 2:
        case 3:
        case 4: {
            const int key = pick(52);
            said << "key " << key;
            if (reachable(f.cmdKey[static_cast<std::size_t>(key)]))
                f.cmdKey[static_cast<std::size_t>(key)]->click();
            break;
        }
        case 5: {
            const auto index = static_cast<std::int16_t>(pick(9));
            said << "name " << index;
            if (f.lblName[static_cast<std::size_t>(index)]->isVisible()) {
                if (pick(2) == 0) {
                    f.lblName_MouseMove(index);
                } else {
                    f.lblName_Click(index);
                }
            }
            break;
        }
        case 6:
            said << "surface";
            if (f.picQuiz->isVisible())
                pick(2) == 0 ? f.picShow_Click() : f.picLabels_Click();
            break;
        case 7:
            said << "next";
            if (reachable(f.cmdNext))
                f.cmdNext->click();
            break;
        case 8:
            said << "tick";
            f.Timer1_Timer();
            break;
        case 9: {
            const int huge = pick(4) == 0 ? 3000 : 1200;
            const int w = 1 + pick(huge), h = 1 + pick(huge);
            said << "resize " << w << "x" << h;
            f.resize(w, h);
            QCoreApplication::processEvents();
            break;
        }
        case 10:
            said << "minimise and restore";
            f.showMinimized();
            QCoreApplication::processEvents();
            f.showNormal();
            QCoreApplication::processEvents();
            break;
        default:
            said << "events";
            QCoreApplication::processEvents();
            break;
    }
    return said.str();
}

std::string MonkeyTest::brokenInvariant() const {
    const frmMain& f = *form;
    const int views =
        int(!f.WebBrowser1->isHidden()) + int(!f.picQuiz->isHidden()) + int(!f.picDemo->isHidden());
    if (views != 1)
        return "views shown: " + std::to_string(views);
    const int modes = int(f.modeNamesPick) + int(f.modeNamesRandom) + int(f.modeRanksPick) +
                      int(f.modeRanksRandom) + int(f.modePairPick) + int(f.modePairRandom) +
                      int(f.modeBestHand);
    if (modes > 1)
        return "mode flags set: " + std::to_string(modes);
    int handSize = 5;
    if (f.modeRanksPick)
        handSize = 10;
    if (f.modePairPick || f.modeBestHand)
        handSize = 2;
    if (f.cardCount < 0 || f.cardCount >= handSize)
        return "cardCount " + std::to_string(f.cardCount);
    if (f.sampleStep < 0 || f.sampleStep > 34)
        return "sampleStep " + std::to_string(f.sampleStep);

    const auto enabled = enabledKeys();
    const int disabled = 52 - static_cast<int>(enabled.size());
    const bool closed = enabled.empty();
    if (modes == 0 || f.modeNamesRandom || f.modePairRandom) {
        if (!closed)
            return "keys open with no pick running: " + std::to_string(enabled.size());
    } else if (f.modeNamesPick || f.modeRanksPick || f.modePairPick) {
        if (!closed && disabled != f.cardCount) {
            return "picking with " + std::to_string(disabled) + " keys disabled, cardCount " +
                   std::to_string(f.cardCount);
        }
    } else if (f.modeBestHand) {
        if (!closed && disabled != 5 + f.cardCount) {
            return "board open with " + std::to_string(disabled) + " keys disabled, cardCount " +
                   std::to_string(f.cardCount);
        }
        for (int place = 0; place < 5 && !closed; ++place) {
            const int key = f.deck[static_cast<std::size_t>(place)];
            if (std::find(enabled.begin(), enabled.end(), key) != enabled.end()) {
                return "board key " + std::to_string(key) + " enabled";
            }
        }
    }
    if (!recorded.messages.empty())
        return "message box: " + recorded.messages.front().toStdString();
    return {};
}

// A short walk in every test run; the full one carries the "long" label.
TEST_F(MonkeyTest, RandomWalksKeepTheWindowsInvariants) {
    const int seeds = envOr("TABLEWRIGHT_MONKEY_SEEDS", 3);
    const int first = envOr("TABLEWRIGHT_MONKEY_SEED", 1);
    const int actions = envOr("TABLEWRIGHT_MONKEY_ACTIONS", 1500);
    for (int seed = first; seed < first + seeds; ++seed) {
        auto dealer =
            std::make_unique<test_support::ScriptedRandom>(static_cast<std::uint32_t>(seed));
        random = dealer.get();
        platform::seams().random = std::move(dealer);
        startWindow();  // a fresh window for each seed
        std::mt19937 engine(static_cast<std::uint32_t>(seed));
        for (int n = 1; n <= actions; ++n) {
            const std::string action = act(engine);
            const std::string broken = brokenInvariant();
            ASSERT_TRUE(broken.empty())
                << "seed " << seed << ", action " << n << " (" << action << "): " << broken;
        }
        std::printf("monkey: seed %d, %d actions\n", seed, actions);
    }
}

}  // namespace
