#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

namespace keo::test {

/**
 * @brief The public headers of @p library (Core/include/<library>, not its detail/ folder) that
 * its umbrella header Core/include/keo<library>.h does not include, each after a space; empty when
 * it includes them all. Throws std::runtime_error when the umbrella header cannot be read.
 */
inline std::string headersMissingFromUmbrella(const std::string& library) {
    const std::filesystem::path includeRoot =
        std::filesystem::path(__FILE__).lexically_normal().parent_path().parent_path() / "include";
    std::ifstream umbrella(includeRoot / ("keo" + library + ".h"));
    if (!umbrella.good()) {
        throw std::runtime_error("cannot read keo" + library + ".h");
    }
    std::stringstream text;
    text << umbrella.rdbuf();
    std::string missing;
    for (const auto& entry : std::filesystem::directory_iterator(includeRoot / library)) {
        const std::string name = library + "/" + entry.path().filename().string();
        if (entry.path().extension() == ".h" &&
            text.str().find("#include \"" + name + "\"") == std::string::npos) {
            missing += " " + name;
        }
    }
    return missing;
}

} // namespace keo::test
