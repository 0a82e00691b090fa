#pragma once

/**
 * @file
 * @brief Export macro of the keoData library.
 *
 * Symbols are hidden by default; classes and functions marked KEO_DATA_API are part of the
 * library's binary interface. CMake defines keoData_EXPORTS while it builds the library itself.
 */
#if defined(_WIN32)
#if defined(keoData_EXPORTS)
#define KEO_DATA_API __declspec(dllexport)
#else
#define KEO_DATA_API __declspec(dllimport)
#endif
#else
#define KEO_DATA_API __attribute__((visibility("default")))
#endif
