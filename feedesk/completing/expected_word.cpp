#include "feedesk/completing/expected_word.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

namespace feedesk {
namespace {

std::vector<std::string> namesOf(const std::vector<const CLI::App*>& commands) {
    std::vector<std::string> names;
    std::transform(commands.begin(), commands.end(), std::back_inserter(names),
                   [](const CLI::App* command) { return command->get_name(); });
    return names;
}

/// The commands that help lists.
std::vector<const CLI::App*> commandsOf(const CLI::App& app) {
    return app.get_subcommands([](const CLI::App* command) { return !command->get_group().empty(); });
}

const CLI::App* commandAmong(const CLI::App& app, const std::string& word) {
    const std::vector<const CLI::App*> commands = commandsOf(app);
    const auto found = std::find_if(commands.begin(), commands.end(),
                                    [&word](const CLI::App* command) { return command->get_name() == word; });
    return found == commands.end() ? nullptr : *found;
}

bool takesValue(const CLI::Option& option) { return option.get_expected_max() > 0; }
bool takesMore(const CLI::Option& option) { return option.get_expected_max() > 1 && option.get_allow_extra_args(); }

const CLI::Option* optionOf(const CLI::App* app, const std::string& word) {
    return app == nullptr ? nullptr : app->get_option_no_throw(word);
}

/// The command line read as far as it goes.
struct Reading {
    const CLI::App* command = nullptr;
    const CLI::Option* waiting = nullptr;  ///< an option whose value comes next, or one that takes more of them
    bool hasValue = false;                 ///< one that is there already
    std::size_t arguments = 0;             ///< of the command, options not counted
};

Reading readingOf(const CLI::App& app, const std::vector<std::string>& words) {
    Reading reading;
    for (const std::string& word : words) {
        const bool isOption = word.size() > 1 && word.front() == '-';
        const bool mayBeValue = reading.waiting != nullptr && !(isOption && reading.hasValue);
        if (mayBeValue) {
            reading.waiting = takesMore(*reading.waiting) ? reading.waiting : nullptr;
            reading.hasValue = true;
        } else if (isOption) {
            const CLI::Option* option = optionOf(reading.command, word);
            option = option == nullptr ? optionOf(&app, word) : option;
            reading.hasValue = false;
            reading.waiting = option != nullptr && takesValue(*option) ? option : nullptr;
        } else if (reading.command == nullptr) {
            reading.command = commandAmong(app, word);
        } else {
            ++reading.arguments;
        }
    }
    return reading;
}

void addOptions(std::vector<std::string>& words, const CLI::App* app) {
    if (app == nullptr) {
        return;
    }
    for (const CLI::Option* option : app->get_options()) {
        for (const std::string& name : option->get_lnames()) {
            words.push_back("--" + name);
        }
    }
}

/// The command's argument at this place; its last one may come again. Null: it takes none.
const CLI::Option* argumentAt(const CLI::App& command, std::size_t place) {
    const std::vector<const CLI::Option*> all =
        command.get_options([](const CLI::Option* option) { return option->get_positional(); });
    if (place < all.size()) {
        return all[place];
    }
    return !all.empty() && all.back()->get_expected_max() > 1 ? all.back() : nullptr;
}

/// Options and arguments of one name mean the same in every command.
WordKind kindOf(const CLI::Option& option) {
    static const std::map<std::string, WordKind> kinds = {
        {"ACCOUNT", WordKind::kAccount},       {"--account", WordKind::kAccount},
        {"--accounts", WordKind::kAccount},    {"--expect-only", WordKind::kAccount},
        {"INSTRUMENT", WordKind::kInstrument}, {"--only-market", WordKind::kMarket},
        {"--layout", WordKind::kLayout},
    };
    const auto found = kinds.find(option.get_name(option.get_positional()));
    return found == kinds.end() ? WordKind::kFree : found->second;
}

/// A value of the option or argument, of which `begun` is written behind `written`.
ExpectedWord valueOf(const CLI::Option& option, const Choices& choices, const std::string& begun, std::string written) {
    const auto choice = choices.find(&option);
    if (choice == choices.end()) {
        return {kindOf(option), {}, std::move(written)};
    }
    const std::size_t comma = choice->second.isList ? begun.rfind(',') : std::string::npos;
    if (comma != std::string::npos) {
        written += begun.substr(0, comma + 1);
    }
    return {WordKind::kListed, choice->second.words, std::move(written)};
}

ExpectedWord optionFor(const CLI::App& app, const Reading& reading, const Choices& choices, const std::string& begun) {
    const std::size_t sign = begun.find('=');
    if (sign != std::string::npos) {
        const std::string name = begun.substr(0, sign);
        const CLI::Option* option = optionOf(reading.command, name);
        option = option == nullptr ? optionOf(&app, name) : option;
        return option == nullptr ? ExpectedWord()
                                 : valueOf(*option, choices, begun.substr(sign + 1), begun.substr(0, sign + 1));
    }
    ExpectedWord options{WordKind::kListed, {}, ""};
    addOptions(options.words, reading.command);
    addOptions(options.words, &app);
    return options;
}

}  // namespace

ExpectedWord expectedWord(const CLI::App& app, const Choices& choices, const std::vector<std::string>& before,
                          const std::string& begun) {
    const Reading reading = readingOf(app, before);
    const bool isOption = !begun.empty() && begun.front() == '-';
    if (reading.waiting != nullptr && !(isOption && reading.hasValue)) {
        return valueOf(*reading.waiting, choices, begun, "");
    }
    if (isOption) {
        return optionFor(app, reading, choices, begun);
    }
    if (reading.command == nullptr) {
        return {WordKind::kListed, namesOf(commandsOf(app)), ""};
    }
    const CLI::Option* argument = argumentAt(*reading.command, reading.arguments);
    if (argument == nullptr) {
        return {};
    }
    return argument->get_name(true) == "COMMAND" ? ExpectedWord{WordKind::kListed, namesOf(commandsOf(app)), ""}
                                                 : valueOf(*argument, choices, begun, "");
}

}  // namespace feedesk
