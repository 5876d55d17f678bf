#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cmath>

#include "feedesk/answers/pooled_entries.h"
#include "feedesk/commands/commands.h"
#include "feedesk/commands/fees_of_accounts.h"
#include "feedesk/commands/options.h"
#include "feedesk/program.h"
#include "feedesk/session/accounts_like.h"
#include "feedesk/text/numbers.h"
#include "standalone/families.h"

namespace feedesk {
namespace {

struct StatsArguments {
    std::vector<std::string> accounts;  // none: all
};

constexpr double kParts = 10'000;  // a share is shown to a hundredth of a percent

struct StatsRow {
    const standalone::RateFamily& family;
    const PooledEntries& pooled;
};

using StatsFields = FieldsOf<StatsRow>;

StatsFields statsFields() {
    return {
        {{"family", "Family"},
         [](const StatsRow& row) {
             return Label{row.family.name, {row.family.title}};
         }},
        {{"accounts", "Accounts", Unit::kCount}, [](const StatsRow& row) { return row.pooled.accounts.size(); }},
        {{"entries", "Entries", Unit::kCount}, [](const StatsRow& row) { return row.pooled.entries; }},
        {{"records", "Records", Unit::kCount}, [](const StatsRow& row) { return row.pooled.records.size(); }},
        {{"record_bytes", "Bytes of one", Unit::kCount}, [](const StatsRow& row) { return row.pooled.recordBytes; }},
        {{"bytes", "Bytes of all", Unit::kCount}, [](const StatsRow& row) { return row.pooled.bytes(); }},
        {{"bytes_unpooled", "Bytes unpooled", Unit::kCount},
         [](const StatsRow& row) { return row.pooled.bytesUnpooled(); }},
        {{"saved", "Saved", Unit::kFraction},
         [](const StatsRow& row) {
             return std::round(savedShare(row.pooled.bytes(), row.pooled.bytesUnpooled()) * kParts) / kParts;
         }},
    };
}

/// The lists of the accounts, one after another, so that no more than one is held. Adds those without a list.
PooledFamilies countedEntries(Session& session, const Accounts& accounts, Accounts& withoutList) {
    PooledFamilies families;
    for (const standalone::Account* account : accounts) {
        const std::optional<Replies> listed = session.listedFees(*account);
        if (listed) {
            addEntries(families, listed->answers);
        } else {
            withoutList.push_back(account);
        }
    }
    return families;
}

std::string sumText(const PooledFamilies& families) {
    std::size_t entries = 0;
    std::size_t records = 0;
    std::size_t bytes = 0;
    std::size_t unpooled = 0;
    for (const auto& [part, family] : families) {
        entries += family.entries;
        records += family.records.size();
        bytes += family.bytes();
        unpooled += family.bytesUnpooled();
    }
    return fmt::format("{} entries in {}; {} of {} bytes, of which pooling saves {:.1f}%", grouped(entries),
                       counted(records, "record"), grouped(bytes), grouped(unpooled),
                       100 * savedShare(bytes, unpooled));
}

ExitStatus stats(Program& program, const StatsArguments& arguments) {
    Session& session = program.open();
    const std::vector<std::string> everything{"*"};
    const Accounts accounts =
        accountsLike(arguments.accounts.empty() ? everything : arguments.accounts, session.market());
    for (const standalone::Account* account : accounts) {
        session.requireCovered(*account);
    }
    Accounts withoutList;
    const PooledFamilies families = countedEntries(session, accounts, withoutList);
    if (families.empty()) {
        throw Failure(kNoAnswer, fmt::format("none of the {} has an entry", counted(accounts.size(), "account")));
    }
    const StatsFields fields = statsFields();
    program.answer(session, {sectionOf("", fields, "Entries and records")}, [&](RowSink& sink) {
        for (const standalone::RateFamily& family : standalone::rateFamilies()) {
            const auto found = families.find(family.name);
            if (found != families.end()) {
                sink.row(rowOf(fields, {family, found->second}));
            }
        }
        Remarks remarks;
        remarks.footing = {sumText(families)};
        if (!withoutList.empty()) {
            remarks.notes = {fmt::format("without a list of fees, and not counted: {} ({})",
                                         counted(withoutList.size(), "account"), numbersText(withoutList))};
        }
        return remarks;
    });
    return kAnswered;
}

}  // namespace

void addStats(CLI::App& app, Program& program) {
    CLI::App* command = app.add_subcommand("stats", "How many entries share how many records");
    StatsArguments& arguments = argumentsOf(*command, program, stats);
    command
        ->add_option("--accounts", arguments.accounts,
                     "Only accounts whose number or name is like\nthis; may be given again")
        ->type_name("PATTERN")
        ->allow_extra_args(false);
    addFormatOptions(*command, program);
}

}  // namespace feedesk
