#ifndef FEEDESK_ANSWERS_PROVENANCE_H
#define FEEDESK_ANSWERS_PROVENANCE_H

#include <boost/shared_ptr.hpp>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "CFeeCenter.h"
#include "feedesk/answers/level.h"
#include "feedesk/instruments/question.h"
#include "standalone/host.h"
#include "standalone/market.h"

namespace feedesk {

/// Where a rate comes from.
struct Origin {
    Level level = Level::kBuiltInDefault;
    std::optional<standalone::Position> position;  ///< of the input; none for a default and for what is not set
};

/// Unique rates, and the input that each of them marks.
class Dyes {
public:
    /// A rate that no other input has and that no real one is like.
    double next(const Origin& origin);
    /// The input that the rate marks; the built-in default when it is no dye.
    [[nodiscard]] Origin origin(double rate) const;

private:
    std::vector<Origin> origins;
};

/// Finds out which input gave a rate, without a rule of its own about which input wins.
///
/// A second fee center runs next to the one that answers. It is fed the same inputs, with one difference: in each copy
/// the leading rate is a dye, a number that no other input has. The second fee center decides as the first one
/// does, because it runs the same code on the same instruments, categories and accounts, and its answer's rate names
/// the input. Configured limits and the instruments' own fees are dyed too: while the second fee center is fed and
/// asked, the host's services hold a dyed market. A rate that comes back undyed was built in.
///
/// Each part of an answer is traced for itself: a fee item of an option, the commission, each margin.
class Tracer {
public:
    /// The market is the one that is installed.
    Tracer(const standalone::Market& realMarket, standalone::PreparedMarket realPrepared);

    // While an account is fed and asked the host's services hold the dyed market: no other fee center may be fed or
    // asked. The engine must run.

    [[nodiscard]] bool knows(const standalone::Account& account) const { return fed.count(&account) != 0; }
    /// Hands the account's fees over, of which `fees` has all.
    void feed(const standalone::Account& account, const standalone::Account& fees);

    /// The dyed answers to the questions, in their order; empty where there is none. The account has been fed.
    std::vector<boost::shared_ptr<qmservice::CInstrumentFee>> ask(const standalone::Account& account,
                                                                  const std::vector<Question>& questions);

    // What the record of a dyed answer came from; not set for an empty one.
    [[nodiscard]] Origin origin(const boost::shared_ptr<qmservice::CStkExchangeRateLimit>& limit) const;
    [[nodiscard]] Origin origin(const boost::shared_ptr<qmservice::CCustomHGTExchangeRateLimit>& limit) const;
    [[nodiscard]] Origin origin(const boost::shared_ptr<qmservice::CCustomSgtExchangeRateLimit>& limit) const;
    [[nodiscard]] Origin origin(const boost::shared_ptr<qmservice::CStockOptionFeeItem>& item) const;
    [[nodiscard]] Origin origin(const boost::shared_ptr<qmservice::CCommissionRateDetail>& detail) const;
    [[nodiscard]] Origin origin(const boost::shared_ptr<qmservice::CMarginRateDetail>& detail) const;

private:
    Dyes dyes;
    standalone::PreparedMarket real;
    standalone::PreparedMarket dyed;
    std::set<const standalone::Account*> fed;
    qmservice::CFeeCenter center;
};

}  // namespace feedesk

#endif  // FEEDESK_ANSWERS_PROVENANCE_H
