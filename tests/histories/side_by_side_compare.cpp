#include <algorithm>
#include <boost/smart_ptr/make_shared.hpp>
#include <string>
#include <vector>

#include "histories/record_fields.h"
#include "histories/side_by_side.h"
#include "histories/tables.h"

// The comparing part.

namespace histories {
namespace {

void sortByInstrument(std::vector<Fee>& fees) {
    // No two fees of a list have one instrument: the world's catalogue has no record under two keys.
    std::sort(fees.begin(), fees.end(), [](const Fee& a, const Fee& b) { return a->instrument < b->instrument; });
}

}  // namespace

std::string SideBySide::compareAll() {
    ++round;
    std::string text = differenceOfTables(sharing, *model, center);
    for (const auto& account : world.accounts(Focus::all)) {
        if (text.empty()) {
            text = compareFees(account);
        }
        if (text.empty()) {
            text = compareList(account);
        }
    }
    previous.reset();
    if (text.empty()) {
        text = differenceOfTables(sharing, *model, center);
    }
    if (text.empty()) {
        text = handed.difference() + hostsOwn.difference();
    }
    if (changes.empty()) {
        handed.clear();
    }
    return text;
}

std::string SideBySide::compareFees(const Account& account) {
    constexpr std::size_t kTurns = 4;  // each name is asked for by market and code in one round out of four
    for (std::size_t i = 0; i < world.questions.size(); ++i) {
        const auto& question = world.questions[i];
        auto text = compareFee(account, question, false);
        if (text.empty() && question.joins && (i + round) % kTurns == 0) {
            text = compareFee(account, question, true);
        }
        if (!text.empty()) {
            return text;
        }
    }
    return {};
}

std::string SideBySide::compareFee(const Account& account, const World::Question& question, bool byName) {
    const Fee expected =
        byName ? model->getFee(account, question.market, question.code) : model->getFee(account, question.key);
    Fee actual = byName ? center.getFee(account, question.market, question.code) : center.getFee(account, question.key);
    answers += expected ? 1U : 0U;
    countAnswer(account, expected);
    auto text = differenceOfAnswers(sharing, expected, actual);
    if (!text.empty()) {
        text = "getFee of the account of " + show(account) + " for \"" + question.key + "\": " + text;
    }
    previous = std::move(actual);
    return text;
}

void SideBySide::countAnswer(const Account& account, const Fee& answer) {
    if (!answer) {
        return;
    }
    const auto count = [&](std::string_view part, const auto& record) {
        if (record) {
            world.reached.count(account->accountType, part, originOf(record.get()));
        }
    };
    count("stkRateLimit", answer->stkRateLimit);
    count("hgtRateLimit", answer->hgtRateLimit);
    count("sgtRateLimit", answer->sgtRateLimit);
    count("stkOptionFeeRate", answer->stkOptionFeeRate);
    count("commissionDetail", answer->commissionDetail);
    for (const auto& margin : answer->marginDetails) {
        count("marginDetails", margin);
    }
}

std::string_view SideBySide::originOf(const void* record) const {
    if (watched.count(record) != 0) {
        return kConfigured;
    }
    if (defaults.count(record) != 0) {
        return kDefault;
    }
    return sharing.realOf(record) != nullptr ? kPooled : kOwn;
}

std::string SideBySide::compareList(const Account& account) {
    const auto about = [&](const std::string& what) {
        return "getFees of the account of " + show(account) + ": " + what;
    };
    bool known = false;
    std::vector<Fee> expected = model->getFees(account, known);
    world.reached.count(account->accountType, kList, !known ? kUnknown : expected.empty() ? kEmptyList : kFilledList);
    const Fee first = boost::make_shared<qmservice::CInstrumentFee>();
    std::vector<Fee> actual{first};
    if (center.getFees(account, actual) != known) {
        return about(known ? "the answer is false" : "the answer is true");
    }
    if (actual.empty() || actual.front() != first || !sameFields(*first, qmservice::CInstrumentFee())) {
        return about("what was in the list before is gone or changed");
    }
    actual.erase(actual.begin());
    if (actual.size() != expected.size()) {
        return about(std::to_string(actual.size()) + " fees, the model lists " + std::to_string(expected.size()));
    }
    if (std::find(actual.begin(), actual.end(), nullptr) != actual.end()) {
        return about("an empty fee");
    }
    sortByInstrument(expected);
    sortByInstrument(actual);
    for (std::size_t i = 0; i < expected.size(); ++i) {
        ++answers;
        const auto text = differenceOfAnswers(sharing, expected[i], actual[i]);
        if (!text.empty()) {
            return about("the fee of " + show(expected[i]->instrument) + ", " + text);
        }
    }
    return {};
}

}  // namespace histories
