#include "desktop/report/filter_row.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>

#include "desktop/frame/announce.h"
#include "desktop/frame/elided_label.h"
#include "desktop/theme/qt_text.h"
#include "desktop/theme/theme.h"

namespace tz {
namespace {

constexpr int typingPause = 150;  // milliseconds
constexpr int amountWidth = 120;

}  // namespace

FilterRow::FilterRow(QWidget* parent)
    : QWidget(parent),
      unposted_(new QCheckBox(QStringLiteral("仅未记帐"), this)),
      unmarked_(new QCheckBox(this)),
      outlineLine_(new QHBoxLayout),
      outlines_(new QButtonGroup(this)),
      monthTotals_(new QCheckBox(QStringLiteral("本月合计、本年累计"), this)),
      note_(new ElidedLabel(this)) {
  auto* line = new QHBoxLayout;
  line->setSpacing(8);
  text_ = AddField(*line, "filterText", QStringLiteral("筛选文字"));
  text_->setClearButtonEnabled(true);
  line->setStretch(line->indexOf(text_), 1);
  from_ = AddField(*line, "filterFrom", QStringLiteral("金额从"));
  to_ = AddField(*line, "filterTo", QStringLiteral("到"));
  for (QLineEdit* field : {from_, to_}) {
    field->setMaximumWidth(amountWidth);
    field->setAlignment(Qt::AlignRight);
  }
  to_->setAccessibleName(QStringLiteral("金额到"));
  unposted_->setObjectName(QStringLiteral("filterUnposted"));
  unmarked_->setObjectName(QStringLiteral("filterUnmarked"));
  line->addWidget(unposted_);
  line->addWidget(unmarked_);
  auto* close = new QToolButton(this);
  close->setObjectName(QStringLiteral("filterClose"));
  close->setText(QStringLiteral("×"));
  close->setAccessibleName(QStringLiteral("清除并关闭筛选"));
  close->setToolTip(QStringLiteral("清除并关闭筛选 (Esc)"));
  close->setAutoRaise(true);
  close->setFocusPolicy(Qt::TabFocus);
  line->addWidget(close);
  QWidget* before = to_;
  for (QWidget* next : std::initializer_list<QWidget*>{unposted_, unmarked_, close}) {
    setTabOrder(before, next);
    before = next;
  }

  outlineLine_->setSpacing(4);
  monthTotals_->setObjectName(QStringLiteral("monthTotals"));
  monthTotals_->setToolTip(QStringLiteral("显示本月合计、本年累计；折叠的月份总留本月合计 (Ctrl+M)"));
  note_->setObjectName(QStringLiteral("filterNote"));
  note_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  note_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  auto* below = new QHBoxLayout;
  below->addLayout(outlineLine_);
  below->addSpacing(8);
  below->addWidget(monthTotals_);
  below->addWidget(note_, 1);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 6);
  layout->setSpacing(4);
  layout->addLayout(line);
  layout->addLayout(below);

  ShowLines(true);

  pause_.setSingleShot(true);
  pause_.setInterval(typingPause);
  connect(&pause_, &QTimer::timeout, this, &FilterRow::Read);
  for (QCheckBox* box : {unposted_, unmarked_}) connect(box, &QCheckBox::toggled, this, &FilterRow::Read);
  connect(close, &QToolButton::clicked, this, [this] {
    Clear();
    emit closeWanted();
  });
  connect(outlines_, &QButtonGroup::idClicked, this, &FilterRow::outlineChosen);
  connect(monthTotals_, &QCheckBox::clicked, this, &FilterRow::monthTotalsWanted);
}

QLineEdit* FilterRow::AddField(QHBoxLayout& line, const char* id, const QString& name) {
  auto* label = new QLabel(name, this);
  auto* field = new QLineEdit(this);
  field->setObjectName(QString::fromLatin1(id));
  field->setAccessibleName(name);
  label->setBuddy(field);
  line.addWidget(label);
  line.addWidget(field);
  connect(field, &QLineEdit::textChanged, &pause_, qOverload<>(&QTimer::start));
  return field;
}

void FilterRow::NarrowToText(const QString& text) {
  text_->setText(text);
  if (problem_) {
    from_->clear();
    to_->clear();
  }
  Read();
}

void FilterRow::NarrowToAmount(const QString& amount) {
  from_->setText(amount);
  to_->setText(amount);
  Read();
}

void FilterRow::Clear() {
  for (QLineEdit* field : {text_, from_, to_}) field->clear();
  for (QCheckBox* box : {unposted_, unmarked_}) {
    const QSignalBlocker quiet(box);
    box->setChecked(false);
  }
  Read();
}

void FilterRow::Read() {
  pause_.stop();
  QString problem;
  RowFilter read{.text = fromQt(text_->text().trimmed())};
  read.from = ReadAmount(*from_, problem);
  read.to = ReadAmount(*to_, problem);
  read.unpostedOnly = unposted_->isChecked();
  read.unmarkedOnly = unmarked_->isChecked();
  if (problem.isEmpty() && read.from && read.to && *read.from > *read.to) {
    problem = QStringLiteral("起始金额大于终止金额");
  }
  Colour();
  const bool news = read != filter_;
  if (!problem.isEmpty()) {
    Tell(problem, true);
    return;
  }
  if (problem_ || read.empty()) Tell({}, false);
  filter_ = read;
  if (news || !note_->text().isEmpty() || !read.empty()) emit changed();
}

std::optional<double> FilterRow::ReadAmount(QLineEdit& field, QString& problem) const {
  const QString text = field.text().trimmed();
  if (text.isEmpty()) return std::nullopt;
  const auto amount = typedAmount(fromQt(text));
  if (!amount && problem.isEmpty()) problem = QStringLiteral("“%1”不是金额").arg(text);
  return amount;
}

void FilterRow::ShowResult(qint64 kept, qint64 lines, bool folded) {
  if (problem_) return;
  if (filter_.empty()) {
    Tell({}, false);
    return;
  }
  const QString text = folded ? QStringLiteral("%1 %3符合，折叠的未显示；隐藏 %2 %4。合计为全部%5")
                              : QStringLiteral("显示 %1 %3，隐藏 %2 %4。合计为全部%5");
  const QString one = ofVouchers_ ? QStringLiteral("条") : QStringLiteral("行");
  const QString each = ofVouchers_ ? QStringLiteral("条分录") : one;
  const QString all = ofVouchers_ ? QStringLiteral("分录") : QStringLiteral("各行");
  Tell(text.arg(grouped(kept), grouped(lines - kept), one, each, all), false);
}

void FilterRow::ShowLines(bool ofVouchers, const QString& withoutMark) {
  ofVouchers_ = ofVouchers;
  unposted_->setVisible(ofVouchers && withoutMark.isEmpty());
  unmarked_->setVisible(!withoutMark.isEmpty());
  if (!withoutMark.isEmpty()) unmarked_->setText(QStringLiteral("仅") + withoutMark);
  text_->setPlaceholderText(ofVouchers ? QStringLiteral("摘要、凭证号等文字的一部分")
                                       : QStringLiteral("名称、编码等文字的一部分"));
}

void FilterRow::Tell(const QString& text, bool problem) {
  const bool news = text != note_->text() && !text.isEmpty();
  problem_ = problem;
  note_->SetShown(text);
  Colour();
  if (news) announce(note_);
}

void FilterRow::Colour() {
  QPalette palette;
  palette.setColor(QPalette::WindowText, problem_ ? currentTheme().negative : currentTheme().text);
  note_->setPalette(palette);
  for (QLineEdit* field : {from_, to_}) {
    const QString text = field->text().trimmed();
    const bool wrong = !text.isEmpty() && !typedAmount(fromQt(text));
    QPalette colours;
    if (wrong) colours.setColor(QPalette::Text, currentTheme().negative);
    field->setPalette(colours);
    field->setToolTip(wrong ? QStringLiteral("“%1”不是金额").arg(text)
                            : QStringLiteral("发生额，含两端；红字按绝对值比较"));
    field->setAccessibleDescription(field->toolTip());
  }
}

void FilterRow::ShowOutline(const QStringList& names, int chosen, bool hasMonths, bool monthTotals) {
  monthTotals_->setVisible(hasMonths);
  monthTotals_->setChecked(monthTotals);
  if (names != outlineNames_) {
    outlineNames_ = names;
    for (QAbstractButton* button : outlines_->buttons()) delete button;
    for (int outline = 0; outline < names.size() && names.size() > 1; ++outline) {
      auto* button = new QToolButton(this);
      button->setText(names[outline]);
      button->setObjectName(QStringLiteral("outline%1").arg(outline + 1));
      button->setCheckable(true);
      button->setAutoRaise(true);
      button->setFocusPolicy(Qt::TabFocus);
      button->setAccessibleName(outline == 0 ? QStringLiteral("全部展开") : QStringLiteral("折叠到") + names[outline]);
      button->setToolTip(QStringLiteral("%1 (Ctrl+%2)").arg(button->accessibleName()).arg(outline + 1));
      outlines_->addButton(button, outline);
      outlineLine_->addWidget(button);
    }
    QWidget* before = unmarked_;
    if (auto* close = findChild<QToolButton*>(QStringLiteral("filterClose"))) before = close;
    for (QAbstractButton* button : outlines_->buttons()) {
      setTabOrder(before, button);
      before = button;
    }
    setTabOrder(before, monthTotals_);
  }
  if (auto* button = outlines_->button(chosen)) button->setChecked(true);
}

void FilterRow::keyPressEvent(QKeyEvent* event) {
  event->accept();
  if (event->key() == Qt::Key_Escape) {
    const bool filled = !text_->text().isEmpty() || !from_->text().isEmpty() || !to_->text().isEmpty();
    if (filled || unposted_->isChecked() || unmarked_->isChecked()) {
      Clear();
      text_->setFocus();
    } else {
      emit closeWanted();
    }
  } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    Read();
  } else if (event->key() == Qt::Key_Down) {
    Read();
    emit tableWanted();
  } else {
    QWidget::keyPressEvent(event);
  }
}

void FilterRow::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  text_->setFocus();
  text_->selectAll();
}

void FilterRow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange && note_ != nullptr && from_ != nullptr) Colour();
  QWidget::changeEvent(event);
}

}  // namespace tz
