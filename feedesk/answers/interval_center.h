#ifndef FEEDESK_ANSWERS_INTERVAL_CENTER_H
#define FEEDESK_ANSWERS_INTERVAL_CENTER_H

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <optional>
#include <set>
#include <vector>

#include "CFeeCenter.h"
#include "feedesk/answers/answer.h"
#include "feedesk/answers/provenance.h"
#include "standalone/host.h"
#include "standalone/market.h"
#include "standalone/market_folder.h"

namespace feedesk {

/// The market of one interval of days, the fee center that answers from it, and its tracer. Tables of a fee
/// center are never cleared and know no days, so that each interval needs one of its own.
///
/// The services are the process's: install() comes before anything else is asked, whenever another market has been
/// installed meanwhile. The engine must run. Used by one thread.
class IntervalCenter {
public:
    using Fees = std::vector<boost::shared_ptr<qmservice::CInstrumentFee>>;

    explicit IntervalCenter(standalone::Market dayMarket);
    /// Of the folder as of the day. The fees of an account are made when it is fed, and no one keeps them: its entry in
    /// market() has none.
    IntervalCenter(const standalone::MarketFolder& folder, cost::Date day);

    [[nodiscard]] const standalone::Market& market() const { return loaded; }

    /// Puts the market into the process's services.
    void install() const { standalone::install(prepared); }

    /// Hands the account's fees to the fee center and waits until it has them, the first time it is called for it. The
    /// account is one of the market's.
    void feedOnce(const standalone::Account& account);

    /// How many accounts are held: they have been fed and not been forgotten.
    [[nodiscard]] std::size_t heldAccounts() const { return fedAccounts.size(); }
    /// Gives back the memory of the accounts; one that is asked again is fed again.
    void forgetAccounts();

    /// The fees of the questions, in their order; empty where there is none. The account has been fed.
    Fees ask(const standalone::Account& account, const std::vector<Question>& questions);

    /// The fees that the fee center lists; nothing when it has no list.
    std::optional<Fees> list(const standalone::Account& account);

    /// The fees, which answered the questions, with where they come from; empty where there is no fee.
    std::vector<std::optional<Answer>> traced(const standalone::Account& account,
                                              const std::vector<Question>& questions, const Fees& fees);

private:
    struct Source {
        standalone::MarketFolder folder;
        cost::Date day;
    };

    /// Its tables are never cleared: it is replaced. A member, as clang++ warns of an optional of the class itself,
    /// which has virtual functions and no virtual destructor.
    struct Center {
        explicit Center(const char* strand) : fees(strand) {}
        qmservice::CFeeCenter fees;
    };

    /// With its fees.
    [[nodiscard]] standalone::Account whole(const standalone::Account& account) const;

    standalone::Market loaded;
    std::optional<Source> source;  // of the accounts' fees; empty: they are in the market
    standalone::PreparedMarket prepared;
    std::set<const standalone::Account*> fedAccounts;
    std::optional<Center> center;
    std::optional<Tracer> tracer;  // made when it is first needed
};

}  // namespace feedesk

#endif  // FEEDESK_ANSWERS_INTERVAL_CENTER_H
