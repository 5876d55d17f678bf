#ifndef FEEDESK_COMMANDS_STATEMENT_FILE_H
#define FEEDESK_COMMANDS_STATEMENT_FILE_H

#include <string>

#include "feedesk/statements/layout.h"
#include "feedesk/statements/statement.h"
#include "standalone/market_folder.h"

namespace feedesk {

/// A statement as a command names it.
struct StatementFile {
    std::string path;      ///< "-" is standard input
    std::string layout;    ///< a name of the folder's layouts or a file; empty: by the header
    std::string encoding;  ///< empty: what the bytes are
};

/// Reads its trades. Throws Failure where it or its layout cannot be read or it has no trade, and where it has wrong
/// lines, after these have been reported on standard error.
Statement readStatement(const StatementFile& file, const FolderLayouts& folder);

/// Throws Failure where a column of the layout adds up a charge that the folder cannot charge: neither a term of
/// charges.csv nor a rate has its name, so that every line would differ.
void refuseUnknownCharges(const Layout& layout, const standalone::MarketFolder& folder);

}  // namespace feedesk

#endif  // FEEDESK_COMMANDS_STATEMENT_FILE_H
