#include "histories/judge.h"

#include <algorithm>
#include <boost/smart_ptr/make_shared.hpp>

#include "histories/record_fields.h"
#include "model/markets.h"

namespace histories {
namespace {

constexpr int kPrimeBrokerage = 12;

std::string inNoStateOf(Window window, const std::string& lastDifference) {
    return "right in no state from " + std::to_string(window.first) + " to " + std::to_string(window.last) +
           "; in the last one, " + lastDifference;
}

std::vector<Instrument> instrumentsOf(const std::vector<Fee>& fees) {
    std::vector<Instrument> instruments;
    for (const Fee& fee : fees) {
        instruments.push_back(fee->instrument);
    }
    std::sort(instruments.begin(), instruments.end());
    return instruments;
}

}  // namespace

std::string Judge::complaintOfFee(const Account& account, const World::Question& question, Window window,
                                  const Fee& actual) const {
    std::string text;
    for (std::size_t state = window.first; state <= window.last; ++state) {
        text = differenceOfAnswers(sharing, states.at(state).getFee(account, question.key), actual);
        if (text.empty()) {
            return {};
        }
    }
    return isOfTwoStates(account, question, window, actual) ? std::string() : inNoStateOf(window, text);
}

/// Prime brokerage looks a stock's limit up and then its option rate: the latter may be of a later state.
bool Judge::isOfTwoStates(const Account& account, const World::Question& question, Window window,
                          const Fee& actual) const {
    if (account->accountType != kPrimeBrokerage || !actual || !actual->instrument ||
        !model::isStockMarket(actual->instrument->market)) {
        return false;
    }
    for (std::size_t first = window.first; first <= window.last; ++first) {
        const Fee expected = states.at(first).getFee(account, question.key);
        for (std::size_t second = first + 1; expected && second <= window.last; ++second) {
            expected->stkOptionFeeRate = states.at(second).getFee(account, question.key)->stkOptionFeeRate;
            if (differenceOfAnswers(sharing, expected, actual).empty()) {
                return true;
            }
        }
    }
    return false;
}

std::string Judge::complaintOfList(const Account& account, Window window, bool known,
                                   const std::vector<Fee>& actual) const {
    if (std::find(actual.begin(), actual.end(), nullptr) != actual.end()) {
        return "an empty fee";
    }
    std::string text = "no such list of instruments in any state from " + std::to_string(window.first) + " to " +
                       std::to_string(window.last);
    const auto instruments = instrumentsOf(actual);
    for (std::size_t state = window.first; state <= window.last; ++state) {
        bool expectedKnown = false;
        const auto expected = states.at(state).getFees(account, expectedKnown);
        // Accounts never lose an instrument, so the first state with these instruments leaves most room for the rest.
        if (expectedKnown == known && instrumentsOf(expected) == instruments) {
            return complaintOfListed(account, {state, window.last}, actual);
        }
    }
    return text;
}

/// Each fee must be right in the state of the one before it or in a later one.
std::string Judge::complaintOfListed(const Account& account, Window window, const std::vector<Fee>& actual) const {
    std::size_t state = window.first;
    bool known = false;
    auto expected = states.at(state).getFees(account, known);
    const auto differenceOf = [&](const Fee& fee) {
        std::string text;
        for (const Fee& candidate : expected) {
            if (candidate->instrument == fee->instrument) {
                text = differenceOfAnswers(sharing, candidate, fee);
                if (text.empty()) {
                    break;
                }
            }
        }
        return text;
    };
    for (const Fee& fee : actual) {
        const std::size_t from = state;
        for (std::string text = differenceOf(fee); !text.empty(); text = differenceOf(fee)) {
            if (state == window.last) {
                return "the fee of " + show(fee->instrument) + " is " + inNoStateOf({from, window.last}, text);
            }
            expected = states.at(++state).getFees(account, known);
        }
    }
    return {};
}

}  // namespace histories
