#ifndef FEEDESK_RECONCILING_FOLDER_TARIFFS_H
#define FEEDESK_RECONCILING_FOLDER_TARIFFS_H

#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "feedesk/reconciling/excerpt_tariffs.h"
#include "feedesk/reconciling/hypotheses.h"
#include "feedesk/reconciling/representatives.h"

namespace feedesk {

/// The other tariffs of a market folder, of excerpts of it. Keeps what was asked. One thread.
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

    /// The instruments of the family that stand for all of them.
    const std::vector<Representative>& representativesIn(cost::Family family);

    /// The days for which the schedules of the place's family and market are known, cut at the folder's change dates.
    [[nodiscard]] std::vector<cost::DateRange> intervals(const cost::Place& place) const;

    Session& session;
    std::string account;
    std::map<Key, OtherTariffList> lists;
    std::map<cost::Family, std::vector<Representative>> representatives;  // of families that were asked for
    ExcerptTariffs excerpts;
};

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_FOLDER_TARIFFS_H
