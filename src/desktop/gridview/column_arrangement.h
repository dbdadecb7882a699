// What a person made of the columns of a table: widths, order, and which are hidden. It names columns by key, so that
// it fits a table whose columns differ from time to time: what it does not know stays where the report has it, and what
// it knows of columns that are not there is kept for when they are.
#pragma once

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <vector>

namespace tz {

struct ColumnArrangement {
  // A column that was moved, and the one behind which it stands now; an empty key: it comes first.
  struct Moved {
    QString key;
    QString after;

    bool operator==(const Moved&) const = default;
  };

  QHash<QString, int> widths;  // that were drawn, in pixels at the usual size of texts
  QList<Moved> moved;
  QSet<QString> hidden;

  bool operator==(const ColumnArrangement&) const = default;
  [[nodiscard]] bool empty() const { return widths.isEmpty() && moved.isEmpty() && hidden.isEmpty(); }
};

// The places of the columns of these keys, from left to right, as indexes into them.
[[nodiscard]] std::vector<int> orderedColumns(const std::vector<QString>& keys,
                                              const QList<ColumnArrangement::Moved>& moved);
// The fewest moves that lead to an order to which `column` was moved last, behind those of `before` that speak of
// columns which are not there.
[[nodiscard]] QList<ColumnArrangement::Moved> movesTo(const std::vector<int>& order, int column,
                                                      const std::vector<QString>& keys,
                                                      const QList<ColumnArrangement::Moved>& before);

}  // namespace tz
