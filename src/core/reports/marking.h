// Marks lines in a session's name: its operator and the moment go into the mark log, and what was done into the name of
// the batch: "toggle:person:17", "match:unit:18", "reverse:person:19", and "undo:match:unit:18" for what takes that
// batch back. A number alone is a batch of which no more is known.
#pragma once

#include <chrono>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "core/data/marks.h"
#include "core/reports/session.h"

namespace tz {

// "2006-01-31T08:05:09Z".
[[nodiscard]] std::string utcText(std::chrono::sys_seconds moment);
// The other way; nothing for a text of another form, as only a ledger made elsewhere has it.
[[nodiscard]] std::optional<std::chrono::sys_seconds> momentOfUtc(std::string_view text);
// Such a text as clocks in this place show it, "2006-01-31 16:05"; one of another form as it is.
[[nodiscard]] std::string localTextOf(const std::string& utc);

enum class ClearingKind { person, unit };
[[nodiscard]] std::string_view clearingName(ClearingKind kind);  // "个人往来", "单位往来"

// What a batch of marks did.
struct MarkWork {
  enum class What { toggle, match, reverse, unknown };

  What what = What::unknown;
  ClearingKind kind = ClearingKind::person;  // not of an unknown one
  bool undone = false;                       // it takes such a batch back

  bool operator==(const MarkWork&) const = default;
};

[[nodiscard]] MarkWork workOf(std::string_view batch);
// "手工勾对（个人往来）", "自动勾对（单位往来）", "反两清（单位往来）", "撤销自动勾对（单位往来）"; "标记" for an
// unknown one.
[[nodiscard]] std::string workText(const MarkWork& work);
// The name of the batch that takes another back.
[[nodiscard]] std::string undoOf(std::string_view batch);
// The other way round; nothing for a batch that takes none back.
[[nodiscard]] std::optional<std::string_view> batchTakenBackBy(std::string_view batch);

// All or none, see writeMarks(). `batch` names the one that the rows belong to, where they are no batch of their own.
[[nodiscard]] MarkOutcome markLines(Session& session, std::span<const MarkChange> changes,
                                    const std::optional<std::string>& batch = {}, const StillSo& stillSo = {});
// A new batch.
[[nodiscard]] MarkOutcome markLines(Session& session, std::span<const MarkChange> changes, MarkWork::What what,
                                    ClearingKind kind);
[[nodiscard]] MarkOutcome markLines(Session& session, const ReadChanges& read, MarkWork::What what, ClearingKind kind);

}  // namespace tz
