#include "feedesk/completing/expected_word.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>
#include <optional>

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

const CLI::Option* optionOf(const CLI::App* app, const std::string& word) {
    return app == nullptr ? nullptr : app->get_option_no_throw(word);
}

/// The command line read as far as it goes.
struct Reading {
    const CLI::App* command = nullptr;
    const CLI::Option* waiting = nullptr;  ///< an option whose value comes next
    std::size_t arguments = 0;             ///< of the command, options not counted
};

Reading readingOf(const CLI::App& app, const std::vector<std::string>& words) {
    Reading reading;
    for (const std::string& word : words) {
        if (reading.waiting != nullptr) {
            reading.waiting = nullptr;
        } else if (word.size() > 1 && word.front() == '-') {
            const CLI::Option* option = optionOf(reading.command, word);
            option = option == nullptr ? optionOf(&app, word) : option;
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

/// The command's argument at this place; its last one may come again. Empty: it takes none.
std::optional<std::string> argumentAt(const CLI::App& command, std::size_t place) {
    const std::vector<const CLI::Option*> all =
        command.get_options([](const CLI::Option* option) { return option->get_positional(); });
    if (all.empty()) {
        return std::nullopt;
    }
    if (place < all.size()) {
        return all[place]->get_name(true);
    }
    return all.back()->get_expected_max() > 1 ? std::optional<std::string>(all.back()->get_name(true)) : std::nullopt;
}

}  // namespace

ExpectedWord expectedWord(const CLI::App& app, const std::vector<std::string>& before, const std::string& begun) {
    const Reading reading = readingOf(app, before);
    if (reading.waiting != nullptr) {
        return {};
    }
    if (!begun.empty() && begun.front() == '-') {
        ExpectedWord options{WordKind::kListed, {}};
        addOptions(options.words, reading.command);
        addOptions(options.words, &app);
        return options;
    }
    if (reading.command == nullptr) {
        return {WordKind::kListed, namesOf(commandsOf(app))};
    }
    const std::string argument = argumentAt(*reading.command, reading.arguments).value_or("");
    if (argument == "ACCOUNT") {
        return {WordKind::kAccount, {}};
    }
    if (argument == "INSTRUMENT") {
        return {WordKind::kInstrument, {}};
    }
    return argument == "COMMAND" ? ExpectedWord{WordKind::kListed, namesOf(commandsOf(app))} : ExpectedWord();
}

}  // namespace feedesk
