// tzassistant completion: the scripts with which a shell completes this program's lines, and the words that those
// scripts ask for.
#include <fmt/format.h>

#include "cli/cli.h"
#include "cli/completion_candidates.h"
#include "cli/values.h"

namespace tz::cli {
namespace {

// Each script hands over the words of the line and takes a line per candidate: word, tab, meaning; ":files" stands for
// the shell's own completion of file names.
constexpr std::string_view bashScript = R"(# bash completion of tzassistant
_tzassistant() {
  local line current="${COMP_WORDS[COMP_CWORD]}"
  COMPREPLY=()
  while IFS= read -r line; do
    if [ "$line" = ":files" ]; then
      compopt -o filenames 2>/dev/null
      while IFS= read -r line; do COMPREPLY+=("$line"); done < <(compgen -f -- "$current")
    else
      COMPREPLY+=("${line%%$'\t'*}")
    fi
  done < <("${COMP_WORDS[0]}" completion words -- "${COMP_WORDS[@]:1:COMP_CWORD}" 2>/dev/null)
}
complete -F _tzassistant tzassistant
)";

constexpr std::string_view zshScript = R"(#compdef tzassistant
# zsh completion of tzassistant
_tzassistant() {
  local line
  local -a candidates
  for line in "${(@f)$("${words[1]}" completion words -- "${(@)words[2,CURRENT]}" 2>/dev/null)}"; do
    if [[ $line == :files ]]; then
      _files
    elif [[ -n $line ]]; then
      candidates+=("${${line%%$'\t'*}//:/\\:}:${line#*$'\t'}")
    fi
  done
  _describe tzassistant candidates
}
if [[ ${funcstack[1]} == _tzassistant ]]; then
  _tzassistant "$@"
else
  compdef _tzassistant tzassistant
fi
)";

constexpr std::string_view fishScript = R"(# fish completion of tzassistant
function __tzassistant_words
  set -l typed (commandline -opc) (commandline -ct)
  for line in ($typed[1] completion words -- $typed[2..-1] 2>/dev/null)
    if test "$line" = ":files"
      __fish_complete_path (commandline -ct)
    else
      echo $line
    end
  end
end
complete -c tzassistant -f -a '(__tzassistant_words)'
)";

std::string wordList(const CLI::App& app, const std::vector<std::string>& words) {
  const auto found = candidatesFor(app, words);
  std::string text = found.files ? ":files\n" : "";
  for (const auto& [word, meaning] : found.words) text += fmt::format("{}\t{}\n", word, meaning);
  return text;
}

Status answer(const std::string& wanted, const CLI::App& app, const std::vector<std::string>& words) {
  if (wanted == "words") {
    print(wordList(app, words));
  } else {
    print(std::string(wanted == "bash" ? bashScript : wanted == "zsh" ? zshScript : fishScript));
  }
  return Status::done;
}

}  // namespace

void addCompletionCommand(CLI::App& app, Work& work) {
  auto* command = app.add_subcommand("completion", "输出命令行补全脚本：bash、zsh 或 fish");
  const auto wanted = std::make_shared<std::string>();
  const auto words = std::make_shared<std::vector<std::string>>();
  auto* shell = command->add_option("SHELL", *wanted, "命令行外壳；words 由脚本调用，列出下一个词")->required();
  letChoose(*shell, {"bash", "zsh", "fish", "words"});
  command->add_option("WORDS", *words, "words：已键入的词，最后一个正在键入");
  command->callback(
      [&app, &work, wanted, words] { work = [&app, wanted, words] { return answer(*wanted, app, *words); }; });
}

}  // namespace tz::cli
