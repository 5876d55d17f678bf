#ifndef FEEDESK_INSTRUMENTS_INSTRUMENT_LIST_H
#define FEEDESK_INSTRUMENTS_INSTRUMENT_LIST_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "feedesk/terminal/messages.h"

namespace feedesk {

/// An instrument as it was asked for: a name or a pattern.
struct AskedInstrument {
    std::string text;
    std::size_t line = 0;  ///< of standard input; 0: an argument
};

/// The instruments of the arguments, those of standard input in the place of the argument "-". Reads to the end of
/// standard input, but no more than a list may hold. Throws Failure when "-" is there twice, or when the list cannot be
/// read, is too long or is empty.
std::vector<AskedInstrument> askedInstruments(const std::vector<std::string>& arguments);

/// The words of a list. '#' at the beginning of a word begins a comment, which ends with the line; a byte order mark at
/// the beginning is passed over.
std::vector<AskedInstrument> parsedList(std::string_view text);

/// Why what was asked for has no answer, with its line.
void tellAskedProblem(const AskedInstrument& asked, const std::string& sentence);

}  // namespace feedesk

#endif  // FEEDESK_INSTRUMENTS_INSTRUMENT_LIST_H
