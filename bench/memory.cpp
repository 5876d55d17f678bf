#include "bench/memory.h"

#include <malloc.h>
#include <sys/resource.h>

#include <chrono>
#include <iostream>

#include "bench/filled.h"

namespace bench {
namespace {

std::size_t allocated() { return mallinfo2().uordblks; }

/// The most memory that the process has had so far, the catalogue and the records of one account included.
long peakMebibytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

void measure(Shape shape) {
    FeeCenter center;
    std::size_t grown = 0;
    std::chrono::duration<double> spent{0};
    for (int n = 0; n < shape.accounts; ++n) {
        const auto records = stockRecords(kShanghai, n, shape.entries);
        const Account account = accountOf(qmservice::kStockAccount, n);
        const std::size_t before = allocated();
        const auto start = std::chrono::steady_clock::now();
        center.load(account, records);
        spent += std::chrono::steady_clock::now() - start;
        grown += allocated() - before;
    }
    const Mix& mix = allMixes().front();
    checkAll(mix, questionsOf(mix, shape), center);
    const int entries = shape.accounts * shape.entries;
    std::cout << entries << ',' << shape.accounts << ',' << static_cast<double>(grown) / entries << ',' << spent.count()
              << ',' << peakMebibytes() << '\n';
}

}  // namespace

void measureMemory() {
    std::cout << "entries,accounts,bytes per entry,seconds,peak\n";
    for (const Shape shape : {Shape{1, 5000}, Shape{1, 50000}, Shape{100, 10000}, Shape{1000, 10000}}) {
        measure(shape);
    }
}

}  // namespace bench
