#include "histories/stepped.h"

#include <algorithm>
#include <array>
#include <functional>
#include <set>
#include <utility>
#include <vector>

#include "histories/handed.h"
#include "histories/host_calls.h"
#include "histories/judge.h"
#include "histories/pooled.h"
#include "histories/script.h"
#include "histories/side_by_side.h"
#include "histories/states.h"
#include "histories/tables.h"
#include "support/lock_probe.h"

namespace histories {
namespace {

/// The locks but the futures' one.
std::vector<boost::shared_mutex*> plainMutexes(test::OpenFeeCenter& center) {
    std::vector<boost::shared_mutex*> plain;
    for (const auto& named : test::allMutexes(center)) {
        if (named.mutex != &center.futureMutex) {
            plain.push_back(named.mutex);
        }
    }
    return plain;
}

bool asksFutures(const Account& account) {
    constexpr int kFuturesKinds[] = {1, 5, 8, 12, 16};
    return std::find(std::begin(kFuturesKinds), std::end(kFuturesKinds), account->accountType) !=
           std::end(kFuturesKinds);
}

/// One change, and what is asked while it runs.
class Stepper {
public:
    Stepper(const World& theWorld, SideBySide& sides, const FeeChange& theChange, SteppedTotals& counts)
        : world(theWorld),
          both(sides),
          center(sides.feeCenter()),
          change(theChange),
          models(theChange.copy()),
          totals(counts),
          states(sides.state()),
          judge(states, sides.sharedRecords()) {
        states.add(models);
        changing = changedQueries(world, {change.account->getHashKey(0)}, states.at(0), states.last());
    }

    /// Queries inside the change, at every so many calls of the host.
    std::string askInside(std::size_t stride) {
        post();
        std::size_t calls = 0;
        {
            const HostCalls watch([&](const std::string& operation) {
                if (complaint.empty() && ++calls % stride == 0) {
                    ++totals.stops;
                    complaint = stop(stride);
                    complaint += complaint.empty() ? ""
                                                   : ", inside the change at call " + std::to_string(calls) +
                                                         " of the host, " + operation;
                }
            });
            test::FakeHost::instance().runJobs();
        }
        return finish();
    }

    /// The change inside a query, at one of the calls of the host at which the query holds no lock.
    std::string changeInside(std::size_t which) {
        post();
        const Query query = next();
        const std::size_t calls = askAndRunAt(query, kNever).freeCalls;
        Answer answer = askAndRunAt(query, calls == 0 ? kNever : which % calls);
        const bool inside = calls > 0;
        totals.changesInside += inside ? 1 : 0;
        totals.queries += inside ? 1 : 0;
        test::FakeHost::instance().runJobs();
        pairPools(both.sharedRecords(), states.last(), center);
        const States outer = states.firstAndLast();
        complaint =
            complaintOf(Judge(outer, both.sharedRecords()), query, inside ? outer.whole() : Window{0, 0}, answer);
        complaint += complaint.empty() ? "" : ", with the change inside";
        answer.fees.clear();
        return finish();
    }

private:
    struct Answer {
        bool known = true;
        std::vector<Fee> fees;
        std::size_t freeCalls = 0;  ///< calls of the host at which the query held no lock
    };

    static constexpr std::size_t kNever = static_cast<std::size_t>(-1);

    Answer ask(const Query& query) {
        Answer answer;
        if (query.question != nullptr) {
            answer.fees.push_back(center.getFee(query.account, query.question->key));
        } else {
            answer.known = center.getFees(query.account, answer.fees);
        }
        return answer;
    }

    /// Runs the posted change at the call of the host of this number, of those at which the query holds no lock.
    Answer askAndRunAt(const Query& query, std::size_t number) {
        std::size_t calls = 0;
        const HostCalls watch([&](const std::string&) {
            if (holdsNothing() && calls++ == number) {
                test::FakeHost::instance().runJobs();
            }
        });
        Answer answer = ask(query);
        answer.freeCalls = calls;
        return answer;
    }

    static std::string complaintOf(const Judge& judge, const Query& query, Window window, const Answer& answer) {
        const std::string text = query.question != nullptr
                                     ? judge.complaintOfFee(query.account, *query.question, window, answer.fees.front())
                                     : judge.complaintOfList(query.account, window, answer.known, answer.fees);
        return text.empty() ? text : describe(query) + ": " + text;
    }

    void post() {
        const FeeChange own = change.copy();
        handed.watch(own.handedIn(), models.handedIn());
        own.handTo(center);
    }

    std::string finish() {
        both.setState(states.last());
        if (complaint.empty()) {
            complaint = both.compareAll() + handed.difference();
        }
        return complaint;
    }

    bool holdsNothing() {
        const auto locks = test::allMutexes(center);
        return std::all_of(locks.begin(), locks.end(), [](const auto& named) { return mayWrite(*named.mutex); });
    }

    /// Inside the change. The futures load alone calls the host under its lock: then the tables are not whole and
    /// futures cannot be asked about.
    std::string stop(std::size_t stride) {
        callsSinceCaughtUp += stride;
        for (auto* mutex : plainMutexes(center)) {
            if (!mayRead(*mutex)) {
                return "the host is called under a lock";
            }
        }
        const bool futures = mayRead(center.futureMutex);
        if (futures) {
            auto text = catchUp();
            if (!text.empty()) {
                return text;
            }
        }
        return askSome(futures);
    }

    /// Follows the stores that the fee center has made since the last time. Before each it asks the host for a key.
    std::string catchUp() {
        const std::size_t most = lastAlike + std::exchange(callsSinceCaughtUp, 0);
        std::string first;
        for (std::size_t state = reached; state < states.count(); ++state) {
            const auto text = differenceFrom(state);
            if (text.empty()) {
                reached = lastAlike = state;
                while (lastAlike + 1 < states.count() && differenceFrom(lastAlike + 1).empty()) {
                    ++lastAlike;
                }
                return reached > most ? "several stores were made at once" : "";
            }
            first = first.empty() ? text : first;
        }
        return "the tables are as after no store from " + std::to_string(reached) + " on: " + first;
    }

    std::string differenceFrom(std::size_t state) {
        return differenceOfTables(both.sharedRecords(), states.at(state), center);
    }

    std::string askSome(bool futures) {
        constexpr std::size_t kQueries = 40;
        std::string text;
        for (std::size_t i = 0; i < kQueries && text.empty(); ++i) {
            const Query query = next();
            if (futures || !asksFutures(query.account)) {
                ++totals.queries;
                text = complaintOf(judge, query, {reached, reached}, ask(query));
            }
        }
        return text;
    }

    /// Three of four of those whose answers the change changes, in turn; the others in turn.
    Query next() {
        const std::size_t turn = asked++;
        if (turn % 4 != 0 && !changing.empty()) {
            return changing[turn % changing.size()];
        }
        const auto& accounts = world.accounts(Focus::all);
        const auto& account = accounts[turn / 4 % accounts.size()];
        const std::size_t question = turn / 4 * 5 % (world.questions.size() + 1);
        return {account, question < world.questions.size() ? &world.questions[question] : nullptr};
    }

    const World& world;
    SideBySide& both;
    test::OpenFeeCenter& center;
    const FeeChange& change;
    const FeeChange models;  ///< the same with records for the model alone
    SteppedTotals& totals;
    States states;
    Judge judge;
    std::vector<Query> changing;
    std::size_t reached = 0;    ///< the state at the last stop
    std::size_t lastAlike = 0;  ///< the last after it with the same tables: a store may store what is there already
    std::size_t asked = 0;
    std::size_t callsSinceCaughtUp = 0;
    std::string complaint;
    Handed handed;
};

/// The history's byte says how: the change inside a query, or queries inside the change at every call of the host or at
/// every so many.
std::string run(const World& world, SideBySide& both, const ScriptedChange& scripted, SteppedTotals& totals) {
    constexpr std::size_t kWays = 4;
    constexpr std::array<std::size_t, 3> kStrides{1, 5, 13};
    Stepper stepper(world, both, scripted.change, totals);
    const std::size_t way = scripted.way % kWays;
    const std::size_t rest = scripted.way / kWays;
    return way == kWays - 1 ? stepper.changeInside(rest) : stepper.askInside(kStrides[way]);
}

}  // namespace

std::string runStepped(const History& history, Focus focus, SteppedTotals& totals) {
    World world;
    SideBySide both(world);
    std::string text = prepare(world, both, history, focus);
    std::size_t number = 0;
    for (const auto& scripted : changesOf(history, world, focus)) {
        if (!text.empty()) {
            break;
        }
        ++number;
        text = run(world, both, scripted, totals);
        text += text.empty() ? "" : ", change " + std::to_string(number);
    }
    ++totals.histories;
    return text.empty() ? text
                        : "Stepped in flight (" + std::string(nameOf(focus)) + "): " + text + '\n' +
                              describeScript(history, focus);
}

std::string describe(const SteppedTotals& totals) {
    return "in flight, stepped: " + std::to_string(totals.histories) + " histories, " + std::to_string(totals.stops) +
           " stops, " + std::to_string(totals.changesInside) + " changes inside a query, " +
           std::to_string(totals.queries) + " queries";
}

}  // namespace histories
