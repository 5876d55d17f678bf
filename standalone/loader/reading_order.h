#ifndef STANDALONE_LOADER_READING_ORDER_H
#define STANDALONE_LOADER_READING_ORDER_H

#include <cstddef>
#include <string_view>

namespace standalone::loader {

/// Whether a place of a market folder comes before another. Files come in the order in which they are read, so that an
/// error comes before those that may follow from it: the folder itself, names at its top that the format does not
/// know, market.toml, accounts.csv, instruments/, the categories, configured/, fees/, custom/, charges.csv; those of
/// one of these folders by name. Then the line counts. Safe from any number of threads at once.
bool comesBefore(std::string_view file, std::size_t line, std::string_view otherFile, std::size_t otherLine);

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_READING_ORDER_H
