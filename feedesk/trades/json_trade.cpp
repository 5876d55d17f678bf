#include "feedesk/trades/json_trade.h"

#include <fmt/format.h>
#include <rapidjson/error/en.h>
#include <rapidjson/reader.h>

#include <bitset>

#include "feedesk/text/text.h"

namespace feedesk {
namespace {

/// Takes the members of one flat object. A handler that answers false ends the reading.
class Members : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, Members> {
public:
    explicit Members(TradeLine& readTrade) : trade(readTrade) {}

    bool Default() { return refuse("holds a value that is neither a text nor a number"); }
    bool StartObject() { return depth++ == 0 || refuse("holds an object"); }
    bool EndObject(rapidjson::SizeType /*members*/) { return true; }
    bool Null() { return isInside(); }
    bool String(const char* text, rapidjson::SizeType length, bool /*copy*/) { return take({text, length}); }
    bool RawNumber(const char* text, rapidjson::SizeType length, bool /*copy*/) { return take({text, length}); }

    bool Key(const char* text, rapidjson::SizeType length, bool /*copy*/) {
        const std::string name(text, length);
        column = tradeColumn(name);
        if (!column) {
            trade.fault = fmt::format("the member {} is unknown; known are {}", echoed(name), tradeColumnNames());
            return false;
        }
        const auto number = static_cast<std::size_t>(*column);
        if (seen[number]) {
            return refuse("is there twice");
        }
        seen.set(number);
        return true;
    }

private:
    bool refuse(const std::string& what) {
        const std::string name = column ? std::string(kTradeColumns[static_cast<std::size_t>(*column)]) : "";
        trade.fault = name.empty() ? "one JSON object with the members of a trade was expected"
                                   : fmt::format("the member {} {}", name, what);
        return false;
    }
    bool isInside() { return column || refuse(""); }
    bool take(std::string_view text) {
        if (!isInside()) {
            return false;
        }
        trade.of(*column) = text;
        return true;
    }

    TradeLine& trade;
    int depth = 0;
    std::optional<TradeColumn> column;
    std::bitset<kTradeColumns.size()> seen;
};

}  // namespace

void readJsonTrade(const std::string& json, TradeLine& trade) {
    Members members(trade);
    rapidjson::Reader reader;
    rapidjson::StringStream stream(json.c_str());
    constexpr unsigned kFlags = rapidjson::kParseNumbersAsStringsFlag | rapidjson::kParseValidateEncodingFlag;
    const rapidjson::ParseResult result = reader.Parse<kFlags>(stream, members);
    if (result.IsError() && trade.fault.empty()) {
        trade.fault = fmt::format("the line is no JSON object: {} At character {}",
                                  rapidjson::GetParseError_En(result.Code()), result.Offset() + 1);
    }
}

}  // namespace feedesk
