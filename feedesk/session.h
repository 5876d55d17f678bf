#ifndef FEEDESK_SESSION_H
#define FEEDESK_SESSION_H

#include <chrono>
#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "CFeeCenter.h"
#include "feedesk/answer.h"
#include "feedesk/instrument_names.h"
#include "feedesk/provenance.h"
#include "standalone/market.h"

namespace feedesk {

/// The folder and threads to work with.
struct SessionOptions {
    std::string folder;
    int threads = 0;  ///< of the engine; 0: as the folder says
};

/// What a session has done so far.
struct Tally {
    std::size_t records = 0;
    std::size_t customFees = 0;
    std::chrono::nanoseconds loading{0};  ///< reading the folder, and filling the fee center
    std::size_t queries = 0;
    std::chrono::nanoseconds querying{0};  ///< inside the fee center, tracing not counted
};

/// What a fee center said to some questions.
struct Replies {
    std::vector<Answer> answers;       ///< in the order of the questions
    std::vector<Question> unanswered;  ///< those for which it has no fee
};

/// A market folder that is loaded, installed and asked through one fee center. One at a time in a process; used by one
/// thread.
class Session {
public:
    /// Loads the folder, installs it and starts the engine. Throws Failure when the folder is broken, after all its
    /// errors have been told on standard error.
    explicit Session(const SessionOptions& options);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session();

    [[nodiscard]] const standalone::Market& market() const { return loaded; }
    [[nodiscard]] const InstrumentNames& instruments() const { return names; }

    /// Throws Failure, with the names that are near, when the folder has no such account.
    [[nodiscard]] const standalone::Account& account(const std::string& accountId) const;

    /// The fees of these instruments.
    Replies fees(const standalone::Account& account, const std::vector<Question>& questions);

    /// Every fee that the fee center lists for the account, by market and code; empty when it has no list.
    std::optional<Replies> listedFees(const standalone::Account& account);

    /// What was loaded and asked and how long it took, one line.
    [[nodiscard]] std::string summary() const;

private:
    using Fees = std::vector<boost::shared_ptr<qmservice::CInstrumentFee>>;

    /// Runs the engine as long as it lives: destroyed first, so that no job outlives a fee center.
    class Engine {
    public:
        explicit Engine(int threads);
        Engine(const Engine&) = delete;
        Engine& operator=(const Engine&) = delete;
        ~Engine();
    };

    void feedOnce(const standalone::Account& account);
    Replies traced(const standalone::Account& account, const std::vector<Question>& questions, const Fees& fees);

    Tally tally;
    standalone::Market loaded;
    InstrumentNames names;
    std::set<const standalone::Account*> fed;
    qmservice::CFeeCenter center;
    std::optional<Tracer> tracer;  // made when it is first needed
    Engine engine;
};

/// The numbers of the market's accounts, in the folder's order.
std::vector<std::string> accountIds(const standalone::Market& market);

}  // namespace feedesk

#endif  // FEEDESK_SESSION_H
