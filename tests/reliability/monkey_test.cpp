// A seeded random walk through the whole window: tree entries, a user's clicks on every Start,
// Clear, the keys, the names, the surfaces and Next, timer ticks, resizes (tiny and huge).
// After every action what the user sees must make sense. A failure names the seed and the
// action number, so it replays: TABLEWRIGHT_MONKEY_SEED=<seed> TABLEWRIGHT_MONKEY_ACTIONS=<n>.
#include <gmock/gmock.h>

#include <QTest>
#include <cstdlib>
#include <random>

#include "support/window_fixture.h"

namespace {

int envOr(const char* name, int fallback) {
    const char* value = std::getenv(name);
    return value ? std::atoi(value) : fallback;
}

class MonkeyTest : public test_support::WindowTest {};

// A short walk in every test run; the full one carries the "long" label.
TEST_F(MonkeyTest, RandomWalksKeepWhatTheUserSeesSensible) {
    const int seeds = envOr("TABLEWRIGHT_MONKEY_SEEDS", 3);
    const int first = envOr("TABLEWRIGHT_MONKEY_SEED", 1);
    const int actions = envOr("TABLEWRIGHT_MONKEY_ACTIONS", 1500);
    const QStringList buttons = QStringLiteral(
                                    "cmdStart1A cmdStart1B cmdStart2A cmdStart2B cmdStart3A "
                                    "cmdStart3B cmdStart4 cmdClear cmdNext picShow picLabels")
                                    .split(' ');
    for (int seed = first; seed < first + seeds; ++seed) {
        platform::seams().random = std::make_unique<test_support::ScriptedRandom>(seed);
        startWindow();  // a fresh window for each seed
        std::mt19937 engine(static_cast<std::uint32_t>(seed));
        const auto pick = [&](int n) {
            return std::uniform_int_distribution<int>(0, n - 1)(engine);
        };
        for (int n = 1; n <= actions; ++n) {
            if (const int what = pick(8); what == 0) {
                form->TreeView1_NodeClick(1 + pick(34));
            } else if (what == 1) {
                form->Timer1_Timer();
            } else if (what == 2) {
                const int huge = pick(4) == 0 ? 3000 : 1200;
                form->resize(1 + pick(huge), 1 + pick(huge));
            } else {
                const int which = pick(int(buttons.size()) + 2 * 52);
                // The stage's Next is made when the sample game is first opened.
                QWidget* control = which < buttons.size()
                                       ? form->findChild<QWidget*>(buttons[which])
                                   : which % 2 ? static_cast<QWidget*>(key(which % 52))
                                               : name(which % 9);
                if (control && control->isVisible() && control->isEnabled())
                    QTest::mouseClick(control, Qt::LeftButton, {}, control->rect().center());
            }
            QCoreApplication::processEvents();
            const std::string where =
                "seed " + std::to_string(seed) + ", action " + std::to_string(n);
            const int panes = int(!child("WebBrowser1")->isHidden()) +
                              int(!child("picQuiz")->isHidden()) +
                              int(!child("picDemo")->isHidden());
            ASSERT_EQ(panes, 1) << where;
            // An open keyboard has a card on the surfaces for every key it closed.
            const auto open = enabledKeys();
            const auto drawn = child<platform::PictureBox>("picShow")->drawnItems().size() +
                               child<platform::PictureBox>("picLabels")->drawnItems().size();
            ASSERT_TRUE(open.empty() || 52 - open.size() <= std::size_t(drawn)) << where;
            ASSERT_THAT(recorded.messages, ::testing::IsEmpty()) << where;
        }
    }
}

}  // namespace
