#include <fmt/format.h>

#include <unordered_map>
#include <utility>

#include "host/categories.h"
#include "host/keys.h"
#include "standalone/loader/category_columns.h"
#include "standalone/loader/first_lines.h"
#include "standalone/loader/rule_line.h"
#include "standalone/loader/tables.h"
#include "standalone/market_files.h"
#include "standalone/text/escape.h"
#include "standalone/text/numbers.h"

namespace standalone::loader {
namespace {

std::string numbered(int category) { return "the category " + std::to_string(category); }

/// Whether the table is there to be read. What refers to one under a misspelt name, which is reported, is no error.
bool isThere(const Load& load, const std::string& file, bool& complete) {
    complete = complete && (load.hasFile(file) || load.lacks(file));
    return load.hasFile(file);
}

// A category that a bad line mentions is known all the same: what refers to it is no error.

// --- system categories

void checkName(Load& load, const std::string& file, const ReadRule& read,
               const std::unordered_map<std::string, std::size_t>& names) {
    const RuleLine& line = read.line;
    const auto sameNumber = load.categories.system.find(line.category);
    if (sameNumber != load.categories.system.end()) {
        const CategoryRule& first = load.market.categories[sameNumber->second];
        if (first.name.empty() || first.name == line.name) {
            return;
        }
        load.errors.add({file, read.position.line, "name"}, ErrorKind::kRepeated, [&] {
            return fmt::format("{} is named {} here but {} at {}; give it one name", numbered(line.category),
                               inQuotes(line.name), inQuotes(first.name), load.market.where(first.position));
        });
        return;
    }
    const auto sameName = names.find(line.name);
    if (sameName == names.end()) {
        return;
    }
    const CategoryRule& first = load.market.categories[sameName->second];
    load.errors.add({file, read.position.line, "name"}, ErrorKind::kRepeated, [&] {
        return fmt::format("{} is named {}, but so is {} at {}; give it another name", numbered(line.category),
                           inQuotes(line.name), numbered(first.category), load.market.where(first.position));
    });
}

void addRule(Load& load, const std::string& file, const ReadRule& read,
             std::unordered_map<std::string, std::size_t>& names) {
    const RuleLine& line = read.line;
    if (line.category == 0) {
        load.categories.membersComplete = false;
        return;
    }
    const std::size_t place = load.market.categories.size();
    if (!line.name.empty()) {
        checkName(load, file, read, names);
        names.emplace(line.name, place);
    }
    load.categories.system.emplace(line.category, place);
    load.market.categories.push_back({line.category, line.name, line.market, line.code, line.product, read.position});
}

bool isWholeNumber(std::string_view text) { return isDigits(text.substr(text.front() == '-' ? 1 : 0)); }

// Categories are looked up by name or by number, with one text for both.
void readCategoryName(RuleLine& line, TableCell& cell) {
    if (isWholeNumber(cell.text)) {
        cell.refuseFound(ErrorKind::kName, "a name that cannot be taken for the number of a category",
                         [] { return "give it another name"; });
    } else {
        readText(cell, line.name);
    }
}

void readSystemCategories(Load& load) {
    const std::string file = files::kSystemCategories;
    if (!isThere(load, file, load.categories.membersComplete)) {
        return;
    }
    const RuleColumn name{"name", ColumnNeed::kFilled, readCategoryName};
    const std::vector<RuleColumn> columns{numberColumn("category", &RuleLine::category), name,
                                          marketColumn(load, ColumnNeed::kOptional), codeColumn(ColumnNeed::kOptional),
                                          productColumn()};
    std::unordered_map<std::string, std::size_t> names;
    const bool complete =
        readTable<RuleLine>(load, file, columns, [&](const ReadRule& read) { addRule(load, file, read, names); });
    load.categories.membersComplete = load.categories.membersComplete && complete;
}

// --- custom categories

/// Whether no line before spoke of the subject; reported when one did.
template <class Subject, class Text>
bool isFirst(Load& load, const std::string& file, const ReadRule& read, const Subject& subject, const Text& text,
             FirstLines<Subject>& lines) {
    const std::optional<Position> before = lines.before(subject, read.position);
    if (!before) {
        return true;
    }
    load.errors.add({file, read.position.line, "category"}, ErrorKind::kRepeated, [&] {
        return fmt::format("{} already at {}; remove one of the lines", text(), load.market.where(*before));
    });
    return false;
}

using Member = std::pair<int, std::size_t>;

void addMember(Load& load, const std::string& file, const ReadRule& read, FirstLines<Member>& lines) {
    const RuleLine& line = read.line;
    const std::optional<std::size_t> place = findInstrument(load, file, read);
    if (line.category == 0) {
        load.categories.membersComplete = false;
        return;
    }
    std::vector<std::string>& members = load.categories.custom[line.category];
    const auto text = [&] {
        return fmt::format("{} {} is in {}", line.market, inQuotes(line.code), numbered(line.category));
    };
    if (!place || !isFirst(load, file, read, {line.category, *place}, text, lines)) {
        return;
    }
    members.push_back(utils::voStockKey(line.market, line.code));
    load.market.customCategories.push_back({line.category, line.market, line.code, read.position});
}

void readCustomCategories(Load& load) {
    const std::string file = files::kCustomCategories;
    if (!isThere(load, file, load.categories.membersComplete)) {
        return;
    }
    const std::vector<RuleColumn> columns{numberColumn("category", &RuleLine::category),
                                          marketColumn(load, ColumnNeed::kFilled), codeColumn(ColumnNeed::kFilled)};
    FirstLines<Member> lines;
    const bool complete =
        readTable<RuleLine>(load, file, columns, [&](const ReadRule& read) { addMember(load, file, read, lines); });
    load.categories.membersComplete = load.categories.membersComplete && complete;
}

// --- group categories

using Part = std::pair<int, int>;

void addPart(Load& load, const std::string& file, const ReadRule& read, FirstLines<Part>& lines) {
    const RuleLine& line = read.line;
    if (line.group == 0) {
        load.categories.groupsComplete = false;
        return;
    }
    auto& parts = load.categories.groups[line.group];
    const auto text = [&] { return numbered(line.category) + " is a part of the group " + std::to_string(line.group); };
    if (line.category == 0 || !isFirst(load, file, read, {line.group, line.category}, text, lines)) {
        return;
    }
    qmservice::CGroupCategorySubInfo part;
    part.category = line.category;
    part.excluded = line.excluded;
    parts.push_back(part);
    load.market.groupCategories.push_back({line.group, line.category, line.excluded != 0, read.position});
}

void readGroupCategories(Load& load) {
    const std::string file = files::kGroupCategories;
    if (!isThere(load, file, load.categories.groupsComplete)) {
        return;
    }
    static const Words modes{{"include", 0}, {"exclude", 1}};
    const std::vector<RuleColumn> columns{
        {"group", ColumnNeed::kFilled,
         [](RuleLine& line, TableCell& cell) {
             readInteger(cell, qmservice::kGroupCategories.first, qmservice::kGroupCategories.last, line.group);
         }},
        memberCategoryColumn(load),
        {"mode", ColumnNeed::kFilled, [](RuleLine& line, TableCell& cell) { readWord(cell, modes, line.excluded); }}};
    FirstLines<Part> lines;
    const bool complete =
        readTable<RuleLine>(load, file, columns, [&](const ReadRule& read) { addPart(load, file, read, lines); });
    load.categories.groupsComplete = load.categories.groupsComplete && complete;
}

}  // namespace

void readCategories(Load& load) {
    readSystemCategories(load);
    readCustomCategories(load);
    readGroupCategories(load);
}

}  // namespace standalone::loader
