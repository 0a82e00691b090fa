#pragma once

/**
 * @file
 * @brief Export macro of the keoPicture library.
 *
 * Symbols are hidden by default; classes and functions marked KEO_PICTURE_API are part of the
 * library's binary interface. CMake defines keoPicture_EXPORTS while it builds the library itself.
 */
#if defined(_WIN32)
#if defined(keoPicture_EXPORTS)
#define KEO_PICTURE_API __declspec(dllexport)
#else
#define KEO_PICTURE_API __declspec(dllimport)
#endif
#else
#define KEO_PICTURE_API __attribute__((visibility("default")))
#endif
