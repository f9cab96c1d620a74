// Marks what a host may use of the store on PostgreSQL. Everything else stays hidden inside the
// library.
#pragma once

#if defined(LEDGERWICK_HOSTKIT_STATIC)
#define LEDGERWICK_POSTGRES_API
#elif defined(_WIN32)
#ifdef LEDGERWICK_POSTGRES_BUILDING
#define LEDGERWICK_POSTGRES_API __declspec(dllexport)
#else
#define LEDGERWICK_POSTGRES_API __declspec(dllimport)
#endif
#else
// Stands in front of a name of the store that a host may use.
#define LEDGERWICK_POSTGRES_API __attribute__((visibility("default")))
#endif
