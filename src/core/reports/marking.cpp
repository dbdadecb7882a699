#include "core/reports/marking.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <fmt/format.h>

#include "core/platform/local_time.h"
#include "core/reports/cancel_watch.h"

namespace tz {
namespace {

struct NamedWork {
  MarkWork::What what;
  std::string_view name;  // in batches
  std::string_view text;
};
constexpr std::array namedWorks = {
    NamedWork{MarkWork::What::toggle, "toggle", "手工勾对"},
    NamedWork{MarkWork::What::match, "match", "自动勾对"},
    NamedWork{MarkWork::What::reverse, "reverse", "反两清"},
};

struct NamedKind {
  ClearingKind kind;
  std::string_view name;  // in batches
  std::string_view text;
};
constexpr std::array namedKinds = {
    NamedKind{ClearingKind::person, "person", "个人往来"},
    NamedKind{ClearingKind::unit, "unit", "单位往来"},
};

constexpr std::string_view undoing = "undo:";

// The text before the next colon, which is taken away with it.
std::string_view takePart(std::string_view& rest) {
  const auto end = std::min(rest.find(':'), rest.size());
  const auto part = rest.substr(0, end);
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return part;
}

}  // namespace

std::string_view clearingName(ClearingKind kind) { return std::ranges::find(namedKinds, kind, &NamedKind::kind)->text; }

MarkWork workOf(std::string_view batch) {
  MarkWork work{.undone = batch.starts_with(undoing)};
  if (work.undone) batch.remove_prefix(undoing.size());
  const auto* const what = std::ranges::find(namedWorks, takePart(batch), &NamedWork::name);
  const auto* const kind = std::ranges::find(namedKinds, takePart(batch), &NamedKind::name);
  if (what == namedWorks.end() || kind == namedKinds.end()) return work;
  work.what = what->what;
  work.kind = kind->kind;
  return work;
}

std::string workText(const MarkWork& work) {
  const std::string_view undo = work.undone ? "撤销" : "";
  const auto* const named = std::ranges::find(namedWorks, work.what, &NamedWork::what);
  if (named == namedWorks.end()) return fmt::format("{}标记", undo);
  return fmt::format("{}{}（{}）", undo, named->text, clearingName(work.kind));
}

std::string undoOf(std::string_view batch) { return fmt::format("{}{}", undoing, batch); }

std::optional<std::string_view> batchTakenBackBy(std::string_view batch) {
  if (!batch.starts_with(undoing)) return std::nullopt;
  return batch.substr(undoing.size());
}

std::string utcText(std::chrono::sys_seconds moment) {
  const auto day = std::chrono::floor<std::chrono::days>(moment);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss time(moment - day);
  return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}Z", static_cast<int>(date.year()),
                     static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()), time.hours().count(),
                     time.minutes().count(), time.seconds().count());
}

std::optional<std::chrono::sys_seconds> momentOfUtc(std::string_view text) {
  constexpr std::string_view form = "0000-00-00T00:00:00Z";
  if (text.size() != form.size()) return std::nullopt;
  const auto date = parseIsoDate(text.substr(0, 10));
  if (!date || text[10] != 'T' || text.back() != 'Z') return std::nullopt;
  const auto part = [&](std::size_t first) {
    int number = 0;
    std::from_chars(text.data() + first, text.data() + first + 2, number);
    return number;
  };
  using namespace std::chrono;
  return sys_days(days(daysSinceEpoch(*date))) + hours(part(11)) + minutes(part(14)) + seconds(part(17));
}

std::string localTextOf(const std::string& utc) {
  const auto moment = momentOfUtc(utc);
  return moment ? platform::localTimeText(*moment) : utc;
}

MarkOutcome markLines(Session& session, std::span<const MarkChange> changes, const std::optional<std::string>& batch,
                      const StillSo& stillSo) {
  const CancelWatch watch(session);
  return writeMarks(session.db.Current(), changes, {session.who.name, utcText(session.now()), batch}, stillSo);
}

MarkOutcome markLines(Session& session, std::span<const MarkChange> changes, MarkWork::What what, ClearingKind kind) {
  if (changes.empty()) return MarksWritten{};
  return markLines(
      session, [&] { return std::vector(changes.begin(), changes.end()); }, what, kind);
}

MarkOutcome markLines(Session& session, const ReadChanges& read, MarkWork::What what, ClearingKind kind) {
  const CancelWatch watch(session);
  const auto* const named = std::ranges::find(namedWorks, what, &NamedWork::what);
  const auto* const ofKind = std::ranges::find(namedKinds, kind, &NamedKind::kind);
  return writeMarks(session.db.Current(), read,
                    {.who = session.who.name,
                     .when = utcText(session.now()),
                     .newBatch = fmt::format("{}:{}:", named->name, ofKind->name)});
}

}  // namespace tz
