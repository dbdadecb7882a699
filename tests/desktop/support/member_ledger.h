// A small ledger of units, clerks, departments and projects, opened as the windows open it.
#pragma once

#include "core/data/qncw_db.h"
#include "core/reports/session.h"
#include "support/test_ledger.h"

namespace tz::test {

class MemberLedger {
 public:
  MemberLedger() : ledger_(Engine::sqlite) {
    ledger_.fill("Code", R"(
        lId | sCode  | sName    | bEnd | bDirect | sAssBook
        1   | 1122   | 应收账款 | 0    | 1       | B
        2   | 112201 | 货款     | 1    | 1       | B
        3   | 112202 | 运费     | 1    | 1       | B
        4   | 160401 | 厂房     | 1    | 1       | D
        5   | 160402 | 软件     | 1    | 1       | D)");
    ledger_.fill("Dept", R"(
        lId | lDeptId | sDeptId | sDeptName
        1   | 11      | 01      | 销售部
        2   | 12      | 02      | 采购部)");
    ledger_.fill("EnterClass", "lId | sName\n 1 | 客户\n 2 | 供应商");
    ledger_.fill("Enter", R"(
        lId | sEnterId | sEnterName | lClassId
        1   | K02      | 远山贸易   | 1
        2   | K01      | 江源机械   | 1
        3   | G01      | 宏达钢材   | 2)");
    FillProjects();
    FillLines();
    db.Open(ledger_.address());
  }

  [[nodiscard]] TestLedger& ledger() { return ledger_; }
  CQnCwDB db;
  Session session() { return {.db = db, .ledger = ledger_.address(), .logon = {2006, 3, 15}}; }

 private:
  void FillProjects() {
    ledger_.fill("ProjClass", "lId | sItemId | sName\n 1 | 01 | 工程\n 2 | RD | 研发");
    ledger_.fill("ProjItems", R"(
        lId | sItemId | nField | sTitle   | sType
        1   | 01      | 0      | 项目编号 | 3
        2   | 01      | 1      | 项目名称 | 3
        3   | RD      | 0      | 项目编号 | 3
        4   | RD      | 1      | 项目名称 | 3)");
    ledger_.makeItemTable("01");
    ledger_.makeItemTable("RD");
    ledger_.fill("ProjItems01", "lId | FIELD0 | FIELD1\n 1 | 002 | 二号厂房\n 2 | 001 | 一号厂房");
    ledger_.fill("ProjItemsRD", "lId | FIELD0 | FIELD1\n 1 | R1 | 新机型");
    ledger_.fill("ProjCodes", "lId | sItemId | lCodeId\n 1 | 01 | 4\n 2 | RD | 5");
  }
  // Of the account 货款 the clerks 李娜 and 王强, of 运费 王强 alone.
  void FillLines() {
    ledger_.fill("UnregMain", "lTieId | byPeroid | dtBill | dtDate\n 1 | 3 | 2006-03-05 | 2006-03-05");
    ledger_.fill("UnregSub", R"(
        lId | lTieId | lCodeId | lEnterId | sName | mMoney | bDirect | dtDate
        1   | 1      | 2       | 1        | 李娜  | 80     | 1       | 2006-03-05
        2   | 1      | 2       | 2        | 王强  | 70     | 1       | 2006-03-05
        3   | 1      | 3       | 2        | 王强  | 60     | 1       | 2006-03-05)");
  }

  TestLedger ledger_;
};

}  // namespace tz::test
