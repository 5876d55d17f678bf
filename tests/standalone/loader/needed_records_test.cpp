// Which fee records of a folder are made, and that a fee center answers from them as from all that its lines mean.

#include <boost/make_shared.hpp>
#include <random>

#include "CFeeCenter.h"
#include "fixture.h"
#include "standalone/host.h"

namespace standalone {
namespace {

using ::testing::ElementsAre;

using NeededRecords = LoaderTest;

constexpr const char* kHeader = "account,market,code,commission\n";

std::string times(int count, const std::string& line) {
    std::string lines;
    for (int i = 0; i < count; ++i) {
        lines += line;
    }
    return lines;
}

// 600000 and 688001 have the trade unit 100, 600001 has 200.
TEST_F(NeededRecords, OverriddenLineGivesOneRecordForEachTradeUnit) {
    remove("configured/stock.csv");
    write("fees/stock.csv", kHeader + times(1000, "S1,SH,*,0.1\n"));
    EXPECT_EQ(accountOf(loadGood(), "S1").fees.size(), 999 * 2 + 3U);
}

TEST_F(NeededRecords, LastLineOfAnInstrumentGivesItsRecord) {
    remove("configured/stock.csv");
    write("fees/stock.csv", std::string(kHeader) + "S1,SH,*,0.1\nS1,SH,688001,0.2\nS1,SH,600*,0.3\n");
    const Market market = loadGood();
    std::vector<std::string> found;
    for (const FeeRecord& fee : accountOf(market, "S1").fees) {
        found.push_back(fee.record->instrument->code + "@" + market.where(fee.position));
    }
    EXPECT_THAT(found, ElementsAre("600000@fees/stock.csv:2", "600001@fees/stock.csv:2", "688001@fees/stock.csv:3",
                                   "600000@fees/stock.csv:4", "600001@fees/stock.csv:4"));
}

// For a configured limit decides what its records bring in.
TEST_F(NeededRecords, InstrumentWithAConfiguredLimitKeepsAllRecords) {
    write("fees/stock.csv", kHeader + times(5, "S1,SH,*,0.1\n"));
    write("configured/stock.csv", "market,code,commission\nSH,688001,0.3\n");
    const Market market = loadGood();
    std::size_t ofConfigured = 0;
    for (const FeeRecord& fee : accountOf(market, "S1").fees) {
        ofConfigured += fee.record->instrument->code == "688001" ? 1 : 0;
    }
    EXPECT_EQ(ofConfigured, 5U);
}

TEST_F(NeededRecords, SharedMarketHasNoFeesAndTheAccountsHaveTheirsAlone) {
    const MarketFolder days = loadGoodFolder();
    const cost::Date day = days.defaultDay();
    const Market shared = days.sharedMarketOn(day);
    const Market whole = days.marketOn(day);
    ASSERT_EQ(shared.accounts.size(), whole.accounts.size());
    EXPECT_EQ(shared.stockLimits.size(), whole.stockLimits.size());
    for (std::size_t place = 0; place < whole.accounts.size(); ++place) {
        const Account& expected = whole.accounts[place];
        EXPECT_TRUE(shared.accounts[place].fees.empty() && shared.accounts[place].customFees.empty());
        EXPECT_EQ(shared.accounts[place].record, expected.record);
        const Account account = days.accountOn(day, place);
        EXPECT_EQ(codesOf(account), codesOf(expected)) << expected.record->accountId;
        EXPECT_EQ(account.customFees.size(), expected.customFees.size()) << expected.record->accountId;
        EXPECT_EQ(days.customFeesOn(day, place).size(), expected.customFees.size());
        EXPECT_EQ(days.feeCountsOn(day, place).records, expected.fees.size()) << expected.record->accountId;
        EXPECT_EQ(days.feeCountsOn(day, place).customFees, expected.customFees.size());
    }
}

// Rates of which some differ below the eighth decimal place, where two contents share a key and the first one stays.
const std::vector<std::string> kRates{"0.00025", "0.000250000000001", "0.000250000000002", "0.0003", "0.000300000001"};

struct Line {
    std::string account;
    std::string code;
    std::string rate;
};

/// Lines of two accounts for some instruments of SH, and some configured limits.
struct RandomFees {
    explicit RandomFees(unsigned seed) : random(seed) {
        for (int count = 2 + pick(6); count > 0; --count) {
            const std::string account = any({"S1", "S2"});
            const std::string code = any({"*", "600*", "6*1", "600000", "600001", "688001"});
            lines.push_back({account, code, any(kRates)});
        }
        for (const std::string code : {"600000", "600001", "688001"}) {
            if (pick(3) == 0) {
                limits.push_back({"", code, any(kRates)});
            }
        }
    }

    int pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random); }
    std::string any(const std::vector<std::string>& words) {
        return words[static_cast<std::size_t>(pick(static_cast<int>(words.size())))];
    }

    std::mt19937 random;
    std::vector<Line> lines;
    std::vector<Line> limits;
};

bool matches(const std::string& code, const std::string& pattern) {
    if (pattern == "*" || pattern == code) {
        return true;
    }
    return pattern == "600*" ? code.substr(0, 3) == "600" : pattern == "6*1" && code.back() == '1';
}

/// The records that an account's lines mean: of every line one for every instrument.
std::vector<FeeRecord> everyRecord(const Market& market, const Account& account, const std::vector<Line>& lines) {
    std::vector<FeeRecord> records;
    for (const Line& line : lines) {
        for (const ListedInstrument& listed : market.instruments) {
            const bool isStock = (listed.listMask & qmservice::kStockList) != 0;
            if (line.account != account.record->accountId || !isStock || !matches(listed.record->code, line.code)) {
                continue;
            }
            const auto fee = boost::make_shared<qmservice::CInstrumentFee>();
            fee->instrument = listed.record;
            fee->stkRateLimit = boost::make_shared<qmservice::CStkExchangeRateLimit>();
            fee->stkRateLimit->rate1 = std::stod(line.rate);
            records.push_back({fee, {}, {}});
        }
    }
    return records;
}

/// What a fee center that is fed the market's accounts answers: by account, the commission of each stock.
std::vector<double> commissions(const Market& market) {
    qmservice::CFeeCenter center("needed");
    std::vector<double> found;
    for (const char* number : {"S1", "S2"}) {
        feed(center, accountOf(market, number));
    }
    waitForStrand("needed");
    for (const char* number : {"S1", "S2"}) {
        for (const char* code : {"600000", "600001", "688001"}) {
            qmservice::IFeeCenter& asked = center;
            found.push_back(asked.getFee(accountOf(market, number).record, "SH", code)->stkRateLimit->rate1);
        }
    }
    return found;
}

TEST_F(NeededRecords, FeeCenterAnswersAsFromAllRecords) {
    append("accounts.csv", "S2,Stock two,stock,\n");
    startEngine(1);
    for (unsigned seed = 0; seed < 400; ++seed) {
        const RandomFees fees(seed);
        std::string stock = kHeader;
        for (const Line& line : fees.lines) {
            stock += line.account + ",SH," + line.code + "," + line.rate + "\n";
        }
        std::string configured = "market,code,commission\n";
        for (const Line& limit : fees.limits) {
            configured += "SH," + limit.code + "," + limit.rate + "\n";
        }
        write("fees/stock.csv", stock);
        write("configured/stock.csv", configured);
        const Market market = loadGood();
        Market every = market;
        for (Account& account : every.accounts) {
            account.fees = everyRecord(market, account, fees.lines);
        }
        install(market);
        EXPECT_EQ(commissions(market), commissions(every)) << "seed " << seed << "\n" << stock << configured;
    }
    uninstall();
    stopEngine();
}

}  // namespace
}  // namespace standalone
