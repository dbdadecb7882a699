// The row above a report's table in which its lines are looked for: a text, an amount from and to, unposted ones alone;
// below it what is shown of the blocks, and how many lines are left. It says what it hides; it knows no table.
#pragma once

#include <QTimer>
#include <QWidget>

#include "desktop/gridview/row_filter.h"

class QButtonGroup;
class QCheckBox;
class QHBoxLayout;
class QLineEdit;

namespace tz {

class ElidedLabel;

class FilterRow : public QWidget {
  Q_OBJECT

 public:
  explicit FilterRow(QWidget* parent);

  // What is typed, but for amounts that are none.
  [[nodiscard]] const RowFilter& Filter() const { return filter_; }
  // What else is typed stays, but for amounts that are none.
  void NarrowToText(const QString& text);
  void NarrowToAmount(const QString& amount);
  void Clear();
  // How many lines of all are kept, and whether some of them are folded away.
  void ShowResult(qint64 kept, qint64 lines, bool folded);
  // Whether the lines are those of vouchers: rows of a table are called so, and none of them is unposted. Lines that
  // are marked are posted; `withoutMark` is what those without are called then.
  void ShowLines(bool ofVouchers, const QString& withoutMark = {});
  // What can be shown of the blocks, and what is; of month totals only where there are any.
  void ShowOutline(const QStringList& names, int chosen, bool hasMonths, bool monthTotals);

 signals:
  // Once typing has paused.
  void changed();
  void outlineChosen(int outline);
  void monthTotalsWanted(bool shown);
  // Esc in an empty row, or its button; and on to the table.
  void closeWanted();
  void tableWanted();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  QLineEdit* AddField(QHBoxLayout& line, const char* id, const QString& name);
  // Reads the fields; what was wrong in them stands in the row.
  void Read();
  [[nodiscard]] std::optional<double> ReadAmount(QLineEdit& field, QString& problem) const;
  void Tell(const QString& text, bool problem);
  void Colour();

  RowFilter filter_;
  QTimer pause_;
  QLineEdit* text_ = nullptr;
  QLineEdit* from_ = nullptr;
  QLineEdit* to_ = nullptr;
  QCheckBox* unposted_;
  QCheckBox* unmarked_;
  QHBoxLayout* outlineLine_;
  QButtonGroup* outlines_;
  QCheckBox* monthTotals_;
  ElidedLabel* note_;
  QStringList outlineNames_;
  bool problem_ = false;
  bool ofVouchers_ = true;
};

}  // namespace tz
