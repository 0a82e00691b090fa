#pragma once

/**
 * @file
 * @brief Export macro of the keoFeature library.
 *
 * Symbols are hidden by default; classes and functions marked KEO_FEATURE_API are part of the
 * library's binary interface. CMake defines keoFeature_EXPORTS while it builds the library itself.
 */
#if defined(_WIN32)
#if defined(keoFeature_EXPORTS)
#define KEO_FEATURE_API __declspec(dllexport)
#else
#define KEO_FEATURE_API __declspec(dllimport)
#endif
#else
#define KEO_FEATURE_API __attribute__((visibility("default")))
#endif
