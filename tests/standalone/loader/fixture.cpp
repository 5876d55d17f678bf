#include "fixture.h"

#include <fstream>
#include <random>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace standalone {
namespace {

namespace fs = std::filesystem;

const std::vector<std::pair<std::string, std::string>>& goodFiles() {
    static const std::vector<std::pair<std::string, std::string>> files{
        {"market.toml", R"(format = 1
title = "Test market"

[engine]
threads = 3

[platforms]
simulation = [9001, 9002]

[markets.SH]
title = "Shanghai"
trade_unit = 100

[markets.HK]
title = "Hong Kong"
trade_unit = 1

[markets.SHFE]
title = "Futures"
trade_unit = 1

[markets.CME]
title = "Foreign"
trade_unit = 2
foreign = true

[rates.stock]
rate1 = { column = "commission", title = "Commission", unit = "fraction" }
rate6 = { column = "stamp_duty", title = "Stamp duty", unit = "yuan" }

[rates.option]
fee1 = { column = "handling" }
)"},
        {"instruments/a.csv", R"(market,code,name,lists,product,trade_unit,multiplier,tick
SH,600000,Bank,stock credit,MAIN,,,0.01
SH,600001,Steel,stock,MAIN,200,,
SH,688001,Chip,stock credit,STAR,,,
SH,430001,Small,neeq,,,,
HK,00700,Net,hgt sgt,,500,,
SH,10001,Call,option,510050,1,10000,0.0001
)"},
        {"instruments/b.csv",
         R"(market,code,name,lists,product,multiplier,tick,fee_type,open_fee,close_fee,close_today_fee
SHFE,cu2601,Copper Jan,futures,cu,5,10,per_turnover,0.5,0.25,0
SHFE,cu2602,Copper Feb,futures,cu,5,10,per_lot,3,,
CME,ES,Index,futures_extra,ES,50,0.25,,,,
)"},
        {"accounts.csv", R"(account,name,kind,platform
S1,Stock,stock,9001
C1,Credit,credit,
N1,Board,neeq,
H1,Shanghai connect,hgt,
G1,Shenzhen connect,sgt,
F1,Futures,futures,
F5,Futures five,futures_5,
O1,Option,option,
W1,Swap,income_swap,
P1,Prime,prime_brokerage,
X1,Swap futures,income_swap_futures,-7
)"},
        {"fees/stock.csv", R"(account,market,code,product,commission,rate2,rate3,rate4,rate5,stamp_duty
S1,SH,60*,,0.0001,0.0002,0.0003,0.0004,0.0005,0.0006
S1,SH,600001,MAIN,0.5,,,,,
)"},
        {"fees/credit.csv", "account,market,code,rate1,rate6\nC1,SH,*,0.11,0.66\n"},
        {"fees/neeq.csv", "account,market,code,rate1,rate6\nN1,SH,*,0.12,0.67\n"},
        {"fees/hgt.csv",
         "account,market,code,rate1,rate2,rate3,rate4,rate5,rate6,rate7,rate8,rate9,rate10,rate11,rate12,rate13,"
         "rate14\n"
         "H1,HK,00700,1,2,3,4,5,6,7,8,9,10,11,12,13,14\n"},
        {"fees/sgt.csv", "account,market,code,rate1,rate14\nG1,HK,*,21,34\n"},
        {"fees/commission.csv",
         "account,market,code,open_by_money,open_by_volume,close_by_money,close_by_volume,close_today_by_money,"
         "close_today_by_volume,commission_extra1,commission_extra2\n"
         "F1,SHFE,*,1,2,3,4,5,6,7,8\n"
         "F1,SHFE,cu2602,9,,,,,,,\n"},
        {"fees/margin.csv",
         "account,market,code,hedge_flag,long_by_money,long_by_volume,short_by_money,short_by_volume,margin_mode,"
         "margin_extra1,margin_extra2\n"
         "F1,SHFE,cu2601,3,0.1,0.2,0.3,0.4,5,0.6,0.7\n"
         "F1,SHFE,cu2601,1,0.11,,,,,,\n"
         "F1,SHFE,cu2601,1,0.12,,,,,,\n"
         "F5,CME,*,2,0.13,,,,,,\n"},
        {"configured/stock.csv",
         "market,code,commission,stamp_duty,unit_volume\nSH,600000,0.001,0.002,\nSH,600001,0.003,0.004,50\n"},
        {"configured/hgt.csv", "market,code,rate1,rate14\nHK,00700,0.1,0.14\n"},
        {"configured/sgt.csv", "market,code,rate1,rate14\nHK,00700,0.2,0.24\n"},
        {"categories.csv", R"(category,name,market,code,product
10,Main board,SH,60*,MAIN
10,Main board,SH,688001,
20,Everything,,,
)"},
        {"custom_categories.csv", "category,market,code\n10001,SH,600001\n10001,SH,600000\n10002,HK,00700\n"},
        {"group_categories.csv", "group,category,mode\n70001,10,include\n70001,10002,exclude\n"},
        {"custom/stock.csv", R"(account,update,category,commission,rate2,rate3,rate4,rate5,stamp_duty
S1,2,20,0.1,0.2,0.3,0.4,0.5,0.6
S1,1,10,0.7,,,,,
S1,2,70001,0.8,,,,,
)"},
        {"custom/credit.csv", "account,update,category,rate1,rate6\nC1,1,20,0.21,0.26\n"},
        {"custom/neeq.csv", "account,update,category,rate1,rate6\nN1,1,20,0.31,0.36\n"},
        {"custom/option.csv", "account,update,category,item,handling,fee2,fee3,fee4,fee5\nO1,1,20,0D1,1,2,3,4,5\n"},
        {"custom/hgt.csv", "account,update,category,rate1,rate14\nH1,1,20,0.41,0.54\n"},
        {"custom/sgt.csv", "account,update,category,rate1,rate14\nG1,1,20,0.61,0.74\n"},
        {"custom/commission.csv",
         "account,update,category,open_by_money,open_by_volume,close_by_money,close_by_volume,close_today_by_money,"
         "close_today_by_volume,commission_extra1,commission_extra2\n"
         "F1,4,20,1,2,3,4,5,6,7,8\n"
         "P1,1,10,9,,,,,,,\n"},
        {"custom/margin.csv",
         "account,update,category,hedge_flag,long_by_money,long_by_volume,short_by_money,short_by_volume,margin_mode,"
         "margin_extra1,margin_extra2\n"
         "F1,4,70001,3,0.1,0.2,0.3,0.4,5,0.6,0.7\n"},
        {"README.md", "Anything may be here.\n"},
        {".hidden", "And here.\n"},
        {"fees/notes.md", "And here.\n"},
        {"layouts/broker.toml", "Read with the statements of the broker.\n"}};
    return files;
}

fs::path newFolder() {
    std::random_device random;
    for (int attempt = 0; attempt < 100; ++attempt) {
        const fs::path folder = fs::temp_directory_path() / ("loader_test_" + std::to_string(random()));
        if (fs::create_directory(folder)) {
            return folder;
        }
    }
    throw std::runtime_error("no temporary folder could be made");
}

std::string contents(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        throw std::runtime_error("no file " + file.string());
    }
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

std::string listed(const LoadErrors& result) {
    std::string text;
    for (const LoadError& error : result.errors) {
        text += error.text("") + "\n";
    }
    return text;
}

void expectNothingLoaded(const Market& market) {
    EXPECT_EQ(market.title, "");
    EXPECT_TRUE(market.markets.empty());
    EXPECT_TRUE(market.instruments.empty());
    EXPECT_TRUE(market.accounts.empty());
    EXPECT_TRUE(market.categories.empty());
}

}  // namespace

LoaderTest::LoaderTest() : folder(newFolder()) {
    for (const auto& [name, text] : goodFiles()) {
        write(name, text);
    }
}

LoaderTest::~LoaderTest() {
    std::error_code ignored;
    fs::remove_all(folder, ignored);
}

void LoaderTest::write(const std::string& name, const std::string& text) const {
    fs::create_directories((folder / name).parent_path());
    std::ofstream(folder / name, std::ios::binary) << text;
}

void LoaderTest::append(const std::string& name, const std::string& text) const {
    write(name, contents(folder / name) + text);
}

void LoaderTest::replace(const std::string& name, const std::string& from, const std::string& to) const {
    std::string text = contents(folder / name);
    const std::size_t at = text.find(from);
    if (at == std::string::npos) {
        throw std::runtime_error(name + " does not hold " + from);
    }
    if (text.find(from, at + 1) != std::string::npos) {
        throw std::runtime_error(name + " holds twice " + from);
    }
    write(name, text.replace(at, from.size(), to));
}

void LoaderTest::remove(const std::string& name) const { fs::remove_all(folder / name); }

std::string LoaderTest::path(const std::string& name) const { return (folder / name).string(); }

Market LoaderTest::loadGood() const {
    LoadResult result = load();
    EXPECT_TRUE(result.ok()) << listed(result);
    return std::move(result.market);
}

MarketFolder LoaderTest::loadGoodFolder() const {
    FolderResult result = loadFolder(folder.string());
    EXPECT_TRUE(result.ok()) << listed(result);
    return std::move(result.folder);
}

void LoaderTest::expectError(const std::string& file, std::size_t line, const std::vector<std::string>& words) const {
    const LoadResult result = load();
    EXPECT_FALSE(result.ok());
    ASSERT_EQ(result.errors.size(), 1U) << listed(result);
    const LoadError& error = result.errors.front();
    EXPECT_EQ(error.file, file) << error.text(result.market.folder);
    EXPECT_EQ(error.line, line) << error.text(result.market.folder);
    for (const std::string& word : words) {
        EXPECT_THAT(error.message, ::testing::HasSubstr(word));
    }
    expectNothingLoaded(result.market);
}

void LoaderTest::expectPlaces(const std::vector<std::string>& places) const {
    const LoadResult result = load();
    std::vector<std::string> found;
    for (const LoadError& error : result.errors) {
        found.push_back(error.file + ":" + std::to_string(error.line));
    }
    EXPECT_EQ(found, places) << listed(result);
    expectNothingLoaded(result.market);
}

const Account& accountOf(const Market& market, const std::string& number) {
    for (const Account& account : market.accounts) {
        if (account.record->accountId == number) {
            return account;
        }
    }
    throw std::runtime_error("no account " + number);
}

cost::Date day(const std::string& text) {
    const std::optional<cost::Date> read = cost::Date::parse(text);
    if (!read) {
        throw std::runtime_error("no day " + text);
    }
    return *read;
}

std::vector<std::string> codesOf(const Account& account) {
    std::vector<std::string> codes;
    for (const FeeRecord& fee : account.fees) {
        codes.push_back(fee.record->instrument->market + " " + fee.record->instrument->code);
    }
    return codes;
}

void PrintTo(const LoaderError& error, std::ostream* out) { *out << error.name; }

std::string nameOfError(const ::testing::TestParamInfo<LoaderError>& error) { return error.param.name; }

TEST_P(LoaderErrorTest, IsReported) {
    const auto& [name, edit, place, words] = GetParam();
    switch (edit.how) {
        case Edit::How::kWrite:
            write(edit.file, edit.text);
            break;
        case Edit::How::kAppend:
            append(edit.file, edit.text);
            break;
        case Edit::How::kReplace:
            replace(edit.file, edit.text, edit.with);
            break;
    }
    expectError(place.file.empty() ? edit.file : place.file, place.line, words);
}

}  // namespace standalone
