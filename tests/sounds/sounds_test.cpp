// The answer sounds in app/wavs and the generator in tools/makewavs that makes them.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

#include "wavsynth.hpp"

namespace {

namespace wavs = tablewright::wavs;

// The committed sounds are what makewavs makes, else they are stale: rerun it. (That Qt reads
// them is play_sound_test's.)
TEST(AnswerSounds, AreWhatMakeWavsMakes) {
    for (const auto& [name, made] :
         {std::pair{"no.wav", wavs::noWavFile()}, {"yes.wav", wavs::yesWavFile()}}) {
        std::ifstream in(std::string(TABLEWRIGHT_WAVS_DIR "/") + name, std::ios::binary);
        const std::string committed{std::istreambuf_iterator<char>(in), {}};
        ASSERT_GT(committed.size(), 2000u) << name;
        EXPECT_EQ(std::string(made.begin(), made.end()), committed) << name;
    }
}

}  // namespace
