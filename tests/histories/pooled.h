#ifndef TESTS_HISTORIES_POOLED_H
#define TESTS_HISTORIES_POOLED_H

#include "histories/sharing.h"
#include "model/model.h"
#include "support/open_fee_center.h"

namespace histories {

/// Pairs the records of the model's pools with those that the fee center has pooled under the same keys. Unlike a
/// comparison of the tables this may be done while answers are alive.
void pairPools(Sharing& sharing, const model::Model& model, const test::OpenFeeCenter& center);

/// Gives `state` those records of the pools of `next`, which it leads to, that the fee center has pooled already: a
/// change that was broken off may have pooled a record and not made the entry that names it.
void adoptPooled(model::Model& state, const model::Model& next, const test::OpenFeeCenter& center);

}  // namespace histories

#endif  // TESTS_HISTORIES_POOLED_H
