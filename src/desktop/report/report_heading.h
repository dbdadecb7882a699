// What stands above the grid of a report: painted title and labels, the condition combos, the amount-format combo.
#pragma once

#include <QWidget>
#include <optional>
#include <string>
#include <vector>

#include "core/reports/report_definition.h"

class QAction;
class QComboBox;
class QHBoxLayout;

namespace tz {

class ConditionCombos;
class PaintedStatic;

class ReportHeading : public QWidget {
  Q_OBJECT

 public:
  ReportHeading(const ReportDefinition& report, QWidget* parent);

  [[nodiscard]] ConditionCombos& Conditions() const { return *conditions_; }
  // A button beside the amount formats.
  void AddButton(QAction* action);
  // The formats to choose from and the one that is shown.
  void SetFormats(const std::vector<AmountFormat>& formats, std::optional<AmountFormat> shown);
  void SetPeriod(const std::string& text);
  // Shows the conditions that have no combo of their own, and what was found beside the rows, as one line.
  void SetOthers(const tz::Conditions& conditions, const std::string& found);
  // Quantity unit and currency, each shown when the format has figures of that kind.
  void SetUnits(const AccountAmounts& amounts, std::optional<AmountFormat> format);

 signals:
  // Another format than before was chosen by hand.
  void formatChosen(tz::AmountFormat format);

 private:
  void OnFormatChosen();

  const ReportDefinition& report_;
  PaintedStatic* period_;
  PaintedStatic* currency_;
  PaintedStatic* unit_;
  PaintedStatic* others_;
  QComboBox* format_;
  ConditionCombos* conditions_;
  QHBoxLayout* top_;
  int rememberedFormat_ = -1;  // its place in the combo
};

}  // namespace tz
