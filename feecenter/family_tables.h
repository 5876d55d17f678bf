#ifndef FEECENTER_FAMILY_TABLES_H
#define FEECENTER_FAMILY_TABLES_H

#include "CFeeCenter.h"
#include "feecenter/future_tables.h"
#include "feecenter/limit_family.h"
#include "feecenter/option_tables.h"

namespace qmservice {

/// Names the lock, pool, table and default of each family.
class FamilyTables {
public:
    static LimitTables<CStkExchangeRateLimit> stock(CFeeCenter& center) {
        return {center.stockMutex, center.stockRateLimitPool, center.stockAccountTable, center.defaultStockRateLimit};
    }

    static LimitTables<CStkExchangeRateLimit> credit(CFeeCenter& center) {
        return {center.creditMutex, center.creditRateLimitPool, center.creditAccountTable,
                center.defaultCreditRateLimit};
    }

    static LimitTables<CStkExchangeRateLimit> neeq(CFeeCenter& center) {
        return {center.neeqMutex, center.neeqRateLimitPool, center.neeqAccountTable, center.defaultNeeqRateLimit};
    }

    static LimitTables<CCustomHGTExchangeRateLimit> hgt(CFeeCenter& center) {
        return {center.hgtMutex, center.hgtRateLimitPool, center.hgtAccountTable, center.defaultHgtRateLimit};
    }

    static LimitTables<CCustomSgtExchangeRateLimit> sgt(CFeeCenter& center) {
        return {center.sgtMutex, center.sgtRateLimitPool, center.sgtAccountTable, center.defaultSgtRateLimit};
    }

    static OptionTables options(CFeeCenter& center) {
        return {center.stkOptionMutex, center.stkOptionTableMutex, center.stkOptionItemPool,
                center.stkOptionAccountTable, center.stkOptionBaseRateTable};
    }

    static FutureTables futures(CFeeCenter& center) {
        return {center.futureMutex, center.futureCommissionDetails, center.futureCommissionKeys,
                center.futureMarginDetails, center.futureMarginKeys};
    }
};

}  // namespace qmservice

#endif  // FEECENTER_FAMILY_TABLES_H
