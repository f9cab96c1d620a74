// Marks what a host may use of the kit. Everything else stays hidden inside the library.
#pragma once

#if defined(LEDGERWICK_HOSTKIT_STATIC)
#define LEDGERWICK_HOSTKIT_API
#elif defined(_WIN32)
#ifdef LEDGERWICK_HOSTKIT_BUILDING
#define LEDGERWICK_HOSTKIT_API __declspec(dllexport)
#else
#define LEDGERWICK_HOSTKIT_API __declspec(dllimport)
#endif
#else
// Stands in front of a name of the kit that a host may use.
#define LEDGERWICK_HOSTKIT_API __attribute__((visibility("default")))
#endif
