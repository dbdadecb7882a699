#include "core/data/sqlite_log.h"

#include <algorithm>
#include <chrono>
#include <fmt/format.h>
#include <optional>
#include <thread>

#include "core/data/connection.h"

namespace tz {
namespace {

// Places in the first page of a ledger, which a log or a journal may hold an image of.
constexpr std::size_t counterPlace = 24;
constexpr std::size_t pagesPlace = 28;
constexpr std::size_t schemaPlace = 40;
constexpr std::size_t vacuumPlace = 52;
constexpr std::size_t countedPlace = 92;  // the counter for which the count of pages was written
constexpr std::size_t headSize = 100;

// The count of pages as the ledger itself names it; programs of long ago did not.
std::uint32_t pagesOf(const LedgerFile& ledger, const std::string& first) {
  if (figureAt(first, counterPlace) == figureAt(first, countedPlace)) return figureAt(first, pagesPlace);
  return static_cast<std::uint32_t>(ledger.size() / ledger.pageSize());
}

// The log: a head, then images of pages, each with a head of its own. Only what stands before the last committed change
// counts.
class Log {
 public:
  explicit Log(const SideFile& file) : file_(file), head_(file.read(0, headBytes)) {
    if (!isLog() || !headIsSound()) return;
    const std::int64_t frames = (file.size() - headBytes) / frameBytes();
    for (std::int64_t frame = 0; frame < frames && saltsMatch(frame); ++frame) {
      if (committedPages(frame) != 0) frames_ = frame + 1;
    }
  }

  // Bytes that no log begins with; one that is all zeros was never begun.
  [[nodiscard]] bool isForeign() const {
    const bool empty = std::ranges::all_of(head_, [](char byte) { return byte == 0; });
    return !empty && !head_.starts_with("\x37\x7f\x06");
  }
  [[nodiscard]] std::int64_t frames() const { return frames_; }
  [[nodiscard]] std::uint32_t pageSize() const { return figureAt(head_, 8); }
  [[nodiscard]] std::uint32_t pageNumber(std::int64_t frame) const { return figureAt(frameHead(frame), 0); }
  // How many pages the ledger has after a change whose last frame this is; 0 within a change.
  [[nodiscard]] std::uint32_t committedPages(std::int64_t frame) const { return figureAt(frameHead(frame), 4); }
  [[nodiscard]] std::string image(std::int64_t frame) const {
    return file_.read(at(frame) + frameHeadBytes, pageSize());
  }
  // The next frame with an image of the first page, `frames()` when there is none.
  [[nodiscard]] std::int64_t nextFirstPage(std::int64_t from) const {
    while (from < frames_ && pageNumber(from) != 1) ++from;
    return from;
  }

  // Forgets what was not written to its end, by the sums that SQLite goes by. Reads all of the log.
  void keepSoundFrames() {
    auto sum = Sum{figureAt(head_, 24), figureAt(head_, 28)};
    std::int64_t sound = 0;
    for (std::int64_t frame = 0; frame < frames_; ++frame) {
      const auto head = frameHead(frame);
      sum = added(added(sum, head.substr(0, 8)), image(frame));
      if (sum != Sum{figureAt(head, 16), figureAt(head, 20)}) break;
      if (committedPages(frame) != 0) sound = frame + 1;
    }
    frames_ = sound;
  }

 private:
  using Sum = std::pair<std::uint32_t, std::uint32_t>;
  static constexpr std::int64_t headBytes = 32;
  static constexpr std::int64_t frameHeadBytes = 24;

  [[nodiscard]] bool isLog() const { return head_.size() == headBytes && (figureAt(head_, 0) | 1U) == 0x377f0683; }
  [[nodiscard]] bool headIsSound() const {
    const bool known = pageSize() >= 512 && pageSize() <= 65536;
    return known && added({0, 0}, head_.substr(0, 24)) == Sum{figureAt(head_, 24), figureAt(head_, 28)};
  }
  [[nodiscard]] std::int64_t frameBytes() const { return frameHeadBytes + pageSize(); }
  [[nodiscard]] std::int64_t at(std::int64_t frame) const { return headBytes + frame * frameBytes(); }
  [[nodiscard]] std::string frameHead(std::int64_t frame) const { return file_.read(at(frame), frameHeadBytes); }
  [[nodiscard]] bool saltsMatch(std::int64_t frame) const {
    const auto head = frameHead(frame);
    return head.size() == frameHeadBytes && head.compare(8, 8, head_, 16, 8) == 0;
  }
  // The log's own sum; its first bytes say in which order the bytes of a figure count.
  [[nodiscard]] Sum added(Sum sum, std::string_view bytes) const {
    const bool bigEndian = (figureAt(head_, 0) & 1U) != 0;
    const auto word = [&](std::size_t place) {
      const std::uint32_t figure = figureAt(bytes, place);
      return bigEndian ? figure : __builtin_bswap32(figure);
    };
    for (std::size_t place = 0; place + 8 <= bytes.size(); place += 8) {
      sum.first += word(place) + sum.second;
      sum.second += word(place + 4) + sum.first;
    }
    return sum;
  }

  const SideFile& file_;
  std::string head_;
  std::int64_t frames_ = 0;
};

// The journal: parts, each a head and then pages as they were before the change that was broken off. The last part may
// not count them yet, and not call itself one; the pages' sums tell how far they were written.
class Journal {
 public:
  explicit Journal(const SideFile& file) : file_(file), head_(file.read(0, headBytes)) {
    if (!counts()) return;
    std::int64_t part = 0;
    for (auto head = head_; isHead(head) || isUncountedHead(head); head = file_.read(part, headBytes)) {
      const std::int64_t counted = figureAt(head, 8);
      std::int64_t place = part + sector();
      for (std::int64_t record = 0; counted == 0 || record < counted; ++record, place += recordBytes()) {
        if (!isSound(place, figureAt(head, 12))) return;
        if (numberAt(place) == 1) firstPage_ = imageAt(place);
      }
      part = (place + sector() - 1) / sector() * sector();
    }
  }

  [[nodiscard]] bool isForeign() const {
    return !head_.empty() && head_.front() != 0 && !head_.starts_with("\xd9\xd5");
  }
  // Whether SQLite would go by it.
  [[nodiscard]] bool counts() const { return isHead(head_) && pageSize() >= 512 && sector() >= 32; }
  [[nodiscard]] std::uint32_t pageSize() const { return figureAt(head_, 24); }
  // How many pages the ledger had before.
  [[nodiscard]] std::uint32_t pages() const { return figureAt(head_, 16); }
  // The first page as it was; nothing when it was not changed.
  [[nodiscard]] const std::optional<std::string>& firstPage() const { return firstPage_; }

 private:
  static constexpr std::size_t headBytes = 28;
  static bool isHead(const std::string& head) {
    return head.size() == headBytes && head.starts_with("\xd9\xd5\x05\xf9\x20\xa1\x63\xd7");
  }
  static bool isUncountedHead(const std::string& head) {
    return head.size() == headBytes && head.starts_with(std::string(12, '\0'));
  }
  [[nodiscard]] std::int64_t sector() const { return figureAt(head_, 20); }
  [[nodiscard]] std::int64_t recordBytes() const { return static_cast<std::int64_t>(pageSize()) + 8; }
  [[nodiscard]] std::uint32_t numberAt(std::int64_t place) const { return figureAt(file_.read(place, 4), 0); }
  [[nodiscard]] std::string imageAt(std::int64_t place) const { return file_.read(place + 4, pageSize()); }
  // By the sum behind the page, of some of its bytes and what the head begins with.
  [[nodiscard]] bool isSound(std::int64_t place, std::uint32_t sum) const {
    constexpr std::size_t step = 200;
    const auto image = imageAt(place);
    const auto written = file_.read(place + 4 + pageSize(), 4);
    if (image.size() != pageSize() || written.size() != 4) return false;
    for (std::size_t at = image.size() - step; at > 0 && at < image.size(); at -= step) {
      sum += static_cast<unsigned char>(image[at]);
    }
    return sum == figureAt(written, 0);
  }

  const SideFile& file_;
  std::string head_;
  std::optional<std::string> firstPage_;
};

// Whether the change from one state of the first page to a later one is one that a ledger can make. The counter stands
// still while one program goes on writing; the tables' places change with their description only.
bool follows(const std::string& earlier, const std::string& later) {
  if (earlier.size() != later.size()) return false;
  const std::uint32_t steps = figureAt(later, counterPlace) - figureAt(earlier, counterPlace);
  if (steps > 1) return false;
  const std::uint32_t schema = figureAt(earlier, schemaPlace);
  if (figureAt(later, schemaPlace) != schema) return figureAt(later, schemaPlace) > schema;
  const bool pagesMove = figureAt(earlier, vacuumPlace) != 0;
  return pagesMove || earlier.compare(headSize, std::string::npos, later, headSize, std::string::npos) == 0;
}

// The ledger's first page is as it was before the log began, or an image that was brought over from the log.
bool firstPageFits(const Log& log, const std::string& first) {
  std::int64_t frame = log.nextFirstPage(0);
  if (follows(first, log.image(frame))) return true;
  for (; frame < log.frames(); frame = log.nextFirstPage(frame + 1)) {
    if (log.image(frame) == first) return true;
  }
  return false;
}

bool anyPageCameFrom(const Log& log, const LedgerFile& ledger) {
  for (std::int64_t frame = 0; frame < log.frames(); ++frame) {
    if (ledger.page(log.pageNumber(frame)) == log.image(frame)) return true;
  }
  return false;
}

// What speaks against the log; empty when nothing does.
std::string objection(const Log& log, const LedgerFile& ledger) {
  if (log.isForeign()) return "it is no log of a ledger";
  if (log.frames() == 0) return {};
  if (log.pageSize() != ledger.pageSize()) return "its pages are of another size";
  if (!ledger.keepsLog()) return "the ledger keeps no such log";
  const auto first = ledger.page(1);
  if (log.nextFirstPage(0) == log.frames()) {
    if (log.committedPages(log.frames() - 1) != pagesOf(ledger, first)) return "it knows another number of pages";
  } else if (!firstPageFits(log, first)) {
    return "it does not begin where the ledger ends";
  }
  constexpr std::int64_t slack = 2'000'000'000;
  const bool newer = stateOf(ledger.path()).written > stateOf(ledger.path() + logSuffix).written + slack;
  if (newer && !anyPageCameFrom(log, ledger)) return "the ledger was written later, and not from this log";
  return {};
}

std::string objectionToLog(const LedgerFile& ledger) {
  const SideFile file(ledger.path() + logSuffix);
  if (!file.open()) return {};
  Log log(file);
  auto found = objection(log, ledger);
  if (found.empty() || log.frames() == 0) return found;
  log.keepSoundFrames();
  return objection(log, ledger);
}

std::string objectionToJournal(const LedgerFile& ledger) {
  const SideFile file(ledger.path() + journalSuffix);
  if (!file.open()) return {};
  const Journal journal(file);
  if (journal.isForeign()) return "it is no journal of a ledger";
  if (!journal.counts()) return {};
  if (journal.pageSize() != ledger.pageSize()) return "its pages are of another size";
  const auto now = ledger.page(1);
  const auto& before = journal.firstPage();
  if (!before) return journal.pages() == pagesOf(ledger, now) ? "" : "it knows another number of pages";
  const bool written = figureAt(now, counterPlace) != figureAt(*before, counterPlace);
  const bool fits = written ? follows(*before, now) : before->compare(0, headSize, now, 0, headSize) == 0;
  return fits ? "" : "it does not begin where the ledger ends";
}

}  // namespace

void requireOwnLog(const LedgerFile& ledger) {
  struct Check {
    const char* suffix;
    std::string (*objection)(const LedgerFile&);
  };
  constexpr int looks = 10;
  for (const auto& [suffix, objectionTo] : {Check{journalSuffix, objectionToJournal}, {logSuffix, objectionToLog}}) {
    const auto path = ledger.path() + suffix;
    // While somebody writes, ledger and log are not seen at one moment; what somebody writes to is in use, not left.
    for (int look = 0; look < looks; ++look) {
      const auto states = std::pair(stateOf(ledger.path()), stateOf(path));
      const auto found = objectionTo(ledger);
      if (found.empty()) break;
      std::this_thread::sleep_for(std::chrono::milliseconds(25));
      if (states != std::pair(stateOf(ledger.path()), stateOf(path))) continue;
      throw DbError(DbError::Kind::foreignLog, fmt::format("{}: {}", path, found));
    }
  }
}

}  // namespace tz
