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
            const std::array<const char*, 8> buttons{"cmdStart1A", "cmdStart1B", "cmdStart2A",
                                                     "cmdStart2B", "cmdStart3A", "cmdStart3B",
                                                     "cmdStart4",  "cmdClear"};
            auto* button = child<QPushButton>(buttons[static_cast<std::size_t>(pick(8))]);
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
            if (reachable(this->key(key)))
                this->key(key)->click();
            break;
        }
        case 5: {
            const auto index = static_cast<std::int16_t>(pick(9));
            said << "name " << index;
            if (name(index)->isVisible()) {
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
            if (child("picQuiz")->isVisible())
                pick(2) == 0 ? f.picShow_Click() : f.picLabels_Click();
            break;
        case 7:
            said << "next";
            if (reachable(child("cmdNext")))
                child<QPushButton>("cmdNext")->click();
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
    const int views = int(!child("WebBrowser1")->isHidden()) + int(!child("picQuiz")->isHidden()) +
                      int(!child("picDemo")->isHidden());
    if (views != 1)
        return "views shown: " + std::to_string(views);
    // An open keyboard has a card on the surfaces for every key it closed.
    const auto enabled = enabledKeys();
    const int disabled = 52 - static_cast<int>(enabled.size());
    const int drawn = int(child<platform::PictureBox>("picShow")->drawnItems().size() +
                          child<platform::PictureBox>("picLabels")->drawnItems().size());
    if (!enabled.empty() && disabled > drawn) {
        return "keyboard open with " + std::to_string(disabled) + " keys closed, " +
               std::to_string(drawn) + " cards drawn";
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
