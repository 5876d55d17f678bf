#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "feedesk/commands/commands.h"
#include "feedesk/completing/completions.h"
#include "feedesk/program.h"
#include "feedesk/terminal/terminal.h"
#include "standalone/text/escape.h"
#include "standalone/text/wording.h"

namespace feedesk {
namespace {

struct ShellScript {
    const char* shell;
    const char* text;
};

// Words of the line up to the cursor are cut at spaces: bash itself would cut SH:600519 in three.
constexpr ShellScript kScripts[] = {
    {"bash", R"(# Completes feedesk in bash: source <(feedesk completion bash)
_feedesk() {
  local line=${COMP_LINE:0:COMP_POINT} words word
  read -ra words <<<"$line"
  [[ $line != *' ' ]] || words+=('')
  word=${words[-1]}
  mapfile -t COMPREPLY < <("${words[0]}" complete -- "${words[@]:1}" 2>/dev/null)
  [[ ${COMPREPLY[0]} != *: ]] || compopt -o nospace
  if [[ $word == *:* && $COMP_WORDBREAKS == *:* ]]; then
    COMPREPLY=("${COMPREPLY[@]#"${word%"${word##*:}"}"}")
  elif [[ $word == *=* && $COMP_WORDBREAKS == *=* ]]; then
    COMPREPLY=("${COMPREPLY[@]#"${word%%=*}="}")
  fi
}
complete -o default -F _feedesk feedesk
)"},
    {"zsh", R"(#compdef feedesk
# Completes feedesk in zsh: source <(feedesk completion zsh), after compinit.
_feedesk() {
  local -a found
  found=("${(@f)$("${words[1]}" complete -- "${(@)words[2,CURRENT]}" 2>/dev/null)}")
  if [[ -n ${found[1]} ]]; then compadd -- "${found[@]}"; else _files; fi
}
# In a file of $fpath this is the function's first call.
if [[ ${funcstack[1]} == _feedesk ]]; then _feedesk "$@"; else compdef _feedesk feedesk; fi
)"},
};

std::vector<std::string> shellNames() {
    std::vector<std::string> names;
    std::transform(std::begin(kScripts), std::end(kScripts), std::back_inserter(names),
                   [](const ShellScript& each) { return each.shell; });
    return names;
}

std::string scriptFor(const std::string& shell) {
    for (const ShellScript& each : kScripts) {
        if (shell == each.shell) {
            return each.text;
        }
    }
    throw Failure(kBadInput, fmt::format("there is no completion for the shell {}, but for {}",
                                         standalone::inQuotes(shell), standalone::oneOf(shellNames())));
}

}  // namespace

void addCompletion(CLI::App& app, Program& program) {
    CLI::App* command = app.add_subcommand("completion", "What makes a shell complete feedesk's words");
    const auto shell = std::make_shared<std::string>();
    program
        .choices[command->add_option("SHELL", *shell, "bash: source <(feedesk completion bash)\nzsh: the same with zsh")
                     ->required()
                     ->type_name("")] = {shellNames()};
    command->callback([&program, shell] {
        program.command = [shell] {
            writeText(scriptFor(*shell));
            return kAnswered;
        };
    });
}

// What the shell's function asks; people do not, and help does not list it.
void addComplete(CLI::App& app, Program& program) {
    CLI::App* command = app.add_subcommand("complete", "What a begun command line may go on with")->group("");
    const auto words = std::make_shared<std::vector<std::string>>();
    command->add_option("WORD", *words, "The words of the line, the last one begun")->type_name("");
    command->callback([&app, &program, words] {
        program.command = [&app, &program, words] {
            std::string text;
            const FolderWords folderWords = namedFolderWords(program.session.folder);
            for (const std::string& each : completions(app, program.choices, *words, folderWords)) {
                // The shell's function cuts the line at blanks, whatever quotes there are.
                text += each.find_first_of(" \t\n") == std::string::npos ? each + "\n" : "";
            }
            writeText(text);
            return kAnswered;
        };
    });
}

}  // namespace feedesk
