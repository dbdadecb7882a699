// A ledger in which departments, persons, units and items of one name stand side by side, each with a balance of its
// own.
#pragma once

#include "support/test_ledger.h"

namespace tz::test {

// The first of a name by lId is not the first by code: "0302 李明" of the second "销售部" has 10, "0301 李明" 20; he of
// the first department has 40. Units "K02 江源" 100 and "K01 江源" 200, items "R2 新机型" 1000 and "R1 新机型" 2000.
inline void fillNamesakes(TestLedger& ledger) {
  ledger.fill("Code", R"(
      lId | sCode | sName    | bEnd | bDirect | sAssBook
      1   | 1221  | 职工借款 | 1    | 1       | A
      2   | 1122  | 应收账款 | 1    | 1       | B
      3   | 1604  | 在建工程 | 1    | 1       | D)");
  ledger.fill("Dept", R"(
      lId | lDeptId | sDeptId | sDeptName
      1   | 11      | D2      | 销售部
      2   | 12      | D1      | 销售部
      3   | 13      | D3      | 采购部)");
  ledger.fill("Person", R"(
      lId | sPersonId | sName | lDeptId
      1   | 0302      | 李明  | 12
      2   | 0301      | 李明  | 12
      3   | 0303      | 王强  | 12
      4   | 0401      | 李明  | 11)");
  ledger.fill("Enter", R"(
      lId | sEnterId | sEnterName
      1   | K02      | 江源
      2   | K01      | 江源
      3   | K03      | 宏达)");
  ledger.fill("ProjClass", "lId | sItemId | sName\n 1 | RD | 研发");
  ledger.fill("ProjItems", R"(
      lId | sItemId | nField | sTitle   | sType
      1   | RD      | 0      | 项目编号 | 3
      2   | RD      | 1      | 项目名称 | 3)");
  ledger.makeItemTable("RD");
  ledger.fill("ProjItemsRD", "lId | FIELD0 | FIELD1\n 1 | R2 | 新机型\n 2 | R1 | 新机型");
  ledger.fill("ProjCodes", "lId | sItemId | lCodeId\n 1 | RD | 3");
  ledger.fill("AssAcc", R"(
      lId | lCodeId | lDeptId | lPersonId | lEnterId | lItemId | sItemId | byPeroid | mBegin
      1   | 1       | 12      | 1         | 0        | 0       |         | 1        | 10
      2   | 1       | 12      | 2         | 0        | 0       |         | 1        | 20
      3   | 1       | 11      | 4         | 0        | 0       |         | 1        | 40
      4   | 2       | 0       | 0         | 1        | 0       |         | 1        | 100
      5   | 2       | 0       | 0         | 2        | 0       |         | 1        | 200
      6   | 3       | 0       | 0         | 0        | 1       | RD      | 1        | 1000
      7   | 3       | 0       | 0         | 0        | 2       | RD      | 1        | 2000)");
}

// Records besides whose names meet as well, those among them that bear the words for all and for none.
inline void fillOddNames(TestLedger& ledger) {
  ledger.fill("Code", "lId | sCode | sName | bEnd | bDirect | sAssBook\n 4 | 5001 | 生产成本 | 1 | 1 | CD");
  ledger.fill("Dept", "lId | lDeptId | sDeptId | sDeptName\n 4 | 14 | D4 | 全部");
  ledger.fill("EnterClass", "lId | sName\n 1 | 客户\n 2 | 客户\n 3 | 其它");
  ledger.fill("ProjClass", "lId | sItemId | sName\n 2 | 01 | 研发");
  ledger.fill("ProjItems", R"(
      lId | sItemId | nField | sTitle   | sType
      3   | 01      | 0      | 项目编号 | 3
      4   | 01      | 1      | 项目名称 | 3)");
  ledger.makeItemTable("01");
  ledger.fill("ProjItems01", "lId | FIELD0 | FIELD1\n 1 | R1 | 厂房");
  ledger.fill("ProjCodes", "lId | sItemId | lCodeId\n 2 | 01 | 3\n 3 | RD | 4\n 4 | 01 | 4");
  ledger.fill("UnregMain", "lTieId | byPeroid | dtBill | dtDate\n 1 | 1 | 2006-01-05 | 2006-01-05");
  ledger.fill("UnregSub", R"(
      lId | lTieId | lCodeId | lEnterId | sName | mMoney | bDirect | dtDate
      1   | 1      | 2       | 1        | 其它  | 80     | 1       | 2006-01-05
      2   | 1      | 2       | 2        | 王强  | 70     | 1       | 2006-01-05)");
}

}  // namespace tz::test
