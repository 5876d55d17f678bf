#include "tests/feedesk/support/cost_folder.h"
#include "tests/feedesk/support/program.h"

#include <fstream>

namespace feedesk::test {
namespace {

constexpr const char* kDays = R"(as_of = 2024-01-02
[coverage]
from = 2021-01-01
until = 2026-12-31
hgt = { from = 2023-01-01 }
[platforms])";

constexpr const char* kTradedInstruments = R"(market,code,name,lists,product,multiplier,tick
SH,600519,贵州茅台,stock,,,
SH,600000,浦发银行,stock,,,
SZ,000001,平安银行,stock,,,
HK,00700,腾讯控股,hgt,,,
SHO,10001,50ETF购12月2500,option,,10000,0.0001
SHFE,rb2610,螺纹钢2610,futures,rb,10,1
SHFE,au2612,黄金2612,futures,au,1000,0.02
)";

constexpr const char* kCharges =
    R"(family,account,market,item,charge,side,basis,rate,minimum,per,rounding,inside,currency,source,checked
stock,,,,commission,both,turnover,,5,order,0.01 half_up,,CNY,test,2024-01-02
stock,,,,transfer_fee,both,turnover,,,fill,0.01 half_up,commission,CNY,test,2024-01-02
stock,,,,stamp_duty,sell,turnover,,,fill,0.01 half_up,,CNY,test,2024-01-02
hgt,,,,commission,both,turnover,,,order,0.01 half_up,,HKD,test,2024-01-02
hgt,,,,system_fee,both,order,0.5,,order,,,HKD,test,2024-01-02
option,,,000,handling_fee,open_long,quantity,,,order,0.01 half_up,,CNY,test,2024-01-02
option,,,0D,handling_fee,exercise,quantity,,,order,0.01 half_up,,CNY,test,2024-01-02
futures,,,,open_by_money,open,turnover,,,order,0.01 half_up,,CNY,test,2024-01-02
futures,,,,open_by_volume,open,quantity,,,order,0.01 half_up,,CNY,test,2024-01-02
futures,,,,close_by_volume,close,quantity,,,order,0.01 half_up,,CNY,test,2024-01-02
)";

}  // namespace

CostFolder::CostFolder() {
    std::string toml = contentOf(path() + "/market.toml");
    const std::string platforms = "[platforms]";
    toml.replace(toml.find(platforms), platforms.size(), kDays);
    write("market.toml", toml);
    write("instruments/all.csv", kTradedInstruments);
    write("charges.csv", kCharges);
    write("fees/stock.csv",
          "account,market,code,commission,transfer_fee,stamp_duty,from,until\n"
          "S100,SH,600*,0.00025,0.00001,0.0005,2023-08-28,\n"
          "S100,SH,600*,0.00025,0.00001,0.001,,2023-08-27\n"
          "S100,SZ,*,0,0,0,,\n");
}

CostFolder::~CostFolder() {
    std::error_code ignored;
    std::filesystem::remove(tradesFile(), ignored);
}

void CostFolder::writeTrades(const std::string& trades) const {
    std::ofstream(tradesFile(), std::ios::binary) << trades;
}

Outcome CostFolder::cost(const std::string& arguments, const std::string& environment) const {
    return ask(path(), "cost " + arguments, environment);
}

Outcome CostFolder::costOf(const std::string& trades, const std::string& arguments) const {
    writeTrades(trades);
    return cost("--trades " + tradesFile() + " " + arguments);
}

}  // namespace feedesk::test
