#include "feedesk/reconciling/comparison.h"

#include <algorithm>
#include <array>

namespace feedesk {
namespace {

/// How a statement spreads the same costs over its columns.
enum class Spread {
    kPaid,   ///< what is inside a charge is in its column
    kApart,  ///< what is inside a charge has a column of its own
    kAllIn   ///< a column has all that it may hold
};

bool holds(const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// Which parts belong to which column.
class ComparedColumns {
public:
    ComparedColumns(const Layout& statementLayout, Spread way) : layout(statementLayout), spread(way) {}

    [[nodiscard]] Span expected(const ChargeColumn& column, const Amounts& amounts) const {
        Span sum;
        for (const Part& part : amounts.parts) {
            if (belongs(column, part.charge)) {
                sum += of(column, part, amounts);
            }
        }
        return sum;
    }

private:
    [[nodiscard]] bool belongs(const ChargeColumn& column, const std::string& charge) const {
        if (spread == Spread::kAllIn && column.stated == Stated::kPaid) {
            const auto inAnother = std::find_if(layout.charges.begin(), layout.charges.end(),
                                                [&](const ChargeColumn& each) { return holds(each.allIn, charge); });
            if (inAnother != layout.charges.end()) {
                return inAnother->name == column.name;
            }
        }
        return column.charges.empty() ? isRest(charge) : holds(column.charges, charge);
    }

    [[nodiscard]] bool isRest(const std::string& charge) const {
        return std::none_of(layout.charges.begin(), layout.charges.end(), [&](const ChargeColumn& each) {
            return each.stated == Stated::kPaid && holds(each.charges, charge);
        });
    }

    [[nodiscard]] Span of(const ChargeColumn& column, const Part& part, const Amounts& amounts) const {
        if (column.stated == Stated::kWhole) {
            return part.again ? Span() : part.amount;
        }
        if (part.again && column.stated == Stated::kOwn) {
            return {};
        }
        if (column.stated == Stated::kOwn || spread == Spread::kApart) {
            return amounts.own(part);
        }
        return part.isPaid() ? part.amount : Span();
    }

    const Layout& layout;
    Spread spread;
};

void addSums(const StatedAmounts& stated, const Amounts& expected, const Layout& layout, Figures& figures) {
    if (stated.net) {
        figures.push_back({"net", *stated.net, expected.net()});
    } else {
        figures.push_back({"costs", stated.costs(layout, expected), expected.costs()});
    }
}

}  // namespace

cost::Decimal StatedAmounts::costs(const Layout& layout, const Amounts& traded) const {
    if (net) {
        return cost::Decimal(traded.sign) * traded.turnover - *net;
    }
    cost::Decimal sum;
    for (std::size_t i = 0; i < charges.size(); ++i) {
        sum += charges[i] && layout.charges[i].stated == Stated::kPaid ? *charges[i] : cost::Decimal();
    }
    return sum;
}

Figures figuresOf(const StatedAmounts& stated, const Amounts& expected, const Layout& layout) {
    Figures best;
    for (const Spread spread : {Spread::kPaid, Spread::kApart, Spread::kAllIn}) {
        const ComparedColumns columns(layout, spread);
        Figures figures;
        addSums(stated, expected, layout, figures);
        for (std::size_t i = 0; i < stated.charges.size(); ++i) {
            if (stated.charges[i]) {
                figures.push_back(
                    {layout.charges[i].name, *stated.charges[i], columns.expected(layout.charges[i], expected)});
            }
        }
        if (best.empty() || disagreeing(figures) < disagreeing(best)) {
            best = std::move(figures);
        }
    }
    return best;
}

std::size_t disagreeing(const Figures& figures) {
    return static_cast<std::size_t>(
        std::count_if(figures.begin(), figures.end(), [](const Figure& figure) { return !figure.agrees(); }));
}

bool agree(const Figures& figures) { return disagreeing(figures) == 0; }

bool agree(const StatedAmounts& stated, const Amounts& expected, const Layout& layout) {
    Figures sums;
    addSums(stated, expected, layout, sums);
    return agree(sums) && agree(figuresOf(stated, expected, layout));
}

}  // namespace feedesk
