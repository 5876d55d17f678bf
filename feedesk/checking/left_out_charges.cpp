#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

#include "feedesk/checking/duty_cuts.h"
#include "feedesk/checking/line_faults.h"
#include "feedesk/checking/topics.h"
#include "feedesk/instruments/instrument_text.h"
#include "feedesk/text/numbers.h"

// Who pays a charge and who does not depends on what is traded: shares pay a stamp duty, funds do not. No table says
// which is which, so that the answers of all accounts do: where most accounts pay it for instruments of a group, a line
// that leaves it out is a fault.

namespace feedesk::checking {
namespace {

constexpr std::size_t kCodeBeginning = 3;  // "600", "510", "007": of instruments without a product

std::string groupOf(const qmservice::CInstrument& instrument) {
    return instrument.productId.empty()
               ? instrumentText(instrument.market, instrument.code.substr(0, kCodeBeginning) + "*")
               : "product " + instrument.productId;
}

/// A charge of an answer, and what is paid.
struct Charge {
    std::string name;  ///< its columns
    std::size_t columns = 1;
    std::string amount{};  ///< empty: nothing is
};

/// The charges among the rates under one title that a check looks at.
using ChargesOf = std::vector<Charge> (*)(const FeeLine& line, const TitledRates& titled);

std::vector<Charge> dutiesOf(const FeeLine& /*line*/, const TitledRates& titled) {
    std::vector<Charge> duties;
    for (const ShownRate& rate : titled.rates) {
        if (isDuty(rate.column)) {
            duties.push_back({rate.column, 1, rate.value == 0 ? "" : plainNumber(rate.value)});
        }
    }
    return duties;
}

bool beginsWith(std::string_view text, std::string_view beginning) {
    return text.substr(0, beginning.size()) == beginning;
}

/// Of futures what opening and closing costs; exchanges waive the fee of a close on the same day for many products. Of
/// other families the columns that are called so.
bool isCommission(const FeeLine& line, std::string_view column) {
    return line.part == kCommissionPart ? beginsWith(column, "open_") || beginsWith(column, "close_by_")
                                        : beginsWith(column, "commission");
}

/// What is charged by turnover and by lot is one charge.
std::vector<Charge> commissionsOf(const FeeLine& line, const TitledRates& titled) {
    std::vector<std::string> columns;
    std::vector<std::string> amounts;
    for (const ShownRate& rate : titled.rates) {
        if (isCommission(line, rate.column)) {
            columns.push_back(rate.column);
            if (rate.value != 0) {
                amounts.push_back(titled.rates.size() == 1
                                      ? plainNumber(rate.value)
                                      : fmt::format("{} {}", rate.column, plainNumber(rate.value)));
            }
        }
    }
    if (columns.empty()) {
        return {};
    }
    return {{fmt::format("{}", fmt::join(columns, " and ")), columns.size(),
             fmt::format("{}", fmt::join(amounts, " and "))}};
}

/// A charge on a group of instruments.
struct GroupCharge {
    standalone::RateRecords records;  ///< of the families that pay it
    std::string group;
    std::string item;
    std::string name;
    std::size_t columns;

    friend bool operator<(const GroupCharge& one, const GroupCharge& other) {
        return std::tie(one.records, one.group, one.item, one.name) <
               std::tie(other.records, other.group, other.item, other.name);
    }
};

/// How many accounts pay a charge, and how many have lines without it.
struct Payers {
    std::size_t paying = 0;
    std::size_t free = 0;
    std::map<std::string, std::size_t> amounts;  // how many accounts pay which

    /// Of more accounts without the charge than with it nobody can say that they are the exception.
    [[nodiscard]] bool areUsual() const { return paying > 0 && paying >= free; }
    [[nodiscard]] const std::string& usualAmount() const {
        return std::max_element(amounts.begin(), amounts.end(),
                                [](const auto& one, const auto& other) { return one.second < other.second; })
            ->first;
    }
};

/// What a line leaves out.
struct LeftOut {
    std::size_t instruments = 0;  ///< the most of an account
    std::string example;
};

class LeftOutCharges : public AcrossAccounts {
public:
    explicit LeftOutCharges(ChargesOf wanted) : chargesOf(wanted) {}

    void add(AccountFacts& facts) override {
        AccountCharges charges;
        for (const AlikeAnswer& alike : facts.answers()) {
            const std::vector<Share> shares = sharesOf(*alike.instruments);
            for (const FeeLine& line : alike.answer.lines) {
                // A fee of the exchange is the same for everybody who pays it.
                if (line.origin.position && line.origin.level != Level::kExchangeFee) {
                    addLine(facts, shares, line, charges);
                }
            }
        }
        std::set<GroupCharge> free;
        for (const auto& [which, out] : charges.leftOut) {
            LeftOut& all = missing[which];
            all.instruments = std::max(all.instruments, out.instruments);
            all.example = out.example;
            owners[which.second].insert(facts.number());
            free.insert(which.first);
        }
        for (const auto& [charge, amount] : charges.paid) {
            ++payers[charge].paying;
            ++payers[charge].amounts[amount];
            free.erase(charge);
        }
        for (const GroupCharge& charge : free) {
            ++payers[charge].free;
        }
    }

    void findIn(Findings& findings) const override {
        LineFaults faults;
        for (const auto& [which, out] : missing) {
            const auto& [charge, place] = which;
            const auto others = payers.find(charge);
            if (others == payers.end() || !others->second.areUsual()) {
                continue;
            }
            const std::set<std::string>& accounts = owners.at(place);
            faults.add(place, {accounts.begin(), accounts.end()},
                       fmt::format("{} {} 0 for {}, such as {}, and usually {} for {}", charge.name,
                                   charge.columns == 1 ? "is" : "are", counted(out.instruments, "instrument"),
                                   out.example, others->second.usualAmount(), charge.group),
                       fmt::format("write the {} that is due", charge.name));
        }
        faults.addTo(findings);
    }

private:
    /// The instruments of an answer that are in one group.
    struct Share {
        const std::string* group;
        const qmservice::CInstrument* first;
        std::size_t count;
    };

    /// By their first instruments.
    std::vector<Share> sharesOf(const InstrumentList& instruments) {
        std::unordered_map<const std::string*, std::size_t> known;
        std::vector<Share> shares;
        for (const qmservice::CInstrument* instrument : instruments) {
            const std::string*& group = groupOfInstrument[instrument];
            if (group == nullptr) {
                group = &*groups.insert(groupOf(*instrument)).first;
            }
            const auto share = known.emplace(group, shares.size());
            if (share.second) {
                shares.push_back({group, instrument, 0});
            }
            ++shares[share.first->second].count;
        }
        return shares;
    }

    /// What one account pays, and what its lines leave out.
    struct AccountCharges {
        std::map<GroupCharge, std::string> paid;
        std::map<std::pair<GroupCharge, Place>, LeftOut> leftOut;
    };

    void addLine(const AccountFacts& facts, const std::vector<Share>& shares, const FeeLine& line,
                 AccountCharges& charges) const {
        const standalone::RateRecords records = standalone::rateFamily(line.part).records;
        for (const TitledRates& titled : line.rates) {
            for (const Charge& each : chargesOf(line, titled)) {
                for (const Share& share : shares) {
                    const GroupCharge charge{records, *share.group, line.item, each.name, each.columns};
                    if (!each.amount.empty()) {
                        charges.paid[charge] = each.amount;
                        continue;
                    }
                    LeftOut& out = charges.leftOut[{charge, facts.folder().placeOf(*line.origin.position)}];
                    out.instruments += share.count;
                    out.example =
                        out.example.empty() ? instrumentText(share.first->market, share.first->code) : out.example;
                }
            }
        }
    }

    ChargesOf chargesOf;
    std::set<std::string> groups;
    std::unordered_map<const qmservice::CInstrument*, const std::string*> groupOfInstrument;  // of groups
    std::map<GroupCharge, Payers> payers;
    std::map<std::pair<GroupCharge, Place>, LeftOut> missing;
    std::map<Place, std::set<std::string>> owners;
};

}  // namespace

std::unique_ptr<AcrossAccounts> missingDuties() { return std::make_unique<LeftOutCharges>(dutiesOf); }

std::unique_ptr<AcrossAccounts> freeCommissions() { return std::make_unique<LeftOutCharges>(commissionsOf); }

}  // namespace feedesk::checking
