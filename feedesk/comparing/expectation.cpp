#include "feedesk/comparing/expectation.h"

#include <fmt/format.h>

#include <algorithm>

#include "cost/pattern.h"
#include "feedesk/comparing/instrument_groups.h"
#include "feedesk/text/numbers.h"

namespace feedesk {

bool Expectation::expects(const std::string& account) {
    bool found = false;
    for (std::size_t i = 0; i < patterns.size(); ++i) {
        if (cost::matchesPattern(account, patterns[i])) {
            isMet[i] = true;
            found = true;
        }
    }
    return found;
}

Judgement Expectation::judge(const std::vector<std::string>& accounts) {
    if (!isStated) {
        return Judgement::kNone;
    }
    Judgement judgement = Judgement::kExpected;
    for (const std::string& account : accounts) {
        if (expects(account)) {
            continue;
        }
        judgement = Judgement::kUnexpected;
        if (std::find(unexpected.begin(), unexpected.end(), account) == unexpected.end()) {
            unexpected.push_back(account);
        }
    }
    return judgement;
}

Judgement Expectation::judgeOther(const std::string& what) {
    others.push_back(what);
    return isStated ? Judgement::kUnexpected : Judgement::kNone;
}

std::vector<std::string> Expectation::unknown(const std::vector<std::string>& accounts) const {
    std::vector<std::string> found;
    std::copy_if(patterns.begin(), patterns.end(), std::back_inserter(found), [&](const std::string& pattern) {
        return std::none_of(accounts.begin(), accounts.end(),
                            [&](const std::string& account) { return cost::matchesPattern(account, pattern); });
    });
    return found;
}

std::vector<std::string> Expectation::unmet() const {
    std::vector<std::string> found;
    for (std::size_t i = 0; i < patterns.size(); ++i) {
        if (!isMet[i]) {
            found.push_back(patterns[i]);
        }
    }
    return found;
}

std::string Expectation::problem() const {
    if (!isStated || (unexpected.empty() && others.empty())) {
        return "";
    }
    std::vector<std::string> parts;
    if (!unexpected.empty()) {
        parts.push_back(fmt::format("{} changed: {}", counted(unexpected.size(), "account"), firstFew(unexpected)));
    }
    parts.insert(parts.end(), others.begin(), others.end());
    return fmt::format("not expected: {}", fmt::join(parts, "; "));
}

}  // namespace feedesk
