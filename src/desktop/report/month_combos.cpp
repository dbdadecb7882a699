#include "desktop/report/month_combos.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>

#include "core/reports/messages.h"
#include "desktop/frame/combo_name.h"
#include "desktop/frame/narrow_button.h"
#include "desktop/picking/useful_combox.h"
#include "desktop/report/painted_static.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

// Of our own; templates have none.
constexpr int monthLabelId = 1014;
constexpr int monthDashId = 1015;

PaintedStatic* paintedLabel(int id, const QString& text, QWidget* parent) {
  auto* label = new PaintedStatic(id, PaintedStatic::Look::label, parent);
  label->setText(text);
  return label;
}

}  // namespace

MonthCombos::MonthCombos(const QString& caption, QWidget* parent)
    : QWidget(parent),
      from_(MadeCombo("monthFrom", QStringLiteral("起始月份"))),
      to_(MadeCombo("monthTo", QStringLiteral("终止月份"))) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(6);
  auto* label = paintedLabel(monthLabelId, caption, this);
  label->setBuddy(from_);
  row->addWidget(label);
  row->addWidget(from_);
  row->addWidget(paintedLabel(monthDashId, QStringLiteral("至"), this));
  row->addWidget(to_);
  AddMenu(*row);
}

CUsefulCombox* MonthCombos::MadeCombo(const char* name, const QString& accessibleName) {
  constexpr int signs = 7;  // "2006.01"
  auto* combo = new CUsefulCombox(this);
  combo->setObjectName(QString::fromLatin1(name));
  nameCombo(*combo, accessibleName);
  combo->setMinimumContentsLength(signs);
  connect(combo, &CUsefulCombox::entryChanged, this, [this] { Choose(Current()); });
  connect(combo, &CUsefulCombox::notFound, this,
          [this](const QString& text) { emit told(toQt(messages::notListed(fromQt(text)))); });
  connect(combo, &CUsefulCombox::givenUp, this,
          [this](const QString& text) { emit told(QStringLiteral("没有选定“%1”，条件不变。").arg(text)); });
  return combo;
}

// The keys of the menu work wherever the focus is in the window.
void MonthCombos::AddMenu(QHBoxLayout& row) {
  auto* button = new NarrowButton(QStringLiteral("选月 ▾"), this);
  auto* menu = new QMenu(button);
  for (const QuickMonths& one : quickMonths) {
    auto* action = new QAction(one.Caption(), this);
    action->setObjectName(QString::fromLatin1(one.name));
    action->setShortcut(QKeySequence(QString::fromLatin1(one.key)));
    connect(action, &QAction::triggered, this, [this, &one] { Choose(one.of(logonMonth_)); });
    menu->addAction(action);
    addAction(action);
  }
  button->setObjectName(QStringLiteral("quickMonths"));
  button->setAccessibleName(QStringLiteral("选择常用的月份"));
  button->setToolTip(QStringLiteral("本月、上月、本季、本年 (Alt+1 至 Alt+4)"));
  button->setAccessibleDescription(button->toolTip());
  connect(button, &QPushButton::clicked, menu,
          [button, menu] { menu->popup(button->mapToGlobal(button->rect().bottomLeft())); });
  row.addWidget(button);
}

void MonthCombos::Fill(int year) {
  from_->FillMonths(year);
  to_->FillMonths(year);
  Show(shown_);
}

void MonthCombos::SetLogonMonth(int month) {
  logonMonth_ = month;
  const auto all = actions();
  for (std::size_t i = 0; i < quickMonths.size(); ++i) {
    all.at(static_cast<qsizetype>(i))->setEnabled(!quickMonths[i].of(month).IsEmpty());
  }
}

void MonthCombos::Show(MonthSpan months) {
  shown_ = months;
  from_->SelectDatum(months.from);
  to_->SelectDatum(months.to);
}

MonthSpan MonthCombos::Current() const {
  return {static_cast<int>(from_->CurrentDatum()), static_cast<int>(to_->CurrentDatum())};
}

void MonthCombos::Choose(MonthSpan months) {
  if (months.from == 0 || months.to == 0 || (months.from == shown_.from && months.to == shown_.to)) return;
  Show(months);
  emit chosen(months);
}

}  // namespace tz
