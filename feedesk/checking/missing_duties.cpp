#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <tuple>
#include <utility>

#include "feedesk/checking/duty_cuts.h"
#include "feedesk/checking/line_faults.h"
#include "feedesk/checking/topics.h"
#include "feedesk/instruments/instrument_text.h"
#include "feedesk/text/numbers.h"

// Who pays a duty and who does not depends on what is traded: shares pay it, funds do not. No table says which is
// which, so that the answers of all accounts do: where most accounts pay it for instruments of a group, a line that
// leaves it out is a fault.

namespace feedesk::checking {
namespace {

constexpr std::size_t kCodeBeginning = 3;  // "600", "510", "007": of instruments without a product

std::string groupOf(const qmservice::CInstrument& instrument) {
    return instrument.productId.empty()
               ? instrumentText(instrument.market, instrument.code.substr(0, kCodeBeginning) + "*")
               : "product " + instrument.productId;
}

/// A duty on a group of instruments.
struct Duty {
    standalone::RateRecords records;  ///< of the families that pay it
    std::string group;
    std::string column;

    friend bool operator<(const Duty& one, const Duty& other) {
        return std::tie(one.records, one.group, one.column) < std::tie(other.records, other.group, other.column);
    }
};

/// How many accounts pay a duty, and how many have lines without it.
struct Payers {
    std::size_t paying = 0;
    std::size_t free = 0;
    std::map<double, std::size_t> rates;  // how many accounts pay which

    /// Of as many accounts without the duty as with it nobody can say that they are the exception.
    [[nodiscard]] bool areUsual() const { return paying > 0 && paying >= free; }
    [[nodiscard]] double usualRate() const {
        return std::max_element(rates.begin(), rates.end(),
                                [](const auto& one, const auto& other) { return one.second < other.second; })
            ->first;
    }
};

/// What a line leaves out.
struct LeftOut {
    std::size_t instruments = 0;  ///< the most of an account
    std::string example;
};

class MissingDuties : public AcrossAccounts {
public:
    void add(AccountFacts& facts) override {
        std::map<Duty, double> paid;
        std::map<std::pair<Duty, Place>, LeftOut> leftOut;
        for (const Answer& answer : facts.answers()) {
            for (const FeeLine& line : answer.lines) {
                if (line.origin.position) {
                    addLine(facts, *answer.instrument, line, paid, leftOut);
                }
            }
        }
        std::set<Duty> free;
        for (const auto& [which, out] : leftOut) {
            LeftOut& all = missing[which];
            all.instruments = std::max(all.instruments, out.instruments);
            all.example = out.example;
            owners[which.second].insert(facts.number());
            free.insert(which.first);
        }
        for (const auto& [duty, rate] : paid) {
            ++payers[duty].paying;
            ++payers[duty].rates[rate];
            free.erase(duty);
        }
        for (const Duty& duty : free) {
            ++payers[duty].free;
        }
    }

    void findIn(Findings& findings) const override {
        LineFaults faults;
        for (const auto& [which, out] : missing) {
            const auto& [duty, place] = which;
            const auto others = payers.find(duty);
            if (others == payers.end() || !others->second.areUsual()) {
                continue;
            }
            const double usual = others->second.usualRate();
            const std::set<std::string>& accounts = owners.at(place);
            faults.add(place, {accounts.begin(), accounts.end()},
                       fmt::format("{} is 0 for {}, such as {}, and usually {} for {}", duty.column,
                                   counted(out.instruments, "instrument"), out.example, plainNumber(usual), duty.group),
                       fmt::format("write the {} that is due", duty.column));
        }
        faults.addTo(findings);
    }

private:
    void addLine(const AccountFacts& facts, const qmservice::CInstrument& instrument, const FeeLine& line,
                 std::map<Duty, double>& paid, std::map<std::pair<Duty, Place>, LeftOut>& leftOut) {
        for (const TitledRates& titled : line.rates) {
            for (const ShownRate& rate : titled.rates) {
                if (!isDuty(rate.column)) {
                    continue;
                }
                const Duty duty{standalone::rateFamily(line.part).records, groupOf(instrument), rate.column};
                if (rate.value != 0) {
                    paid[duty] = rate.value;
                    continue;
                }
                LeftOut& out = leftOut[{duty, facts.folder().placeOf(*line.origin.position)}];
                ++out.instruments;
                out.example =
                    out.example.empty() ? instrumentText(instrument.market, instrument.code) : std::move(out.example);
            }
        }
    }

    std::map<Duty, Payers> payers;
    std::map<std::pair<Duty, Place>, LeftOut> missing;
    std::map<Place, std::set<std::string>> owners;
};

}  // namespace

std::unique_ptr<AcrossAccounts> missingDuties() { return std::make_unique<MissingDuties>(); }

}  // namespace feedesk::checking
