#include "desktop/receivables/clearing_dialogs.h"

#include <QAction>
#include <QFormLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>

#include "core/receivables/clearing_check.h"
#include "core/reports/explain_error.h"
#include "core/reports/window_command.h"
#include "desktop/frame/combo_name.h"
#include "desktop/frame/dialog_keys.h"
#include "desktop/frame/fit_window.h"
#include "desktop/frame/manual_page.h"
#include "desktop/frame/message_box.h"
#include "desktop/gridview/grid_view.h"
#include "desktop/manual/manual.h"
#include "desktop/picking/useful_combox.h"
#include "desktop/report/report_window.h"
#include "desktop/report/window_commands.h"
#include "desktop/theme/picture_icon.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

constexpr int dialogMargin = 20;
constexpr int resultGridId = 8310;

QVBoxLayout* dialogLayout(QDialog& dialog) {
  auto* layout = new QVBoxLayout(&dialog);
  layout->setContentsMargins(dialogMargin, dialogMargin, dialogMargin, dialogMargin);
  layout->setSpacing(dialogMargin / 2);
  return layout;
}

QPushButton* dialogButton(int id, const QString& text, QDialog& dialog) {
  auto* button = new QPushButton(text, &dialog);
  button->setObjectName(QString::number(id));
  return button;
}

// A view of a small table, as wide as its columns and as high as some of its rows.
GridView* smallView(QDialog& dialog, const QString& name) {
  auto* view = new GridView(&dialog);
  view->setObjectName(QString::number(resultGridId));
  view->setAccessibleName(name);
  return view;
}
// On a small screen it scrolls, so that what stands below it is in sight.
void fitView(QDialog& dialog, GridView& view, int leastRows, int mostRows) {
  constexpr int headRows = 2;
  const int rows = std::clamp(static_cast<int>(view.RowCount()), leastRows, mostRows);
  view.setMinimumSize(view.AskedWidth(), (leastRows + headRows) * view.RowHeight());
  const int more = (rows - leastRows) * view.RowHeight();
  dialog.resize(dialog.sizeHint().grownBy({0, 0, 0, more}).boundedTo(roomFor(dialog)));
}

QString resultText(const MatchOutcome& outcome) {
  const auto all = outcome.all();
  const auto lines = all.byNumber + all.pairwise + all.whole;
  const bool cutShort = outcome.stopped || outcome.failure;
  QString said = lines != 0 ? QStringLiteral("共勾对 %1 条分录。").arg(grouped(lines))
                 : cutShort ? QStringLiteral("没有勾对分录。")
                            : QStringLiteral("没有可以勾对的分录。");
  if (outcome.stopped) said += QStringLiteral("勾对已停止，其余的没有勾对。");
  if (outcome.failure) {
    said += QStringLiteral("勾对中断：%1").arg(toQt(explainInWindow(*outcome.failure)));
    if (!said.endsWith(QStringLiteral("。"))) said += QStringLiteral("。");
    if (lines != 0) said += QStringLiteral("已经勾对的保留。");
  }
  return said;
}

}  // namespace

MatchProgressDialog::MatchProgressDialog(QWidget* parent)
    : QDialog(parent),
      account_(new QLabel(this)),
      party_(new QLabel(this)),
      note_(new QLabel(this)),
      bar_(new QProgressBar(this)) {
  setWindowTitle(QStringLiteral("自动勾对"));
  setWindowModality(Qt::WindowModal);
  setManualPage(*this, QStringLiteral("clearing#自动勾对"));
  account_->setObjectName(QStringLiteral("8330"));
  party_->setObjectName(QStringLiteral("8329"));
  bar_->setObjectName(QStringLiteral("8331"));
  bar_->setTextVisible(false);
  bar_->setAccessibleName(QStringLiteral("进度"));
  for (QLabel* label : {account_, party_}) label->setTextFormat(Qt::PlainText);
  auto* cancel = dialogButton(2, QStringLiteral("取消"), *this);
  cancel->setAutoDefault(false);
  cancel->setToolTip(QStringLiteral("停止勾对；已经勾对的各家保留（Esc）"));
  connect(cancel, &QPushButton::clicked, this, &MatchProgressDialog::reject);

  constexpr int least = 360;
  auto* form = new QFormLayout;
  form->addRow(QStringLiteral("勾对科目:"), account_);
  form->addRow(QStringLiteral("勾对客户:"), party_);
  auto* layout = dialogLayout(*this);
  layout->addLayout(form);
  layout->addWidget(bar_);
  auto* foot = new QHBoxLayout;
  foot->addWidget(note_, 1);
  foot->addWidget(cancel);
  layout->addLayout(foot);
  setMinimumWidth(least);
}

void MatchProgressDialog::ShowAccount(const QString& account) {
  account_->setText(account);
  party_->clear();
}

void MatchProgressDialog::ShowParty(const QString& party) { party_->setText(party); }

void MatchProgressDialog::ShowProgress(int done, int of) {
  bar_->setRange(0, of);
  bar_->setValue(done);
}

void MatchProgressDialog::reject() {
  stopping_ = true;
  note_->setText(QStringLiteral("正在停止…"));
  emit cancelled();
}

MatchResultDialog::MatchResultDialog(const MatchOutcome& outcome, QWidget* parent) : QDialog(parent) {
  setWindowTitle(QStringLiteral("自动勾对结果"));
  setManualPage(*this, QStringLiteral("clearing#自动勾对"));
  fillMatchGrid(outcome, grid_);
  auto* view = smallView(*this, windowTitle());
  view->SetGrid(&grid_);
  const QString said = resultText(outcome);
  auto* summary = new QLabel(said, this);
  summary->setObjectName(QStringLiteral("summary"));
  summary->setTextFormat(Qt::PlainText);
  summary->setWordWrap(true);
  setAccessibleDescription(said);
  auto* back = dialogButton(1, QStringLiteral("返回"), *this);
  connect(back, &QPushButton::clicked, this, &QDialog::accept);
  auto* layout = dialogLayout(*this);
  layout->addWidget(view, 1);
  layout->addWidget(summary);
  layout->addWidget(back, 0, Qt::AlignRight);
  constexpr int leastRows = 4, mostRows = 14;
  fitView(*this, *view, leastRows, mostRows);
  back->setDefault(true);
  back->setFocus();
}

ClearingCheckDialog::ClearingCheckDialog(ComputedReport check, ReportWindow& window)
    : QDialog(&window), check_(std::move(check)), window_(window) {
  setWindowTitle(toQt(check_.title));
  setManualPage(*this, QStringLiteral("clearing#平衡检查"));
  auto* bar = new QToolBar(this);
  bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  for (const auto id : {WindowCommand::print, WindowCommand::preview, WindowCommand::exportFile,
                        WindowCommand::separator, WindowCommand::help, WindowCommand::close}) {
    const ReportCommand* command = findReportCommand(static_cast<int>(id));
    if (command == nullptr) {
      bar->addSeparator();
      continue;
    }
    QAction* action = bar->addAction(pictureIcon(command->bitmap), command->Caption());
    action->setObjectName(QString::number(static_cast<int>(id)));
    action->setShortcut(QKeySequence(QLatin1String(command->shortcut)));
    connect(action, &QAction::triggered, this, [this, id] { OnCommand(static_cast<int>(id)); });
  }
  auto* view = smallView(*this, windowTitle());
  view->SetReport(&check_);
  auto* layout = dialogLayout(*this);
  layout->addWidget(bar);
  layout->addWidget(view, 1);
  constexpr int rows = 3;
  fitView(*this, *view, rows, rows);
  view->SetCurrent(0, 0);
  view->setFocus();
}

void ClearingCheckDialog::OnCommand(int id) {
  switch (static_cast<WindowCommand>(id)) {
    case WindowCommand::print:
      return window_.PrintReport(check_, this);
    case WindowCommand::preview:
      return window_.PreviewReport(check_, this);
    case WindowCommand::exportFile:
      return window_.ExportReport(check_, this);
    case WindowCommand::help:
      return showManual(this, manualPageOf(this));
    default:
      return accept();
  }
}

ClearingLocateDialog::ClearingLocateDialog(const QString& caption, const ComboList& groups, QWidget* parent)
    : QDialog(parent), groups_(new CUsefulCombox(this, CUsefulCombox::Leaving::keeps)) {
  setWindowTitle(QStringLiteral("往来两清定位"));
  constexpr int signs = 20;
  groups_->setObjectName(QStringLiteral("8344"));
  nameCombo(*groups_, caption);
  groups_->setMinimumContentsLength(signs);
  groups_->Fill(groups);
  if (!groups.empty()) groups_->SelectIndex(0);
  // Two characters stand apart, as wide as three.
  auto* label = new QLabel(
      (caption.size() == 2 ? caption.left(1) + QStringLiteral("  ") + caption.mid(1) : caption) + QStringLiteral(":"),
      this);
  label->setBuddy(groups_);
  auto* ok = dialogButton(1, QStringLiteral("确定"), *this);
  auto* cancel = dialogButton(2, QStringLiteral("取消"), *this);
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  giveDialogKeys(*ok, *cancel);
  ok->setDefault(true);
  auto* row = new QHBoxLayout;
  row->addWidget(label);
  row->addWidget(groups_, 1);
  auto* foot = new QHBoxLayout;
  foot->addStretch(1);
  foot->addWidget(ok);
  foot->addWidget(cancel);
  auto* layout = dialogLayout(*this);
  layout->addLayout(row);
  layout->addLayout(foot);
  groups_->setFocus();
}

void ClearingLocateDialog::accept() {
  groups_->Settle();
  const auto unknown = groups_->UnknownText();
  if (!unknown.empty() || groups_->currentIndex() < 0) {
    AfxMessageBox(this, messages::notListed(unknown));
    groups_->setFocus();
    return;
  }
  QDialog::accept();
}

std::string ClearingLocateDialog::Chosen() const { return groups_->CurrentText(); }

}  // namespace tz
