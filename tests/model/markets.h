#ifndef TESTS_MODEL_MARKETS_H
#define TESTS_MODEL_MARKETS_H

#include <set>
#include <string>

#include "model/facts.h"

namespace model {

inline bool isStockMarket(const std::string& market) {
    static const std::set<std::string> markets{"SH", "SZ", "BJ", "SSE", "SZSE"};
    return markets.count(market) != 0;
}

inline bool isFutureMarket(const std::string& market) {
    static const std::set<std::string> markets{"DF", "DCE", "ZF", "CZCE", "SF", "SHFE", "GF", "GFEX"};
    return markets.count(market) != 0;
}

inline bool isForeignMarket(const std::string& market, const Facts& facts) {
    static const std::set<std::string> markets{"CMEO", "NYMEXO", "CBOTO", "COMEXO", "WP"};
    return facts.foreignMarkets.count(market) != 0 || markets.count(market) != 0 || market.compare(0, 3, "WP.") == 0;
}

}  // namespace model

#endif  // TESTS_MODEL_MARKETS_H
