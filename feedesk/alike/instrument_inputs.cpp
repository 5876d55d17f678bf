#include "feedesk/alike/instrument_inputs.h"

#include <algorithm>
#include <unordered_map>

namespace feedesk {

std::vector<int> instrumentInputs(standalone::FolderContents& contents, cost::Date day, const AccountDayLines& lines) {
    std::vector<int> numbers = contents.instrumentsOn(day);
    int last = numbers.empty() ? 0 : *std::max_element(numbers.begin(), numbers.end());
    for (const standalone::FolderContents::Line& line : lines) {
        if (!line.places) {
            continue;
        }
        std::unordered_map<int, int> matched;  // by the number so far
        for (const std::size_t place : *line.places) {
            const auto number = matched.emplace(numbers[place], last + 1);
            last += number.second ? 1 : 0;
            numbers[place] = number.first->second;
        }
    }
    return numbers;
}

}  // namespace feedesk
