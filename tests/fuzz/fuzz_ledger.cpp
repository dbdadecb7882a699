// Ledger files: what begins like a database is opened as it is, anything else is a list of changes to the sample
// company's file, four bytes each (place in three, what to flip in one). Opening, the check and every report may fail
// with an exception and do nothing worse.
#include "core/check/ledger_check.h"
#include "fuzz/fuzz_base.h"
#include "support/every_report.h"

namespace {

using namespace tz;

struct Base {
  std::string path = fuzz::makeSample((fuzz::folder() / "sample.db").string());
  std::string bytes = fuzz::bytesOf(path);
  std::vector<test::Question> questions = [this] {
    test::Reader reader(path);
    return test::everyReport(reader);
  }();
};

std::string fileFrom(const std::string& input, const std::string& sample) {
  if (input.starts_with("SQLite format 3")) return input;
  auto bytes = sample;
  for (std::size_t i = 0; i + 4 <= input.size(); i += 4) {
    const auto part = [&](std::size_t place) {
      return static_cast<std::size_t>(static_cast<unsigned char>(input[place]));
    };
    bytes[(part(i) << 16U | part(i + 1) << 8U | part(i + 2)) % bytes.size()] ^= input[i + 3];
  }
  return bytes;
}

void tryLedger(const std::string& path, const std::vector<test::Question>& questions) {
  test::Reader reader(path);
  for (const auto& question : questions) {
    try {
      (void)test::answerText(reader.ask(question));
    } catch (const std::exception&) {
      continue;
    }
  }
  checkLedger(*openAsStored(path), [](const Violation&) {});
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Base base;
  const auto path = (fuzz::folder() / "fuzzed.db").string();
  for (const char* suffix : {"", "-wal", "-shm", "-journal"}) std::filesystem::remove(path + suffix);
  std::ofstream(path, std::ios::binary) << fileFrom({reinterpret_cast<const char*>(data), size}, base.bytes);
  try {
    tryLedger(path, base.questions);
  } catch (const std::exception&) {
    return 0;
  }
  return 0;
}
