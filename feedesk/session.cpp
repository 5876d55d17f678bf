#include "feedesk/session.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <tuple>
#include <utility>

#include "feedesk/failure.h"
#include "feedesk/messages.h"
#include "feedesk/numbers.h"
#include "feedesk/terminal.h"
#include "feedesk/text.h"
#include "standalone/host.h"
#include "standalone/loader.h"

namespace feedesk {
namespace {

using Clock = std::chrono::steady_clock;
using standalone::Account;

constexpr const char* kStrand = "fees";

/// Goes on behind "name the folder that holds market.toml".
constexpr const char* kWaysToName = ": with --market DIR, with the environment's FEEDESK_MARKET, or put it at ./market";

/// Adds the time of its own life to a sum.
class Stopwatch {
public:
    explicit Stopwatch(std::chrono::nanoseconds& total) : sum(total) {}
    Stopwatch(const Stopwatch&) = delete;
    Stopwatch& operator=(const Stopwatch&) = delete;
    ~Stopwatch() { sum += Clock::now() - begin; }

private:
    std::chrono::nanoseconds& sum;
    Clock::time_point begin = Clock::now();
};

standalone::Market load(const std::string& folder, Tally& tally) {
    const Stopwatch watch(tally.loading);
    const Progress progress("loading " + echoed(folder));
    standalone::LoadResult result = standalone::loadMarket(folder);
    if (result.ok()) {
        standalone::install(result.market);
        return std::move(result.market);
    }
    for (standalone::LoadError& error : result.errors) {
        if (error.kind == standalone::ErrorKind::kFolder) {
            error.message += kWaysToName;
        }
        tellLoadError(error, folder);
    }
    for (const standalone::FurtherErrors& further : result.further) {
        tellFurtherErrors(further, folder);
    }
    throw Failure(kBadInput, fmt::format("{}; nothing was loaded", counted(result.errorCount, "error")));
}

void sortByInstrument(std::vector<boost::shared_ptr<qmservice::CInstrumentFee>>& fees) {
    const auto name = [](const auto& fee) { return std::tie(fee->instrument->market, fee->instrument->code); };
    std::sort(fees.begin(), fees.end(), [&](const auto& one, const auto& other) { return name(one) < name(other); });
}

}  // namespace

Session::Engine::Engine(int threads) { standalone::startEngine(threads); }

Session::Engine::~Engine() { standalone::stopEngine(); }

Session::Session(const SessionOptions& options)
    : loaded(load(options.folder, tally)),
      names(loaded),
      center(kStrand),
      engine(options.threads != 0 ? options.threads : loaded.engineThreads) {
    for (const Account& account : loaded.accounts) {
        tally.records += account.fees.size();
        tally.customFees += account.customFees.size();
    }
}

Session::~Session() = default;

std::vector<std::string> accountIds(const standalone::Market& market) {
    std::vector<std::string> ids;
    for (const Account& account : market.accounts) {
        ids.push_back(account.record->accountId);
    }
    return ids;
}

const Account& Session::account(const std::string& accountId) const {
    const auto found = std::find_if(loaded.accounts.begin(), loaded.accounts.end(),
                                    [&](const Account& account) { return account.record->accountId == accountId; });
    if (found != loaded.accounts.end()) {
        return *found;
    }
    const std::vector<std::string> near = nearNames(accountId, accountIds(loaded));
    const std::string advice = near.empty() ? "; `feedesk accounts` lists the accounts"
                                            : fmt::format("; did you mean {}?", fmt::join(near, " or "));
    throw Failure(kNoAnswer, fmt::format("the market folder has no account {}{}", echoed(accountId), advice));
}

void Session::feedOnce(const Account& account) {
    if (fed.insert(&account).second) {
        const Stopwatch watch(tally.loading);
        standalone::feed(center, account);
        standalone::waitForStrand(kStrand);
    }
}

Replies Session::fees(const Account& account, const std::vector<Question>& questions) {
    feedOnce(account);
    qmservice::IFeeCenter& asked = center;
    Fees fees(questions.size());
    {
        const Stopwatch watch(tally.querying);
        std::transform(questions.begin(), questions.end(), fees.begin(), [&](const Question& question) {
            return asked.getFee(account.record, question.market, question.code);
        });
    }
    tally.queries += questions.size();
    return traced(account, questions, fees);
}

std::optional<Replies> Session::listedFees(const Account& account) {
    feedOnce(account);
    qmservice::IFeeCenter& asked = center;
    Fees fees;
    bool listed = false;
    {
        const Stopwatch watch(tally.querying);
        listed = asked.getFees(account.record, fees);
    }
    ++tally.queries;
    if (!listed) {
        return {};
    }
    sortByInstrument(fees);
    std::vector<Question> questions;
    for (const auto& fee : fees) {
        questions.push_back({fee->instrument->market, fee->instrument->code});
    }
    return traced(account, questions, fees);
}

Replies Session::traced(const Account& account, const std::vector<Question>& questions, const Fees& fees) {
    const Progress progress("finding where the rates come from");
    if (!tracer) {
        tracer.emplace(loaded);
    }
    const Fees dyed = tracer->ask(account, questions);
    Replies replies;
    for (std::size_t i = 0; i < fees.size(); ++i) {
        if (!fees[i] || !dyed[i]) {
            replies.unanswered.push_back(questions[i]);
        } else {
            replies.answers.push_back(makeAnswer(*fees[i], *dyed[i], *tracer, loaded));
        }
    }
    return replies;
}

std::string Session::summary() const {
    const std::string queries = tally.queries == 1 ? "1 query" : grouped(tally.queries) + " queries";
    return fmt::format("loaded {}, {}, {}, {} in {}; answered {} in {}",
                       counted(loaded.instruments.size(), "instrument"), counted(loaded.accounts.size(), "account"),
                       counted(tally.records, "fee record"), counted(tally.customFees, "custom fee"),
                       durationText(tally.loading), queries, durationText(tally.querying));
}

}  // namespace feedesk
