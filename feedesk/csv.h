#ifndef FEEDESK_CSV_H
#define FEEDESK_CSV_H

#include <string>
#include <vector>

namespace feedesk {

/// One line of comma-separated cells, line end included. A cell with a comma, a quote or a line break is quoted, a
/// quote inside it doubled.
std::string csvLine(const std::vector<std::string>& cells);

}  // namespace feedesk

#endif  // FEEDESK_CSV_H
