#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <optional>
#include <utility>

#include "cost/refused.h"
#include "feedesk/commands/cost_arguments.h"
#include "feedesk/commands/cost_marks.h"
#include "feedesk/commands/cost_rows.h"
#include "feedesk/commands/cost_totals.h"
#include "feedesk/session/overwriting.h"
#include "feedesk/terminal/messages.h"
#include "feedesk/terminal/terminal.h"
#include "feedesk/text/numbers.h"
#include "feedesk/trades/text_lines.h"
#include "feedesk/trades/trade_days.h"
#include "feedesk/trades/trade_reader.h"
#include "feedesk/trades/trade_words.h"

namespace feedesk {
namespace {

/// The trades of a file as often as they are wanted.
class TradeFile {
public:
    TradeFile(const CostArguments& asked, bool again) : arguments(asked), lines(asked.file, again && !asked.unsorted) {}

    [[nodiscard]] const std::string& name() const { return lines.name(); }

    template <class Visit>
    void forEach(const Visit& visit) {
        if (arguments.unsorted) {
            sortOnce();
            std::for_each(sorted.begin(), sorted.end(), [&](const Dated& each) { visit(each.line); });
            return;
        }
        readAll(visit);
    }

private:
    struct Dated {
        cost::Date date;
        TradeLine line;
    };

    template <class Visit>
    void readAll(const Visit& visit) {
        if (std::exchange(wasRead, true)) {
            lines.restart();
        }
        TradeReader reader(lines, !arguments.account.empty());
        for (TradeLine line; reader.next(line);) {
            visit(line);
        }
    }

    /// By day, within a day as in the file; what has no date comes first.
    void sortOnce() {
        if (wasRead) {
            return;
        }
        const Progress progress("sorting the trades of " + name());
        readAll([&](const TradeLine& line) { sorted.push_back({dateOf(line), line}); });
        std::stable_sort(sorted.begin(), sorted.end(),
                         [](const Dated& one, const Dated& other) { return one.date < other.date; });
    }

    static cost::Date dateOf(const TradeLine& line) {
        try {
            return dateFrom(line.of(TradeColumn::kDate));
        } catch (const cost::Refused&) {
            return {};
        }
    }

    const CostArguments& arguments;
    TextLines lines;
    bool wasRead = false;
    std::vector<Dated> sorted;
};

/// Reports wrong lines, so many that a person reads them; beyond them they are only counted.
class WrongLines {
public:
    /// `sorted`: the lines do not come in the order of the file, and are held until tellHeld().
    WrongLines(std::string fileName, ExitStatus statusThatFollows, bool sorted)
        : file(std::move(fileName)), status(statusThatFollows), holds(sorted) {}

    void tell(const TradeLine& line, const std::string& sentence) {
        ++count;
        if (holds) {
            hold(line.line, sentence);
        } else if (count <= kMostWrongLines) {
            tellLine(line.line, sentence);
        }
    }

    void tellHeld() {
        for (const auto& [line, sentence] : std::exchange(held, {})) {
            tellLine(line, sentence);
        }
    }

    /// A day whose trades cannot be charged together.
    void tellDay(cost::Date day, std::size_t trades, const std::string& sentence) {
        reportProblem(
            fmt::format("{}: {} of {} cannot be charged: {}", file, counted(trades, "trade"), day.text(), sentence),
            status);
        ofDays += trades;
    }

    [[nodiscard]] std::size_t number() const { return count + ofDays; }
    /// "3 wrong lines", and how many of them were named where that is not all.
    [[nodiscard]] std::string text() const {
        return counted(number(), "wrong line") +
               (count > kMostWrongLines ? fmt::format(", of which {} are named", kMostWrongLines) : "");
    }

private:
    void tellLine(std::size_t line, const std::string& sentence) const {
        reportProblem(InputLine{file, line}, sentence, status);
    }

    /// Keeps the first of the file.
    void hold(std::size_t line, const std::string& sentence) {
        held.emplace(line, sentence);
        if (held.size() > kMostWrongLines) {
            held.erase(std::prev(held.end()));
        }
    }

    std::string file;
    ExitStatus status;
    bool holds;
    std::map<std::size_t, std::string> held;  // by line
    std::size_t count = 0;
    std::size_t ofDays = 0;
};

/// Charges all trades of the file; how many there are.
template <class TakeDay>
std::size_t charge(TradeFile& file, Tariffs& tariffs, const CostArguments& arguments, WrongLines& wrong,
                   const TakeDay& takeDay) {
    Exchange exchange(arguments.exchangeRate);
    TradeDays days(tariffs, arguments.account, arguments.hedge,
                   {[&](cost::Bill bill) { return exchange(std::move(bill)); }, takeDay,
                    [&](cost::Date day, std::size_t trades, const std::string& sentence) {
                        wrong.tellDay(day, trades, sentence);
                    }});
    std::size_t count = 0;
    file.forEach([&](const TradeLine& line) {
        ++count;
        try {
            days.add(line);
        } catch (const cost::Refused& refused) {
            wrong.tell(line, refused.what());
        }
    });
    days.finish();
    wrong.tellHeld();
    return count;
}

void refuseWrongLines(TradeFile& file, Tariffs& tariffs, const CostArguments& arguments) {
    const Progress progress("checking the trades of " + file.name());
    WrongLines wrong(file.name(), kBadInput, arguments.unsorted);
    charge(file, tariffs, arguments, wrong, [](const auto& /*trades*/, const auto& /*bills*/) {});
    if (wrong.number() > 0) {
        throw Failure(kBadInput, wrong.text() + "; nothing was answered: --keep-going answers the others");
    }
}

/// Gives rows to the sink day by day: items, or totals where they are asked for.
class Answering {
public:
    explicit Answering(const CostArguments& asked)
        : arguments(asked), totals(totalsKeyFrom(asked.totals)), items(itemFields()), sums(totals.fields()) {}

    [[nodiscard]] Section section() const {
        return arguments.totals.empty() ? sectionOf("", items, "Charges") : sectionOf("", sums, "Totals");
    }

    void giveDay(std::vector<NumberedTrade> trades, std::vector<cost::Bill> bills, RowSink& sink) {
        std::vector<std::size_t> numbers;
        std::transform(trades.begin(), trades.end(), std::back_inserter(numbers),
                       [](const NumberedTrade& each) { return each.number; });
        for (std::size_t i = 0; i < trades.size(); ++i) {
            const ChargedTrade charged(numbers[i], std::move(trades[i].trade), std::move(bills[i]), numbers);
            marked.add(charged);
            if (arguments.totals.empty()) {
                giveItems(charged, items, 0, sink);
            } else {
                totals.add(charged);
            }
        }
        totals.giveAfterDay(sums, sink);
    }

    void giveRest(RowSink& sink) { totals.giveAtEnd(sums, sink); }

    /// How many trades were charged at rates that nobody agreed on; empty when none was.
    [[nodiscard]] std::string warning() const { return marked.sentence(); }

private:
    const CostArguments& arguments;
    MarkedTrades marked;
    Totals totals;
    ItemFields items;
    FieldsOf<Total> sums;
};

/// JSON has a line for each row, so that a long answer can be read as it comes; items have no table.
Format streamed(Format format, const CostArguments& arguments) {
    if (format == Format::kJson) {
        return Format::kJsonLines;
    }
    return format == Format::kTable && arguments.totals.empty() ? Format::kCsv : format;
}

}  // namespace

ExitStatus costOfFile(Program& program, const CostArguments& arguments) {
    program.format = streamed(program.format, arguments);
    refuseToOverwrite(program.file, arguments.file, "the file of the trades");
    Session& session = program.open();
    if (!arguments.account.empty()) {
        static_cast<void>(session.account(arguments.account));  // which must be there
    }
    Tariffs tariffs(session);
    TradeFile file(arguments, !arguments.keepGoing);
    if (!arguments.keepGoing) {
        refuseWrongLines(file, tariffs, arguments);
    }
    WrongLines wrong(file.name(), kNoAnswer, arguments.unsorted);
    std::size_t count = 0;
    Answering answering(arguments);
    program.answer(session, {answering.section()}, [&](RowSink& sink) {
        // A terminal that shows the answer needs no progress.
        const std::optional<Progress> progress =
            isatty(STDOUT_FILENO) != 0 ? std::nullopt : std::make_optional<Progress>("charging trades");
        count = charge(file, tariffs, arguments, wrong,
                       [&](auto trades, auto bills) { answering.giveDay(std::move(trades), std::move(bills), sink); });
        answering.giveRest(sink);
        return Remarks{"", {}, answering.warning()};
    });
    if (wrong.number() == 0) {
        return program.strict && !answering.warning().empty() ? kNoAnswer : kAnswered;
    }
    reportProblem(fmt::format("{} of {} trades {} not answered", grouped(wrong.number()), grouped(count),
                              wrong.number() == 1 ? "is" : "are"));
    return kNoAnswer;
}

}  // namespace feedesk
