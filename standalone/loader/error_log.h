#ifndef STANDALONE_LOADER_ERROR_LOG_H
#define STANDALONE_LOADER_ERROR_LOG_H

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "standalone/loader.h"

namespace standalone::loader {

/// Where an error is. A view: what it names outlives it.
struct ErrorPlace {
    std::string_view file;
    std::size_t line = 0;  ///< 0: the file as a whole
    std::string_view column = {};
};

/// The errors of one load: the first kMostErrors in the order of reading_order.h, and of each kind the number of the
/// others, so that a folder of any number of errors takes little memory. For one thread.
class ErrorLog {
public:
    /// Notes an error. `sentence` is called for its message when it is among the first so far. The message may quote
    /// the folder's own text as it is: control characters are escaped here.
    template <class Sentence>
    void add(const ErrorPlace& place, ErrorKind kind, const Sentence& sentence) {
        if (isAmongFirst(place)) {
            keep(place, kind, sentence());
        } else {
            countOnly(place.file, place.line, kind);
        }
    }
    void add(const ErrorPlace& place, ErrorKind kind, const char* sentence);
    void add(const ErrorPlace& place, ErrorKind kind, const std::string& sentence);

    /// Notes an error of a file as a whole, unless it has been noted.
    template <class Sentence>
    void addOnce(const ErrorPlace& place, ErrorKind kind, const Sentence& sentence) {
        if (once.emplace(place.file, kind).second) {
            add(place, kind, sentence);
        }
    }

    /// Hands out the errors in that order; those of one line stay in the order in which they were found.
    void take(LoadErrors& result);

private:
    [[nodiscard]] bool isAmongFirst(const ErrorPlace& place) const;
    void keep(const ErrorPlace& place, ErrorKind kind, const std::string& message);
    void countOnly(std::string_view file, std::size_t line, ErrorKind kind);

    std::vector<LoadError> first;  // in order
    std::map<ErrorKind, FurtherErrors> others;
    std::set<std::pair<std::string, ErrorKind>> once;
};

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_ERROR_LOG_H
