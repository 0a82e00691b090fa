#pragma once

/**
 * @file
 * @brief Export macro of the keoSource library.
 *
 * Symbols are hidden by default; classes and functions marked KEO_SOURCE_API are part of the
 * library's binary interface. CMake defines keoSource_EXPORTS while it builds the library itself.
 */
#if defined(_WIN32)
#if defined(keoSource_EXPORTS)
#define KEO_SOURCE_API __declspec(dllexport)
#else
#define KEO_SOURCE_API __declspec(dllimport)
#endif
#else
#define KEO_SOURCE_API __attribute__((visibility("default")))
#endif
