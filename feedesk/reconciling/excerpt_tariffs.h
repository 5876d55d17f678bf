#ifndef FEEDESK_RECONCILING_EXCERPT_TARIFFS_H
#define FEEDESK_RECONCILING_EXCERPT_TARIFFS_H

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "cost/tariff.h"
#include "feedesk/session/session.h"
#include "standalone/folder_excerpt.h"

namespace feedesk {

/// Asks fee centers that are fed with excerpts of the session's folder, so that no rule about which input wins is known
/// here. Each excerpt takes the place of the session's market in the process's services. One thread.
class ExcerptTariffs {
public:
    explicit ExcerptTariffs(Session& openedSession);

    [[nodiscard]] standalone::FolderExcerpt excerptOf(const std::string& accountId,
                                                      const std::vector<Question>& questions) const;
    /// What the market's one account is charged on the instruments; nothing where that has no answer.
    std::vector<std::optional<cost::Tariff>> tariffsFrom(standalone::Market market, cost::Date date,
                                                         const std::vector<Question>& questions) const;
    /// What an account is charged on the day.
    [[nodiscard]] std::optional<cost::Tariff> tariffOn(cost::Date date, const std::string& accountId,
                                                       const Question& question) const;

private:
    Session& session;
    std::map<std::string, std::size_t> instrumentPlaces;  // in the market, by instrumentText()
};

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_EXCERPT_TARIFFS_H
