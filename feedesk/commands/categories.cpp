#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>

#include "feedesk/commands/commands.h"
#include "feedesk/commands/options.h"
#include "feedesk/instruments/category_members.h"
#include "feedesk/instruments/instrument_text.h"
#include "feedesk/program.h"
#include "feedesk/text/numbers.h"
#include "feedesk/text/patterns.h"
#include "feedesk/text/text.h"

namespace feedesk {
namespace {

struct CategoriesArguments {
    std::string pattern = "*";
    bool members = false;
};

/// A line of a category or, with --members, a member and the line that takes it in.
struct CategoryRow {
    const Category& category;
    const CategoryLine& line;
    const standalone::ListedInstrument* member;  ///< null for a line
    const standalone::Market& market;
};

using CategoryFields = FieldsOf<CategoryRow>;
using Categories = std::vector<const Category*>;

/// "1001 沪市主板, 1,700 instruments".
std::string heading(const CategoryRow& row) {
    const Category& category = row.category;
    return fmt::format("{}{}{}, {}", category.number, category.name.empty() ? "" : " ", category.name,
                       counted(category.members.size(), "instrument"));
}

/// Empty, which is any, for programs.
Label orAny(const std::string& wanted) { return {wanted, {wanted.empty() ? "any" : wanted}}; }

Label markedMode(const CategoryRow& row) {
    const std::string mode = row.line.part->excluded ? "exclude" : "include";
    return {mode, {mode}};
}

CategoryFields headFields() {
    return {
        {forPeople("Category").at(ShownAt::kHeading), heading},
        {forPrograms("kind"), [](const CategoryRow& row) { return categoryKindName(row.category.kind); }},
        {forPrograms("category"), [](const CategoryRow& row) { return static_cast<std::size_t>(row.category.number); }},
        {forPrograms("category_name"), [](const CategoryRow& row) { return textOrNothing(row.category.name); }},
        {forPrograms("category_instruments"), [](const CategoryRow& row) { return row.category.members.size(); }},
    };
}

CategoryFields with(CategoryFields fields, const CategoryFields& more) {
    fields.insert(fields.end(), more.begin(), more.end());
    return fields;
}

CategoryFields tailFields() {
    return {{{"instruments", "Instruments", Unit::kCount},
             [](const CategoryRow& row) { return row.line.instruments.size(); }},
            {Field{"source", "Source"}.at(ShownAt::kLast),
             [](const CategoryRow& row) { return Source{row.market.where(row.line.position)}; }}};
}

/// What the lines of a kind of category say.
CategoryFields lineFields(CategoryKind kind) {
    switch (kind) {
        case CategoryKind::kSystem:
            return {{{"market", "Market"}, [](const CategoryRow& row) { return orAny(row.line.rule.market); }},
                    {{"code", "Code"}, [](const CategoryRow& row) { return orAny(row.line.rule.code); }},
                    {{"product", "Product"}, [](const CategoryRow& row) { return orAny(row.line.rule.product); }}};
        case CategoryKind::kCustom:
            return {{{"market", "Market"}, [](const CategoryRow& row) { return row.line.rule.market; }},
                    {{"code", "Code"}, [](const CategoryRow& row) { return row.line.rule.code; }}};
        case CategoryKind::kGroup:
            break;
    }
    return {{{"mode", "Mode"}, markedMode},
            {{"part", "Part"},
             [](const CategoryRow& row) {
                 const std::string number = std::to_string(row.line.part->category);
                 return Label{number, {number}};
             }},
            {Field{"part_name", "Name"}.when(WhenZero::kLeftOut),
             [](const CategoryRow& row) { return textOrNothing(row.line.rule.name); }}};
}

CategoryFields memberFields() {
    return {{{"market", "Market"}, [](const CategoryRow& row) { return row.member->record->market; }},
            {{"code", "Code"}, [](const CategoryRow& row) { return row.member->record->code; }},
            {Field{"name", "Name"}.shortenedTo(8), [](const CategoryRow& row) { return row.member->record->name; }},
            {Field{"source", "Source"}.at(ShownAt::kLast),
             [](const CategoryRow& row) { return Source{row.market.where(row.line.position)}; }}};
}

constexpr std::array<CategoryKind, 3> kKinds = {CategoryKind::kSystem, CategoryKind::kCustom, CategoryKind::kGroup};

std::string sectionTitle(CategoryKind kind) { return asTitle(categoryKindName(kind) + std::string(" categories")); }

/// A section for each kind that is among the categories.
class CategoryRows {
public:
    CategoryRows(const Categories& shown, bool members) : ofMembers(members) {
        for (const CategoryKind kind : kKinds) {
            const bool isThere =
                std::any_of(shown.begin(), shown.end(), [kind](const Category* each) { return each->kind == kind; });
            if (isThere) {
                kinds.push_back(kind);
                fields.push_back(with(headFields(), members ? memberFields() : with(lineFields(kind), tailFields())));
                sections.push_back(sectionOf(sectionTitle(kind), fields.back()));
            }
        }
    }

    void give(RowSink& sink, const Category& category, const standalone::Market& market) const {
        if (!ofMembers) {
            for (const CategoryLine& line : category.lines) {
                give(sink, CategoryRow{category, line, nullptr, market});
            }
            return;
        }
        for (const standalone::ListedInstrument* member : category.members) {
            give(sink, CategoryRow{category, category.lineOf(member), member, market});
        }
    }

    Sections sections;

private:
    void give(RowSink& sink, const CategoryRow& item) const {
        const auto kind = std::find(kinds.begin(), kinds.end(), item.category.kind);
        const auto section = static_cast<std::size_t>(kind - kinds.begin());
        Row row = rowOf(fields[section], item);
        row.section = section;
        sink.row(row);
    }

    bool ofMembers;
    std::vector<CategoryKind> kinds;
    std::vector<CategoryFields> fields;
};

Categories categoriesLike(const std::string& pattern, const std::vector<Category>& all) {
    Categories candidates;
    for (const Category& each : all) {
        candidates.push_back(&each);
    }
    return itemsLike(candidates, pattern, [](const Category* each) {
        return std::array<std::string, 2>{std::to_string(each->number), each->name};
    });
}

std::string whyNone(const std::string& pattern, const std::vector<Category>& all) {
    const std::string wide = widened(pattern);
    return "the market folder has no category like " + echoed(pattern) +
           (categoriesLike(wide, all).empty() ? "; `feedesk categories` lists them"
                                              : insideAdvice("'" + wide + "'", "numbers and names"));
}

/// In a table a category without a member has no row.
std::vector<std::string> emptyNotes(const Categories& shown) {
    std::vector<std::string> notes;
    for (const Category* each : shown) {
        if (each->members.empty()) {
            notes.push_back(fmt::format("the {} category {}{}{} holds no instrument", categoryKindName(each->kind),
                                        each->number, each->name.empty() ? "" : " ", each->name));
        }
    }
    return notes;
}

ExitStatus categories(Program& program, const CategoriesArguments& arguments) {
    Session& session = program.open();
    const std::vector<Category> all = categoriesOf(session.market());
    const Categories wanted = categoriesLike(arguments.pattern, all);
    if (wanted.empty()) {
        throw Failure(kNoAnswer, all.empty() ? "the market folder has no categories" : whyNone(arguments.pattern, all));
    }
    const CategoryRows rows(wanted, arguments.members);
    program.answer(session, rows.sections, [&](RowSink& sink) {
        for (const Category* each : wanted) {
            rows.give(sink, *each, session.market());
        }
        return Remarks{"", emptyNotes(wanted), ""};
    });
    return kAnswered;
}

}  // namespace

void addCategories(CLI::App& app, Program& program) {
    CLI::App* command = app.add_subcommand("categories", "What system, custom and group categories hold");
    CategoriesArguments& arguments = argumentsOf(*command, program, categories);
    addNumberPattern(*command, arguments.pattern);
    command->add_flag("--members", arguments.members, "Each instrument, and the line that takes it\nin");
    addFormatOptions(*command, program);
}

}  // namespace feedesk
