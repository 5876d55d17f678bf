#include "feedesk/messages.h"

#include <fmt/format.h>

#include "feedesk/json.h"
#include "feedesk/terminal.h"
#include "feedesk/text.h"

namespace feedesk {
namespace {

MessageForm messageForm = MessageForm::kSentences;

void tellLine(const std::string& sentence, const JsonObject& object) {
    tell((messageForm == MessageForm::kObjects ? object.str() : singleLine(sentence)) + "\n");
}

JsonObject place(const std::string& file, std::size_t line) {
    JsonObject object;
    file.empty() ? object.null("file") : object.text("file", file);
    line == 0 ? object.null("line") : object.number("line", line);
    return object;
}

}  // namespace

void setMessageForm(MessageForm form) noexcept { messageForm = form; }

void tellProblem(const std::string& sentence, ExitStatus status) {
    tellLine("feedesk: " + sentence,
             JsonObject().text("error", sentence).number("status", static_cast<std::size_t>(status)));
}

void tellProblem(const InputLine& where, const std::string& sentence, ExitStatus status) {
    tellLine(fmt::format("feedesk: {}:{}: {}", where.file, where.line, sentence),
             place(where.file, where.line).text("error", sentence).number("status", static_cast<std::size_t>(status)));
}

void tellLoadError(const standalone::LoadError& error, const std::string& folder) {
    JsonObject object = place(error.file, error.line);
    object.text("path", error.path(folder));
    error.column.empty() ? object.null("column") : object.text("column", error.column);
    tellLine(error.text(folder), object.text("kind", nameOf(error.kind)).text("error", error.message));
}

void tellFurtherErrors(const standalone::FurtherErrors& errors, const std::string& folder) {
    tellLine(errors.text(folder), place(errors.file, errors.line)
                                      .text("kind", nameOf(errors.kind))
                                      .number("further", errors.count)
                                      .text("error", errors.text(folder)));
}

void tellNote(const std::string& sentence) { tellLine("feedesk: " + sentence, JsonObject().text("note", sentence)); }

void tellSummary(const std::string& sentence) { tellLine(sentence, JsonObject().text("summary", sentence)); }

}  // namespace feedesk
