#include "feedesk/reconciling/other_limit.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace feedesk {

using cost::Decimal;

namespace {

std::string sentenceOf(const OtherLimit& other, const cost::Term& term) {
    if (other.limit == Limit::kBoth) {
        return fmt::format("a {} of {} for each {}, whatever its size{} ({})", term.charge, other.amount.text(),
                           cost::wordFor(term.per),
                           term.minimum ? fmt::format(", and not at least {}", term.minimum->text()) : "", term.where);
    }
    const bool isLeast = other.limit == Limit::kLeast;
    const std::optional<Decimal>& own = isLeast ? term.minimum : term.maximum;
    return fmt::format("a {} {} of {}", isLeast ? "least" : "highest", term.charge, other.amount.text()) +
           (own ? fmt::format(" and not {} ({})", own->text(), term.where)
                : fmt::format(", where {} has none", term.where));
}

TermCells limitCells(const OtherLimit& other, const cost::Term& term) {
    TermCells cells;
    if (other.limit != Limit::kMost) {
        cells.push_back({term.where, "minimum", other.amount.text()});
    }
    if (other.limit != Limit::kLeast) {
        cells.push_back({term.where, "maximum", other.amount.text()});
    }
    return cells;
}

}  // namespace

cost::Term withLimit(const cost::Term& term, const OtherLimit& other) {
    cost::Term changed = term;
    if (other.limit != Limit::kMost) {
        changed.minimum = other.amount;
    }
    if (other.limit != Limit::kLeast) {
        changed.maximum = other.amount;
    }
    return changed;
}

Decimal amountOf(const cost::Term& term, Decimal amount) {
    amount = term.minimum ? std::max(amount, *term.minimum) : amount;
    amount = term.maximum ? std::min(amount, *term.maximum) : amount;
    return term.rounding ? term.rounding->rounded(amount) : amount;
}

bool isUsual(const OtherLimit& other) {
    static const std::vector<Decimal> leasts = [] {
        std::vector<Decimal> amounts;
        for (const char* text : {"0.1", "0.2", "0.5", "1", "2", "3", "5", "10", "15", "20", "30", "50", "100"}) {
            amounts.push_back(*Decimal::parse(text));
        }
        return amounts;
    }();
    const bool isOne = std::find(leasts.begin(), leasts.end(), other.amount) != leasts.end();
    return isOne && (other.limit == Limit::kLeast || other.amount >= Decimal(10));
}

void noteLimit(Trial& trial, const OtherLimit& other, const cost::Term& term) {
    const std::string sentence = sentenceOf(other, term);
    trial.note(other.limit == Limit::kMost ? Cause::kOtherMaximum : Cause::kOtherMinimum, sentence, sentence,
               trial.withTermsChanged([&](cost::Term& each) {
                   if (each.where == term.where && each.charge == term.charge) {
                       each = withLimit(each, other);
                   }
               }),
               limitCells(other, term));
}

}  // namespace feedesk
