#ifndef FEEDESK_CHECKING_TOPICS_H
#define FEEDESK_CHECKING_TOPICS_H

#include "feedesk/checking/check.h"

// The checks, each defined in the file of its topic; checks.cpp says what each one finds.

namespace feedesk::checking {

// rate_slips.cpp
void findPercents(const FolderFacts& facts, Findings& findings);
void findNegativeRates(const FolderFacts& facts, Findings& findings);

// far_rates.cpp
void findFarRates(const FolderFacts& facts, Findings& findings);

// far_terms.cpp
void findFarTerms(const FolderFacts& facts, Findings& findings);
void findUnexplainedTerms(const FolderFacts& facts, Findings& findings);

// ended_lines.cpp
void findEndedLines(AccountFacts& facts, Findings& findings);
void findEndedExceptions(AccountFacts& facts, Findings& findings);

// ended_terms.cpp
void findEndedTerms(const FolderFacts& facts, Findings& findings);

// left_out_charges.cpp
std::unique_ptr<AcrossAccounts> missingDuties();
std::unique_ptr<AcrossAccounts> freeCommissions();

// duties.cpp
void findOldDuties(const FolderFacts& facts, Findings& findings);
void findDutiesOnPurchases(const FolderFacts& facts, Findings& findings);

// unused_rates.cpp
void findUnusedRates(const FolderFacts& facts, Findings& findings);

// margins.cpp
void findZeroMargins(const FolderFacts& facts, Findings& findings);
void findMarginsAboveOne(const FolderFacts& facts, Findings& findings);

// hedge_flags.cpp
void findLostMargins(AccountFacts& facts, Findings& findings);
void findMissingHedgeFlags(AccountFacts& facts, Findings& findings);

// idle_lines.cpp
void findUnreachedCustomFees(AccountFacts& facts, Findings& findings);
void findShadowedLines(AccountFacts& facts, Findings& findings);
void findOverriddenRecords(AccountFacts& facts, Findings& findings);
void findUnlistedLimits(const FolderFacts& facts, Findings& findings);

// category_lines.cpp
void findEmptyCategoryLines(const FolderFacts& facts, Findings& findings);
void findRepeatedCategoryLines(const FolderFacts& facts, Findings& findings);

// option_items.cpp
void findUnaskedItems(AccountFacts& facts, Findings& findings);
void findMissingItems(AccountFacts& facts, Findings& findings);

// defaults.cpp
void findDefaults(AccountFacts& facts, Findings& findings);
void findUnsetCommissions(AccountFacts& facts, Findings& findings);

// schedules.cpp
void findExpiredContracts(const FolderFacts& facts, Findings& findings);
void findUncheckedSchedules(const FolderFacts& facts, Findings& findings);
void findFutureChecks(const FolderFacts& facts, Findings& findings);

// look_alikes.cpp
void findInvisibleCharacters(const FolderFacts& facts, Findings& findings);
void findSpreadsheetNumbers(const FolderFacts& facts, Findings& findings);
void findLookAlikes(const FolderFacts& facts, Findings& findings);

}  // namespace feedesk::checking

#endif  // FEEDESK_CHECKING_TOPICS_H
