#include "feedesk/answers/pooled_entries.h"

namespace feedesk {
namespace {

bool isEntry(const FeeLine& line) {
    switch (line.origin.level) {
        case Level::kOwnRecord:
        case Level::kCustomFee:
        case Level::kConfiguredLimit:
            return true;
        case Level::kExchangeFee:
        case Level::kBuiltInDefault:
        case Level::kNotSet:
            break;
    }
    return false;
}

}  // namespace

double savedShare(std::size_t bytes, std::size_t whole) {
    return whole == 0 ? 0 : 1 - static_cast<double>(bytes) / static_cast<double>(whole);
}

void addEntries(PooledFamilies& families, const std::vector<Answer>& listed) {
    for (const Answer& answer : listed) {
        for (const FeeLine& line : answer.lines) {
            if (isEntry(line)) {
                PooledEntries& family = families[line.part];
                family.accounts.insert(answer.account.get());
                ++family.entries;
                family.records.insert(line.read.record);
                family.recordBytes = line.read.bytes;
            }
        }
    }
}

}  // namespace feedesk
