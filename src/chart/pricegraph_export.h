#ifndef PRICEGRAPH_EXPORT_H
#define PRICEGRAPH_EXPORT_H

// The library is built with hidden symbols; only what carries this mark is
// part of its binary interface.
#if defined(__GNUC__) || defined(__clang__)
#define PRICEGRAPH_EXPORT __attribute__((visibility("default")))
#else
#define PRICEGRAPH_EXPORT
#endif

#endif // PRICEGRAPH_EXPORT_H
