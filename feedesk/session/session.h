#ifndef FEEDESK_SESSION_SESSION_H
#define FEEDESK_SESSION_SESSION_H

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "feedesk/answers/answer.h"
#include "feedesk/answers/interval_center.h"
#include "feedesk/instruments/instrument_names.h"
#include "feedesk/session/running_engine.h"
#include "feedesk/statements/layout.h"
#include "standalone/folder_excerpt.h"
#include "standalone/market_folder.h"

namespace feedesk {

/// The folder and threads to work with, and the day to ask for.
struct SessionOptions {
    std::string folder;
    int threads = 0;                   ///< of the engine; 0: as the folder says
    std::optional<cost::Date> date{};  ///< empty: as the folder says
};

/// What a fee center said to some questions.
struct Replies {
    std::vector<Answer> answers;       ///< in the order of the questions
    std::vector<Question> unanswered;  ///< those for which it has no fee
};

/// Picks some of the fees, in their order.
using PickFees = std::function<IntervalCenter::Fees(const IntervalCenter::Fees&)>;

/// What the fee center of a day said to a question.
struct DatedFee {
    boost::shared_ptr<qmservice::CInstrumentFee> fee;  ///< empty: it has no fee
    Answer answer;                                     ///< the same with where each part comes from
    const standalone::Market* market = nullptr;        ///< of the day, which the positions belong to
};

/// A market folder that is loaded and asked, as of one day or of any: one fee center for each interval of days that is
/// asked for. Used by one thread. Several in a process share an engine, whose threads are those of the first.
class Session {
public:
    /// Loads the folder and starts the engine. Throws Failure when the folder is broken, after all its errors have been
    /// reported on standard error, and when its schedules do not cover the day.
    explicit Session(const SessionOptions& options);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session();

    /// Asks as of this day from here on, or the folder's where none is named, and counts from 0 what is done. Throws
    /// Failure when the schedules do not cover the day, which then stays as it was. Of the intervals that were asked
    /// for before only the kKeptIntervals asked last are kept; what is known of the others' markets and accounts is
    /// gone.
    void begin(const std::optional<cost::Date>& date);

    /// A market of some thousand instruments and its fee centers take tens of megabytes, and a shell runs for days.
    static constexpr std::size_t kKeptIntervals = 4;
    /// An account of some thousand instruments takes half a megabyte. When so many were asked, all are forgotten
    /// together: fee centers forget no single one.
    static constexpr std::size_t kKeptAccounts = 32;
    /// Gives back the memory of the accounts where more than these are held; one that is asked again is fed again,
    /// which takes milliseconds. begin() does it, and so does who asks many accounts one after the other, once each.
    void forgetAccounts();
    /// How many accounts are held, those of each interval counted.
    [[nodiscard]] std::size_t heldAccounts() const;

    /// How many intervals are held.
    [[nodiscard]] std::size_t heldIntervals() const { return centers.size(); }

    /// The folder's layouts of statements, as they were when they were first asked for.
    const FolderLayouts& layouts();

    /// The folder, with its coverage and charging terms.
    [[nodiscard]] const standalone::MarketFolder& folder() const { return days; }
    /// The day that was asked for, or the folder's.
    [[nodiscard]] cost::Date day() const { return askedDay; }
    /// The market of that day without the fees of its accounts.
    [[nodiscard]] const standalone::Market& market() const { return asked->market(); }
    [[nodiscard]] const InstrumentNames& instruments() const { return names; }

    /// The account as of the day. Throws Failure, with the names that are near, when the folder has no such account.
    [[nodiscard]] const standalone::Account& account(const std::string& accountId) const;
    /// How many fees that account has on that day.
    [[nodiscard]] standalone::FeeCounts feeCounts(const standalone::Account& account) const;
    /// That account's custom fees on that day, made anew by each call.
    [[nodiscard]] std::vector<standalone::CustomFee> customFees(const standalone::Account& account) const;
    /// Whether the folder has the account.
    [[nodiscard]] bool hasAccount(const std::string& accountId) const { return places.count(accountId) != 0; }

    /// The instrument that the text names, as the account asks for it. Throws Failure, with the names that are near,
    /// when it names none, and with `whyOne`, a clause such as "a trade is of one", when it names several.
    [[nodiscard]] Question instrument(const standalone::Account& account, const std::string& text,
                                      const std::string& whyOne) const;

    /// Throws Failure when the schedules that the account trades by do not cover the day. An account that trades
    /// everything is looked at with each answer.
    void requireCovered(const standalone::Account& account) const;

    /// The fees of these instruments as of the day.
    Replies fees(const standalone::Account& account, const std::vector<Question>& questions);

    /// Every fee that the fee center lists for the account as of the day, by market and code; empty when it has no
    /// list. With `wanted` those of them that it picks.
    std::optional<Replies> listedFees(const standalone::Account& account, const PickFees& wanted = {});

    /// The fee of one instrument as of any day; the account is one that the folder has. Answers stay the same within
    /// folder().intervalOf(date), so that callers keep them by that. Whether the schedules cover the day is not looked
    /// at: see folder().coverage(). Days in ascending order are answered quickest, as another interval's market has
    /// to be installed.
    DatedFee feeOn(cost::Date date, const std::string& accountId, const Question& question);

    /// Gives back the memory of all intervals but those of the day that was asked for and of this one; they are made
    /// again when they are needed.
    void keepOnly(cost::Date date);

    /// Puts the day's market into the host's services, where somebody else put another one meanwhile. Only who asks
    /// fee centers of its own needs it.
    void install() { installed(askedDay); }

    /// The folder's part for the account and this instrument, which the folder has.
    [[nodiscard]] standalone::FolderExcerpt excerpt(const standalone::Account& account, const Question& question) const;

    /// What was loaded and asked, one line.
    [[nodiscard]] std::string summary() const;

private:
    struct HeldCenter {
        std::unique_ptr<IntervalCenter> center;
        std::size_t lastUse = 0;
    };

    IntervalCenter& centerOf(cost::Date date);
    void dropOldest();
    /// The same, with its market in the services.
    IntervalCenter& installed(cost::Date date);
    void feedOnce(IntervalCenter& center, const standalone::Account& account);
    Replies traced(const standalone::Account& account, const std::vector<Question>& questions,
                   const IntervalCenter::Fees& fees);

    std::size_t queriesAsked = 0;  // since begin()
    standalone::MarketFolder days;
    std::optional<FolderLayouts> readLayouts;
    cost::Date askedDay;
    std::map<std::size_t, HeldCenter> centers;  // by interval
    std::size_t uses = 0;                       // of centers; numbers them
    IntervalCenter* asked;                      // of the day
    InstrumentNames names;
    std::unordered_map<std::string, std::size_t> places;  // of the accounts, the same in each market
    RunningEngine engine;                                 // destroyed first, so that no job outlives a fee center
};

/// The numbers of the market's accounts, in the folder's order.
std::vector<std::string> accountIds(const standalone::Market& market);

}  // namespace feedesk

#endif  // FEEDESK_SESSION_SESSION_H
