#include "histories/choices.h"

#include <array>
#include <boost/smart_ptr/make_shared.hpp>
#include <cstddef>

#include "histories/custom_choices.h"
#include "histories/values.h"

namespace histories {
namespace {

using namespace qmservice;

boost::shared_ptr<CCommissionRateDetail> chooseCommission(Bytes& bytes) {
    auto detail = boost::make_shared<CCommissionRateDetail>();
    constexpr std::array<const char*, 4> kIds{"rb2605", "au2604", "x", ""};
    detail->instrumentId = bytes.of(kIds);
    chooseRates(bytes, *detail);
    return detail;
}

boost::shared_ptr<CMarginRateDetail> chooseMargin(Bytes& bytes) {
    if (bytes.oneIn(10)) {
        return {};
    }
    auto margin = boost::make_shared<CMarginRateDetail>();
    chooseMarginValues(bytes, *margin);
    return margin;
}

boost::shared_ptr<CStockOptionFeeRate> chooseOptionRate(Bytes& bytes) {
    auto rate = boost::make_shared<CStockOptionFeeRate>();
    rate->baseRate = 0.1 * static_cast<double>(bytes.pick(4));
    return rate;
}

/// Whether a part of a fee is there: mostly, where the account's family needs it.
bool has(Bytes& bytes, bool needed) { return needed ? !bytes.oneIn(8) : bytes.oneIn(5); }

bool isFutures(int kind) { return kind == 1 || kind == 5 || kind == 12; }

/// The host's own record of an account or an instrument, or none.
template <class Owned>
Record chooseOwned(Bytes& bytes, const std::vector<boost::shared_ptr<Owned>>& owned) {
    return owned[bytes.pick(owned.size())];
}

/// The simplest is none.
const std::array<Record (*)(Bytes&, const World&), 19> kEachClass{
    [](Bytes&, const World&) { return Record(); },
    [](Bytes& bytes, const World& world) -> Record { return chooseFee(bytes, world, 1); },
    [](Bytes& bytes, const World&) { return chooseLimitFee<CCustomStockInstrumentFee>(bytes); },
    [](Bytes& bytes, const World&) { return chooseLimitFee<CCustomHGTInstrumentFee>(bytes); },
    [](Bytes& bytes, const World&) { return chooseLimitFee<CCustomSgtInstrumentFee>(bytes); },
    [](Bytes& bytes, const World&) { return chooseFutureFee(bytes); },
    [](Bytes& bytes, const World&) -> Record { return chooseStockLimit(bytes); },
    [](Bytes& bytes, const World&) -> Record { return chooseCommission(bytes); },
    [](Bytes& bytes, const World&) -> Record { return chooseMargin(bytes); },
    [](Bytes& bytes, const World&) -> Record { return chooseOptionRate(bytes); },
    [](Bytes&, const World&) -> Record { return boost::make_shared<CStockOptionFeeItem>(); },
    [](Bytes&, const World&) -> Record { return boost::make_shared<CGroupCategorySubInfo>(); },
    [](Bytes& bytes, const World&) { return chooseCustomEntry<CCustomStkExchangeRateLimit>(bytes); },
    [](Bytes& bytes, const World&) { return chooseCustomEntry<CCustomHGTExchangeRateLimit>(bytes); },
    [](Bytes& bytes, const World&) { return chooseCustomEntry<CCustomSgtExchangeRateLimit>(bytes); },
    [](Bytes& bytes, const World&) { return chooseCustomEntry<CCustomCommissionRateDetail>(bytes); },
    [](Bytes& bytes, const World&) { return chooseCustomEntry<CCustomMarginRateDetail>(bytes); },
    [](Bytes& bytes, const World& world) { return chooseOwned(bytes, world.accounts(Focus::all)); },
    [](Bytes& bytes, const World& world) { return chooseOwned(bytes, world.instruments); }};

/// A record of any class there is, or none.
Record chooseOtherRecord(Bytes& bytes, const World& world) { return bytes.of(kEachClass)(bytes, world); }

}  // namespace

int chooseTradeUnit(Bytes& bytes) {
    constexpr std::array<int, 8> kUnits{100, 100, 100, 200, 10, 1, 0, -100};
    return bytes.of(kUnits);
}

boost::shared_ptr<CStkExchangeRateLimit> chooseStockLimit(Bytes& bytes) {
    auto limit = boost::make_shared<CStkExchangeRateLimit>();
    chooseRates(bytes, *limit);
    limit->unitVolume = chooseTradeUnit(bytes);
    return limit;
}

boost::shared_ptr<CInstrumentFee> chooseFee(Bytes& bytes, const World& world, int accountKind) {
    auto fee = boost::make_shared<CInstrumentFee>();
    fee->instrument = world.instruments[bytes.pick(world.instruments.size())];
    if (has(bytes, isFutures(accountKind))) {
        fee->commissionDetail = chooseCommission(bytes);
    }
    if (has(bytes, isFutures(accountKind))) {
        for (std::size_t count = bytes.pick(4); count > 0; --count) {
            fee->marginDetails.push_back(chooseMargin(bytes));
        }
    }
    if (has(bytes, accountKind == 2 || accountKind == 3 || accountKind == 10)) {
        fee->stkRateLimit = chooseStockLimit(bytes);
    }
    if (has(bytes, accountKind == 7)) {
        fee->hgtRateLimit = chooseConnectLimit<CCustomHGTExchangeRateLimit>(bytes);
    }
    if (has(bytes, accountKind == 11)) {
        fee->sgtRateLimit = chooseConnectLimit<CCustomSgtExchangeRateLimit>(bytes);
    }
    if (has(bytes, accountKind == 6)) {
        fee->stkOptionFeeRate = chooseOptionRate(bytes);
    }
    return fee;
}

Records chooseRecords(Bytes& bytes, const World& world, int accountKind) {
    constexpr std::array<std::size_t, 10> kCounts{1, 1, 2, 2, 3, 3, 4, 5, 6, 0};
    Records records;
    for (std::size_t count = bytes.of(kCounts); count > 0; --count) {
        switch (bytes.pick(12)) {
            case 9:
                records.push_back(chooseOtherRecord(bytes, world));
                break;
            case 10:
                records.push_back(nullptr);
                break;
            case 11:
                records.push_back(records.empty() ? nullptr : Record(records.back()));
                break;
            default:
                records.push_back(chooseFee(bytes, world, accountKind));
                break;
        }
    }
    return records;
}

Record chooseCustomFee(Bytes& bytes, const World& world, int accountKind) {
    if (bytes.oneIn(4)) {
        return chooseOtherRecord(bytes, world);
    }
    switch (accountKind) {
        case 7:
            return chooseLimitFee<CCustomHGTInstrumentFee>(bytes);
        case 11:
            return chooseLimitFee<CCustomSgtInstrumentFee>(bytes);
        case 1:
        case 5:
        case 12:
            return bytes.oneIn(2) ? Record(chooseFee(bytes, world, 1)) : chooseFutureFee(bytes);
        default:
            return chooseLimitFee<CCustomStockInstrumentFee>(bytes);
    }
}

}  // namespace histories
