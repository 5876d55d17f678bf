#ifndef FEEDESK_CHECKING_ACCOUNT_ANSWERS_H
#define FEEDESK_CHECKING_ACCOUNT_ANSWERS_H

#include <cstddef>
#include <memory>
#include <vector>

#include "feedesk/session/session.h"
#include "standalone/folder_contents.h"

namespace feedesk::checking {

/// Records of the market, in its order; none is null.
using InstrumentList = std::vector<const qmservice::CInstrument*>;

/// An answer, and the instruments for which an account is given it, because they have the same inputs.
struct AlikeAnswer {
    Answer answer;                                      ///< of the first of them
    std::shared_ptr<const InstrumentList> instruments;  ///< never empty
};

/// What a fee center answers an account for all instruments that it trades and the day covers.
struct AccountAnswers {
    std::vector<AlikeAnswer> answers;  ///< in the order of their first instruments
    std::size_t questions = 0;         ///< instruments that were asked for
};

/// The family in which an account is asked; one that trades everything has lines of futures alone.
cost::Family askedFamily(const standalone::Account& account);

/// Asks fee centers for accounts of a session's folder: once for instruments that have the same inputs. Accounts are
/// places in the market. The session outlives it; one thread.
class AccountQuestions {
public:
    explicit AccountQuestions(Session& askedSession);

    /// The accounts in groups of those that have the same inputs on the session's day, by the first of each.
    [[nodiscard]] std::vector<std::vector<std::size_t>> alike(const std::vector<std::size_t>& accounts) const;

    /// As of any day. A kind that trades everything is asked for futures, the only family of which it has lines.
    /// Meanwhile the host's services hold another market than the session's; the engine must run.
    AccountAnswers ask(std::size_t account, cost::Date day);

    /// The answers of the session's day that one account of a group got, as another one of it gets them: from its own
    /// lines.
    [[nodiscard]] AccountAnswers sameFor(std::size_t other, const AccountAnswers& answers, std::size_t account) const;

private:
    struct Groups {
        std::vector<InstrumentList> instruments;
        std::vector<std::size_t> firsts;  ///< of each, by place in the market
    };

    Groups groupsOf(std::size_t account, cost::Date day);
    [[nodiscard]] const standalone::MarketFolder& folder() const { return session.folder(); }

    Session& session;
    standalone::ContentNumbers numbers;
    standalone::FolderContents contents;
};

}  // namespace feedesk::checking

#endif  // FEEDESK_CHECKING_ACCOUNT_ANSWERS_H
