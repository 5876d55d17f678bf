#include <boost/make_shared.hpp>
#include <limits>

#include "standalone/loader/account_kinds.h"
#include "standalone/loader/table.h"
#include "standalone/loader/tables.h"
#include "standalone/text/escape.h"

namespace standalone::loader {
namespace {

using namespace qmservice;  // NOLINT(google-build-using-namespace): records, kinds and lists

const std::string kFile = "accounts.csv";

std::vector<Column<CAccountInfo>> accountColumns() {
    return {
        {"account", Need::kFilled, [](CAccountInfo& info, Cell& cell) { readName(cell, info.accountId); }},
        {"name", Need::kFilled, [](CAccountInfo& info, Cell& cell) { readText(cell, info.accountName); }},
        {"kind", Need::kFilled,
         [](CAccountInfo& info, Cell& cell) { readWord(cell, accountKindWords(), info.accountType); }},
        {"platform", Need::kOptional,
         [](CAccountInfo& info, Cell& cell) {
             readInteger(cell, std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), info.platformId);
         }},
    };
}

// An account with a bad cell is known all the same: what refers to it is no error.
void addAccount(Load& load, const ReadLine<CAccountInfo>& read) {
    const std::string& number = read.line.accountId;
    if (number.empty()) {
        load.accounts.complete = false;
        return;
    }
    const auto [entry, isNew] = load.accounts.known.emplace(number, load.market.accounts.size());
    if (!isNew) {
        const Position first = load.market.accounts[entry->second].position;
        load.errors.add({kFile, read.position.line, "account"}, ErrorKind::kRepeated, [&] {
            return "the account " + inQuotes(number) + " stands already at " + load.market.where(first) +
                   "; remove one of the lines or give it another number";
        });
        return;
    }
    load.accountNames.push_back(number);
    load.market.accounts.push_back({boost::make_shared<CAccountInfo>(read.line), {}, {}, read.position});
}

}  // namespace

const Words& accountKindWords() {
    static const Words words{{"futures", kFuturesAccount},
                             {"stock", kStockAccount},
                             {"credit", kCreditAccount},
                             {"futures_5", kFutures5Account},
                             {"option", kOptionAccount},
                             {"hgt", kHgtAccount},
                             {"income_swap", kIncomeSwapAccount},
                             {"neeq", kNeeqAccount},
                             {"sgt", kSgtAccount},
                             {"prime_brokerage", kPrimeBrokerageAccount},
                             {"income_swap_futures", kIncomeSwapFuturesAccount}};
    return words;
}

std::vector<std::string> kindNames(const std::vector<int>& kinds) {
    std::vector<std::string> names;
    for (const int kind : kinds) {
        for (const auto& [name, value] : accountKindWords()) {
            if (value == kind) names.push_back(name);
        }
    }
    return names;
}

void readAccounts(Load& load) {
    if (!load.hasFile(kFile)) {
        load.accounts.complete = false;
        return;
    }
    const bool complete = readTable<CAccountInfo>(load, kFile, accountColumns(),
                                                  [&](const ReadLine<CAccountInfo>& read) { addAccount(load, read); });
    load.accounts.complete = load.accounts.complete && complete;
}

}  // namespace standalone::loader
