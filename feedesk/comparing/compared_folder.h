#ifndef FEEDESK_COMPARING_COMPARED_FOLDER_H
#define FEEDESK_COMPARING_COMPARED_FOLDER_H

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "standalone/folder_contents.h"
#include "standalone/market_folder.h"

namespace feedesk {

/// One of two folders that are compared. One thread; the numbers outlive it.
class ComparedFolder {
public:
    ComparedFolder(standalone::MarketFolder loaded, standalone::ContentNumbers& numbers);
    ComparedFolder(const ComparedFolder&) = delete;
    ComparedFolder& operator=(const ComparedFolder&) = delete;
    ~ComparedFolder() = default;

    [[nodiscard]] const standalone::MarketFolder& folder() const { return days; }
    [[nodiscard]] standalone::FolderContents& contents() { return numbered; }
    [[nodiscard]] const std::vector<standalone::Account>& accounts() const { return days.everyDay().accounts; }
    [[nodiscard]] const std::vector<standalone::ListedInstrument>& instruments() const {
        return days.everyDay().instruments;
    }

    // Places in the market.
    [[nodiscard]] std::optional<std::size_t> account(const std::string& accountId) const;
    [[nodiscard]] std::optional<std::size_t> instrument(const qmservice::CInstrument& instrument) const;

    /// Whether its schedules cover the day, for the part of an answer.
    [[nodiscard]] bool covers(cost::Date day, const std::string& part) const;
    /// Whether its schedules cover the day for the market.
    [[nodiscard]] bool coversMarket(cost::Date day, const std::string& market) const;

private:
    standalone::MarketFolder days;
    standalone::FolderContents numbered;
    std::unordered_map<std::string, std::size_t> accountPlaces;
    std::unordered_map<std::string, std::size_t> instrumentPlaces;
};

/// The family in which trades by this part of an answer are charged.
cost::Family chargedFamily(const std::string& part);

}  // namespace feedesk

#endif  // FEEDESK_COMPARING_COMPARED_FOLDER_H
