#ifndef HOST_MARKETS_H
#define HOST_MARKETS_H

namespace qmservice {

// Market strings on which an answer depends.

constexpr const char* kHgtMarket = "HGT";      ///< Shanghai connect, in the key of an instrument of kHongKongMarket
constexpr const char* kSgtMarket = "SGT";      ///< Shenzhen connect, the same
constexpr const char* kHongKongMarket = "HK";  ///< the instruments that both channels trade
constexpr const char* kNeeqMarket = "NEEQ";    ///< the over-the-counter market

}  // namespace qmservice

#endif  // HOST_MARKETS_H
