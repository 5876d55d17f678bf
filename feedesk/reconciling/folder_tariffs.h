#ifndef FEEDESK_RECONCILING_FOLDER_TARIFFS_H
#define FEEDESK_RECONCILING_FOLDER_TARIFFS_H

#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "feedesk/reconciling/hypotheses.h"
#include "feedesk/session/session.h"
#include "standalone/folder_excerpt.h"

namespace feedesk {

/// The other tariffs of a market folder: fee centers are asked that are fed with excerpts of it, so that no rule about
/// which input wins is known here. Each excerpt takes the place of the session's market in the process's services.
/// Keeps what was asked. One thread.
class FolderTariffs : public OtherTariffs {
public:
    /// The account is one that the session's folder has.
    FolderTariffs(Session& openedSession, std::string accountOfStatement);

    const OtherTariffList& ofOtherDates(const Disputed& disputed) override;
    const OtherTariffList& ofOtherLevels(const Disputed& disputed) override;
    const OtherTariffList& ofOtherAccounts(const Disputed& disputed) override;
    const OtherTariffList& ofOtherCategories(const Disputed& disputed) override;

private:
    /// Which list, of which instrument, on which interval.
    using Key = std::tuple<Cause, std::string, std::size_t>;
    using Make = OtherTariffList (FolderTariffs::*)(const Disputed& disputed);

    const OtherTariffList& kept(Cause cause, const Disputed& disputed, Make make);

    OtherTariffList otherDates(const Disputed& disputed);
    OtherTariffList otherLevels(const Disputed& disputed);
    OtherTariffList otherAccounts(const Disputed& disputed);
    OtherTariffList otherCategories(const Disputed& disputed);

    /// The days for which the schedules of the place's family and market are known, cut at the folder's change dates.
    [[nodiscard]] std::vector<cost::DateRange> intervals(const cost::Place& place) const;

    [[nodiscard]] standalone::FolderExcerpt excerptOf(const std::string& accountId,
                                                      const std::vector<Question>& questions) const;
    /// What the account is charged on the instruments; nothing where that has no answer.
    std::vector<std::optional<cost::Tariff>> tariffsFrom(standalone::Market market, cost::Date date,
                                                         const std::vector<Question>& questions) const;
    [[nodiscard]] std::optional<cost::Tariff> tariffOn(cost::Date date, const std::string& accountId,
                                                       const Question& question) const;

    Session& session;
    std::string account;
    std::map<Key, OtherTariffList> lists;
    std::map<std::string, std::size_t> instrumentPlaces;  // in the market, by instrumentText()
};

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_FOLDER_TARIFFS_H
