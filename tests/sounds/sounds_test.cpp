// The answer sounds in app/wavs and the generator in tools/makewavs that makes them.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

#include "wavsynth.hpp"

namespace {

namespace wavs = tablewright::wavs;

// The committed sounds are what makewavs makes (else they are stale: rerun it), and its wave
// header is the canonical one of 16-bit PCM mono.
TEST(AnswerSounds, AreWhatMakeWavsMakesAndWellFormed) {
    for (const auto& [name, made] :
         {std::pair{"no.wav", wavs::noWavFile()}, {"yes.wav", wavs::yesWavFile()}}) {
        std::ifstream in(std::string(TABLEWRIGHT_WAVS_DIR "/") + name, std::ios::binary);
        const std::string committed{std::istreambuf_iterator<char>(in), {}};
        ASSERT_GT(committed.size(), 2000u) << name;
        EXPECT_EQ(std::string(made.begin(), made.end()), committed) << name;
    }
    const char wave[] =
        "RIFF\x28\0\0\0WAVEfmt \x10\0\0\0\x01\0\x01\0\x40\x1f\0\0\x80\x3e\0\0"
        "\x02\0\x10\0data\x04\0\0\0\x01\0\xfe\xff";
    const auto encoded = wavs::encodeWav({1, -2}, 8000);
    EXPECT_EQ(std::string(encoded.begin(), encoded.end()), std::string(wave, sizeof wave - 1));
}

}  // namespace
