#include "support/versioned_fees.h"

#include <boost/smart_ptr/make_shared.hpp>
#include <cstddef>

namespace test {
namespace {

using namespace qmservice;

/// The version of which the values are the multiples 1, 2, 3 ...; -1 when they are not, or are of none.
int versionOfMultiples(const std::vector<double>& values) {
    const double version = values.front();
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (values[i] != version * static_cast<double>(i + 1)) {
            return -1;
        }
    }
    return version >= 1 ? static_cast<int>(version) : -1;
}

template <class Limit>
void setSixRates(Limit& limit, int version) {
    limit.rate1 = version;
    limit.rate2 = version * 2;
    limit.rate3 = version * 3;
    limit.rate4 = version * 4;
    limit.rate5 = version * 5;
    limit.rate6 = version * 6;
}

template <class Limit>
void setConnectRates(Limit& limit, int version) {
    setSixRates(limit, version);
    limit.rate7 = version * 7;
    limit.rate8 = version * 8;
    limit.rate9 = version * 9;
    limit.rate10 = version * 10;
    limit.rate11 = version * 11;
    limit.rate12 = version * 12;
    limit.rate13 = version * 13;
    limit.rate14 = version * 14;
}

template <class Limit>
int connectVersion(const Limit& limit) {
    Limit byDefault;
    byDefault.rate3 = byDefault.rate4 = 0.0013;
    if (limit.isEqual(byDefault)) {
        return 0;
    }
    return versionOfMultiples({limit.rate1, limit.rate2, limit.rate3, limit.rate4, limit.rate5, limit.rate6,
                               limit.rate7, limit.rate8, limit.rate9, limit.rate10, limit.rate11, limit.rate12,
                               limit.rate13, limit.rate14});
}

template <class Fee, class Limit>
boost::shared_ptr<Fee> customFee(Limit limit) {
    limit.category = "5";
    return makeCustomFee<Fee>(boost::make_shared<Limit>(limit));
}

boost::shared_ptr<IData> stockCustomFee(int version) {
    CCustomStkExchangeRateLimit limit;
    setSixRates(limit, version);
    return customFee<CCustomStockInstrumentFee>(limit);
}

boost::shared_ptr<IData> optionCustomFee(int version) {
    CCustomStkExchangeRateLimit limit;
    limit.optionFee1 = version;
    limit.optionFee2 = version * 2;
    limit.optionFee3 = version * 3;
    limit.optionFee4 = version * 4;
    limit.optionFee5 = version * 5;
    limit.optionFirstKeyCode = '0';
    limit.optionSecondKeyCode = version % 2 == 0 ? '0' : 'D';
    limit.optionThirdKeyCode = '0';
    return customFee<CCustomStockInstrumentFee>(limit);
}

template <class Fee, class Limit>
boost::shared_ptr<IData> connectCustomFee(int version) {
    Limit limit;
    setConnectRates(limit, version);
    return customFee<Fee>(limit);
}

boost::shared_ptr<IData> customFeeOf(int kind, int version) {
    switch (kind) {
        case 6:
            return optionCustomFee(version);
        case 7:
            return connectCustomFee<CCustomHGTInstrumentFee, CCustomHGTExchangeRateLimit>(version);
        case 11:
            return connectCustomFee<CCustomSgtInstrumentFee, CCustomSgtExchangeRateLimit>(version);
        default:
            return stockCustomFee(version);
    }
}

/// Which of the versions up to `version` last set an item of this parity; 0 for none.
int lastOfParity(int version, int parity) { return version % 2 == parity ? version : version - 1; }

std::string complaintAboutVersion(int version, int oldest, int newest) {
    if (version >= oldest && version <= newest) {
        return "";
    }
    return "version " + std::to_string(version) + " where " + std::to_string(oldest) + " to " + std::to_string(newest) +
           " were expected";
}

std::string complaintAboutOption(const CStockOptionFeeRate& rate, int oldest, int newest) {
    if (rate.baseRate == 0.2) {
        return rate.items.size() == 10 ? complaintAboutVersion(0, oldest, newest) : "a default without its items";
    }
    for (int parity = 0; parity < 2; ++parity) {
        const auto item = rate.items.find(parity == 0 ? "000" : "0D");
        const int version = item == rate.items.end() ? 0 : item->second ? versionOf(*item->second) : -1;
        if (version > 0 && version % 2 != parity) {
            return "an item of version " + std::to_string(version) + " under the key " + item->first;
        }
        // No version sets the even item before the second.
        const int expected = parity == 0 && oldest < 2 ? 0 : lastOfParity(oldest, parity);
        const auto complaint = complaintAboutVersion(version, expected < 0 ? 0 : expected, newest);
        if (!complaint.empty()) {
            return complaint;
        }
    }
    return "";
}

std::string complaintAboutFee(int kind, const CInstrumentFee& fee, int oldest, int newest) {
    switch (kind) {
        case 6:
            return fee.stkOptionFeeRate ? complaintAboutOption(*fee.stkOptionFeeRate, oldest, newest) : "no rate";
        case 7:
            return fee.hgtRateLimit ? complaintAboutVersion(versionOf(*fee.hgtRateLimit), oldest, newest) : "no limit";
        case 11:
            return fee.sgtRateLimit ? complaintAboutVersion(versionOf(*fee.sgtRateLimit), oldest, newest) : "no limit";
        default:
            return fee.stkRateLimit ? complaintAboutVersion(versionOf(*fee.stkRateLimit), oldest, newest) : "no limit";
    }
}

std::string about(const std::string& what, int kind, const std::string& complaint) {
    return complaint.empty() ? "" : what + " of account kind " + std::to_string(kind) + ": " + complaint;
}

}  // namespace

void setVersion(CStkExchangeRateLimit& limit, int version) { setSixRates(limit, version); }

void setVersion(CCustomHGTExchangeRateLimit& limit, int version) { setConnectRates(limit, version); }

int versionOf(const CStkExchangeRateLimit& limit) {
    if (limit.rate1 == 0.00015 && limit.rate6 == 0.001 && limit.unitVolume == 100) {
        return 0;
    }
    return versionOfMultiples({limit.rate1, limit.rate2, limit.rate3, limit.rate4, limit.rate5, limit.rate6});
}

int versionOf(const CCustomHGTExchangeRateLimit& limit) { return connectVersion(limit); }

int versionOf(const CCustomSgtExchangeRateLimit& limit) { return connectVersion(limit); }

int versionOf(const CStockOptionFeeItem& item) {
    return versionOfMultiples({item.fee1, item.fee2, item.fee3, item.fee4, item.fee5});
}

VersionedFees::VersionedFees(FakeHost& host, OpenFeeCenter& feeCenter) : center(feeCenter) {
    for (const int kind : {2, 3, 6, 7, 11}) {
        accounts.push_back(makeAccount(kind, static_cast<uint64>(kind)));
    }
    accounts.push_back(makeAccount(10, 2));
    host.categoryNumbers["5"] = 5;
    for (const char* code : {"A", "B", "C", "D"}) {
        instruments.push_back(host.addInstrument("SH", code, 1 | 8 | 32 | 128 | 256 | 16384));
        host.systemMembers.insert({5, {"SH", code}});
    }
}

std::vector<boost::shared_ptr<IData>> VersionedFees::records(int version) const {
    auto stock = boost::make_shared<CStkExchangeRateLimit>();
    auto hgt = boost::make_shared<CCustomHGTExchangeRateLimit>();
    auto sgt = boost::make_shared<CCustomSgtExchangeRateLimit>();
    setVersion(*stock, version);
    setVersion(*hgt, version);
    setConnectRates(*sgt, version);
    std::vector<boost::shared_ptr<IData>> all;
    for (const auto& instrument : instruments) {
        auto fee = makeFee(instrument, stock);
        fee->hgtRateLimit = hgt;
        fee->sgtRateLimit = sgt;
        all.push_back(fee);
    }
    return all;
}

void VersionedFees::post(int version) {
    for (const auto& account : accounts) {
        if (version % 2 == 0 || account->accountType == 6) {
            center.updateCustomFee(account, customFeeOf(account->accountType, version));
        } else {
            center.initFees(account, records(version));
        }
    }
}

std::string VersionedFees::complaint(int oldest, const std::function<int()>& newest) const {
    for (const auto& account : accounts) {
        auto complaint = complaintAboutFees(account, oldest, newest);
        if (complaint.empty()) {
            complaint = complaintAboutList(account, oldest, newest);
        }
        if (!complaint.empty()) {
            return complaint;
        }
    }
    return "";
}

std::string VersionedFees::complaint(int oldest, int newest) const {
    return complaint(oldest, [newest] { return newest; });
}

int VersionedFees::lastVersion() const {
    const auto& instrument = *instruments.back();
    return versionOf(*center.getFee(accounts.back(), instrument.market, instrument.code)->stkRateLimit);
}

std::string VersionedFees::complaintAboutFees(const Account& account, int oldest,
                                              const std::function<int()>& newest) const {
    for (const auto& instrument : instruments) {
        const Fee fee = center.getFee(account, instrument->market, instrument->code);
        if (!fee || fee->account != account || fee->instrument != instrument) {
            return about("fee", account->accountType, "an answer for something else");
        }
        const auto complaint = complaintAboutFee(account->accountType, *fee, oldest, newest());
        if (!complaint.empty()) {
            return about("fee", account->accountType, complaint);
        }
    }
    return "";
}

std::string VersionedFees::complaintAboutList(const Account& account, int oldest,
                                              const std::function<int()>& newest) const {
    std::vector<Fee> fees;
    const bool listed = center.getFees(account, fees);
    if (oldest > 0 && (!listed || fees.size() != instruments.size())) {
        return about("list", account->accountType, std::to_string(fees.size()) + " entries");
    }
    for (const Fee& fee : fees) {
        const auto complaint = complaintAboutFee(account->accountType, *fee, oldest, newest());
        if (fee->account != account || !complaint.empty()) {
            return about("list", account->accountType, complaint.empty() ? "another account" : complaint);
        }
    }
    return "";
}

}  // namespace test
