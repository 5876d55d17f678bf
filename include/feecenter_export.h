#ifndef FEECENTER_EXPORT_H
#define FEECENTER_EXPORT_H

// The library hides everything that is not marked with FEECENTER_EXPORT, and of an exported class what is marked with
// FEECENTER_LOCAL. An inline operation is exported when it is marked with FEECENTER_EXPORT_INLINE: wherever it is used
// the compiler emits it as a symbol too, and all copies count as one.
#if defined(__GNUC__)
#define FEECENTER_EXPORT __attribute__((visibility("default")))
#define FEECENTER_LOCAL __attribute__((visibility("hidden")))
#define FEECENTER_EXPORT_INLINE __attribute__((visibility("default"), used))
#else
#define FEECENTER_EXPORT
#define FEECENTER_LOCAL
#define FEECENTER_EXPORT_INLINE
#endif

#endif  // FEECENTER_EXPORT_H
