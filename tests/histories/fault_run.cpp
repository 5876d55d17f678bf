#include "histories/fault_run.h"

#include <functional>
#include <optional>
#include <vector>

#include "histories/answers.h"
#include "histories/fault_step.h"
#include "histories/handed.h"
#include "histories/pooled.h"
#include "histories/side_by_side.h"
#include "histories/states.h"
#include "histories/step.h"
#include "histories/tables.h"
#include "support/lock_probe.h"

namespace histories {
namespace {

class Run {
public:
    Run(World& theWorld, Focus theFocus, Trouble& theTrouble, FaultTotals& counts)
        : world(theWorld), focus(theFocus), trouble(theTrouble), totals(counts), both(theWorld) {}

    std::string run(const FaultyStep& step) {
        ++totals.steps;
        switch (step.kind) {
            case FaultyStep::Kind::change:
                return change(step);
            case FaultyStep::Kind::queueing:
                return queueing(step);
            case FaultyStep::Kind::query:
                return query(step);
            case FaultyStep::Kind::ordinary:
                break;
        }
        operationOf(step.rest, world, focus).apply(world, both);
        both.runJobs();
        return difference(both.state());
    }

    /// Every answer.
    std::string compareAll() { return both.compareAll(); }

    [[nodiscard]] std::uint64_t answers() const { return both.answersCompared(); }

private:
    /// A state that the fee center has reached, and by how many stores.
    struct Reached {
        std::size_t stores;
        model::Model state;
    };

    std::string change(const FaultyStep& step) {
        States states(both.state());
        const Apart change = apart(step.change);
        states.add(change.models);
        change.own.handTo(center);
        std::optional<std::size_t> atStrike;
        trouble.onStrike = [&] {
            if (const auto now = reached(states)) {
                atStrike = now->stores;
            }
        };
        const bool broken = strike(step.fault, [this] { host.runJobs(); });
        trouble.onStrike = nullptr;
        host.runJobs();
        if (!complaint.empty()) {
            return complaint;
        }
        if (!broken) {
            both.setState(states.last());
            return compareTables();
        }
        const auto after = reached(states);
        if (!after) {
            return "the tables are as after none of its stores; before the first, " + difference(states.at(0));
        }
        if (atStrike && *atStrike != after->stores) {
            return "it had made " + std::to_string(*atStrike) + " stores when it broke off, and then " +
                   std::to_string(after->stores);
        }
        both.setState(after->state);
        const std::string text = both.compareAll();
        return text.empty() ? compareTables(handed.differenceMidway()) : text;
    }

    /// A call that was broken off has queued nothing.
    std::string queueing(const FaultyStep& step) {
        const Apart change = apart(step.change);
        const bool broken = strike(step.fault, [&] { change.own.handTo(center); });
        const std::size_t ran = host.runJobs();
        if (!complaint.empty()) {
            return complaint;
        }
        if (broken && ran != 0) {
            return "a call that was broken off has queued a change";
        }
        if (!broken) {
            States states(both.state());
            states.add(change.models);
            both.setState(states.last());
        }
        return compareTables();
    }

    std::string query(const FaultyStep& step) {
        const Query& asked = step.query;
        std::vector<Fee> fees;
        const bool broken = strike(step.fault, [&] {
            if (asked.question != nullptr) {
                fees.push_back(center.getFee(asked.account, asked.question->key));
            } else {
                center.getFees(asked.account, fees);
            }
        });
        for (const Fee& fee : fees) {
            if (complaint.empty()) {
                complaint = differenceFromAll(asked, fee);
            }
        }
        if (broken && asked.question != nullptr && !fees.empty()) {
            complaint += "an answer came out of a call that was broken off";
        }
        fees.clear();
        return complaint.empty() ? compareTables() : complaint;
    }

    /// Runs `work` with the fault; whether it was broken off.
    bool strike(const Fault& fault, const std::function<void()>& work) {
        const auto result = trouble.run(work, fault.before, fault.forGood);
        totals.calls += result.strikes > 0 ? 1 : 0;
        totals.strikes += static_cast<std::uint64_t>(result.strikes);
        if (!result.other.empty()) {
            complaint = "another exception left it: " + result.other;
        } else if (result.left != (result.strikes > 0)) {
            complaint = "what was thrown did not leave the call";
        } else if (const std::string held = test::heldLocks(center); !held.empty()) {
            complaint = "a lock is still held: " + held;
        }
        return result.strikes > 0;
    }

    /// A change with records for the fee center alone, and with records for the model alone.
    struct Apart {
        FeeChange own;
        FeeChange models;
    };

    /// The fee center's records are watched.
    Apart apart(const FeeChange& change) {
        Apart each{change.copy(), change.copy()};
        handed.watch(each.own.handedIn(), each.models.handedIn());
        return each;
    }

    /// The tables and what was handed in.
    std::string compareTables() { return compareTables(handed.difference()); }
    std::string compareTables(const std::string& ofHanded) {
        const std::string text = difference(both.state()) + ofHanded;
        handed.clear();
        return text;
    }

    std::string difference(const model::Model& state) {
        return differenceOfTables(both.sharedRecords(), state, center);
    }

    /// Which of the states the tables are in. Of the store after it some records may be pooled.
    std::optional<Reached> reached(const States& states) {
        for (std::size_t store = 0; store < states.count(); ++store) {
            model::Model state = states.at(store);
            if (store + 1 < states.count()) {
                adoptPooled(state, states.at(store + 1), center);
            }
            if (difference(state).empty()) {
                return Reached{store, state};
            }
        }
        return {};
    }

    /// What is wrong with a fee, which must be one of those that the model answers.
    std::string differenceFromAll(const Query& asked, const Fee& fee) {
        bool known = false;
        auto expected = both.state().getFees(asked.account, known);
        if (asked.question != nullptr) {
            expected = {both.state().getFee(asked.account, asked.question->key)};
        }
        std::string text = "a fee that the model does not list";
        for (const Fee& candidate : expected) {
            text = differenceOfAnswers(both.sharedRecords(), candidate, fee);
            if (text.empty()) {
                break;
            }
        }
        return text;
    }

    World& world;
    Focus focus;
    Trouble& trouble;
    FaultTotals& totals;
    SideBySide both;
    test::OpenFeeCenter& center = both.feeCenter();
    test::FakeHost& host = test::FakeHost::instance();
    Handed handed;
    std::string complaint;
};

std::string describeSteps(const History& history, Focus focus) {
    const World world;
    std::string text;
    for (std::size_t i = 0; i < history.size(); ++i) {
        text += "  " + std::to_string(i + 1) + ". " + describe(stepOf(history[i], world, focus), world, focus) + '\n';
    }
    return text;
}

}  // namespace

std::string runWithFaults(const History& history, Focus focus, Trouble& trouble, FaultTotals& totals) {
    World world;
    Run run(world, focus, trouble, totals);
    std::string text = run.compareAll();
    std::size_t steps = 0;
    while (text.empty() && steps < history.size()) {
        text = run.run(stepOf(history[steps++], world, focus));
    }
    if (text.empty()) {
        text = run.compareAll();
    }
    ++totals.histories;
    totals.answers += run.answers();
    return text.empty() ? text
                        : "With faults (" + std::string(nameOf(focus)) + "), after step " + std::to_string(steps) +
                              ", " + text + '\n' + describeSteps(history, focus);
}

std::string describe(const FaultTotals& totals) {
    return std::to_string(totals.histories) + " histories, " + std::to_string(totals.steps) + " steps, " +
           std::to_string(totals.calls) + " calls broken off, " + std::to_string(totals.answers) + " answers compared";
}

}  // namespace histories
