#ifndef TESTS_HISTORIES_TABLES_H
#define TESTS_HISTORIES_TABLES_H

#include <string>

#include "histories/sharing.h"
#include "model/model.h"
#include "support/open_fee_center.h"

namespace histories {

/// What is wrong with the fee center's pools, tables and defaults, next to the model's; empty when nothing is. Each
/// record must match one of the model's, be held by the fee center alone and hold the same values; each table entry
/// must name a pooled record. No answer may be alive.
///
/// Pooled records that are seen for the first time, and the defaults, are paired with the model's.
std::string differenceOfTables(Sharing& sharing, const model::Model& model, const test::OpenFeeCenter& center);

}  // namespace histories

#endif  // TESTS_HISTORIES_TABLES_H
