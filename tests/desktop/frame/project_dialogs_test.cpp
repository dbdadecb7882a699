// The dialogs of the project ledgers: the department as a name, the button over the range of projects.
#include <QAbstractButton>
#include <QLineEdit>

#include "core/catalogue/catalogue.h"
#include "desktop/picking/useful_combox.h"
#include "desktop/query/query_dialog.h"
#include "desktop/support/window_script.h"
#include "support/refusal_cases.h"

namespace tz::test {
namespace {

class ProjectDialogs : public ::testing::Test {
 protected:
  ProjectDialogs() {
    fillRefusalLedger(ledger_);
    db_.Open(ledger_.address());
  }
  // Opens the dialog of a report with `script` inside; what was asked for when it was confirmed.
  std::optional<Request> ask(int command, const Request& request, std::function<void(QWidget&)> script) {
    CTzQueryDialog dialog(findReport(command)->dialog, session_, nullptr);
    dialog.SetRequest(request);
    inModal(std::move(script));
    if (!dialog.DoModal()) return std::nullopt;
    return dialog.GetRequest();
  }

  TestLedger ledger_{Engine::sqlite};
  CQnCwDB db_;
  Session session_{.db = db_, .ledger = ledger_.address(), .logon = {2006, 3, 15}};
  RecordedMessages messages_;
};

TEST_F(ProjectDialogs, TheDepartmentIsANameWithItsReferenceWindow) {
  for (const int command : {10220, 10223}) {
    SCOPED_TRACE(command);
    Request request;
    request.set(ParameterKey::project, "一号厂房");
    const auto askWith = [&](const QString& typed) {
      return ask(command, request, [&](QWidget& window) {
        auto& dept = control<QLineEdit>(window, "8052");
        EXPECT_EQ(dept.placeholderText(), "全部");
        EXPECT_EQ(window.findChild<QWidget*>("2207"), nullptr);
        if (typed.isEmpty()) {
          click(window, "1");
          return;
        }
        enterText(dept, typed);
        if (typed == QStringLiteral("没有的部")) {
          click(window, "1");
          EXPECT_EQ(messages_.takeLast(), "非法的部门名称.");
          EXPECT_EQ(window.focusWidget(), &dept);
          inModal([](QWidget& reference) {
            QTest::keyClicks(&control<QLineEdit>(reference, "search"), "cgb");
            QTest::keyClick(&control<QLineEdit>(reference, "search"), Qt::Key_Return);
          });
          click(window, "2006");
          EXPECT_EQ(dept.text(), "采购部");
        }
        click(window, "1");
      });
    };
    EXPECT_EQ(askWith("").value().text(ParameterKey::dept), "");
    EXPECT_EQ(askWith("全部").value().text(ParameterKey::dept), "全部");
    EXPECT_EQ(askWith("没有的部").value().member(ParameterKey::dept).id, 2);
    EXPECT_EQ(messages_.takeLast(), "");
  }
}

TEST_F(ProjectDialogs, TheButtonSaysWhatItWillDo) {
  Request request;
  request.set(ParameterKey::account, "500101");
  const auto caption = [](QWidget& window) { return fromQt(control<QAbstractButton>(window, "unfold").text()); };
  for (int opening = 0; opening < 2; ++opening) {
    ask(10222, request, [&](QWidget& window) {
      EXPECT_EQ(caption(window), "项目范围");
      click(window, "unfold");
      EXPECT_EQ(caption(window), "不显示项目");
      EXPECT_TRUE(control<QWidget>(window, "2208").isVisible());
      click(window, "unfold");
      EXPECT_EQ(caption(window), "显示项目");
      EXPECT_FALSE(control<QWidget>(window, "2208").isVisible());
      click(window, "unfold");
      EXPECT_EQ(caption(window), "不显示项目");
      click(window, "2");
    });
  }
  request.set(ParameterKey::projectFrom, "001");
  ask(10222, request, [&](QWidget& window) {
    EXPECT_EQ(caption(window), "不显示项目") << "a range that holds is to be seen";
    click(window, "2");
  });
}

}  // namespace
}  // namespace tz::test
