#ifndef BENCH_MEMORY_H
#define BENCH_MEMORY_H

namespace bench {

/// Loads stock records of many accounts and prints "entries,accounts,bytes per entry,seconds": how much memory the
/// allocator has given for each entry, its own part included, and how long the loads took. The pools are in it; they
/// hold kRateSets records.
void measureMemory();

}  // namespace bench

#endif  // BENCH_MEMORY_H
