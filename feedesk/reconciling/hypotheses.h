#ifndef FEEDESK_RECONCILING_HYPOTHESES_H
#define FEEDESK_RECONCILING_HYPOTHESES_H

#include <string>
#include <vector>

#include "feedesk/reconciling/cause.h"
#include "feedesk/reconciling/order.h"

namespace feedesk {

/// An order of which the folder says something else than the statement.
struct Disputed {
    const Order& order;
    const Amounts& charged;  ///< by the folder
};

/// What else an order might be charged by.
struct OtherTariff {
    std::string key;
    std::string sentence;
    cost::Tariff tariff;
    cost::Date date;      ///< as of which the tariff is
    std::string wider{};  ///< as Explanation::wider
};

using OtherTariffList = std::vector<OtherTariff>;

/// Asks for the tariffs that causes need. Each answer leaves out what has none.
class OtherTariffs {
public:
    OtherTariffs() = default;
    OtherTariffs(const OtherTariffs&) = delete;
    OtherTariffs& operator=(const OtherTariffs&) = delete;
    virtual ~OtherTariffs() = default;

    virtual const OtherTariffList& ofOtherDates(const Disputed& disputed) = 0;
    virtual const OtherTariffList& ofOtherLevels(const Disputed& disputed) = 0;
    virtual const OtherTariffList& ofOtherAccounts(const Disputed& disputed) = 0;
    virtual const OtherTariffList& ofOtherCategories(const Disputed& disputed) = 0;
};

/// Every single change that explains all figures which the statement has of the order, in the order of Cause. What is
/// solved for is not among them, nor what other orders show, nor a range.
Explanations explanationsOf(const Disputed& disputed, const Layout& layout, OtherTariffs& others);

/// Adds what goes behind all others: the changes that leave a range, because it explains almost anything between its
/// ends, and where nothing does another minimum of this order alone.
void addGuesses(const Disputed& disputed, const Layout& layout, Explanations& explanations);

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_HYPOTHESES_H
