#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace keo::scene {

/** @brief Exit status of a successful run. */
inline constexpr int EXIT_OK = 0;
/** @brief Exit status when --verify finds a difference or the JSON report cannot be written. */
inline constexpr int EXIT_FAILED = 1;
/** @brief Exit status for a wrong command line (including a --json file that cannot be opened). */
inline constexpr int EXIT_USAGE = 2;

/**
 * @brief Runs the program with @p arguments (those after the program name): the built-in sample
 * by default, the scale run with --features. Normal output goes to @p out, messages to @p err,
 * and the progress bar of the scale run to @p err when @p progress is true (standard error is a
 * terminal and --quiet is not given). Returns the exit status; never throws for bad input.
 */
int runProgram(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err,
               bool progress);

} // namespace keo::scene
