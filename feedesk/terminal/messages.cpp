#include "feedesk/terminal/messages.h"

#include <fmt/format.h>

#include "feedesk/rows/json.h"
#include "feedesk/terminal/terminal.h"
#include "standalone/text/escape.h"

namespace feedesk {
namespace {

MessageForm messageForm = MessageForm::kSentences;

void tellLine(const std::string& sentence, JsonObject& object) {
    tell((messageForm == MessageForm::kObjects ? object.text() : standalone::printable(sentence)) + "\n");
}

void addPlace(JsonObject& object, const std::string& file, std::size_t line) {
    object.member("file", textOrNothing(file)).member("line", line == 0 ? Value(Nothing()) : line);
}

void tellOne(const std::string& sentence, const std::string& name, const std::string& value) {
    tellLine(sentence, JsonObject().member(name, value));
}

}  // namespace

void setMessageForm(MessageForm form) noexcept { messageForm = form; }

void reportProblem(const std::string& sentence, ExitStatus status) {
    tellLine("feedesk: " + sentence,
             JsonObject().member("error", sentence).member("status", static_cast<std::size_t>(status)));
}

void reportProblem(const InputLine& where, const std::string& sentence, ExitStatus status) {
    JsonObject object;
    addPlace(object, where.file, where.line);
    tellLine(fmt::format("feedesk: {}:{}: {}", where.file, where.line, sentence),
             object.member("error", sentence).member("status", static_cast<std::size_t>(status)));
}

void tellLoadError(const standalone::LoadError& error, const std::string& folder) {
    JsonObject object;
    addPlace(object, error.file, error.line);
    object.member("path", error.path(folder)).member("column", textOrNothing(error.column));
    object.member("kind", std::string(nameOf(error.kind))).member("error", error.message);
    tellLine(error.text(folder), object);
}

void tellFurtherErrors(const standalone::FurtherErrors& errors, const std::string& folder) {
    JsonObject object;
    addPlace(object, errors.file, errors.line);
    object.member("kind", std::string(nameOf(errors.kind))).member("further", errors.count);
    tellLine(errors.text(folder), object.member("error", errors.text(folder)));
}

void tellNote(const std::string& sentence) { tellOne("feedesk: " + sentence, "note", sentence); }

void tellSummary(const std::string& sentence) { tellOne(sentence, "summary", sentence); }

}  // namespace feedesk
