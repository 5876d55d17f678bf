#include <fmt/format.h>

#include <boost/make_shared.hpp>
#include <limits>

#include "standalone/channels.h"
#include "standalone/loader/lists.h"
#include "standalone/loader/rule_line.h"
#include "standalone/loader/spreadsheet_code.h"
#include "standalone/loader/table.h"
#include "standalone/loader/tables.h"
#include "standalone/text/escape.h"

namespace standalone::loader {
namespace {

using qmservice::CInstrument;

constexpr double kNotSet = -1.0;

struct InstrumentLine {
    InstrumentLine() { record.openFee = record.closeFee = record.closeTodayFee = kNotSet; }

    CInstrument record;
    Lists lists;
    int tradeUnit = 0;
    int quantityStep = 0;
};

using InstrumentColumn = TableColumn<InstrumentLine>;

void readCode(TableCell& cell, std::string& code) {
    if (cell.text.find('*') != std::string_view::npos) {
        cell.refuseFound(ErrorKind::kName, "a code without \"*\"",
                         [] { return "\"*\" belongs into patterns of other tables"; });
    } else if (namesChannel(cell.text)) {
        cell.refuse(ErrorKind::kName, [&] {
            return fmt::format(
                " holds {}, but {} are the names of the connect channels, and the instrument could not be asked for; "
                "give it a code without them",
                inQuotes(cell.text), fmt::join(kChannels, " and "));
        });
    } else if (isSpreadsheetNumber(cell.text)) {
        cell.refuseFound(ErrorKind::kName, "a code, and not the number that a spreadsheet makes of it,",
                         [] { return kKeepCodes; });
    } else {
        readName(cell, code);
    }
}

InstrumentColumn textColumn(const std::string& name, ColumnNeed need, std::string CInstrument::*field) {
    return {name, need, [field](InstrumentLine& line, TableCell& cell) { readText(cell, line.record.*field); }};
}

InstrumentColumn quantityColumn(const std::string& name, int InstrumentLine::*field) {
    return {name, ColumnNeed::kOptional, [field](InstrumentLine& line, TableCell& cell) {
                readInteger(cell, 1, std::numeric_limits<int>::max(), line.*field);
            }};
}

InstrumentColumn fromZeroColumn(const std::string& name, double CInstrument::*field) {
    return {name, ColumnNeed::kOptional,
            [field](InstrumentLine& line, TableCell& cell) { readNumberFromZero(cell, line.record.*field); }};
}

const Words& feeTypeWords() {
    static const Words words = [] {
        Words all;
        for (const NamedExchangeFee& fee : kExchangeFees) {
            all.emplace_back(fee.name, fee.type);
        }
        return all;
    }();
    return words;
}

std::vector<InstrumentColumn> instrumentColumns(const Load& load) {
    return {
        {"market", ColumnNeed::kFilled,
         [&load](InstrumentLine& line, TableCell& cell) { readMarketName(load, cell, line.record.market); }},
        {"code", ColumnNeed::kFilled, [](InstrumentLine& line, TableCell& cell) { readCode(cell, line.record.code); }},
        textColumn("name", ColumnNeed::kFilled, &CInstrument::name),
        {"lists", ColumnNeed::kPresent, [](InstrumentLine& line, TableCell& cell) { readLists(cell, line.lists); }},
        textColumn("product", ColumnNeed::kOptional, &CInstrument::productId),
        quantityColumn("trade_unit", &InstrumentLine::tradeUnit),
        quantityColumn("quantity_step", &InstrumentLine::quantityStep),
        fromZeroColumn("multiplier", &CInstrument::volumeMultiple),
        fromZeroColumn("tick", &CInstrument::priceTick),
        {"fee_type", ColumnNeed::kOptional,
         [](InstrumentLine& line, TableCell& cell) { readWord(cell, feeTypeWords(), line.record.feeType); }},
        fromZeroColumn("open_fee", &CInstrument::openFee),
        fromZeroColumn("close_fee", &CInstrument::closeFee),
        fromZeroColumn("close_today_fee", &CInstrument::closeTodayFee),
    };
}

/// The line's own quantity or, where it names none, the one of its market.
int quantityOf(const Load& load, const InstrumentLine& line, int InstrumentLine::*own, int MarketPlace::*ofMarket) {
    if (line.*own != 0) {
        return line.*own;
    }
    const std::size_t* market = load.markets.find(line.record.market);
    return market == nullptr ? 0 : load.market.markets[*market].*ofMarket;
}

void addInstrument(Load& load, const std::string& file, const ReadLine<InstrumentLine>& read) {
    const CInstrument& record = read.line.record;
    load.instrumentsWhole = load.instrumentsWhole && read.whole;
    if (record.market.empty() || record.code.empty()) {
        load.instrumentsComplete = false;
        return;
    }
    std::vector<ListedInstrument>& all = load.market.instruments;
    if (const auto first = load.instruments.add(record.market, record.code, all.size())) {
        load.errors.add({file, read.position.line, "code"}, ErrorKind::kRepeated, [&] {
            return fmt::format("the instrument {} {} is already at {}; remove one of the lines", record.market,
                               inQuotes(record.code), load.market.where(all[*first].position));
        });
        return;
    }
    all.push_back({boost::make_shared<CInstrument>(record), read.line.lists.listMask, read.line.lists.types,
                   quantityOf(load, read.line, &InstrumentLine::tradeUnit, &MarketPlace::tradeUnit),
                   quantityOf(load, read.line, &InstrumentLine::quantityStep, &MarketPlace::quantityStep),
                   read.position});
}

}  // namespace

void readInstruments(Load& load) {
    const std::vector<InstrumentColumn> columns = instrumentColumns(load);
    for (const std::string& file : load.instrumentFiles) {
        const bool complete = readTable<InstrumentLine>(
            load, file, columns, [&](const ReadLine<InstrumentLine>& read) { addInstrument(load, file, read); });
        load.instrumentsComplete = load.instrumentsComplete && complete;
    }
    load.instrumentsComplete = load.instrumentsComplete && !load.instrumentFiles.empty();
    load.instrumentsWhole = load.instrumentsWhole && load.instrumentsComplete;
}

}  // namespace standalone::loader
