// A seeded random walk through the whole window: tree entries, a user's clicks on every Start,
// Clear, the keys, the names, the surfaces and Next, timer ticks, resizes (tiny and huge).
// After every action what the user sees must make sense. A failure names
// the seed and the action number, so it replays:
// TABLEWRIGHT_MONKEY_SEED=<seed> TABLEWRIGHT_MONKEY_ACTIONS=<n>.
#include <QTest>
#include <cstdlib>
#include <random>

#include "support/window_fixture.h"

namespace {

int envOr(const char* name, int fallback) {
    const char* value = std::getenv(name);
    return value ? std::atoi(value) : fallback;
}

class MonkeyTest : public test_support::WindowTest {
  protected:
    // Does one action and says which, for the failure message.
    std::string act(std::mt19937& engine) {
        const auto pick = [&](int n) {
            return std::uniform_int_distribution<int>(0, n - 1)(engine);
        };
        switch (pick(7)) {
            case 0: {
                const int index = 1 + pick(34);
                form->TreeView1_NodeClick(index);
                return "tree " + std::to_string(index);
            }
            case 1:
                form->Timer1_Timer();
                return "tick";
            case 2: {
                const int huge = pick(4) == 0 ? 3000 : 1200;
                form->resize(1 + pick(huge), 1 + pick(huge));
                QCoreApplication::processEvents();
                return "resize " + std::to_string(form->width()) + "x" +
                       std::to_string(form->height());
            }
        }
        const QStringList clickable = {"cmdStart1A", "cmdStart1B", "cmdStart2A", "cmdStart2B",
                                       "cmdStart3A", "cmdStart3B", "cmdStart4",  "cmdClear",
                                       "cmdNext",    "picShow",    "picLabels"};
        const int which = pick(int(clickable.size()) + 2 * 52);
        QWidget* control = which < clickable.size() ? child(clickable[which])
                           : which % 2              ? static_cast<QWidget*>(key(which % 52))
                                                    : name(which % 9);
        if (control->isVisible() && control->isEnabled())
            QTest::mouseClick(control, Qt::LeftButton, {}, control->rect().center());
        return "click " + control->objectName().toStdString();
    }

    // Empty when what the user sees makes sense; else what does not.
    std::string wrongOnScreen() const {
        const int panes = int(!child("WebBrowser1")->isHidden()) +
                          int(!child("picQuiz")->isHidden()) + int(!child("picDemo")->isHidden());
        if (panes != 1)
            return "panes shown: " + std::to_string(panes);
        // An open keyboard has a card on the surfaces for every key it closed.
        const auto open = enabledKeys();
        const int closed = 52 - int(open.size());
        const int drawn = int(child<platform::PictureBox>("picShow")->drawnItems().size() +
                              child<platform::PictureBox>("picLabels")->drawnItems().size());
        if (!open.empty() && closed > drawn)
            return "keyboard open with " + std::to_string(closed) + " keys closed, " +
                   std::to_string(drawn) + " cards shown";
        if (!recorded.messages.empty())
            return "message box: " + recorded.messages.front().toStdString();
        return {};
    }
};

// A short walk in every test run; the full one carries the "long" label.
TEST_F(MonkeyTest, RandomWalksKeepWhatTheUserSeesSensible) {
    const int seeds = envOr("TABLEWRIGHT_MONKEY_SEEDS", 3);
    const int first = envOr("TABLEWRIGHT_MONKEY_SEED", 1);
    const int actions = envOr("TABLEWRIGHT_MONKEY_ACTIONS", 1500);
    for (int seed = first; seed < first + seeds; ++seed) {
        platform::seams().random = std::make_unique<test_support::ScriptedRandom>(seed);
        startWindow();  // a fresh window for each seed
        std::mt19937 engine(static_cast<std::uint32_t>(seed));
        for (int n = 1; n <= actions; ++n) {
            const std::string action = act(engine);
            const std::string wrong = wrongOnScreen();
            ASSERT_TRUE(wrong.empty())
                << "seed " << seed << ", action " << n << " (" << action << "): " << wrong;
        }
    }
}

}  // namespace
