#include "wavsynth.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <fstream>
#include <string_view>

namespace tablewright::wavs {
namespace {

// One overtone of a note: its frequency as a multiple of the note's, and its strength.
struct Partial {
    double ratio;
    double gain;
};

// A note of a sound. Times are in seconds, frequencies in hertz.
struct Note {
    double start;
    double length;
    double frequency;
    double glideTo;    // the frequency at the end of the note, as a multiple of `frequency`
    double attack;     // rise from silence
    double release;    // fall to silence at the end
    double decayRate;  // how fast the note fades while it sounds, per second
    double gain;
    std::vector<Partial> partials;
};

std::size_t secondsToSamples(double seconds) {
    return static_cast<std::size_t>(std::lround(seconds * kSampleRate));
}

// A smooth step from 0 to 1 as x goes from 0 to 1: a quarter of a sine wave, squared.
double smoothStep(double x) {
    const double s = sineOfCycles(std::clamp(x, 0.0, 1.0) / 4.0);
    return s * s;
}

void addNote(std::vector<double>& out, const Note& note) {
    const std::size_t first = secondsToSamples(note.start);
    const std::size_t count = secondsToSamples(note.length);
    const double attackSamples = note.attack * kSampleRate;
    const double releaseSamples = note.release * kSampleRate;
    // Exponential fading, sample by sample, without a call to a library exponential.
    const double fadePerSample = 1.0 - note.decayRate / kSampleRate;
    if (out.size() < first + count)
        out.resize(first + count, 0.0);

    double phase = 0.0;  // in cycles of the fundamental
    double fade = 1.0;
    for (std::size_t i = 0; i < count; ++i) {
        const double progress = static_cast<double>(i) / static_cast<double>(count);
        const double frequency = note.frequency * (1.0 + (note.glideTo - 1.0) * progress);
        double wave = 0.0;
        for (const Partial& p : note.partials)
            wave += p.gain * sineOfCycles(phase * p.ratio);
        const double remaining = static_cast<double>(count - 1 - i);
        const double envelope = smoothStep(static_cast<double>(i) / attackSamples) *
                                smoothStep(remaining / releaseSamples) * fade;
        out[first + i] += note.gain * envelope * wave;
        phase += frequency / kSampleRate;
        phase -= std::floor(phase);
        fade *= fadePerSample;
    }
}

// Mixes the notes and scales the mix so that its highest peak is `peak` of full scale.
std::vector<std::int16_t> render(const std::vector<Note>& notes, double peak) {
    std::vector<double> mix;
    for (const Note& note : notes)
        addNote(mix, note);
    double highest = 0.0;
    for (double v : mix)
        highest = std::max(highest, std::fabs(v));
    const double scale = highest > 0.0 ? peak * 32767.0 / highest : 0.0;
    std::vector<std::int16_t> samples;
    samples.reserve(mix.size());
    for (double v : mix)
        samples.push_back(static_cast<std::int16_t>(std::lround(v * scale)));
    return samples;
}

void putTag(std::vector<std::uint8_t>& out, std::string_view tag) {
    for (char c : tag)
        out.push_back(static_cast<std::uint8_t>(c));
}

void putLittleEndian(std::vector<std::uint8_t>& out, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i)
        out.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

bool writeFile(const std::filesystem::path& path, const std::vector<std::uint8_t>& bytes) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    if (!file)
        return false;
    file.write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    file.close();
    return static_cast<bool>(file);
}

}  // namespace

double sineOfCycles(double cycles) {
    double r = cycles - std::floor(cycles);  // [0, 1)
    double sign = 1.0;
    if (r >= 0.5) {  // the second half-wave is the first one negated
        r -= 0.5;
        sign = -1.0;
    }
    if (r > 0.25)
        r = 0.5 - r;  // each half-wave is symmetric about its peak
    const double x = 2.0 * 3.14159265358979323846 * r;  // [0, pi/2]
    const double x2 = x * x;
    // Taylor series to the x^13 term; the error is below 1e-9 on [0, pi/2].
    const double series =
        1.0 -
        x2 / 6.0 *
            (1.0 -
             x2 / 20.0 *
                 (1.0 - x2 / 42.0 * (1.0 - x2 / 72.0 * (1.0 - x2 / 110.0 * (1.0 - x2 / 156.0)))));
    return sign * x * series;
}

std::vector<std::int16_t> synthesizeYes() {
    // G5 then C6, a rising fourth, with a light bell-like brightness; the notes overlap
    // for a moment so that they ring together, then the high one dies away.
    const Note low{
        0.00, 0.20, 783.99, 1.0, 0.004, 0.06, 7.0, 1.0, {{1, 1.0}, {2, 0.25}, {3, 0.08}}};
    const Note high{
        0.10, 0.25, 1046.50, 1.0, 0.004, 0.12, 6.0, 1.0, {{1, 1.0}, {2, 0.25}, {3, 0.08}}};
    return render({low, high}, 0.50);  // -6 dBFS
}

std::vector<std::int16_t> synthesizeNo() {
    // D4 then A3, a falling fourth, each sagging a little in pitch; soft overtones give
    // a mellow buzz that is still heard on small speakers.
    const Note first{
        0.00, 0.18, 293.66, 0.98, 0.012, 0.05, 3.0, 1.0, {{1, 1.0}, {2, 0.30}, {3, 0.15}}};
    const Note second{
        0.16, 0.24, 220.00, 0.97, 0.012, 0.12, 3.0, 1.0, {{1, 1.0}, {2, 0.30}, {3, 0.15}}};
    return render({first, second}, 0.45);  // about -7 dBFS
}

std::vector<std::uint8_t> encodeWav(const std::vector<std::int16_t>& samples,
                                    std::uint32_t sampleRate) {
    const auto dataBytes = static_cast<std::uint32_t>(samples.size() * 2);
    std::vector<std::uint8_t> out;
    out.reserve(44 + dataBytes);
    putTag(out, "RIFF");
    putLittleEndian(out, 36 + dataBytes, 4);
    putTag(out, "WAVE");
    putTag(out, "fmt ");
    putLittleEndian(out, 16, 4);  // size of the format chunk
    putLittleEndian(out, 1, 2);   // PCM
    putLittleEndian(out, 1, 2);   // one channel
    putLittleEndian(out, sampleRate, 4);
    putLittleEndian(out, sampleRate * 2, 4);  // bytes per second
    putLittleEndian(out, 2, 2);               // bytes per sample frame
    putLittleEndian(out, 16, 2);              // bits per sample
    putTag(out, "data");
    putLittleEndian(out, dataBytes, 4);
    for (std::int16_t s : samples)
        putLittleEndian(out, static_cast<std::uint16_t>(s), 2);
    return out;
}

std::vector<std::uint8_t> yesWavFile() {
    return encodeWav(synthesizeYes(), kSampleRate);
}

std::vector<std::uint8_t> noWavFile() {
    return encodeWav(synthesizeNo(), kSampleRate);
}

bool writeAnswerSounds(const std::filesystem::path& folder) {
    return writeFile(folder / "yes.wav", yesWavFile()) && writeFile(folder / "no.wav", noWavFile());
}

}  // namespace tablewright::wavs
