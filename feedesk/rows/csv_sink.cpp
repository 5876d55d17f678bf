#include <csv.h>

#include <map>
#include <utility>
#include <vector>

#include "feedesk/rows/chunks.h"
#include "feedesk/rows/sinks.h"

namespace feedesk {
namespace {

constexpr std::size_t kNoColumn = static_cast<std::size_t>(-1);

std::string quotedCell(const std::string& text) {
    std::string target(text.size() * 2 + 2, '\0');
    target.resize(csv_write(target.data(), target.size(), text.data(), text.size()));
    return target;
}

bool needsCsvQuotes(const std::string& text) { return text.find_first_of(",\"\r\n") != std::string::npos; }

std::string csvLine(const std::vector<std::string>& cells) {
    std::string text;
    for (const std::string& cell : cells) {
        text += needsCsvQuotes(cell) ? quotedCell(cell) : cell;
        text += ',';
    }
    text.back() = '\n';
    return text;
}

class CsvSink : public RowSink {
public:
    explicit CsvSink(Write write) : chunks(std::move(write)) {}

    void begin(const Sections& sections) override;
    void row(const Row& row) override;
    void end() override { chunks.flush(); }

private:
    std::vector<std::vector<std::size_t>> columnsOf;  // of each section: the column of each field, or kNoColumn
    std::vector<std::string> cells;                   // of one line; kept for its room
    Chunks chunks;
};

void CsvSink::begin(const Sections& sections) {
    std::vector<std::string> header;
    std::map<std::pair<std::string, std::string>, std::size_t> columns;  // by group and name
    for (const Section& section : sections) {
        std::vector<std::size_t>& columnOf = columnsOf.emplace_back();
        for (const Field& field : section.fields) {
            if (field.name.empty()) {
                columnOf.push_back(kNoColumn);
                continue;
            }
            const auto column = columns.emplace(std::pair(field.group, field.name), header.size());
            columnOf.push_back(column.first->second);
            if (column.second) {
                header.push_back(field.name);
            }
        }
    }
    if (!header.empty()) {
        chunks.add(csvLine(header));
    }
    cells.resize(header.size());
}

void CsvSink::row(const Row& row) {
    for (std::string& cell : cells) {
        cell.clear();
    }
    const std::vector<std::size_t>& columnOf = columnsOf.at(row.section);
    for (std::size_t i = 0; i < row.values.size(); ++i) {
        if (columnOf[i] != kNoColumn) {
            cells[columnOf[i]] = plainText(row.values[i]);
        }
    }
    chunks.add(csvLine(cells));
}

}  // namespace

std::unique_ptr<RowSink> csvSink(Write write) { return std::make_unique<CsvSink>(std::move(write)); }

}  // namespace feedesk
