#include "support/fee_state.h"

namespace test {
namespace {

std::string text(const std::string& field, int rate) { return field + " " + std::to_string(rate) + ";"; }

std::string limitText(int rate) { return text("limit", rate); }

std::string optionText(int rate) { return "option 000 " + std::to_string(rate) + ",;"; }

std::string commissionText(int base) { return text("commission", base + 1); }

std::string marginText(int base) { return text("margin", base + 1); }

std::vector<std::string> marginTexts(int base) {
    return {marginText(base), marginText(base + 100), marginText(base + 200)};
}

std::string orDefault(const std::string& entry, const std::string& field) {
    return entry.empty() ? field + " default;" : entry;
}

std::string joined(const std::vector<std::string>& texts) {
    std::string all;
    for (const auto& part : texts) {
        all += part;
    }
    return all;
}

// Queries.

std::string futureAnswer(const FeeState& state, std::size_t i, const std::string& otherwise,
                         const std::string& marginsOtherwise) {
    const std::string margins = joined(state.margins[i]);
    if (state.commission[i].empty() && margins.empty()) {
        return otherwise;
    }
    return state.commission[i] + (margins.empty() ? marginsOtherwise : margins);
}

std::string primeBrokerageAnswer(const FeeState& state, const std::string& market, std::size_t i) {
    if (market.empty()) {
        return orDefault(state.stock[i], "limit") + orDefault(state.option[i], "option");
    }
    // The other markets' instruments have no entries.
    if (market == "DCE") {
        return kSimulationFee;
    }
    if (market == "CMEO") {
        return kIncomeSwapFee;
    }
    if (market == "HK" || market == "XX") {
        return kFullDefaultFee;
    }
    const std::string field = market == "SSEHKEX"    ? "hgt"
                              : market == "SZSEHKEX" ? "sgt"
                              : market == "SHO"      ? "option"
                                                     : "limit";
    return field + " default;";
}

std::string lookupAnswer(const FeeState& state, int kind, const std::string& market, std::size_t i) {
    switch (kind) {
        case 1:
        case 5:
            return futureAnswer(state, i, kSimulationFee, kDefaultMargins);
        case 2:
            return orDefault(state.stock[i], "limit");
        case 3:
            return orDefault(state.credit[i], "limit");
        case 6:
            return orDefault(state.option[i], "option");
        case 7:
            return orDefault(state.hgt[i], "hgt");
        case 8:
            return market.empty() ? orDefault(state.stock[i], "limit") : kIncomeSwapFee;
        case 10:
            return orDefault(state.neeq[i], "limit");
        case 11:
            return orDefault(state.sgt[i], "sgt");
        case 12:
            return primeBrokerageAnswer(state, market, i);
        case 16:
            return futureAnswer(state, i, kIncomeSwapFee, "");
        default:
            return "none";
    }
}

const FeeState::Row& listRow(const FeeState& state, int kind) {
    static const FeeState::Row none;
    switch (kind) {
        case 1:
        case 5:
            return state.commission;
        case 2:
            return state.stock;
        case 3:
            return state.credit;
        case 6:
            return state.option;
        case 7:
            return state.hgt;
        case 10:
            return state.neeq;
        case 11:
            return state.sgt;
        default:
            return none;
    }
}

// Changes.

/// Adds the state that follows the last one by a write.
template <class Write>
void addState(std::vector<FeeState>& states, const Write& write) {
    FeeState next = states.back();
    write(next);
    states.push_back(next);
}

FeeState::Row* limitRow(FeeState& state, int kind) {
    switch (kind) {
        case 2:
            return &state.stock;
        case 3:
            return &state.credit;
        case 6:
            return &state.option;
        case 7:
            return &state.hgt;
        case 10:
            return &state.neeq;
        case 11:
            return &state.sgt;
        default:
            return nullptr;
    }
}

std::string entryText(int kind, int rate) {
    switch (kind) {
        case 6:
            return optionText(rate);
        case 7:
            return text("hgt", rate);
        case 11:
            return text("sgt", rate);
        default:
            return limitText(rate);
    }
}

constexpr int kRate = static_cast<int>(kChangedRate);

/// What an update gives the instrument: the group's rate for "B". Shenzhen connect knows no groups.
int updateRate(int kind, std::size_t i) { return i == 1 && kind != 11 ? kRate + 10 : kRate; }

void addLimits(std::vector<FeeState>& states, const Operation& change) {
    const int kind = change.accountKind;
    for (std::size_t i = 0; i < FeeState::kInstruments; ++i) {
        const int rate =
            change.kind == Operation::Kind::kLoad ? kRate + static_cast<int>(i) : updateRate(change.accountKind, i);
        addState(states, [&](FeeState& state) { (*limitRow(state, kind))[i] = entryText(kind, rate); });
    }
}

void addFutureLoad(std::vector<FeeState>& states) {
    for (std::size_t i = 0; i < FeeState::kInstruments; ++i) {
        const int base = kRate + static_cast<int>(i);
        addState(states, [&](FeeState& state) { state.commission[i] = commissionText(base); });
        addState(states, [&](FeeState& state) { state.margins[i] = marginTexts(base); });
    }
}

void setSlot(FeeState& state, std::size_t i, std::size_t slot, const std::string& margin) {
    if (state.margins[i].empty()) {
        state.margins[i].assign(3, "margin -;");
    }
    state.margins[i].at(slot) = margin;
}

/// The group's margin is for the first slot, the one for all for the second.
void addFutureCustom(std::vector<FeeState>& states) {
    for (std::size_t i = 0; i < FeeState::kInstruments; ++i) {
        const int base = updateRate(5, i);
        addState(states, [&](FeeState& state) { state.commission[i] = commissionText(base); });
        addState(states, [&](FeeState& state) { setSlot(state, i, i == 1 ? 0 : 1, marginText(base)); });
    }
}

void addFutureInstrument(std::vector<FeeState>& states) {
    addState(states, [](FeeState& state) { state.commission[0] = commissionText(kRate); });
    for (std::size_t slot = 0; slot < 3; ++slot) {
        addState(states, [slot](FeeState& state) {
            setSlot(state, 0, slot, marginText(kRate + 100 * static_cast<int>(slot)));
        });
    }
}

}  // namespace

FeeState preparedState() {
    FeeState state;
    for (std::size_t i = 0; i < FeeState::kInstruments; ++i) {
        const int rate = 20 + static_cast<int>(i);
        state.option[i] = optionText(20);
        if (i + 1 < FeeState::kInstruments) {
            state.stock[i] = state.credit[i] = state.neeq[i] = limitText(rate);
            state.hgt[i] = text("hgt", rate);
            state.sgt[i] = text("sgt", rate);
            state.commission[i] = commissionText(rate);
            state.margins[i] = marginTexts(rate);
        }
    }
    return state;
}

std::vector<FeeState> statesThrough(const FeeState& before, const Operation& change) {
    std::vector<FeeState> states{before};
    if (change.name == "doInitStkOptionFee") {
        return states;
    }
    switch (change.accountKind) {
        case 1:
            addFutureLoad(states);
            break;
        case 5:
            addFutureCustom(states);
            break;
        case 12:
            addFutureInstrument(states);
            break;
        default:
            addLimits(states, change);
    }
    return states;
}

std::vector<std::size_t> listedIn(const FeeState& state, const Operation& list) {
    std::vector<std::size_t> listed;
    for (std::size_t i = 0; i < FeeState::kInstruments; ++i) {
        if (!listRow(state, list.accountKind)[i].empty()) {
            listed.push_back(i);
        }
    }
    return listed;
}

std::string entryIn(const FeeState& state, const Operation& list, std::size_t instrument) {
    // The NEEQ list answers from the stock tables.
    const int kind = list.accountKind == 10 ? 2 : list.accountKind;
    return std::string(1, "ABC"[instrument]) + ": " + lookupAnswer(state, kind, "", instrument) + " ";
}

std::string answerIn(const FeeState& state, const Operation& query, std::size_t instrument) {
    if (query.kind != Operation::Kind::kList) {
        return lookupAnswer(state, query.accountKind, query.market, instrument);
    }
    std::string all;
    for (const std::size_t i : listedIn(state, query)) {
        all += entryIn(state, query, i);
    }
    return all.empty() ? "no list" : all;
}

}  // namespace test
