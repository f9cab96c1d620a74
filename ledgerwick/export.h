// Marks what a host may use. Everything else stays hidden inside the library.
#pragma once

#if defined(LEDGERWICK_STATIC)
#define LEDGERWICK_API
#elif defined(_WIN32)
#ifdef LEDGERWICK_BUILDING
#define LEDGERWICK_API __declspec(dllexport)
#else
#define LEDGERWICK_API __declspec(dllimport)
#endif
#else
// Stands in front of a name of the library that a host may use.
#define LEDGERWICK_API __attribute__((visibility("default")))
#endif
