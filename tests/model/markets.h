#ifndef TESTS_MODEL_MARKETS_H
#define TESTS_MODEL_MARKETS_H

#include <set>
#include <string>

namespace model {

inline bool isStockMarket(const std::string& market) {
    static const std::set<std::string> markets{"SH", "SZ", "BJ", "SSE", "SZSE"};
    return markets.count(market) != 0;
}

}  // namespace model

#endif  // TESTS_MODEL_MARKETS_H
