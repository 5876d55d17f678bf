#include "feedesk/answers/marks.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "feedesk/text/numbers.h"

namespace feedesk {
namespace {

struct MarkWords {
    Mark mark;
    const char* name;
    const char* shown;
    const char* counted;
};

constexpr std::array<MarkWords, 3> kMarkWords = {
    {{Mark::kBuiltInDefault, wordsOf(Level::kBuiltInDefault).field, "BUILT-IN DEFAULT",
      "answered with the built-in default"},
     {Mark::kZeroMargin, "zero_margin", "ZERO MARGIN", "with a margin of 0"},
     {Mark::kNotSet, wordsOf(Level::kNotSet).field, "NOT SET", "with a rate that is not set"}}};

const MarkWords& wordsOf(Mark mark) {
    return *std::find_if(kMarkWords.begin(), kMarkWords.end(),
                         [mark](const MarkWords& known) { return known.mark == mark; });
}

/// Margins of the long and of the short side are charged by turnover and by lot; what else the record holds is not.
bool hasZeroMargin(const FeeLine& line) {
    return line.part == kMarginPart && std::any_of(line.rates.begin(), line.rates.end(), [](const TitledRates& titled) {
               return titled.rates.front().unit == Unit::kFraction && isZero(titled);
           });
}

bool isMarked(const Answer& answer, Mark mark) {
    if (answer.lines.empty()) {
        return mark == Mark::kNotSet;
    }
    return std::any_of(answer.lines.begin(), answer.lines.end(), [mark](const FeeLine& line) {
        const std::vector<Mark> marks = marksOf(line);
        return std::find(marks.begin(), marks.end(), mark) != marks.end();
    });
}

}  // namespace

std::vector<Mark> marksOf(const FeeLine& line) {
    std::vector<Mark> marks;
    if (line.origin.level == Level::kBuiltInDefault) {
        marks.push_back(Mark::kBuiltInDefault);
    } else if (line.origin.level == Level::kNotSet) {
        marks.push_back(Mark::kNotSet);
    }
    if (hasZeroMargin(line)) {
        marks.push_back(Mark::kZeroMargin);
    }
    return marks;
}

std::string markName(Mark mark) { return wordsOf(mark).name; }

std::vector<std::string> levelPieces(const FeeLine& line) {
    const std::vector<Mark> marks = marksOf(line);
    std::vector<std::string> pieces;
    if (marks.empty() || marks.front() == Mark::kZeroMargin) {
        pieces.emplace_back(levelName(line.origin.level));
    }
    for (const Mark mark : marks) {
        pieces.emplace_back(wordsOf(mark).shown);
    }
    for (std::size_t i = 0; i + 1 < pieces.size(); ++i) {
        pieces[i] += ",";
    }
    return pieces;
}

void MarkCount::add(const std::vector<Answer>& answers) {
    all += answers.size();
    for (const MarkWords& known : kMarkWords) {
        marked[known.mark] += static_cast<std::size_t>(std::count_if(
            answers.begin(), answers.end(), [&](const Answer& answer) { return isMarked(answer, known.mark); }));
    }
}

std::string MarkCount::sentence(const std::string& noun) const {
    std::string sentence;
    for (const auto& [mark, number] : marked) {
        if (number != 0) {
            sentence += fmt::format("{}{} of {} {}", sentence.empty() ? "" : "; ", grouped(number),
                                    sentence.empty() ? counted(all, noun) : grouped(all), wordsOf(mark).counted);
        }
    }
    return sentence;
}

std::string markedSentence(const std::vector<Answer>& answers) {
    MarkCount count;
    count.add(answers);
    return count.sentence("instrument");
}

}  // namespace feedesk
