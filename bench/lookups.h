#ifndef BENCH_LOOKUPS_H
#define BENCH_LOOKUPS_H

namespace bench {

/// Registers the lookups: every mix by one thread, the hits by two and four, and the stock hit by size of the tables
/// and by number of accounts; of the fee center, of the floor and of the plain alternatives.
///
/// Names are "lookup/MIX/IMPLEMENTATION/ACCOUNTSxENTRIES".
void registerLookups();

}  // namespace bench

#endif  // BENCH_LOOKUPS_H
