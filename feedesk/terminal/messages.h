#ifndef FEEDESK_TERMINAL_MESSAGES_H
#define FEEDESK_TERMINAL_MESSAGES_H

#include <cstddef>
#include <string>

#include "feedesk/failure.h"
#include "standalone/load_error.h"

namespace feedesk {

// What the program says besides its answer, on standard error: sentences for a person or, for a program that asked for
// JSON, one object a line. docs/feedesk.md describes the objects. A message that cannot be written is lost.

/// How messages are written: as sentences, or as JSON objects.
enum class MessageForm { kSentences, kObjects };

/// For the whole process, which has one standard error; set before the first message. Sentences unless it is set.
void setMessageForm(MessageForm form) noexcept;

/// So many wrong lines of a file are named, and the others counted.
constexpr std::size_t kMostWrongLines = 100;

/// Where in an input a problem is.
struct InputLine {
    std::string file;
    std::size_t line = 0;  ///< from 1
};

/// Why there is no answer; `status` is the exit status that follows from it.
void reportProblem(const std::string& sentence, ExitStatus status = kNoAnswer);
void reportProblem(const InputLine& where, const std::string& sentence, ExitStatus status = kNoAnswer);

/// An error of the market folder, which is called `folder`.
void tellLoadError(const standalone::LoadError& error, const std::string& folder);

/// Errors of the market folder that are counted.
void tellFurtherErrors(const standalone::FurtherErrors& errors, const std::string& folder);

/// What is to be known besides an answer, or meanwhile.
void tellNote(const std::string& sentence);

/// What was loaded and how long it took.
void tellSummary(const std::string& sentence);

}  // namespace feedesk

#endif  // FEEDESK_TERMINAL_MESSAGES_H
