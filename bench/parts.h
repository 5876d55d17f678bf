#ifndef BENCH_PARTS_H
#define BENCH_PARTS_H

namespace bench {

/// Registers the parts that a lookup is made of and that no fee center can leave out: the lock, the answer's memory,
/// the host. A lock is also taken by two threads together: of these the time on the wall between two takings of both
/// counts. Names are "part/NAME".
void registerParts();

}  // namespace bench

#endif  // BENCH_PARTS_H
