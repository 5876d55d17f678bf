#ifndef STANDALONE_CHANNELS_H
#define STANDALONE_CHANNELS_H

#include <algorithm>
#include <array>
#include <string_view>

#include "host/account.h"
#include "host/markets.h"

// The connect channels, through which accounts of two kinds trade the instruments of kChannelMarket. Safe from any
// number of threads at once.

namespace standalone {

/// What a key may hold in place of the market.
constexpr std::array<const char*, 2> kChannels = {qmservice::kHgtMarket, qmservice::kSgtMarket};
constexpr const char* kChannelMarket = qmservice::kHongKongMarket;

/// Whether the market or code holds the name of a channel, which the keys of instruments replace by the channels'
/// market, so that such an instrument is never found.
inline bool namesChannel(std::string_view marketOrCode) {
    return std::any_of(kChannels.begin(), kChannels.end(),
                       [&](const char* channel) { return marketOrCode.find(channel) != std::string_view::npos; });
}

/// Whether an account of the kind trades through a channel.
constexpr bool tradesThroughConnect(int accountKind) {
    return accountKind == qmservice::kHgtAccount || accountKind == qmservice::kSgtAccount;
}

}  // namespace standalone

#endif  // STANDALONE_CHANNELS_H
