// The fields for names: what is typed is found in the list below, what is picked is that record and leads on to the
// next field, F2 opens the reference window of every list.
#include <QAbstractItemView>
#include <QLineEdit>
#include <QListWidget>
#include <QTableView>

#include "core/catalogue/catalogue.h"
#include "core/ledger/detail_controls.h"
#include "desktop/picking/useful_combox.h"
#include "desktop/query/query_dialog.h"
#include "desktop/support/member_ledger.h"
#include "desktop/support/person_ledger.h"
#include "desktop/support/window_script.h"
#include "desktop/theme/theme.h"
#include "support/namesakes.h"

namespace tz::test {
namespace {

QAbstractItemView* openList() { return qobject_cast<QAbstractItemView*>(QApplication::activePopupWidget()); }

QStringList found() {
  QStringList texts;
  if (openList() == nullptr) return texts;
  const auto& model = *openList()->model();
  for (int row = 0; row < model.rowCount(); ++row) texts << model.index(row, 0).data().toString();
  return texts;
}

QString focusOf(const QWidget& window) {
  return window.focusWidget() == nullptr ? QString() : window.focusWidget()->objectName();
}

QLineEdit& nameField(const QWidget& window, const char* id) {
  return control<QLineEdit>(window, QString::fromLatin1(id));
}

// Types in place of the text.
void typeName(const QWidget& window, const char* id, const QString& text) {
  nameField(window, id).setFocus();
  nameField(window, id).selectAll();
  enterText(nameField(window, id), text);
}

// A key where it would arrive.
void pressKey(const QWidget& window, Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
  QWidget* list = QApplication::activePopupWidget();
  QTest::keyClick(list != nullptr ? list : window.focusWidget(), key, with);
}

class NameFields : public ::testing::Test {
 protected:
  bool run(const DialogSpec& spec, Session session, std::function<void(QWidget&)> script) {
    CTzQueryDialog dialog(spec, session, nullptr);
    dialog.SetRequest(request);
    inModal(std::move(script));
    const bool confirmed = dialog.DoModal();
    request = dialog.GetRequest();
    return confirmed;
  }
  RecordedMessages messages;
  Request request;
};

TEST_F(NameFields, ArePickedFromWhatIsFoundByKeysAndByClicks) {
  PersonLedger ledger;
  EXPECT_TRUE(run(findReport(10190)->dialog, ledger.session(), [](QWidget& window) {
    typeName(window, "8052", "xs");
    EXPECT_EQ(found(), QStringList({"02 销售部", "0201 销售一部"}));
    pressKey(window, Qt::Key_Return);
    EXPECT_EQ(nameField(window, "8052").text(), "销售部");
    EXPECT_EQ(focusOf(window), "2111");
    pressKey(window, Qt::Key_Down);
    EXPECT_EQ(found(), QStringList({"P01 张三　销售部", "P02 李四　销售部"})) << "those of the department";
    pressKey(window, Qt::Key_Escape);
    EXPECT_TRUE(window.isVisible());
    typeName(window, "2111", "P02");
    pressKey(window, Qt::Key_Tab);
    EXPECT_EQ(nameField(window, "2111").text(), "李四");
    EXPECT_EQ(focusOf(window), "2201") << "F2 does what the button beside the name does";
    // Somebody of another department brings it along; a click goes on as a key does.
    typeName(window, "2111", "zhaoliu");
    ASSERT_EQ(found(), QStringList("P05 赵六　采购部"));
    QTest::mouseClick(openList()->viewport(), Qt::LeftButton, {},
                      openList()->visualRect(openList()->model()->index(0, 0)).center());
    EXPECT_EQ(nameField(window, "8052").text(), "采购部");
    EXPECT_EQ(focusOf(window), "2201");
    control<QAbstractButton>(window, "2601").setChecked(true);
    click(window, "1");
  }));
  EXPECT_EQ(messages.takeLast(), "");
  EXPECT_EQ(request.member(ParameterKey::person).id, 5);
  EXPECT_EQ(request.member(ParameterKey::dept).id, 15);
}

// Who types fast on a slow machine: the list's window gets a key, or the focus, when the list has closed already.
TEST_F(NameFields, AListThatHasClosedHandsOnWhatComesLate) {
  PersonLedger ledger;
  run(findReport(10190)->dialog, ledger.session(), [](QWidget& window) {
    const auto pickDepartment = [&window] {
      typeName(window, "8052", "xs");
      auto* list = openList();
      pressKey(window, Qt::Key_Return);
      return list;
    };
    QTest::keyClicks(pickDepartment(), "P");
    EXPECT_EQ(nameField(window, "8052").text(), "销售部");
    EXPECT_EQ(nameField(window, "2111").text(), "P");
    QTest::keyClicks(openList(), "02");
    pressKey(window, Qt::Key_Return);
    EXPECT_EQ(nameField(window, "2111").text(), "李四");
    QApplication::setActiveWindow(pickDepartment());
    QApplication::setActiveWindow(&window);
    EXPECT_EQ(focusOf(window), "2111");
    pressKey(window, Qt::Key_Escape);
  });
}

// On a box to tick, its sign.
QPoint placeIn(const QWidget& target) { return {8, target.height() / 2}; }

// A press where it arrives while a list is open: at the list, which has the mouse.
void clickBeside(QWidget& target) {
  QWidget* list = QApplication::activePopupWidget();
  ASSERT_NE(list, nullptr);
  QTest::mousePress(list, Qt::LeftButton, {}, list->mapFromGlobal(target.mapToGlobal(placeIn(target))));
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  QTest::mouseRelease(&target, Qt::LeftButton, {}, placeIn(target));
}

bool isMarked(const QWidget& window, const char* id) {
  // A name that is gone on to is selected.
  const auto& field = nameField(window, id);
  const auto role = field.hasSelectedText() ? QPalette::Highlight : QPalette::Text;
  return field.palette().color(role) == currentTheme().negative;
}

// What lies beside an open list is one click away; a list that nobody asked for is not open.
TEST_F(NameFields, AListIsNeverInTheWayOfTheNextField) {
  PersonLedger ledger;
  EXPECT_TRUE(run(findReport(10190)->dialog, ledger.session(), [](QWidget& window) {
    auto& unposted = control<QAbstractButton>(window, "2601");
    typeName(window, "8052", "cgb");
    clickBeside(unposted);
    EXPECT_TRUE(unposted.isChecked());
    EXPECT_EQ(nameField(window, "8052").text(), "采购部");
    typeName(window, "2111", "P05");
    clickBeside(nameField(window, "8052"));
    EXPECT_EQ(focusOf(window), "8052");
    // Where the platform itself presses again behind a list that closes, it is one press all the same.
    typeName(window, "8052", "cgb");
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, unposted.mapTo(&window, placeIn(unposted)));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !unposted.isChecked(); }));
    unposted.setChecked(true);
    nameField(window, "8052").setFocus();
    nameField(window, "8052").selectAll();
    pressKey(window, Qt::Key_Delete);
    EXPECT_TRUE(found().empty());
    pressKey(window, Qt::Key_Down);
    EXPECT_EQ(found().size(), 6);
    pressKey(window, Qt::Key_Escape);
    EXPECT_EQ(nameField(window, "8052").text(), "采购部") << "what was chosen before";
    typeName(window, "8052", "xs");
    pressKey(window, Qt::Key_Escape);
    EXPECT_EQ(nameField(window, "8052").text(), "采购部");
    for (const char* field : {"2206", "8052"}) {
      control<QWidget>(window, QString::fromLatin1(field)).setFocus();
      pressKey(window, Qt::Key_F, Qt::AltModifier);
    }
    EXPECT_EQ(control<CUsefulCombox>(window, "2206").currentText(), "1221 其他应收款");
    EXPECT_EQ(nameField(window, "8052").text(), "采购部");
    typeName(window, "2111", "P05");
    clickBeside(control<QWidget>(window, "1"));
  }));
  EXPECT_EQ(messages.takeLast(), "");
  EXPECT_EQ(request.member(ParameterKey::person).id, 5);
}

TEST_F(NameFields, APersonOfAnotherDepartmentIsMarked) {
  PersonLedger ledger;
  request.choose(ParameterKey::dept, {"销售部", 12});
  request.choose(ParameterKey::person, {"李四", 2});
  EXPECT_FALSE(run(findReport(10190)->dialog, ledger.session(), [](QWidget& window) {
    const auto markedIn = [&](const char* dept) {
      typeName(window, "8052", QString::fromUtf8(dept));
      pressKey(window, Qt::Key_Return);
      EXPECT_EQ(nameField(window, "2111").text(), "李四");
      return isMarked(window, "2111");
    };
    EXPECT_FALSE(isMarked(window, "2111"));
    EXPECT_TRUE(markedIn("财务部"));
    EXPECT_FALSE(markedIn("02"));
    inModal([](QWidget& reference) {
      QTest::keyClicks(&control<QLineEdit>(reference, "search"), "cgb");
      QTest::keyClick(&control<QLineEdit>(reference, "search"), Qt::Key_Return);
    });
    click(window, "2006");
    EXPECT_TRUE(isMarked(window, "2111"));
    click(window, "2");
  }));
}

// Text that was not taken means a name only when it can mean no other; what stands for nothing is refused and stays.
TEST_F(NameFields, TypedTextIsTheNameThatItIsOrRefused) {
  PersonLedger ledger;
  EXPECT_FALSE(run(findReport(10190)->dialog, ledger.session(), [&](QWidget& window) {
    const auto leaveWith = [&](const char* id, const char* text) {
      typeName(window, id, QString::fromUtf8(text));
      if (QWidget* list = QApplication::activePopupWidget()) list->hide();
      control<QWidget>(window, "2601").setFocus();
      return fromQt(nameField(window, id).text());
    };
    EXPECT_EQ(leaveWith("8052", "cgb"), "采购部");
    EXPECT_EQ(leaveWith("8052", "0201"), "销售一部");
    EXPECT_EQ(leaveWith("8052", "销售部"), "销售部") << "a whole name, though another begins so";
    EXPECT_EQ(leaveWith("8052", "部"), "部");
    EXPECT_EQ(leaveWith("8052", "没有此部门"), "没有此部门");
    click(window, "1");
    EXPECT_EQ(messages.takeLast(), "非法的部门");
    EXPECT_EQ(focusOf(window), "8052");
    pressKey(window, Qt::Key_Escape);
    EXPECT_TRUE(window.isVisible()) << "takes back what was typed";
    EXPECT_EQ(nameField(window, "8052").text(), "销售部");
    click(window, "2");
  }));
}

// The list of a field is read when it is first needed, and once.
TEST_F(NameFields, SeveralOfOneNameAreToldApart) {
  TestLedger ledger(Engine::sqlite);
  fillNamesakes(ledger);
  CQnCwDB db;
  db.Open(ledger.address());
  const Session session{.db = db, .ledger = ledger.address(), .logon = {2006, 1, 31}};
  EXPECT_TRUE(run(findReport(10208)->dialog, session, [&](QWidget& window) {
    typeName(window, "2115", "江源");
    EXPECT_EQ(found(), QStringList({"K01 江源　其它", "K02 江源　其它"}));
    pressKey(window, Qt::Key_Return);
    EXPECT_EQ(nameField(window, "2115").text(), "K02 江源") << "of a whole name the first that was made";
    ledger.keeper().execute("UPDATE Enter SET sEnterName = '别的'");
    typeName(window, "2115", "jy");
    EXPECT_EQ(found().size(), 2);
    ledger.keeper().execute("UPDATE Enter SET sEnterName = '江源'");
    pressKey(window, Qt::Key_Return);
    EXPECT_EQ(nameField(window, "2115").text(), "K01 江源");
    pressKey(window, Qt::Key_Return, Qt::ControlModifier);
  }));
  EXPECT_EQ(messages.takeLast(), "");
  EXPECT_EQ(request.text(ParameterKey::unit), "K01 江源");
}

TEST_F(NameFields, F2OpensAReferenceWindowForEveryList) {
  MemberLedger ledger;
  const std::vector<ControlSpec> lists{controls::account, controls::deptOrAll, controls::clerk, controls::project};
  const DialogSpec spec{
      .id = 9997, .title = "条件", .accountWhere = "sAssBook = 'B' ORDER BY sCode", .controls = lists};
  const auto pick = [](QWidget& window, const char* field, const char* typed, const char* title, const char* next) {
    inModal([&](QWidget& reference) {
      EXPECT_EQ(reference.windowTitle(), QString::fromUtf8(title));
      expectNamed(reference);
      auto& search = control<QLineEdit>(reference, "search");
      search.selectAll();
      QTest::keyClicks(&search, QString::fromUtf8(typed));
      QTest::keyClick(&search, Qt::Key_Return);
    });
    control<QWidget>(window, QString::fromLatin1(field)).setFocus();
    pressKey(window, Qt::Key_F2);
    EXPECT_EQ(focusOf(window), next) << field;
  };
  EXPECT_TRUE(run(spec, ledger.session(), [&](QWidget& window) {
    pick(window, "2206", "yf", "科目参照", "2207");
    EXPECT_EQ(control<CUsefulCombox>(window, "2206").currentText(), "112202 运费");
    EXPECT_EQ(control<CUsefulCombox>(window, "2213").count(), 2) << "the clerks follow";
    pick(window, "2207", "02", "部门参照", "2213");
    pick(window, "2213", "wq", "业务员参照", "2211");
    // What was typed is looked for.
    inModal([&](QWidget& reference) {
      EXPECT_EQ(control<QLineEdit>(reference, "search").text(), "厂房");
      EXPECT_EQ(control<QTableView>(reference, "entries").model()->rowCount(), 2);
      QTest::keyClick(&reference, Qt::Key_Escape);
    });
    typeName(window, "2117", "厂房");
    pressKey(window, Qt::Key_F2);
    EXPECT_EQ(focusOf(window), "2117");
    EXPECT_EQ(nameField(window, "2117").text(), "厂房");
    pick(window, "2117", "ehcf", "项目参照", "1");
    pressKey(window, Qt::Key_Return);
  }));
  EXPECT_EQ(request.text(ParameterKey::account), "112202");
  EXPECT_EQ(request.member(ParameterKey::dept).id, 12);
  EXPECT_EQ(request.text(ParameterKey::clerk), "王强");
  EXPECT_EQ(request.text(ParameterKey::project), "二号厂房");
}

// From every field, whether its list is open or not; the captions stay as they are given.
TEST_F(NameFields, KeysConfirmAndCancelFromAnyField) {
  PersonLedger ledger;
  request.set(ParameterKey::dept, "销售部");
  request.set(ParameterKey::person, "张三");
  struct Case {
    Qt::Key key;
    Qt::KeyboardModifiers with;
    bool confirms;
  };
  for (const char* field : {"2206", "8052", "2111", "2201", "2601", "2"}) {
    for (const Case& one : {Case{Qt::Key_Return, Qt::ControlModifier, true}, Case{Qt::Key_O, Qt::AltModifier, true},
                            Case{Qt::Key_C, Qt::AltModifier, false}}) {
      SCOPED_TRACE(std::string(field) + " " + std::to_string(one.key));
      EXPECT_EQ(run(findReport(10190)->dialog, ledger.session(),
                    [&](QWidget& window) {
                      EXPECT_EQ(control<QAbstractButton>(window, "1").text(), "确定");
                      auto& at = control<QWidget>(window, QString::fromLatin1(field));
                      at.setFocus();
                      if (qobject_cast<QLineEdit*>(&at) != nullptr) QTest::keyClick(&at, Qt::Key_Down);
                      pressKey(window, one.key, one.with);
                      EXPECT_TRUE(QTest::qWaitFor([&] { return !window.isVisible(); }));
                    }),
                one.confirms);
    }
  }
  EXPECT_EQ(messages.takeLast(), "");
}

// An account that was picked once and is gone stays in sight, to be refused or taken out.
TEST_F(NameFields, AccountsAreFoundInTheirListsAndNoneIsDroppedInSilence) {
  MemberLedger ledger;
  const std::vector<ControlSpec> lists{{.kind = ControlSpec::Kind::accountLists,
                                        .key = ParameterKey::account,
                                        .id = 2301,
                                        .companion = 2302,
                                        .caption = "科目"}};
  const std::vector<Check> checks{
      {.passes = &checks::accountsPicked, .message = {"没有这些科目"}, .about = ParameterKey::account}};
  const DialogSpec spec{.id = 9996,
                        .title = "条件",
                        .accountWhere = "sAssBook = 'B' ORDER BY sCode",
                        .controls = lists,
                        .checks = checks};
  request.set(ParameterKey::account, "9999\n112201");
  EXPECT_TRUE(run(spec, ledger.session(), [&](QWidget& window) {
    auto& offered = control<QListWidget>(window, "2301");
    auto& picked = control<QListWidget>(window, "2302");
    ASSERT_EQ(picked.count(), 2);
    click(window, "1");
    EXPECT_EQ(messages.takeLast(), "没有这些科目");
    offered.setFocus();
    QTest::keyClicks(&offered, "yf");
    EXPECT_EQ(offered.currentItem()->text(), "112202 运费");
    picked.setCurrentRow(1);
    EXPECT_EQ(picked.currentItem()->text(), "9999");
    click(window, "remove");
    EXPECT_EQ(picked.count(), 1);
    click(window, "1");
  }));
  EXPECT_EQ(request.text(ParameterKey::account), "112201");
}

}  // namespace
}  // namespace tz::test
