// keo-scene: plays the kit's sample scene frame by frame, as a renderer would, and prints what
// the features become. See README.md and `keo-scene --help`.
#include "Program.h"

#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include <unistd.h>

int main(int argc, char** argv) {
    try {
        const std::vector<std::string> arguments(argv + 1, argv + argc);
        return keo::scene::runProgram(arguments, std::cout, std::cerr, isatty(STDERR_FILENO) != 0);
    } catch (const std::exception& e) {
        std::cerr << "keo-scene: " << e.what() << "\n";
        return keo::scene::EXIT_FAILED;
    }
}
