#ifndef TESTS_HISTORIES_REACHED_H
#define TESTS_HISTORIES_REACHED_H

#include <cstdint>
#include <map>
#include <string_view>
#include <tuple>

namespace histories {

/// How often histories came to what they are there to come to, by the kind of the account. All texts are literals.
class Reached {
public:
    void count(int kind, std::string_view what, std::string_view which) { ++counts[{kind, what, which}]; }

    [[nodiscard]] std::uint64_t of(int kind, std::string_view what, std::string_view which) const {
        const auto found = counts.find({kind, what, which});
        return found == counts.end() ? 0 : found->second;
    }

    void add(const Reached& other) {
        for (const auto& [place, times] : other.counts) {
            counts[place] += times;
        }
    }

private:
    std::map<std::tuple<int, std::string_view, std::string_view>, std::uint64_t> counts;
};

// What is counted. How a category test of a custom fee's change was answered; which class was handed to initFees or
// updateCustomFee; where a record in an answer of getFee comes from; what getFees answered.
constexpr std::string_view kSystemTest = "system category";
constexpr std::string_view kCustomTest = "custom category";
constexpr std::string_view kGroupTest = "group category";
constexpr std::string_view kYes = "yes";
constexpr std::string_view kNo = "no";
constexpr std::string_view kNoList = "without a list";
constexpr std::string_view kLoaded = "initFees";
constexpr std::string_view kUpdated = "updateCustomFee";
constexpr std::string_view kNoRecord = "no record";
constexpr std::string_view kPooled = "pooled";
constexpr std::string_view kDefault = "default";
constexpr std::string_view kConfigured = "configured";
constexpr std::string_view kOwn = "the answer's own";
constexpr std::string_view kList = "getFees";
constexpr std::string_view kUnknown = "an account without entries";
constexpr std::string_view kEmptyList = "an empty list";
constexpr std::string_view kFilledList = "fees";

}  // namespace histories

#endif  // TESTS_HISTORIES_REACHED_H
