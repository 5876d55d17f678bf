#include "feedesk/program.h"

#include <fmt/format.h>

#include <memory>
#include <utility>

#include "feedesk/rows/sinks.h"
#include "feedesk/session/overwriting.h"
#include "feedesk/terminal/messages.h"
#include "feedesk/terminal/pager.h"
#include "feedesk/terminal/terminal.h"
#include "feedesk/text/text.h"
#include "feedesk/timing/wall_time.h"
#include "standalone/text/escape.h"
#include "standalone/text/utf8.h"

namespace feedesk {
namespace {

constexpr const char* kWriting = "writing";

std::unique_ptr<RowSink> sinkFor(Format format, const std::string& file, std::string& shown) {
    switch (format) {
        case Format::kJson:
            return jsonSink(writeData);
        case Format::kJsonLines:
            return jsonLinesSink(writeData);
        case Format::kCsv:
            return csvSink(writeData);
        case Format::kCsvWithMark:
            // Without it some spreadsheet programs read a CSV file in the encoding of the system.
            writeData(std::string(standalone::kUtf8Mark));
            return csvSink(writeData);
        case Format::kXlsx:
            return xlsxSink(file, tellNote);
        case Format::kTable:
            break;
    }
    return tableSink([&shown](const std::string& text) { shown += text; }, outputWidth());
}

std::string headingText(const std::string& heading) {
    return heading.empty() ? "" : filledText(standalone::printable(heading), outputWidth()) + "\n";
}

std::string filled(const std::string& note) {
    return fmt::format("{}", fmt::join(fillLines(words(standalone::printable(note)), outputWidth()), "\n"));
}

/// What is written below a table.
std::string below(const Remarks& remarks) {
    std::string text;
    for (const std::string& sum : remarks.footing) {
        text += filled(sum) + "\n";
    }
    text += remarks.footing.empty() || remarks.notes.empty() ? "" : "\n";
    for (const std::string& note : remarks.notes) {
        text += filled(note) + "\n";
    }
    text += remarks.warning.empty() ? "" : marked(filled(remarks.warning)) + "\n";
    return text;
}

/// An empty line between what there is.
std::string page(const std::string& heading, const std::string& tables, const std::string& rest) {
    return headingText(heading) + tables + (tables.empty() || rest.empty() ? "" : "\n") + rest;
}

void tellRemarks(const Remarks& remarks) {
    for (const std::string& note : remarks.notes) {
        tellNote(note);
    }
    if (!remarks.warning.empty()) {
        tellNote(remarks.warning);
    }
}

/// When it throws, what was answered so far is written: `tables` too, which hold what is not written yet.
Remarks given(const std::function<Remarks(RowSink&)>& giveRows, RowSink& sink, const std::string& tables) {
    try {
        return giveRows(sink);
    } catch (...) {
        sink.breakOff();
        showText(tables);
        throw;
    }
}

/// Takes the time that writing takes apart from that of making the rows.
class TimedSink : public RowSink {
public:
    explicit TimedSink(std::unique_ptr<RowSink> written) : sink(std::move(written)) {}

    void begin(const Sections& sections) override {
        const InPart part(kWriting);
        sink->begin(sections);
    }
    void row(const Row& row) override {
        const InPart part(kWriting);
        sink->row(row);
    }
    void end() override {
        const InPart part(kWriting);
        sink->end();
    }
    void breakOff() override { sink->breakOff(); }

private:
    std::unique_ptr<RowSink> sink;
};

/// What --summary says: what was done, and where the time went.
std::string withTime(const std::string& summary) { return summary + "; " + wallTime().text(); }

}  // namespace

Session& Program::open() {
    refuseToWriteInto(session.folder, file);
    if (opened) {
        opened->begin(session.date);
    } else {
        opened = std::make_shared<Session>(session);
    }
    return *opened;
}

void Program::answer(const Session& asked, const Sections& sections, const std::function<Remarks(RowSink&)>& giveRows) {
    answer([&asked] { return asked.summary(); }, sections, giveRows);
}

void Program::answer(const Sections& sections, const std::function<Remarks(RowSink&)>& giveRows) {
    answer([] { return std::string(); }, sections, giveRows);
}

void Program::answer(const std::function<std::string()>& sessionSummary, const Sections& sections,
                     const std::function<Remarks(RowSink&)>& giveRows) {
    hasAnswered = true;
    std::string tables;
    std::unique_ptr<RowSink> sink = sinkFor(format, file, tables);
    if (summary) {
        sink = std::make_unique<TimedSink>(std::move(sink));
    }
    sink->begin(sections);
    const Remarks remarks = given(giveRows, *sink, tables);
    sink->end();
    const std::string summed = summary ? sessionSummary() : "";
    if (format == Format::kTable) {
        {
            const InPart part(kWriting);
            showText(page(remarks.heading, tables, below(remarks)));
        }
        if (!summed.empty()) {
            writeText(withTime(summed) + "\n");
        }
        return;
    }
    if (!summed.empty()) {
        tellSummary(withTime(summed));
    }
    tellRemarks(remarks);
}

}  // namespace feedesk
