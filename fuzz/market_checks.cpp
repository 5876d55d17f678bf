#include "fuzz/market_checks.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>

#include "fuzz/fail.h"

namespace fuzz {
namespace {

using namespace standalone;

const std::set<int> kAccountKinds{1, 2, 3, 5, 6, 7, 8, 10, 11, 12, 16};
const std::set<std::string> kRateFamilies{"stock", "credit", "neeq", "hgt", "sgt", "option"};

void require(bool holds, const char* what, const std::string& of) {
    if (!holds) {
        fail(std::string(what) + ": " + of);
    }
}

/// The checks of one market. What is found on the way, such as the instruments, later checks refer to.
class WholeCheck {
public:
    WholeCheck(const Files& marketFiles, const Market& wholeMarket) : files(marketFiles), market(wholeMarket) {}

    void run() {
        checkSettings();
        for (const ListedInstrument& listed : market.instruments) {
            check(listed);
        }
        for (const Account& account : market.accounts) {
            check(account);
        }
        checkLimits(market.stockLimits);
        checkLimits(market.hgtLimits);
        checkLimits(market.sgtLimits);
        for (const CategoryRule& rule : market.categories) {
            check(rule);
        }
    }

private:
    void checkPosition(Position position) const {
        require(position.file < market.files.size(), "a position names a file", market.folder);
        const auto file = files.find(market.files[position.file]);
        require(file != files.end(), "a file of the market is in the folder", market.files[position.file]);
        const auto lines = std::count(file->second.begin(), file->second.end(), '\n') + 1;
        require(position.line >= 2 && position.line <= lines, "a line is below the header", file->first);
    }

    void checkSettings() {
        require(!market.title.empty(), "a market has a title", market.folder);
        require(market.engineThreads >= 1 && market.engineThreads <= 64, "threads are 1 to 64",
                std::to_string(market.engineThreads));
        require(!market.markets.empty(), "there is a market place", market.folder);
        for (const MarketPlace& place : market.markets) {
            require(!place.market.empty() && !place.title.empty(), "a market place has a name and a title",
                    place.market);
            require(place.market.find_first_of(" :*") == std::string::npos, "a market place is one word", place.market);
            require(place.tradeUnit >= 1, "a trade unit is positive", place.market);
            require(marketNames.insert(place.market).second, "market places differ", place.market);
        }
        std::set<std::string> families;
        for (const auto& [family, rates] : market.rateNames) {
            families.insert(family);
        }
        require(families == kRateFamilies, "each family has its rate names", market.folder);
    }

    void check(const ListedInstrument& listed) {
        require(listed.record != nullptr, "an instrument has a record", market.folder);
        const qmservice::CInstrument& record = *listed.record;
        require(marketNames.count(record.market) != 0, "an instrument's market is known", record.market);
        require(!record.code.empty() && !record.name.empty(), "an instrument has code and name", record.code);
        require(instruments.insert({record.market, record.code}).second, "instruments differ", record.code);
        require(listed.tradeUnit >= 1, "a trade unit is positive", record.code);
        require(record.volumeMultiple >= 0 && record.priceTick >= 0, "sizes are not negative", record.code);
        require(record.feeType >= 0 && record.feeType <= qmservice::kPerTurnoverFee, "a fee type is known",
                record.code);
        records.insert(listed.record.get());
        checkPosition(listed.position);
    }

    void check(const Account& account) {
        require(account.record != nullptr, "an account has a record", market.folder);
        const std::string& number = account.record->accountId;
        require(!number.empty() && !account.record->accountName.empty(), "an account has number and name", number);
        require(accounts.insert(number).second, "accounts differ", number);
        require(kAccountKinds.count(account.record->accountType) != 0, "an account's kind is known", number);
        checkPosition(account.position);
        for (const FeeRecord& fee : account.fees) {
            check(account, fee);
        }
        for (const CustomFee& fee : account.customFees) {
            require(fee.record != nullptr && !fee.entries.empty(), "a custom fee has a record and lines", number);
            for (const Position position : fee.entries) {
                checkPosition(position);
            }
        }
    }

    void check(const Account& account, const FeeRecord& fee) {
        const std::string& number = account.record->accountId;
        require(fee.record != nullptr, "a fee has a record", number);
        require(fee.record->account == account.record, "a fee is the account's", number);
        require(records.count(fee.record->instrument.get()) != 0, "a fee's instrument is of the market", number);
        require(fee.record->marginDetails.size() == fee.margins.size(), "each margin has its line", number);
        checkPosition(fee.position);
        for (const Position position : fee.margins) {
            checkPosition(position);
        }
    }

    template <class Limit>
    void checkLimits(const std::vector<ConfiguredLimit<Limit>>& limits) {
        std::set<std::pair<std::string, std::string>> limited;
        for (const ConfiguredLimit<Limit>& limit : limits) {
            require(limit.limit != nullptr, "a configured limit has a record", limit.code);
            require(instruments.count({limit.market, limit.code}) != 0, "a limited instrument is known", limit.code);
            require(limited.insert({limit.market, limit.code}).second, "an instrument has one limit", limit.code);
            checkPosition(limit.position);
        }
    }

    void check(const CategoryRule& rule) {
        require(rule.category >= 1 && !rule.name.empty(), "a category has number and name", rule.name);
        require(rule.market.empty() || marketNames.count(rule.market) != 0, "a rule's market is known", rule.market);
        checkPosition(rule.position);
    }

    const Files& files;
    const Market& market;
    std::set<std::string> marketNames;
    std::set<std::pair<std::string, std::string>> instruments;
    std::set<std::string> accounts;
    std::set<const qmservice::CInstrument*> records;
};

}  // namespace

void checkWhole(const Files& files, const standalone::Market& market) { WholeCheck(files, market).run(); }

}  // namespace fuzz
