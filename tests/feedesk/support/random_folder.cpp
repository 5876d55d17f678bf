#include "tests/feedesk/support/random_folder.h"

#include <algorithm>

#include "tests/feedesk/support/market_toml.h"

namespace feedesk::test {
namespace {

constexpr const char* kSettings = "as_of = 2024-01-02\n[platforms]\nsimulation = [9001]\n";

constexpr const char* kNeeqToml = "[markets.NEEQ]\ntitle = \"NEEQ\"\ntrade_unit = 100\n";

constexpr const char* kCommissionRates = "open_by_money,close_by_volume";

bool isRateTable(const std::string& file) {
    return file.rfind("fees/", 0) == 0 || file.rfind("custom/", 0) == 0 || file.rfind("configured/", 0) == 0;
}

bool isExchangeFee(const std::string& file, const std::string& line) {
    return file.rfind("instruments/", 0) == 0 && line.find("per_lot") != std::string::npos;
}

}  // namespace

const std::vector<std::string>& RandomFolder::accounts() {
    static const std::vector<std::string> all = {"S1", "S2", "C1", "N1", "H1", "G1", "O1",
                                                 "F1", "F2", "F3", "W1", "X1", "P1"};
    return all;
}

const std::vector<std::string>& RandomFolder::instruments() {
    static const std::vector<std::string> all = {"SH:600001", "SH:600002", "SH:600003", "SH:600004",   "SH:600011",
                                                 "SZ:000001", "SZ:000002", "SZ:000003", "NEEQ:430001", "NEEQ:430002",
                                                 "HK:00001",  "HK:00002",  "HK:00003",  "SHO:10001",   "SHO:10002",
                                                 "SHFE:rb01", "SHFE:rb02", "SHFE:rb03", "SHFE:au01"};
    return all;
}

int RandomFolder::number(int least, int most) { return std::uniform_int_distribution<int>(least, most)(random); }

template <class Item>
const Item& RandomFolder::oneOf(const std::vector<Item>& items) {
    return items[static_cast<std::size_t>(number(0, static_cast<int>(items.size()) - 1))];
}

RandomFolder::RandomFolder(unsigned seed) : random(seed) {
    files["market.toml"] = {marketToml(kSettings, kNeeqToml)};
    files["accounts.csv"] = {"account,name,kind,platform",
                             "S1,a,stock,",
                             "S2,b,stock,",
                             "C1,c,credit,",
                             "N1,d,neeq,",
                             "H1,e,hgt,",
                             "G1,f,sgt,",
                             "O1,g,option,",
                             "F1,h,futures,",
                             "F2,i,futures,9001",
                             "F3,j,futures_5,",
                             "W1,k,income_swap,",
                             "X1,l,income_swap_futures,9001",
                             "P1,m,prime_brokerage,9001"};
    files["instruments/all.csv"] = {"market,code,name,lists,product,fee_type,open_fee,close_fee,close_today_fee",
                                    "SH,600001,A,stock credit,,,,,",
                                    "SH,600002,B,stock credit,main,,,,",
                                    "SH,600003,C,stock credit,main,,,,",
                                    "SH,600004,D,stock credit,,,,,",
                                    "SH,600011,E,stock credit,main,,,,",
                                    "SZ,000001,F,stock credit,main,,,,",
                                    "SZ,000002,G,stock credit,main,,,,",
                                    "SZ,000003,H,stock credit,,,,,",
                                    "NEEQ,430001,I,neeq,,,,,",
                                    "NEEQ,430002,J,neeq,,,,,",
                                    "HK,00001,K,hgt sgt,,,,,",
                                    "HK,00002,L,hgt sgt,,,,,",
                                    "HK,00003,M,hgt sgt,,,,,",
                                    "SHO,10001,N,option,,,,,",
                                    "SHO,10002,O,option,,,,,",
                                    "SHFE,rb01,P,futures,rb,per_lot,3,4,5",
                                    "SHFE,rb02,Q,futures_extra,rb,,,,",
                                    "SHFE,rb03,R,futures_extra,rb,,,,",
                                    "SHFE,au01,S,futures,au,per_lot,6,7,8"};
    files["categories.csv"] = {"category,name,market,code,product",
                               "1,one," + oneOf<std::string>({"SH", "SZ"}) + ",,",
                               "2,two,,*" + std::to_string(number(1, 2)) + ",",
                               "3,three,,," + oneOf<std::string>({"rb", "au"}),
                               "4,four,HK,00001,",
                               "5,five,,,",
                               "6,six,NEEQ,,"};
    files["custom_categories.csv"] = {"category,market,code", "10001,SH,60000" + std::to_string(number(1, 2)),
                                      "10001,SHFE,au01"};
    files["group_categories.csv"] = {"group,category,mode", "70001,5,include",
                                     "70001," + std::to_string(number(2, 3)) + ",exclude", "70002,10001,include"};
    addFees("stock", {"S1", "S2"}, {"SH,600001,", "SH,*,", "SZ,0*,", "SH,6*,main"});
    addFees("credit", {"C1"}, {"SH,600001,", "SH,*,", "SZ,*,main"});
    addFees("neeq", {"N1"}, {"NEEQ,*,", "NEEQ,430001,"});
    addFees("hgt", {"H1"}, {"HK,*,", "HK,00001,"});
    addFees("sgt", {"G1"}, {"HK,*,", "HK,00002,"});
    addConfigured("stock", {"SH,600001", "SZ,000001", "NEEQ,430001"});
    addConfigured("hgt", {"HK,00001", "HK,00002"});
    addConfigured("sgt", {"HK,00001", "HK,00002"});
    addCustomFees("stock", {"S1", "S2"});
    addCustomFees("credit", {"C1"});
    addCustomFees("neeq", {"N1"});
    addCustomFees("hgt", {"H1"});
    addCustomFees("sgt", {"G1"});
    addFutures();
    addOptions();
}

// Of four significant digits, so that no two are pooled as one.
std::string RandomFolder::rate() { return "0.00" + std::to_string(1000 + ++rates); }

std::string RandomFolder::days() {
    static const std::vector<std::string> all = {",", ",", ",", "2024-02-01,", ",2024-01-31", "2024-02-01,2024-06-30"};
    return "," + oneOf(all);
}

// Shenzhen connect takes the first six, the system categories.
std::string RandomFolder::category(const std::string& family) {
    static const std::vector<std::string> all = {"1", "2", "3", "4", "5", "6", "70001", "70002"};
    return all[static_cast<std::size_t>(number(0, family == "sgt" ? 5 : 7))];
}

void RandomFolder::add(const std::string& file, const std::string& header, const std::string& line) {
    std::vector<std::string>& lines = files[file];
    if (lines.empty()) {
        lines.push_back(header + ",from,until");
    }
    lines.push_back(line + days());
}

void RandomFolder::addFees(const std::string& family, const std::vector<std::string>& owners,
                           const std::vector<std::string>& places) {
    for (int count = number(1, 5); count > 0; --count) {
        add("fees/" + family + ".csv", "account,market,code,product,rate1,rate2",
            oneOf(owners) + "," + oneOf(places) + "," + rate() + "," + rate());
    }
}

void RandomFolder::addConfigured(const std::string& family, const std::vector<std::string>& places) {
    for (const std::string& place : places) {
        if (number(0, 1) == 1) {
            add("configured/" + family + ".csv", "market,code,rate1,rate2", place + "," + rate() + "," + rate());
        }
    }
}

void RandomFolder::addCustomFees(const std::string& family, const std::vector<std::string>& owners) {
    for (int count = number(1, 6); count > 0; --count) {
        add("custom/" + family + ".csv", "account,update,category,rate1,rate2",
            oneOf(owners) + "," + std::to_string(number(1, 3)) + "," + category(family) + "," + rate() + "," + rate());
    }
}

// F1 and F2 have margins of their own, F3 and P1 custom ones: where both meet, the places of margins shift and one that
// is not answered matters too (rule "Loaded margins have no slots").
void RandomFolder::addFutures() {
    static const std::vector<std::string> places = {"SHFE,*,", "SHFE,rb*,", "SHFE,au01,", "SHFE,*,rb"};
    static const std::vector<std::string> owners = {"F1", "F2", "F3"};
    for (int count = number(1, 5); count > 0; --count) {
        add("fees/commission.csv", std::string("account,market,code,product,") + kCommissionRates,
            oneOf(owners) + "," + oneOf(places) + "," + rate() + "," + rate());
        const std::string margins = std::string(number(0, 1) == 1 ? "F1" : "F2") + "," + oneOf(places);
        for (const std::string flag : {"1", "2", "3"}) {
            files["fees/margin.csv"].resize(std::max<std::size_t>(files["fees/margin.csv"].size(), 1),
                                            "account,market,code,product,hedge_flag,long_by_money,short_by_money");
            files["fees/margin.csv"].push_back(margins + "," + flag + "," + rate() + "," + rate());
        }
    }
    for (int count = number(0, 5); count > 0; --count) {
        const std::string update = std::to_string(number(1, 3));
        add("custom/commission.csv", std::string("account,update,category,") + kCommissionRates,
            oneOf<std::string>({"F1", "F2", "F3", "P1"}) + "," + update + "," + category("futures") + "," + rate() +
                "," + rate());
        add("custom/margin.csv", "account,update,category,hedge_flag,long_by_money,short_by_money",
            oneOf<std::string>({"F3", "P1"}) + "," + update + "," + category("futures") + "," +
                std::to_string(number(1, 3)) + "," + rate() + "," + rate());
    }
}

void RandomFolder::addOptions() {
    for (int count = number(1, 6); count > 0; --count) {
        add("custom/option.csv", "account,update,category,item,fee1,fee2",
            "O1," + std::to_string(number(1, 3)) + "," + category("futures") + "," +
                oneOf<std::string>({"000", "001", "0D1"}) + "," + rate() + "," + rate());
    }
}

std::vector<RandomFolder::RateLine> RandomFolder::rateLines() const {
    std::vector<RateLine> found;
    for (const auto& [file, lines] : files) {
        for (std::size_t i = 1; i < lines.size(); ++i) {
            if (isRateTable(file) || isExchangeFee(file, lines[i])) {
                found.push_back({file, i + 1});
            }
        }
    }
    return found;
}

void RandomFolder::takeAway(const RateLine& line) {
    std::string& text = files.at(line.file)[line.line - 1];
    if (isExchangeFee(line.file, text)) {
        text = text.substr(0, text.find("per_lot")) + ",,,";
    } else {
        text.clear();
    }
}

void RandomFolder::changeRate(const RateLine& line) {
    std::string& text = files.at(line.file)[line.line - 1];
    if (isExchangeFee(line.file, text)) {
        text = text.substr(0, text.rfind(',') + 1) + rate();
        return;
    }
    const std::size_t last = text.rfind("0.00");
    text.replace(last, std::string("0.001001").size(), rate());
}

void RandomFolder::writeTo(const SampleFolder& folder) const {
    folder.clear();
    for (const auto& [file, lines] : files) {
        std::string text;
        for (const std::string& line : lines) {
            text += line + "\n";
        }
        folder.write(file, text);
    }
}

}  // namespace feedesk::test
