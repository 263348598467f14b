// Synthesis of the two answer sounds of the exercises: a bright rising chime for a
// right answer and a soft falling pair of low notes for a wrong one. Everything here
// is plain IEEE arithmetic with a sine of our own, so the same build always produces
// the same bytes: the committed wave files can be checked against it.
#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

namespace tablewright::wavs {

// Samples per second of both sounds.
inline constexpr std::uint32_t kSampleRate = 22050;

// sin(2 * pi * cycles), exact to well below one step of a 16-bit sample.
double sineOfCycles(double cycles);

// The two sounds as 16-bit mono samples.
std::vector<std::int16_t> synthesizeYes();
std::vector<std::int16_t> synthesizeNo();

// A complete RIFF/WAVE file: 16-bit PCM, one channel, at `sampleRate`.
std::vector<std::uint8_t> encodeWav(const std::vector<std::int16_t>& samples,
                                    std::uint32_t sampleRate);

// The two files as they are written to disk.
std::vector<std::uint8_t> yesWavFile();
std::vector<std::uint8_t> noWavFile();

// Writes yes.wav and no.wav into `folder`, which must exist. False on any failure.
bool writeAnswerSounds(const std::filesystem::path& folder);

}  // namespace tablewright::wavs
