// Each kind of field on a dialog of its own making, worked with keys and mouse.
#include "desktop/query/query_fields.h"

#include <QCalendarWidget>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <array>

#include "core/ledger/detail_controls.h"
#include "desktop/picking/useful_combox.h"
#include "desktop/query/query_dialog.h"
#include "desktop/support/member_ledger.h"
#include "desktop/support/window_script.h"

namespace tz::test {
namespace {

using Kind = ControlSpec::Kind;
using Key = ParameterKey;

using controls::account;
using controls::analysis;
using controls::clerk;
using controls::project;
using controls::unit;
using controls::unitClass;
using controls::unposted;
constexpr ControlSpec dept = controls::deptOrAll;
constexpr ControlSpec projectClass = controls::classOfAccount;
constexpr ControlSpec range{.kind = Kind::projectRange,
                            .key = Key::projectFrom,
                            .id = 2214,
                            .companion = 2215,
                            .caption = "显示项目",
                            .unfoldedCaption = "不显示项目"};
constexpr ControlSpec lists{
    .kind = Kind::accountLists, .key = Key::account, .id = 2301, .companion = 2302, .caption = "科目"};
constexpr ControlSpec foldedLists{.kind = Kind::accountLists,
                                  .key = Key::account,
                                  .id = 2301,
                                  .companion = 2302,
                                  .caption = "显示科目",
                                  .unfoldedCaption = "不显示科目"};
constexpr ControlSpec amounts{
    .kind = Kind::amountRange, .key = Key::minimum, .id = 2113, .companion = 2114, .caption = "余额"};
constexpr ControlSpec side{.kind = Kind::side, .key = Key::side, .id = 2405, .caption = "方向"};
constexpr ControlSpec cutoff{
    .kind = Kind::date, .key = Key::cutoff, .id = 2101, .companion = 2001, .caption = "截止日期"};

constexpr Message noClass{"没有项目大类"};
constexpr std::string_view unitAccounts = "sAssBook = 'B' AND bEnd <> 0 ORDER BY sCode";
constexpr std::string_view projectAccounts = "sAssBook = 'D' ORDER BY sCode";

class QueryFields : public ::testing::Test {
 protected:
  // Opens a dialog of these controls with `script` inside; whether it was
  // confirmed.
  bool run(std::vector<ControlSpec> controls, std::string_view accounts, std::function<void(QWidget&)> script) {
    controls_ = std::move(controls);
    spec_ = {.id = 9999,
             .title = "条件",
             .accountWhere = accounts,
             .controls = controls_,
             .checks = checks,
             .choices = choices,
             .messageCaption = "岚川财务软件"};
    CTzQueryDialog dialog(spec_, session, nullptr);
    dialog.SetRequest(request);
    inModal(std::move(script));
    const bool confirmed = dialog.DoModal();
    request = dialog.GetRequest();
    return confirmed;
  }
  static QString shown(const QWidget& window, const QString& id) {
    return control<CUsefulCombox>(window, id).currentText();
  }
  static void press(const QWidget& window, const QString& id, Qt::Key key) {
    QTest::keyClick(&control<QWidget>(window, id), key);
  }
  static QStringList texts(const QWidget& window, const QString& list) {
    const auto& items = control<QListWidget>(window, list);
    QStringList all;
    for (int i = 0; i < items.count(); ++i) all << items.item(i)->text();
    return all;
  }
  static void clickItem(const QWidget& window, const QString& list, int row, bool twice = false) {
    auto& items = control<QListWidget>(window, list);
    const QPoint place = items.visualItemRect(items.item(row)).center();
    QTest::mouseClick(items.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    if (twice) QTest::mouseDClick(items.viewport(), Qt::LeftButton, Qt::NoModifier, place);
  }

  MemberLedger ledger;
  RecordedMessages messages;
  Session session = ledger.session();
  Request request;
  std::vector<Check> checks;
  std::vector<ListChoice> choices;

 private:
  std::vector<ControlSpec> controls_;
  DialogSpec spec_;
};

TEST_F(QueryFields, ListsOfferAllAndOther) {
  EXPECT_TRUE(run({dept, unitClass}, "", [](QWidget& window) {
    EXPECT_EQ(shown(window, "2207"), "全部");
    EXPECT_EQ(shown(window, "2210"), "客户");
    press(window, "2207", Qt::Key_Down);
    press(window, "2210", Qt::Key_Down);
    press(window, "2210", Qt::Key_Down);
    click(window, "1");
  }));
  EXPECT_EQ(request.text(Key::dept), "销售部");
  EXPECT_EQ(request.text(Key::unitClass), "其它");
}

TEST_F(QueryFields, UnitIsPickedFromItsWindow) {
  EXPECT_TRUE(run({unit}, "", [](QWidget& window) {
    inModal([](QWidget& reference) {
      QTest::keyClicks(&control<QLineEdit>(reference, "search"), "jyjx");
      QTest::keyClick(&control<QLineEdit>(reference, "search"), Qt::Key_Return);
    });
    click(window, "2028");
    click(window, "1");
  }));
  EXPECT_EQ(request.text(Key::unit), "江源机械");
}

TEST_F(QueryFields, ClerksAreThoseOfTheAccountAndTheChosenOneStays) {
  EXPECT_TRUE(run({account, clerk}, unitAccounts, [](QWidget& window) {
    auto& clerks = control<CUsefulCombox>(window, "2213");
    EXPECT_EQ(clerks.count(), 3);  // two and "其它"
    EXPECT_EQ(clerks.currentIndex(), 0);
    clerks.setFocus(Qt::TabFocusReason);
    QTest::keyClicks(&clerks, "wq");
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
    EXPECT_EQ(clerks.currentText(), "王强");
    press(window, "2206", Qt::Key_Down);
    EXPECT_EQ(clerks.count(), 2);
    EXPECT_EQ(clerks.currentText(), "王强");
    click(window, "1");
  }));
  EXPECT_EQ(request.text(Key::account), "112202");
  EXPECT_EQ(request.text(Key::clerk), "王强");
}

// What a list no longer offers is told when it is confirmed, and the dialog
// stays.
TEST_F(QueryFields, ClerkThatIsGoneIsNotReplaced) {
  choices = {&tz::choices::clerk};
  request.set(Key::account, "112202");
  request.set(Key::clerk, "李娜");
  EXPECT_FALSE(run({account, clerk}, unitAccounts, [this](QWidget& window) {
    EXPECT_EQ(shown(window, "2213"), "李娜");
    click(window, "1");
    ASSERT_EQ(messages.all.size(), 1U);
    EXPECT_EQ(messages.all[0].caption, "岚川财务软件");
    EXPECT_EQ(messages.takeLast(), "没有“李娜”，请从列表中选择。");
    EXPECT_EQ(window.focusWidget()->objectName(), "2213");
    EXPECT_TRUE(window.isVisible());
    click(window, "2");
  }));
}

TEST_F(QueryFields, ItemIsPickedFromTheChosenClass) {
  EXPECT_TRUE(run({project, unposted}, "", [](QWidget& window) {
    EXPECT_EQ(window.focusWidget()->objectName(), "2211");
    EXPECT_EQ(shown(window, "2211"), "01 工程");
    press(window, "2211", Qt::Key_Down);
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(window.focusWidget()->objectName(), "2117");
    inModal([](QWidget& reference) { QTest::keyClick(&control<QLineEdit>(reference, "search"), Qt::Key_Return); });
    QTest::keyClick(window.focusWidget(), Qt::Key_F2);
    EXPECT_EQ(control<QLineEdit>(window, "2117").text(), "新机型");
    click(window, "1");
  }));
  EXPECT_EQ(request.text(Key::projectClass), "RD");
  EXPECT_EQ(request.text(Key::project), "新机型");
}

// 软件 carries both classes, 厂房 one.
TEST_F(QueryFields, ClassesAreThoseOfTheAccount) {
  ledger.ledger().fill("ProjCodes", "lId | sItemId | lCodeId\n 3 | 01 | 5");
  EXPECT_TRUE(run({account, projectClass}, projectAccounts, [](QWidget& window) {
    EXPECT_EQ(control<CUsefulCombox>(window, "2211").count(), 1);
    EXPECT_EQ(shown(window, "2211"), "01 工程");
    press(window, "2206", Qt::Key_Down);
    EXPECT_EQ(control<CUsefulCombox>(window, "2211").count(), 2);
    EXPECT_EQ(shown(window, "2211"), "01 工程") << "what is chosen stays where it is offered";
    press(window, "2211", Qt::Key_Down);
    EXPECT_EQ(shown(window, "2211"), "RD 研发");
    press(window, "2206", Qt::Key_Up);
    EXPECT_EQ(shown(window, "2211"), "01 工程");
    click(window, "1");
  }));
  EXPECT_EQ(request.text(Key::projectClass), "01");
}

// An end that the next account does not have would else leave the range open without a word.
TEST_F(QueryFields, AnEndThatIsNoLongerOfferedIsRefusedByItsName) {
  choices = {&tz::choices::projectRange};
  checks = {{.passes = &tz::checks::classOfAccount, .message = noClass, .about = Key::projectClass}};
  EXPECT_FALSE(run({account, range}, projectAccounts, [this](QWidget& window) {
    click(window, "unfold");
    press(window, "2214", Qt::Key_Down);
    EXPECT_EQ(shown(window, "2214"), "001 一号厂房");
    press(window, "2206", Qt::Key_Down);
    EXPECT_EQ(shown(window, "2214"), "001");
    click(window, "1");
    EXPECT_EQ(messages.takeLast(), "没有“001”，请从列表中选择。");
    EXPECT_EQ(window.focusWidget()->objectName(), "2214");
    press(window, "2206", Qt::Key_Up);
    EXPECT_EQ(shown(window, "2214"), "001 一号厂房") << "with its account it is there again";
    click(window, "2");
  }));
}

TEST_F(QueryFields, RangeUnfoldsAndOffersTheProjectsOfTheAccount) {
  EXPECT_TRUE(run({account, range, unposted}, projectAccounts, [](QWidget& window) {
    const auto& from = control<CUsefulCombox>(window, "2214");
    auto& button = control<QAbstractButton>(window, "unfold");
    EXPECT_FALSE(from.isVisible());
    press(window, "2206", Qt::Key_Return);
    EXPECT_EQ(window.focusWidget()->objectName(),
              "2601");  // past what is folded up
    const int folded = window.height();
    click(window, "unfold");
    EXPECT_TRUE(from.isVisible());
    EXPECT_EQ(button.text(), "不显示项目");
    EXPECT_EQ(window.focusWidget()->objectName(), "2214");
    EXPECT_GT(window.height(), folded);
    EXPECT_EQ(from.count(), 3);
    EXPECT_EQ(from.itemText(1), "001 一号厂房");
    press(window, "2206", Qt::Key_Down);
    EXPECT_EQ(from.itemText(1), "R1 新机型");
    inModal([](QWidget& reference) { QTest::keyClick(&control<QLineEdit>(reference, "search"), Qt::Key_Return); });
    control<QWidget>(window, "2206").setFocus();
    press(window, "2206", Qt::Key_F2);
    EXPECT_TRUE(from.isVisible()) << "what was unfolded stays so";
    press(window, "2206", Qt::Key_Up);
    press(window, "2214", Qt::Key_Down);
    click(window, "1");
  }));
  EXPECT_EQ(request.text(Key::projectFrom), "001");
  EXPECT_EQ(request.text(Key::projectTo), "");

  EXPECT_TRUE(run({account, range, unposted}, projectAccounts, [](QWidget& window) {
    EXPECT_EQ(shown(window, "2214"), "001 一号厂房");
    EXPECT_TRUE(control<QWidget>(window, "2214").isVisible());
    click(window, "unfold");
    EXPECT_FALSE(control<QWidget>(window, "2214").isVisible());
    EXPECT_EQ(control<QAbstractButton>(window, "unfold").text(), "显示项目");
    click(window, "1");
  }));
  EXPECT_EQ(request.text(Key::projectFrom), "");  // nobody sees it any more
}

TEST_F(QueryFields, AccountsMoveBetweenTheLists) {
  EXPECT_TRUE(run({lists}, "sAssBook = 'B' ORDER BY sCode", [](QWidget& window) {
    EXPECT_EQ(control<QAbstractButton>(window, "add").text(), "->");
    const QWidget& add = control<QWidget>(window, "add");
    EXPECT_FALSE(add.geometry().intersects(control<QWidget>(window, "2301").geometry()));
    EXPECT_FALSE(add.geometry().intersects(control<QWidget>(window, "2302").geometry()));
    clickItem(window, "2301", 2, true);
    EXPECT_EQ(texts(window, "2302"), QStringList{"112202 运费"});
    press(window, "2301", Qt::Key_Home);
    click(window, "add");
    EXPECT_EQ(texts(window, "2302"), QStringList({"1122 应收账款", "112202 运费"}));
    EXPECT_EQ(texts(window, "2301"), QStringList{"112201 货款"});
    click(window, "addAll");
    EXPECT_EQ(texts(window, "2302").size(), 3);
    clickItem(window, "2302", 1);
    click(window, "remove");
    EXPECT_EQ(texts(window, "2301"), QStringList{"112201 货款"});
    click(window, "1");
  }));
  EXPECT_EQ(request.list(Key::account), (std::vector<std::string>{"1122", "112202"}));

  EXPECT_TRUE(run({lists}, "sAssBook = 'B' ORDER BY sCode", [](QWidget& window) {
    EXPECT_EQ(texts(window, "2302"), QStringList({"1122 应收账款", "112202 运费"}));
    click(window, "removeAll");
    click(window, "remove");  // nothing is left to move
    click(window, "1");
  }));
  EXPECT_TRUE(request.list(Key::account).empty());
}

TEST_F(QueryFields, SeveralSelectedAccountsMoveAtOnceAndFoldAway) {
  EXPECT_TRUE(run({foldedLists}, "sAssBook = 'B' ORDER BY sCode", [](QWidget& window) {
    EXPECT_FALSE(control<QWidget>(window, "2301").isVisible());
    click(window, "unfold");
    EXPECT_EQ(control<QAbstractButton>(window, "unfold").text(), "不显示科目");
    EXPECT_EQ(control<QAbstractButton>(window, "add").text(), ">");
    auto& offered = control<QListWidget>(window, "2301");
    QTest::keyClick(&offered, Qt::Key_Home);
    QTest::keyClick(&offered, Qt::Key_Down, Qt::ShiftModifier);
    click(window, "add");
    click(window, "1");
  }));
  EXPECT_EQ(request.list(Key::account), (std::vector<std::string>{"1122", "112201"}));
}

TEST_F(QueryFields, AmountsAreNumbersInOrder) {
  checks = {{.passes = &tz::checks::rangeInOrder, .message = messages::amountRangeInvalid, .about = Key::maximum}};
  EXPECT_TRUE(run({amounts, side}, "", [this](QWidget& window) {
    auto& lower = control<QLineEdit>(window, "2113");
    QTest::keyClicks(&lower, "1x0,0.5e");
    EXPECT_EQ(lower.text(), "100.5");
    click(window, "1");
    EXPECT_EQ(messages.takeLast(), "金额范围不合法!");
    EXPECT_EQ(window.focusWidget()->objectName(), "2114");
    QTest::keyClicks(window.focusWidget(), "-");
    click(window, "1");
    EXPECT_EQ(messages.takeLast(), "“-”不是数字");
    EXPECT_EQ(window.focusWidget()->objectName(), "2114");
    QTest::keyClick(window.focusWidget(), Qt::Key_Backspace);
    QTest::keyClicks(window.focusWidget(), "2000");
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(window.focusWidget()->objectName(), "2405");
    QTest::keyClick(window.focusWidget(), Qt::Key_Right);
    QTest::keyClick(window.focusWidget(), Qt::Key_Right);
    EXPECT_EQ(control<QRadioButton>(window, "2407").text(), "贷方余额");
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
  }));
  EXPECT_EQ(request.text(Key::minimum), "100.5");
  EXPECT_EQ(request.text(Key::maximum), "2000");
  EXPECT_EQ(request.text(Key::side), "credit");
}

TEST_F(QueryFields, AnalysisOpensOnBalancesAndOnWhatWasChosen) {
  for (const bool again : {false, true}) {
    EXPECT_TRUE(run({analysis}, "", [again](QWidget& window) {
      EXPECT_EQ(control<QRadioButton>(window, "2409").isChecked(), again);
      click(window, "2409");
      click(window, "1");
    }));
    EXPECT_EQ(request.text(Key::analysis), "amount");
  }
}

TEST_F(QueryFields, DateIsTypedOrPickedAndHasToBeOne) {
  EXPECT_TRUE(run({cutoff}, "", [this](QWidget& window) {
    auto& edit = control<QLineEdit>(window, "2101");
    EXPECT_EQ(edit.text(), "2006-03-15");
    edit.selectAll();
    QTest::keyClicks(&edit, "2006-02-30");
    click(window, "1");
    EXPECT_EQ(messages.takeLast(), "“2006-02-30”不是 YYYY-MM-DD 形式的日期");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.focusWidget(), &edit);
    click(window, "2001");
    auto& calendar = control<QCalendarWidget>(window, "calendar");
    EXPECT_EQ(calendar.selectedDate(), QDate(2006, 3, 15));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(edit.text(), "2006-03-22");
    click(window, "1");
  }));
  EXPECT_EQ(request.text(Key::cutoff), "2006-03-22");
}

// Whatever kind a control is of: erased, a condition that may be left out is left out, another one is asked for.
TEST_F(QueryFields, AnErasedListIsLeftOutOrAskedFor) {
  struct Case {
    ControlSpec control;
    std::string_view accounts;
    const char* wanted;  // null: it may be left out
  };
  const std::vector<Case> cases = {{dept, "", nullptr},
                                   {range, projectAccounts, nullptr},
                                   {controls::deptList, "", "请从列表中选择部门。"},
                                   {unitClass, "", "请从列表中选择分类。"},
                                   {clerk, unitAccounts, "请从列表中选择业务员。"},
                                   {projectClass, projectAccounts, "请从列表中选择项目大类。"},
                                   {project, "", "请从列表中选择项目大类。"}};
  for (const Case& one : cases) {
    SCOPED_TRACE(std::string(one.control.caption));
    request = {};
    std::vector<ControlSpec> controls{one.control};
    if (!one.accounts.empty()) controls.insert(controls.begin(), account);
    const bool confirmed = run(controls, one.accounts, [&](QWidget& window) {
      if (one.control.kind == Kind::projectRange) click(window, "unfold");
      const int id = one.control.kind == Kind::projectReference ? 2211 : one.control.id;
      auto& combo = control<CUsefulCombox>(window, QString::number(id));
      combo.setFocus(Qt::TabFocusReason);
      if (one.control.kind == Kind::projectRange) QTest::keyClick(&combo, Qt::Key_Down);
      combo.lineEdit()->selectAll();
      QTest::keyClick(&combo, Qt::Key_Delete);
      if (QWidget* popup = QApplication::activePopupWidget()) popup->hide();
      click(window, "1");
      if (one.wanted == nullptr) return;
      EXPECT_EQ(messages.takeLast(), one.wanted);
      EXPECT_EQ(window.focusWidget(), &combo);
      click(window, "2");
    });
    EXPECT_EQ(confirmed, one.wanted == nullptr);
    EXPECT_TRUE(messages.all.empty());
    if (one.wanted == nullptr) {
      EXPECT_EQ(request.text(one.control.key), "");
    }
  }
}

// Everything can be told by a screen reader.
TEST_F(QueryFields, EveryControlHasAName) {
  run({account, dept, unit, clerk, project, range, amounts, side, analysis, cutoff}, unitAccounts, [](QWidget& window) {
    click(window, "unfold");
    expectNamed(window);
    click(window, "2");
  });
}

}  // namespace
}  // namespace tz::test
