#include "tests/feedesk/support/sample_folder.h"

#include <unistd.h>

#include <fstream>

#include "tests/feedesk/support/market_toml.h"

namespace feedesk::test {
namespace {

constexpr const char* kPlatforms = "[platforms]\nsimulation = [9001]\n";

constexpr const char* kRates = R"([rates.stock]
rate1 = { column = "commission", title = "Commission", unit = "fraction" }
rate2 = { column = "transfer_fee", title = "Transfer fee", unit = "fraction" }
rate6 = { column = "stamp_duty", title = "Stamp duty", unit = "fraction" }
[rates.hgt]
rate1 = { column = "commission", title = "Commission", unit = "fraction" }
[rates.option]
fee1 = { column = "handling_fee", title = "Handling fee", unit = "yuan" }
)";

constexpr const char* kInstruments =
    R"(market,code,name,lists,product,fee_type,open_fee,close_fee,close_today_fee
SH,600519,贵州茅台,stock,,,,,
SH,600000,浦发银行,stock,,,,,
SH,000001,"上证 ""A"", 指数",stock,,,,,
SZ,000001,平安银行,stock,,,,,
SZ,300750,宁德时代,stock,,,,,
HK,00700,腾讯控股,hgt sgt,,,,,
SHO,10001,50ETF购12月2500,option,,,,,
SHFE,rb2610,螺纹钢2610,futures,rb,per_lot,3,4,5
SHFE,au2612,黄金2612,futures,au,per_turnover,0.5,0.5,0.5
)";

constexpr const char* kAccounts = R"(account,name,kind,platform
S100,股票户,stock,
S200,没有费率的股票户,stock,
F100,期货户,futures,
F200,模拟户,futures,9001
F300,只有自定义保证金,futures,
O100,期权户,option,
O200,默认期权户,option,
H100,沪港通户,hgt,
H200,没有费率的沪港通户,hgt,
P100,主经纪商户,prime_brokerage,
W100,互换户,income_swap,
F400,自定义期货户,futures,
)";

}  // namespace

SampleFolder::SampleFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "feedesk_test_XXXXXX").string();
    directory = mkdtemp(name.data());
    write("market.toml", marketToml(kPlatforms, kRates));
    write("instruments/all.csv", kInstruments);
    write("accounts.csv", kAccounts);
    write("fees/stock.csv",
          "account,market,code,commission,stamp_duty\n"
          "S100,SH,600*,0.00025,0.0005\n"
          "S100,SZ,*,0.0000341,0.0005\n");
    write("fees/hgt.csv", "account,market,code,commission\nH100,HK,*,0.0003\n");
    write("fees/commission.csv",
          "account,market,code,open_by_money,open_by_volume,close_by_volume\n"
          "F100,SHFE,rb*,0.0001,0.01,2.5\n");
    write("fees/margin.csv",
          "account,market,code,hedge_flag,long_by_money,short_by_money\n"
          "F100,SHFE,rb*,1,0.07,0.08\n"
          "F400,SHFE,au*,1,0.17,0.17\n"
          "F400,SHFE,au*,3,0.16,0.16\n");
    write("configured/stock.csv", "market,code,commission\nSZ,000001,0.0002\n");
    write("configured/hgt.csv", "market,code,commission\nHK,00700,0.0004\n");
    write("categories.csv",
          "category,name,market,code\n"
          "1,Pufa,SH,600000\n"
          "2,Futures,SHFE,*\n"
          "3,Options,SHO,*\n"
          "4,Rebar,SHFE,rb2610\n");
    write("custom/stock.csv", "account,update,category,commission\nS100,1,1,0.0001\n");
    write("custom/option.csv",
          "account,update,category,item,handling_fee\n"
          "O100,1,3,000,1.3\n"
          "O100,2,3,0D1,0\n");
    write("custom/margin.csv",
          "account,update,category,hedge_flag,long_by_money,short_by_money\n"
          "F300,1,2,2,0.12,0.13\n"
          "F400,1,4,3,0.14,0.14\n");
    write("custom/commission.csv", "account,update,category,open_by_volume\nF400,1,4,6.5\n");
}

SampleFolder::~SampleFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(directory, ignored);
}

void SampleFolder::clear() const {
    std::filesystem::remove_all(directory);
    std::filesystem::create_directory(directory);
}

void SampleFolder::write(const std::string& file, const std::string& content) const {
    std::filesystem::create_directories((directory / file).parent_path());
    std::ofstream(directory / file, std::ios::binary) << content;
}

}  // namespace feedesk::test
