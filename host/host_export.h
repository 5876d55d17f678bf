#ifndef HOST_HOST_EXPORT_H
#define HOST_HOST_EXPORT_H

// What a host defines is used by the library and must stay visible outside of the program that holds it, also when that
// is compiled with -fvisibility=hidden: without this mark the linker would refuse such a host. Each class and function
// has the mark, not a header as a whole: a class that was declared ahead of its header keeps it.
#if defined(__GNUC__)
#define HOST_EXPORT __attribute__((visibility("default")))
#else
#define HOST_EXPORT
#endif

#endif  // HOST_HOST_EXPORT_H
