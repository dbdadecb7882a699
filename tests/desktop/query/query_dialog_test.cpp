#include "desktop/query/query_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <array>
#include <gtest/gtest.h>

#include "core/catalogue/catalogue.h"
#include "desktop/picking/useful_combox.h"
#include "desktop/query/condition_store.h"
#include "desktop/support/person_ledger.h"
#include "desktop/support/window_script.h"

namespace tz::test {
namespace {

class QueryDialog : public ::testing::Test {
 protected:
  // Opens dialog 513 with `script` inside; whether it was confirmed.
  bool run(std::function<void(QWidget&)> script) {
    inModal(std::move(script));
    return dialog.DoModal();
  }
  // What the dialog says when this department and person are confirmed; empty when it closes.
  std::string refusal(const QWidget& window, const QString& dept, const QString& person) {
    control<QLineEdit>(window, "8052").setText(dept);
    control<QLineEdit>(window, "2111").setText(person);
    click(window, "1");
    return messages.takeLast();
  }

  PersonLedger ledger;
  RecordedMessages messages;
  Session session = ledger.session();
  CTzQueryDialog dialog{findReport(10190)->dialog, session, nullptr};
};

Request requestFor(std::string_view account, std::string_view dept, std::string_view person) {
  Request request;
  request.set(ParameterKey::account, account);
  request.set(ParameterKey::dept, dept);
  request.set(ParameterKey::person, person);
  return request;
}

// Types in place of what a combo shows; what its pop-up offers is not taken.
void replaceText(CUsefulCombox& combo, const QString& text) {
  combo.setFocus(Qt::TabFocusReason);
  combo.lineEdit()->selectAll();
  QTest::keyClick(&combo, Qt::Key_Delete);
  enterText(combo, text);
  if (QWidget* popup = QApplication::activePopupWidget()) popup->hide();
}

QString focused(const QWidget& window) {
  return window.focusWidget() == nullptr ? QString() : window.focusWidget()->objectName();
}

TEST_F(QueryDialog, OpensOnFirstAccountAndLogonMonth) {
  EXPECT_TRUE(run([&](QWidget& window) {
    EXPECT_EQ(window.windowTitle(), "个人往来_三栏式明细帐");
    EXPECT_EQ(control<CUsefulCombox>(window, "2206").currentText(), "1221 其他应收款");
    EXPECT_EQ(control<CUsefulCombox>(window, "2206").count(), 4);  // only accounts kept per person
    EXPECT_EQ(control<CUsefulCombox>(window, "2201").currentText(), "2006.03");
    EXPECT_EQ(control<CUsefulCombox>(window, "2202").currentText(), "2006.03");
    EXPECT_FALSE(control<QCheckBox>(window, "2601").isChecked());
    EXPECT_EQ(focused(window), "2206");
    EXPECT_EQ(refusal(window, "销售部", "张三"), "");
  }));
  EXPECT_EQ(dialog.GetRequest().text(ParameterKey::account), "1221");
  EXPECT_EQ(dialog.GetRequest().month(ParameterKey::from), 3);
  EXPECT_EQ(dialog.GetRequest().month(ParameterKey::to), 3);
}

TEST_F(QueryDialog, ARefusalLeadsToItsFieldAndLeavesItsText) {
  run([&](QWidget& window) {
    EXPECT_EQ(refusal(window, "没有此部门", ""), "非法的部门");
    EXPECT_EQ(focused(window), "8052");
    EXPECT_EQ(control<QLineEdit>(window, "8052").text(), "没有此部门");
    EXPECT_EQ(refusal(window, "销售部", " "), "姓名不能为空，请重新输入！");
    EXPECT_EQ(focused(window), "2111");
    click(window, "2");
  });
}

// The purchasing department has nothing but an unposted voucher of one of its two persons.
TEST_F(QueryDialog, UnpostedLinesCountOnlyWhenTicked) {
  EXPECT_TRUE(run([&](QWidget& window) {
    EXPECT_EQ(refusal(window, "采购部", "赵六"), "没有查到该部门的个人往来记录");
    QTest::keyClick(&control<QCheckBox>(window, "2601"), Qt::Key_Space);
    EXPECT_EQ(refusal(window, "采购部", "张三"), "没有查到该部门此人的发生额");
    EXPECT_EQ(refusal(window, "采购部", "赵六"), "");
  }));
  EXPECT_TRUE(dialog.GetRequest().flag(ParameterKey::unposted));
}

TEST_F(QueryDialog, EnterGoesFromFieldToFieldAndConfirmsOnTheLast) {
  EXPECT_TRUE(run([&](QWidget& window) {
    const auto enter = [&] { QTest::keyClick(window.focusWidget(), Qt::Key_Return); };
    QTest::keyClicks(&control<CUsefulCombox>(window, "2206"), "zgjk");
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
    EXPECT_EQ(focused(window), "8052");
    enterText(*window.focusWidget(), "销售部");
    enter();
    EXPECT_EQ(focused(window), "2111");
    enterText(*window.focusWidget(), "张三");
    enter();
    EXPECT_EQ(focused(window), "2201");
    QTest::keyClicks(window.focusWidget(), "1");
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Enter);
    EXPECT_EQ(focused(window), "2202");
    enter();
    EXPECT_EQ(focused(window), "2601");
    EXPECT_TRUE(window.isVisible());
    enter();
  }));
  EXPECT_EQ(messages.takeLast(), "");
  EXPECT_EQ(dialog.GetRequest().text(ParameterKey::account), "122101");
  EXPECT_EQ(dialog.GetRequest().month(ParameterKey::from), 1);
  EXPECT_EQ(dialog.GetRequest().month(ParameterKey::to), 3);
}

TEST_F(QueryDialog, ViewButtonsFillDepartmentAndPerson) {
  EXPECT_TRUE(run([&](QWidget& window) {
    inModal([](QWidget& reference) {
      QTest::keyClicks(&control<QLineEdit>(reference, "search"), "cgb");
      QTest::keyClick(&control<QLineEdit>(reference, "search"), Qt::Key_Return);
    });
    click(window, "2006");
    EXPECT_EQ(control<QLineEdit>(window, "8052").text(), "采购部");
    inModal([](QWidget& reference) {
      QTest::keyClicks(&control<QLineEdit>(reference, "search"), "P01");
      QTest::keyClick(&control<QLineEdit>(reference, "search"), Qt::Key_Return);
    });
    click(window, "2007");
    EXPECT_EQ(control<QLineEdit>(window, "2111").text(), "张三");
    EXPECT_EQ(control<QLineEdit>(window, "8052").text(), "销售部");  // the person's, not the one before
    inModal([](QWidget& reference) { QTest::keyClick(&reference, Qt::Key_Escape); });
    EXPECT_EQ(focused(window), "2201") << "what was picked leads on";
    control<QLineEdit>(window, "2111").setFocus();
    QTest::keyClick(&control<QLineEdit>(window, "2111"), Qt::Key_F2);
    EXPECT_EQ(control<QLineEdit>(window, "2111").text(), "张三");
    EXPECT_EQ(focused(window), "2111");
    click(window, "1");
  }));
}

TEST_F(QueryDialog, OpensAgainOnItsLastConditions) {
  auto request = requestFor("122102", "销售部", "张三");
  request.set(ParameterKey::from, "2");
  request.set(ParameterKey::to, "11");
  request.set(ParameterKey::unposted, "1");
  dialog.SetRequest(request);
  for (int time = 0; time < 2; ++time) {
    EXPECT_TRUE(run([](QWidget& window) {
      EXPECT_EQ(control<CUsefulCombox>(window, "2206").currentText(), "122102 备用金");
      EXPECT_EQ(control<CUsefulCombox>(window, "2202").currentText(), "2006.11");
      click(window, "1");
    }));
    EXPECT_EQ(messages.takeLast(), "");
    EXPECT_EQ(dialog.GetRequest().values(), request.values());
  }
}

// A format chosen for one account may not exist for another.
TEST_F(QueryDialog, AmountFormatStaysWithItsAccount) {
  auto request = requestFor("122101", "销售部", "张三");
  request.set(ParameterKey::format, "金额式");
  dialog.SetRequest(request);
  EXPECT_TRUE(run([](QWidget& window) { click(window, "1"); }));
  EXPECT_EQ(dialog.GetRequest().text(ParameterKey::format), "金额式");
  EXPECT_TRUE(run([](QWidget& window) {
    QTest::keyClick(&control<CUsefulCombox>(window, "2206"), Qt::Key_Down);
    click(window, "1");
  }));
  EXPECT_EQ(dialog.GetRequest().text(ParameterKey::account), "122102");
  EXPECT_FALSE(dialog.GetRequest().values().contains(ParameterKey::format));
}

// The code and "code name" are one account: a choice in the report's window keeps its format as well.
TEST_F(QueryDialog, AccountIsTheSameHoweverItIsWritten) {
  auto request = requestFor("122101 职工借款", "销售部", "张三");
  request.set(ParameterKey::format, "金额式");
  dialog.SetRequest(request);
  EXPECT_TRUE(run([](QWidget& window) { click(window, "1"); }));
  EXPECT_EQ(dialog.GetRequest().text(ParameterKey::account), "122101");
  EXPECT_EQ(dialog.GetRequest().text(ParameterKey::format), "金额式");
}

// What was typed and stands for nothing is refused, by the button and by Enter, and stays to be mended.
TEST_F(QueryDialog, TextThatStandsForNothingIsRefused) {
  struct Case {
    const char* field;
    const char* text;
    const char* words;
  };
  constexpr std::array cases = {
      Case{"2206", "9999", "没有个人核算科目,不能查询个人三栏明细帐。"},
      Case{"2206", "", "没有个人核算科目,不能查询个人三栏明细帐。"},
      Case{"2206", "12210", "没有个人核算科目,不能查询个人三栏明细帐。"},  // may be two
      Case{"2201", "13", "没有“13”，请从列表中选择。"},
      Case{"2202", "十三月", "没有“十三月”，请从列表中选择。"},
      Case{"2201", "", "请从列表中选择起始月份。"},
      Case{"2202", "", "请从列表中选择终止月份。"},
  };
  for (const bool byEnter : {false, true}) {
    for (const Case& one : cases) {
      SCOPED_TRACE(std::string(one.field) + " " + one.text + (byEnter ? " Enter" : " OK"));
      dialog.SetRequest(requestFor("122101", "销售部", "张三"));
      EXPECT_FALSE(run([&](QWidget& window) {
        auto& combo = control<CUsefulCombox>(window, one.field);
        replaceText(combo, toQt(one.text));
        if (byEnter) {
          for (int fields = 0; fields < 9 && messages.all.empty(); ++fields) {
            QTest::keyClick(window.focusWidget(), Qt::Key_Return);
          }
        } else {
          click(window, "1");
        }
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(messages.takeLast(), one.words);
        EXPECT_EQ(focused(window), one.field);
        EXPECT_EQ(fromQt(combo.lineEdit()->text()), one.text);
        click(window, "2");
      }));
    }
  }
}

// A button's key leaves the focus in the field.
TEST_F(QueryDialog, TextIsRefusedAlsoWhileTheFocusStaysInIt) {
  dialog.SetRequest(requestFor("122101", "销售部", "张三"));
  EXPECT_FALSE(run([&](QWidget& window) {
    auto& ok = control<QAbstractButton>(window, "1");
    ok.setShortcut(QKeySequence(QStringLiteral("Alt+O")));
    auto& combo = control<CUsefulCombox>(window, "2201");
    replaceText(combo, "13");
    QTest::keyClick(&combo, Qt::Key_O, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !messages.all.empty(); }));
    EXPECT_EQ(messages.takeLast(), "没有“13”，请从列表中选择。");
    EXPECT_TRUE(window.isVisible());
    click(window, "2");
  }));
}

TEST_F(QueryDialog, TextThatCanMeanOneEntryIsThatEntry) {
  dialog.SetRequest(requestFor("1221", "销售部", "张三"));
  EXPECT_TRUE(run([&](QWidget& window) {
    replaceText(control<CUsefulCombox>(window, "2206"), "职工借款");
    replaceText(control<CUsefulCombox>(window, "2201"), "2");
    click(window, "1");
  }));
  EXPECT_EQ(dialog.GetRequest().text(ParameterKey::account), "122101");
  EXPECT_EQ(dialog.GetRequest().month(ParameterKey::from), 2);
}

TEST_F(QueryDialog, EscTakesBackWhatWasTypedBeforeItLeaves) {
  dialog.SetRequest(requestFor("122101", "销售部", "张三"));
  EXPECT_FALSE(run([&](QWidget& window) {
    auto& combo = control<CUsefulCombox>(window, "2206");
    replaceText(combo, "9999");
    QTest::keyClick(&combo, Qt::Key_Escape);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(combo.lineEdit()->text(), "122101 职工借款");
    QTest::keyClick(&combo, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
  }));
}

// An account that is gone must not turn into another one unnoticed.
TEST_F(QueryDialog, AccountNoLongerOfferedIsRefusedByItsCode) {
  dialog.SetRequest(requestFor("1002", "销售部", "张三"));
  run([&](QWidget& window) {
    EXPECT_EQ(control<CUsefulCombox>(window, "2206").currentText(), "1002");
    click(window, "1");
    EXPECT_EQ(messages.takeLast(), "没有个人核算科目,不能查询个人三栏明细帐。");
    EXPECT_EQ(focused(window), "2206");
    click(window, "2");
  });
}

TEST_F(QueryDialog, HostileNamesAreOnlyNames) {
  const auto before = ledger.ledger().rows("SELECT COUNT(*) FROM Plan");
  run([&](QWidget& window) {
    EXPECT_EQ(refusal(window, "O'Brien'; DROP TABLE Plan --", "张三"), "没有查到该部门的个人往来记录");
    EXPECT_EQ(refusal(window, "x' OR '1'='1", "张三"), "非法的部门");
    EXPECT_EQ(refusal(window, "销售部", "%' --"), "非法的姓名");
    click(window, "2");
  });
  EXPECT_EQ(ledger.ledger().rows("SELECT COUNT(*) FROM Plan"), before);
}

TEST_F(QueryDialog, LedgerThatIsNotOpenIsToldAtOnce) {
  Session closed{.db = ledger.db, .ledger = "nowhere", .logon = {2006, 3, 15}};
  CTzQueryDialog other(findReport(10190)->dialog, closed, nullptr);
  EXPECT_FALSE(other.DoModal());
  EXPECT_EQ(messages.takeLast(), "没有个人核算科目,不能查询个人三栏明细帐。\n\n数据库没有打开!");
}

TEST_F(QueryDialog, FailureOfTheDatabaseIsNoRefusal) {
  run([&](QWidget& window) {
    ledger.ledger().keeper().execute("DROP TABLE AssAcc");
    control<QLineEdit>(window, "8052").setText("销售部");
    click(window, "1");
    ASSERT_EQ(messages.all.size(), 1U);
    EXPECT_EQ(messages.all[0].icon, MessageIcon::warning);
    EXPECT_NE(messages.all[0].text, "没有查到该部门的个人往来记录");
    EXPECT_TRUE(window.isVisible());
    click(window, "2");
  });
}

class SavedConditions : public QueryDialog {
 protected:
  SavedConditions() { dialog.OfferSaved(store, 10190); }
  TempFolder folder;
  FileConditionStore store{folder.path() / "conditions.json"};
};

TEST_F(SavedConditions, AreKeptOfferedAndGivenUp) {
  EXPECT_TRUE(run([&](QWidget& window) {
    EXPECT_EQ(focused(window), "2206");
    control<QLineEdit>(window, "8052").setText("销售部");
    control<QLineEdit>(window, "2111").setText("张三");
    auto& names = control<QComboBox>(window, "savedConditions");
    const auto told = [&] { return fromQt(control<QLabel>(window, "conditionsTold").text()); };
    // A click selects what stands there: what is typed takes its place.
    names.lineEdit()->setText("上次条件");
    QTest::mouseClick(names.lineEdit(), Qt::LeftButton);
    QApplication::processEvents();
    EXPECT_EQ(names.lineEdit()->selectedText(), "上次条件");
    QTest::keyClick(&names, Qt::Key_S, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return told() == "“上次条件”不能用作名称，请输入另一个名称"; }));
    EXPECT_TRUE(store.Names(10190).empty());
    enterText(names, "张三本月");
    QTest::keyClick(&names, Qt::Key_S, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !store.Names(10190).empty(); }));
    EXPECT_EQ(names.currentText(), "张三本月");
    EXPECT_EQ(control<QLabel>(window, "conditionsTold").text(), "已保存为“张三本月”");
    click(window, "1");
  }));
  EXPECT_EQ(store.Names(10190), std::vector<std::string>{"张三本月"});
  EXPECT_EQ(store.Load(10190, "张三本月").values(), dialog.GetRequest().values());
  EXPECT_TRUE(store.Names(10191).empty());

  dialog.SetRequest({});
  EXPECT_FALSE(run([&](QWidget& window) {
    auto& names = control<QComboBox>(window, "savedConditions");
    EXPECT_EQ(names.currentText(), "");
    QTest::keyClick(&names, Qt::Key_Down);
    EXPECT_EQ(control<QLineEdit>(window, "2111").text(), "张三");
    messages.answer = false;
    click(window, "removeConditions");
    EXPECT_TRUE(messages.all.back().defaultsToNo);
    EXPECT_EQ(store.Names(10190).size(), 1U);
    messages.answer = true;
    QTest::keyClick(&names, Qt::Key_D, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return names.count() == 0; }));
    EXPECT_EQ(control<QLabel>(window, "conditionsTold").text(), "已删除“张三本月”");
    EXPECT_EQ(names.count(), 0);
    click(window, "2");
  }));
  EXPECT_TRUE(store.Names(10190).empty());
}

TEST_F(SavedConditions, AreReplacedOnlyWhenAsked) {
  store.Save(10190, "甲", requestFor("122101", "销售部", "张三"));
  run([&](QWidget& window) {
    enterText(control<QComboBox>(window, "savedConditions"), "甲");
    control<QLineEdit>(window, "8052").setText("采购部");
    messages.answer = false;
    click(window, "saveConditions");
    EXPECT_TRUE(messages.all.back().asks());
    EXPECT_EQ(store.Load(10190, "甲").text(ParameterKey::dept), "销售部");
    messages.answer = true;
    click(window, "saveConditions");
    EXPECT_EQ(store.Load(10190, "甲").text(ParameterKey::dept), "采购部");
    click(window, "2");
  });
}

TEST_F(SavedConditions, BrokenFileIsToldAndTheDialogWorksOn) {
  QFile file(QString::fromStdString(folder.file("conditions.json")));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("{ half a fi");
  file.close();
  EXPECT_TRUE(run([&](QWidget& window) {
    EXPECT_NE(messages.takeLast().find("不能读取保存的条件"), std::string::npos);
    EXPECT_EQ(refusal(window, "销售部", "张三"), "");
  }));
}

}  // namespace
}  // namespace tz::test
