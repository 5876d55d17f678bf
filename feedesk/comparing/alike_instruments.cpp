#include "feedesk/comparing/alike_instruments.h"

#include <array>
#include <map>

#include "standalone/families.h"

namespace feedesk {
namespace {

using standalone::FolderContents;

/// Numbers the lists of lines that match each instrument of a market: instruments with the same list share a number.
class MatchingLines {
public:
    MatchingLines(const AccountDayLines& lines, std::size_t instrumentCount) : numbers(instrumentCount) {
        for (const FolderContents::Line& line : lines) {
            if (line.places) {
                extend(*line.places);
            }
        }
    }

    [[nodiscard]] std::size_t of(std::size_t place) const { return numbers[place]; }

private:
    void extend(const std::vector<std::size_t>& places) {
        std::map<std::size_t, std::size_t> extended;  // by the list so far; a line extends few different ones
        for (const std::size_t place : places) {
            const auto list = extended.emplace(numbers[place], listCount + 1);
            listCount += list.second ? 1 : 0;
            numbers[place] = list.first->second;
        }
    }

    std::vector<std::size_t> numbers;
    std::size_t listCount = 0;  // 0 is the list without lines
};

}  // namespace

Alike groupAlike(ComparedFolder& before, ComparedFolder& after, cost::Date day, const AccountSides& account,
                 const std::vector<InstrumentPlaces>& instruments) {
    const std::vector<int>& inputsBefore = before.contents().instrumentsOn(day);
    const std::vector<int>& inputsAfter = after.contents().instrumentsOn(day);
    const MatchingLines matchingBefore(account.linesBefore, inputsBefore.size());
    const MatchingLines matchingAfter(account.linesAfter, inputsAfter.size());
    const auto* const traded = standalone::tradedFamily(before.accounts()[account.before].record->accountType);
    std::map<std::array<std::size_t, 4>, std::size_t> groups;
    Alike alike;
    for (std::size_t i = 0; i < instruments.size(); ++i) {
        const InstrumentPlaces& places = instruments[i];
        const standalone::ListedInstrument& listed = before.instruments()[places.before];
        const bool isTraded =
            traded == nullptr || traded->lists.hold(listed) || traded->lists.hold(after.instruments()[places.after]);
        if (!isTraded || !before.coversMarket(day, listed.record->market) ||
            !after.coversMarket(day, listed.record->market)) {
            continue;
        }
        const auto group =
            groups.emplace(std::array<std::size_t, 4>{static_cast<std::size_t>(inputsBefore[places.before]),
                                                      static_cast<std::size_t>(inputsAfter[places.after]),
                                                      matchingBefore.of(places.before), matchingAfter.of(places.after)},
                           alike.size());
        if (group.second) {
            alike.emplace_back();
        }
        alike[group.first->second].push_back(i);
    }
    return alike;
}

}  // namespace feedesk
