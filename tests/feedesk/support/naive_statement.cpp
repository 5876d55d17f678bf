#include "tests/feedesk/support/naive_statement.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <numeric>
#include <sstream>

namespace feedesk::test::naive {
namespace {

/// Turnover in thousandths times a rate in ten-millionths, in one fen.
constexpr long kPerFen = 100'000'000;

std::vector<std::string> cellsOf(const std::string& line) {
    std::vector<std::string> cells;
    std::istringstream text(line);
    for (std::string cell; std::getline(text, cell, ',');) {
        cells.push_back(cell);
    }
    return cells;
}

/// "1720.50" in thousandths.
long thousandths(const std::string& amount) {
    const std::size_t point = amount.find('.');
    std::string decimals = amount.substr(point + 1);
    decimals.resize(3, '0');
    return std::stol(amount.substr(0, point)) * 1000 + std::stol(decimals);
}

std::string yuan(long fen) {
    char text[40];
    std::snprintf(text, sizeof text, "%s%ld.%02ld", fen < 0 ? "-" : "", std::labs(fen) / 100, std::labs(fen) % 100);
    return text;
}

long paid(const Charging& charging, const Amounts& amounts) {
    return amounts.commission + amounts.stamp + (charging.transferInside ? 0 : amounts.transfer) +
           (charging.feesInside ? 0 : amounts.handling + amounts.regulatory) + amounts.paidTwice;
}

}  // namespace

std::vector<Line> realLines() {
    std::ifstream file(STATEMENT);
    std::string text;
    std::getline(file, text);
    std::vector<Line> lines;
    while (std::getline(file, text)) {
        const std::vector<std::string> cells = cellsOf(text);
        Line line;
        for (std::size_t i = 0; i < 8; ++i) {
            line.beginning += cells.at(i) + ',';
        }
        line.market = cells.at(1);
        line.code = cells.at(2);
        line.turnover = thousandths(cells.at(7));
        line.isSale = cells.at(4) == "S";
        line.isFund = line.code[0] == '5' || line.code.substr(0, 2) == "15";
        line.fills = std::stol(cells.at(16));
        lines.push_back(line);
    }
    return lines;
}

Charging usualCharging(const Line& line) {
    Charging charging;
    const long fundHandling = line.market == "SH" ? 450 : 487;
    charging.rates = line.isFund ? Rates{2500, 0, fundHandling, 0, 0} : Rates{2500, 200, 487, 200, 10000};
    charging.minimumFen = line.isFund ? 0 : 500;
    charging.transferInside = line.market == "SZ";
    charging.asSale = line.isSale;
    return charging;
}

long rounded(long turnover, long rate, Mode mode) {
    const long product = turnover * rate;
    const long whole = product / kPerFen;
    const long rest = product % kPerFen;
    const bool isUp = mode == Mode::kUp       ? rest > 0
                      : mode == Mode::kDown   ? false
                      : mode == Mode::kHalfUp ? rest * 2 >= kPerFen
                      : rest * 2 == kPerFen   ? whole % 2 == 1
                                              : rest * 2 > kPerFen;
    return whole + (isUp ? 1 : 0);
}

Amounts charged(const Line& line, const Charging& charging) {
    const auto amount = [&](long rate) { return rounded(line.turnover, rate, charging.mode); };
    Amounts amounts;
    amounts.commission =
        charging.rates.commission == 0 ? 0 : std::max(charging.minimumFen, amount(charging.rates.commission));
    amounts.transfer = amount(charging.rates.transfer);
    amounts.handling = amount(charging.rates.handling);
    amounts.regulatory = amount(charging.rates.regulatory);
    amounts.stamp = charging.asSale ? amount(charging.rates.stamp) : 0;
    return amounts;
}

Amounts chargedByFill(const std::vector<long>& fills, const Charging& charging) {
    Amounts sum;
    for (const long fill : fills) {
        Line part;
        part.turnover = fill;
        Charging free = charging;
        free.minimumFen = 0;
        const Amounts amounts = charged(part, free);
        sum.commission += amounts.commission;
        sum.transfer += amounts.transfer;
        sum.handling += amounts.handling;
        sum.regulatory += amounts.regulatory;
        sum.stamp += amounts.stamp;
    }
    sum.commission = std::max(sum.commission, charging.minimumFen);
    return sum;
}

std::string written(const Line& line, const Charging& charging, const Amounts& amounts) {
    const long inside = (charging.transferInside ? amounts.transfer : 0) +
                        (charging.feesInside ? amounts.handling + amounts.regulatory : 0);
    const long net = (line.isSale ? 1 : -1) * line.turnover / 10 - paid(charging, amounts);
    std::string text = line.beginning;
    for (const long fen : {amounts.commission, amounts.commission - inside, amounts.stamp,
                           charging.transferInside ? 0 : amounts.transfer, amounts.transfer, amounts.handling,
                           amounts.regulatory, net}) {
        text += yuan(fen) + ',';
    }
    return text + std::to_string(line.fills) + '\n';
}

std::string header() {
    return "date,market,code,operation,side,quantity,price,amount,commission,net_commission,stamp_duty,transfer_fee,"
           "inner_transfer_fee,inner_handling_fee,inner_regulatory_fee,net,fills\n";
}

}  // namespace feedesk::test::naive
