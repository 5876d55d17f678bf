// Every type that a host and the library share, so that one file's debug information describes them all. abidw reads
// it; the functions are never called.
#include "CFeeCenter.h"
#include "IFeeCenter.h"
#include "host/markets.h"
#include "host/records.h"
#include "host/services.h"

namespace witness {

template <class T>
void seen(T* /*type*/) {}

// A function that the host defines is undefined in the library, so nothing describes it but the name of this one. The
// type in it names what the service gives back, which a function's own name leaves out.
template <auto service, class Type = decltype(service)>
void served() {}

// What these name in members, bases and parameters is described too.
template void seen(qmservice::IFeeCenter*);
template void seen(qmservice::CFeeCenter*);

template void seen(qmservice::IData*);
template void seen(qmservice::CAccountInfo*);
template void seen(qmservice::CAccountData*);
template void seen(qmservice::CInstrument*);
template void seen(qmservice::CInstrumentFee*);
template void seen(qmservice::CGroupCategorySubInfo*);
template void seen(qmservice::CCommissionRateDetail*);
template void seen(qmservice::CMarginRateDetail*);
template void seen(qmservice::CStkExchangeRateLimit*);
template void seen(qmservice::CStockOptionFeeItem*);
template void seen(qmservice::CStockOptionFeeRate*);
template void seen(qmservice::CCustomStkExchangeRateLimit*);
template void seen(qmservice::CCustomHGTExchangeRateLimit*);
template void seen(qmservice::CCustomSgtExchangeRateLimit*);
template void seen(qmservice::CCustomCommissionRateDetail*);
template void seen(qmservice::CCustomMarginRateDetail*);
template void seen(qmservice::CCustomStockInstrumentFee*);
template void seen(qmservice::CCustomHGTInstrumentFee*);
template void seen(qmservice::CCustomSgtInstrumentFee*);
template void seen(qmservice::CCustomFutureInstrumentFee*);

template void seen(qmservice::IInstrumentCenter*);
template void seen(qmservice::IDataCenter*);

template void seen(qmservice::AccountKind*);
template void seen(qmservice::CategoryRange*);
template void seen(qmservice::ExchangeFeeType*);
template void seen(qmservice::HedgeFlag*);
template void seen(qmservice::InstrumentList*);
template void seen(qmservice::InstrumentType*);

template void served<&utils::voStockKey>();
template void served<&utils::splitVoStockKey>();
template void served<&utils::hash>();
template void served<&qmservice::crc64>();
template void served<&qmservice::TraderCenter::instance>();
template void served<&qmservice::TraderCenter::getInstCenter>();
template void served<&qmservice::TraderCenter::getDataCenter>();
template void served<&qmservice::ConfigCollector::instance>();
template void served<&qmservice::ConfigCollector::getRateLimitPtr>();
template void served<&qmservice::ConfigCollector::getHGTExchangeRateLimitPtr>();
template void served<&qmservice::ConfigCollector::getSgtExchangeRateLimitPtr>();
template void served<&qmservice::ConfigCollector::isSimulationPlatform>();
template void served<&qmservice::getTradeMinUnit>();
template void served<&utils::CSingletonT<qmservice::CppCategory>::instance>();
template void served<&qmservice::CppCategory::isStockInCategoryForTS>();
template void served<&qmservice::CppCategory::isStockInCustomCategory>();
template void served<&qmservice::CppCategory::isStockInGroupCategory>();
template void served<&qmservice::CppCategory::getCategorId>();
template void served<&utils::CSingletonT<qmservice::StockTypeCenter>::instance>();
template void served<&qmservice::StockTypeCenter::isWPMarket>();
template void served<&utils::CSingletonT<net::RPCEngine>::instance>();
template void served<&net::RPCEngine::getStrand>();

}  // namespace witness
