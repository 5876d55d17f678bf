#include "standalone/loader/error_log.h"

#include <algorithm>
#include <tuple>

#include "standalone/loader/words.h"

namespace standalone::loader {

void ErrorLog::add(const std::string& file, std::size_t line, const std::string& message) {
    errors.push_back({file, line, printable(message)});
}

std::vector<LoadError> ErrorLog::takeSorted() {
    std::stable_sort(errors.begin(), errors.end(), [](const LoadError& a, const LoadError& b) {
        return std::tie(a.file, a.line) < std::tie(b.file, b.line);
    });
    return std::move(errors);
}

}  // namespace standalone::loader
