// The directories of the archives as a person works with them: opened from the launcher, by clicks and keys, in their
// real dialogs.
#include "desktop/archives/archive_dialog.h"

#include <QListWidget>

#include "core/check/ledger_check.h"
#include "core/data/item_tables.h"
#include "desktop/gridview/grid_view.h"
#include "desktop/gridview/grid_view_header.h"
#include "desktop/report/report_ledger.h"
#include "desktop/shell/launch.h"

namespace tz::test {
namespace {

constexpr int persons = 10178;
constexpr int projects = 10179;
constexpr int units = 10180;
constexpr int departments = 10181;

class Directories : public ::testing::Test {
 protected:
  void SetUp() override {
    auto& ledger = ledger_.ledger();
    ledger.fill("EnterClass", "lId | sName\n 1 | 国内\n 2 | 国外");
    ledger.fill("Enter", R"(
        lId | sEnterId | sEnterName | lClassId | mCredit | sAddress
        1   | K1       | 宏达厂     | 1        | 1000    | 苏州
        2   | K2       | 东方厂     | 0        | 50      | 洛阳
        3   | K3       | 南通厂     | 2        | 300     | 南通)");
    ledger.fill("Code", "lId | sCode | sName | bEnd | bDirect | sAssBook\n 9 | 5001 | 生产成本 | 1 | 1 | D");
  }
  // Runs the script in the directory of a command.
  void in(int command, const std::function<void(QWidget&)>& script) {
    inModal(script);
    launcher_.Launch(command);
  }
  static GridView& listOf(QWidget& window) { return control<GridView>(window, QStringLiteral("records")); }
  static std::string shown(QWidget& window, int column = 1) {
    const auto& view = listOf(window);
    std::string text;
    for (std::int64_t place = 0; place < view.Rows().Count(); ++place) {
      text += fromQt(view.ShownText(view.Rows().RowAt(place), column)) + " ";
    }
    return text;
  }
  static std::string noteOf(QWidget& form) { return fromQt(control<QLabel>(form, QStringLiteral("note")).text()); }
  static void write(QWidget& form, const char* field, const QString& text) {
    auto& edit = control<QLineEdit>(form, QLatin1String(field));
    edit.setFocus();
    edit.selectAll();
    enterText(edit, text);
  }
  static void press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    // A form that was open above it may just have closed; shortcuts are those of the window in front.
    window.activateWindow();
    EXPECT_TRUE(waitActive(&window));
    QWidget* focus = window.focusWidget();
    QTest::keyClick(focus == nullptr ? &window : focus, key, modifiers);
  }
  // Presses a key that opens a form, and works in it.
  static void inForm(QWidget& window, Qt::Key key, const std::function<void(QWidget&)>& script) {
    inModal(script);
    press(window, key);
  }
  static void search(QWidget& window, const QString& text) {
    auto& field = control<QLineEdit>(window, QStringLiteral("search"));
    field.setFocus();
    field.selectAll();
    enterText(field, text);
    press(window, Qt::Key_Return);
  }
  std::string rows(const char* select) { return ledger_.ledger().rows(select); }

  ReportLedger ledger_;
  RecordedMessages messages_;
  ReportLauncher launcher_{everybody(), findReport};
};

TEST_F(Directories, FindAddChangeAndDeleteByKeys) {
  in(persons, [&](QWidget& window) {
    expectNamed(window);
    EXPECT_EQ(shown(window), "张三 李四 赵六 ");
    // Typing in the list searches, by sound as well; Esc takes the search back and does not close.
    QTest::keyClick(&listOf(window), Qt::Key_Z);
    enterText(*window.focusWidget(), QStringLiteral("l"));
    press(window, Qt::Key_Down);
    EXPECT_EQ(shown(window), "赵六 ");
    press(window, Qt::Key_Escape);
    EXPECT_EQ(shown(window), "张三 李四 赵六 ");
    control<QListWidget>(window, QStringLiteral("groups")).setCurrentRow(2);  // the purchasing department
    EXPECT_EQ(shown(window), "赵六 ");

    inForm(window, Qt::Key_Insert, [&](QWidget& form) {
      expectNamed(form);
      EXPECT_EQ(control<QLineEdit>(form, QStringLiteral("lDeptId")).text(), QStringLiteral("采购部"));
      press(form, Qt::Key_Return, Qt::ControlModifier);
      EXPECT_EQ(noteOf(form), "请填写个人编码。");
      enterText(*form.focusWidget(), QStringLiteral("P1"));
      press(form, Qt::Key_Return);
      enterText(*form.focusWidget(), QStringLiteral("O'Brien'; DROP TABLE Plan --"));
      press(form, Qt::Key_Return);
      press(form, Qt::Key_Return);  // the last field keeps
      EXPECT_EQ(noteOf(form), "个人编码“P1”已经用于个人“张三”。");
      EXPECT_EQ(form.focusWidget()->objectName(), QStringLiteral("sPersonId"));
      messages_.answer = false;
      press(form, Qt::Key_Escape);
      EXPECT_EQ(messages_.takeLast(), "内容已经改动，还没有保存。要放弃吗？");
      enterText(*form.focusWidget(), QStringLiteral("P4"));
      press(form, Qt::Key_Return, Qt::ControlModifier);
    });
    EXPECT_EQ(shown(window), "赵六 O'Brien'; DROP TABLE Plan -- ");
    EXPECT_EQ(listOf(window).Current().row, 3) << "the new one is current";

    control<QListWidget>(window, QStringLiteral("groups")).setCurrentRow(0);
    search(window, QStringLiteral("P1"));
    inForm(window, Qt::Key_Return, [&](QWidget& form) {
      write(form, "sName", QStringLiteral("张三丰"));
      click(form, QStringLiteral("1"));
    });
    messages_.answer = true;
    press(window, Qt::Key_Delete);
    ASSERT_EQ(messages_.all.size(), 2U);
    EXPECT_EQ(messages_.all[0].text, "要删除个人“张三丰”吗？");
    EXPECT_TRUE(messages_.all[0].defaultsToNo);
    EXPECT_EQ(messages_.takeLast(), "个人“张三丰”已用于 2 条分录、1 条未记帐分录、2 条辅助余额，不能删除。");
    search(window, QStringLiteral("P4"));
    press(window, Qt::Key_Delete);
    // A new one is seen, whatever had been looked for.
    search(window, QStringLiteral("P2"));
    inForm(window, Qt::Key_Insert, [&](QWidget& form) {
      write(form, "sPersonId", QStringLiteral("P5"));
      write(form, "sName", QStringLiteral("周七"));
      write(form, "lDeptId", QStringLiteral("财务部"));
      press(form, Qt::Key_Return, Qt::ControlModifier);
    });
    EXPECT_EQ(shown(window), "张三丰 李四 赵六 周七 ");
    press(window, Qt::Key_Escape);
  });
  EXPECT_EQ(rows("SELECT sName FROM Person ORDER BY lId"), "张三丰\n李四\n赵六\n周七\n");
}

TEST_F(Directories, ChangeWhatOpenWindowsFindWhenTheyAreNextRefreshed) {
  ReportWindow* report = launcher_.LaunchFromReport({10190, ReportLedger::zhangSan()}, nullptr);
  ASSERT_NE(report, nullptr);
  in(persons, [&](QWidget& window) {
    inForm(window, Qt::Key_F2, [&](QWidget& form) {
      write(form, "sName", QStringLiteral("张三丰"));
      click(form, QStringLiteral("1"));
    });
    press(window, Qt::Key_Escape);
  });
  auto request = ReportLedger::zhangSan();
  request.set(ParameterKey::person, "张三丰");
  report->SetConditions({10190, request});
  report->RefreshDisplay();
  EXPECT_GT(report->findChild<GridView*>()->RowCount(), 0);
  launcher_.CloseAll();
  deleteClosed();
}

TEST_F(Directories, ShowWhatAnotherHasWrittenMeanwhile) {
  in(departments, [&](QWidget& window) {
    inForm(window, Qt::Key_F2, [&](QWidget& form) {
      write(form, "sDeptName", QStringLiteral("销售一部"));
      ledger_.ledger().keeper().execute("UPDATE Dept SET sDeptName = '营销部' WHERE lId = 1");
      click(form, QStringLiteral("1"));
      EXPECT_EQ(noteOf(form), "部门“销售部”已被别人修改，没有写入。请看现在的内容，再决定是否修改。");
      EXPECT_EQ(control<QLineEdit>(form, QStringLiteral("sDeptName")).text(), QStringLiteral("营销部"));
      press(form, Qt::Key_Escape);
    });
    EXPECT_EQ(shown(window), "营销部 采购部 财务部 ");
    ledger_.ledger().keeper().execute("DELETE FROM Dept WHERE lId = 3");
    search(window, QStringLiteral("财务"));
    press(window, Qt::Key_Delete);
    EXPECT_EQ(messages_.takeLast(), "部门“财务部”已被别人删除，没有写入。");
    press(window, Qt::Key_Escape);
    EXPECT_EQ(shown(window), "营销部 采购部 ");
    press(window, Qt::Key_Escape);
  });
  EXPECT_TRUE(messages_.all.empty());
}

TEST_F(Directories, SortByColumnsAndKeepClassesOfUnitsBesideTheList) {
  in(units, [&](QWidget& window) {
    auto& view = listOf(window);
    const auto clickCaption = [&](int column) {
      QTest::mouseClick(view.Header(), Qt::LeftButton, {}, view.Header()->CaptionRect(column).center());
    };
    clickCaption(3);
    EXPECT_EQ(shown(window), "东方厂 南通厂 宏达厂 ");
    clickCaption(3);
    EXPECT_EQ(shown(window), "宏达厂 南通厂 东方厂 ");
    view.SetCurrent(view.Current().row, 0);
    press(window, Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(shown(window), "宏达厂 东方厂 南通厂 ");
    search(window, QStringLiteral("洛阳"));
    EXPECT_EQ(shown(window), "东方厂 ");
    press(window, Qt::Key_Escape);

    auto& groups = control<QListWidget>(window, QStringLiteral("groups"));
    groups.setCurrentRow(groups.count() - 1);
    EXPECT_EQ(shown(window), "东方厂 ") << "units without a class";
    inModal([&](QWidget& form) {
      write(form, "sName", QStringLiteral("供应商"));
      press(form, Qt::Key_Return);
    });
    click(window, QStringLiteral("addGroup"));
    EXPECT_EQ(groups.currentItem()->text(), QStringLiteral("供应商"));
    // A unit that begins in the class; F2 picks another one in its window.
    view.setFocus();
    inForm(window, Qt::Key_Insert, [&](QWidget& form) {
      write(form, "sEnterId", QStringLiteral("K4"));
      write(form, "sEnterName", QStringLiteral("宏达厂"));
      write(form, "mCredit", QStringLiteral("-5"));
      EXPECT_EQ(control<QLineEdit>(form, QStringLiteral("lClassId")).text(), QStringLiteral("供应商"));
      messages_.answer = false;
      press(form, Qt::Key_Return, Qt::ControlModifier);
      EXPECT_EQ(noteOf(form), "信用额度不能是负数。");
      write(form, "mCredit", QStringLiteral("1,500.5"));
      press(form, Qt::Key_Return, Qt::ControlModifier);
      EXPECT_EQ(messages_.takeLast(), "已有同名的单位“宏达厂”（K1），按名称查询时只能查到其中一个。仍要写入吗？");
      write(form, "sEnterName", QStringLiteral("昭和厂"));
      press(form, Qt::Key_N, Qt::AltModifier);
      EXPECT_TRUE(QTest::qWaitFor([&] { return noteOf(form) == "“昭和厂”已经保存。"; })) << noteOf(form);
      EXPECT_EQ(control<QLineEdit>(form, QStringLiteral("lClassId")).text(), QStringLiteral("供应商"));
      press(form, Qt::Key_Escape);
    });
    EXPECT_EQ(shown(window, 3), "1,500.50 ");
    messages_.answer = true;
    click(window, QStringLiteral("removeGroup"));
    EXPECT_EQ(messages_.takeLast(), "单位分类“供应商”已用于 1 个单位，不能删除。");
    press(window, Qt::Key_W, Qt::ControlModifier);
  });
  EXPECT_EQ(rows("SELECT sEnterName, mCredit FROM Enter WHERE sEnterId = 'K4'"), "昭和厂|1500.5\n");
}

TEST_F(Directories, MakeAProjectClassWithFieldsAccountsAndItems) {
  in(projects, [&](QWidget& window) {
    EXPECT_FALSE(control<QToolButton>(window, QStringLiteral("add")).isEnabled()) << "there is no class yet";
    inModal([&](QWidget& form) {
      enterText(*form.focusWidget(), QStringLiteral("RD"));
      press(form, Qt::Key_Return);
      enterText(*form.focusWidget(), QStringLiteral("研发"));
      press(form, Qt::Key_Return);
    });
    click(window, QStringLiteral("addGroup"));
    inModal([&](QWidget& fields) {
      EXPECT_EQ(shown(fields, 0), "项目编号 项目名称 ");
      for (const char* title : {"预算", "到期", "结题"}) {
        inForm(fields, Qt::Key_Insert, [&](QWidget& form) {
          write(form, "sTitle", QString::fromUtf8(title));
          auto& type = control<QComboBox>(form, QStringLiteral("sType"));
          type.setFocus();
          for (int steps = title == std::string("预算")   ? 1
                           : title == std::string("到期") ? 2
                                                          : 3;
               steps > 0; --steps) {
            QTest::keyClick(&type, Qt::Key_Down);
          }
          click(form, QStringLiteral("1"));
        });
      }
      EXPECT_EQ(shown(fields, 1), "文字 文字 数 日期 是否结算 ");
      press(fields, Qt::Key_Escape);
    });
    click(window, QStringLiteral("fields"));
    inModal([&](QWidget& accounts) {
      inForm(accounts, Qt::Key_Insert, [&](QWidget& form) {
        enterText(*form.focusWidget(), QStringLiteral("5001"));
        press(form, Qt::Key_Return, Qt::ControlModifier);
      });
      EXPECT_EQ(shown(accounts, 0), "5001 生产成本 ");
      EXPECT_FALSE(control<QToolButton>(accounts, QStringLiteral("edit")).isEnabled());
      press(accounts, Qt::Key_Escape);
    });
    click(window, QStringLiteral("accounts"));

    listOf(window).setFocus();
    inForm(window, Qt::Key_Insert, [&](QWidget& form) {
      write(form, "FIELD0", QStringLiteral("R1"));
      write(form, "FIELD1", QStringLiteral("主轴"));
      write(form, "FIELD2", QStringLiteral("1,000.5"));
      write(form, "FIELD3", QStringLiteral("明年"));
      press(form, Qt::Key_Return, Qt::ControlModifier);
      EXPECT_EQ(noteOf(form), "到期“明年”不是日期，请写成 2025-01-31。");
      write(form, "FIELD3", QStringLiteral("2006.12.31"));
      auto& settled = control<QComboBox>(form, QStringLiteral("FIELD4"));
      QTest::keyClick(&settled, Qt::Key_Down);
      click(form, QStringLiteral("1"));
    });
    EXPECT_EQ(shown(window, 2) + shown(window, 3) + shown(window, 4), "1,000.5 2006.12.31 是 ");
    click(window, QStringLiteral("removeGroup"));
    EXPECT_EQ(messages_.takeLast(), "项目大类“研发”已用于 1 个科目、1 个项目，不能删除。");
    press(window, Qt::Key_Escape);
  });
  EXPECT_EQ(rows("SELECT FIELD0, FIELD1, FIELD2, FIELD3, FIELD4 FROM ProjItemsRD"), "R1|主轴|1000.5|2006-12-31|1\n");
}

TEST_F(Directories, AskForTheRightAndSayWhyNothingCanBeWritten) {
  ReportLauncher clerk{Operator{.id = 1, .name = "王会计", .rights = {8}}, findReport};
  EXPECT_EQ(clerk.Obstacle(persons), "操作员 王会计 没有“个人档案”的权限（1 号），请向管理员申请");
  EXPECT_EQ(clerk.Obstacle(departments), "");
  clerk.Launch(persons);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);

  // Tables of another form are read and left alone.
  ledger_.ledger().keeper().execute("ALTER TABLE EnterClass ADD COLUMN x TEXT");
  ledger_.ledger().keeper().execute("ALTER TABLE Person RENAME TO p; ");
  ledger_.ledger().keeper().execute("CREATE TABLE Person (lId TEXT, sPersonId TEXT, sName TEXT, lDeptId INTEGER)");
  ledger_.ledger().keeper().execute("INSERT INTO Person SELECT * FROM p");
  ledger_.ledger().keeper().execute("DROP TABLE p");
  in(departments, [&](QWidget& window) {
    const auto& warnings = control<QLabel>(window, QStringLiteral("warnings"));
    EXPECT_TRUE(warnings.text().contains(QStringLiteral("由其他程序建立"))) << fromQt(warnings.text());
    EXPECT_EQ(shown(window), "销售部 采购部 财务部 ");
    for (const char* command : {"add", "edit", "remove"}) {
      EXPECT_FALSE(control<QToolButton>(window, QLatin1String(command)).isEnabled()) << command;
    }
    press(window, Qt::Key_Insert);
    press(window, Qt::Key_Delete);
    press(window, Qt::Key_Return);
    press(window, Qt::Key_Escape);
  });
  EXPECT_TRUE(messages_.all.empty());
}

}  // namespace
}  // namespace tz::test
