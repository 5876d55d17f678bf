#include "standalone/loader/charge_ties.h"

#include <algorithm>
#include <map>
#include <optional>

#include "cost/ties.h"
#include "standalone/families.h"

namespace standalone::loader {
namespace {

using Indices = std::vector<std::size_t>;

/// Looks for a place where a tie is not settled. Accounts that the same more specific terms are for are alike to it,
/// and so are instruments: one of each is looked at.
class TieSearch {
public:
    TieSearch(const Load& loaded, const cost::Tie& tieInQuestion) : load(loaded), tie(tieInQuestion) {}

    [[nodiscard]] std::optional<cost::Place> place() const {
        const std::map<Indices, const CInstrument*> instruments = instrumentsByTerms();
        if (instruments.empty()) {
            return std::nullopt;
        }
        for (const auto& [ofAccount, account] : accountsByTerms()) {
            for (const auto& [ofInstrument, instrument] : instruments) {
                Indices applying;
                std::set_intersection(ofAccount.begin(), ofAccount.end(), ofInstrument.begin(), ofInstrument.end(),
                                      std::back_inserter(applying));
                if (!cost::isSettled(load.terms, tie, applying)) {
                    return cost::Place{family(), account, instrument->market, instrument->code, instrument->productId};
                }
            }
        }
        return std::nullopt;
    }

private:
    using CInstrument = qmservice::CInstrument;

    [[nodiscard]] cost::Family family() const { return load.terms[tie.later].family; }

    /// Which of the terms above apply, where those of the tie do; empty where one of these does not.
    template <class Applies>
    [[nodiscard]] std::optional<Indices> applying(const Applies& applies) const {
        if (!applies(load.terms[tie.earlier]) || !applies(load.terms[tie.later])) {
            return std::nullopt;
        }
        Indices found;
        std::copy_if(tie.above.begin(), tie.above.end(), std::back_inserter(found),
                     [&](std::size_t index) { return applies(load.terms[index]); });
        return found;
    }

    [[nodiscard]] std::map<Indices, std::string> accountsByTerms() const {
        std::map<Indices, std::string> found;
        for (const Account& account : load.market.accounts) {
            const AccountKindInfo* kind = findAccountKind(account.record->accountType);
            if (kind == nullptr || !kind->trades(family())) {
                continue;
            }
            const std::string& number = account.record->accountId;
            if (const auto terms = applying([&](const cost::Term& term) { return cost::isForAccount(term, number); })) {
                found.emplace(*terms, number);
            }
        }
        return found;
    }

    [[nodiscard]] std::map<Indices, const CInstrument*> instrumentsByTerms() const {
        std::map<Indices, const CInstrument*> found;
        const Lists& lists = rateFamilyOf(family()).lists;
        for (const ListedInstrument& listed : load.market.instruments) {
            const CInstrument& record = *listed.record;
            const auto isFor = [&](const cost::Term& term) {
                return cost::isForInstrument(term, record.market, record.code, record.productId);
            };
            if (const auto terms = lists.hold(listed) ? applying(isFor) : std::nullopt) {
                found.emplace(*terms, &record);
            }
        }
        return found;
    }

    const Load& load;
    const cost::Tie& tie;
};

}  // namespace

std::vector<cost::TermFault> chargeTies(const Load& load) {
    std::vector<cost::TermFault> faults;
    for (const cost::Tie& tie : cost::tiesOf(load.terms)) {
        if (const auto place = TieSearch(load, tie).place()) {
            faults.push_back({tie.later, cost::tieSentence(load.terms, tie, *place)});
        }
    }
    return faults;
}

}  // namespace standalone::loader
