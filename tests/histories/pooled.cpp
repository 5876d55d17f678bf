#include "histories/pooled.h"

#include "host/services.h"

namespace histories {
namespace {

/// The fee center's record under the key of this text; empty when it has pooled none.
template <class Pool>
typename Pool::mapped_type find(const Pool& pool, const std::string& text) {
    const auto found = pool.find(qmservice::crc64(0, text.data(), text.size()));
    return found == pool.end() ? typename Pool::mapped_type() : found->second;
}

/// Calls `visit(pool of the model, the same pool of `other`, the fee center's)` for each pool.
template <class Model, class Visit>
void forEachPool(Model& model, const model::Model& other, const test::OpenFeeCenter& center, const Visit& visit) {
    visit(model.stock.pool, other.stock.pool, center.stockRateLimitPool);
    visit(model.credit.pool, other.credit.pool, center.creditRateLimitPool);
    visit(model.neeq.pool, other.neeq.pool, center.neeqRateLimitPool);
    visit(model.hgt.pool, other.hgt.pool, center.hgtRateLimitPool);
    visit(model.sgt.pool, other.sgt.pool, center.sgtRateLimitPool);
    visit(model.optionItems, other.optionItems, center.stkOptionItemPool);
    visit(model.commissions, other.commissions, center.futureCommissionDetails);
    visit(model.margins, other.margins, center.futureMarginDetails);
}

}  // namespace

void pairPools(Sharing& sharing, const model::Model& model, const test::OpenFeeCenter& center) {
    forEachPool(model, model, center, [&](const auto& modelled, const auto& /*same*/, const auto& real) {
        for (const auto& entry : modelled) {
            if (const auto record = find(real, entry.first)) {
                sharing.pair(entry.second, record);
            }
        }
    });
}

void adoptPooled(model::Model& state, const model::Model& next, const test::OpenFeeCenter& center) {
    forEachPool(state, next, center, [](auto& pool, const auto& nextPool, const auto& real) {
        for (const auto& entry : nextPool) {
            if (find(real, entry.first)) {
                pool.insert(entry);
            }
        }
    });
}

}  // namespace histories
