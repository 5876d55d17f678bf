#include "histories/script.h"

#include "histories/record_fields.h"
#include "histories/step.h"

namespace histories {
namespace {

std::size_t preparingSteps(const History& history) { return history.size() / 4; }

bool sameAnswers(const Query& query, const model::Model& before, const model::Model& after) {
    if (query.question != nullptr) {
        return same(before.getFee(query.account, query.question->key),
                    after.getFee(query.account, query.question->key));
    }
    bool knownBefore = false;
    bool knownAfter = false;
    const auto listBefore = before.getFees(query.account, knownBefore);
    const auto listAfter = after.getFees(query.account, knownAfter);
    return knownBefore == knownAfter && same(listBefore, listAfter);
}

}  // namespace

std::string prepare(World& world, SideBySide& both, const History& history, Focus focus) {
    for (std::size_t i = 0; i < preparingSteps(history); ++i) {
        operationOf(history[i], world, focus).apply(world, both);
    }
    both.runJobs();
    const std::string text = both.compareAll();
    return text.empty() ? text : "before the changes, " + text;
}

std::vector<ScriptedChange> changesOf(const History& history, const World& world, Focus focus) {
    std::vector<ScriptedChange> changes;
    for (std::size_t i = preparingSteps(history); i < history.size(); ++i) {
        Bytes bytes(history[i]);
        const std::size_t way = bytes.pick(256);
        changes.push_back({way, chooseFeeChange(bytes, world, focus)});
    }
    return changes;
}

std::string describeScript(const History& history, Focus focus) {
    const World world;
    const History preparing(history.begin(), history.begin() + static_cast<std::ptrdiff_t>(preparingSteps(history)));
    std::string text = preparing.empty() ? "" : " before the changes\n";
    for (const Step& step : preparing) {
        text += "  " + operationOf(step, world, focus).describe() + '\n';
    }
    std::size_t number = 0;
    for (const auto& scripted : changesOf(history, world, focus)) {
        text += "  " + std::to_string(++number) + ". (way " + std::to_string(scripted.way) + ") " +
                scripted.change.describe() + '\n';
    }
    return text;
}

std::string describe(const Query& query) {
    const std::string account = " of the account of " + show(query.account);
    return query.question != nullptr ? "getFee" + account + " for \"" + query.question->key + '"' : "getFees" + account;
}

std::vector<Query> changedQueries(const World& world, const std::set<model::uint64>& accountKeys,
                                  const model::Model& before, const model::Model& after) {
    std::vector<Query> changed;
    const auto keepChanged = [&](const Query& query) {
        if (!sameAnswers(query, before, after)) {
            changed.push_back(query);
        }
    };
    for (const Account& account : world.accounts(Focus::all)) {
        if (accountKeys.count(account->getHashKey(0)) == 0) {
            continue;
        }
        keepChanged({account, nullptr});
        for (const auto& question : world.questions) {
            keepChanged({account, &question});
        }
    }
    return changed;
}

}  // namespace histories
