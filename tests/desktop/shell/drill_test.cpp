// From the rows of tables and general ledgers to the ledger behind them, as a person goes there: what stands there,
// which window it is, and what refuses.
#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QToolBar>
#include <algorithm>

#include "desktop/picking/useful_combox.h"
#include "desktop/report/sample_report.h"
#include "desktop/shell/launch.h"
#include "support/every_report.h"

namespace tz::test {
namespace {

std::vector<std::int64_t> rowsOf(const ComputedReport& report, RowKind kind) {
  std::vector<std::int64_t> rows;
  for (std::int64_t row = 0; row < report.grid.GetRows(); ++row) {
    if (report.grid.RowKindAt(row) == kind) rows.push_back(row);
  }
  return rows;
}

// Whether a line of a ledger is one of a table's row; the lines of accounts below the one asked for are too.
bool isOf(const Subject& line, const Subject& row, Id asked) {
  const auto same = [](Id one, Id other) { return one == other || one == 0 || other == 0; };
  return (row.account == asked || same(line.account, row.account)) && same(line.dept, row.dept) &&
         same(line.person, row.person) && same(line.unit, row.unit) && same(line.item, row.item);
}

class DrillTest : public SampleReport {
 protected:
  DrillTest() : launcher_(everybody(), findTold) { told_ = nullptr; }
  ~DrillTest() override {
    launcher_.CloseAll();
    deleteClosed();
  }

  static const ReportDefinition* findTold(int command) {
    return told_ != nullptr && told_->command == command ? told_ : findReport(command);
  }

  ReportWindow& open(int command, const Request& request) {
    auto* window = launcher_.LaunchFromReport({command, request}, nullptr);
    if (window == nullptr) throw std::runtime_error("no window");
    EXPECT_TRUE(waitActive(window));
    return *window;
  }
  [[nodiscard]] ReportWindow* behind(int command) const {
    return qobject_cast<ReportWindow*>(launcher_.SlotOf(command));
  }
  static void enter(ReportWindow& table, std::int64_t row) {
    table.activateWindow();
    ASSERT_TRUE(waitActive(&table));
    table.Grid().setFocus();
    ASSERT_TRUE(table.Grid().SetCurrent(row, 0));
    QTest::keyClick(&table.Grid(), Qt::Key_Return);
  }
  static void doubleClick(ReportWindow& table, std::int64_t row) {
    ASSERT_TRUE(table.Grid().SetCurrent(row, 1));
    QTest::mouseDClick(table.Grid().viewport(), Qt::LeftButton, {}, table.Grid().CellRect(row, 1).center());
  }
  static void pressDetail(ReportWindow& table) {
    QTest::mouseClick(table.ToolBar().widgetForAction(table.ActionOf(static_cast<int>(WindowCommand::detail))),
                      Qt::LeftButton);
  }
  static void filter(ReportWindow& table, const char* text) {
    auto& field = control<QLineEdit>(table, "filterText");
    if (!field.isVisible()) QTest::keyClick(&table.Grid(), Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    field.clear();
    enterText(field, QString::fromUtf8(text));
    QTest::keyClick(&field, Qt::Key_Return);
  }
  static std::string told(const ReportWindow& table, const char* label) {
    return fromQt(control<QLabel>(table, QString::fromLatin1(label)).text());
  }
  // All there is of a year, of one account.
  static Request ofYear(const char* account) {
    Request request;
    request.set(ParameterKey::account, account);
    request.set(ParameterKey::from, "1");
    request.set(ParameterKey::to, "12");
    request.set(ParameterKey::unposted, "1");
    return request;
  }

  // Rows of members; where these have rows of accounts below them, they are the headings.
  static std::vector<std::int64_t> membersOf(const ComputedReport& report) {
    const auto headings = rowsOf(report, RowKind::heading);
    return headings.empty() ? rowsOf(report, RowKind::line) : headings;
  }
  // The table with most rows that lead to lines.
  static std::optional<Question> fullest(Question question, Reader& reader) {
    std::optional<Question> best;
    std::size_t most = 0;
    const auto take = [&] {
      const auto outcome = reader.ask(question);
      const auto* shown = std::get_if<ComputedReport>(&outcome);
      const auto rows = shown == nullptr ? std::vector<std::int64_t>{} : membersOf(*shown);
      if (rows.size() <= most) return;
      const auto answer = question.report->detail(*shown->resolved, *shown, rows.back());
      const auto* target = std::get_if<DetailTarget>(&answer);
      if (target == nullptr) return;
      const auto led = reader.ask({findReport(target->command), target->conditions});
      const auto* ledger = std::get_if<ComputedReport>(&led);
      if (ledger == nullptr || rowsOf(*ledger, RowKind::line).empty()) return;
      most = rows.size();
      best = question;
    };
    const auto variants = [&](ParameterKey key, const char* select, const std::function<void()>& each) {
      if (question.request.text(key).empty()) return each();
      const auto found = reader.db().QRYGetData(select);
      for (int row = 0; row < found.rows; ++row) {
        question.request.set(key, found.at(row, 0));
        if (found.columns > 1) question.request.set(ParameterKey::person, found.at(row, 1));
        each();
      }
    };
    const bool ofPerson = !question.request.text(ParameterKey::person).empty();
    const char* depts = ofPerson ? "SELECT DISTINCT d.sDeptName, p.sName FROM RegSub s, Dept d, Person p WHERE "
                                   "d.lDeptId = s.lDeptId AND p.lId = s.lPersonId ORDER BY 1, 2 LIMIT 5"
                                 : "SELECT sDeptName FROM Dept ORDER BY sDeptId";
    variants(ParameterKey::dept, depts, [&] {
      variants(ParameterKey::account, "SELECT sCode FROM Code WHERE sAssBook <> '' ORDER BY sCode", take);
    });
    return best;
  }

  // A row of the table leads to the first line of its member, in sight, and the table stays.
  void leads(ReportWindow& table, std::int64_t row) {
    const ComputedReport& shown = table.Shown()->report;
    const auto answer = table.Definition().detail(*shown.resolved, shown, row);
    if (!std::holds_alternative<DetailTarget>(answer)) return;  // a row without department
    enter(table, row);
    ASSERT_TRUE(messages_.all.empty()) << messages_.takeLast();
    ReportWindow* ledger = behind(std::get<DetailTarget>(answer).command);
    ASSERT_NE(ledger, nullptr);
    const auto current = ledger->Grid().Current().row;
    const auto& report = ledger->Shown()->report;
    const Id asked = shown.resolved->account.lId;
    std::int64_t first = 0;
    while (first < report.grid.GetRows() &&
           !(report.subjects.line(first) && isOf(report.subjects.of(first), shown.subjects.of(row), asked))) {
      ++first;
    }
    if (first < report.grid.GetRows()) {
      EXPECT_EQ(current, first);
      ++linesReached_;
    } else {
      EXPECT_TRUE(isOf(report.subjects.of(current), shown.subjects.of(row), asked) || current <= 0);
    }
    EXPECT_TRUE(report.grid.GetRows() == 0 || ledger->Grid().VisiblePart(ledger->Grid().Current()).isValid());
    EXPECT_EQ(ledger->focusWidget(), &ledger->Grid());
    EXPECT_TRUE(waitActive(ledger));
    EXPECT_TRUE(table.isVisible());
    EXPECT_EQ(table.Grid().Current().row, row);
    for (const auto key : {ParameterKey::unposted, ParameterKey::format, ParameterKey::projectFrom}) {
      EXPECT_EQ(ledger->Shown()->request.text(key), table.Shown()->request.text(key));
    }
  }

  ReportLauncher launcher_;
  static inline const ReportDefinition* told_ = nullptr;
  int linesReached_ = 0;
};

TEST_F(DrillTest, EveryTableLeadsToTheFirstLineOfItsRow) {
  Reader reader(g_lpszQnZwDBName);
  int tables = 0;
  for (const auto& found : everyReport(reader)) {
    if (found.report->detail == nullptr) continue;
    SCOPED_TRACE(found.report->command);
    const auto question = fullest(found, reader);
    if (!question) continue;  // its rows lead elsewhere
    ++tables;
    linesReached_ = 0;
    ReportWindow& table = open(found.report->command, question->request);
    const auto rows = membersOf(table.Shown()->report);
    for (const auto row : {rows.front(), rows[rows.size() / 2], rows.back()}) leads(table, row);
    EXPECT_GT(linesReached_, 0);
    EXPECT_EQ(launcher_.Windows().size(), 2) << "one ledger for all of them";
    launcher_.CloseAll();
    deleteClosed();
  }
  EXPECT_GT(tables, 10);
}

TEST_F(DrillTest, TheLedgerThatIsOpenIsTakenWhoeverOpenedItAndMadeAnewOnceClosed) {
  ReportWindow& table = open(10183, ofYear("122101"));
  const auto rows = rowsOf(table.Shown()->report, RowKind::line);
  Request january = ofYear("122101");
  january.set(ParameterKey::to, "1");
  january.clear(ParameterKey::unposted);
  const QPointer<ReportWindow> ledger = &open(10184, january);
  GridView& view = ledger->Grid();
  // What was looked for and folded there does not hide the member's line.
  QTest::keyClick(&view, Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  enterText(control<QLineEdit>(*ledger, "filterText"), "没有这样的摘要");
  QTest::keyClick(&control<QLineEdit>(*ledger, "filterText"), Qt::Key_Return);
  EXPECT_EQ(view.Rows().Count(), 0);
  view.SetOutline(2);

  leads(table, rows.back());
  EXPECT_EQ(behind(10184), ledger);
  EXPECT_EQ(ledger->Shown()->report.period, "月份: 2025.01 - 2025.12");
  EXPECT_EQ(control<QLineEdit>(*ledger, "filterText").text(), "");
  EXPECT_EQ(linesReached_, 1);
  EXPECT_EQ(launcher_.Windows().size(), 2);

  ledger->close();
  deleteClosed();
  ASSERT_TRUE(ledger.isNull());
  leads(table, rows.front());
  EXPECT_EQ(linesReached_, 2);
  table.close();
  deleteClosed();
  EXPECT_TRUE(behind(10184)->isVisible()) << "it outlives the table";
}

TEST_F(DrillTest, ALedgerThatIsStoppedKeepsWhatItShowsAndTheTableStays) {
  const CountedReport slow;
  told_ = &slow.definition;
  const auto [dept, person] = Person();
  Request request = ofYear("122101");
  request.set(ParameterKey::dept, dept);
  request.set(ParameterKey::person, person);
  ReportWindow& table = open(10189, request);
  const auto months = rowsOf(table.Shown()->report, RowKind::line);
  ASSERT_GT(months.size(), 1U);
  leads(table, months[0]);
  ReportWindow& ledger = *behind(10190);
  const auto before = ReportLedger::json(ledger.Shown()->report);
  ASSERT_TRUE(ledger.Grid().SetCurrent(ledger.Grid().RowCount() - 1, 3));
  const GridCell current = ledger.Grid().Current();

  CountedReport::before = untilStopped;
  QTimer::singleShot(400, [&] { QTest::keyClick(&ledger, Qt::Key_Escape); });
  enter(table, months[1]);
  EXPECT_EQ(ReportLedger::json(ledger.Shown()->report), before);
  EXPECT_EQ(ledger.Grid().Current(), current);
  EXPECT_TRUE(table.isVisible());
  CountedReport::before = {};
  ledger.Recompute();
  EXPECT_EQ(ledger.Grid().Current().row, -1) << "the drill-down is over";

  // The window goes while it is computed: the table does not.
  CountedReport::before = untilStopped;
  QTimer::singleShot(400, &ledger, &QWidget::close);
  enter(table, months[1]);
  QCoreApplication::processEvents();
  deleteClosed();
  EXPECT_EQ(behind(10190), nullptr);
  CountedReport::before = {};
  leads(table, months[1]);
  EXPECT_EQ(linesReached_, 2);
  EXPECT_TRUE(messages_.all.empty());
}

TEST_F(DrillTest, TotalsSubtotalsAndHiddenRowsAreNoMembers) {
  ReportWindow& table = open(10200, ofYear("1122"));
  GridView& view = table.Grid();
  const auto subtotals = rowsOf(table.Shown()->report, RowKind::subtotal);
  const auto members = rowsOf(table.Shown()->report, RowKind::line);
  ASSERT_GT(subtotals.size(), 1U);
  const auto total = view.RowCount() - 1;
  const auto refuses = [&](const char* what) {
    EXPECT_EQ(messages_.takeLast(), "请先选择一条记录") << what;
    EXPECT_EQ(launcher_.Windows().size(), 1) << what;
  };
  enter(table, total);
  refuses("Enter on the total");
  doubleClick(table, total);
  refuses("a double click on the total");
  doubleClick(table, subtotals.front());
  refuses("a double click on a subtotal");
  view.SetCurrent(subtotals.back(), 0);
  pressDetail(table);
  refuses("the button on a subtotal");
  // Folded away: its subtotal is current in its place.
  view.SetCurrent(members.front(), 0);
  QTest::keyClick(&view, Qt::Key_Minus);
  QTest::keyClick(&view, Qt::Key_D, Qt::ControlModifier);
  refuses("a member that is folded away");
  QTest::keyClick(&view, Qt::Key_Plus);
  // Filtered away, with all others.
  view.SetCurrent(members.front(), 0);
  filter(table, "没有这样的名称");
  EXPECT_EQ(view.Rows().Count(), 0);
  pressDetail(table);
  refuses("a filter that keeps nothing");
  filter(table, std::string(table.Shown()->report.grid.TextAt(members.back(), 1)).c_str());
  leads(table, members.back());
  EXPECT_EQ(linesReached_, 1);
}

TEST_F(DrillTest, ARowWithoutDepartmentAMonthOrARecordLeadsNowhere) {
  ReportWindow& depts = open(10199, ofYear("1122"));
  ASSERT_EQ(depts.Shown()->report.grid.TextAt(0, 0), "");
  enter(depts, 0);
  EXPECT_EQ(messages_.takeLast(), "部门不能不空!");

  const auto [dept, person] = Person();
  Request request = ofYear("122101");
  request.set(ParameterKey::dept, dept);
  request.set(ParameterKey::person, person);
  ReportWindow& months = open(10189, request);
  const auto& report = months.Shown()->report;
  QTest::keyClick(&months.Grid(), Qt::Key_Down);
  for (const auto row : {rowsOf(report, RowKind::opening).front(), rowsOf(report, RowKind::yearTotal).front()}) {
    enter(months, row);
    EXPECT_EQ(messages_.takeLast(), "请选择要查询的月份。");
    doubleClick(months, row);
    EXPECT_EQ(messages_.takeLast(), "请选择要查询的月份。");
  }

  // Stopped before it had any rows.
  static ReportDefinition slow = *findReport(10183);
  slow.compute = [](const ReportDefinition&, Session& session, const Conditions&, ComputedReport&) {
    untilStopped(session);
  };
  told_ = &slow;
  QTimer::singleShot(400, &launcher_, [this] {
    for (const auto* window : launcher_.Windows()) {
      if (window->Key() == slow.command) QTest::keyClick(const_cast<ProcessWindow*>(window), Qt::Key_Escape);
    }
  });
  ReportWindow& stopped = open(slow.command, ofYear("122101"));
  pressDetail(stopped);
  EXPECT_EQ(messages_.takeLast(), "没有记录，不能查明细!");
  EXPECT_EQ(launcher_.Windows().size(), 3);
}

TEST_F(DrillTest, ConditionsChangedInTheWindowAreInTheTableAndInWhatItLeadsTo) {
  const auto choose = [](ReportWindow& window, const char* id, const char* text) {
    auto& combo = control<CUsefulCombox>(window, id);
    combo.setFocus(Qt::TabFocusReason);
    combo.lineEdit()->selectAll();
    enterText(combo, QString::fromUtf8(text));
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
  };
  ReportWindow& table = open(10200, ofYear("1122"));
  const auto& shown = table.Shown()->report;
  EXPECT_EQ(control<CUsefulCombox>(table, "2212").CurrentText(), "全部");
  const auto all = shown.grid.GetRows();
  const std::string unit(shown.grid.TextAt(0, 0));
  choose(table, "2212", unit.c_str());
  EXPECT_LT(shown.grid.GetRows(), all);
  EXPECT_EQ(shown.conditions.front(), "单位: " + unit);
  choose(table, "2212", "全部");
  EXPECT_EQ(shown.grid.GetRows(), all) << "and back to all of them";
  choose(table, "2206", "112206");
  EXPECT_EQ(shown.subtitle, "\n科  目: 112206 成套项目款");
  leads(table, membersOf(shown).back());
  EXPECT_NE(behind(10207)->Shown()->report.subtitle.find("112206"), std::string::npos);
  EXPECT_EQ(linesReached_, 1);
}

TEST_F(DrillTest, AProjectsOwnRowLeadsToItsLedger) {
  Request request;
  request.set(ParameterKey::from, "1");
  request.set(ParameterKey::to, "12");
  ReportWindow& table = open(10216, request);
  const auto projects = rowsOf(table.Shown()->report, RowKind::heading);
  ASSERT_GT(projects.size(), 3U);
  const auto name = std::string(table.Shown()->report.grid.TextAt(projects[2], 0));
  leads(table, projects[2]);
  EXPECT_EQ(behind(10220)->Shown()->request.text(ParameterKey::project), name);
  enter(table, projects[2] + 1);
  EXPECT_EQ(messages_.takeLast(), "请选择项目记录!");
  enter(table, table.Grid().RowCount() - 1);
  EXPECT_EQ(messages_.takeLast(), "请先选择一条记录");
  // Without the rows of its accounts one stands on the project.
  ASSERT_TRUE(table.Grid().SetCurrent(projects[2] + 1, 1));
  QTest::keyClick(&table.Grid(), Qt::Key_G, Qt::ControlModifier);
  EXPECT_EQ(table.Grid().Current(), (GridCell{2, 1}));
  EXPECT_EQ(table.Shown()->report.grid.TextAt(2, 0), name);
  leads(table, 2);

  request.clear(ParameterKey::from);
  request.clear(ParameterKey::to);
  request.set(ParameterKey::account, "6001");
  request.set(ParameterKey::project, name);
  const ReportWindow& months = open(10217, request);
  auto conditions = *months.Shown()->report.resolved;
  conditions.project = {};
  const auto refused = months.Definition().detail(conditions, months.Shown()->report, 1);
  EXPECT_EQ(std::get<Refusal>(refused).text, "请选择产品名称!");
}

TEST_F(DrillTest, RowsOfTablesAreCalledSo) {
  ReportWindow& table = open(10183, ofYear("1221"));
  GridView& view = table.Grid();
  const auto members = rowsOf(table.Shown()->report, RowKind::line).size();
  view.setFocus();
  view.SelectAll();
  const auto selected = "已选 " + std::to_string(members) + " 行：借方合计 ";
  EXPECT_TRUE(QTest::qWaitFor([&] { return told(table, "selection").starts_with(selected); }))
      << told(table, "selection");
  EXPECT_EQ(told(table, "selection").find("平均"), std::string::npos);
  view.SetCurrent(view.RowCount() - 1, 0);
  EXPECT_TRUE(QTest::qWaitFor([&] { return told(table, "selection").empty(); })) << "a total is no row of its own";
  filter(table, "李明");
  EXPECT_EQ(told(table, "filterNote"), "显示 1 行，隐藏 " + std::to_string(members - 1) + " 行。合计为全部各行");
  EXPECT_FALSE(control<QCheckBox>(table, "filterUnposted").isVisible()) << "no row is unposted";
}

}  // namespace
}  // namespace tz::test
