// The committed answer sounds, read back by a wave reader of this test's own, and the
// generator that makes them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include <unistd.h>

#include "wavsynth.hpp"

namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<std::uint8_t>;

const fs::path kWavsDir = TABLEWRIGHT_WAVS_DIR;

Bytes readFile(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

std::uint32_t le(const Bytes& b, std::size_t at, int n) {
    std::uint32_t v = 0;
    for (int i = n - 1; i >= 0; --i)
        v = (v << 8) | b[at + static_cast<std::size_t>(i)];
    return v;
}

// What a wave file says about itself, gathered chunk by chunk.
struct Wave {
    std::uint32_t riffSize = 0;
    std::uint16_t format = 0, channels = 0, blockAlign = 0, bits = 0;
    std::uint32_t rate = 0, byteRate = 0;
    bool fmtBeforeData = false;
    std::vector<std::int16_t> samples;
};

// Reads any RIFF/WAVE file with a "fmt " and a "data" chunk, in any order and with any
// other chunks between; gives an explanation instead when the file is malformed.
std::optional<Wave> parseWave(const Bytes& b, std::string& why) {
    if (b.size() < 12 || std::string(b.begin(), b.begin() + 4) != "RIFF" ||
        std::string(b.begin() + 8, b.begin() + 12) != "WAVE") {
        why = "no RIFF/WAVE signature";
        return std::nullopt;
    }
    Wave w;
    w.riffSize = le(b, 4, 4);
    bool haveFmt = false, haveData = false;
    std::size_t at = 12;
    while (at + 8 <= b.size()) {
        const std::string id(b.begin() + static_cast<long>(at),
                             b.begin() + static_cast<long>(at) + 4);
        const std::uint32_t size = le(b, at + 4, 4);
        const std::size_t body = at + 8;
        if (body + size > b.size()) {
            why = "chunk '" + id + "' runs past the end of the file";
            return std::nullopt;
        }
        if (id == "fmt ") {
            if (size < 16) {
                why = "format chunk too short";
                return std::nullopt;
            }
            w.format = static_cast<std::uint16_t>(le(b, body, 2));
            w.channels = static_cast<std::uint16_t>(le(b, body + 2, 2));
            w.rate = le(b, body + 4, 4);
            w.byteRate = le(b, body + 8, 4);
            w.blockAlign = static_cast<std::uint16_t>(le(b, body + 12, 2));
            w.bits = static_cast<std::uint16_t>(le(b, body + 14, 2));
            haveFmt = true;
        } else if (id == "data") {
            w.fmtBeforeData = haveFmt;
            if (size % 2 != 0) {
                why = "odd number of data bytes";
                return std::nullopt;
            }
            for (std::size_t i = 0; i < size; i += 2)
                w.samples.push_back(static_cast<std::int16_t>(le(b, body + i, 2)));
            haveData = true;
        }
        at = body + size + (size % 2);  // chunks are padded to an even length
    }
    if (!haveFmt || !haveData) {
        why = haveFmt ? "no data chunk" : "no format chunk";
        return std::nullopt;
    }
    return w;
}

Wave loadWave(const std::string& name) {
    std::string why;
    const auto wave = parseWave(readFile(kWavsDir / name), why);
    if (!wave)
        ADD_FAILURE() << name << ": " << why;
    return wave.value_or(Wave{});
}

double seconds(const Wave& w) {
    return w.rate ? static_cast<double>(w.samples.size()) / w.rate : 0.0;
}

// Upward zero crossings per second between two fractions of the sound: a measure of its
// pitch that needs no transform.
double crossingRate(const Wave& w, double from, double to) {
    const auto n = w.samples.size();
    const auto a = static_cast<std::size_t>(from * static_cast<double>(n));
    const auto z = static_cast<std::size_t>(to * static_cast<double>(n));
    int crossings = 0;
    for (std::size_t i = a + 1; i < z; ++i)
        if (w.samples[i - 1] < 0 && w.samples[i] >= 0)
            ++crossings;
    return crossings * static_cast<double>(w.rate) / static_cast<double>(z - a);
}

int peakOf(const std::vector<std::int16_t>& s, std::size_t from, std::size_t to) {
    int peak = 0;
    for (std::size_t i = from; i < to && i < s.size(); ++i)
        peak = std::max(peak, std::abs(int{s[i]}));
    return peak;
}

class AnswerSound : public testing::TestWithParam<const char*> {};

TEST_P(AnswerSound, IsAWellFormedPcm16MonoWaveFile) {
    const Bytes bytes = readFile(kWavsDir / GetParam());
    ASSERT_FALSE(bytes.empty()) << "missing " << (kWavsDir / GetParam());
    const Wave w = loadWave(GetParam());
    EXPECT_EQ(w.riffSize, bytes.size() - 8) << "RIFF size disagrees with the file's length";
    EXPECT_TRUE(w.fmtBeforeData);
    EXPECT_EQ(w.format, 1) << "not PCM";
    EXPECT_EQ(w.channels, 1) << "not mono";
    EXPECT_EQ(w.bits, 16);
    EXPECT_TRUE(w.rate == 22050 || w.rate == 44100) << w.rate;
    EXPECT_EQ(w.blockAlign, 2);
    EXPECT_EQ(w.byteRate, w.rate * 2);
}

TEST_P(AnswerSound, IsShortModestAndUnclipped) {
    const Wave w = loadWave(GetParam());
    EXPECT_GE(seconds(w), 0.15);
    EXPECT_LE(seconds(w), 1.0);
    const auto clipped = std::count_if(w.samples.begin(), w.samples.end(),
                                       [](std::int16_t s) { return s == 32767 || s == -32768; });
    EXPECT_EQ(clipped, 0) << "samples at full scale";
    const int peak = peakOf(w.samples, 0, w.samples.size());
    ASSERT_GT(peak, 0) << "silent";
    const double peakDb = 20.0 * std::log10(peak / 32768.0);
    EXPECT_GT(peakDb, -12.0) << "too quiet to be heard next to other sounds";
    EXPECT_LT(peakDb, -3.0) << "louder than a gentle cue should be";
}

TEST_P(AnswerSound, StartsAndEndsInSilenceWithoutAClick) {
    const Wave w = loadWave(GetParam());
    ASSERT_GT(w.samples.size(), 100u);
    EXPECT_LE(std::abs(int{w.samples.front()}), 328) << "first sample above 1% of full scale";
    EXPECT_LE(std::abs(int{w.samples.back()}), 328) << "last sample above 1% of full scale";
    // Over the first and the last half millisecond the level may only be creeping in or out.
    const auto edge = static_cast<std::size_t>(w.rate / 2000);
    const auto n = w.samples.size();
    EXPECT_LE(peakOf(w.samples, 0, edge), 3277) << "abrupt start";
    EXPECT_LE(peakOf(w.samples, n - edge, n), 3277) << "abrupt end";
}

TEST_P(AnswerSound, IsExactlyWhatTheGeneratorMakes) {
    const std::string name = GetParam();
    const Bytes made =
        name == "yes.wav" ? tablewright::wavs::yesWavFile() : tablewright::wavs::noWavFile();
    const Bytes committed = readFile(kWavsDir / name);
    ASSERT_EQ(made.size(), committed.size());
    const auto diff = std::mismatch(made.begin(), made.end(), committed.begin());
    EXPECT_TRUE(diff.first == made.end())
        << "first difference at byte " << (diff.first - made.begin()) << "; rerun makewavs";
}

INSTANTIATE_TEST_SUITE_P(
    Committed, AnswerSound, testing::Values("yes.wav", "no.wav"), [](const auto& info) {
        return std::string(info.param).substr(0, std::string(info.param).find('.'));
    });

TEST(AnswerSoundCharacter, RightAnswerRisesAndWrongAnswerFallsLower) {
    const Wave yes = loadWave("yes.wav");
    const Wave no = loadWave("no.wav");
    ASSERT_FALSE(yes.samples.empty());
    ASSERT_FALSE(no.samples.empty());
    // A rising chime: its end is higher than its start. A falling cue: the reverse.
    EXPECT_GT(crossingRate(yes, 0.75, 1.0), 1.15 * crossingRate(yes, 0.0, 0.25));
    EXPECT_LT(crossingRate(no, 0.75, 1.0), 0.85 * crossingRate(no, 0.0, 0.25));
    // The wrong-answer cue is low: well under half the pitch of the right-answer chime.
    EXPECT_LT(crossingRate(no, 0.0, 1.0), 0.5 * crossingRate(yes, 0.0, 1.0));
    EXPECT_GT(crossingRate(no, 0.0, 1.0), 100.0) << "too low to be heard on small speakers";
}

TEST(WaveSynthesis, SineIsAccurateOverManyCycles) {
    double worst = 0.0;
    for (int i = -4000; i <= 4000; ++i) {
        const double cycles = i / 997.0;
        worst = std::max(worst, std::fabs(tablewright::wavs::sineOfCycles(cycles) -
                                          std::sin(2.0 * 3.14159265358979323846 * cycles)));
    }
    EXPECT_LT(worst, 1e-8);
}

TEST(WaveSynthesis, EncodedSamplesReadBackUnchanged) {
    const std::vector<std::int16_t> samples{0, 1, -1, 32767, -32768, 258, -12345};
    const Bytes file = tablewright::wavs::encodeWav(samples, 44100);
    EXPECT_EQ(file.size(), 44u + 2 * samples.size());
    std::string why;
    const auto w = parseWave(file, why);
    ASSERT_TRUE(w) << why;
    EXPECT_EQ(w->rate, 44100u);
    EXPECT_EQ(w->byteRate, 88200u);
    EXPECT_EQ(w->riffSize, file.size() - 8);
    EXPECT_EQ(w->samples, samples);
}

TEST(MakeWavsProgram, WritesBothFilesIntoTheGivenFolder) {
    const fs::path out =
        fs::temp_directory_path() / ("makewavs_test_" + std::to_string(::getpid()));
    fs::remove_all(out);
    fs::create_directories(out);
    const std::string program = TABLEWRIGHT_MAKEWAVS;
    ASSERT_EQ(std::system(("\"" + program + "\" \"" + out.string() + "\" >/dev/null").c_str()), 0);
    EXPECT_EQ(readFile(out / "yes.wav"), readFile(kWavsDir / "yes.wav"));
    EXPECT_EQ(readFile(out / "no.wav"), readFile(kWavsDir / "no.wav"));
    fs::remove_all(out);
}

TEST(MakeWavsProgram, FailsWithoutAUsableFolder) {
    const std::string program = TABLEWRIGHT_MAKEWAVS;
    EXPECT_NE(std::system(("\"" + program + "\" 2>/dev/null").c_str()), 0);
    EXPECT_NE(
        std::system(("\"" + program + "\" /nonexistent/folder/for/makewavs 2>/dev/null").c_str()),
        0);
}

}  // namespace
