#ifndef STANDALONE_LOADER_ACCOUNT_KINDS_H
#define STANDALONE_LOADER_ACCOUNT_KINDS_H

#include <string>
#include <vector>

#include "standalone/loader/cell.h"

namespace standalone::loader {

enum AccountKind : int {
    kFuturesAccount = 1,
    kStockAccount = 2,
    kCreditAccount = 3,
    kFutures5Account = 5,
    kOptionAccount = 6,
    kHgtAccount = 7,
    kIncomeSwapAccount = 8,
    kNeeqAccount = 10,
    kSgtAccount = 11,
    kPrimeBrokerageAccount = 12,
    kIncomeSwapFuturesAccount = 16
};

/// The words of accounts.csv for the kinds.
const Words& accountKindWords();

/// The words of some kinds, in their order.
std::vector<std::string> kindNames(const std::vector<int>& kinds);

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_ACCOUNT_KINDS_H
