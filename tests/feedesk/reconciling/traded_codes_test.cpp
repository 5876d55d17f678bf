#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <string>
#include <vector>

#include "cost/refused.h"
#include "feedesk/reconciling/traded_codes.h"
#include "host/records.h"

// Which instrument a code of a statement is.

namespace feedesk::test {
namespace {

struct Listed {
    const char* market;
    const char* code;
};

standalone::Market marketOf(const std::vector<Listed>& instruments) {
    standalone::Market market;
    for (const Listed& each : instruments) {
        auto record = boost::make_shared<qmservice::CInstrument>();
        record->market = each.market;
        record->code = each.code;
        standalone::ListedInstrument listed;
        listed.record = record;
        market.instruments.push_back(listed);
    }
    return market;
}

struct Written {
    const char* market;
    const char* code;
    const char* found;
};

TEST(TradedCodes, AreFoundAsTheyAreWrittenOrWithZeros) {
    const int anyKind = -1;
    const TradedCodes codes(
        anyKind, marketOf({{"SZ", "000001"}, {"SZ", "000700"}, {"SZ", "002415"}, {"HK", "00700"}, {"HK", "09988"}}), 6);
    for (const Written& each : std::vector<Written>{{"", "1", "SZ:000001"},
                                                    {"", "000001", "SZ:000001"},
                                                    {"", "2415", "SZ:002415"},
                                                    {"", "9988", "HK:09988"},
                                                    {"", "00700", "HK:00700"},
                                                    {"", "000700", "SZ:000700"},
                                                    {"HK", "700", "HK:00700"},
                                                    {"SZ", "700", "SZ:000700"},
                                                    {"SZ", "00700", "SZ:000700"},
                                                    {"SH", "1", "SH:1"},
                                                    {"", "700",
                                                     "700 may be HK:00700 or SZ:000700, and the statement does not say "
                                                     "which market is meant"},
                                                    {"", "988",
                                                     "the market folder has no instrument 988 that the "
                                                     "account trades"},
                                                    {"", "A1",
                                                     "the market folder has no instrument A1 that the account "
                                                     "trades"}}) {
        StatementLine line;
        line.market = each.market;
        line.code = each.code;
        std::string found;
        try {
            const Question question = codes.instrumentOf(line);
            found = question.market + ':' + question.code;
        } catch (const cost::Refused& refused) {
            found = refused.what();
        }
        EXPECT_EQ(found, each.found) << each.code;
    }
}

}  // namespace
}  // namespace feedesk::test
