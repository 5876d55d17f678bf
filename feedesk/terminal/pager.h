#ifndef FEEDESK_TERMINAL_PAGER_H
#define FEEDESK_TERMINAL_PAGER_H

#include <string>

namespace feedesk {

/// Writes a text for a person to standard output, as writeText() does. Where that is a terminal with fewer lines than
/// the text, a pager shows it: the environment's FEEDESK_PAGER, else PAGER, else less, with the options that git gives
/// it unless LESS is set. An empty text or "cat" there is no pager, and one that cannot be started neither. Throws
/// Failure when the text cannot be written.
void showText(const std::string& text);

/// Whether a pager is used from here on in this process; it is where nothing is said.
void usePager(bool wanted);
bool pagerIsUsed();

}  // namespace feedesk

#endif  // FEEDESK_TERMINAL_PAGER_H
