#include <algorithm>
#include <utility>

#include "conformance/asking.h"
#include "conformance/promise.h"

namespace conformance {
namespace {

using qmservice::crc64;
using qmservice::uint64;

// A connect key is folded onto the Hong Kong market by its first three characters.
void marketFirst(const Sample& /*sample*/, Witness& witness) {
    const std::string folded = utils::voStockKey("HK", "00700");
    for (const char* channel : {"HGT", "SGT"}) {
        const std::string key = witness.call(callOf("utils::voStockKey", channel, "00700"),
                                             [&] { return utils::voStockKey(channel, "00700"); });
        Witness::expect(key.compare(0, 3, channel) == 0 && "HK" + key.substr(3) == folded,
                        "gave " + inQuotes(key) + " where (\"HK\", \"00700\") gives " + inQuotes(folded));
    }
}

void split(const Sample& sample, Witness& witness) {
    std::vector<std::pair<std::string, std::string>> names = {
        {"SH", "600519"}, {"HK", "00700"}, {"SHFE", "rb2610"}, {"NEEQ", "430047"}};
    std::transform(sample.instruments.begin(), sample.instruments.end(), std::back_inserter(names),
                   [](const SampleInstrument& instrument) { return std::pair(instrument.market, instrument.code); });
    for (const auto& [market, code] : names) {
        const std::string key = utils::voStockKey(market, code);
        std::string gotMarket = "a longer text than before";
        std::string gotCode = gotMarket;
        witness.call("utils::splitVoStockKey(" + inQuotes(key) + ")",
                     [&] { utils::splitVoStockKey(key, gotMarket, gotCode); });
        Witness::expect(gotMarket == market && gotCode == code,
                        "gave " + inQuotes(gotMarket) + " and " + inQuotes(gotCode));
    }
}

void hashRepeats(const Sample& /*sample*/, Witness& witness) {
    for (const std::string& text : {std::string(), std::string("SH600519"), std::string(100, 'x')}) {
        const uint64 before = utils::hash(text);
        const std::string elsewhere(text.begin(), text.end());
        const uint64 after =
            witness.call("utils::hash(" + inQuotes(text) + ")", [&] { return utils::hash(elsewhere); });
        Witness::expect(before == after, "gave " + hex(before) + " and then " + hex(after));
    }
}

void hashOfWholeText(const Sample& /*sample*/, Witness& witness) {
    using namespace std::string_literals;
    const std::pair<std::string, std::string> unlike[] = {{"SH600519", "SH600518"},
                                                          {"SH600519", "SH60051"},
                                                          {"AB", "BA"},
                                                          {"SH\0A"s, "SH\0B"s},
                                                          {std::string(99, 'x') + "1", std::string(99, 'x') + "2"}};
    for (const auto& [one, other] : unlike) {
        const uint64 value = utils::hash(one);
        const uint64 otherValue =
            witness.call("utils::hash(" + inQuotes(other) + ")", [&other = other] { return utils::hash(other); });
        Witness::expect(value != otherValue, "gave " + hex(value) + ", which it gives for " + inQuotes(one) + " too");
    }
}

uint64 sumOf(uint64 seed, const std::string& text) { return crc64(seed, text.data(), text.size()); }

void crcContinues(const Sample& /*sample*/, Witness& witness) {
    const uint64 whole = sumOf(0, "123456789");
    const uint64 parts =
        witness.call("crc64(crc64(0, \"1234\"), \"56789\")", [] { return sumOf(sumOf(0, "1234"), "56789"); });
    Witness::expect(parts == whole, "gave " + hex(parts) + " where crc64(0, \"123456789\") gives " + hex(whole));
}

void crcOfNothing(const Sample& /*sample*/, Witness& witness) {
    constexpr uint64 kSeed = 0x0123456789abcdef;
    const uint64 value = witness.call("crc64(" + hex(kSeed) + ", nullptr, 0)", [] { return crc64(kSeed, nullptr, 0); });
    Witness::expect(value == kSeed, "gave " + hex(value));
}

void crcOfEveryByte(const Sample& /*sample*/, Witness& witness) {
    const std::string digits(64, '0');
    const uint64 value = sumOf(0, digits);
    for (std::size_t place = 0; place < digits.size(); ++place) {
        std::string changed = digits;
        changed[place] = '1';
        const uint64 other = witness.call("crc64(0, 64 digits of which number " + std::to_string(place + 1) + " is 1)",
                                          [&] { return sumOf(0, changed); });
        Witness::expect(other != value, "gave " + hex(other) + ", which it gives for 64 zeros too");
    }
}

void crcOfDigits(const Sample& sample, Witness& witness) {
    if (sample.crc64OfDigits == 0) {
        throw NotChecked{"the sample gives no sum to compare with: set Sample::crc64OfDigits"};
    }
    const uint64 value = witness.call("crc64(0, \"123456789\")", [] { return sumOf(0, "123456789"); });
    Witness::expect(value == sample.crc64OfDigits, "gave " + hex(value));
}

}  // namespace

Promises keyPromises() {
    return {
        {"keys.market-first",
         "a joined key must begin with the market and go on the same way for every market, or no connect instrument is "
         "found",
         "join market, separator and code in this order", marketFirst},
        {"keys.split", "it must give back the two parts that voStockKey joined",
         "split at the separator that voStockKey puts in, and assign both parts", split},
        {"hash.repeats", "equal texts must have equal hashes for as long as the program runs",
         "let nothing into the hash but the text", hashRepeats},
        {"hash.whole-text",
         "texts that differ anywhere must differ in their hash, or one instrument is answered for another",
         "hash all bytes of the text with a good 64-bit hash", hashOfWholeText},
        {"crc64.continues", "a sum continued from a seed must be that of the whole text", "begin with `seed`",
         crcContinues},
        {"crc64.of-nothing", "a sum continued with nothing must stay as it is", "return `seed` when `length` is 0",
         crcOfNothing},
        {"crc64.every-byte", "texts that differ in one byte must differ in their sum, or two rates are stored as one",
         "let every byte into the sum", crcOfEveryByte},
        {"crc64.known-value", "it must be what Sample::crc64OfDigits says",
         "compare polynomial, initial value and final exclusive or with those that you mean", crcOfDigits},
    };
}

}  // namespace conformance
