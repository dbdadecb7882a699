// Another operator renames members while a report is asked for: what stands above the table is of the same moment as
// the rows.
#include "core/ledger/detail_report.h"
#include "desktop/picking/useful_combox.h"
#include "desktop/report/report_ledger.h"

namespace tz::test {
namespace {

class OneMomentInWindow : public ::testing::Test {
 protected:
  OneMomentInWindow() {
    change = [this] { ledger_.ledger().keeper().execute("UPDATE Code SET sName = '后来的名字'"); };
    definition_.formats = [](const Conditions& conditions) {
      if (change) std::exchange(change, {})();
      return findReport(10190)->formats(conditions);
    };
  }
  ~OneMomentInWindow() override { delete window_; }

  void open() {
    window_ = new ReportWindow(definition_, nullptr);
    ASSERT_TRUE(window_->CreateTheDialog(nullptr));
    window_->SetConditions(ReportLedger::zhangSan());
    window_->RefreshDisplay();
  }
  [[nodiscard]] std::string account() const { return fromQt(control<CUsefulCombox>(*window_, "2206").currentText()); }
  [[nodiscard]] bool subtitleSays(const char* text) const {
    return window_->Shown()->report.subtitle.find(text) != std::string::npos;
  }

  static inline std::function<void()> change;
  ReportLedger ledger_;
  RecordedMessages messages_;
  // With what its family needs: the computation goes by it.
  DetailReport definition_ = static_cast<const DetailReport&>(*findReport(10190));
  QPointer<ReportWindow> window_;
};

TEST_F(OneMomentInWindow, WhatChangesMeanwhileChangesNeitherHeadingNorTitle) {
  open();
  EXPECT_TRUE(subtitleSays("122101 职工借款"));
  EXPECT_EQ(account(), "122101 职工借款");
  window_->SetConditions(ReportLedger::zhangSan());
  window_->RefreshDisplay();
  EXPECT_TRUE(subtitleSays("122101 后来的名字"));
  EXPECT_EQ(account(), "122101 后来的名字") << "a new query reads the lists anew";
}

// Between the dialog, or the window's opening, and the report.
TEST_F(OneMomentInWindow, TheListsAreAsNewAsTheReport) {
  std::exchange(change, {});
  window_ = new ReportWindow(definition_, nullptr);
  ASSERT_TRUE(window_->CreateTheDialog(nullptr));
  ledger_.ledger().keeper().execute("UPDATE Code SET sName = '早先的名字'");
  window_->SetConditions(ReportLedger::zhangSan());
  window_->RefreshDisplay();
  EXPECT_TRUE(subtitleSays("122101 早先的名字"));
  EXPECT_EQ(account(), "122101 早先的名字");
  EXPECT_EQ(messages_.takeLast(), "");
}

}  // namespace
}  // namespace tz::test
