#include "feedesk/reconciling/charged_lines.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <set>

namespace feedesk {
namespace {

std::string keyOf(const cost::ChargeLine& line) {
    return fmt::format("{}\n{}\n{}", line.term->charge, line.term->item,
                       line.rate == nullptr ? line.term->where : line.rate->source + '\n' + line.rate->level);
}

const std::vector<cost::ChargeLine>& planLines(const ReconciledOrder& charged) {
    return charged.tariff->planOf(charged.order.side(), charged.order.date()).lines;
}

std::string tradedIn(const ReconciledOrder& charged) { return charged.tariff->place().instrument(); }

}  // namespace

ChargedLines::ChargedLines(const OrdersByDay& orders) {
    for (ReconciledOrder* each : orders) {
        for (const cost::ChargeLine& charge : planLines(*each)) {
            const auto place = places.emplace(keyOf(charge), lines.size());
            if (place.second) {
                lines.push_back({{charge.term->charge, charge.term->item}, {}});
            }
            lines[place.first->second].orders.push_back(each);
        }
    }
}

std::vector<const ChargedLine*> ChargedLines::of(const ReconciledOrder& charged) const {
    std::vector<const ChargedLine*> found;
    for (const cost::ChargeLine& charge : planLines(charged)) {
        found.push_back(&lines[places.at(keyOf(charge))]);
    }
    return found;
}

std::vector<ChargedLine> byInstrument(const ChargedLine& line, const OrdersByDay& wanted) {
    std::set<std::string> instruments;
    for (const ReconciledOrder* each : wanted) {
        instruments.insert(tradedIn(*each));
    }
    std::vector<ChargedLine> lines;
    std::unordered_map<std::string, std::size_t> places;
    for (const std::string& instrument : instruments) {
        places.emplace(instrument, lines.size());
        lines.push_back({line.sought, {}, instrument});
    }
    for (ReconciledOrder* each : line.orders) {
        const auto place = places.find(tradedIn(*each));
        if (place != places.end()) {
            lines[place->second].orders.push_back(each);
        }
    }
    return lines;
}

ChargedLine joined(const std::vector<const ChargedLine*>& lines) {
    ChargedLine all{lines.front()->sought, {}, lines.front()->instrument};
    for (const ChargedLine* each : lines) {
        all.orders.insert(all.orders.end(), each->orders.begin(), each->orders.end());
    }
    std::stable_sort(all.orders.begin(), all.orders.end(),
                     [](const ReconciledOrder* one, const ReconciledOrder* other) {
                         return one->order.date() < other->order.date();
                     });
    return all;
}

OrdersByDay openOf(const OrdersByDay& orders) {
    OrdersByDay open;
    std::copy_if(orders.begin(), orders.end(), std::back_inserter(open),
                 [](const ReconciledOrder* each) { return each->isOpen(); });
    return open;
}

}  // namespace feedesk
