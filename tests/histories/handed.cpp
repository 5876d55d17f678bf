#include "histories/handed.h"

#include <type_traits>

#include "histories/record_fields.h"

namespace histories {
namespace {

using namespace qmservice;

template <class Entry>
using Entries = std::vector<boost::shared_ptr<Entry>>;

/// Whether each entry is as it was or as it is to be.
template <class Entry>
bool eachIsEither(const Entries<Entry>& entries, const Entries<Entry>& before, const Entries<Entry>& after) {
    bool either = entries.size() == before.size() && entries.size() == after.size();
    for (std::size_t i = 0; either && i < entries.size(); ++i) {
        either = same(entries[i], before[i]) || same(entries[i], after[i]);
    }
    return either;
}

/// Whether a change that was broken off may have left the record like this.
template <class Limits>
auto isMidway(const Limits& record, const Limits& before, const Limits& after) -> decltype(record.rateLimits, bool()) {
    return eachIsEither(record.rateLimits, before.rateLimits, after.rateLimits);
}
bool isMidway(const CCustomFutureInstrumentFee& record, const CCustomFutureInstrumentFee& before,
              const CCustomFutureInstrumentFee& after) {
    return eachIsEither(record.commissionDetails, before.commissionDetails, after.commissionDetails) &&
           eachIsEither(record.marginDetails, before.marginDetails, after.marginDetails);
}
bool isMidway(const IData& /*record*/, const IData& /*before*/, const IData& /*after*/) { return false; }

std::string differenceOf(const IData& record, const IData& before, const IData& after, bool midway) {
    std::string text;
    const bool known = asItsClass(after, [&](const auto& typedAfter) {
        using Class = std::decay_t<decltype(typedAfter)>;
        const auto* typed = dynamic_cast<const Class*>(&record);
        const auto* typedBefore = dynamic_cast<const Class*>(&before);
        if (typed == nullptr || typedBefore == nullptr) {
            text = "a record of the host's is of another class";
        } else if (!sameFields(*typed, typedAfter) && !(midway && isMidway(*typed, *typedBefore, typedAfter))) {
            text = "a record of the host's was " + showRecord(*typedBefore) + ", is to be " + showRecord(typedAfter) +
                   " and is " + describe(&record);
        }
    });
    return known ? text : "a record of the host's is of no known class";
}

}  // namespace

void Handed::watch(const Record& record) {
    if (record) {
        const Record before = record->copy();
        watched.push_back({record, before, before});
    }
}

void Handed::watch(const Records& records, const Records& models) {
    for (std::size_t i = 0; i < records.size(); ++i) {
        if (records[i]) {
            watched.push_back({records[i], records[i]->copy(), models.at(i)});
        }
    }
}

std::string Handed::difference() const {
    std::string text;
    for (const auto& each : watched) {
        text += differenceOf(*each.record, *each.before, *each.models, false);
    }
    return text;
}

std::string Handed::differenceMidway() const {
    std::string text;
    for (const auto& each : watched) {
        text += differenceOf(*each.record, *each.before, *each.models, true);
    }
    return text;
}

}  // namespace histories
