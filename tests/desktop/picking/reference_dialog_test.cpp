#include "desktop/picking/reference_dialog.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>
#include <gtest/gtest.h>

#include "desktop/picking/archive_references.h"
#include "desktop/support/person_ledger.h"
#include "desktop/support/window_script.h"

namespace tz::test {
namespace {

QLineEdit& search(const QWidget& window) { return control<QLineEdit>(window, "search"); }
void press(const QWidget& window, Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
  QTest::keyClick(&search(window), key, with);
}

// The entries shown, cells parted by blanks.
QStringList shown(const QWidget& window) {
  const auto& list = control<QTableView>(window, "entries");
  QStringList rows;
  for (int row = 0; row < list.model()->rowCount(); ++row) {
    QStringList cells;
    for (int column = 0; column < list.model()->columnCount(); ++column) {
      if (!list.isColumnHidden(column)) cells << list.model()->index(row, column).data().toString();
    }
    rows << cells.join(' ');
  }
  return rows;
}
QString current(const QWidget& window) {
  return control<QTableView>(window, "entries").currentIndex().siblingAtColumn(0).data().toString();
}

TEST(Reference, DepartmentsStandUnderTheirParents) {
  PersonLedger ledger;
  CDeptReferenceDlg reference(ledger.db, nullptr);
  reference.SetDept({"销售一部"});
  inModal([](QWidget& window) {
    expectNamed(window);
    EXPECT_EQ(current(window), "0201");
    EXPECT_EQ(shown(window).mid(1, 3), QStringList({"02 销售部", "0201 　销售一部", "03 财务部"}));
    press(window, Qt::Key_Down);
    press(window, Qt::Key_Return);
  });
  EXPECT_TRUE(reference.DoModal());
  EXPECT_EQ(reference.Dept().text, "财务部");
}

TEST(Reference, SearchFindsByCodeNameAndSoundTheBestFirst) {
  PersonLedger ledger;
  CDeptReferenceDlg reference(ledger.db, nullptr);
  inModal([](QWidget& window) {
    QTest::keyClicks(&search(window), "02");
    EXPECT_EQ(shown(window), QStringList({"02 销售部", "0201 销售一部"}));
    search(window).clear();
    EXPECT_EQ(shown(window).size(), 6);
    enterText(search(window), "一部");
    EXPECT_EQ(shown(window), QStringList({"0201 销售一部"}));
    search(window).clear();
    QTest::keyClicks(&search(window), "xsb");
    EXPECT_EQ(shown(window), QStringList({"02 销售部"}));
    search(window).clear();
    enterText(search(window), "没有");
    EXPECT_EQ(shown(window), QStringList());
    EXPECT_EQ(control<QPushButton>(window, "1").isEnabled(), false);
    press(window, Qt::Key_Return);
    EXPECT_TRUE(window.isVisible());
    press(window, Qt::Key_Escape);
  });
  EXPECT_FALSE(reference.DoModal());
}

TEST(Reference, PersonsOpenAtTheirDepartmentAndAreFoundEverywhere) {
  PersonLedger ledger;
  CPersonReferenceDlg reference(ledger.db, nullptr);
  reference.SetNames({"采购部"}, {"张三"});
  inModal([](QWidget& window) {
    EXPECT_EQ(shown(window), QStringList({"P04 张三", "P05 赵六"}));
    EXPECT_EQ(current(window), "P04");
    press(window, Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(shown(window), QStringList({"P03 王重阳"}));
    QTest::keyClicks(&search(window), "wcy");  // the sign in the middle has two readings
    EXPECT_EQ(shown(window), QStringList({"P03 王重阳 财务部"}));
    search(window).clear();
    EXPECT_EQ(shown(window), QStringList({"P03 王重阳"}));
    QTest::keyClicks(&search(window), "zhangsan");
    EXPECT_EQ(shown(window), QStringList({"P01 张三 销售部", "P04 张三 采购部"}));
    auto& list = control<QTableView>(window, "entries");
    const QPoint second = list.visualRect(list.model()->index(1, 1)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, second);
    EXPECT_EQ(current(window), "P04");
    EXPECT_TRUE(search(window).hasFocus());
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, second);
  });
  EXPECT_TRUE(reference.DoModal());
  EXPECT_EQ(reference.Dept().text, "采购部");
  EXPECT_EQ(reference.Person().text, "张三");
}

TEST(Reference, PersonOfNoDepartmentIsListedWithoutOne) {
  PersonLedger ledger;
  CPersonReferenceDlg reference(ledger.db, nullptr);
  reference.SetNames({"没有此部门"}, {"孙七"});  // searched for
  inModal([](QWidget& window) {
    EXPECT_EQ(shown(window), QStringList({"P06 <b>孙七</b> "}));
    press(window, Qt::Key_Return);
  });
  EXPECT_TRUE(reference.DoModal());
  EXPECT_EQ(reference.Dept().text, "");
  EXPECT_EQ(reference.Person().text, "<b>孙七</b>");
}

TEST(Reference, UnitsStandUnderTheirClasses) {
  PersonLedger ledger;
  ledger.ledger().fill("EnterClass", "lId | sName\n 1 | 客户\n 2 | 供应商");
  ledger.ledger().fill("Enter", R"(
      lId | sEnterId | sEnterName           | lClassId
      1   | K01      | 北京（华夏）商贸公司 | 1
      2   | G01      | 长城钢铁厂           | 2
      3   | X01      | 未分类单位           | 0)");
  CUnitReferenceDlg reference(ledger.db, nullptr);
  reference.SetUnit({"未分类单位"});
  inModal([](QWidget& window) {
    EXPECT_EQ(current(window), "X01");
    control<QListWidget>(window, "groups").setCurrentRow(2);
    EXPECT_EQ(shown(window), QStringList({"G01 长城钢铁厂"}));
    QTest::keyClicks(&search(window), "hxsm");
    EXPECT_EQ(shown(window), QStringList({"K01 北京（华夏）商贸公司 客户"}));
    press(window, Qt::Key_Return);
  });
  EXPECT_TRUE(reference.DoModal());
  EXPECT_EQ(reference.Unit().text, "北京（华夏）商贸公司");
}

TEST(Reference, ItemsOfOneClass) {
  PersonLedger ledger;
  ledger.ledger().fill("ProjClass", "lId | sItemId | sName\n 1 | 01 | 工程");
  ledger.ledger().fill("ProjItems", R"(
      lId | sItemId | nField | sTitle   | sType
      1   | 01      | 0      | 项目编号 | 3
      2   | 01      | 1      | 项目名称 | 3)");
  ledger.ledger().makeItemTable("01");
  ledger.ledger().fill("ProjItems01", "lId | FIELD0 | FIELD1\n 1 | B2 | 二号楼\n 2 | A1 | 一号楼");
  CItemReferenceDlg reference(ledger.db, "01", nullptr);
  inModal([](QWidget& window) {
    EXPECT_EQ(shown(window), QStringList({"A1 一号楼", "B2 二号楼"}));
    QTest::keyClicks(&search(window), "ehl");
    press(window, Qt::Key_Return);
  });
  EXPECT_TRUE(reference.DoModal());
  EXPECT_EQ(reference.Item().text, "二号楼");
}

TEST(Reference, ManyEntriesCostNoWidgets) {
  PersonLedger ledger;
  std::string rows = "lId | sPersonId | sName | lDeptId\n";
  for (int i = 100; i < 20'100; ++i) {
    rows += std::to_string(i) + "|N" + std::to_string(i) + "|员工" + std::to_string(i) + "|12\n";
  }
  ledger.ledger().fill("Person", rows);
  CPersonReferenceDlg reference(ledger.db, nullptr);
  inModal([](QWidget& window) {
    EXPECT_LT(window.findChildren<QWidget*>().size(), 60);
    QTest::keyClicks(&search(window), "yuangong20099");
    EXPECT_EQ(shown(window), QStringList({"N20099 员工20099 销售部"}));
    press(window, Qt::Key_Return);
  });
  EXPECT_TRUE(reference.DoModal());
  EXPECT_EQ(reference.Person().text, "员工20099");
}

}  // namespace
}  // namespace tz::test
