#ifndef FEEDESK_ROWS_SHOWN_TEXT_H
#define FEEDESK_ROWS_SHOWN_TEXT_H

#include "feedesk/rows/rows.h"

namespace feedesk {

/// A value as people read it: a fraction as percent, yuan with their name, "-" where a number is not there. What a
/// terminal would obey is escaped.
Pieces shownText(const Field& field, const Value& value);

/// Whether the value is a number and 0.
bool isZero(const Value& value);

}  // namespace feedesk

#endif  // FEEDESK_ROWS_SHOWN_TEXT_H
