#include "desktop/report/report_heading.h"

#include <QAction>
#include <QComboBox>
#include <QHBoxLayout>
#include <QToolButton>
#include <QVBoxLayout>

#include "core/reports/condition_texts.h"
#include "core/reports/control_kind.h"
#include "desktop/frame/combo_name.h"
#include "desktop/report/condition_combos.h"
#include "desktop/report/painted_static.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

constexpr int titleId = 1010;
constexpr int periodId = 1007;
constexpr int currencyId = 1008;
constexpr int unitId = 1011;
// Of our own; templates have none.
constexpr int othersId = 1013;
constexpr int formatId = 2201;
constexpr int gapBetweenLabels = 36;

PaintedStatic* label(int id, QWidget* parent) { return new PaintedStatic(id, PaintedStatic::Look::label, parent); }

}  // namespace

ReportHeading::ReportHeading(const ReportDefinition& report, QWidget* parent)
    : QWidget(parent),
      report_(report),
      period_(label(periodId, this)),
      currency_(label(currencyId, this)),
      unit_(label(unitId, this)),
      others_(label(othersId, this)),
      format_(new QComboBox(this)),
      conditions_(new ConditionCombos(report.dialog, this)),
      top_(new QHBoxLayout) {
  auto* title = new PaintedStatic(titleId, PaintedStatic::Look::title, this);
  title->setText(toQt(report.paintedTitle));
  format_->setObjectName(QString::number(formatId));
  nameCombo(*format_, QStringLiteral("金额格式"));
  format_->setToolTip(QStringLiteral("金额格式"));
  format_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  format_->setMinimumContentsLength(6);
  format_->setVisible(report.formats != nullptr);
  connect(format_, &QComboBox::activated, this, &ReportHeading::OnFormatChosen);

  others_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);

  top_->addWidget(title);
  top_->addStretch(1);
  top_->addWidget(format_);
  auto* labels = new QHBoxLayout;
  labels->setSpacing(gapBetweenLabels);
  labels->addWidget(period_);
  labels->addWidget(unit_);
  labels->addWidget(currency_);
  labels->addWidget(others_, 1);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(8);
  layout->addLayout(top_);
  layout->addWidget(conditions_);
  layout->addLayout(labels);
}

void ReportHeading::AddButton(QAction* action) {
  auto* button = new QToolButton(this);
  button->setDefaultAction(action);
  button->setObjectName(QStringLiteral("filterButton"));
  button->setAccessibleName(action->iconText());
  button->setToolButtonStyle(Qt::ToolButtonTextOnly);
  button->setFocusPolicy(Qt::TabFocus);
  top_->addWidget(button);
  setTabOrder(format_, button);
}

void ReportHeading::SetFormats(const std::vector<AmountFormat>& formats, std::optional<AmountFormat> shown) {
  format_->clear();
  for (const auto format : formats) format_->addItem(toQt(formatName(format)), static_cast<int>(format));
  rememberedFormat_ = shown ? format_->findData(static_cast<int>(*shown)) : -1;
  format_->setCurrentIndex(rememberedFormat_);
}

void ReportHeading::SetPeriod(const std::string& text) {
  period_->setText(toQt(text));
  period_->setVisible(!text.empty());
}

void ReportHeading::SetOthers(const tz::Conditions& conditions, const std::string& found) {
  QStringList texts;
  if (!found.empty()) texts.append(toQt(found));
  for (const auto& control : report_.dialog.controls) {
    if (ConditionCombos::HasCombo(control.kind) || toldByPeriod(report_, control)) continue;
    const auto text = conditionText(control, conditions);
    if (!text.empty()) texts.append(toQt(text));
  }
  for (const auto& toggle : rowToggles) {
    if (conditions.request.flag(toggle.key)) texts.append(toQt(parameter(toggle.key).label));
  }
  others_->setText(texts.join(QStringLiteral("    ")));
  others_->setToolTip(others_->text());
}

void ReportHeading::SetUnits(const AccountAmounts& amounts, std::optional<AmountFormat> format) {
  const auto& shown = traitsOf(format.value_or(AmountFormat::amount));
  currency_->setText(QStringLiteral("外币名称: %1").arg(toQt(amounts.currency)));
  currency_->setVisible(shown.foreign && !amounts.currency.empty());
  unit_->setText(QStringLiteral("数量单位: %1").arg(toQt(amounts.unit)));
  unit_->setVisible(shown.quantities && !amounts.unit.empty());
}

void ReportHeading::OnFormatChosen() {
  const int chosen = format_->currentIndex();
  if (chosen < 0 || chosen == rememberedFormat_) return;
  rememberedFormat_ = chosen;
  emit formatChosen(static_cast<AmountFormat>(format_->itemData(chosen).toInt()));
}

}  // namespace tz
