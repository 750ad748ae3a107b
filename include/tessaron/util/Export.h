#ifndef TESSARON_UTIL_EXPORT_H
#define TESSARON_UTIL_EXPORT_H

// Stability: stable.

// Marks what each shared library offers to others. Everything else stays hidden inside its library.
#if defined(_WIN32)
#define TESSARON_EXPORT __declspec(dllexport)
#define TESSARON_IMPORT __declspec(dllimport)
#else
#define TESSARON_EXPORT __attribute__((visibility("default")))
#define TESSARON_IMPORT __attribute__((visibility("default")))
#endif

#ifdef TESSARON_EXCHANGE_BUILD
#define TESSARON_EXCHANGE_API TESSARON_EXPORT
#else
#define TESSARON_EXCHANGE_API TESSARON_IMPORT
#endif

#ifdef TESSARON_ENGINES_BUILD
#define TESSARON_ENGINES_API TESSARON_EXPORT
#else
#define TESSARON_ENGINES_API TESSARON_IMPORT
#endif

#ifdef TESSARON_RESOURCES_BUILD
#define TESSARON_RESOURCES_API TESSARON_EXPORT
#else
#define TESSARON_RESOURCES_API TESSARON_IMPORT
#endif

#endif
