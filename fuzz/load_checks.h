#ifndef FUZZ_LOAD_CHECKS_H
#define FUZZ_LOAD_CHECKS_H

#include "fuzz/folder_text.h"
#include "standalone/loader.h"

namespace fuzz {

/// Fails unless the load gave errors and nothing else, each of them at a place that the folder has and in order, or
/// else a market that is whole.
void checkLoad(const Files& files, const standalone::LoadResult& result);

}  // namespace fuzz

#endif  // FUZZ_LOAD_CHECKS_H
