#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

#include "cost/pattern.h"
#include "cost/place.h"
#include "standalone/families.h"
#include "standalone/loader/charge_columns.h"
#include "standalone/loader/charge_ties.h"
#include "standalone/loader/day_columns.h"
#include "standalone/loader/lists.h"
#include "standalone/loader/tables.h"
#include "standalone/market_files.h"
#include "standalone/text/escape.h"
#include "standalone/text/wording.h"

namespace standalone::loader {
namespace {

using cost::Term;
using ReadCharge = ReadLine<Term>;

/// Reads the lines, and checks in each what its cells say together.
class ChargesReader {
public:
    explicit ChargesReader(Load& underWay) : load(underWay) {}

    void read() {
        const bool complete =
            readTable<Term>(load, files::kCharges, chargeColumns(load), [&](ReadCharge& read) { take(read); });
        // A line that could not be read may charge anything, so the lines are not compared.
        if (complete && allWhole) {
            compareLines();
        }
    }

private:
    void take(ReadCharge& read) {
        read.line.where = load.market.where(read.position);
        read.whole = read.whole && daysAreInOrder(load, files::kCharges, read.position, read.line.dates);
        allWhole = allWhole && read.whole;
        if (!read.whole) {
            return;
        }
        for (const std::string& fault : cost::faultsOf(read.line)) {
            report(read.position, "", fault);
        }
        checkCharge(read);
        checkAccount(read);
        checkInstruments(read);
        load.terms.push_back(read.line);
        positions.push_back(read.position);
    }

    void compareLines() {
        for (const auto& faults : {cost::conflictsOf(load.terms), chargeTies(load)}) {
            for (const cost::TermFault& fault : faults) {
                report(positions[fault.term], "", fault.sentence);
            }
        }
    }

    void report(Position position, const char* column, const std::string& sentence,
                ErrorKind kind = ErrorKind::kCharge) {
        load.errors.add({files::kCharges, position.line, column}, kind, sentence);
    }

    /// The charge is a rate of the fee center, or its own where the line gives the rate.
    void checkCharge(const ReadCharge& read) {
        const Term& term = read.line;
        const std::vector<std::string> rates = rateColumnNames(load.market, rateFamilyOf(term.family));
        const bool isRate = std::find(rates.begin(), rates.end(), term.charge) != rates.end();
        if (!load.ratesComplete || isRate != term.rate.has_value()) {
            return;
        }
        report(read.position, "charge",
               isRate
                   ? fmt::format("column charge holds {}, a rate of the fee center, and column rate {}, but only a "
                                 "charge of another name has a rate of its own; empty the rate or rename the charge",
                                 inQuotes(term.charge), term.rate->text())
                   : fmt::format("column charge holds {}, but a rate of family {} was expected, which are {}; correct "
                                 "it, or give the line a rate of its own{}",
                                 inQuotes(term.charge), cost::wordFor(term.family), oneOf(rates),
                                 suggestion(term.charge, rates)),
               ErrorKind::kWord);
    }

    /// Whether an account that the line is for trades in its family.
    [[nodiscard]] bool hasAccount(const Term& term) const {
        const std::string_view wanted = cost::pattern(term.account);
        return std::any_of(load.market.accounts.begin(), load.market.accounts.end(), [&](const Account& account) {
            const AccountKindInfo* kind = findAccountKind(account.record->accountType);
            const bool isBadLine = kind == nullptr;
            return cost::matchesPattern(account.record->accountId, wanted) && (isBadLine || kind->trades(term.family));
        });
    }

    void checkAccount(const ReadCharge& read) {
        const Term& term = read.line;
        if (cost::pattern(term.account).empty() || !load.accounts.complete) {
            return;
        }
        const auto [known, isNew] = accountsThere.try_emplace({term.family, term.account}, false);
        if (isNew) {
            known->second = hasAccount(term);
        }
        if (known->second) {
            return;
        }
        report(read.position, "account",
               fmt::format("column account holds {}, but no such account of {} trades in family {}; correct "
                           "the account or the family",
                           inQuotes(term.account), files::kAccounts, cost::wordFor(term.family)),
               ErrorKind::kNoMatch);
    }

    /// Whether the catalogue has an instrument of the family that the line is for.
    [[nodiscard]] bool hasInstrument(Term term) const {
        term.account.clear();
        const Lists& lists = rateFamilyOf(term.family).lists;
        return std::any_of(
            load.market.instruments.begin(), load.market.instruments.end(), [&](const ListedInstrument& listed) {
                const qmservice::CInstrument& record = *listed.record;
                return lists.hold(listed) &&
                       cost::appliesTo(term, {term.family, "", record.market, record.code, record.productId});
            });
    }

    void checkInstruments(const ReadCharge& read) {
        const Term& term = read.line;
        const bool isAny = cost::pattern(term.market).empty() && cost::pattern(term.code).empty() &&
                           cost::pattern(term.product).empty();
        if (isAny || !load.instrumentsWhole) {
            return;
        }
        const auto [known, isNew] = instrumentsThere.try_emplace({term.family, term.market, term.code, term.product});
        if (isNew) {
            known->second = hasInstrument(term);
        }
        if (known->second) {
            return;
        }
        report(read.position, "",
               fmt::format("the line matches no instrument: none of the list {} has the market {}, the code {} and the "
                           "product {}; correct the line or remove it",
                           listNames(rateFamilyOf(term.family).lists), orAny(term.market), orAny(term.code),
                           orAny(term.product)),
               ErrorKind::kNoMatch);
    }

    static std::string orAny(const std::string& text) { return text.empty() ? inQuotes("*") : inQuotes(text); }

    Load& load;
    std::vector<Position> positions;  ///< of the terms
    bool allWhole = true;
    std::map<std::pair<cost::Family, std::string>, bool> accountsThere;
    std::map<std::tuple<cost::Family, std::string, std::string, std::string>, bool> instrumentsThere;
};

}  // namespace

void readCharges(Load& load) {
    if (load.hasFile(files::kCharges)) {
        ChargesReader(load).read();
    }
}

}  // namespace standalone::loader
