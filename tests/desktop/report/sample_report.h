// A report of the sample company in its real window, over the whole year.
#pragma once

#include <QLabel>

#include "core/data/create_ledger.h"
#include "core/sample/sample_company.h"
#include "desktop/gridview/grid_view.h"
#include "desktop/report/report_ledger.h"
#include "support/test_ledger.h"

namespace tz::test {

class SampleReport : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder_ = std::make_unique<TempFolder>();
    createLedger(Address(), [](Connection& connection) { fillSample(connection, {}); });
  }
  static void TearDownTestSuite() { folder_.reset(); }
  SampleReport() {
    db_.Open(Address());
    g_pDB = &db_;
    g_lpszQnZwDBName = Address();
    g_tmLogonTime = {2025, 12, 31};
  }
  ~SampleReport() override {
    delete window_;
    g_pDB = nullptr;
  }

  void Open(int command, const std::vector<std::pair<ParameterKey, std::string>>& conditions) {
    delete window_;
    Request request;
    request.set(ParameterKey::from, "1");
    request.set(ParameterKey::to, "12");
    for (const auto& [key, text] : conditions) request.set(key, text);
    window_ = new ReportWindow(*findReport(command), nullptr);
    window_->SetConditions(request);
    ASSERT_TRUE(window_->CreateTheDialog(nullptr));
    window_->RefreshDisplay();
    ASSERT_TRUE(waitActive(window_));
    ASSERT_NE(window_->Shown(), nullptr) << messages_.takeLast();
    ASSERT_GT(View().RowCount(), 0);
  }
  ReportWindow& Window() { return *window_; }
  GridView& View() { return window_->Grid(); }
  const ComputedReport& Report() { return window_->Shown()->report; }
  void Press(Qt::Key key, Qt::KeyboardModifiers with = {}) { QTest::keyClick(&View(), key, with); }
  std::string Told(const char* label) { return fromQt(control<QLabel>(*window_, QString::fromLatin1(label)).text()); }
  // Department and name of somebody who has borrowed.
  std::pair<std::string, std::string> Person() {
    const auto found = db_.Current().query(
        Sql("SELECT d.sDeptName, p.sName FROM RegSub s, Dept d, Person p, Code c WHERE c.lId = s.lCodeId AND "
            "c.sCode = '122101' AND d.lDeptId = s.lDeptId AND p.lId = s.lPersonId AND p.lDeptId = d.lDeptId "
            "GROUP BY 1, 2 ORDER BY count(*) DESC, 1, 2"));
    EXPECT_TRUE(found->next());
    return {std::string(found->text(0)), std::string(found->text(1))};
  }

  RecordedMessages messages_;

 private:
  static std::string Address() { return folder_->file("sample.db"); }

  static inline std::unique_ptr<TempFolder> folder_;
  CQnCwDB db_{Access::report};
  QPointer<ReportWindow> window_;
};

}  // namespace tz::test
