// What may stand next on a command line that is being typed. Subcommands, options and choices are those of the parser,
// report numbers those of the catalogue; names of accounts, departments, persons and the like come from the ledger,
// once a ledger file that needs no logon is on the line.
#pragma once

#include <CLI/CLI.hpp>
#include <span>
#include <string>
#include <vector>

namespace tz::cli {

struct Candidate {
  std::string word;
  std::string meaning;
};

struct Candidates {
  std::vector<Candidate> words;
  bool files = false;  // file names, which the shell knows best
};

// `words` are those behind the program's name; the last one is being typed and may be empty.
[[nodiscard]] Candidates candidatesFor(const CLI::App& app, std::span<const std::string> words);

}  // namespace tz::cli
