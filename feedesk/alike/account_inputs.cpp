#include "feedesk/alike/account_inputs.h"

#include <algorithm>
#include <iterator>

namespace feedesk {

void addInputs(const qmservice::CAccountInfo& account, const AccountDayLines& lines, AccountInputs& inputs) {
    inputs.push_back(account.accountType);
    inputs.push_back(account.platformId);
    inputs.push_back(static_cast<int>(lines.size()));
    std::transform(lines.begin(), lines.end(), std::back_inserter(inputs),
                   [](const auto& line) { return line.content; });
}

}  // namespace feedesk
