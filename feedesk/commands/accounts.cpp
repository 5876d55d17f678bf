#include <CLI/CLI.hpp>
#include <algorithm>

#include "feedesk/commands/commands.h"
#include "feedesk/commands/options.h"
#include "feedesk/program.h"
#include "feedesk/session/account_levels.h"
#include "feedesk/session/accounts_like.h"
#include "standalone/families.h"

namespace feedesk {
namespace {

struct AccountRow {
    const standalone::Account* account;
    standalone::FeeCounts fees;
    LevelCounts levels;  ///< counted only where they are asked for
};

using AccountFields = FieldsOf<AccountRow>;

const qmservice::CAccountInfo& info(const AccountRow& row) { return *row.account->record; }

AccountFields accountFields() {
    return {
        {{"account", "Account"}, [](const AccountRow& row) { return info(row).accountId; }},
        {{"kind", "Kind"}, [](const AccountRow& row) { return standalone::accountKindName(info(row).accountType); }},
        {Field{"name", "Name"}.shortenedTo(8), [](const AccountRow& row) { return info(row).accountName; }},
        {{"platform", "Platform", Unit::kNumber},
         [](const AccountRow& row) { return static_cast<double>(info(row).platformId); }},
        {{"fee_records", "Fee records", Unit::kCount}, [](const AccountRow& row) { return row.fees.records; }},
        {{"custom_fees", "Custom fees", Unit::kCount}, [](const AccountRow& row) { return row.fees.customFees; }}};
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
    for (const LevelWords& words : kLevels) {
        fields.push_back({{words.field, words.title, Unit::kCount},
                          [level = words.level](const AccountRow& row) { return row.levels.of(level); }});
    }
    return fields;
}

struct AccountsArguments {
    std::string pattern = "*";
    bool levels = false;
};

ExitStatus accounts(Program& program, const AccountsArguments& arguments) {
    Session& session = program.open();
    const Accounts wanted = accountsLike({arguments.pattern}, session.market());
    if (arguments.levels) {
        std::for_each(wanted.begin(), wanted.end(), [&](const auto* account) { session.requireCovered(*account); });
    }
    const AccountFields fields = arguments.levels ? accountFieldsWithLevels() : accountFields();
    program.answer(session, {sectionOf("", fields, "Accounts")}, [&](RowSink& sink) {
        for (const standalone::Account* account : wanted) {
            session.forgetAccounts();
            sink.row(rowOf(fields, {account, session.feeCounts(*account),
                                    arguments.levels ? countLevels(session, *account) : LevelCounts()}));
        }
        return Remarks();
    });
    return kAnswered;
}

}  // namespace

void addAccounts(CLI::App& app, Program& program) {
    CLI::App* command = app.add_subcommand("accounts", "The accounts of the market folder");
    AccountsArguments& arguments = argumentsOf(*command, program, accounts);
    addNumberPattern(*command, arguments.pattern);
    command->add_flag("--levels", arguments.levels, "How many instruments each account is\nanswered on which level");
    addFormatOptions(*command, program);
}

}  // namespace feedesk
