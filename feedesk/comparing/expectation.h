#ifndef FEEDESK_COMPARING_EXPECTATION_H
#define FEEDESK_COMPARING_EXPECTATION_H

#include <cstddef>
#include <string>
#include <vector>

namespace feedesk {

/// What an expectation says of a change.
enum class Judgement { kNone, kExpected, kUnexpected };

/// Which accounts somebody expects to change: nothing is said of it, none, or those like these numbers, in which '*'
/// is any text.
class Expectation {
public:
    Expectation() = default;
    Expectation(bool nothing, std::vector<std::string> accountPatterns)
        : isStated(nothing || !accountPatterns.empty()),
          patterns(std::move(accountPatterns)),
          isMet(patterns.size(), false) {}

    /// Of a change of these accounts.
    Judgement judge(const std::vector<std::string>& accounts);
    /// Of changes that are no account's: what changes, for a sentence.
    Judgement judgeOther(const std::string& what);

    /// The patterns that none of the accounts is like.
    [[nodiscard]] std::vector<std::string> unknown(const std::vector<std::string>& accounts) const;
    /// The patterns that no change was like.
    [[nodiscard]] std::vector<std::string> unmet() const;
    /// What changed and was not expected to, one sentence; empty when there is nothing.
    [[nodiscard]] std::string problem() const;

private:
    [[nodiscard]] bool expects(const std::string& account);

    bool isStated = false;
    std::vector<std::string> patterns;
    std::vector<bool> isMet;
    std::vector<std::string> unexpected;  // accounts, each once
    std::vector<std::string> others;
};

}  // namespace feedesk

#endif  // FEEDESK_COMPARING_EXPECTATION_H
