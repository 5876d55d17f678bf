#include <map>
#include <unordered_map>
#include <utility>

#include "host/categories.h"
#include "host/keys.h"
#include "standalone/loader/category_columns.h"
#include "standalone/loader/rule_line.h"
#include "standalone/loader/tables.h"
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
        if (first.name.empty() || first.name == line.name) return;
        load.errors.add({file, read.position.line, "name"}, ErrorKind::kRepeated, [&] {
            return numbered(line.category) + " is named " + inQuotes(line.name) + " here but " + inQuotes(first.name) +
                   " at " + load.market.where(first.position) + "; give it one name";
        });
        return;
    }
    const auto sameName = names.find(line.name);
    if (sameName == names.end()) return;
    const CategoryRule& first = load.market.categories[sameName->second];
    load.errors.add({file, read.position.line, "name"}, ErrorKind::kRepeated, [&] {
        return numbered(line.category) + " is named " + inQuotes(line.name) + ", but so is " +
               numbered(first.category) + " at " + load.market.where(first.position) + "; give it another name";
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
void readCategoryName(RuleLine& line, Cell& cell) {
    if (isWholeNumber(cell.text)) {
        cell.refuseFound(ErrorKind::kName, "a name that cannot be taken for the number of a category",
                         [] { return "give it another name"; });
    } else {
        readText(cell, line.name);
    }
}

void readSystemCategories(Load& load) {
    const std::string& file = kSystemFile;
    if (!isThere(load, file, load.categories.membersComplete)) return;
    const RuleColumn name{"name", Need::kFilled, readCategoryName};
    const std::vector<RuleColumn> columns{numberColumn("category", &RuleLine::category), name,
                                          marketColumn(load, Need::kOptional), codeColumn(Need::kOptional),
                                          productColumn()};
    std::unordered_map<std::string, std::size_t> names;
    const bool complete =
        readTable<RuleLine>(load, file, columns, [&](const ReadRule& read) { addRule(load, file, read, names); });
    load.categories.membersComplete = load.categories.membersComplete && complete;
}

// --- custom categories

/// The lines that have said something already, by what they speak of.
template <class Subject>
using FirstLines = std::map<Subject, Position>;

template <class Subject, class Text>
bool isFirst(Load& load, const std::string& file, const ReadRule& read, const Subject& subject, const Text& text,
             FirstLines<Subject>& lines) {
    const auto [first, isNew] = lines.emplace(subject, read.position);
    if (isNew) return true;
    load.errors.add({file, read.position.line, "category"}, ErrorKind::kRepeated, [&, at = first->second] {
        return text() + " already at " + load.market.where(at) + "; remove one of the lines";
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
    const auto text = [&] { return line.market + " " + inQuotes(line.code) + " is in " + numbered(line.category); };
    if (!place || !isFirst(load, file, read, {line.category, *place}, text, lines)) return;
    members.push_back(utils::voStockKey(line.market, line.code));
}

void readCustomCategories(Load& load) {
    const std::string file = "custom_categories.csv";
    if (!isThere(load, file, load.categories.membersComplete)) return;
    const std::vector<RuleColumn> columns{numberColumn("category", &RuleLine::category),
                                          marketColumn(load, Need::kFilled), codeColumn(Need::kFilled)};
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
    if (line.category == 0 || !isFirst(load, file, read, {line.group, line.category}, text, lines)) return;
    qmservice::CGroupCategorySubInfo part;
    part.category = line.category;
    part.excluded = line.excluded;
    parts.push_back(part);
}

void readGroupCategories(Load& load) {
    const std::string& file = kGroupsFile;
    if (!isThere(load, file, load.categories.groupsComplete)) return;
    static const Words modes{{"include", 0}, {"exclude", 1}};
    const std::vector<RuleColumn> columns{
        {"group", Need::kFilled,
         [](RuleLine& line, Cell& cell) {
             readInteger(cell, qmservice::kGroupCategories.first, qmservice::kGroupCategories.last, line.group);
         }},
        memberCategoryColumn(load),
        {"mode", Need::kFilled, [](RuleLine& line, Cell& cell) { readWord(cell, modes, line.excluded); }}};
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
