#ifndef FEEDESK_CHECKING_CHECK_H
#define FEEDESK_CHECKING_CHECK_H

#include <memory>
#include <set>
#include <string>
#include <variant>
#include <vector>

#include "feedesk/checking/account_facts.h"
#include "feedesk/checking/finding.h"
#include "feedesk/checking/folder_facts.h"

namespace feedesk::checking {

using FindInFolder = void (*)(const FolderFacts& facts, Findings& findings);
/// Called for each account that can be asked.
using FindInAccount = void (*)(AccountFacts& facts, Findings& findings);

/// Looks at one account after another of those that can be asked, and finds what only all of them together show.
class AcrossAccounts {
public:
    AcrossAccounts() = default;
    AcrossAccounts(const AcrossAccounts&) = delete;
    AcrossAccounts& operator=(const AcrossAccounts&) = delete;
    virtual ~AcrossAccounts() = default;

    virtual void add(AccountFacts& facts) = 0;
    virtual void findIn(Findings& findings) const = 0;
};

using LookAcrossAccounts = std::unique_ptr<AcrossAccounts> (*)();

/// One kind of fault: folders have it and load all the same.
struct Check {
    const char* name;  ///< for programs and options; it does not change
    Severity severity;
    const char* meaning;  ///< what it finds, for a list of checks
    std::variant<FindInFolder, FindInAccount, LookAcrossAccounts> find;
};

/// Every check, in the order in which they are listed: errors first.
const std::vector<Check>& checks();

/// What one check found.
struct CheckReport {
    const Check* check;
    std::vector<Finding> findings;  ///< by place
};

struct CheckResult {
    std::vector<CheckReport> reports;  ///< one for each check, in the order asked
    std::vector<std::string> notes;    ///< which accounts could not be asked, and why
};

/// Runs the checks on the session's folder as of its day. `accounts`: only these are asked, and what is not theirs is
/// left out; none: all are, and nothing is. `oldestCheck`: a schedule that was last looked at before this day has not
/// been looked at for too long.
CheckResult runChecks(Session& session, const std::vector<const Check*>& wanted, const std::set<std::string>& accounts,
                      cost::Date oldestCheck);

}  // namespace feedesk::checking

#endif  // FEEDESK_CHECKING_CHECK_H
