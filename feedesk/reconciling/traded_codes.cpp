#include "feedesk/reconciling/traded_codes.h"

#include <fmt/format.h>

#include "cost/refused.h"
#include "feedesk/instruments/instrument_text.h"
#include "feedesk/instruments/traded_instruments.h"
#include "feedesk/text/text.h"
#include "standalone/text/numbers.h"

namespace feedesk {

TradedCodes::TradedCodes(int accountType, const standalone::Market& market, std::size_t mostDigits)
    : digits(mostDigits) {
    for (const Question& question : tradedInstruments(accountType, market)) {
        markets[question.code].push_back(question.market);
    }
}

std::vector<Question> TradedCodes::known(const std::string& code, const std::string& market) const {
    std::vector<Question> found;
    const auto places = markets.find(code);
    if (places != markets.end()) {
        for (const std::string& each : places->second) {
            if (market.empty() || each == market) {
                found.push_back({each, code});
            }
        }
    }
    return found;
}

std::vector<Question> TradedCodes::withZeros(const StatementLine& line) const {
    std::vector<Question> found;
    for (std::string code = '0' + line.code; standalone::isDigits(line.code) && code.size() <= digits;
         code.insert(0, 1, '0')) {
        const std::vector<Question> same = known(code, line.market);
        found.insert(found.end(), same.begin(), same.end());
    }
    return found;
}

Question TradedCodes::instrumentOf(const StatementLine& line) const {
    std::vector<Question> found = known(line.code, line.market);
    if (found.empty()) {
        found = withZeros(line);
    }
    if (found.empty() && !line.market.empty()) {
        return {line.market, line.code};
    }
    if (found.empty()) {
        throw cost::Refused(
            fmt::format("the market folder has no instrument {} that the account trades", echoed(line.code)));
    }
    if (found.size() > 1) {
        std::vector<std::string> names;
        names.reserve(found.size());
        for (const Question& each : found) {
            names.push_back(instrumentText(each.market, each.code));
        }
        throw cost::Refused(fmt::format("{} may be {}, and the statement does not say which market is meant",
                                        echoed(line.code), fmt::join(names, " or ")));
    }
    return found.front();
}

}  // namespace feedesk
