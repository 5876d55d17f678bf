#ifndef FEEDESK_STATEMENTS_REPEATED_LINES_H
#define FEEDESK_STATEMENTS_REPEATED_LINES_H

#include <string>
#include <vector>

#include "feedesk/statements/statement.h"

namespace feedesk {

/// Which of the trades' lines repeat an earlier one to the letter; `texts` are all lines of the file. Equal lines of
/// one order that follow each other are its fills and not among them.
std::vector<RepeatedLine> repeatedLines(const std::vector<StatementLine>& trades,
                                        const std::vector<std::string>& texts);

}  // namespace feedesk

#endif  // FEEDESK_STATEMENTS_REPEATED_LINES_H
