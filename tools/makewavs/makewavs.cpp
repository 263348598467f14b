// makewavs: writes the two answer sounds of the exercises, yes.wav and no.wav, into the
// folder given as its one argument (app/wavs in the source tree).
#include <filesystem>
#include <iostream>
#include <system_error>

#include "wavsynth.hpp"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: makewavs OUTPUT_FOLDER\n";
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    std::error_code error;
    if (!std::filesystem::is_directory(folder, error)) {
        std::cerr << "makewavs: not a folder: " << folder.string() << '\n';
        return 1;
    }
    if (!tablewright::wavs::writeAnswerSounds(folder)) {
        std::cerr << "makewavs: could not write the sounds into " << folder.string() << '\n';
        return 1;
    }
    std::cout << "wrote " << (folder / "yes.wav").string() << " and "
              << (folder / "no.wav").string() << '\n';
    return 0;
}
