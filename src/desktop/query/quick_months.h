// The months that are asked for most, by the month of logon: this month, the last one, this quarter, this year. Each
// has its key, the same wherever months are asked for.
#pragma once

#include <QString>
#include <array>

namespace tz {

struct MonthSpan {
  int from = 0;
  int to = 0;

  [[nodiscard]] bool IsEmpty() const { return from == 0; }
};

struct QuickMonths {
  const char* name;  // of its button
  const char* caption;
  const char* key;
  // Empty where the account year has none: before January.
  MonthSpan (*of)(int logonMonth);

  [[nodiscard]] QString Caption() const { return QString::fromUtf8(caption); }
  [[nodiscard]] QString Tip() const { return QStringLiteral("%1 (%2)").arg(Caption(), QLatin1String(key)); }
};

extern const std::array<QuickMonths, 4> quickMonths;

}  // namespace tz
