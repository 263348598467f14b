// The answer sounds in app/wavs and the generator in tools/makewavs that makes them.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <unistd.h>

#include "wavsynth.hpp"

namespace {

std::string readFile(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// The committed sounds are what makewavs makes (else they are stale: rerun it), and its wave
// header is the canonical one of 16-bit PCM mono.
TEST(AnswerSounds, AreWhatMakeWavsMakesAndWellFormed) {
    const auto out =
        std::filesystem::temp_directory_path() / ("makewavs_" + std::to_string(getpid()));
    std::filesystem::create_directories(out);
    ASSERT_EQ(std::system(("\"" TABLEWRIGHT_MAKEWAVS "\" " + out.string()).c_str()), 0);
    for (const char* name : {"no.wav", "yes.wav"}) {
        const std::string committed = readFile(std::filesystem::path(TABLEWRIGHT_WAVS_DIR) / name);
        ASSERT_GT(committed.size(), 2000u) << name;
        EXPECT_EQ(readFile(out / name), committed) << name;
    }
    std::filesystem::remove_all(out);
    const char wave[] =
        "RIFF\x28\0\0\0WAVEfmt \x10\0\0\0\x01\0\x01\0\x40\x1f\0\0\x80\x3e\0\0"
        "\x02\0\x10\0data\x04\0\0\0\x01\0\xfe\xff";
    const auto encoded = tablewright::wavs::encodeWav({1, -2}, 8000);
    EXPECT_EQ(std::string(encoded.begin(), encoded.end()), std::string(wave, sizeof wave - 1));
}

}  // namespace
