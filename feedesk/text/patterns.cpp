#include "feedesk/text/patterns.h"

namespace feedesk {

std::string widened(const std::string& text) {
    if (text.empty()) {
        return "";
    }
    return (text.front() == '*' ? "" : "*") + text + (text.back() == '*' ? "" : "*");
}

std::string insideAdvice(const std::string& whatToWrite, const std::string& whatIsSearched) {
    return "; " + whatToWrite + " finds the text inside " + whatIsSearched;
}

}  // namespace feedesk
