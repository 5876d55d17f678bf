#include "histories/answers.h"

#include <cstddef>
#include <vector>

#include "histories/record_fields.h"

namespace histories {
namespace {

template <class Record>
std::string differenceOfOwn(const Sharing& /*sharing*/, const Record& expected, const Record& actual) {
    return fieldDifference(expected, actual);
}

template <class Record>
std::string differenceOfPart(const Sharing& sharing, const char* what, const boost::shared_ptr<Record>& expected,
                             const boost::shared_ptr<Record>& actual);

/// An option rate of an answer's own holds pooled items.
std::string differenceOfOwn(const Sharing& sharing, const qmservice::CStockOptionFeeRate& expected,
                            const qmservice::CStockOptionFeeRate& actual) {
    if (!same(expected.baseRate, actual.baseRate)) {
        return saying("baseRate", expected.baseRate, actual.baseRate);
    }
    if (expected.items.size() != actual.items.size()) {
        return saying("items", expected.items, actual.items);
    }
    auto item = actual.items.begin();
    for (const auto& entry : expected.items) {
        if (entry.first != item->first) {
            return saying("items", expected.items, actual.items);
        }
        auto text = differenceOfPart(sharing, "an item", entry.second, item->second);
        if (!text.empty()) {
            return text;
        }
        ++item;
    }
    return {};
}

template <class Record>
std::string differenceOfPart(const Sharing& sharing, const char* what, const boost::shared_ptr<Record>& expected,
                             const boost::shared_ptr<Record>& actual) {
    if (!expected && !actual) {
        return {};
    }
    if (!expected || !actual) {
        return saying(what, expected, actual);
    }
    if (const void* shared = sharing.realOf(expected.get())) {
        return shared == actual.get() ? std::string()
                                      : saying(what, expected, actual) + ", and it is not the shared record it must be";
    }
    if (sharing.isShared(actual.get())) {
        return saying(what, expected, actual) + ", and it is a shared record where the answer must have its own";
    }
    if (actual.use_count() != 1) {
        return std::string(what) + " must be the answer's own, but someone else holds it too";
    }
    const auto text = differenceOfOwn(sharing, *expected, *actual);
    return text.empty() ? text : std::string(what) + ", " + text;
}

std::string differenceOfMargins(const Sharing& sharing,
                                const std::vector<boost::shared_ptr<qmservice::CMarginRateDetail>>& expected,
                                const std::vector<boost::shared_ptr<qmservice::CMarginRateDetail>>& actual) {
    if (expected.size() != actual.size()) {
        return saying("marginDetails", expected, actual);
    }
    std::string text;
    for (std::size_t i = 0; i < expected.size() && text.empty(); ++i) {
        text = differenceOfPart(sharing, "marginDetails", expected[i], actual[i]);
    }
    return text;
}

}  // namespace

std::string differenceOfAnswers(const Sharing& sharing, const Fee& expected, const Fee& actual) {
    if (!expected || !actual) {
        return !expected && !actual ? std::string() : saying("the answer", expected, actual);
    }
    if (actual.use_count() != 1) {
        return "the answer must be the caller's alone, but someone else holds it too";
    }
    if (expected->account != actual->account) {
        return saying("account", expected->account, actual->account);
    }
    if (expected->instrument != actual->instrument) {
        return saying("instrument", expected->instrument, actual->instrument);
    }
    std::string text;
    const auto agree = [&](const char* what, auto part) {
        text = differenceOfPart(sharing, what, (*expected).*part, (*actual).*part);
        return text.empty();
    };
    using qmservice::CInstrumentFee;
    if (agree("commissionDetail", &CInstrumentFee::commissionDetail) &&
        agree("stkRateLimit", &CInstrumentFee::stkRateLimit) &&
        agree("stkOptionFeeRate", &CInstrumentFee::stkOptionFeeRate) &&
        agree("hgtRateLimit", &CInstrumentFee::hgtRateLimit) && agree("sgtRateLimit", &CInstrumentFee::sgtRateLimit)) {
        return differenceOfMargins(sharing, expected->marginDetails, actual->marginDetails);
    }
    return text;
}

}  // namespace histories
