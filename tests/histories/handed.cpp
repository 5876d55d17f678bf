#include "histories/handed.h"

#include <type_traits>

#include "histories/record_fields.h"

namespace histories {
namespace {

using namespace qmservice;

std::string differenceOf(const IData& record, const IData& before) {
    std::string text;
    const bool known = asItsClass(before, [&](const auto& typedBefore) {
        const auto* typed = dynamic_cast<const std::decay_t<decltype(typedBefore)>*>(&record);
        if (typed == nullptr || !sameFields(*typed, typedBefore)) {
            text = "a record of the host's was " + showRecord(typedBefore) + " and is " + describe(&record);
        }
    });
    return known ? text : "a record of the host's is of no known class";
}

}  // namespace

void Handed::watch(const Record& record) {
    if (record) {
        watched.push_back({record, record->copy()});
    }
}

std::string Handed::difference() const {
    std::string text;
    for (const auto& each : watched) {
        text += differenceOf(*each.record, *each.before);
    }
    return text;
}

}  // namespace histories
