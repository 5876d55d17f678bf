#include <fmt/format.h>

#include <algorithm>
#include <memory>

#include "feedesk/checking/account_answers.h"
#include "feedesk/checking/check.h"
#include "feedesk/checking/topics.h"
#include "feedesk/terminal/terminal.h"
#include "standalone/families.h"

namespace feedesk::checking {
namespace {

/// An account that trades everything has no list of its own: without lines there is nothing to check.
bool isWorthAsking(const FolderFacts& facts, std::size_t place) {
    return standalone::tradedFamily(facts.market.accounts[place].record->accountType) != nullptr ||
           facts.folder.feeCountsOn(facts.day, place).customFees > 0;
}

bool isWanted(const std::set<std::string>& accounts, const std::string& account) {
    return accounts.empty() || accounts.count(account) != 0;
}

/// Leaves the findings that are about one of the accounts; where none is named, all.
void keepWanted(std::vector<Finding>& findings, const std::set<std::string>& accounts) {
    findings.erase(std::remove_if(findings.begin(), findings.end(),
                                  [&](const Finding& finding) {
                                      return !accounts.empty() &&
                                             std::none_of(finding.accounts.begin(), finding.accounts.end(),
                                                          [&](const auto& each) { return isWanted(accounts, each); });
                                  }),
                   findings.end());
}

/// The accounts to ask, by place; a note for each that the day does not cover.
std::vector<std::size_t> accountsToAsk(const FolderFacts& facts, const std::set<std::string>& accounts,
                                       std::vector<std::string>& notes) {
    std::vector<std::size_t> places;
    for (std::size_t place = 0; place < facts.market.accounts.size(); ++place) {
        const standalone::Account& account = facts.market.accounts[place];
        if (!isWorthAsking(facts, place) || !isWanted(accounts, account.record->accountId)) {
            continue;
        }
        const std::string refusal = facts.folder.coverage().refusal(facts.day, askedFamily(account));
        if (refusal.empty()) {
            places.push_back(place);
        } else {
            notes.push_back(fmt::format("account {} was not asked: {}", account.record->accountId, refusal));
        }
    }
    return places;
}

/// The checks that look at accounts, and what each found.
class AccountChecks {
public:
    explicit AccountChecks(std::vector<CheckReport>& checkReports)
        : reports(checkReports), findings(checkReports.size()), across(checkReports.size()) {
        for (std::size_t i = 0; i < across.size(); ++i) {
            const auto* look = std::get_if<LookAcrossAccounts>(&reports[i].check->find);
            across[i] = look == nullptr ? nullptr : (*look)();
        }
    }

    void lookAt(AccountFacts& facts) {
        for (std::size_t i = 0; i < reports.size(); ++i) {
            if (const auto* find = std::get_if<FindInAccount>(&reports[i].check->find)) {
                (*find)(facts, findings[i]);
            } else if (across[i]) {
                across[i]->add(facts);
            }
        }
    }

    void report() {
        for (std::size_t i = 0; i < reports.size(); ++i) {
            if (across[i]) {
                across[i]->findIn(findings[i]);
            }
            if (!std::holds_alternative<FindInFolder>(reports[i].check->find)) {
                reports[i].findings = findings[i].sorted();
            }
        }
    }

private:
    std::vector<CheckReport>& reports;
    std::vector<Findings> findings;
    std::vector<std::unique_ptr<AcrossAccounts>> across;
};

void findInAccounts(Session& session, const FolderFacts& facts, const std::set<std::string>& accounts,
                    CheckResult& result) {
    const Progress progress("asking what the accounts are charged");
    AccountChecks checks(result.reports);
    Probe probe;
    AccountQuestions questions(session);
    for (const std::vector<std::size_t>& alike : questions.alike(accountsToAsk(facts, accounts, result.notes))) {
        const AccountAnswers answers = questions.ask(alike.front(), facts.day);
        for (const std::size_t account : alike) {
            AccountFacts accountFacts(facts, account, questions, probe,
                                      questions.sameFor(account, answers, alike.front()));
            checks.lookAt(accountFacts);
        }
    }
    checks.report();
}

}  // namespace

const std::vector<Check>& checks() {
    static const std::vector<Check> all{
        {"percent-rate", Severity::kError, "a fraction that looks like percent or per mille", findPercents},
        {"negative-rate", Severity::kError, "a rate below 0", findNegativeRates},
        {"old-duty", Severity::kError, "a stamp duty that has been cut since is still charged", findOldDuties},
        {"both-sides-duty", Severity::kError, "a stamp duty of the mainland that purchases pay too",
         findDutiesOnPurchases},
        {"zero-margin", Severity::kError, "a margin of 0 or less", findZeroMargins},
        {"margin-above-one", Severity::kError, "a margin of more than the value itself", findMarginsAboveOne},
        {"lost-margin", Severity::kError, "a margin that loses its place to one of another hedge flag",
         findLostMargins},
        {"unset-commission", Severity::kError, "instruments with margins and without a commission",
         findUnsetCommissions},
        {"invisible-character", Severity::kError, "a character that nobody sees in an account or code",
         findInvisibleCharacters},
        {"far-rate", Severity::kWarning, "a rate far from all others of its column", findFarRates},
        {"far-term", Severity::kWarning, "a minimum, maximum or rounding unlike all others of its charge",
         findFarTerms},
        {"unexplained-term", Severity::kWarning,
         "a minimum, maximum or rounding of some accounts alone, for which nobody is named", findUnexplainedTerms},
        {"unused-rate", Severity::kWarning, "a rate that no charging term is for", findUnusedRates},
        {"free-commission", Severity::kWarning, "a commission of 0 where accounts usually pay one", freeCommissions},
        {"missing-duty", Severity::kWarning, "no stamp duty where accounts usually pay it", missingDuties},
        {"built-in-default", Severity::kWarning, "instruments of an account that fall to a rate built in",
         findDefaults},
        {"ended-line", Severity::kWarning, "a line that ends, and none answers in its place", findEndedLines},
        {"ended-term", Severity::kWarning, "a charging term that ends, and none begins in its place", findEndedTerms},
        {"unreached-custom-fee", Severity::kWarning, "a custom fee that reaches no instrument",
         findUnreachedCustomFees},
        {"shadowed-line", Severity::kWarning, "a line of an account from which no answer comes", findShadowedLines},
        {"missing-hedge-flag", Severity::kWarning, "margins of some hedge flags and not of all", findMissingHedgeFlags},
        {"unlisted-limit", Severity::kWarning, "a configured limit of an instrument of another list",
         findUnlistedLimits},
        {"unasked-item", Severity::kWarning, "an option item that nobody asks for", findUnaskedItems},
        {"missing-item", Severity::kWarning, "an option item that is charged and that an account lacks",
         findMissingItems},
        {"spreadsheet-number", Severity::kWarning, "an account or code that a spreadsheet made a number of",
         findSpreadsheetNumbers},
        {"look-alike", Severity::kWarning, "accounts or codes that are easily taken for each other", findLookAlikes},
        {"unchecked-schedule", Severity::kWarning, "charging terms not looked up for too long", findUncheckedSchedules},
        {"future-check", Severity::kWarning, "charging terms that were looked up on a day to come", findFutureChecks},
        {"overridden-record", Severity::kNote, "a line of fees/ that custom fees or limits replace",
         findOverriddenRecords},
        {"ended-exception", Severity::kNote, "a line that ends, and a wider one answers with other rates",
         findEndedExceptions},
        {"empty-category-line", Severity::kNote, "a line of a category that holds no instrument",
         findEmptyCategoryLines},
        {"repeated-category-line", Severity::kNote, "a line of a category that adds nothing",
         findRepeatedCategoryLines},
        {"expired-contract", Severity::kNote, "contracts whose delivery month has passed", findExpiredContracts},
    };
    return all;
}

CheckResult runChecks(Session& session, const std::vector<const Check*>& wanted, const std::set<std::string>& accounts,
                      cost::Date oldestCheck) {
    const FolderFacts facts{session.folder(), session.market(), session.day(), oldestCheck,
                            std::max(standalone::today(), session.folder().defaultDay())};
    CheckResult result;
    bool asks = false;
    for (const Check* check : wanted) {
        CheckReport& report = result.reports.emplace_back(CheckReport{check, {}});
        if (const auto* find = std::get_if<FindInFolder>(&check->find)) {
            Findings findings;
            (*find)(facts, findings);
            report.findings = findings.sorted();
        } else {
            asks = true;
        }
    }
    if (asks) {
        findInAccounts(session, facts, accounts, result);
    }
    for (CheckReport& report : result.reports) {
        keepWanted(report.findings, accounts);
    }
    return result;
}

}  // namespace feedesk::checking
