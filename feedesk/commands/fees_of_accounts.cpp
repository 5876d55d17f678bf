#include "feedesk/commands/fees_of_accounts.h"

#include <fmt/format.h>

#include <algorithm>

#include "feedesk/answers/marks.h"
#include "feedesk/commands/fee_answer.h"
#include "feedesk/commands/fee_rows.h"
#include "feedesk/text/numbers.h"

namespace feedesk {
namespace {

constexpr std::size_t kMostNumbers = 5;

/// The replies of one account after the other, those with answers.
class AccountReplies {
public:
    AccountReplies(const Accounts& askedAccounts, const AskedOfAccounts& whatIsAsked)
        : accounts(askedAccounts), asked(whatIsAsked) {}

    /// Empty behind the last account.
    std::vector<Answer> next() {
        std::vector<Answer> answers;
        while (answers.empty() && place < accounts.size()) {
            const standalone::Account& account = *accounts[place++];
            Replies replies = asked.ask(account);
            tellUnanswered(replies, account);
            incomplete = incomplete || !replies.unanswered.empty();
            answers = std::move(replies.answers);
        }
        return answers;
    }

    [[nodiscard]] bool isIncomplete() const { return incomplete; }

private:
    const Accounts& accounts;
    const AskedOfAccounts& asked;
    std::size_t place = 0;
    bool incomplete = false;
};

std::vector<int> kindsOf(const Accounts& accounts) {
    std::vector<int> kinds;
    for (const standalone::Account* account : accounts) {
        kinds.push_back(account->record->accountType);
    }
    return kinds;
}

}  // namespace

std::string numbersText(const Accounts& accounts) {
    std::vector<std::string> numbers;
    for (std::size_t i = 0; i < std::min(accounts.size(), kMostNumbers); ++i) {
        numbers.push_back(accounts[i]->record->accountId);
    }
    const std::string text = fmt::format("{}", fmt::join(numbers, ", "));
    return accounts.size() <= kMostNumbers
               ? text
               : fmt::format("{} and {} more", text, grouped(accounts.size() - kMostNumbers));
}

ExitStatus answerOfAccounts(Program& program, Session& session, const Accounts& accounts,
                            const AskedOfAccounts& asked) {
    std::for_each(accounts.begin(), accounts.end(), [&](const auto* account) { session.requireCovered(*account); });
    AccountReplies replies(accounts, asked);
    std::vector<Answer> answers = replies.next();
    if (answers.empty()) {  // before anything is written
        throw Failure(kNoAnswer, asked.whyNone());
    }
    const FeeRows rows(kindsOf(accounts), session.market());
    MarkCount marked;
    program.answer(session, rows.sections(), [&](RowSink& sink) {
        for (; !answers.empty(); answers = replies.next()) {
            marked.add(answers);
            rows.giveTo(sink, answers);
        }
        const auto& day = program.session.date;
        return Remarks{counted(accounts.size(), "account") + (day ? ", as of " + day->text() : ""), asked.notes(),
                       marked.sentence("fee")};
    });
    const bool isRefused = program.strict && !marked.sentence("fee").empty();
    return replies.isIncomplete() || isRefused ? kNoAnswer : kAnswered;
}

}  // namespace feedesk
