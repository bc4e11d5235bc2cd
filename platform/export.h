#pragma once

// ZEL_UNITS_EXPORT and ZEL_QT_EXPORT mark what the two shared libraries export, one class or
// function at a time; all other symbols are hidden. A type that crosses the library's border in
// an exception, a boost::any or a dynamic_cast needs the mark too: its type information has to be
// one and the same on both sides.
#if defined(_WIN32)
#if defined(ZEL_UNITS_BUILD)
#define ZEL_UNITS_EXPORT __declspec(dllexport)
#else
#define ZEL_UNITS_EXPORT __declspec(dllimport)
#endif
#if defined(ZEL_QT_BUILD)
#define ZEL_QT_EXPORT __declspec(dllexport)
#else
#define ZEL_QT_EXPORT __declspec(dllimport)
#endif
#else
#define ZEL_UNITS_EXPORT __attribute__((visibility("default")))
#define ZEL_QT_EXPORT __attribute__((visibility("default")))
#endif
