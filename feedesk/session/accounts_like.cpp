#include "feedesk/session/accounts_like.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <set>

#include "feedesk/failure.h"
#include "feedesk/session/session.h"
#include "feedesk/text/patterns.h"
#include "feedesk/text/text.h"
#include "standalone/text/nearness.h"

namespace feedesk {
namespace {

Accounts allOf(const standalone::Market& market) {
    Accounts all;
    for (const standalone::Account& account : market.accounts) {
        all.push_back(&account);
    }
    return all;
}

Accounts like(const std::string& pattern, const Accounts& all) {
    return itemsLike(all, pattern, [](const standalone::Account* account) {
        return std::array<std::string_view, 2>{account->record->accountId, account->record->accountName};
    });
}

std::string whyNone(const std::string& pattern, const standalone::Market& market) {
    const std::string problem = "the market folder has no account like " + echoed(pattern);
    const std::string wide = widened(pattern);
    if (!like(wide, allOf(market)).empty()) {
        return problem + insideAdvice("'" + wide + "'", "numbers and names");
    }
    const std::vector<std::string> near = standalone::nearNames(pattern, accountIds(market));
    return near.empty() ? problem : fmt::format("{}; did you mean {}?", problem, fmt::join(near, " or "));
}

}  // namespace

Accounts accountsLike(const std::vector<std::string>& patterns, const standalone::Market& market) {
    Accounts accounts = allOf(market);
    std::set<const standalone::Account*> found;
    for (const std::string& pattern : patterns) {
        const Accounts some = like(pattern, accounts);
        if (some.empty() && !accounts.empty()) {
            throw Failure(kNoAnswer, whyNone(pattern, market));
        }
        found.insert(some.begin(), some.end());
    }
    accounts.erase(std::remove_if(accounts.begin(), accounts.end(),
                                  [&found](const auto* account) { return found.count(account) == 0; }),
                   accounts.end());
    return accounts;
}

}  // namespace feedesk
