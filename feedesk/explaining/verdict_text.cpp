#include "feedesk/explaining/verdict_text.h"

#include <fmt/format.h>

namespace feedesk {
namespace {

std::string outrankedText(const Considered& input) {
    return input.beatenBy ? fmt::format("the {} goes before it", levelName(input.beatenBy->level))
                          : "several lines go before it together";
}

std::string overriddenText(const Considered& input) {
    return input.line.origin.level == Level::kCustomFee ? "overridden by a later update" : "overridden by a later line";
}

}  // namespace

std::string verdictName(Verdict verdict) {
    switch (verdict) {
        case Verdict::kAnswers:
            return "answers";
        case Verdict::kOverridden:
            return "overridden";
        case Verdict::kEarlierEntry:
            return "earlier_entry";
        case Verdict::kOutranked:
            return "outranked";
        case Verdict::kLast:
            return "last";
        case Verdict::kNotInForce:
            return "not_in_force";
        case Verdict::kOtherCategory:
            return "other_category";
        case Verdict::kNoSimulation:
            return "no_simulation";
        case Verdict::kNotTaken:
            break;
    }
    return "not_taken";
}

std::string verdictText(const Considered& input) {
    switch (input.verdict) {
        case Verdict::kAnswers:
            return "answers";
        case Verdict::kOverridden:
            return overriddenText(input);
        case Verdict::kEarlierEntry:
            return "another entry of the update matches first";
        case Verdict::kOutranked:
            return outrankedText(input);
        case Verdict::kLast:
            return "answers where no line does";
        case Verdict::kNotInForce:
            return fmt::format("in force {}", input.days.text());
        case Verdict::kOtherCategory:
            return fmt::format("category {} does not hold the instrument", input.category);
        case Verdict::kNoSimulation:
            return "charged on simulation platforms alone";
        case Verdict::kNotTaken:
            break;
    }
    return "not taken for this account and instrument";
}

}  // namespace feedesk
