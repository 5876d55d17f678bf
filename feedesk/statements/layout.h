#ifndef FEEDESK_STATEMENTS_LAYOUT_H
#define FEEDESK_STATEMENTS_LAYOUT_H

#include <array>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "cost/side.h"
#include "cost/words.h"
#include "feedesk/failure.h"

namespace feedesk {

/// What a column of a statement says about a trade, besides what was charged.
enum class TradeFact { kDate, kCode, kMarket, kName, kOperation, kQuantity, kPrice, kAmount, kFills, kOrder, kNet };

/// What the amounts of a column are.
enum class Stated {
    kPaid,  ///< what is paid for these charges; such columns together are the costs
    kOwn,   ///< said once more: the charge without what is inside it
    kWhole  ///< said once more: the charge, whether it is paid by itself or inside another one
};

}  // namespace feedesk

template <>
inline constexpr std::array<std::string_view, 11> cost::kWords<feedesk::TradeFact> = {
    "date", "code", "market", "name", "operation", "quantity", "price", "amount", "fills", "order", "net"};

template <>
inline constexpr std::array<std::string_view, 3> cost::kWords<feedesk::Stated> = {"paid", "own", "whole"};

namespace feedesk {

constexpr std::size_t kTradeFacts = cost::kWords<TradeFact>.size();
constexpr std::size_t indexOf(TradeFact fact) { return static_cast<std::size_t>(fact); }

/// Without these a line is no trade.
constexpr std::array<TradeFact, 5> kNeededFacts = {TradeFact::kDate, TradeFact::kCode, TradeFact::kOperation,
                                                   TradeFact::kQuantity, TradeFact::kPrice};

/// The titles that brokers give a column, those first that are preferred where a statement has several.
using Titles = std::vector<std::string>;

/// A column with amounts that were charged.
struct ChargeColumn {
    std::string name;  ///< in answers
    Titles titles;
    std::vector<std::string> charges;  ///< of charges.csv, whose amounts it adds up; empty: those that no other has
    /// Charges that it may hold besides, as an all-in commission holds the exchange's fees.
    std::vector<std::string> allIn;
    Stated stated = Stated::kPaid;
};

/// How a broker lays its statements out. A plain value.
struct Layout {
    std::string name;   ///< of its file
    std::string title;  ///< what a person reads
    std::array<Titles, kTradeFacts> facts;
    std::vector<ChargeColumn> charges;
    std::map<std::string, std::optional<cost::Side>> operations;  ///< by statedOperation(); empty: no trade
    std::map<std::string, std::string> markets;                   ///< the folder's by the broker's word
    std::vector<std::string> footers;                             ///< a line that begins so is no trade
    std::size_t codeDigits = 0;                                   ///< shorter codes of digits may want zeros in front

    [[nodiscard]] const Titles& of(TradeFact fact) const { return facts[indexOf(fact)]; }
};

/// Where a header has the columns of a layout.
struct Header {
    std::array<std::optional<std::size_t>, kTradeFacts> facts;
    std::vector<std::optional<std::size_t>> charges;  ///< as Layout::charges
    std::vector<std::string> missing;                 ///< titles that are needed and not there
    std::vector<std::string> doubled;                 ///< a sentence for each column that comes twice
    std::size_t found = 0;                            ///< columns that the layout knows

    [[nodiscard]] bool isWhole() const { return missing.empty(); }
    [[nodiscard]] std::optional<std::size_t> of(TradeFact fact) const { return facts[indexOf(fact)]; }
};

/// Where the cells, which are a header, have the columns of the layout.
Header headerIn(const std::vector<std::string>& cells, const Layout& layout);

/// Reads a layout. Throws Failure with the first thing that is wrong in it, with file and line.
Layout readLayout(const std::string& path);

/// The names of a market folder's layouts; none is read.
std::vector<std::string> layoutNames(const std::string& marketFolder);

/// The layouts of a market folder as they were when this was made. A wrong one is refused when it is asked for, so that
/// it is in nobody's way who reads no statements.
class FolderLayouts {
public:
    explicit FolderLayouts(std::string marketFolder);

    [[nodiscard]] const std::string& market() const { return folder; }
    [[nodiscard]] std::vector<std::string> names() const;
    /// All of them, by name. Throws the Failure of the first wrong one.
    [[nodiscard]] std::vector<Layout> all() const;
    /// The layout that a person names: one of the folder, or a file, which is read. Throws Failure when there is none
    /// and when it is wrong.
    [[nodiscard]] Layout named(const std::string& name) const;

private:
    struct Read {
        std::string name;
        std::variant<Layout, Failure> result;
    };

    std::string folder;
    std::vector<Read> layouts;  // by name
};

}  // namespace feedesk

#endif  // FEEDESK_STATEMENTS_LAYOUT_H
