// The months above the grid of a report, from and to, with the months that are asked for most in a menu beside them.
#pragma once

#include <QWidget>

#include "desktop/query/quick_months.h"

class QHBoxLayout;

namespace tz {

class CUsefulCombox;

class MonthCombos : public QWidget {
  Q_OBJECT

 public:
  // `caption` stands in front of them.
  MonthCombos(const QString& caption, QWidget* parent);

  // The months of an account year.
  void Fill(int year);
  // By the month of logon.
  void SetLogonMonth(int month);
  void Show(MonthSpan months);

 signals:
  // Other months than before were chosen by hand.
  void chosen(tz::MonthSpan months);
  // Words about text that was typed and stands for no month.
  void told(const QString& words);

 private:
  CUsefulCombox* MadeCombo(const char* name, const QString& accessibleName);
  void AddMenu(QHBoxLayout& row);
  void Choose(MonthSpan months);
  [[nodiscard]] MonthSpan Current() const;

  CUsefulCombox* from_;
  CUsefulCombox* to_;
  MonthSpan shown_;
  int logonMonth_ = 1;
};

}  // namespace tz
