#ifndef BENCH_MEMORY_H
#define BENCH_MEMORY_H

namespace bench {

/// Loads stock records of many accounts, checks answers and prints "entries,accounts,bytes per entry,seconds,peak": how
/// much memory the allocator has given for each entry, its own part included, how long the loads took, and the most
/// that the process has had so far, in MiB. The pools are in the entries; they hold kRateSets records.
void measureMemory();

}  // namespace bench

#endif  // BENCH_MEMORY_H
