#ifndef FEEDESK_STATEMENTS_HEADER_H
#define FEEDESK_STATEMENTS_HEADER_H

#include <cstddef>
#include <string>
#include <vector>

#include "feedesk/statements/layout.h"

namespace feedesk {

/// The header of a statement and the layout that it is of.
struct FoundHeader {
    std::size_t index = 0;  ///< of the line, from 0
    char separator = ',';
    const Layout* layout = nullptr;
    Header header;
};

/// The first line that has every column which one of the layouts needs. Throws Failure as statementIn() says.
FoundHeader findHeader(const std::vector<std::string>& lines, const std::string& file,
                       const std::vector<Layout>& layouts);

}  // namespace feedesk

#endif  // FEEDESK_STATEMENTS_HEADER_H
