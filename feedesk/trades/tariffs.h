#ifndef FEEDESK_TRADES_TARIFFS_H
#define FEEDESK_TRADES_TARIFFS_H

#include <cstddef>
#include <memory>
#include <string>
#include <unordered_map>

#include "cost/tariff.h"
#include "feedesk/session/session.h"

namespace feedesk {

/// What an account is charged on an instrument as of a day, and the answer that it comes from.
struct Charged {
    cost::Tariff tariff;
    Answer answer;
};

/// Asks the fee center of the day and brings its answer and the charging terms together; each rate carries its level
/// and the line that it comes from. The account is one that the folder has. Throws cost::Refused when the schedules do
/// not cover the day, when the fee center has no fee, and as cost::ratesOf() and cost::Schedule do.
Charged chargedOn(Session& session, cost::Date date, const std::string& account, const Question& question);

/// The same from an answer that somebody else asked for: of the account, as of the day.
Charged chargedBy(const Session& session, DatedFee dated, const std::string& account, cost::Date date);

/// The tariffs of many trades. Keeps those of the interval of days that was asked for last, so that days in ascending
/// order ask the fee center once for each account, instrument and interval.
class Tariffs {
public:
    explicit Tariffs(Session& openedSession) : session(openedSession) {}

    /// `market` and `code` name one instrument. The day is one that requireCovered() takes. Throws cost::Refused as
    /// chargedOn() does, and for an account or an instrument that the folder does not have. Valid until forget() or a
    /// day of another interval.
    const cost::Tariff& on(cost::Date date, const std::string& account, const std::string& market,
                           const std::string& code);

    /// Throws cost::Refused when the folder's schedules do not cover the day.
    void requireCovered(cost::Date date) const;

    /// Gives back the memory when many are kept. Not within a day: its trades are charged by one tariff.
    void forgetMany();

private:
    struct Entry {
        std::unique_ptr<const cost::Tariff> tariff;
        std::string problem;  // why there is none
    };

    Entry make(cost::Date date, const std::string& account, const std::string& market, const std::string& code);
    Question question(const std::string& account, const std::string& market, const std::string& code);
    [[nodiscard]] bool mayAdvise() { return adviceLeft > 0 && adviceLeft-- > 0; }

    Session& session;
    std::unordered_map<std::string, Entry> entries;  // by account, market and code
    std::size_t interval = 0;
    std::string key;               // of what is asked for; kept for its memory
    std::size_t adviceLeft = 100;  // names that are compared with all others; a person reads no more
};

}  // namespace feedesk

#endif  // FEEDESK_TRADES_TARIFFS_H
