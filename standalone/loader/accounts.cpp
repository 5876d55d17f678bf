#include <fmt/format.h>

#include <boost/make_shared.hpp>
#include <limits>

#include "standalone/families.h"
#include "standalone/loader/table.h"
#include "standalone/loader/tables.h"
#include "standalone/market_files.h"
#include "standalone/text/escape.h"

namespace standalone::loader {
namespace {

using qmservice::CAccountInfo;

const Words& kindWords() {
    static const Words words = [] {
        Words all;
        for (const AccountKindInfo& kind : accountKinds()) {
            all.emplace_back(kind.name, kind.kind);
        }
        return all;
    }();
    return words;
}

std::vector<TableColumn<CAccountInfo>> accountColumns() {
    return {
        {"account", ColumnNeed::kFilled, [](CAccountInfo& info, TableCell& cell) { readName(cell, info.accountId); }},
        {"name", ColumnNeed::kFilled, [](CAccountInfo& info, TableCell& cell) { readText(cell, info.accountName); }},
        {"kind", ColumnNeed::kFilled,
         [](CAccountInfo& info, TableCell& cell) { readWord(cell, kindWords(), info.accountType); }},
        {"platform", ColumnNeed::kOptional,
         [](CAccountInfo& info, TableCell& cell) {
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
        load.errors.add({files::kAccounts, read.position.line, "account"}, ErrorKind::kRepeated, [&] {
            return fmt::format("the account {} is already at {}; remove one of the lines or give it another number",
                               inQuotes(number), load.market.where(first));
        });
        return;
    }
    load.accountNames.push_back(number);
    load.market.accounts.push_back({boost::make_shared<CAccountInfo>(read.line), {}, {}, read.position});
    load.accountLines.emplace_back();
}

}  // namespace

void readAccounts(Load& load) {
    if (!load.hasFile(files::kAccounts)) {
        load.accounts.complete = false;
        return;
    }
    const bool complete = readTable<CAccountInfo>(load, files::kAccounts, accountColumns(),
                                                  [&](const ReadLine<CAccountInfo>& read) { addAccount(load, read); });
    load.accounts.complete = load.accounts.complete && complete;
}

}  // namespace standalone::loader
