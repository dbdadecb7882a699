// tzassistant completion: the scripts with which a shell completes this program's lines, and the words that those
// scripts ask for.
#include <fmt/format.h>

#include "cli/cli.h"
#include "cli/completion_candidates.h"
#include "cli/shell_words.h"
#include "cli/values.h"
#include "core/output/display_text.h"
#include "core/platform/terminal.h"

namespace tz::cli {
namespace {

// Each script hands over the words of the line and takes what may stand next. All texts end with a NUL, so that none
// can be taken for two; an empty one asks for the shell's own completion of file names. bash inserts what it is given
// as it stands, so it hands over the line itself and gets quoted texts; zsh and fish quote by themselves and get a
// word, the same word for showing, and its meaning.
constexpr std::string_view bashScript = R"(# bash completion of tzassistant
_tzassistant() {
  local reply
  COMPREPLY=()
  while IFS= read -r -d '' reply; do
    if [ -n "$reply" ]; then
      COMPREPLY+=("$reply")
    else
      compopt -o filenames 2>/dev/null
      while IFS= read -r reply; do COMPREPLY+=("$reply"); done < <(compgen -f -- "$2")
    fi
  done < <("${COMP_WORDS[0]}" completion words --bash -- "$2" "${COMP_LINE:0:COMP_POINT}" 2>/dev/null)
}
complete -F _tzassistant tzassistant
)";

constexpr std::string_view zshScript = R"(#compdef tzassistant
# zsh completion of tzassistant
_tzassistant() {
  local typed=${words[CURRENT]}
  if [[ $typed != -* ]]; then
    typed=
  elif [[ $typed == *=* ]]; then
    typed="${typed%%=*}="
  fi
  local -a answer candidates shown
  answer=("${(@0)$("${words[1]}" completion words -- "${(@Q)words[2,CURRENT-1]}" "$typed" 2>/dev/null; print -n .)}")
  local -i i
  for ((i = 1; i + 2 < $#answer; i += 3)); do
    if [[ -z $answer[i] ]]; then
      [[ -n $typed ]] && compset -P '*='
      _files
      return
    fi
    candidates+=("$answer[i]")
    shown+=("$answer[i+1]${answer[i+2]:+  -- $answer[i+2]}")
  done
  (( $#candidates )) && compadd -l -d shown -a candidates
}
if [[ ${funcstack[1]} == _tzassistant ]]; then
  _tzassistant "$@"
else
  compdef _tzassistant tzassistant
fi
)";

constexpr std::string_view fishScript = R"(# fish completion of tzassistant
function __tzassistant_words
  set -l words (commandline -opc)
  set -l token (commandline -ct)
  set -l typed (string match -r -- '^-[^=]*=?' $token)
  set -l answer ($words[1] completion words -- $words[2..-1] "$typed" 2>/dev/null | string split0)
  if set -q answer[1]; and test -z "$answer[1]"
    set -l before (string match -r -- '^-[^=]*=' $token)
    printf '%s\0' "$before"(__fish_complete_path (string replace -r -- '^-[^=]*=' '' $token))
    return
  end
  set -l i 1
  while set -q answer[$i]
    # fish parts word and meaning at a tab.
    string match -q -- \*\t\* $answer[$i]; or printf '%s\t%s\0' $answer[$i] $answer[(math $i + 2)]
    set i (math $i + 3)
  end
end
complete -c tzassistant -f -a '(__tzassistant_words | string split0)'
)";

struct WordsOptions {
  std::string shell;
  std::vector<std::string> words;
  bool bash = false;  // the words are two: the end of bash's line that it will replace, and the line
};

void put(std::string& text, std::string_view word) {
  text += word;
  text += '\0';
}

std::string wordsForBash(const CLI::App& app, const std::vector<std::string>& words) {
  std::string text;
  if (words.size() != 2) return text;
  const auto& replaced = words[0];
  const auto line = readShellLine(words[1]);
  const auto found = candidatesFor(app, line.words);
  if (found.files) {
    put(text, "");
    return text;
  }
  for (const auto& one : found.words) {
    if (const auto reply = shellCompletion(line, replaced, one.word); !reply.empty()) put(text, reply);
  }
  return text;
}

std::string wordList(const CLI::App& app, const std::vector<std::string>& words) {
  const auto found = candidatesFor(app, words);
  if (found.files) return std::string(3, '\0');
  const bool seen = platform::isTerminal();
  std::string text;
  for (const auto& [word, meaning] : found.words) {
    if (word.empty() || word.find('\0') != std::string::npos) continue;
    put(text, seen ? shownLine(word) : word);
    put(text, shownLine(word));
    put(text, shownLine(meaning));
  }
  return text;
}

Status answer(const WordsOptions& options, const CLI::App& app) {
  if (options.shell == "words") {
    print(options.bash ? wordsForBash(app, options.words) : wordList(app, options.words));
  } else {
    print(std::string(options.shell == "bash" ? bashScript : options.shell == "zsh" ? zshScript : fishScript));
  }
  return Status::done;
}

}  // namespace

void addCompletionCommand(CLI::App& app, Work& work) {
  auto* command = app.add_subcommand("completion", "输出命令行补全脚本：bash、zsh 或 fish");
  const auto options = std::make_shared<WordsOptions>();
  auto* shell = command->add_option("SHELL", options->shell, "命令行外壳；words 由脚本调用，列出下一个词")->required();
  letChoose(*shell, {"bash", "zsh", "fish", "words"});
  command->add_option("WORDS", options->words, "words：已键入的词，最后一个正在键入");
  command->add_flag("--bash", options->bash, "words：WORDS 是 bash 要替换的结尾和整行，答复已加引号");
  command->callback([&app, &work, options] { work = [&app, options] { return answer(*options, app); }; });
}

}  // namespace tz::cli
