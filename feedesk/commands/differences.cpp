#include "feedesk/commands/differences.h"

#include <fmt/format.h>

#include <map>
#include <set>

#include "feedesk/text/numbers.h"

namespace feedesk {
namespace {

/// Gives the items to the section that is next, where it is shown.
template <class Item, class IsMarked>
void giveSection(const std::vector<Item>& items, const FieldsOf<Item>& fields, const IsMarked& isMarked, bool isShown,
                 std::size_t& section, RowSink& sink) {
    for (const Item& item : items) {
        Row row = rowOf(fields, item);
        row.section = section;
        row.marked = isMarked(item);
        sink.row(row);
    }
    section += isShown ? 1 : 0;
}

}  // namespace

void Differences::judge(Expectation& expectation) {
    for (ChangeRow& row : changes) {
        row.judgement = expectation.judge(row.accounts);
    }
    judgeTerms(expectation);
    for (ApartRow& row : apart) {
        row.judgement = row.accounts.empty()
                            ? expectation.judgeOther(counted(row.names.size(), row.noun) + " " + row.words)
                            : expectation.judge(row.accounts);
    }
    for (CoverageRow& row : coverage) {
        row.judgement = expectation.judgeOther(row.loss.sentence);
    }
}

/// Those of no account in particular are shown together.
void Differences::judgeTerms(Expectation& expectation) {
    std::set<const cost::Term*> shared;
    for (TermRow& row : terms) {
        const std::string account = row.account();
        if (!account.empty()) {
            row.judgement = expectation.judge({account});
        } else {
            shared.insert(row.change.termBefore);
        }
    }
    if (shared.empty()) {
        return;
    }
    const Judgement judgement = expectation.judgeOther(counted(shared.size(), "charging term") + " changed");
    for (TermRow& row : terms) {
        row.judgement = row.account().empty() ? judgement : row.judgement;
    }
}

Sections Differences::sections() const {
    Sections all;
    if (shows(changes.size())) {
        all.push_back(sectionOf("Rates", changeFields()));
    }
    if (shows(terms.size())) {
        all.push_back(sectionOf("Charging terms", termFields()));
    }
    if (shows(apart.size())) {
        all.push_back(sectionOf("In one folder only", apartFields()));
    }
    if (shows(coverage.size())) {
        all.push_back(sectionOf("Days without answers", coverageFields()));
    }
    if (withCosts) {
        all.push_back(sectionOf("Costs of the trades", costsFields()));
    }
    return all;
}

void Differences::giveTo(RowSink& sink) const {
    const auto isUnexpected = [](const auto& row) { return row.judgement == Judgement::kUnexpected; };
    const auto never = [](const AccountCosts& /*costs*/) { return false; };
    std::size_t section = 0;
    giveSection(changes, changeFields(), isUnexpected, shows(changes.size()), section, sink);
    giveSection(terms, termFields(), isUnexpected, shows(terms.size()), section, sink);
    giveSection(apart, apartFields(), isUnexpected, shows(apart.size()), section, sink);
    giveSection(coverage, coverageFields(), isUnexpected, shows(coverage.size()), section, sink);
    giveSection(costs, costsFields(), never, withCosts, section, sink);
}

std::vector<std::string> Differences::sums() const {
    std::map<std::string, AccountCosts> all;  // by currency
    for (const AccountCosts& each : costs) {
        AccountCosts& sum = all[each.currency];
        sum.trades += each.trades;
        sum.before += each.before;
        sum.after += each.after;
    }
    std::vector<std::string> sentences;
    sentences.reserve(all.size());
    for (const auto& [currency, sum] : all) {
        sentences.push_back(fmt::format("{}: {} {} by the old folder, {} by the new, a difference of {}",
                                        counted(sum.trades, "trade"), sum.before.text(2), currency, sum.after.text(2),
                                        sum.difference().text(2)));
    }
    return sentences;
}

}  // namespace feedesk
