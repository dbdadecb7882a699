// A ledger that is gone while its windows are open: what each dialog and each report of the catalogue says when it
// opens, at its OK, at its window's start and at a refresh.
#include <QLabel>
#include <filesystem>
#include <map>
#include <set>

#include "core/catalogue/catalogue.h"
#include "desktop/gridview/grid_view.h"
#include "desktop/query/query_dialog.h"
#include "desktop/report/report_ledger.h"
#include "support/every_report.h"
#include "support/refusal_cases.h"

namespace tz::test {
namespace {

// The department's ledgers, the balance tables and the general ledgers say it in English.
std::string notOpenWords(const ReportDefinition& report) {
  const std::set<int> rightsOfBalances = {3, 10, 16, 77};
  const bool english = report.area == Area::department || rightsOfBalances.contains(report.right);
  return english ? "The Database is not Opened!" : "数据库没有打开!";
}
std::string captionOfDialog(int command) {
  const std::set<int> captioned = {10203, 10204, 10223};
  return captioned.contains(command) ? "岚川财务软件" : "辅助核算";
}

// What the dialog misses first; empty for one that needs nothing to open.
std::string firstMissed(const DialogSpec& dialog) {
  const auto check = std::ranges::find(dialog.checks, true, &Check::atOpening);
  if (check != dialog.checks.end()) return std::string(check->message.text);
  return dialog.accountWhere.empty() ? std::string() : std::string(dialog.noAccount.text);
}

class GoneLedger : public ::testing::Test {
 protected:
  GoneLedger() { open(); }
  ~GoneLedger() override { g_pDB = nullptr; }

  void open() {
    ledger_ = std::make_unique<TestLedger>(Engine::sqlite);
    fillRefusalLedger(*ledger_);
    db_ = std::make_unique<CQnCwDB>(Access::report);
    db_->Open(ledger_->address());
    g_pDB = db_.get();
    g_lpszQnZwDBName = ledger_->address();
    g_tmLogonTime = {2006, 3, 15};
    session_ = std::make_unique<Session>(Session{.db = *db_, .ledger = ledger_->address(), .logon = g_tmLogonTime});
  }
  // The file is deleted; the connection can still read it.
  void removeFile() const { std::filesystem::remove(ledger_->address()); }
  // Nothing can be read any more, as when a server stopped.
  void disconnect() const { db_->Close(ledger_->address()); }
  // Reads of accounts fail.
  void loseAccounts() const { ledger_->keeper().execute("ALTER TABLE Code RENAME TO Elsewhere"); }

  ShownMessage onlyMessage() {
    ShownMessage message;
    EXPECT_EQ(messages_.all.size(), 1U);
    if (!messages_.all.empty()) message = messages_.all.front();
    messages_.all.clear();
    return message;
  }

  std::unique_ptr<TestLedger> ledger_;
  std::unique_ptr<CQnCwDB> db_;
  std::unique_ptr<Session> session_;
  RecordedMessages messages_;
};

TEST_F(GoneLedger, IsSaidWhenADialogOpens) {
  for (const bool deleted : {true, false}) {
    open();
    deleted ? removeFile() : disconnect();
    for (const ReportDefinition* report : catalogue()) {
      SCOPED_TRACE(report->command);
      CTzQueryDialog dialog(report->dialog, *session_, nullptr);
      EXPECT_FALSE(dialog.DoModal());
      const ShownMessage message = onlyMessage();
      const std::string below = notOpenWords(*report);
      const std::string missed = firstMissed(report->dialog);
      EXPECT_EQ(message.text, missed.empty() ? below : missed + "\n\n" + below);
      EXPECT_EQ(message.caption, captionOfDialog(report->command));
    }
  }
}

// Some dialogs have words of their own for a ledger without any account, and others for one that is not offered.
std::string wordsForNoAccount(const DialogSpec& dialog) {
  for (const auto& check : dialog.checks) {
    if (check.atOpening && check.passes == checks::accountsOffered) return std::string(check.message.text);
  }
  return std::string(dialog.noAccount.text);
}

TEST_F(GoneLedger, AFailedReadOfAccountsStandsBelowTheMessageForNone) {
  loseAccounts();
  for (const ReportDefinition* report : catalogue()) {
    if (!asksForAccount(report->dialog)) continue;
    SCOPED_TRACE(report->command);
    CTzQueryDialog dialog(report->dialog, *session_, nullptr);
    EXPECT_FALSE(dialog.DoModal());
    ShownMessage message = onlyMessage();
    EXPECT_TRUE(message.text.starts_with(wordsForNoAccount(report->dialog) + "\n\n帐套不完整。")) << message.text;
    EXPECT_FALSE(message.detail.empty());
    EXPECT_EQ(message.text.find(message.detail), std::string::npos);
    EXPECT_EQ(message.caption, captionOfDialog(report->command));

    auto* window = new ReportWindow(*report, nullptr);
    EXPECT_FALSE(window->CreateTheDialog(nullptr));
    message = onlyMessage();
    EXPECT_TRUE(message.text.starts_with("没有符合条件的科目!\n\n帐套不完整。")) << message.text;
    EXPECT_EQ(message.caption, report->command == 10203 ? "岚川财务软件" : "辅助核算");
    deleteClosed();
  }
}

// Each check names its own condition; the dialog stays open with what was typed.
TEST_F(GoneLedger, IsSaidAtOk) {
  for (const ReportDefinition* report : catalogue()) {
    SCOPED_TRACE(report->command);
    open();
    CTzQueryDialog dialog(report->dialog, *session_, nullptr);
    ShownMessage message;
    inModal([&](QWidget& window) {
      disconnect();
      click(window, "1");
      EXPECT_TRUE(window.isVisible());
      EXPECT_FALSE(messages_.all.empty());
      message = onlyMessage();
      click(window, "2");
    });
    EXPECT_FALSE(dialog.DoModal());
    EXPECT_EQ(message.caption, captionOfDialog(report->command));
    const std::string missed = firstMissed(report->dialog);
    if (!missed.empty()) {
      EXPECT_TRUE(message.text.starts_with(missed + "\n\n与数据库的连接已断开。")) << message.text;
    }
  }
}

TEST_F(GoneLedger, IsSaidAtARefresh) {
  Reader reader(ledger_->address());
  std::map<int, Request> requests;
  for (const Question& question : everyReport(reader)) requests[question.report->command] = question.request;
  for (const ReportDefinition* report : catalogue()) {
    SCOPED_TRACE(report->command);
    for (const bool firstRun : {true, false}) {
      open();
      auto* window = new ReportWindow(*report, nullptr);
      window->SetConditions(requests[report->command]);
      ASSERT_TRUE(window->CreateTheDialog(nullptr));
      if (!firstRun) window->RefreshDisplay();
      messages_.all.clear();
      const bool shown = window->Shown() != nullptr;
      removeFile();
      window->RefreshDisplay();
      const ShownMessage message = onlyMessage();
      EXPECT_EQ(message.text, notOpenWords(*report));
      EXPECT_EQ(message.caption, "辅助核算");
      EXPECT_EQ(window->Shown() != nullptr, shown);
      window->close();
      deleteClosed();
    }
  }
}

}  // namespace
}  // namespace tz::test
