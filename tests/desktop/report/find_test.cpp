// Find in every table that has it, by clicks and keys: its dialog leads to the row of the member, names that no row has
// are answered in the table's own words, and what folds or filters rows does not hide what was found.
#include <QLineEdit>
#include <map>
#include <set>

#include "core/data/create_ledger.h"
#include "core/sample/sample_company.h"
#include "desktop/gridview/grid_view.h"
#include "desktop/picking/useful_combox.h"
#include "desktop/report/open_report.h"
#include "support/every_report.h"

namespace tz::test {
namespace {

constexpr int findCommand = static_cast<int>(WindowCommand::find);

// What the dialog of each table is, and what is said of a name that no row has.
struct Expected {
  int dialog;
  std::string notFound;
};
const std::map<int, Expected> tables = {
    {10183, {917, "没找到与该个人有关的记录！"}}, {10185, {932, "没找到与该个人有关的记录！"}},
    {10187, {932, "没有该科目的记录！"}},         {10196, {932, "没有符合条件的记录!"}},
    {10197, {932, "没有符合条件的记录!"}},        {10198, {950, "没有符合条件的记录!"}},
    {10199, {948, "没有符合条件的记录!"}},        {10200, {131, "没有符合条件的记录!"}},
    {10215, {281, "没找到与该产品有关的记录！"}}, {10216, {953, "没找到有关的记录！"}},
    {10218, {1928, "没找到有关的记录！"}},        {10226, {907, "没有该部门的记录！"}},
    {10227, {908, "没有该科目的记录！"}},
};

class FindTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder_ = std::make_unique<TempFolder>();
    createLedger(address(), [](Connection& connection) { fillSample(connection, {}); });
  }
  static void TearDownTestSuite() { folder_.reset(); }
  FindTest() : reader_(address()) {
    g_pDB = &reader_.db();
    g_lpszQnZwDBName = address();
    g_tmLogonTime = defaultLogonDate(reader_.db());
  }
  ~FindTest() override { g_pDB = nullptr; }

  static std::string address() { return folder_->file("sample.db"); }
  // The window of a table over everything that its conditions can take in.
  [[nodiscard]] std::unique_ptr<OpenReport> open(int command, const std::map<ParameterKey, std::string>& more = {}) {
    for (const auto& question : everyReport(reader_)) {
      if (question.report->command != command) continue;
      Request request = question.request;
      for (const auto& [key, value] : more) request.set(key, value);
      return std::make_unique<OpenReport>(command, request);
    }
    return nullptr;
  }
  // Asks for these texts, one for each field, and confirms.
  static void find(const OpenReport& report, const FindRule& rule, const std::vector<std::string>& texts) {
    inModal([&](QWidget& dialog) {
      EXPECT_EQ(dialog.objectName(), QString::number(rule.dialog.id));
      expectNamed(dialog);
      for (std::size_t field = 0; field < texts.size(); ++field) {
        const ControlSpec& asked = rule.dialog.controls[field];
        auto& control = test::control<QWidget>(dialog, QString::number(asked.id));
        EXPECT_TRUE(field > 0 || dialog.focusWidget() == &control);
        auto* combo = qobject_cast<CUsefulCombox*>(&control);
        auto* line = combo == nullptr ? qobject_cast<QLineEdit*>(&control) : combo->lineEdit();
        control.setFocus(Qt::TabFocusReason);
        line->selectAll();
        enterText(*line, toQt(texts[field]));
        QWidget* popup = QApplication::activePopupWidget();
        if (popup != nullptr) QTest::keyClick(popup, Qt::Key_Tab);
      }
      QTest::keyClick(&dialog, Qt::Key_Return, Qt::ControlModifier);
    });
    report.window().activateWindow();
    ASSERT_TRUE(waitActive(&report.window()));
    QTest::keyClick(&report.window().Grid(), Qt::Key_F, Qt::ControlModifier);
  }
  [[nodiscard]] static const FindRule& ruleOf(const OpenReport& report) {
    return report.window().Definition().find(*report.window().Shown()->report.resolved);
  }
  [[nodiscard]] static std::vector<std::string> textsOf(const OpenReport& report, std::int64_t row) {
    std::vector<std::string> texts;
    for (const int column : ruleOf(report).columns) {
      texts.emplace_back(report.window().Shown()->report.grid.TextAt(row, column));
    }
    return texts;
  }

  static inline std::unique_ptr<TempFolder> folder_;
  Reader reader_;
  RecordedMessages messages_;
};

TEST_F(FindTest, LeadsToTheRowOfAMemberInEveryTableThatHasIt) {
  std::set<int> withFind;
  for (const auto& question : everyReport(reader_)) {
    const ReportDefinition& report = *question.report;
    SCOPED_TRACE(report.command);
    const bool inToolbar = std::ranges::count(report.toolbar, WindowCommand::find) != 0;
    // A feature goes to rows in its own way.
    EXPECT_EQ(inToolbar && report.detail != nullptr && report.feature.empty(), report.find != nullptr);
    if (report.find == nullptr) continue;
    withFind.insert(report.command);
    const OpenReport opened(report.command, question.request);
    ASSERT_NE(opened.window().Shown(), nullptr) << messages_.takeLast();
    const GridView& view = opened.window().Grid();
    const FindRule& rule = ruleOf(opened);
    EXPECT_EQ(rule.dialog.id, tables.at(report.command).dialog);
    EXPECT_TRUE(opened.enabled(WindowCommand::find));

    const auto rows = opened.rows();
    ASSERT_GT(rows, 0);
    const auto texts = textsOf(opened, std::max<std::int64_t>(rows - 2, 0));  // above the total
    find(opened, rule, texts);
    EXPECT_EQ(messages_.takeLast(), "");
    EXPECT_EQ(textsOf(opened, view.Current().row), texts);
    EXPECT_EQ(view.Current().column, 0);
    for (std::int64_t row = 0; row < view.Current().row; ++row) EXPECT_NE(textsOf(opened, row), texts);
    EXPECT_EQ(opened.window().focusWidget(), &view);

    const auto before = view.Current().row;
    find(opened, rule, std::vector<std::string>(texts.size(), "没有的"));
    EXPECT_EQ(messages_.takeLast(), tables.at(report.command).notFound);
    EXPECT_EQ(view.Current().row, before);
  }
  for (const auto& [command, expected] : tables) EXPECT_TRUE(withFind.contains(command)) << command;
}

TEST_F(FindTest, FollowsTheGroupingAndTakesOneFieldOfTwo) {
  for (const char* grouping : {"unit", "project"}) {
    const auto opened = open(10200, {{ParameterKey::account, "1122"}, {ParameterKey::unitGrouping, grouping}});
    const FindRule& rule = ruleOf(*opened);
    const auto texts = textsOf(*opened, opened->rows() - 3);
    find(*opened, rule, {texts[0], ""});
    EXPECT_EQ(messages_.takeLast(), "");
    EXPECT_EQ(textsOf(*opened, opened->window().Grid().Current().row)[0], texts[0]) << grouping;
    find(*opened, rule, {"", ""});
    EXPECT_EQ(messages_.takeLast(), "没有符合条件的记录!") << "nobody was asked for";
  }
  EXPECT_EQ(ruleOf(*open(10218, {{ParameterKey::deptGrouping, "project"}})).dialog.id, 2018);
}

TEST_F(FindTest, OpensFoldedBlocksAndNamesAFilter) {
  const auto opened = open(10200, {{ParameterKey::account, "1122"}});
  GridView& view = opened->window().Grid();
  const auto row = opened->rows() - 3;
  const auto texts = textsOf(*opened, row);
  view.SetOutline(static_cast<int>(view.OutlineNames().size()) - 1);
  ASSERT_FALSE(view.Rows().Shows(row));
  find(*opened, ruleOf(*opened), texts);
  EXPECT_EQ(textsOf(*opened, view.Current().row), texts);
  EXPECT_TRUE(view.Rows().Shows(view.Current().row));

  view.SetKept(RowBits(opened->rows()));
  find(*opened, ruleOf(*opened), texts);
  EXPECT_NE(opened->label("status").find("但筛选把它隐藏着"), std::string::npos) << opened->label("status");
  view.SetKept(std::nullopt);

  // Of a table without rows, and of a cancelled dialog, nothing is asked or moved.
  const auto before = view.Current();
  inModal([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
  opened->window().ActionOf(findCommand)->trigger();
  EXPECT_EQ(view.Current().row, before.row);
  Request nobody;
  nobody.set(ParameterKey::dept, "没有的");
  const OpenReport empty(10227, nobody);
  ASSERT_EQ(empty.window().Shown(), nullptr);
  messages_.all.clear();
  empty.window().ActionOf(findCommand)->trigger();
  EXPECT_EQ(messages_.takeLast(), "没有可查找的记录");
}

}  // namespace
}  // namespace tz::test
