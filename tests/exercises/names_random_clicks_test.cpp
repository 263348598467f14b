// A long seeded run of clicks in any order on the two hand screens: Start buttons, Clear,
// names, surfaces, keys, row labels, tree entries, pointer moves, ticks and resizes.
// Nothing may crash, at most one exercise may run, and the pick count stays in two hands.
#include <cstdlib>
#include <functional>
#include <random>
#include <set>

#include "keyboard_helpers.h"
#include "support/window_fixture.h"

namespace {

using exercises_test::userClick;

class RandomClicks : public test_support::WindowTest {
  protected:
    using Action = std::pair<const char*, std::function<void(std::mt19937&)>>;

    std::vector<Action> actions() {
        auto click = [](QWidget* widget) { return [widget](std::mt19937&) { userClick(widget); }; };
        auto topic = [this](const char* text) {
            return [this, text](std::mt19937&) { clickTopic(QString::fromLatin1(text)); };
        };
        auto anyKey = [this](std::mt19937& g) { userClick(form->cmdKey[g() % 52]); };
        return {
            {"Start 1A", click(form->cmdStart1A)},
            {"Start 1B", click(form->cmdStart1B)},
            {"Start 2A", click(form->cmdStart2A)},
            {"Start 2B", click(form->cmdStart2B)},
            {"Clear", click(form->cmdClear)},
            {"picShow", click(form->picShow)},
            {"picLabels", click(form->picLabels)},
            {"row label", click(form->zCommand3)},
            {"key", anyKey},
            {"key", anyKey},
            {"key", anyKey},
            {"name", [this](std::mt19937& g) { userClick(form->lblName[g() % 9]); }},
            {"hover",
             [this](std::mt19937& g) {
                 form->lblName_MouseMove(static_cast<std::int16_t>(g() % 9));
             }},
            {"tree Names", topic("Poker Hand Names")},
            {"tree Rankings", topic("Poker Hand Rankings")},
            {"tree Intro", topic("Intro")},
            {"tick", [this](std::mt19937&) { form->Timer1_Timer(); }},
            {"resize",
             [this](std::mt19937& g) {
                 form->resize(860 + static_cast<int>(g() % 200), 620 + static_cast<int>(g() % 120));
                 serveEvents();
             }},
        };
    }

    // What must hold after every step; empty while all is well.
    std::string brokenRule() const {
        const std::string flags = exercises_test::modeFlags(*form);
        if (flags.find('+') != std::string::npos)
            return "two exercises at once: " + flags;
        if (form->cardCount < 0 || form->cardCount > 9)
            return "cardCount " + std::to_string(form->cardCount);
        if (form->modeNamesPick && form->cardCount > 4)
            return "a sixth card in a pick of five";
        if (form->modeNamesRandom && form->answerPending && markedName() != -1)
            return "a name marked too early";
        return {};
    }
};

TEST_F(RandomClicks, NothingBreaksWhateverTheOrder) {
    startWindow();
    form->Timer1->stop();
    const char* seedText = std::getenv("TABLEWRIGHT_CLICK_SEED");
    const std::uint32_t seed =
        seedText ? static_cast<std::uint32_t>(std::strtoul(seedText, nullptr, 10)) : 20240611u;
    std::mt19937 g(seed);
    const auto all = actions();
    std::set<std::string> reached;  // exercises and outcomes the run went through
    for (int step = 0; step < 3000; ++step) {
        const auto& [name, run] = all[g() % all.size()];
        run(g);
        const std::string broken = brokenRule();
        ASSERT_TRUE(broken.empty())
            << broken << " -- after \"" << name << "\" at step " << step << " of seed " << seed
            << " (TABLEWRIGHT_CLICK_SEED=" << seed << " repeats the run)";
        reached.insert(exercises_test::modeFlags(*form));
        if (markedName() != -1)
            reached.insert("marked name");
        if (form->lblMessage->caption().startsWith(QStringLiteral("Hand (")))
            reached.insert("verdict");
    }
    for (const char* state :
         {"NamesPick", "NamesRandom", "RanksPick", "RanksRandom", "marked name", "verdict"}) {
        EXPECT_TRUE(reached.contains(state)) << "seed " << seed << " never reached " << state;
    }
}

}  // namespace
