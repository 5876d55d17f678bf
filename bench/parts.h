#ifndef BENCH_PARTS_H
#define BENCH_PARTS_H

namespace bench {

/// Registers the parts that a lookup is made of and that no fee center can leave out: the lock, the answer's memory,
/// the host. Names are "part/NAME".
void registerParts();

}  // namespace bench

#endif  // BENCH_PARTS_H
