// Every report of the catalogue as a person goes through it: from the navigator into its dialog, its window with the
// rows that the core computes, both kinds of files, and out again. By clicks and keys.
#include <QLineEdit>
#include <QToolBar>
#include <QToolButton>
#include <fstream>
#include <iterator>
#include <map>
#include <set>

#include "core/catalogue/catalogue.h"
#include "core/data/create_ledger.h"
#include "core/reports/offers.h"
#include "core/sample/sample_company.h"
#include "desktop/frame/globals.h"
#include "desktop/picking/useful_combox.h"
#include "desktop/report/report_ledger.h"
#include "desktop/shell/launch.h"
#include "desktop/shell/navigator.h"
#include "desktop/support/window_script.h"
#include "support/every_report.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

class SampleCompany {
 public:
  SampleCompany() {
    createLedger(address(), [](Connection& connection) { fillSample(connection, {}); });
    reader_ = std::make_unique<Reader>(address());
    g_pDB = &reader_->db();
    g_lpszQnZwDBName = address();
    g_tmLogonTime = defaultLogonDate(reader_->db());
  }
  SampleCompany(const SampleCompany&) = delete;
  SampleCompany& operator=(const SampleCompany&) = delete;
  ~SampleCompany() { g_pDB = nullptr; }
  [[nodiscard]] std::string file(std::string_view name) const { return folder_.file(name); }
  Reader& reader() { return *reader_; }

 private:
  [[nodiscard]] std::string address() const { return folder_.file("sample.db"); }
  TempFolder folder_;
  std::unique_ptr<Reader> reader_;
};

void chooseByKeys(const QWidget& dialog, const QString& id, const std::string& text) {
  auto& combo = control<CUsefulCombox>(dialog, id);
  combo.setFocus(Qt::TabFocusReason);
  QTest::keyClicks(&combo, toQt(text));
  QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
}

// Types one condition; what is not typed stays as the dialog opens.
void answer(const QWidget& dialog, const ControlSpec& asked, const Request& request) {
  const QString id = QString::number(asked.id);
  switch (asked.kind) {
    case ControlSpec::Kind::accountCombo:
      return chooseByKeys(dialog, id, request.text(asked.key));
    case ControlSpec::Kind::deptCombo: {
      auto& combo = control<CUsefulCombox>(dialog, id);
      const auto wanted = request.text(asked.key);
      for (int row = 0; row < combo.count() && !wanted.empty() && combo.CurrentText() != wanted; ++row) {
        QTest::keyClick(&combo, Qt::Key_Down);
      }
      return;
    }
    case ControlSpec::Kind::projectReference:
      chooseByKeys(dialog, "2211", request.text(ParameterKey::projectClass));
      return enterText(control<QLineEdit>(dialog, id), toQt(request.text(ParameterKey::project)));
    case ControlSpec::Kind::deptReference:
    case ControlSpec::Kind::personReference:
    case ControlSpec::Kind::unitReference:
      return enterText(control<QLineEdit>(dialog, id), toQt(request.text(asked.key)));
    case ControlSpec::Kind::months:
      for (int month = 0; month < 12; ++month) {
        QTest::keyClick(&control<QWidget>(dialog, id), Qt::Key_Up);
        QTest::keyClick(&control<QWidget>(dialog, QString::number(asked.companion)), Qt::Key_Down);
      }
      return;
    case ControlSpec::Kind::checkBox:
      return QTest::keyClick(&control<QWidget>(dialog, id), Qt::Key_Space);
    default:
      return;
  }
}

// The same for the first account and department of the report that have something to show.
Question withRows(Question question, Reader& reader) {
  const auto has = [&] {
    const auto outcome = reader.ask(question);
    const auto* report = std::get_if<ComputedReport>(&outcome);
    return report != nullptr && report->grid.GetRows() > 0;
  };
  if (has()) return question;
  const auto found = question.request;
  std::vector<std::string> depts = {found.text(ParameterKey::dept)};
  const auto keys = parametersOf(*question.report);
  if (std::ranges::find(keys, ParameterKey::dept) != keys.end()) {
    for (const auto& dept : reader.db().Dept_GetInfo("1 = 1 ORDER BY lId")) depts.push_back(dept.sDeptName);
  }
  for (const auto& dept : depts) {
    if (!dept.empty()) question.request.set(ParameterKey::dept, dept);
    if (has()) return question;
    if (found.text(ParameterKey::account).empty()) continue;
    for (const auto& account : offered(question.report->dialog, ParameterKey::account, {}, reader.db())) {
      question.request.set(ParameterKey::account, CGetData::GetCode_Separator(account.text));
      if (has()) return question;
    }
  }
  return question;
}

std::string bytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class EveryWindow : public ::testing::Test {
 protected:
  EveryWindow() : launcher_(everybody(), findReport) {
    navigator_.SetRunner({[this](int command) { return toQt(launcher_.Obstacle(command)); },
                          [this](int command) { launcher_.Launch(command); },
                          {}});
    navigator_.show();
  }

  ReportWindow* open(const Question& question) {
    static const std::map<Area, int> areas = {
        {Area::person, 10182}, {Area::department, 10225}, {Area::project, 10214}, {Area::unit, 10195}};
    const ReportDefinition& report = *question.report;
    click(navigator_, QString::number(areas.at(report.area)));
    inModal([&](QWidget& dialog) {
      EXPECT_EQ(dialog.windowTitle(), toQt(report.dialog.title));
      for (const auto& asked : report.dialog.controls) answer(dialog, asked, question.request);
      click(dialog, "1");
    });
    click(navigator_, QString::number(report.command));
    return launcher_.Windows().empty() ? nullptr : qobject_cast<ReportWindow*>(launcher_.Windows().back());
  }

  void exportTo(ReportWindow& window, const std::string& path) {
    auto* exports = window.findChild<QAction*>(QStringLiteral("50020"));
    inModal([&](QWidget& dialog) {
      auto& name = control<QLineEdit>(dialog, "fileNameEdit");
      name.selectAll();
      QTest::keyClicks(&name, toQt(path));
      QTest::keyClick(&name, Qt::Key_Return);
    });
    QTest::mouseClick(window.ToolBar().widgetForAction(exports), Qt::LeftButton);
  }

  SampleCompany company_;
  CQnCwAssistantDlg navigator_{nullptr};
  ReportLauncher launcher_;
  RecordedMessages messages_;
};

TEST_F(EveryWindow, OpensShowsExportsAndCloses) {
  for (const Question& found : everyReport(company_.reader())) {
    const Question question = withRows(found, company_.reader());
    const ReportDefinition& report = *question.report;
    SCOPED_TRACE(report.command);
    ReportWindow* window = open(question);
    ASSERT_NE(window, nullptr) << messages_.takeLast();
    ASSERT_NE(window->Shown(), nullptr) << messages_.takeLast();
    EXPECT_EQ(window->objectName(), QString::number(report.window));
    EXPECT_EQ(window->windowTitle(), toQt(report.windowTitle));
    EXPECT_TRUE(ReportLedger::json(window->Shown()->report) == answerText(company_.reader().ask(question)));
    EXPECT_GT(window->Shown()->report.grid.GetRows(), 0);

    const std::string name = company_.file(std::to_string(report.command));
    exportTo(*window, name + ".csv");
    EXPECT_NE(bytesOf(name + ".csv").find(report.printTitle), std::string::npos);
    exportTo(*window, name);
    EXPECT_EQ(bytesOf(name + ".xlsx").substr(0, 2), "PK");

    window->activateWindow();
    ASSERT_TRUE(waitActive(window));
    QTest::keyClick(window, Qt::Key_W, Qt::ControlModifier);
    EXPECT_TRUE(launcher_.Windows().empty());
    deleteClosed();
  }
  EXPECT_TRUE(messages_.all.empty());
}

// Each report by its own right: who has all the others opens nothing, not even a dialog.
TEST_F(EveryWindow, OpensForWhomHasItsRightAlone) {
  const auto asks = [](const ReportDefinition& report, const std::set<int>& rights) {
    ReportLauncher launcher(Operator{.name = "王", .rights = rights}, findReport);
    bool asked = false;
    QTimer closing;
    QObject::connect(&closing, &QTimer::timeout, [&asked] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr) return;
      asked = true;
      dialog->reject();
    });
    closing.start(1);
    launcher.Launch(report.command);
    return asked;
  };
  std::set<int> rights;
  for (const ReportDefinition* report : catalogue()) rights.insert(report->right);
  for (const ReportDefinition* report : catalogue()) {
    SCOPED_TRACE(report->command);
    std::set<int> others = rights;
    for (int beside = -1; beside <= 1; ++beside) others.insert(report->right + beside);
    others.erase(report->right);
    EXPECT_FALSE(asks(*report, others));
    EXPECT_TRUE(asks(*report, {report->right}));
  }
  EXPECT_TRUE(messages_.all.empty());
}

}  // namespace
}  // namespace tz::test
