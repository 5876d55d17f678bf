#ifndef STANDALONE_FOLDER_CONTENTS_H
#define STANDALONE_FOLDER_CONTENTS_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "standalone/folder_excerpt.h"
#include "standalone/market_folder.h"

namespace standalone {

/// Numbers for contents: the same for what is alike, whichever folder it is in. One thread.
class ContentNumbers {
public:
    int of(const std::string& content);
    /// Of one thing that follows another.
    int of(int first, int second);

private:
    std::unordered_map<std::string, int> texts;
    std::unordered_map<std::uint64_t, int> pairs;
    int count = 0;
};

/// What can change an answer of a market folder, as numbers: where they are equal in two folders, so are the answers.
/// Titles, names, days and the places of lines are left out. One thread; the folder and the numbers outlive it.
class FolderContents {
public:
    FolderContents(const MarketFolder& comparedFolder, ContentNumbers& sharedNumbers);

    /// A line of an account.
    struct Line {
        int content = 0;  ///< with the instruments that it matches
        InputKind kind = InputKind::kFeeLine;
        Position position;
        std::shared_ptr<const std::vector<std::size_t>> places;  ///< of a fee line: of its instruments in the market
    };
    /// Those in force on the day, fee lines first, in their order.
    [[nodiscard]] std::vector<Line> linesOn(cost::Date day, std::size_t account) const;

    /// All that accounts share on a day: instruments, markets, categories, platforms, configured limits.
    int sharedOn(cost::Date day);

    /// By place in the market: all that an answer for the instrument depends on besides the account's lines and the
    /// name of the instrument. Instruments of one folder with the same number are answered alike where the same lines
    /// of the account match them.
    const std::vector<int>& instrumentsOn(cost::Date day);

    /// The lines that say of these instruments, by their places in ascending order, what the line at the position says
    /// of one of them: instruments that carry a fee of the exchange, or configured limits in force on the day.
    [[nodiscard]] std::vector<Position> linesLike(cost::Date day, const Position& position,
                                                  const std::vector<std::size_t>& places) const;

private:
    [[nodiscard]] const loader::CheckedFolder& content() const { return folder.content(); }
    void numberLines();
    int frame();
    void findCategoriesOfInstruments();

    const MarketFolder& folder;
    ContentNumbers& numbers;
    std::vector<std::vector<int>> feeLines;     // by account
    std::vector<std::vector<int>> customLines;  // by account
    std::vector<int> configuredLines;
    std::vector<int> names;         // of the instruments
    std::vector<int> attributes;    // of the instruments
    std::vector<int> inCategories;  // the same with the categories; empty until it is needed
    int sameOnAllDays = 0;
    std::optional<std::size_t> interval;  // of instrumentsOn()
    std::vector<int> instruments;
};

}  // namespace standalone

#endif  // STANDALONE_FOLDER_CONTENTS_H
