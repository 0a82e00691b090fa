#pragma once

/**
 * @file
 * @brief Export macro of the keoCommon library.
 *
 * Symbols are hidden by default; classes and functions marked KEO_COMMON_API are part of the
 * library's binary interface. CMake defines keoCommon_EXPORTS while it builds the library itself.
 */
#if defined(_WIN32)
#if defined(keoCommon_EXPORTS)
#define KEO_COMMON_API __declspec(dllexport)
#else
#define KEO_COMMON_API __declspec(dllimport)
#endif
#else
#define KEO_COMMON_API __attribute__((visibility("default")))
#endif
