// The answer sounds in app/wavs, read back by a wave reader of this test's own, and the
// generator in tools/makewavs that makes them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>
#include <string>
#include <vector>

#include <unistd.h>

#include "wavsynth.hpp"

namespace {

namespace fs = std::filesystem;
namespace wavs = tablewright::wavs;
using Bytes = std::vector<std::uint8_t>;
using Samples = std::vector<std::int16_t>;
const fs::path kWavsDir = TABLEWRIGHT_WAVS_DIR;

Bytes readFile(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// The samples of a canonical 16-bit PCM mono wave file, whose 44-byte header must be this.
Samples readCanonicalWave(const Bytes& file, std::uint32_t rate) {
    const auto le = [](std::size_t value, int bytes) {
        std::string text;
        for (int i = 0; i < bytes; ++i)
            text += static_cast<char>(value >> (8 * i));
        return text;
    };
    EXPECT_EQ(std::string(file.begin(), file.begin() + std::min<long>(44, std::ssize(file))),
              "RIFF" + le(file.size() - 8, 4) + "WAVEfmt " + le(16, 4) + le(1, 2) + le(1, 2) +
                  le(rate, 4) + le(rate * 2, 4) + le(2, 2) + le(16, 2) + "data" +
                  le(file.size() - 44, 4));
    Samples samples;
    for (std::size_t i = 45; i < file.size(); i += 2)
        samples.push_back(static_cast<std::int16_t>(file[i - 1] | file[i] << 8));
    return samples;
}

int peakOf(std::span<const std::int16_t> samples) {
    const auto [low, high] = std::ranges::minmax(samples);
    return std::max(-int{low}, int{high});
}

// Upward zero crossings per second over a stretch of the sound: its pitch, with no transform.
double pitch(const Samples& s, double from, double to) {
    const auto a = static_cast<std::size_t>(from * static_cast<double>(s.size()));
    const auto z = static_cast<std::size_t>(to * static_cast<double>(s.size()));
    int crossings = 0;
    for (std::size_t i = a + 1; i < z; ++i)
        crossings += s[i - 1] < 0 && s[i] >= 0 ? 1 : 0;
    return crossings * double{wavs::kSampleRate} / static_cast<double>(z - a);
}

// The committed sounds are what makewavs makes (else they are stale: rerun it): a rising chime
// for a right answer, a lower falling cue for a wrong one, gentle and without clicks.
TEST(AnswerSounds, AreWhatMakeWavsMakesWellFormedGentleClickFreeAndRightInPitch) {
    const auto run = [](const std::string& arguments) {
        return std::system(
            ("\"" TABLEWRIGHT_MAKEWAVS "\" " + arguments + " >/dev/null 2>&1").c_str());
    };
    const fs::path out =
        fs::temp_directory_path() / ("makewavs_test_" + std::to_string(::getpid()));
    fs::create_directories(out);
    ASSERT_EQ(run(out.string()), 0);
    const Bytes made[2] = {readFile(out / "no.wav"), readFile(out / "yes.wav")};
    fs::remove_all(out);
    Samples sounds[2];
    for (const bool yes : {true, false}) {
        const char* name = yes ? "yes.wav" : "no.wav";
        SCOPED_TRACE(name);
        const Bytes committed = readFile(kWavsDir / name);
        EXPECT_EQ(made[yes], committed);
        const Samples& s = sounds[yes] = readCanonicalWave(committed, wavs::kSampleRate);
        ASSERT_GT(s.size(), 1000u);
        const double seconds = static_cast<double>(s.size()) / wavs::kSampleRate;
        EXPECT_TRUE(seconds >= 0.15 && seconds <= 1.0) << seconds << " s";
        const double peakDb = 20.0 * std::log10(peakOf(s) / 32768.0);
        EXPECT_TRUE(peakDb > -12.0 && peakDb < -3.0) << "peak " << peakDb << " dB";
        // Silence at both ends, and only a creeping level over the first and last half ms.
        const std::size_t edge = wavs::kSampleRate / 2000;
        EXPECT_LE(std::max(std::abs(int{s.front()}), std::abs(int{s.back()})), 328);
        EXPECT_LE(std::max(peakOf(std::span(s).first(edge)), peakOf(std::span(s).last(edge))),
                  3277);
        const double rise = pitch(s, 0.75, 1.0) / pitch(s, 0.0, 0.25);
        EXPECT_TRUE(yes ? rise > 1.15 : rise < 0.85) << rise;
    }
    EXPECT_LT(pitch(sounds[0], 0, 1), 0.5 * pitch(sounds[1], 0, 1));
    EXPECT_GT(pitch(sounds[0], 0, 1), 100.0) << "too low for small speakers";
    EXPECT_NE(run(""), 0) << "no folder given";
    EXPECT_NE(run(out.string()), 0) << "a folder that is not there";
    const Samples samples{0, 1, -1, 32767, -32768, 258, -12345};  // every sample, exactly
    EXPECT_EQ(readCanonicalWave(wavs::encodeWav(samples, 44100), 44100), samples);
}

}  // namespace
