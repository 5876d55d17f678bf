#include "feedesk/commands/check_choice.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

#include "feedesk/failure.h"
#include "feedesk/text/text.h"
#include "standalone/text/nearness.h"
#include "standalone/text/wording.h"

namespace feedesk {

using checking::Check;

namespace {

bool isNamed(const std::vector<std::string>& names, const char* name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

}  // namespace

std::vector<std::string> checkNames() {
    std::vector<std::string> names;
    for (const Check& check : checking::checks()) {
        names.emplace_back(check.name);
    }
    return names;
}

std::string checkProblem(const std::string& text) {
    const std::vector<std::string> names = checkNames();
    if (std::find(names.begin(), names.end(), text) != names.end()) {
        return "";
    }
    std::vector<std::string> near;
    std::copy_if(names.begin(), names.end(), std::back_inserter(near),
                 [&](const std::string& name) { return !text.empty() && name.find(text) != std::string::npos; });
    near = near.empty() ? standalone::nearNames(text, names) : near;
    return fmt::format(
        "there is no check {}; {}", echoed(text),
        near.empty() ? "`feedesk check --list` lists them" : fmt::format("did you mean {}?", standalone::oneOf(near)));
}

std::vector<const Check*> chosenChecks(const std::vector<std::string>& only, const std::vector<std::string>& off) {
    std::vector<const Check*> chosen;
    for (const Check& check : checking::checks()) {
        const bool isWanted = only.empty() || isNamed(only, check.name);
        if (isWanted && !isNamed(off, check.name)) {
            chosen.push_back(&check);
        }
    }
    if (chosen.empty()) {
        throw Failure(kBadInput, "no check is left: every one is switched off with --off");
    }
    return chosen;
}

}  // namespace feedesk
