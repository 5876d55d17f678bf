#include "standalone/loader/error_log.h"

#include <algorithm>
#include <tuple>

namespace standalone::loader {

std::vector<LoadError> ErrorLog::takeSorted() {
    std::stable_sort(errors.begin(), errors.end(), [](const LoadError& a, const LoadError& b) {
        return std::tie(a.file, a.line) < std::tie(b.file, b.line);
    });
    return std::move(errors);
}

}  // namespace standalone::loader
