#include <string>
#include <vector>

#include "tests/standalone/sample.h"

namespace {

using boost::shared_ptr;
using qmservice::CAccountInfo;
using qmservice::CInstrumentFee;
using qmservice::IData;

/// Writes down what it is handed.
class FeeCenterRecorder : public qmservice::IFeeCenter {
public:
    struct Call {
        std::string operation;
        shared_ptr<CAccountInfo> account;
        std::vector<shared_ptr<IData>> records;

        bool operator==(const Call& other) const {
            return operation == other.operation && account == other.account && records == other.records;
        }
    };

    void initFees(const shared_ptr<CAccountInfo>& account, const std::vector<shared_ptr<IData>>& records) override {
        calls.push_back({"initFees", account, records});
    }
    void updateCustomFee(const shared_ptr<CAccountInfo>& account, const shared_ptr<IData>& customFee) override {
        calls.push_back({"updateCustomFee", account, {customFee}});
    }
    shared_ptr<CInstrumentFee> getFee(const shared_ptr<CAccountInfo>&, const std::string&) override { return {}; }
    shared_ptr<CInstrumentFee> getFee(const shared_ptr<CAccountInfo>&, const std::string&,
                                      const std::string&) override {
        return {};
    }
    bool getFees(const shared_ptr<CAccountInfo>&, std::vector<shared_ptr<CInstrumentFee>>&) override { return false; }

    std::vector<Call> calls;
};

template <class Entry, class Record>
Entry entryOf() {
    Entry entry;
    entry.record = boost::make_shared<Record>();
    return entry;
}

standalone::FeeRecord feeRecord() { return entryOf<standalone::FeeRecord, CInstrumentFee>(); }

standalone::CustomFee customFee() { return entryOf<standalone::CustomFee, qmservice::CCustomStockInstrumentFee>(); }

TEST(Feed, HandsInTheFeeRecordsAndThenEachCustomFeeInOrder) {
    standalone::Account account = sample::account("100001");
    account.fees = {feeRecord(), feeRecord()};
    account.customFees = {customFee(), customFee()};
    FeeCenterRecorder feeCenter;

    standalone::feed(feeCenter, account);

    const std::vector<FeeCenterRecorder::Call> expected = {
        {"initFees", account.record, {account.fees[0].record, account.fees[1].record}},
        {"updateCustomFee", account.record, {account.customFees[0].record}},
        {"updateCustomFee", account.record, {account.customFees[1].record}}};
    EXPECT_TRUE(feeCenter.calls == expected);
}

TEST(Feed, HandsInCustomFeesOfAnAccountWithoutFeeRecords) {
    standalone::Account account = sample::account("100001");
    account.customFees = {customFee()};
    FeeCenterRecorder feeCenter;

    standalone::feed(feeCenter, account);

    ASSERT_FALSE(feeCenter.calls.empty());
    const FeeCenterRecorder::Call expected = {"updateCustomFee", account.record, {account.customFees[0].record}};
    EXPECT_TRUE(feeCenter.calls.back() == expected);
    for (const FeeCenterRecorder::Call& call : feeCenter.calls) {
        EXPECT_TRUE(call.operation != "initFees" || call.records.empty());
    }
}

}  // namespace
