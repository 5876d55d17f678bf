#include "feedesk/answers/unlisted.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <set>
#include <utility>

#include "feedesk/instruments/instrument_text.h"
#include "feedesk/instruments/traded_instruments.h"
#include "feedesk/text/numbers.h"
#include "standalone/families.h"

namespace feedesk {
namespace {

constexpr std::ptrdiff_t kMostNames = 3;

/// "built-in default and not set": the levels of the answer's rates, each once.
std::string levels(const Answer& answer) {
    std::vector<std::string> names;
    for (const FeeLine& line : answer.lines) {
        const std::string name = levelName(line.origin.level);
        if (std::find(names.begin(), names.end(), name) == names.end()) {
            names.push_back(name);
        }
    }
    return names.empty() ? "no rates" : fmt::format("{}", fmt::join(names, " and "));
}

/// Instruments that are answered with the same levels, in the order of the answers.
using NamesByLevels = std::vector<std::pair<std::string, std::vector<std::string>>>;

std::vector<std::string>& namesWith(NamesByLevels& all, const std::string& levels) {
    const auto found = std::find_if(all.begin(), all.end(), [&](const auto& each) { return each.first == levels; });
    if (found != all.end()) {
        return found->second;
    }
    all.push_back({levels, {}});
    return all.back().second;
}

/// "SH:600519 is"; "SH:600519, SH:600520, SH:600521 and 17 more are".
std::string subject(const std::vector<std::string>& names) {
    if (names.size() == 1) {
        return names.front() + " is";
    }
    if (names.size() <= static_cast<std::size_t>(kMostNames)) {
        const std::vector<std::string> butLast(names.begin(), names.end() - 1);
        return fmt::format("{} and {} are", fmt::join(butLast, ", "), names.back());
    }
    const std::vector<std::string> first(names.begin(), names.begin() + kMostNames);
    return fmt::format("{} and {} more are", fmt::join(first, ", "),
                       grouped(names.size() - static_cast<std::size_t>(kMostNames)));
}

}  // namespace

std::vector<std::string> unlistedNotes(const standalone::Account& account, const std::vector<Answer>& answers,
                                       const standalone::Market& market) {
    const int type = account.record->accountType;
    const standalone::RateFamily* family = standalone::tradedFamily(type);
    if (family == nullptr) {
        return {};
    }
    std::set<std::string> listed;
    for (const Question& question : tradedInstruments(type, market)) {
        listed.insert(instrumentText(question));
    }
    NamesByLevels unlisted;
    for (const Answer& answer : answers) {
        const std::string name = instrumentText(*answer.instrument);
        if (listed.count(name) == 0) {
            namesWith(unlisted, levels(answer)).push_back(name);
        }
    }
    std::vector<std::string> notes;
    for (const auto& [levels, names] : unlisted) {
        notes.push_back(fmt::format("{} in no list of {} instruments; the fee center answers all the same, with {}",
                                    subject(names), family->instruments, levels));
    }
    return notes;
}

}  // namespace feedesk
