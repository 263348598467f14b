// What the window must show after an event, as plain values. Whatever is left empty stays
// as it is on the screen.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace drill {

// The two drawing surfaces of the exercise panel (the first is picShow, the second picLabels).
enum class Surface : std::uint8_t { first, second };
enum class Sound : std::uint8_t { yes, no };
enum class Screen : std::uint8_t { names, rankings, pairValue, bestHand };
// The seven Start buttons: exercise 1 and 2 of each screen, Best Hand's one.
enum class Start : std::uint8_t { names1, names2, rankings1, rankings2, pair1, pair2, bestHand };

struct CardDraw {
    Surface surface;
    std::int32_t x;  // pixels from the surface's left
    std::int16_t drawId;
    friend bool operator==(const CardDraw&, const CardDraw&) = default;
};

struct Show {
    // Each wiped surface is wiped before the cards are drawn, in order.
    std::array<bool, 2> wiped{};
    std::vector<CardDraw> drawn;
    // All keys set first, then the listed keys disabled.
    std::optional<bool> allKeysEnabled;
    std::vector<std::int16_t> disabledKeys;
    std::optional<bool> clearEnabled;
    // The names go plain (no marks, no borders) first; then one is marked; then one bordered.
    bool namesPlain = false;
    std::optional<std::int16_t> markedName;
    std::optional<std::int16_t> borderedName;
    std::optional<std::string> message;
    std::optional<std::int32_t> messageColour;
    std::optional<Sound> sound;
    bool focusFirstSurface = false;
    // Failures, each in a message box.
    std::vector<std::string> failures;

    void wipe(Surface surface);
    void setAllKeys(bool enabled);
    void setNamesPlain();
    void mark(std::int16_t name);
};

// How a screen of the panel is set up.
struct Layout {
    std::string heading;
    std::string message;
    std::string exercise1;
    std::string exercise2;
    std::array<bool, 9> namesShown{};
    std::vector<std::pair<std::int16_t, std::string>> nameCaptions;
    std::vector<Start> starts;  // the Start buttons shown; the others are hidden
    bool exercise2Enabled = true;
    std::int32_t secondSurfaceColour = 0;
    std::string firstSurfaceName;  // what a screen reader calls the surfaces
    std::string secondSurfaceName;
    Show show;
};

}  // namespace drill
