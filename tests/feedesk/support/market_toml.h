#ifndef TESTS_FEEDESK_SUPPORT_MARKET_TOML_H
#define TESTS_FEEDESK_SUPPORT_MARKET_TOML_H

#include <string>

namespace feedesk::test {

/// The market.toml of a folder that a test makes: `settings` of the folder, its markets, and `more` tables behind them.
inline std::string marketToml(const std::string& settings, const std::string& more = "") {
    return "format = 1\ntitle = \"Test\"\n" + settings + R"([markets.SH]
title = "Shanghai"
trade_unit = 100
[markets.SZ]
title = "Shenzhen"
trade_unit = 100
[markets.HK]
title = "Hong Kong"
trade_unit = 200
[markets.SHO]
title = "Options"
trade_unit = 1
[markets.SHFE]
title = "Futures"
trade_unit = 1
)" + more;
}

}  // namespace feedesk::test

#endif  // TESTS_FEEDESK_SUPPORT_MARKET_TOML_H
