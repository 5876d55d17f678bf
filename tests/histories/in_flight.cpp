#include "histories/in_flight.h"

#include <algorithm>
#include <atomic>
#include <future>
#include <random>
#include <set>
#include <thread>
#include <vector>

#include "histories/handed.h"
#include "histories/judge.h"
#include "histories/lock_pauses.h"
#include "histories/pooled.h"
#include "histories/record_fields.h"
#include "histories/side_by_side.h"
#include "histories/states.h"
#include "support/strand_threads.h"

namespace histories {
namespace {

using Random = std::mt19937_64;

/// How far the changes are. Before a change is handed in it counts as posted; behind it on the strand it counts as
/// done.
struct Progress {
    const std::size_t all;
    std::atomic<std::size_t> posted{0};
    std::atomic<std::size_t> done{0};
    std::atomic<int> readersReady{0};

    /// How many changes may have begun so far: those done, and the one after them once it is posted.
    [[nodiscard]] std::size_t begun() const {
        const std::size_t finished = done;
        return std::min<std::size_t>(finished + 1, posted);
    }
};

/// One query and its answer, as it was when it was given too.
struct Seen {
    Query query;
    std::size_t made;   ///< changes that were made before the query
    std::size_t begun;  ///< changes that may have begun before its end
    bool known;
    std::vector<Fee> fees;
    std::vector<Fee> copies;
};

Fee copyOf(const Fee& fee) { return fee ? boost::dynamic_pointer_cast<qmservice::CInstrumentFee>(fee->copy()) : Fee(); }

class Reader {
public:
    Reader(const World& askedAbout, const std::vector<Query>& changed, const InFlight& options, std::uint64_t seed)
        : world(askedAbout), changing(changed), run(options), random(seed) {}

    /// Asks until all changes are made.
    std::vector<Seen> read(test::OpenFeeCenter& center, Progress& progress) {
        constexpr std::size_t kMost = 20000;
        std::vector<Seen> seen;
        ++progress.readersReady;
        for (std::size_t made = 0; made < progress.all && seen.size() < kMost; made = progress.done) {
            Seen next{chooseQuery(), made, 0, true, {}, {}};
            ask(center, next);
            next.begun = progress.begun();
            for (const Fee& fee : next.fees) {
                next.copies.push_back(copyOf(fee));
            }
            seen.push_back(std::move(next));
        }
        return seen;
    }

private:
    std::size_t pick(std::size_t n) { return random() % n; }

    /// Mostly a query whose answer the changes change.
    Query chooseQuery() {
        if (!changing.empty() && pick(4) != 0) {
            return changing[pick(changing.size())];
        }
        const auto& accounts = world.accounts(Focus::all);
        const auto& questions = world.questions;
        return {accounts[pick(accounts.size())], pick(4) != 0 ? &questions[pick(questions.size())] : nullptr};
    }

    void ask(test::OpenFeeCenter& center, Seen& seen) {
        const Query& query = seen.query;
        if (query.question == nullptr) {
            seen.known = center.getFees(query.account, seen.fees);
        } else if (query.question->joins && pick(2) == 0) {
            seen.fees.push_back(center.getFee(query.account, query.question->market, query.question->code));
        } else {
            seen.fees.push_back(center.getFee(query.account, query.question->key));
        }
        if (run.spoil) {
            for (Fee& fee : seen.fees) {
                run.spoil(query, fee);
            }
        }
    }

    const World& world;
    const std::vector<Query>& changing;
    const InFlight& run;
    Random random;
};

std::string complaintOf(const Judge& judge, const Seen& seen, Window window) {
    if (!same(seen.copies, seen.fees)) {
        return "a record changed after it had been answered";
    }
    const Query& query = seen.query;
    return query.question != nullptr ? judge.complaintOfFee(query.account, *query.question, window, seen.fees.front())
                                     : judge.complaintOfList(query.account, window, seen.known, seen.fees);
}

/// A history from its changes to the last judgement.
class Flight {
public:
    Flight(const World& theWorld, SideBySide& sides, const std::vector<ScriptedChange>& changes,
           const InFlight& options)
        : world(theWorld), both(sides), scripted(changes), run(options), states(sides.state()) {
        for (const auto& each : scripted) {
            models.push_back(each.change.copy());
            states.add(models.back());
            accountKeys.insert(each.change.account->getHashKey(0));
        }
    }

    std::string fly(Random& random, InFlightTotals& totals) {
        auto answers = askWhileTheyRun(random);
        pairPools(both.sharedRecords(), states.last(), both.feeCenter());
        std::string text = judge(answers, totals);
        answers.clear();
        both.setState(states.last());
        if (text.empty()) {
            text = both.compareAll() + handed.difference();
            text = text.empty() ? text : "after all changes, " + text;
        }
        return text;
    }

private:
    std::vector<std::vector<Seen>> askWhileTheyRun(Random& random) {
        const auto changing = changedQueries(world, accountKeys, states.at(0), states.last());
        auto& host = test::FakeHost::instance();
        // Now and then the host lets another thread go first.
        host.onCall = [](const std::string&) {
            thread_local unsigned calls = 0;
            constexpr unsigned kTurn = 7;
            if (++calls % kTurn == 0) {
                std::this_thread::yield();
            }
        };
        Progress progress{scripted.size()};
        std::vector<std::future<std::vector<Seen>>> readers;
        {
            const test::StrandThreads writers(host, run.writers, &pauseAfterUnlocks);
            for (int i = 0; i < run.readers; ++i) {
                readers.push_back(std::async(std::launch::async, [&, seed = random()] {
                    return Reader(world, changing, run, seed).read(both.feeCenter(), progress);
                }));
            }
            while (progress.readersReady < run.readers) {
                std::this_thread::yield();
            }
            post(progress);
        }
        std::vector<std::vector<Seen>> answers;
        for (auto& reader : readers) {
            answers.push_back(reader.get());
        }
        host.onCall = nullptr;
        return answers;
    }

    void post(Progress& progress) {
        for (std::size_t i = 0; i < scripted.size(); ++i) {
            const FeeChange change = scripted[i].change.copy();
            handed.watch(change.handedIn(), models[i].handedIn());
            ++progress.posted;
            change.handTo(both.feeCenter());
            both.feeCenter().strand->post([&progress] { ++progress.done; });
        }
    }

    std::string judge(std::vector<std::vector<Seen>>& answers, InFlightTotals& totals) const {
        const Judge judging(states, both.sharedRecords());
        for (auto& ofReader : answers) {
            for (Seen& seen : ofReader) {
                const Window window = states.between(seen.made, seen.begun);
                const auto text = complaintOf(judging, seen, window);
                if (!text.empty()) {
                    return describe(seen.query) + ", asked after " + std::to_string(seen.made) +
                           " changes, answered when " + std::to_string(seen.begun) + " may have begun: " + text;
                }
                ++totals.queries;
                if (window.last > window.first) {
                    ++totals.open;
                    totals.later += complaintOf(judging, seen, {window.first, window.first}).empty() ? 0 : 1;
                }
                // Records of answers that were judged are nobody's business any more.
                seen.fees.clear();
                seen.copies.clear();
            }
        }
        return {};
    }

    const World& world;
    SideBySide& both;
    const std::vector<ScriptedChange>& scripted;
    const InFlight& run;
    States states;
    std::vector<FeeChange> models;  ///< the changes with records for the model alone
    std::set<model::uint64> accountKeys;
    Handed handed;
};

}  // namespace

std::string runInFlight(std::uint64_t seed, Focus focus, const InFlight& run, InFlightTotals& totals) {
    Random random(seed);
    const History history = makeHistory(run.steps, random);
    World world;
    SideBySide both(world);
    std::string text = prepare(world, both, history, focus);
    if (text.empty()) {
        const auto changes = changesOf(history, world, focus);
        text = Flight(world, both, changes, run).fly(random, totals);
    }
    ++totals.histories;
    return text.empty() ? text
                        : "In flight, seed " + std::to_string(seed) + " (" + nameOf(focus) + "): " + text + '\n' +
                              describeScript(history, focus);
}

std::string describe(const InFlightTotals& totals, const InFlight& run) {
    return "in flight: " + std::to_string(totals.histories) + " histories, " + std::to_string(totals.queries) +
           " queries (" + std::to_string(totals.open) + " with several states allowed, " +
           std::to_string(totals.later) + " right in a later one alone), " + std::to_string(run.readers) +
           " readers, " + std::to_string(run.writers) + " writers";
}

}  // namespace histories
