#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "support/concurrent_readers.h"
#include "support/family_marks.h"
#include "support/versioned_fees.h"

// Loads, custom fees, instrument updates, lookups and lists of every family at once, with one strand. Every rate
// record is made from one version number: an answer tells which version it is of, and whether it is whole.

namespace {

using namespace qmservice;

constexpr uint64 kAccountKey = 700;  ///< one account of every family, as prime brokerage sees it
constexpr double kStep = 16;         ///< futures versions lie further apart than the rates of one record
constexpr int kTorn = -1;

/// The version that all futures rates are made from; 0 when all are zero.
int versionOf(const std::vector<double>& rates) {
    const int version = static_cast<int>(rates.front() / kStep);
    for (std::size_t i = 0; i < rates.size(); ++i) {
        if (rates[i] != (version == 0 ? 0 : version * kStep + static_cast<double>(i) + 1)) {
            return kTorn;
        }
    }
    return version;
}

bool isIncomeSwapDefault(const CMarginRateDetail& margin) {
    return test::ratesOf(margin) == std::vector<double>{0.01, 0, 0.01, 0, 0, 0};
}

/// The versions that an answer may show.
struct Allowed {
    int oldest;
    int newest;

    [[nodiscard]] bool has(int version) const { return version >= oldest && version <= newest; }
};

/// Collects the fields asked about that are not of an allowed version, or empty, each with what it shows.
class AnswerCheck {
public:
    AnswerCheck(const CInstrumentFee& answer, const Allowed& versions) : fee(answer), allowed(versions) {}

    AnswerCheck& limit() {
        note("limit", fee.stkRateLimit ? test::versionOf(*fee.stkRateLimit) : kTorn, allowed);
        return *this;
    }

    AnswerCheck& hgt() {
        note("hgt", fee.hgtRateLimit ? test::versionOf(*fee.hgtRateLimit) : kTorn, allowed);
        return *this;
    }

    AnswerCheck& sgt() {
        note("sgt", fee.sgtRateLimit ? test::versionOf(*fee.sgtRateLimit) : kTorn, allowed);
        return *this;
    }

    AnswerCheck& option() {
        const auto& rate = fee.stkOptionFeeRate;
        const bool isDefault = rate && rate->baseRate == 0.2 && rate->items.size() == 10;
        const bool isStored = rate && rate->items.size() == 1 && rate->items.count("000") == 1;
        note("option", isDefault ? 0 : isStored ? test::versionOf(*rate->items.at("000")) : kTorn, allowed);
        return *this;
    }

    /// A custom fee sets the first margin alone, so the others may be a version behind.
    AnswerCheck& future(bool incomeSwap) {
        note("commission", fee.commissionDetail ? versionOf(test::ratesOf(*fee.commissionDetail)) : kTorn, allowed);
        const bool noneYet = fee.marginDetails.empty() && incomeSwap && allowed.oldest <= 0;
        if (!noneYet && fee.marginDetails.size() != 3) {
            note("number of margins", static_cast<int>(fee.marginDetails.size()), {3, 3});
        }
        for (std::size_t slot = 0; slot < fee.marginDetails.size(); ++slot) {
            const int behind = slot == 0 ? 0 : 1;
            note("margin", marginVersion(slot, incomeSwap), {allowed.oldest - behind, allowed.newest});
        }
        return *this;
    }

    [[nodiscard]] std::string complaint() const { return text; }

private:
    [[nodiscard]] int marginVersion(std::size_t slot, bool incomeSwap) const {
        const auto& margin = fee.marginDetails[slot];
        if (!margin || margin->hedgeFlag != '1' + static_cast<int>(slot)) {
            return kTorn;
        }
        return incomeSwap && isIncomeSwapDefault(*margin) ? 0 : versionOf(test::ratesOf(*margin));
    }

    void note(const char* field, int version, const Allowed& versions) {
        if (version == kTorn || !versions.has(version)) {
            text += std::string(field) + " " + std::to_string(version) + " where " + std::to_string(versions.oldest) +
                    " to " + std::to_string(versions.newest) + " were expected; ";
        }
    }

    const CInstrumentFee& fee;
    Allowed allowed;
    std::string text;
};

using Check = void (*)(AnswerCheck&);

const Check kLimit = [](AnswerCheck& answer) { answer.limit(); };
const Check kHgt = [](AnswerCheck& answer) { answer.hgt(); };
const Check kSgt = [](AnswerCheck& answer) { answer.sgt(); };
const Check kOption = [](AnswerCheck& answer) { answer.option(); };
const Check kFuture = [](AnswerCheck& answer) { answer.future(false); };
const Check kIncomeSwap = [](AnswerCheck& answer) { answer.future(true); };

/// One question about the account, and what each answer to it is checked for.
struct Question {
    int kind;
    const char* market;  ///< of an instrument that bears the market's name as its code too
    Check check;
};

const Question kQuestions[] = {
    {1, "SHFE", kFuture},   {5, "CMEO", kFuture},   {2, "SH", kLimit},         {3, "SH", kLimit},
    {6, "SHO", kOption},    {7, "SSEHKEX", kHgt},   {8, "SH", kLimit},         {8, "SHFE", kIncomeSwap},
    {10, "NEEQ", kLimit},   {11, "SZSEHKEX", kSgt}, {16, "CMEO", kIncomeSwap}, {16, "SHFE", kIncomeSwap},
    {12, "SH", kLimit},     {12, "SHFE", kFuture},  {12, "SHO", kOption},      {12, "SSEHKEX", kHgt},
    {12, "SZSEHKEX", kSgt}, {12, "NEEQ", kLimit},   {12, "CMEO", kIncomeSwap},
};

/// The kinds that have a list, with what each entry is checked for. The NEEQ list asks the stock tables, where its
/// instrument is not.
const std::map<int, Check> kLists = {{1, kFuture}, {2, kLimit}, {3, kLimit}, {5, kFuture},
                                     {6, kOption}, {7, kHgt},   {11, kSgt}};

class AllFamiliesThreadsTest : public test::FeeCenterTest {
protected:
    AllFamiliesThreadsTest() {
        host.categoryNumbers["9"] = 9;
        add("SH", 1 | 8, 0);
        add("SHFE", 0, 2);
        add("CMEO", 0, 1024);
        add("SHO", 32, 0);
        add("SSEHKEX", 128, 0);
        add("SZSEHKEX", 16384, 0);
        add("NEEQ", 256, 0);
        add("HK", 0, 0);
    }

    void add(const std::string& market, int kindMask, int types) {
        instruments[market] = host.addInstrument(market, market, kindMask, types);
        host.systemMembers.insert({9, {market, market}});
    }

    /// Queues the changes that set every rate of the account to the version: loads, instrument updates and custom fees
    /// in turn.
    void post(int version) {
        others.post(version);
        postStockSide(version);
        postConnect(version);
        postFutures(version);
    }

    static boost::shared_ptr<CAccountInfo> accountOf(int kind) { return test::makeAccount(kind, kAccountKey); }

    void postStockSide(int version) {
        auto limit = test::makeLimit(0);
        test::setVersion(*limit, version);
        auto custom = test::makeCustomLimit("9", limit->rate1);
        custom->rate2 = limit->rate2;
        custom->rate3 = limit->rate3;
        custom->rate4 = limit->rate4;
        custom->rate5 = limit->rate5;
        custom->rate6 = limit->rate6;
        custom->optionFee1 = limit->rate1;
        custom->optionFee2 = limit->rate2;
        custom->optionFee3 = limit->rate3;
        custom->optionFee4 = limit->rate4;
        custom->optionFee5 = limit->rate5;
        custom->optionFirstKeyCode = custom->optionSecondKeyCode = custom->optionThirdKeyCode = '0';
        for (const int kind : {2, 3, 6, 10}) {
            const auto& instrument = instruments.at(kind == 10 ? "NEEQ" : "SH");
            postOne(kind, version, test::makeFee(instrument, limit), test::makeCustomFee(custom));
        }
    }

    void postConnect(int version) {
        const auto hgt = boost::make_shared<CCustomHGTExchangeRateLimit>();
        test::setVersion(*hgt, version);
        hgt->category = "9";
        auto hgtFee = boost::make_shared<CInstrumentFee>();
        hgtFee->instrument = instruments.at("SSEHKEX");
        hgtFee->hgtRateLimit = hgt;
        postOne(7, version, hgtFee, test::makeCustomFee<CCustomHGTInstrumentFee>(hgt));

        const auto sgt = boost::make_shared<CCustomSgtExchangeRateLimit>();
        setRates(*sgt, *hgt);
        auto sgtFee = boost::make_shared<CInstrumentFee>();
        sgtFee->instrument = instruments.at("SZSEHKEX");
        sgtFee->sgtRateLimit = sgt;
        postOne(11, version, sgtFee, test::makeCustomFee<CCustomSgtInstrumentFee>(sgt));
    }

    template <class To, class From>
    static void setRates(To& to, const From& from) {
        to.category = from.category;
        to.rate1 = from.rate1;
        to.rate2 = from.rate2;
        to.rate3 = from.rate3;
        to.rate4 = from.rate4;
        to.rate5 = from.rate5;
        to.rate6 = from.rate6;
        to.rate7 = from.rate7;
        to.rate8 = from.rate8;
        to.rate9 = from.rate9;
        to.rate10 = from.rate10;
        to.rate11 = from.rate11;
        to.rate12 = from.rate12;
        to.rate13 = from.rate13;
        to.rate14 = from.rate14;
    }

    /// Stock options take custom fees alone, the others a load by turns.
    void postOne(int kind, int version, const boost::shared_ptr<IData>& loaded,
                 const boost::shared_ptr<IData>& custom) {
        if (kind == 6 || version % 2 == 0) {
            center.updateCustomFee(accountOf(kind), custom);
        } else {
            center.initFees(accountOf(kind), {loaded});
        }
    }

    void postFutures(int version) {
        const double base = version * kStep;
        const auto fee = [&](const char* market) {
            return test::makeFutureFee(
                instruments.at(market), test::makeCommission(base),
                {test::makeMargin('1', base), test::makeMargin('2', base), test::makeMargin('3', base)});
        };
        if (version % 3 == 1) {
            center.initFees(accountOf(1), {fee("SHFE"), fee("CMEO")});
        } else if (version % 3 == 2) {
            center.updateCustomFee(accountOf(5), fee("SHFE"));
            center.updateCustomFee(accountOf(12), fee("CMEO"));
        } else {
            center.updateCustomFee(accountOf(12), test::makeCustomFutureFee({test::makeCustomCommission("9", base)},
                                                                            {test::makeCustomMargin("9", '1', base)}));
        }
    }

    /// What is wrong with the answers to every question and with every list; empty when each field is of a version from
    /// `oldest` to what `newest` answers once the answer is there.
    [[nodiscard]] std::string complaint(int oldest, const std::function<int()>& newest) {
        std::string complaints = others.complaint(oldest, newest);
        for (const Question& question : kQuestions) {
            const auto fee = center.getFee(accountOf(question.kind), question.market, question.market);
            complaints += fee && fee->instrument == instruments.at(question.market)
                              ? about(question.kind, *fee, question.check, {oldest, newest()})
                              : "no answer for kind " + std::to_string(question.kind);
        }
        for (const auto& list : kLists) {
            complaints += complaintAboutList(list.first, list.second, oldest, newest);
        }
        return complaints + complaintAboutOddOnes(oldest);
    }

    [[nodiscard]] std::string complaint(int oldest, int newest) {
        return complaint(oldest, [newest] { return newest; });
    }

    static std::string about(int kind, const CInstrumentFee& fee, Check check, const Allowed& allowed) {
        AnswerCheck answer(fee, allowed);
        check(answer);
        const std::string text = answer.complaint();
        return text.empty() ? "" : "kind " + std::to_string(kind) + " " + fee.instrument->market + ": " + text;
    }

    std::string complaintAboutList(int kind, Check check, int oldest, const std::function<int()>& newest) {
        std::vector<boost::shared_ptr<CInstrumentFee>> fees;
        const bool listed = center.getFees(accountOf(kind), fees);
        const std::size_t whole = kind == 1 || kind == 5 ? 2 : 1;
        if (listed == fees.empty() || fees.size() > whole || (oldest > 0 && fees.size() != whole)) {
            return "a list of " + std::to_string(fees.size()) + " for kind " + std::to_string(kind);
        }
        std::string complaints;
        for (const auto& fee : fees) {
            complaints += about(kind, *fee, check, {oldest, newest()});
        }
        return complaints;
    }

    /// What is the same whatever was changed: a Hong Kong instrument's full default, the NEEQ list's stock answers, and
    /// the kinds without a list.
    std::string complaintAboutOddOnes(int oldest) {
        std::string complaints;
        if (test::describe(center.getFee(accountOf(12), "HK", "HK")) != test::kFullDefault) {
            complaints += "not the full default of a Hong Kong instrument; ";
        }
        std::vector<boost::shared_ptr<CInstrumentFee>> fees;
        if (!center.getFees(accountOf(10), fees) && oldest > 0) {
            complaints += "no NEEQ list; ";
        }
        for (const auto& fee : fees) {
            complaints += about(10, *fee, kLimit, {0, 0});
        }
        for (const int kind : {8, 12, 16}) {
            complaints += center.getFees(accountOf(kind), fees) ? "a list for a kind without one; " : "";
        }
        return complaints;
    }

    std::map<std::string, boost::shared_ptr<CInstrument>> instruments;
    test::VersionedFees others{host, center};
};

TEST_F(AllFamiliesThreadsTest, EveryStateOfChangesThatAreSteppedByHandIsAccepted) {
    EXPECT_EQ(complaint(0, 0), "");
    for (int version = 1; version <= 7; ++version) {
        post(version);
        while (host.runOneJob()) {
            EXPECT_EQ(complaint(version - 1, version), "");
        }
        EXPECT_EQ(complaint(version, version), "");
    }
}

TEST_F(AllFamiliesThreadsTest, AnswerThatIsTooOldOrTooNewIsNoticedForEveryQuestion) {
    post(1);
    post(2);
    host.runJobs();
    for (const Question& question : kQuestions) {
        const auto fee = center.getFee(accountOf(question.kind), question.market, question.market);
        EXPECT_EQ(about(question.kind, *fee, question.check, {2, 2}), "");
        EXPECT_NE(about(question.kind, *fee, question.check, {3, 4}), "") << question.kind << question.market;
        EXPECT_NE(about(question.kind, *fee, question.check, {0, 1}), "") << question.kind << question.market;
    }
}

TEST_F(AllFamiliesThreadsTest, RecordOfTwoVersionsIsNoticed) {
    const Allowed any{0, 100};
    CInstrumentFee fee;
    fee.commissionDetail = test::makeCommission(2 * kStep);
    for (const int hedgeFlag : {'1', '2', '3'}) {
        fee.marginDetails.push_back(test::makeMargin(hedgeFlag, 2 * kStep));
    }
    ASSERT_EQ(AnswerCheck(fee, any).future(false).complaint(), "");
    fee.marginDetails[2]->shortMarginRatio += kStep;
    EXPECT_NE(AnswerCheck(fee, any).future(false).complaint(), "");
    fee.marginDetails[2] = test::makeMargin('2', 2 * kStep);
    EXPECT_NE(AnswerCheck(fee, any).future(false).complaint(), "");
    fee.marginDetails.pop_back();
    EXPECT_NE(AnswerCheck(fee, any).future(true).complaint(), "");
    EXPECT_NE(AnswerCheck(fee, any).limit().complaint(), "");
    EXPECT_NE(AnswerCheck(fee, any).option().complaint(), "");
}

TEST_F(AllFamiliesThreadsTest, ReadersOfEveryFamilyBesideTheStrandSeeWholeVersionsOnly) {
    constexpr int kVersions = 150;
    constexpr std::size_t kReaders = 3;
    test::ConcurrentReaders readers(host, *center.strand);
    std::vector<std::set<int>> seen(kReaders);
    const auto complaints = readers.run(
        kVersions, kReaders, [&](int version) { post(version); },
        [&](std::size_t reader) {
            const int oldest = readers.oldest();
            seen[reader].insert(others.lastVersion());
            return complaint(oldest, [&readers] { return readers.newest(); });
        });
    EXPECT_EQ(complaints, std::vector<std::string>(kReaders));
    EXPECT_EQ(seen, std::vector<std::set<int>>(kReaders, test::versionsUpTo(kVersions)));
    EXPECT_EQ(complaint(kVersions, kVersions), "");
}

}  // namespace
