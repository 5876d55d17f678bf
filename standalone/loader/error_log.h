#ifndef STANDALONE_LOADER_ERROR_LOG_H
#define STANDALONE_LOADER_ERROR_LOG_H

#include <cstddef>
#include <string>
#include <vector>

#include "standalone/loader.h"

namespace standalone::loader {

/// The errors of one load, in the order in which they are found. For one thread.
class ErrorLog {
public:
    /// `line` 0 is the file as a whole. The message may quote the folder's own text as it is: control characters are
    /// escaped here.
    void add(const std::string& file, std::size_t line, const std::string& message);

    /// Hands out the errors by file, then line; those of one line stay in the order in which they were found.
    std::vector<LoadError> takeSorted();

private:
    std::vector<LoadError> errors;
};

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_ERROR_LOG_H
