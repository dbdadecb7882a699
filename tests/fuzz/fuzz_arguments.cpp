// The command line: an argument on each line, "@" for the path of the sample company. It ends with one of its statuses.
#include <cstdlib>

#include "fuzz/fuzz_base.h"

// The program's main under another name.
int programMain(int argc, char** argv);

namespace {

using namespace tz;

// Nothing outside the fuzzer's folder, no windows, no huge ledgers.
std::vector<std::string> argumentsFrom(std::string_view input, const std::string& ledger) {
  std::vector<std::string> all = {"tzassistant"};
  while (!input.empty()) {
    const auto line = input.substr(0, input.find('\n'));
    input.remove_prefix(std::min(input.size(), line.size() + 1));
    std::string argument(line.substr(0, line.find('\0')));
    for (auto& sign : argument) sign = sign == '/' ? '_' : sign;
    all.push_back(argument == "@" ? ledger : argument);
  }
  return all;
}

bool isHarmless(const std::vector<std::string>& arguments) {
  if (arguments.size() < 2) return false;
  for (const auto& argument : arguments) {
    if (argument == "open" || argument.starts_with("--lines") || argument.starts_with("--sample")) return false;
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const auto ledger = [] {
    std::filesystem::create_directory(fuzz::folder() / "here");
    std::filesystem::current_path(fuzz::folder() / "here");
    return fuzz::makeSample((fuzz::folder() / "sample.db").string());
  }();
  auto arguments = argumentsFrom({reinterpret_cast<const char*>(data), size}, ledger);
  if (!isHarmless(arguments)) return 0;
  setenv("TZ_PASSWORD", "none", 1);  // the program takes it away
  std::vector<char*> pointers;
  for (auto& argument : arguments) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  const int status = programMain(static_cast<int>(arguments.size()), pointers.data());
  fuzz::require(status >= 0 && status <= 4, "a status that does not exist");
  for (const auto& made : std::filesystem::directory_iterator(".")) std::filesystem::remove_all(made.path());
  return 0;
}
