#include <string>
#include <utility>
#include <vector>

#include "feedesk/rows/chunks.h"
#include "feedesk/rows/json.h"
#include "feedesk/rows/sinks.h"

namespace feedesk {
namespace {

/// Opens and closes the groups as the fields come.
class JsonRow {
public:
    void add(const Field& field, const Value& value) {
        if (field.name.empty() && field.group.empty()) {
            return;
        }
        enter(field.group);
        const bool isLeftOut = field.name.empty() || (!field.group.empty() && isNothing(value));
        if (!isLeftOut) {
            object.member(field.name, value);
        }
    }

    std::string text() {
        enter("");
        return object.text();
    }

private:
    void enter(const std::string& next) {
        if (next == group) {
            return;
        }
        if (!group.empty()) {
            object.close();
        }
        if (!next.empty()) {
            object.open(next);
        }
        group = next;
    }

    JsonObject object;
    std::string group;  // that is open; empty: none is
};

/// What is around the objects and between them.
struct Frame {
    const char* before;
    const char* between;
    const char* behind;
    const char* empty;  // in place of all when there is no object
};

constexpr Frame kArray = {"[\n", ",\n", "\n]\n", "[]\n"};
constexpr Frame kLines = {"", "\n", "\n", ""};

class JsonSink : public RowSink {
public:
    JsonSink(Write write, const Frame& usedFrame) : frame(usedFrame), chunks(std::move(write)) {}

    void begin(const Sections& newSections) override { sections = newSections; }
    void row(const Row& row) override;
    void end() override;

private:
    const Frame& frame;
    Sections sections;
    bool empty = true;
    Chunks chunks;
};

void JsonSink::row(const Row& row) {
    const std::vector<Field>& fields = sections.at(row.section).fields;
    JsonRow object;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        object.add(fields[i], row.values[i]);
    }
    chunks.add((empty ? frame.before : frame.between) + object.text());
    empty = false;
}

void JsonSink::end() {
    chunks.add(empty ? frame.empty : frame.behind);
    chunks.flush();
}

}  // namespace

std::unique_ptr<RowSink> jsonSink(Write write) { return std::make_unique<JsonSink>(std::move(write), kArray); }

std::unique_ptr<RowSink> jsonLinesSink(Write write) { return std::make_unique<JsonSink>(std::move(write), kLines); }

}  // namespace feedesk
