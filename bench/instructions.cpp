#include "bench/instructions.h"

#include <valgrind/callgrind.h>

#include <string>
#include <vector>

#include "bench/bulk.h"
#include "bench/filled.h"

namespace bench {
namespace {

constexpr int kCalls = 2000;

/// Counts what `run(n)` does for n from 0 up to `calls`, in the part called `name`.
template <class Run>
void count(const std::string& name, int calls, const Run& run) {
    const std::string part = name + "/" + std::to_string(calls);
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_ZERO_STATS;
    for (int n = 0; n < calls; ++n) {
        run(n);
    }
    CALLGRIND_DUMP_STATS_AT(part.c_str());
    CALLGRIND_STOP_INSTRUMENTATION;
}

template <class Implementation>
void countLookups(const Mix& mix) {
    const auto questions = questionsOf(mix, kUsualShape);
    auto& center = filled<Implementation>(kUsualShape);
    checkAll(mix, questions, center);
    count(std::string(mix.name) + "/" + Implementation::kName, kCalls, [&](int n) {
        const Question& question = questions[static_cast<std::size_t>(n)];
        center.ask(question.account, question.key);
    });
}

/// Counted per entry.
template <class Implementation>
void countBulk(const Bulk& bulk) {
    BulkRun<Implementation> run(bulk);
    run.reset();
    count(std::string(bulk.name) + "/" + Implementation::kName, kBulkEntries, [&](int n) {
        if (n == 0) {
            run.run();
        }
    });
}

}  // namespace

void countInstructions() {
    for (const Mix& mix : allMixes()) {
        countLookups<FeeCenter>(mix);
        countLookups<Floor>(mix);
    }
    for (const Bulk& bulk : allBulks()) {
        countBulk<FeeCenter>(bulk);
        countBulk<Floor>(bulk);
    }
}

}  // namespace bench
