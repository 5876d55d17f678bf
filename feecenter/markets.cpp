#include "feecenter/markets.h"

#include <string_view>

#include "host/services.h"

namespace qmservice {
namespace {

template <class... Names>
bool isOneOf(std::string_view market, const Names&... names) {
    return ((market == names) || ...);
}

}  // namespace

bool isStockMarket(const std::string& market) { return isOneOf(market, "SH", "SZ", "BJ", "SSE", "SZSE"); }

bool isFutureMarket(const std::string& market) {
    return isOneOf(market, "DF", "DCE", "ZF", "CZCE", "SF", "SHFE", "GF", "GFEX");
}

bool isForeignMarket(const std::string& market) {
    return utils::CSingletonT<StockTypeCenter>::instance()->isWPMarket(market) ||
           isOneOf(market, "CMEO", "NYMEXO", "CBOTO", "COMEXO", "WP") || market.compare(0, 3, "WP.") == 0;
}

}  // namespace qmservice
