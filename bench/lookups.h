#ifndef BENCH_LOOKUPS_H
#define BENCH_LOOKUPS_H

namespace bench {

/// Registers the lookups: every mix by one thread, the hits by two and four, and the stock hit by size of the tables
/// and by number of accounts. An iteration is a round in which all implementations take turns; the counters are the
/// nanoseconds of a lookup by implementation: processor time for one thread, for several the time on the wall between
/// two answers of all threads together.
///
/// Names are "lookup/MIX/ACCOUNTSxENTRIES".
void registerLookups();

}  // namespace bench

#endif  // BENCH_LOOKUPS_H
