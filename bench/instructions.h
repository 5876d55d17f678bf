#ifndef BENCH_INSTRUCTIONS_H
#define BENCH_INSTRUCTIONS_H

namespace bench {

/// Runs every mix and every change so that callgrind can count instructions: each in a part of its own, which is called
/// "mix/implementation/calls". Of no use but under `valgrind --tool=callgrind --instr-atstart=no`.
void countInstructions();

}  // namespace bench

#endif  // BENCH_INSTRUCTIONS_H
