// Every message of the condition dialogs, provoked in the dialog itself, which stays as it was.
#include <map>

#include "core/catalogue/catalogue.h"
#include "desktop/picking/useful_combox.h"
#include "desktop/query/query_dialog.h"
#include "desktop/support/window_script.h"
#include "support/refusal_cases.h"

namespace tz::test {
namespace {

// These caption their messages with the suite's name.
constexpr std::array captioned = {10203, 10204, 10223};

// Whether the message comes before anything is asked: for want of accounts or classes.
bool comesAtOpening(const RefusalCase& one) { return !one.change.empty() && !one.onConfirming; }

// The ledger with one of its changes, open for the windows.
class ChangedLedger {
 public:
  explicit ChangedLedger(std::string_view change) : ledger_(Engine::sqlite) {
    fillRefusalLedger(ledger_, change);
    db_.Open(ledger_.address());
  }
  Session session() { return {.db = db_, .ledger = ledger_.address(), .logon = {2006, 3, 15}}; }

 private:
  TestLedger ledger_;
  CQnCwDB db_;
};

void eraseAccount(QWidget& window) {
  auto& combo = *window.findChild<CUsefulCombox*>(QStringLiteral("2206"));
  combo.setFocus(Qt::TabFocusReason);
  combo.lineEdit()->selectAll();
  QTest::keyClick(&combo, Qt::Key_Delete);
  QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
  EXPECT_EQ(combo.lineEdit()->text(), "");
}

void provoke(const RefusalCase& one, Session session) {
  RecordedMessages messages;
  CTzQueryDialog dialog(findReport(one.command)->dialog, session, nullptr);
  const Request request = one.request();
  dialog.SetRequest(request);
  if (!comesAtOpening(one)) {
    inModal([&](QWidget& window) {
      EXPECT_TRUE(messages.all.empty());
      if (one.accountErased) eraseAccount(window);
      click(window, "1");
      EXPECT_TRUE(window.isVisible());
      for (const auto& [key, value] : one.values) EXPECT_EQ(dialog.GetRequest().text(key), request.text(key));
      click(window, "2");
    });
  }
  EXPECT_FALSE(dialog.DoModal());
  ASSERT_EQ(messages.all.size(), 1U);
  EXPECT_EQ(messages.all[0].text, one.text);
  EXPECT_EQ(messages.all[0].icon, MessageIcon::information);
  const bool suites = std::ranges::find(captioned, one.command) != captioned.end();
  EXPECT_EQ(messages.all[0].caption, suites ? "岚川财务软件" : "辅助核算");
}

TEST(DialogRefusals, AreSaidByTheDialogs) {
  std::map<std::string_view, std::unique_ptr<ChangedLedger>> ledgers;
  for (const RefusalCase& one : refusalCases()) {
    SCOPED_TRACE(std::to_string(one.command) + " " + std::string(one.text));
    auto& ledger = ledgers[one.change];
    if (ledger == nullptr) ledger = std::make_unique<ChangedLedger>(one.change);
    provoke(one, ledger->session());
  }
}

}  // namespace
}  // namespace tz::test
