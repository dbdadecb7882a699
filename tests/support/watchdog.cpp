// Ends a test program whose case does not end, and says which case it was: a hang would else be told by the limit of
// the whole program alone, many minutes later and without a name.
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

namespace tz::test {
namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr unsigned usualLimit = 3000;
#else
constexpr unsigned usualLimit = 300;
#endif

// Seconds for one case; TZ_CASE_LIMIT overrides it. The longest take half a minute on a busy machine, and ten times
// that with sanitizers.
unsigned caseLimit() {
  const char* wanted = std::getenv("TZ_CASE_LIMIT");
  const unsigned long limit = wanted == nullptr ? 0 : std::strtoul(wanted, nullptr, 10);
  return limit == 0 ? usualLimit : static_cast<unsigned>(limit);
}

std::array<char, 512> words;  // what is said at the end: a signal handler composes nothing

extern "C" void endProgram(int /*signal*/) {
  std::size_t length = 0;
  while (length < words.size() && words[length] != '\0') ++length;
  if (::write(STDERR_FILENO, words.data(), length) < 0) errno = 0;
  std::signal(SIGABRT, SIG_DFL);
  std::abort();
}

class Watchdog : public testing::EmptyTestEventListener {
 public:
  void OnTestStart(const testing::TestInfo& test) override {
    const unsigned limit = caseLimit();
    std::string text = "\nhangs: ";
    text.append(test.test_suite_name()).append(".").append(test.name());
    text.append(" did not end within ").append(std::to_string(limit)).append(" s\n");
    text.resize(words.size() - 1);
    text.copy(words.data(), text.size());
    std::signal(SIGALRM, endProgram);
    ::alarm(limit);
  }
  void OnTestEnd(const testing::TestInfo& /*test*/) override { ::alarm(0); }
};

[[maybe_unused]] const bool watching = [] {
  testing::UnitTest::GetInstance()->listeners().Append(new Watchdog);  // the framework's own
  return true;
}();

}  // namespace
}  // namespace tz::test
