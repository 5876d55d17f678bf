#ifndef FEEDESK_COMPARING_COMPARISON_H
#define FEEDESK_COMPARING_COMPARISON_H

#include <cstddef>
#include <string>
#include <vector>

#include "feedesk/comparing/account_comparison.h"

namespace feedesk {

/// A rate that changes alike for some accounts and instruments, on some days.
struct Change {
    RateDifference difference;          ///< its sources are those of the first account
    std::vector<std::size_t> accounts;  ///< by place in the folder before
    cost::DateRange days;
    std::vector<std::string> sourcesBefore;  ///< "fees/stock.csv:2", each once, in the order of the accounts
    std::vector<std::string> sourcesAfter;
    bool isInPart = false;             ///< not each of the accounts has it for each of the instruments
    std::vector<std::string> parts{};  ///< of the accounts' answers: several where they read the same limits
};

/// What only one of the folders has, or has of another kind.
struct NamesApart {
    std::vector<std::string> accountsBefore;  ///< accounts of the folder before alone
    std::vector<std::string> accountsAfter;   ///< of the folder after alone
    std::vector<std::string> accountsOfAnotherKind;
    std::vector<std::string> instrumentsBefore;  ///< "SH:600519"
    std::vector<std::string> instrumentsAfter;
};

/// Two folders, and what of their answers can be compared. The engine must run while days are compared. One thread.
class Comparison {
public:
    Comparison(ComparedFolder& folderBefore, ComparedFolder& folderAfter);

    [[nodiscard]] const NamesApart& namesApart() const { return apart; }
    [[nodiscard]] const std::vector<InstrumentPlaces>& instruments() const { return commonInstruments; }

    /// What the folders answer differently on these days, of which `from` is set and covered by both: by account,
    /// instruments and day. Days between two change dates of both folders are asked for once.
    std::vector<Change> changesOn(const cost::DateRange& days);

    /// For how many accounts fee centers were asked, each day's counted: the others have the same inputs as one of
    /// them, or the same in both folders.
    [[nodiscard]] std::size_t askedAccounts() const { return asked; }

private:
    struct AccountPair {
        std::size_t before = 0;
        std::size_t after = 0;
    };

    std::vector<Change> changesOn(cost::Date day);
    [[nodiscard]] std::vector<cost::Date> firstDaysOf(const cost::DateRange& days) const;
    AccountSides sidesOf(const AccountPair& pair, cost::Date day) const;

    ComparedFolder& before;
    ComparedFolder& after;
    NamesApart apart;
    std::vector<AccountPair> commonAccounts;
    std::vector<InstrumentPlaces> commonInstruments;
    std::size_t asked = 0;
};

}  // namespace feedesk

#endif  // FEEDESK_COMPARING_COMPARISON_H
