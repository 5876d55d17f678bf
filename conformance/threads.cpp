#include <array>
#include <atomic>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>
#include <utility>

#include "conformance/asking.h"
#include "conformance/promise.h"

namespace conformance {
namespace {

using namespace qmservice;

/// A call of the host, and its answer as text.
struct Question {
    std::string call;
    std::function<std::string()> ask;
};

template <class Limit>
std::string rateText(const boost::shared_ptr<Limit>& limit) {
    return limit ? "a limit with rate1 " + plain(limit->rate1) : "an empty pointer";
}

std::string truth(bool answer) { return answer ? "true" : "false"; }

void addInstrument(std::vector<Question>& questions, const std::string& market, const std::string& code) {
    const std::string name = market + " " + code;
    const auto add = [&](const char* call, std::function<std::string()> ask) {
        questions.push_back({std::string(call) + " of " + name, std::move(ask)});
    };
    add("utils::voStockKey", [=] { return utils::voStockKey(market, code); });
    add("utils::splitVoStockKey", [=] {
        std::string gotMarket;
        std::string gotCode;
        utils::splitVoStockKey(utils::voStockKey(market, code), gotMarket, gotCode);
        return gotMarket + " " + gotCode;
    });
    add("utils::hash", [=] { return hex(keyOf(market, code)); });
    add("crc64", [=] { return hex(crc64(0, name.data(), name.size())); });
    add("IInstrumentCenter::findInstrument",
        [=] { return nameOf(catalogue().findInstrument(keyOf(market, code)).get()); });
    add("getTradeMinUnit", [=] { return std::to_string(getTradeMinUnit(market, code)); });
    add("ConfigCollector::getRateLimitPtr",
        [=] { return rateText(ConfigCollector::instance()->getRateLimitPtr(market, code)); });
    add("ConfigCollector::getHGTExchangeRateLimitPtr",
        [=] { return rateText(ConfigCollector::instance()->getHGTExchangeRateLimitPtr(market, code)); });
    add("ConfigCollector::getSgtExchangeRateLimitPtr",
        [=] { return rateText(ConfigCollector::instance()->getSgtExchangeRateLimitPtr(market, code)); });
    add("CppCategory::isStockInCategoryForTS", [=] {
        return truth(utils::CSingletonT<CppCategory>::instance()->isStockInCategoryForTS(market, code, "", 1));
    });
    add("CppCategory::isStockInCustomCategory", [=] {
        return truth(utils::CSingletonT<CppCategory>::instance()->isStockInCustomCategory(
            market, code, {utils::voStockKey(market, code)}));
    });
    add("StockTypeCenter::isWPMarket",
        [=] { return truth(utils::CSingletonT<StockTypeCenter>::instance()->isWPMarket(market)); });
}

std::vector<Question> questionsFor(const Sample& sample) {
    std::vector<Question> questions;
    for (const SampleInstrument& known : instrumentsOf(sample)) {
        addInstrument(questions, known.market, known.code);
    }
    addInstrument(questions, kNoMarket, kNoCode);
    for (const auto& account : sample.accounts) {
        questions.push_back(
            {"getHashKey(0) of account " + account->accountId, [account] { return hex(account->getHashKey(0)); }});
        questions.push_back({"IDataCenter::getAccountData of account " + account->accountId, [account] {
                                 const auto data = accountStore()->getAccountData(account->getHashKey(0));
                                 return data && data->getAccountInfo() ? data->getAccountInfo()->accountId
                                                                       : "no account";
                             }});
        questions.push_back({"ConfigCollector::isSimulationPlatform of account " + account->accountId, [account] {
                                 return truth(ConfigCollector::instance()->isSimulationPlatform(account->platformId));
                             }});
    }
    questions.push_back({"CppCategory::getCategorId", [] {
                             return std::to_string(utils::CSingletonT<CppCategory>::instance()->getCategorId("5"));
                         }});
    questions.push_back({"IInstrumentCenter::getInstrumentList", [] {
                             std::vector<boost::shared_ptr<CInstrument>> instruments;
                             catalogue().getInstrumentList(instruments, kStockList);
                             return std::to_string(instruments.size()) + " instruments";
                         }});
    questions.push_back({"IInstrumentCenter::getInstrumentMap", [] {
                             std::map<std::string, boost::shared_ptr<CInstrument>> instruments;
                             catalogue().getInstrumentMap(kFuturesType, instruments);
                             return std::to_string(instruments.size()) + " instruments";
                         }});
    return questions;
}

std::string answerTo(const Question& question) {
    try {
        return question.ask();
    } catch (const std::exception& error) {
        return std::string("an exception (") + error.what() + ")";
    } catch (...) {
        return "something thrown that is no std::exception";
    }
}

/// The first answer that was another than the one thread alone was given.
class Difference {
public:
    void found(const std::string& calledHost, const std::string& text) {
        const std::lock_guard<std::mutex> lock(mutex);
        if (call.empty()) {
            call = calledHost;
            did = text;
        }
    }
    // Read when the threads have ended.
    std::string call;
    std::string did;

private:
    std::mutex mutex;
};

void sameAnswers(const Sample& sample, Witness& witness) {
    constexpr int kRounds = 100;
    const std::vector<Question> questions = questionsFor(sample);
    std::vector<std::string> expected;
    expected.reserve(questions.size());
    for (const Question& question : questions) {
        expected.push_back(answerTo(question));
    }

    Difference difference;
    std::array<std::thread, 4> threads;
    std::atomic<std::size_t> missing{threads.size()};
    const auto work = [&](std::size_t first) {
        --missing;
        while (missing != 0) {
            std::this_thread::yield();
        }
        for (std::size_t i = first; i < first + kRounds * questions.size(); ++i) {
            const std::size_t place = i % questions.size();
            const std::string answer = answerTo(questions[place]);
            if (answer != expected[place]) {
                difference.found(questions[place].call,
                                 "gave " + answer + " where one thread alone was given " + expected[place]);
                return;
            }
        }
    };
    for (std::size_t i = 0; i < threads.size(); ++i) {
        threads[i] = std::thread(work, i * questions.size() / threads.size());
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    witness.call(difference.call + ", asked by four threads at once,", [] {});
    Witness::expect(difference.call.empty(), difference.did);
}

}  // namespace

Promises threadPromises() {
    return {
        {"threads.same-answers",
         "every service must be safe to call from any number of threads at once",
         "guard what a service writes while it answers, or let it write nothing",
         sameAnswers,
         {"services.present", "catalogue.knows", "accounts.key-stays"}},
    };
}

}  // namespace conformance
