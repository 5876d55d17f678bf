#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>

#include "feedesk/account_levels.h"
#include "feedesk/commands/commands.h"
#include "feedesk/commands/options.h"
#include "feedesk/patterns.h"
#include "feedesk/program.h"
#include "feedesk/text.h"
#include "standalone/families.h"
#include "standalone/text/nearness.h"

namespace feedesk {
namespace {

struct AccountRow {
    const standalone::Account* account;
    LevelCounts levels;  ///< counted only where they are asked for
};

using AccountFields = FieldsOf<AccountRow>;

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

AccountFields accountFields() {
    return {
        {{"account", "Account"}, [](const AccountRow& row) { return info(row).accountId; }},
        {{"kind", "Kind"}, [](const AccountRow& row) { return standalone::accountKindName(info(row).accountType); }},
        {Field{"name", "Name"}.shortenedTo(8), [](const AccountRow& row) { return info(row).accountName; }},
        {{"platform", "Platform", Unit::kNumber},
         [](const AccountRow& row) { return static_cast<double>(info(row).platformId); }},
        {{"fee_records", "Fee records", Unit::kCount}, [](const AccountRow& row) { return row.account->fees.size(); }},
        {{"custom_fees", "Custom fees", Unit::kCount},
         [](const AccountRow& row) { return row.account->customFees.size(); }}};
}

/// Next to the levels a table has no room for names and for what is fed.
AccountFields accountFieldsWithLevels() {
    AccountFields fields = accountFields();
    for (FieldOf<AccountRow>& each : fields) {
        each.field.title = each.field.name == "account" || each.field.name == "kind" ? each.field.title : "";
    }
    fields[1].field.shortest = 8;
    fields.push_back(
        {{"instruments", "Total", Unit::kCount}, [](const AccountRow& row) { return row.levels.instruments; }});
    for (const LevelTitle& titled : kLevelTitles) {
        fields.push_back({{asName(levelName(titled.level)), titled.title, Unit::kCount},
                          [level = titled.level](const AccountRow& row) { return row.levels.of(level); }});
    }
    return fields;
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
    const std::vector<std::string> near = standalone::nearNames(pattern, accountIds(market));
    return near.empty() ? problem : fmt::format("{}; did you mean {}?", problem, fmt::join(near, " or "));
}

ExitStatus accounts(Program& program, const AccountsArguments& arguments) {
    Session session(program.session);
    const Accounts wanted = accountsLike(arguments.pattern, session.market());
    if (wanted.empty() && !session.market().accounts.empty()) {
        throw Failure(kNoAnswer, whyNone(arguments.pattern, session.market()));
    }
    if (arguments.levels) {
        std::for_each(wanted.begin(), wanted.end(), [&](const auto* account) { session.requireCovered(*account); });
    }
    const AccountFields fields = arguments.levels ? accountFieldsWithLevels() : accountFields();
    program.answer(session, {sectionOf("", fields)}, [&](RowSink& sink) {
        for (const standalone::Account* account : wanted) {
            sink.row(rowOf(fields, {account, arguments.levels ? countLevels(session, *account) : LevelCounts()}));
        }
        return Remarks();
    });
    return kAnswered;
}

}  // namespace

void addAccounts(CLI::App& app, Program& program) {
    CLI::App* command = app.add_subcommand("accounts", "The accounts of the market folder");
    AccountsArguments& arguments = argumentsOf(*command, program, accounts);
    command->add_option("PATTERN", arguments.pattern, "Only numbers or names like this; * is any\ntext")->type_name("");
    command->add_flag("--levels", arguments.levels, "How many instruments each account is\nanswered on which level");
    addFormatOptions(*command, program);
}

}  // namespace feedesk
