// A small ledger of persons, opened as the windows open it.
#pragma once

#include "core/data/qncw_db.h"
#include "core/reports/session.h"
#include "support/test_ledger.h"

namespace tz::test {

class PersonLedger {
 public:
  PersonLedger() : ledger_(Engine::sqlite) {
    ledger_.fill("Code", R"(
          lId | sCode  | sName      | bEnd | bDirect | sAssBook
          1   | 1221   | 其他应收款 | 0    | 1       | A
          2   | 122101 | 职工借款   | 1    | 1       | A
          3   | 122102 | 备用金     | 1    | 1       | A
          4   | 660101 | 差旅费     | 1    | 1       | AC
          5   | 1002   | 银行存款   | 1    | 1       |)");
    ledger_.fill("Dept", R"(
        lId | lDeptId | sDeptId | sDeptName
        1   | 11      | 01      | 总经理办公室
        2   | 12      | 02      | 销售部
        3   | 13      | 0201    | 销售一部
        4   | 14      | 03      | 财务部
        5   | 15      | 04      | 采购部
        6   | 16      | 05      | O'Brien'; DROP TABLE Plan --)");
    ledger_.fill("Person", R"(
        lId | sPersonId | sName | lDeptId
        1   | P01       | 张三  | 12
        2   | P02       | 李四  | 12
        3   | P03       | 王重阳 | 14
        4   | P04       | 张三  | 15
        5   | P05       | 赵六  | 15
        6   | P06       | <b>孙七</b> | 99)");
    ledger_.fill("AssAcc", R"(
        lId | lCodeId | lDeptId | lPersonId | byPeroid | mBegin
        1   | 2       | 12      | 1         | 1        | 500)");
    ledger_.fill("UnregMain", R"(
        lTieId | byPeroid | dtBill     | dtDate
        1      | 3        | 2006-03-05 | 2006-03-05)");
    ledger_.fill("UnregSub", R"(
        lId | lTieId | lCodeId | lDeptId | lPersonId | mMoney | bDirect | dtDate
        1   | 1      | 2       | 15      | 5         | 80     | 1       | 2006-03-05)");
    db.Open(ledger_.address());
  }

  [[nodiscard]] TestLedger& ledger() { return ledger_; }
  CQnCwDB db;
  Session session() { return {.db = db, .ledger = ledger_.address(), .logon = {2006, 3, 15}}; }

 private:
  TestLedger ledger_;
};

}  // namespace tz::test
