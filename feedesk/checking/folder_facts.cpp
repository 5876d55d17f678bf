#include "feedesk/checking/folder_facts.h"

#include <cmath>
#include <string_view>

#include "standalone/families.h"
#include "standalone/text/numbers.h"

namespace feedesk::checking {
namespace {

using standalone::RateFamily;
using standalone::RateRecords;
using standalone::loader::KeptLine;

bool endsWith(std::string_view text, std::string_view end) {
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

/// For families whose rates have fixed names: from the name of the column.
RateKind kindOfFixed(const RateFamily& family, std::string_view column) {
    if (endsWith(column, "_by_money")) {
        return family.records == RateRecords::kMargin ? RateKind::kMargin : RateKind::kFraction;
    }
    return endsWith(column, "_by_volume") ? RateKind::kYuan : RateKind::kUnknown;
}

RateCell cellOf(const standalone::Market& market, const KeptLine& kept, std::size_t field) {
    const RateFamily& family = *kept.line->family;
    const double value = kept.rates().at(field);
    if (!family.isNamed) {
        const char* column = family.rates[field].column;
        return {field, column, kindOfFixed(family, column), value};
    }
    const standalone::NamedRate& named = market.rateNames.at(family.name)[field];
    return {field, named.column, named.unit == standalone::RateUnit::kYuan ? RateKind::kYuan : RateKind::kFraction,
            value};
}

}  // namespace

Place FolderFacts::placeOf(standalone::Position position) const {
    return {market.files.at(position.file), position.line};
}

std::vector<std::string> FolderLine::accounts() const {
    return account == nullptr ? std::vector<std::string>() : std::vector<std::string>{account->accountId};
}

bool isAhead(const FolderFacts& facts, const FolderLine& line) {
    return line.kept->line->days.overlaps({facts.day, std::nullopt});
}

void forEachLine(const FolderFacts& facts, const std::function<void(const FolderLine& line)>& visit) {
    const standalone::loader::CheckedFolder& lines = facts.folder.content();
    for (std::size_t i = 0; i < lines.accountLines.size(); ++i) {
        const qmservice::CAccountInfo* account = facts.market.accounts[i].record.get();
        for (const standalone::loader::KeptFeeLine& kept : lines.accountLines[i].fees) {
            visit({&kept, account, facts.placeOf(kept.position), &kept, nullptr});
        }
        for (const KeptLine& kept : lines.accountLines[i].customFees) {
            visit({&kept, account, facts.placeOf(kept.position), nullptr, nullptr});
        }
    }
    for (const standalone::loader::ConfiguredLine& kept : lines.configuredLines) {
        visit({&kept, nullptr, facts.placeOf(kept.position), nullptr, &kept});
    }
}

bool looksLikePercent(const RateCell& cell) {
    return cell.kind == RateKind::kFraction && std::abs(cell.value) >= kLooksLikePercent;
}

std::vector<RateCell> rateCells(const FolderFacts& facts, const KeptLine& kept) {
    const standalone::loader::LineRates rates = kept.rates();
    std::vector<RateCell> cells;
    for (std::size_t field = 0; field < kept.line->family->rates.size(); ++field) {
        if (rates[field] != 0) {
            cells.push_back(cellOf(facts.market, kept, field));
        }
    }
    return cells;
}

double ownRate(const cost::Term& term) {
    const bool hasOne = term.rate && term.basis == cost::Basis::kTurnover;
    return hasOne ? standalone::numberIn<double>(term.rate->text()).value_or(0) : 0;
}

std::vector<std::string> accountsOf(const cost::Term& term) {
    const bool isOfOne = !term.account.empty() && term.account.find('*') == std::string::npos;
    return isOfOne ? std::vector<std::string>{term.account} : std::vector<std::string>();
}

}  // namespace feedesk::checking
