#ifndef FEECENTER_EXPORT_H
#define FEECENTER_EXPORT_H

// The library hides everything that is not marked with FEECENTER_EXPORT, and of an exported class what is marked with
// FEECENTER_LOCAL.
#if defined(__GNUC__)
#define FEECENTER_EXPORT __attribute__((visibility("default")))
#define FEECENTER_LOCAL __attribute__((visibility("hidden")))
#else
#define FEECENTER_EXPORT
#define FEECENTER_LOCAL
#endif

#endif  // FEECENTER_EXPORT_H
