#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <iterator>
#include <memory>
#include <optional>
#include <variant>

#include "feedesk/account_kinds.h"
#include "feedesk/account_levels.h"
#include "feedesk/csv.h"
#include "feedesk/json.h"
#include "feedesk/numbers.h"
#include "feedesk/patterns.h"
#include "feedesk/program.h"
#include "feedesk/table.h"
#include "feedesk/terminal.h"
#include "feedesk/text.h"

namespace feedesk {
namespace {

struct AccountRow {
    const standalone::Account* account;
    LevelCounts levels;  ///< counted only where they are asked for
};

/// A text, a number that is a name, or how many there are of something.
using Value = std::variant<std::string, std::int32_t, std::size_t>;

/// What one column holds, in every form of the answer.
struct AccountColumn {
    std::string name;             ///< in JSON and CSV
    std::optional<Column> shown;  ///< in the table; empty: the table has no such column
    std::function<Value(const AccountRow&)> value;
};

using Columns = std::vector<AccountColumn>;
using Rows = std::vector<AccountRow>;

Column numberColumn(const std::string& title) { return {words(title), Align::kRight}; }

const qmservice::CAccountInfo& info(const AccountRow& row) { return *row.account->record; }

/// "built_in_default" for "built-in default".
std::string asName(std::string words) {
    std::replace_if(
        words.begin(), words.end(), [](char c) { return c == ' ' || c == '-'; }, '_');
    return words;
}

struct LevelTitle {
    Level level;
    const char* title;
};

constexpr std::array<LevelTitle, kLevels.size()> kLevelTitles = {{{Level::kOwnRecord, "Own record"},
                                                                  {Level::kCustomFee, "Custom fee"},
                                                                  {Level::kConfiguredLimit, "Config. limit"},
                                                                  {Level::kExchangeFee, "Exchange fee"},
                                                                  {Level::kBuiltInDefault, "Built-in default"},
                                                                  {Level::kNotSet, "Not set"}}};

void addLevelColumns(Columns& columns) {
    columns.push_back(
        {"instruments", numberColumn("Total"), [](const AccountRow& row) { return Value(row.levels.instruments); }});
    for (const LevelTitle& titled : kLevelTitles) {
        columns.push_back({asName(levelName(titled.level)), numberColumn(titled.title),
                           [level = titled.level](const AccountRow& row) { return Value(row.levels.of(level)); }});
    }
}

/// Beside the levels a table has no room for names and for what is fed.
Columns accountColumns(bool levels) {
    const auto unlessLevels = [levels](const Column& column) { return levels ? std::optional<Column>() : column; };
    const std::size_t shortestKind = levels ? 8 : 0;
    Columns columns = {{"account", Column{{"Account"}}, [](const AccountRow& row) { return info(row).accountId; }},
                       {"kind", Column{{"Kind"}, Align::kLeft, shortestKind},
                        [](const AccountRow& row) { return accountKind(info(row).accountType).name; }},
                       {"name", unlessLevels({{"Name"}, Align::kLeft, 8}),
                        [](const AccountRow& row) { return info(row).accountName; }},
                       {"platform", unlessLevels(numberColumn("Platform")),
                        [](const AccountRow& row) { return info(row).platformId; }},
                       {"fee_records", unlessLevels(numberColumn("Fee records")),
                        [](const AccountRow& row) { return row.account->fees.size(); }},
                       {"custom_fees", unlessLevels(numberColumn("Custom fees")),
                        [](const AccountRow& row) { return row.account->customFees.size(); }}};
    if (levels) {
        addLevelColumns(columns);
    }
    return columns;
}

template <class Convert>
std::vector<std::string> texts(const Columns& columns, const Convert& convert) {
    std::vector<std::string> made;
    std::transform(columns.begin(), columns.end(), std::back_inserter(made), convert);
    return made;
}

std::string plain(const Value& value) {
    const auto* text = std::get_if<std::string>(&value);
    const auto* number = std::get_if<std::int32_t>(&value);
    return text != nullptr     ? *text
           : number != nullptr ? std::to_string(*number)
                               : std::to_string(std::get<std::size_t>(value));
}

std::string asTable(const Columns& columns, const Rows& rows) {
    Table table;
    table.rows.resize(rows.size());
    for (const AccountColumn& column : columns) {
        if (!column.shown) {
            continue;
        }
        table.columns.push_back(*column.shown);
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const Value value = column.value(rows[i]);
            const auto* count = std::get_if<std::size_t>(&value);
            table.rows[i].cells.push_back({count != nullptr ? grouped(*count) : plain(value)});
        }
    }
    return tableText(table, outputWidth());
}

void addMember(JsonObject& object, const std::string& name, const Value& value) {
    if (const auto* text = std::get_if<std::string>(&value)) {
        object.text(name, *text);
    } else if (const auto* number = std::get_if<std::int32_t>(&value)) {
        object.number(name, static_cast<double>(*number));
    } else {
        object.number(name, std::get<std::size_t>(value));
    }
}

std::string asJson(const Columns& columns, const Rows& rows) {
    std::vector<JsonObject> objects(rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        for (const AccountColumn& column : columns) {
            addMember(objects[i], column.name, column.value(rows[i]));
        }
    }
    return jsonArray(objects);
}

std::string asCsv(const Columns& columns, const Rows& rows) {
    std::string text = csvLine(texts(columns, [](const AccountColumn& column) { return column.name; }));
    for (const AccountRow& row : rows) {
        text += csvLine(texts(columns, [&](const AccountColumn& column) { return plain(column.value(row)); }));
    }
    return text;
}

struct AccountsArguments {
    std::string pattern = "*";
    bool levels = false;
};

using Accounts = std::vector<const standalone::Account*>;

Accounts accountsLike(const std::string& pattern, const standalone::Market& market) {
    Accounts all;
    for (const standalone::Account& account : market.accounts) {
        all.push_back(&account);
    }
    return itemsLike(all, pattern, [](const standalone::Account* account) {
        return std::array<std::string_view, 2>{account->record->accountId, account->record->accountName};
    });
}

std::string whyNone(const std::string& pattern, const standalone::Market& market) {
    const std::string problem = "the market folder has no account like " + echoed(pattern);
    const std::string wide = widened(pattern);
    if (!accountsLike(wide, market).empty()) {
        return problem + insideAdvice("'" + wide + "'", "numbers and names");
    }
    const std::vector<std::string> near = nearNames(pattern, accountIds(market));
    return near.empty() ? problem : fmt::format("{}; did you mean {}?", problem, fmt::join(near, " or "));
}

ExitStatus accounts(const Program& program, const AccountsArguments& arguments) {
    Session session(program.session);
    Rows rows;
    for (const standalone::Account* account : accountsLike(arguments.pattern, session.market())) {
        rows.push_back({account, arguments.levels ? countLevels(session, *account) : LevelCounts()});
    }
    if (rows.empty() && !session.market().accounts.empty()) {
        throw Failure(kNoAnswer, whyNone(arguments.pattern, session.market()));
    }
    const auto form = program.format == Format::kJson ? asJson : program.format == Format::kCsv ? asCsv : asTable;
    program.answer(form(accountColumns(arguments.levels), rows), session);
    return kAnswered;
}

}  // namespace

void addAccounts(CLI::App& app, Program& program) {
    CLI::App* command = app.add_subcommand("accounts", "The accounts of the market folder");
    const auto arguments = std::make_shared<AccountsArguments>();
    command->add_option("PATTERN", arguments->pattern, "Only numbers or names like this; * is any\ntext")
        ->type_name("");
    command->add_flag("--levels", arguments->levels, "How many instruments each account is\nanswered on which level");
    addFormatOptions(*command, program);
    command->callback(
        [&program, arguments] { program.command = [=, &program] { return accounts(program, *arguments); }; });
}

}  // namespace feedesk
