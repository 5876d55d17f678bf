#include "feedesk/account_kinds.h"
#include "feedesk/csv.h"
#include "feedesk/json.h"
#include "feedesk/numbers.h"
#include "feedesk/program.h"
#include "feedesk/table.h"
#include "feedesk/terminal.h"

namespace feedesk {
namespace {

using Accounts = std::vector<standalone::Account>;

std::string asTable(const Accounts& accounts) {
    Table table;
    table.columns = {{{"Account"}},
                     {{"Kind"}},
                     {{"Name"}, Align::kLeft, 8},
                     {{"Platform"}, Align::kRight},
                     {{"Fee", "records"}, Align::kRight},
                     {{"Custom", "fees"}, Align::kRight}};
    for (const standalone::Account& account : accounts) {
        const qmservice::CAccountInfo& info = *account.record;
        table.rows.push_back({{{info.accountId},
                               {accountKind(info.accountType).name},
                               {info.accountName},
                               {std::to_string(info.platformId)},
                               {grouped(account.fees.size())},
                               {grouped(account.customFees.size())}},
                              ""});
    }
    return tableText(table, outputWidth());
}

std::string asJson(const Accounts& accounts) {
    std::vector<JsonObject> objects;
    for (const standalone::Account& account : accounts) {
        const qmservice::CAccountInfo& info = *account.record;
        objects.push_back(JsonObject()
                              .text("account", info.accountId)
                              .text("kind", accountKind(info.accountType).name)
                              .text("name", info.accountName)
                              .number("platform", static_cast<double>(info.platformId))
                              .number("fee_records", account.fees.size())
                              .number("custom_fees", account.customFees.size()));
    }
    return jsonArray(objects);
}

std::string asCsv(const Accounts& accounts) {
    std::string text = csvLine({"account", "kind", "name", "platform", "fee_records", "custom_fees"});
    for (const standalone::Account& account : accounts) {
        const qmservice::CAccountInfo& info = *account.record;
        text += csvLine({info.accountId, accountKind(info.accountType).name, info.accountName,
                         std::to_string(info.platformId), std::to_string(account.fees.size()),
                         std::to_string(account.customFees.size())});
    }
    return text;
}

ExitStatus accounts(const Program& program) {
    const Session session(program.session);
    const Accounts& listed = session.market().accounts;
    const auto form = program.format == Format::kJson ? asJson : program.format == Format::kCsv ? asCsv : asTable;
    program.answer(form(listed), session);
    return kAnswered;
}

}  // namespace

void addAccounts(CLI::App& app, Program& program) {
    CLI::App* command = app.add_subcommand("accounts", "The accounts of the market folder");
    addFormatOptions(*command, program);
    command->callback([&program] { program.command = [&program] { return accounts(program); }; });
}

}  // namespace feedesk
