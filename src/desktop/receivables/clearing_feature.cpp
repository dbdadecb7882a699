// What the windows of two-clearing do beyond showing: marks toggled by click and space bar, automatic matching, marks
// reversed and taken back, the balance check, and going to a group.
#include <QKeyEvent>
#include <QVBoxLayout>
#include <fmt/format.h>
#include <map>

#include "core/grid/figures.h"
#include "core/receivables/clearing_check.h"
#include "core/receivables/clearing_columns.h"
#include "core/receivables/clearing_marks.h"
#include "core/receivables/clearing_report.h"
#include "core/reports/explain_error.h"
#include "desktop/frame/announce.h"
#include "desktop/frame/elided_label.h"
#include "desktop/frame/globals.h"
#include "desktop/frame/manual_page.h"
#include "desktop/frame/message_box.h"
#include "desktop/gridview/grid_view.h"
#include "desktop/receivables/clearing_dialogs.h"
#include "desktop/report/log.h"
#include "desktop/report/long_work.h"
#include "desktop/report/report_feature.h"
#include "desktop/report/report_window.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

constexpr std::string_view suiteCaption = "岚川财务软件";
constexpr Message nothingToLocate{.text = "无须执行定位功能", .caption = suiteCaption};

QString markingWords() { return QStringLiteral("正在写两清标记…"); }
QString busyWords() { return QStringLiteral("正在处理数据,请稍侯....."); }

// The mark behind a sign; what else stands for "○" is told by the sign too.
int markOf(std::string_view sign) {
  constexpr int automatic = 2;
  if (sign.empty()) return 0;
  return sign == markSign(1) ? 1 : automatic;
}

QString markWords(const QString& sign) {
  switch (markOf(fromQt(sign))) {
    case 0:
      return QStringLiteral("未两清");
    case 1:
      return QStringLiteral("手工两清");
    default:
      return QStringLiteral("自动勾对");
  }
}

// "已两清：借方 100.00，贷方 30.00，差 借 70.00"
QString sidesText(const QString& caption, const QString& difference, const ClearingSums::Sides& sides) {
  const auto figure = [](const MillionthSum& sum) {
    return toQt(figureText(std::abs(sum.value()), ColumnKind::amount));
  };
  const auto signedFigure = [](const MillionthSum& sum) { return toQt(figureText(sum.value(), ColumnKind::amount)); };
  const auto balance = sides.balance();
  const QString rest =
      balance.sign() == 0
          ? QStringLiteral("平")
          : QStringLiteral("%1%2 %3").arg(difference, balance.sign() > 0 ? QStringLiteral("借") : QStringLiteral("贷"),
                                          figure(balance));
  return QStringLiteral("%1：借方 %2，贷方 %3，%4")
      .arg(caption, signedFigure(sides.debit), signedFigure(sides.credit), rest);
}

class ClearingFeature : public ReportFeature {
 public:
  void Attach(ReportWindow& window) override;
  void AfterComputed(ShownReport& shown) override;
  [[nodiscard]] bool Answers(int command) const override;
  bool OnCommand(int id) override;
  bool OnClicked(qint64 row, int column) override;
  bool OnKey(QKeyEvent& event) override;

 private:
  [[nodiscard]] GridView& View() const { return window_->Grid(); }
  [[nodiscard]] CTzGrid& Grid() const { return shown_->report.grid; }
  // Says so where the operator may not mark.
  bool MayMark(ClearingKind kind) const;
  // The line of a row; none for rows that add up.
  [[nodiscard]] std::optional<LineId> LineOf(qint64 row) const;
  // True where the row shows what was wanted, and the ledger holds it.
  bool Toggle(qint64 row);
  // To the next line below.
  void GoOn();
  void ShowMark(qint64 row, int mark);
  void ShowDoubtful(qint64 row, int mark, const DbError& error);
  // What the lines come to, below them: when others are listed, and when a mark has changed.
  void SumUp();
  void ShowSums();

  void Match();
  [[nodiscard]] std::vector<Party> Parties(Session& session) const;
  void Reverse();
  void Undo();
  void Check();
  void Locate();

  ReportWindow* window_ = nullptr;
  ShownReport* shown_ = nullptr;  // the window's; null before the first report
  ClearingKind kind_ = ClearingKind::person;
  ClearingColumns columns_;
  ElidedLabel* sumsLabel_ = nullptr;
  ClearingSums sums_;
  std::map<qint64, int> unwritten_;  // rows whose mark could not be written, and what the ledger holds
};

void ClearingFeature::Attach(ReportWindow& window) {
  window_ = &window;
  const auto& ofUnits = clearingReport(ClearingKind::unit);
  kind_ = window.Definition().command == ofUnits.command ? ClearingKind::unit : ClearingKind::person;
  const QString who = kind_ == ClearingKind::unit ? QStringLiteral("单位") : QStringLiteral("个人");
  window.Rename(WindowCommand::reverseClearing, QStringLiteral("反两清"),
                QStringLiteral("取消所有%1在所有科目上的两清标记，不只是列出的这些").arg(who));
  window.Rename(WindowCommand::find, QStringLiteral("定位"), QStringLiteral("到一个部门、项目或业务员的第一行"));
  sumsLabel_ = new ElidedLabel(&window);
  sumsLabel_->setObjectName(QStringLiteral("clearingSums"));
  sumsLabel_->hide();
  window.Body().addWidget(sumsLabel_);
  QObject::connect(&View(), &GridView::refreshed, sumsLabel_, [this] { SumUp(); });
}

void ClearingFeature::AfterComputed(ShownReport& shown) {
  shown_ = &shown;
  columns_ = clearingColumnsOf(shown.report.grid);
  unwritten_.clear();
  View().SetMarkColumn({.column = columns_.mark, .words = markWords, .withoutMark = markWords({})});
}

bool ClearingFeature::Answers(int command) const {
  switch (static_cast<WindowCommand>(command)) {
    case WindowCommand::matchLines:
    case WindowCommand::reverseClearing:
    case WindowCommand::undoMarks:
    case WindowCommand::checkClearing:
    case WindowCommand::find:
      return true;
    default:
      return false;
  }
}

bool ClearingFeature::OnCommand(int id) {
  if (!Answers(id)) return false;
  if (LongWork::Running()) return true;
  switch (static_cast<WindowCommand>(id)) {
    case WindowCommand::matchLines:
      Match();
      break;
    case WindowCommand::reverseClearing:
      Reverse();
      break;
    case WindowCommand::undoMarks:
      Undo();
      break;
    case WindowCommand::checkClearing:
      Check();
      break;
    default:
      Locate();
      break;
  }
  return true;
}

bool ClearingFeature::OnClicked(qint64 row, int column) {
  if (shown_ == nullptr || column != columns_.mark) return false;
  Toggle(row);
  return true;
}

// A key that is held down toggles once.
bool ClearingFeature::OnKey(QKeyEvent& event) {
  const bool goesOn = event.key() == Qt::Key_Insert;
  if ((!goesOn && event.key() != Qt::Key_Space) || event.modifiers() != Qt::NoModifier) return false;
  if (event.isAutoRepeat() || shown_ == nullptr) return true;
  const auto row = View().Current().row;
  if ((Toggle(row) || !LineOf(row)) && goesOn) GoOn();
  return true;
}

void ClearingFeature::GoOn() {
  const GridCell current = View().Current();
  const auto& rows = View().Rows();
  if (!current.valid()) return;
  for (auto place = rows.PlaceOf(current.row) + 1; place < rows.Count(); ++place) {
    const auto row = rows.RowAt(place);
    if (LineOf(row)) return static_cast<void>(View().SetCurrent(row, current.column));
  }
}

void ClearingFeature::SumUp() {
  sums_ = {};
  const bool any = shown_ != nullptr && View().Report() == &shown_->report && shown_->report.subjects.hasLines();
  if (any && View().RowCount() > 0) sums_ = sumClearing(shown_->report);
  sumsLabel_->setVisible(any && View().RowCount() > 0);
  ShowSums();
}

void ClearingFeature::ShowSums() {
  const QString of = sums_.foreign ? QStringLiteral("外币") : QString();
  sumsLabel_->SetShown(sidesText(QStringLiteral("已两清") + of, QStringLiteral("差 "), sums_.marked) +
                       QStringLiteral("　　") + sidesText(markWords({}) + of, QStringLiteral("余 "), sums_.open));
  announce(sumsLabel_, QAccessible::NameChanged);
}

bool ClearingFeature::MayMark(ClearingKind kind) const {
  const auto right = rightOf(kind);
  if (g_operator.may(right.right)) return true;
  AfxMessageBox(window_, fmt::format("操作员 {} 没有“{}”的权限（{} 号），请向管理员申请", g_operator.name, right.name,
                                     right.right));
  return false;
}

std::optional<LineId> ClearingFeature::LineOf(qint64 row) const {
  if (row < 0 || row >= Grid().GetRows() || Grid().RowKindAt(row) != RowKind::line) return {};
  return shown_->report.subjects.line(row);
}

bool ClearingFeature::Toggle(qint64 row) {
  const auto line = LineOf(row);
  if (!line || LongWork::Running() || !MayMark(kind_)) return false;
  const auto kept = unwritten_.find(row);
  const int seen = kept == unwritten_.end() ? markOf(Grid().TextAt(row, columns_.mark)) : kept->second;
  bool stopped = false;
  try {
    std::optional<ToggleOutcome> outcome;
    window_->Work(markingWords(), {}, [&](Session& session, LongWork& work) {
      try {
        outcome = toggleMark(session, kind_, line->line, line->voucher, seen);
      } catch (const DbError&) {
        stopped = work.Cancelled();
        throw;
      }
    });
    if (const auto* toggled = std::get_if<Toggled>(&*outcome)) {
      ShowMark(row, toggled->mark);
      // Where a failure stood, this takes its place.
      window_->TellNews(QStringLiteral("%1：%2").arg(toQt(Grid().TextAt(row, ClearingColumns::voucher)),
                                                     View().SpokenText(row, columns_.mark)));
      return true;
    }
    if (const auto* overtaken = std::get_if<ToggleOvertaken>(&*outcome)) {
      ShowMark(row, overtaken->mark);
      AfxMessageBox(window_, overtaken->text);
    } else {
      AfxMessageBox(window_, std::get<Refusal>(*outcome));
    }
  } catch (const DbError& error) {
    if (stopped) {
      window_->TellNews(QStringLiteral("已停止，这条分录的标记没有改动"));
    } else {
      unwritten_[row] = seen;
      ShowDoubtful(row, seen == 0 ? 1 : 0, error);
    }
  }
  return false;
}

void ClearingFeature::ShowMark(qint64 row, int mark) {
  unwritten_.erase(row);
  const bool before = !Grid().TextAt(row, columns_.mark).empty();
  if (before != (mark != 0)) moveLine(sums_, Grid(), row, mark != 0);
  ShowSums();
  Grid().SetText(row, columns_.mark, markSign(mark));
  Grid().SetBackground(row, mark == 0 ? noColour : clearingReport(kind_).member.marked);
  View().SetDoubt({row, columns_.mark}, {});
  View().CellChanged({row, columns_.mark});
}

// As it was given, until a refresh shows what the ledger holds.
void ClearingFeature::ShowDoubtful(qint64 row, int mark, const DbError& error) {
  const int held = unwritten_.at(row);
  ShowMark(row, mark);
  unwritten_[row] = held;
  const bool perhaps = error.kind() == DbError::Kind::undecided;
  const auto doubt =
      perhaps ? QStringLiteral("这个标记不一定写入了帐套：%1") : QStringLiteral("这个标记没有写入帐套：%1");
  View().SetDoubt({row, columns_.mark}, doubt.arg(toQt(explainInWindow(error))));
  View().CellChanged({row, columns_.mark});
  window_->TellFailure(error);
}

std::vector<Party> ClearingFeature::Parties(Session& session) const {
  const auto& conditions = *shown_->report.resolved;
  if (kind_ == ClearingKind::unit) return {{conditions.unit.lId, conditions.unit.sEnterName}};
  return partiesOfDept(session, conditions.dept.lDeptId);
}

void ClearingFeature::Match() {
  if (shown_ == nullptr || shown_->report.resolved == nullptr || !MayMark(kind_)) return;
  std::optional<MatchOutcome> outcome;
  window_->Attempt([&] {
    window_->Work(
        QStringLiteral("正在自动勾对…"), {},
        [&](Session& session, LongWork& work) {
          MatchProgressDialog progress(window_);
          QObject::connect(&progress, &MatchProgressDialog::cancelled, &work, &LongWork::Cancel);
          const auto pump = session.progress;
          session.progress = [&](std::int64_t done, std::int64_t of) {
            progress.ShowProgress(static_cast<int>(done), static_cast<int>(of));
            pump(done, of);
          };
          const MatchWatch watch{.account =
                                     [&](const CodeInfo& account) {
                                       progress.ShowAccount(toQt(MatchedAccount{account, {}}.text()));
                                     },
                                 .party = [&](const Party& party) { progress.ShowParty(toQt(party.name)); }};
          progress.show();
          outcome = matchAutomatically(session, kind_, Parties(session), watch);
        },
        QStringLiteral("个科目"));
  });
  if (!outcome) return;
  if (outcome->failure) logFailure(window_->Definition().windowTitle, outcome->failure->what());
  window_->RecomputeInPlace();
  MatchResultDialog(*outcome, window_).exec();
}

void ClearingFeature::Reverse() {
  if (!MayMark(kind_) || !AfxMessageBox(window_, reverseQuestion(kind_))) return;
  std::optional<ReverseOutcome> outcome;
  window_->Attempt([&] {
    window_->Work(busyWords(), busyWords(), [&](Session& session, LongWork& /*work*/) {
      session.ask = [](const Question&) { return true; };  // it was asked before the busy box
      outcome = reverseClearing(session, kind_);
    });
  });
  if (!outcome) return;
  if (std::holds_alternative<Cancelled>(*outcome)) {
    window_->TellNews(QStringLiteral("反两清已停止，标记没有改动"));
    return;
  }
  window_->RecomputeInPlace();
  window_->TellNews(QStringLiteral("已取消 %1 条分录的两清标记").arg(grouped(std::get<std::int64_t>(*outcome))));
}

void ClearingFeature::Undo() {
  std::optional<LastBatch> last;
  bool read = false;
  window_->Attempt([&] {
    window_->Work(busyWords(), {}, [&](Session& session, LongWork& /*work*/) {
      last = lastBatch(session);
      read = true;
    });
  });
  if (!read) return;
  if (!last) return AfxMessageBox(window_, refusalWith(nothingToUndo));
  const bool known = last->work.what != MarkWork::What::unknown;
  if (!MayMark(known ? last->work.kind : kind_) || !AfxMessageBox(window_, undoQuestion(*last))) return;
  std::optional<UndoOutcome> outcome;
  window_->Attempt([&] {
    window_->Work(busyWords(), busyWords(), [&](Session& session, LongWork& /*work*/) {
      session.ask = [](const Question&) { return true; };
      outcome = undoBatch(session, *last);
    });
  });
  if (!outcome) return;
  if (const auto* refusal = std::get_if<Refusal>(&*outcome)) return AfxMessageBox(window_, *refusal);
  if (std::holds_alternative<Cancelled>(*outcome)) {
    return window_->TellNews(QStringLiteral("撤销已停止，标记没有改动"));
  }
  const auto& undone = std::get<Undone>(*outcome);
  window_->RecomputeInPlace();
  QString said = QStringLiteral("已恢复 %1 条分录原来的标记").arg(grouped(undone.lines));
  if (undone.kept > 0) said += QStringLiteral("；%1 条以后又改动过，保持现状").arg(grouped(undone.kept));
  window_->TellNews(said);
}

void ClearingFeature::Check() {
  if (shown_ == nullptr) return;
  const auto check = checkClearing(shown_->report);
  if (check.level) return AfxMessageBox(window_, refusalWith(levelMessage(kind_)));
  const auto& listed = shown_->report;
  ComputedReport told{.report = listed.report,
                      .window = clearingCheckDialog,
                      .title = std::string(checkTitle(kind_)),
                      .subtitle = listed.subtitle,
                      .period = listed.period,
                      .paintedPeriod = listed.paintedPeriod,
                      .printedPeriod = listed.printedPeriod,
                      .unit = listed.unit,
                      .format = listed.format,
                      .conditions = listed.conditions,
                      .subject = listed.subject,
                      .fileName = fmt::format("{} {}", checkTitle(kind_), listed.subject),
                      .grid = {},
                      .subjects = {},
                      .highlightMeaning = {}};
  fillCheckGrid(check, told.grid);
  ClearingCheckDialog(std::move(told), *window_).exec();
}

void ClearingFeature::Locate() {
  if (shown_ == nullptr) return;
  if (columns_.group < 0) return AfxMessageBox(window_, refusalWith(nothingToLocate));
  ComboList groups;
  for (qint64 row = 0; row < Grid().GetRows(); ++row) {
    const auto text = Grid().TextAt(row, columns_.group);
    if (text.empty() || !LineOf(row)) continue;
    // Lines of one group stand together.
    if (groups.empty() || groups.back().text != text) groups.push_back({.text = std::string(text), .datum = row});
  }
  if (groups.empty()) return AfxMessageBox(window_, refusalWith(messages::nothingToFind));
  const auto& column = Grid().Columns()[static_cast<std::size_t>(columns_.group)];
  ClearingLocateDialog dialog(toQt(column.caption), groups, window_);
  setManualPage(dialog, QStringLiteral("clearing#定位"));
  if (dialog.exec() != QDialog::Accepted) return;
  const auto wanted = dialog.Chosen();
  for (qint64 row = 0; row < Grid().GetRows(); ++row) {
    if (Grid().TextAt(row, columns_.group) == wanted) return window_->GoTo(row, columns_.group);
  }
}

const FeatureRegistration clearingWindows(clearingFeature, [] { return std::make_unique<ClearingFeature>(); });

}  // namespace
}  // namespace tz
