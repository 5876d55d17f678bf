// JSON and CSV: one row for each line of the answers.
#include <fmt/format.h>

#include <algorithm>

#include "feedesk/account_kinds.h"
#include "feedesk/csv.h"
#include "feedesk/json.h"
#include "feedesk/marks.h"
#include "feedesk/numbers.h"
#include "feedesk/show.h"

namespace feedesk {
namespace {

template <class Visit>
void forEachRate(const FeeLine& line, const Visit& visit) {
    for (const TitledRates& titled : line.rates) {
        std::for_each(titled.rates.begin(), titled.rates.end(), visit);
    }
}

template <class Visit>
void forEachLine(const std::vector<Answer>& answers, const Visit& visit) {
    for (const Answer& answer : answers) {
        for (const FeeLine& line : answer.lines) {
            visit(answer, line);
        }
    }
}

std::vector<std::string> markNames(const FeeLine& line) {
    const std::vector<Mark> marks = marksOf(line);
    std::vector<std::string> names(marks.size());
    std::transform(marks.begin(), marks.end(), names.begin(), markName);
    return names;
}

JsonObject jsonLine(const Answer& answer, const FeeLine& line, const standalone::Market& market) {
    JsonObject object;
    object.text("account", answer.account->accountId);
    object.text("kind", accountKind(answer.account->accountType).name);
    object.object("instrument", JsonObject()
                                    .text("market", answer.instrument->market)
                                    .text("code", answer.instrument->code)
                                    .text("name", answer.instrument->name));
    object.text("part", line.part).text("item", line.item).text("level", levelName(line.origin.level));
    const std::string source = sourceText(line.origin, market);
    source.empty() ? object.null("source") : object.text("source", source);
    object.texts("marks", markNames(line));
    JsonObject rates;
    forEachRate(line, [&](const Rate& rate) { rates.number(rate.column, rate.value); });
    return object.object("rates", rates);
}

/// Every column of the answers' rates, once, in the order in which they appear.
std::vector<std::string> rateColumns(const std::vector<Answer>& answers) {
    std::vector<std::string> columns;
    forEachLine(answers, [&](const Answer&, const FeeLine& line) {
        forEachRate(line, [&](const Rate& rate) {
            if (std::find(columns.begin(), columns.end(), rate.column) == columns.end()) {
                columns.push_back(rate.column);
            }
        });
    });
    return columns;
}

std::vector<std::string> csvCells(const Answer& answer, const FeeLine& line, const std::vector<std::string>& columns,
                                  const standalone::Market& market) {
    std::vector<std::string> cells = {answer.account->accountId,
                                      accountKind(answer.account->accountType).name,
                                      answer.instrument->market,
                                      answer.instrument->code,
                                      answer.instrument->name,
                                      line.part,
                                      line.item,
                                      levelName(line.origin.level),
                                      sourceText(line.origin, market),
                                      fmt::format("{}", fmt::join(markNames(line), " "))};
    const std::size_t first = cells.size();
    cells.resize(first + columns.size());
    forEachRate(line, [&](const Rate& rate) {
        const auto column = std::find(columns.begin(), columns.end(), rate.column) - columns.begin();
        cells[first + static_cast<std::size_t>(column)] = plainNumber(rate.value);
    });
    return cells;
}

}  // namespace

std::string sourceText(const Origin& origin, const standalone::Market& market) {
    return origin.position ? market.where(*origin.position) : "";
}

std::string showAsJson(const std::vector<Answer>& answers, const standalone::Market& market) {
    std::vector<JsonObject> objects;
    forEachLine(answers,
                [&](const Answer& answer, const FeeLine& line) { objects.push_back(jsonLine(answer, line, market)); });
    return jsonArray(objects);
}

std::string showAsCsv(const std::vector<Answer>& answers, const standalone::Market& market) {
    const std::vector<std::string> columns = rateColumns(answers);
    std::vector<std::string> header = {"account", "kind", "market", "code",   "name",
                                       "part",    "item", "level",  "source", "marks"};
    header.insert(header.end(), columns.begin(), columns.end());
    std::string text = csvLine(header);
    forEachLine(answers, [&](const Answer& answer, const FeeLine& line) {
        text += csvLine(csvCells(answer, line, columns, market));
    });
    return text;
}

}  // namespace feedesk
