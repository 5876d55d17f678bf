#include "tests/feedesk/support/check_folder.h"

#include <filesystem>

#include "tests/feedesk/support/market_toml.h"
#include "tests/feedesk/support/program.h"

namespace feedesk::test {
namespace {

constexpr const char* kCheckedDay = "as_of = 2026-09-30\n";

constexpr const char* kCheckedRates = R"([rates.stock]
rate1 = { column = "commission", title = "Commission", unit = "fraction" }
rate6 = { column = "stamp_duty", title = "Stamp duty", unit = "fraction" }
[rates.credit]
rate1 = { column = "commission", title = "Commission", unit = "fraction" }
[rates.neeq]
rate1 = { column = "commission", title = "Commission", unit = "fraction" }
[rates.hgt]
rate1 = { column = "commission", title = "Commission", unit = "fraction" }
rate3 = { column = "stamp_duty_buy", title = "Stamp duty on purchases", unit = "fraction" }
rate4 = { column = "stamp_duty_sell", title = "Stamp duty on sales", unit = "fraction" }
[rates.option]
fee1 = { column = "handling_fee", title = "Handling fee", unit = "yuan" }
)";

/// How often the text was replaced.
int replaceAll(std::string& content, const std::string& from, const std::string& to) {
    int count = 0;
    for (std::size_t at = content.find(from); at != std::string::npos; at = content.find(from, at + to.size())) {
        content.replace(at, from.size(), to);
        ++count;
    }
    return count;
}

}  // namespace

CheckFolder::CheckFolder() {
    write("market.toml", marketToml(kCheckedDay, kCheckedRates));
    write("instruments/all.csv",
          "market,code,name,lists,product\n"
          "SH,600519,贵州茅台,stock,MAIN\n"
          "SH,600000,浦发银行,stock,MAIN\n"
          "SH,510050,50ETF,stock,ETF\n"
          "SZ,000001,平安银行,stock,MAIN\n"
          "SZ,000002,万科A,stock,MAIN\n"
          "SZ,300750,宁德时代,stock,CHINEXT\n"
          "HK,00700,腾讯控股,hgt,\n"
          "SHO,10001,50ETF购12月2500,option,\n"
          "SHFE,rb2610,螺纹钢2610,futures,rb\n"
          "SHFE,rb2701,螺纹钢2701,futures,rb\n"
          "SHFE,rb2705,螺纹钢2705,futures,rb\n"
          "SHFE,au2612,黄金2612,futures,au\n");
    write("accounts.csv",
          "account,name,kind\n"
          "S100,股票户,stock\n"
          "S200,低佣股票户,stock\n"
          "H100,沪港通户,hgt\n"
          "F100,期货户,futures\n"
          "O100,期权户,option\n");
    write("fees/stock.csv",
          "account,market,code,product,commission,stamp_duty,from,until\n"
          "S100,SH,*,MAIN,0.00025,0.0005,,\n"
          "S100,SZ,*,,0.00025,0.0005,,\n"
          "S200,SH,*,,0.0003,0.0005,,\n"
          "S200,SZ,*,,0.0003,0.0005,,\n");
    write("fees/hgt.csv",
          "account,market,code,commission,stamp_duty_buy,stamp_duty_sell\n"
          "H100,HK,*,0.0003,0.001,0.001\n");
    write("fees/commission.csv",
          "account,market,code,open_by_money,close_by_money\n"
          "F100,SHFE,rb*,0.0001,0.0001\n"
          "F100,SHFE,au*,0.00005,0.00005\n");
    write("fees/margin.csv",
          "account,market,code,hedge_flag,long_by_money,short_by_money\n"
          "F100,SHFE,rb2610,1,0.08,0.08\n"
          "F100,SHFE,rb2610,2,0.07,0.07\n"
          "F100,SHFE,rb2610,3,0.07,0.07\n"
          "F100,SHFE,rb27*,1,0.09,0.09\n"
          "F100,SHFE,rb27*,2,0.08,0.08\n"
          "F100,SHFE,rb27*,3,0.08,0.08\n"
          "F100,SHFE,au*,1,0.12,0.12\n"
          "F100,SHFE,au*,2,0.1,0.1\n"
          "F100,SHFE,au*,3,0.1,0.1\n");
    write("configured/stock.csv", "market,code,commission,stamp_duty\nSH,510050,0.0001,\n");
    write("configured/hgt.csv", "market,code,commission\n");
    write("categories.csv",
          "category,name,market,code,product\n"
          "1,白酒,SH,600519,\n"
          "2,创业板,SZ,,CHINEXT\n"
          "3,期权,SHO,,\n"
          "4,远月,SHFE,rb2705,\n");
    write("custom/stock.csv",
          "account,update,category,commission,stamp_duty\n"
          "S100,1,1,0.0002,0.0005\n"
          "S100,1,2,0.0002,0.0005\n");
    write("custom/option.csv",
          "account,update,category,item,handling_fee\n"
          "O100,1,3,000,1.3\n"
          "O100,2,3,011,1.3\n");
    write("custom/commission.csv", "account,update,category,open_by_money,close_by_money\nF100,1,4,0.0002,0.0002\n");
    write("custom/margin.csv",
          "account,update,category,hedge_flag,long_by_money,short_by_money\n"
          "F100,1,4,3,0.15,0.15\n");
    write("charges.csv",
          "family,account,item,charge,side,basis,rate,per,currency,checked,minimum,maximum,rounding,source,from,until\n"
          "stock,,,commission,both,turnover,,order,CNY,2026-09-01,,,,,,\n"
          "stock,,,levy,both,turnover,0.00002,order,CNY,2026-09-01,,,,,,\n"
          "option,,000,handling_fee,open_long,quantity,,order,CNY,2026-09-01,,,,,,\n"
          "stock,,,stamp_duty,sell,turnover,,order,CNY,2026-09-01,,,,,,\n");
}

bool CheckFolder::replace(const std::string& file, const std::string& from, const std::string& to) const {
    std::string content = contentOf(path() + "/" + file);
    const bool once = replaceAll(content, from, to) == 1;
    write(file, content);
    return once;
}

void CheckFolder::replaceEverywhere(const std::string& from, const std::string& to) const {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path())) {
        if (entry.is_regular_file()) {
            std::string content = contentOf(entry.path().string());
            replaceAll(content, from, to);
            write(std::filesystem::relative(entry.path(), path()).string(), content);
        }
    }
}

void CheckFolder::append(const std::string& file, const std::string& lines) const {
    write(file, contentOf(path() + "/" + file) + lines);
}

Outcome CheckFolder::check(const std::string& arguments, const std::string& environment) const {
    return ask(path(), "check " + arguments, environment);
}

}  // namespace feedesk::test
