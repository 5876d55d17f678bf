#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "conformance/conformance.h"
#include "support/faulty_host.h"

// For each promise a host that breaks it and no other: the suite says so, in this sentence.

namespace {

using conformance::Outcome;
using conformance::Sample;
using conformance::Verdict;
using std::chrono::milliseconds;
using test::FaultyHost;

void asItIs(Sample& /*sample*/) {}
/// For a job that is never run.
void hurry(Sample& sample) { sample.patience = milliseconds(50); }
/// Ends as soon as a second job runs.
void holdLong(Sample& sample) { sample.hold = milliseconds(10000); }

struct Fault {
    const char* name;      ///< the promise's, and a word on the way where there are several
    const char* sentence;  ///< a star for what an address or chance decides
    void (*adjust)(Sample&) = asItIs;
};

const Fault kFaults[] = {
    {"services.present",
     "TraderCenter::getDataCenter() gave an empty pointer, but every service must be there for as long as a fee center "
     "lives: make the object before the first fee center is built, and destroy it after the last."},
    {"services.one-object TraderCenter",
     "TraderCenter::instance() gave another object than the time before, but a singleton must be one object for the "
     "whole program: hand out one static or long-lived object."},
    {"services.one-object ConfigCollector",
     "ConfigCollector::instance() gave another object than the time before, but a singleton must be one object for the "
     "whole program: hand out one static or long-lived object."},
    {"services.one-object CppCategory",
     "utils::CSingletonT<CppCategory>::instance() gave another object than the time before, but a singleton must be "
     "one object for the whole program: hand out one static or long-lived object."},
    {"keys.market-first",
     "utils::voStockKey(\"HGT\", \"00700\") gave \"00700.HGT\" where (\"HK\", \"00700\") gives \"00700.HK\", but a "
     "joined key must begin with the market and go on the same way for every market, or no connect instrument is "
     "found: join market, separator and code in this order."},
    {"keys.split",
     "utils::splitVoStockKey(\"SH/600519\") gave \"600519\" and \"SH\", but it must give back the two parts that "
     "voStockKey joined: split at the separator that voStockKey puts in, and assign both parts."},
    {"hash.repeats",
     "utils::hash(\"\") gave 0xcbf29ce484222326 and then 0xcbf29ce484222327, but equal texts must have equal hashes "
     "for as long as the program runs: let nothing into the hash but the text."},
    {"hash.whole-text",
     "utils::hash(\"SH\\0B\") gave 0x09461607b5d5ca3e, which it gives for \"SH\\0A\" too, but texts that differ "
     "anywhere must differ in their hash, or one instrument is answered for another: hash all bytes of the text with a "
     "good 64-bit hash."},
    {"crc64.continues",
     "crc64(crc64(0, \"1234\"), \"56789\") gave 0x6971a807c348604b where crc64(0, \"123456789\") gives "
     "0x995dc9bbdf1939fa, but a sum continued from a seed must be that of the whole text: begin with `seed`."},
    {"crc64.of-nothing",
     "crc64(0x0123456789abcdef, nullptr, 0) gave 0x0000000000000000, but a sum continued with nothing must stay as it "
     "is: return `seed` when `length` is 0."},
    {"crc64.every-byte",
     "crc64(0, 64 digits of which number 33 is 1) gave 0x2f86febd80cc552b, which it gives for 64 zeros too, but texts "
     "that differ in one byte must differ in their sum, or two rates are stored as one: let every byte into the sum."},
    {"crc64.known-value",
     "crc64(0, \"123456789\") gave 0xb90956c775a41001, but it must be what Sample::crc64OfDigits says: compare "
     "polynomial, initial value and final exclusive or with those that you mean."},
    {"catalogue.knows",
     "IInstrumentCenter::findInstrument(key of BJ 430047) gave an empty pointer, but it must give the instrument whose "
     "joined key has this hash: file every instrument under utils::hash(utils::voStockKey(market, code)) of its own "
     "market and code."},
    {"catalogue.unknown-is-empty",
     "IInstrumentCenter::findInstrument(key of NONE 000000) gave SH 600519, but an instrument that nobody knows must "
     "be an empty pointer, never another one: return an empty pointer where the key is not found."},
    {"catalogue.stays-the-same",
     "IInstrumentCenter::findInstrument(key of SH 600519) gave product \"odd\" and then \"even\", but an instrument "
     "must keep its market, code and product: do not write a record that was handed out; publish a new one."},
    {"catalogue.lists-repeat",
     "IInstrumentCenter::getInstrumentList(mask 8) left out SZ 000001, which it gave the time before, but a list must "
     "hold the same instruments while the catalogue is not changed: fill the list with every instrument of the mask at "
     "each call."},
    {"catalogue.mask-joins-lists",
     "IInstrumentCenter::getInstrumentList(mask 16809) left out HK 00700, which the list of one of these bits has, but "
     "a mask of several bits must give the instruments of each of its lists: take an instrument in when any bit of the "
     "mask is set for it."},
    {"catalogue.listed-is-known",
     "IInstrumentCenter::findInstrument(key of HK 09999) gave an empty pointer though list 16384 has the instrument, "
     "but what a list or map holds must be found by its key, or a custom fee reaches what no query can ask for: list "
     "only instruments that findInstrument knows."},
    {"catalogue.listed-where-named",
     "IInstrumentCenter::getInstrumentList(mask 128) left out HK 00700, but custom fees reach an instrument only where "
     "its list or map holds it: add the instrument to the lists and maps that SampleInstrument::lists and types name."},
    {"catalogue.map-keys",
     "IInstrumentCenter::getInstrumentMap(type 1024) gave INE bc2610 the key \"bc2610\", which SHFE bc2610 has in the "
     "map "
     "of type 2, but no two instruments of the two maps may have one key, or a custom fee reaches the first alone: use "
     "utils::voStockKey(market, code) as the key."},
    {"catalogue.exchange-fees",
     "SHFE rb2610: getOpenFee() gave -3, but an exchange's own fee must be a number from 0, or -1 where it is not set: "
     "return -1.0 for a fee that you do not know."},
    {"accounts.key-stays",
     "getHashKey(0) of account \"30001\" gave 0xfbc811786a35eede and then 0xfbc811786a35eedd, but an account's key "
     "must depend on its number alone and stay for the account's life: hash accountId and nothing else."},
    {"accounts.keys-differ",
     "getHashKey(0) of account \"30002\" gave 0x0000000000000007, which it gives for \"30001\" too, but accounts must "
     "differ in their key, or one is answered with the other's rates: hash all of accountId with a good 64-bit hash."},
    {"accounts.known",
     "IDataCenter::getAccountData(key of account \"30001\") gave no account, but it must give the data of the account "
     "that has this key: file every account under its getHashKey(0)."},
    {"accounts.unknown-is-empty",
     "IDataCenter::getAccountData(key of an account that nobody has) gave an account's data, but an account that "
     "nobody knows must be an empty pointer: return an empty pointer where the key is not found."},
    {"configuration.trade-unit",
     "getTradeMinUnit(\"SHFE\", \"rb2610\") gave 0, but the trade unit of an instrument must be 1 or more and stay the "
     "same: return the unit of the instrument, or 100 where it has none of its own."},
    {"configuration.any-trade-unit",
     "getTradeMinUnit(\"NONE\", \"000000\") threw an exception (no such instrument), but it is asked before the "
     "instrument is looked up and must answer for any text: return 100 for an instrument that you do not know."},
    {"configuration.unknown-limit-is-empty",
     "ConfigCollector::getRateLimitPtr(\"NONE\", \"000000\") gave a limit, but where nothing is configured an empty "
     "pointer must come back, or the account's default is hidden: return an empty pointer where the instrument has no "
     "limit."},
    {"configuration.limits-repeat",
     "ConfigCollector::getRateLimitPtr(\"SH\", \"600519\") gave another limit than the time before, but the limit of "
     "an instrument must stay the same while nobody configures another: hand out the configured record and do not "
     "write it any more."},
    {"configuration.any-platform",
     "ConfigCollector::isSimulationPlatform(-1) threw an exception (no such platform), but any platform may be asked "
     "for and must be answered the same way each time: return false for a platform that you do not know."},
    {"configuration.any-platform turns",
     "ConfigCollector::isSimulationPlatform(1) gave * and then *, but any platform may be asked for and must be "
     "answered the same way each time: return false for a platform that you do not know."},
    {"categories.custom",
     "CppCategory::isStockInCustomCategory(\"SH\", \"600519\", a list with the joined key of another market) gave "
     "true, but a custom category holds the instruments whose joined keys its list has, and no other: compare "
     "utils::voStockKey(market, code) with the members."},
    {"categories.group",
     "CppCategory::isStockInGroupCategory(\"SH\", \"600519\", a part that takes it in and one that leaves it out) gave "
     "true, but an instrument is in a group when a part takes it in and no part leaves it out: look through all parts, "
     "and look a part's number up in the custom categories that are handed in."},
    {"categories.any-number",
     "CppCategory::isStockInCategoryForTS(\"SH\", \"600519\", \"\", 70001) gave false and then true, but any number "
     "may be asked for and must be answered the same way each time: return false for a number that is no system "
     "category."},
    {"categories.any-name",
     "CppCategory::getCategorId(\"\") gave 101 and then 102, but any name may be asked for and must have the same "
     "number each time: return one number, such as -1, for every name that you do not know."},
    {"markets.home",
     "StockTypeCenter::isWPMarket(\"HK\") gave true, but only a foreign futures market is one: return false for every "
     "other market."},
    {"engine.gives-strand",
     "net::RPCEngine::getStrand(\"conformance: another strand\") gave an empty pointer, but every name must have a "
     "strand, made when it is first asked for: make the strand where the name is not known yet."},
    {"engine.runs-jobs",
     "net::RPCEngine::getStrand(\"conformance\")->post(job) took a job that was not run within 50 ms, but the engine's "
     "threads must run what is posted, or no load is ever done: start threads that call run() of the io_service, with "
     "work to keep them running, before the check.",
     hurry},
    {"engine.one-strand-of-a-name",
     "net::RPCEngine::getStrand(\"conformance\")->post(job) ran two jobs at once, but all who name a strand must share "
     "it, so that its jobs run one at a time and in the order of posting: keep the strands by name and give out the "
     "one that is there.",
     holdLong},
    {"records.copy-equals",
     "CStockOptionFeeRate::copy() gave a record whose baseRate is another, but a copy must be a new record of the same "
     "class with the same fields: copy every field."},
    {"records.copy-independent",
     "CStockOptionFeeRate::copy() gave a record that shares items with the original, but writing into a copy must "
     "never show in the original, and only the account and instrument of a fee stay shared: copy the records behind "
     "pointers too."},
    {"records.equality",
     "CStockOptionFeeRate::isEqual(a record with another items) gave true, but records are equal when they are of one "
     "class and all their fields are: compare every field, and records behind pointers by their contents."},
    {"records.keys",
     "CStockOptionFeeRate::getHashKey(0) gave * for two equal records, but equal records must have equal keys: let the "
     "fields alone into the key, and of a record inside its own key and not its address."},
    {"records.offsets",
     "CStockOptionFeeRate::getOffset(\"items\") gave -1 and not 16, but it must be the field's distance from the start "
     "of the record in bytes, and -1 for a name that is no field: name every field of host/record_fields.h."},
    {"records.texts",
     "CStockOptionFeeRate::toLogStream wrote \"CStockOptionFeeRate{\\n...}\", but the description, the log line and "
     "the JSON object must have the form that host/data.h gives: write the class name and every field, on one line."},
    {"threads.same-answers",
     "*, asked by four threads at once, gave *, but every service must be safe to call from any number of threads at "
     "once: guard what a service writes while it answers, or let it write nothing."},
    {"fee-center.answers",
     "CFeeCenter::getFee(\"SH\", \"600519\") gave the rate 0 where 0.000123 was loaded, but what is loaded on the "
     "engine's threads must be answered on every other: let no key depend on the thread that asks for it."},
    {"engine.outlives-exceptions",
     "net::RPCEngine::getStrand(\"conformance\")->post(job) took a job, behind one that threw, that was not run within "
     "50 ms, but a job that throws must not keep the jobs behind it from running: catch what leaves run() in the "
     "engine's threads, and call run() again.",
     hurry},
};

std::string promiseOf(const Fault& fault) {
    const std::string name = fault.name;
    return name.substr(0, name.find(' '));
}

std::vector<Outcome> brokenOnes(const std::vector<Outcome>& outcomes) {
    std::vector<Outcome> broken;
    std::copy_if(outcomes.begin(), outcomes.end(), std::back_inserter(broken),
                 [](const Outcome& outcome) { return outcome.verdict == Verdict::kBroken; });
    return broken;
}

/// Whether the text is the pattern, with any text for each star.
bool matches(const std::string& text, const std::string& pattern) {
    const auto star = pattern.find('*');
    if (star == std::string::npos) {
        return text == pattern;
    }
    if (text.compare(0, star, pattern, 0, star) != 0) {
        return false;
    }
    for (auto end = star; end <= text.size(); ++end) {
        if (matches(text.substr(end), pattern.substr(star + 1))) {
            return true;
        }
    }
    return false;
}

class FaultyHostTest : public ::testing::TestWithParam<Fault> {};

TEST_P(FaultyHostTest, BreaksThatPromiseAndNoOther) {
    const FaultyHost host(GetParam().name);
    Sample sample = host.sample();
    GetParam().adjust(sample);
    const auto broken = brokenOnes(conformance::check(sample));
    ASSERT_EQ(broken.size(), 1U) << (broken.empty() ? "" : broken[1].sentence);
    EXPECT_EQ(broken[0].promise, promiseOf(GetParam()));
    EXPECT_TRUE(matches(broken[0].sentence, GetParam().sentence)) << broken[0].sentence;
}

INSTANTIATE_TEST_SUITE_P(Promises, FaultyHostTest, ::testing::ValuesIn(kFaults), [](const auto& fault) {
    std::string name = fault.param.name;
    std::replace_if(
        name.begin(), name.end(), [](char c) { return c == '.' || c == '-' || c == ' '; }, '_');
    return name;
});

TEST(ConformanceTest, EveryPromiseHasItsFault) {
    std::vector<std::string> faults;
    for (const Fault& fault : kFaults) {
        faults.push_back(promiseOf(fault));
    }
    faults.erase(std::unique(faults.begin(), faults.end()), faults.end());
    EXPECT_EQ(faults, conformance::promises());
}

// A line of the guide's table begins "| `NAME` |".
TEST(ConformanceTest, HostGuideListsThePromises) {
    std::ifstream guide(HOST_GUIDE);
    std::vector<std::string> listed;
    bool inside = false;
    for (std::string line; std::getline(guide, line);) {
        inside = line.empty() ? false : inside || line == "| promise | what is checked |";
        if (inside && line.rfind("| `", 0) == 0) {
            listed.push_back(line.substr(3, line.find('`', 3) - 3));
        }
    }
    EXPECT_EQ(listed, conformance::promises());
}

TEST(ConformanceTest, HostWithoutAFaultKeepsEveryPromise) {
    const FaultyHost host("");
    std::ostringstream out;
    EXPECT_TRUE(conformance::report(host.sample(), out));
    EXPECT_EQ(out.str(), std::to_string(conformance::promises().size()) + " promises kept, 0 broken, 0 not checked\n");
}

class FreeHostTest : public ::testing::TestWithParam<const char*> {};

TEST_P(FreeHostTest, KeepsEveryPromise) {
    const FaultyHost host(GetParam());
    std::ostringstream out;
    EXPECT_TRUE(conformance::report(host.sample(), out)) << out.str();
}

INSTANTIATE_TEST_SUITE_P(Liberties, FreeHostTest,
                         ::testing::Values("an account store for each question", "an instrument for each question"));

TEST(ConformanceTest, ReportSaysWhatIsBroken) {
    const FaultyHost host("categories.group");
    std::ostringstream out;
    EXPECT_FALSE(conformance::report(host.sample(), out));
    EXPECT_EQ(out.str().rfind("broken: categories.group: CppCategory::isStockInGroupCategory(", 0), 0U) << out.str();
    EXPECT_NE(out.str().find("promises kept, 1 broken, 0 not checked\n"), std::string::npos) << out.str();
}

// What the sample does not give is not checked, and the report says how to give it.
TEST(ConformanceTest, EmptySampleLeavesPromisesUncheckedAndSaysWhy) {
    const FaultyHost host("");
    Sample sample;
    sample.hold = milliseconds(1);
    std::set<std::string> reasons;
    for (const Outcome& outcome : conformance::check(sample)) {
        EXPECT_NE(outcome.verdict, Verdict::kBroken) << outcome.sentence;
        if (outcome.verdict == Verdict::kNotChecked) {
            reasons.insert(outcome.sentence);
        }
    }
    EXPECT_EQ(
        reasons,
        (std::set<std::string>{
            "an engine without a catch around its jobs would end the program: set Sample::engineOutlivesExceptions.",
            "it cannot be asked for until catalogue.knows is kept.",
            "the sample gives no sum to compare with: set Sample::crc64OfDigits.",
            "the sample names no account: add one that the account store knows to Sample::accounts.",
            "the sample names no instrument: add two that the catalogue knows to Sample::instruments."}));
}

}  // namespace
