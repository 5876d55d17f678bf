#ifndef BENCH_WORLD_H
#define BENCH_WORLD_H

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <string>
#include <vector>

#include "host/records.h"

// The catalogue and the records that everything is measured on. All of it is made: which rate an account has on an
// instrument follows from their numbers, so that every answer can be checked without asking anybody.

namespace bench {

using Account = boost::shared_ptr<qmservice::CAccountInfo>;
using Records = std::vector<boost::shared_ptr<qmservice::IData>>;

/// Instruments of one market. The first `own` of them have records, kOthers more have a configured limit in the stock
/// and connect families, and kOthers more have nothing.
struct Listing {
    const char* market;
    int firstCode;
    int listMask;
    int types;
    int own;
};
constexpr int kOthers = 1000;
constexpr int kUsualOwn = 5000;

constexpr Listing kShanghai{"SH", 600000, 1 | 8, 0, 50000};
constexpr Listing kThirdBoard{"NEEQ", 430000, 256, 0, kUsualOwn};
constexpr Listing kShanghaiOptions{"SHO", 10000000, 32, 0, kUsualOwn};
constexpr Listing kHongKong{"HK", 10000, 128 | 16384, 0, kUsualOwn};
constexpr Listing kFuturesExchange{"SF", 20000, 0, 2, kUsualOwn};

/// The category that holds all instruments; options know it by its name.
constexpr const char* kCategory = "100";
constexpr const char* kCategoryName = "everything";

/// Where the answer for an instrument comes from.
enum class Source { kOwn, kConfigured, kDefault, kUnknown };

/// The n-th instrument of a listing that is answered from `source`. An unknown one has no record.
boost::shared_ptr<qmservice::CInstrument> instrumentOf(const Listing& listing, Source source, int n);
std::string codeOf(const Listing& listing, Source source, int n);

/// The first rate of an account's own record for the n-th instrument. kRateSets different ones keep the pools small, as
/// those of real accounts are.
constexpr int kRateSets = 40;
double ownRate(int account, int n);
/// The first rate of the n-th configured limit.
double configuredRate(int n);

/// Puts the catalogue, configured limits and the category into the services of the standalone host. Once.
void installWorld();

/// The account number `account`, trading as `kind`. All kinds of one number have one key.
Account accountOf(int kind, int account);

/// The records that the back end sends for the first `count` instruments with records.
Records stockRecords(const Listing& listing, int account, int count);
Records connectRecords(int account, int count);
Records futuresRecords(int account, int count);

/// Custom fees for the whole list, through kCategory. The options' ten make ten items for each option.
boost::shared_ptr<qmservice::IData> stockCustomFee(double first);
boost::shared_ptr<qmservice::IData> futuresCustomFee(double first);
std::vector<boost::shared_ptr<qmservice::IData>> optionCustomFees(double first);

}  // namespace bench

#endif  // BENCH_WORLD_H
