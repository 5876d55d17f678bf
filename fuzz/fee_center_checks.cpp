#include "fuzz/fee_center_checks.h"

#include <boost/make_shared.hpp>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "CFeeCenter.h"
#include "fuzz/fail.h"
#include "fuzz/last_record_check.h"
#include "fuzz/rate_text.h"
#include "host/services.h"
#include "standalone/host.h"

namespace fuzz {
namespace {

using namespace standalone;
using qmservice::CFeeCenter;
using qmservice::CInstrument;
using qmservice::CInstrumentFee;
using Fee = boost::shared_ptr<CInstrumentFee>;

const std::string kName = "fuzz";
const std::string kNoMarket = "no market";  // a market's name has no space

/// The engine runs from the first input to the last: to start a thread for each takes longer than to load a small
/// market.
void startEngineOnce() {
    static const bool started = (startEngine(1), true);
    static_cast<void>(started);
}

/// The market in the process's services, and a fee center that knows its accounts' fees.
class PublishedMarket {
public:
    explicit PublishedMarket(const Market& market) : center(kName) {
        startEngineOnce();
        install(market);
        for (const Account& account : market.accounts) {
            feed(center, account);
        }
        waitForStrand(kName);
    }
    PublishedMarket(const PublishedMarket&) = delete;
    PublishedMarket& operator=(const PublishedMarket&) = delete;
    ~PublishedMarket() { uninstall(); }

    CFeeCenter center;
};

std::string logged(const CInstrumentFee& fee) {
    std::ostringstream out;
    fee.toLogStream(out);
    return out.str();
}

std::string logged(const Fee& fee) { return fee ? logged(*fee) : "no fee"; }

/// The questions about one account.
class AccountCheck {
public:
    AccountCheck(CFeeCenter& feeCenter, const Market& wholeMarket, const Account& askedAccount)
        : center(feeCenter), market(wholeMarket), account(askedAccount) {}

    void run() {
        for (const ListedInstrument& listed : market.instruments) {
            ask(listed.record);
        }
        if (center.getFee(account.record, kNoMarket, "1")) {
            refuse("an unknown instrument has no fee");
        }
        checkList();
        checkLastRecords(market, account, answers);
    }

private:
    [[noreturn]] void refuse(const std::string& what) const {
        fail(what + "\naccount " + account.record->accountId + " of " + market.folder);
    }

    void ask(const boost::shared_ptr<CInstrument>& instrument) {
        const Fee fee = center.getFee(account.record, utils::voStockKey(instrument->market, instrument->code));
        if (!fee) {
            refuse("a known instrument has a fee\n" + instrument->code);
        }
        if (fee->account != account.record || fee->instrument != instrument) {
            refuse("a fee is made out for what was asked\n" + instrument->code + "\n" + logged(*fee));
        }
        const Fee other = center.getFee(account.record, instrument->market, instrument->code);
        if (!other || !other->isEqual(*fee)) {
            refuse("both ways of asking agree\n" + logged(*fee) + "\n" + logged(other));
        }
        answers[instrument.get()] = fee;
    }

    /// The instruments that the account has been given an entry for by its fee records; of futures, with a commission.
    [[nodiscard]] std::set<const CInstrument*> recorded() const {
        const int kind = account.record->accountType;
        const bool futures = kind == qmservice::kFuturesAccount || kind == qmservice::kFutures5Account;
        std::set<const CInstrument*> instruments;
        for (const FeeRecord& fee : account.fees) {
            if (!futures || fee.record->commissionDetail) {
                instruments.insert(fee.record->instrument.get());
            }
        }
        return instruments;
    }

    /// A list answers as single questions do; but the list of a NEEQ account has the stock answers, which without stock
    /// entries are the configured limit or the default.
    void checkListed(const CInstrumentFee& listed, const CInstrumentFee& answer) const {
        if (account.record->accountType != qmservice::kNeeqAccount) {
            if (!listed.isEqual(answer)) {
                refuse("a list agrees with the answers\n" + logged(listed) + "\n" + logged(answer));
            }
            return;
        }
        const auto stockAccount = boost::make_shared<qmservice::CAccountInfo>(*account.record);
        stockAccount->accountType = qmservice::kStockAccount;
        const Fee stock = center.getFee(stockAccount, listed.instrument->market, listed.instrument->code);
        if (!stock || !listed.stkRateLimit || rateText(*listed.stkRateLimit, 0) != rateText(*stock->stkRateLimit, 0)) {
            refuse("a NEEQ list has the stock answers\n" + logged(listed) + "\n" + logged(stock));
        }
    }

    void checkList() const {
        std::vector<Fee> fees;
        const bool any = center.getFees(account.record, fees);
        std::set<const CInstrument*> listed;
        for (const Fee& fee : fees) {
            if (!fee || !fee->instrument) {
                refuse("every fee of a list names its instrument\n" + logged(fee));
            }
            if (!listed.insert(fee->instrument.get()).second) {
                refuse("a list has each instrument once\n" + logged(fee));
            }
            const auto answer = answers.find(fee->instrument.get());
            if (answer == answers.end()) {
                refuse("a list has instruments of the market alone\n" + logged(fee));
            }
            checkListed(*fee, *answer->second);
        }
        if (any == listed.empty()) {
            refuse("a list is there where the account has entries, and only there");
        }
        const std::set<const CInstrument*> expected = recorded();
        for (const CInstrument* instrument : expected) {
            if (listed.count(instrument) == 0) {
                refuse("a list has every record's instrument\n" + instrument->code);
            }
        }
        if (account.customFees.empty() && listed.size() != expected.size()) {
            refuse("a list has the records' instruments alone");
        }
    }

    CFeeCenter& center;
    const Market& market;
    const Account& account;
    Answers answers;
};

}  // namespace

void checkFeeCenter(const Market& market) {
    PublishedMarket published(market);
    for (const Account& account : market.accounts) {
        AccountCheck(published.center, market, account).run();
    }
}

}  // namespace fuzz
