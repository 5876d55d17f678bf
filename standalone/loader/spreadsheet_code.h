#ifndef STANDALONE_LOADER_SPREADSHEET_CODE_H
#define STANDALONE_LOADER_SPREADSHEET_CODE_H

#include <string>
#include <string_view>

#include "standalone/loader/instrument_index.h"

// Codes that a spreadsheet took for numbers: 000001 comes back as 1, 600519 as 600519.0, 100000 as 1E+05.

namespace standalone::loader {

/// Whether the text is a number with an exponent as spreadsheets write it, such as 1E+05.
bool isSpreadsheetNumber(std::string_view code);

/// How a code that the market does not have was spoilt by a spreadsheet, for a sentence that goes on behind "is not in
/// instruments/*.csv"; empty when nothing speaks for that.
std::string spoiltCode(const InstrumentIndex& instruments, const std::string& market, const std::string& code);

/// How to keep codes from being spoilt, the end of a sentence.
constexpr const char* kKeepCodes = "write it in full, and give the column the format \"text\" in the spreadsheet";

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_SPREADSHEET_CODE_H
