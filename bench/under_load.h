#ifndef BENCH_UNDER_LOAD_H
#define BENCH_UNDER_LOAD_H

namespace bench {

/// Times single lookups of stocks while another thread loads 50,000 records of another account over and over, for the
/// fee center, the floor and the plain alternatives in turn, `rounds` times. Prints "implementation,round,share,ns" for
/// a number of shares of the lookups: that share of them took at most so long, the clock's own time taken away.
void measureUnderLoad(int rounds);

}  // namespace bench

#endif  // BENCH_UNDER_LOAD_H
