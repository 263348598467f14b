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
const fs::path kWavsDir = TABLEWRIGHT_WAVS_DIR;
const std::string kMakeWavs = TABLEWRIGHT_MAKEWAVS;

Bytes readFile(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// A canonical 16-bit PCM mono wave file: its 44-byte header must be this one; the samples
// follow it.
std::vector<std::int16_t> readCanonicalWave(const Bytes& file, std::uint32_t rate) {
    const auto le = [](std::size_t value, int bytes) {  // little-endian bytes
        std::string text;
        for (int i = 0; i < bytes; ++i)
            text += static_cast<char>(value >> (8 * i));
        return text;
    };
    EXPECT_EQ(std::string(file.begin(), file.begin() + std::min<long>(44, std::ssize(file))),
              "RIFF" + le(file.size() - 8, 4) + "WAVEfmt " + le(16, 4) + le(1, 2) + le(1, 2) +
                  le(rate, 4) + le(rate * 2, 4) + le(2, 2) + le(16, 2) + "data" +
                  le(file.size() - 44, 4));
    std::vector<std::int16_t> samples;
    for (std::size_t i = 45; i < file.size(); i += 2)
        samples.push_back(static_cast<std::int16_t>(file[i - 1] | file[i] << 8));
    return samples;
}

int peakOf(std::span<const std::int16_t> samples) {
    const auto [low, high] = std::ranges::minmax(samples);
    return std::max(-int{low}, int{high});
}

// Upward zero crossings per second over a stretch of the sound: its pitch, with no transform.
double pitch(const std::vector<std::int16_t>& s, double from, double to) {
    const auto a = static_cast<std::size_t>(from * static_cast<double>(s.size()));
    const auto z = static_cast<std::size_t>(to * static_cast<double>(s.size()));
    int crossings = 0;
    for (std::size_t i = a + 1; i < z; ++i)
        crossings += s[i - 1] < 0 && s[i] >= 0 ? 1 : 0;
    return crossings * double{wavs::kSampleRate} / static_cast<double>(z - a);
}

TEST(AnswerSounds, AreWellFormedGentleClickFreeAndExactlyWhatTheGeneratorMakes) {
    for (const char* name : {"yes.wav", "no.wav"}) {
        SCOPED_TRACE(name);
        const Bytes committed = readFile(kWavsDir / name);
        const auto s = readCanonicalWave(committed, wavs::kSampleRate);
        ASSERT_GT(s.size(), 1000u);
        const double seconds = static_cast<double>(s.size()) / wavs::kSampleRate;
        EXPECT_TRUE(seconds >= 0.15 && seconds <= 1.0) << seconds << " s";
        const double peakDb = 20.0 * std::log10(peakOf(s) / 32768.0);
        EXPECT_TRUE(peakDb > -12.0 && peakDb < -3.0)  // so never clipped either
            << "peak " << peakDb << " dB: audible but gentle";
        // Silence at both ends, and only a creeping level over the first and last half ms.
        const std::size_t edge = wavs::kSampleRate / 2000;
        EXPECT_LE(std::max(std::abs(int{s.front()}), std::abs(int{s.back()})), 328);
        EXPECT_LE(std::max(peakOf(std::span(s).first(edge)), peakOf(std::span(s).last(edge))),
                  3277);

        const Bytes made = std::string(name) == "yes.wav" ? wavs::yesWavFile() : wavs::noWavFile();
        EXPECT_TRUE(made == committed) << "the committed file is stale: rerun makewavs";
    }
}

// A rising chime for a right answer, a lower falling cue for a wrong one; an exact sine; and
// an encoder that keeps every sample.
TEST(WaveSynthesis, RightAnswerRisesWrongAnswerFallsLowerAndTheSineAndEncodingAreExact) {
    const auto yes = wavs::synthesizeYes();
    const auto no = wavs::synthesizeNo();
    EXPECT_GT(pitch(yes, 0.75, 1.0), 1.15 * pitch(yes, 0.0, 0.25));
    EXPECT_LT(pitch(no, 0.75, 1.0), 0.85 * pitch(no, 0.0, 0.25));
    EXPECT_LT(pitch(no, 0.0, 1.0), 0.5 * pitch(yes, 0.0, 1.0));
    EXPECT_GT(pitch(no, 0.0, 1.0), 100.0) << "too low for small speakers";

    double worst = 0.0;
    for (int i = -4000; i <= 4000; ++i)
        worst = std::max(worst, std::fabs(wavs::sineOfCycles(i / 997.0) -
                                          std::sin(2.0 * 3.14159265358979323846 * i / 997.0)));
    EXPECT_LT(worst, 1e-8);

    const std::vector<std::int16_t> samples{0, 1, -1, 32767, -32768, 258, -12345};
    EXPECT_EQ(readCanonicalWave(wavs::encodeWav(samples, 44100), 44100), samples);
}

TEST(MakeWavsProgram, WritesBothFilesIntoTheFolderAndFailsWithoutOne) {
    const auto run = [](const std::string& arguments) {
        return std::system(("\"" + kMakeWavs + "\" " + arguments + " >/dev/null 2>&1").c_str());
    };
    const fs::path out =
        fs::temp_directory_path() / ("makewavs_test_" + std::to_string(::getpid()));
    fs::create_directories(out);
    ASSERT_EQ(run(out.string()), 0);
    EXPECT_EQ(readFile(out / "yes.wav"), readFile(kWavsDir / "yes.wav"));
    EXPECT_EQ(readFile(out / "no.wav"), readFile(kWavsDir / "no.wav"));
    fs::remove_all(out);
    EXPECT_NE(run(""), 0) << "no folder given";
    EXPECT_NE(run(out.string()), 0) << "a folder that is not there";
}

}  // namespace
