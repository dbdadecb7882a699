// A ledger with lines for the person three-column detail ledger, open as the desktop opens it, and a report that tests
// can count, slow down and stop.
#pragma once

#include "core/catalogue/catalogue.h"
#include "core/output/report_output.h"
#include "core/reports/cancellation.h"
#include "desktop/frame/globals.h"
#include "desktop/report/report_window.h"
#include "desktop/support/window_script.h"
#include "support/test_ledger.h"

namespace tz::test {

class ReportLedger {
 public:
  explicit ReportLedger(bool withAccounts = true) : ledger_(Engine::sqlite) {
    if (withAccounts) FillAccounts();
    FillMembers();
    FillVouchers();
    db_.Open(ledger_.address());
    g_pDB = &db_;
    g_lpszQnZwDBName = ledger_.address();
    g_tmLogonTime = {2006, 3, 31};
  }
  ReportLedger(const ReportLedger&) = delete;
  ReportLedger& operator=(const ReportLedger&) = delete;
  ~ReportLedger() { g_pDB = nullptr; }

  [[nodiscard]] TestLedger& ledger() { return ledger_; }
  // 张三 of the sales department, January to March, unposted vouchers included.
  [[nodiscard]] static Request zhangSan(std::string_view account = "122101") {
    Request request;
    request.set(ParameterKey::account, account);
    request.set(ParameterKey::dept, "销售部");
    request.set(ParameterKey::person, "张三");
    request.set(ParameterKey::from, "1");
    request.set(ParameterKey::to, "3");
    request.set(ParameterKey::unposted, "1");
    return request;
  }
  // What the core computes, as JSON.
  [[nodiscard]] std::string computed(const Request& request) {
    Session session{.db = db_, .ledger = ledger_.address(), .logon = g_tmLogonTime};
    return json(std::get<ComputedReport>(runReport(*findReport(10190), request, session)));
  }
  [[nodiscard]] static std::string json(const ComputedReport& report) {
    std::string text;
    writeJson(report, [&text](std::string_view piece) {
      text += piece;
      return true;
    });
    return text;
  }

 private:
  void FillAccounts() {
    ledger_.fill("Code", R"(
        lId | sCode  | sName    | bEnd | bDirect | sAssBook | sUnit | byExchId
        1   | 122101 | 职工借款 | 1    | 1       | A        |       | 0
        2   | 122104 | 工具款   | 1    | 1       | A        | 套    | 0
        3   | 122105 | 样机款   | 1    | 1       | A        | 台    | 1 )");
    ledger_.fill("Cyrency", R"(
        lId | byExchId | sName | bConvert
        1   | 1        | 美元  | 1 )");
  }
  void FillMembers() {
    ledger_.fill("Dept", R"(
        lId | lDeptId | sDeptId | sDeptName
        1   | 1       | D1      | 销售部
        2   | 2       | D2      | 采购部
        3   | 3       | D3      | 财务部 )");
    ledger_.fill("Person", R"(
        lId | sPersonId | sName | lDeptId
        1   | P1        | 张三  | 1
        2   | P2        | 李四  | 1
        3   | P3        | 赵六  | 2 )");
    ledger_.fill("AssAcc", R"(
        lId | lCodeId | lDeptId | lPersonId | byPeroid | mBegin
        1   | 1       | 1       | 1         | 1        | 100
        2   | 1       | 2       | 3         | 1        | 700
        3   | 3       | 1       | 1         | 1        | 50 )");
  }
  void FillVouchers() {
    ledger_.fill("RegMain", R"(
        lTieId | byPeroid | dtBill     | dtDate     | sWord | nNumber
        1      | 1        | 2006-01-05 | 2006-01-05 | 记    | 1
        2      | 2        | 2006-02-06 | 2006-02-06 | 记    | 2 )");
    ledger_.fill("RegSub", R"(
        lId | lTieId | lCodeId | lDeptId | lPersonId | mMoney | bDirect | sDigest | dtDate
        1   | 1      | 1       | 1       | 1         | 1000   | 1       | 借款    | 2006-01-05
        2   | 2      | 1       | 1       | 1         | 300.5  | 0       | 还款    | 2006-02-06 )");
    ledger_.fill("UnregMain", R"(
        lTieId | byPeroid | dtBill     | dtDate     | sWord | nNumber
        3      | 3        | 2006-03-07 | 2006-03-07 | 记    | 3 )");
    ledger_.fill("UnregSub", R"(
        lId | lTieId | lCodeId | lDeptId | lPersonId | mMoney | bDirect | sDigest | dtDate
        1   | 3      | 1       | 1       | 1         | 20     | 1       | 未记帐  | 2006-03-07 )");
  }

  TestLedger ledger_;
  CQnCwDB db_{Access::report};
};

// The person three-column detail ledger, counting how often it is computed.
struct CountedReport {
  static inline int runs = 0;
  // Before the computation; empty for none.
  static inline std::function<void(Session&)> before;

  CountedReport() : definition(*findReport(10190)) {
    runs = 0;
    before = {};
    definition.compute = [](const ReportDefinition&, Session& session, const Conditions& conditions,
                            ComputedReport& computed) {
      ++runs;
      if (before) before(session);
      const auto& real = *findReport(10190);
      real.compute(real, session, conditions, computed);
    };
  }
  ReportDefinition definition;
};

// Computes until somebody stops it, at most some seconds.
inline void untilStopped(Session& session) {
  QElapsedTimer time;
  time.start();
  constexpr int longest = 20'000;
  for (std::int64_t done = 1; time.elapsed() < longest; ++done) {
    session.progress(done, 0);
    if (session.cancelled()) throw CancelledWork{};
  }
  ADD_FAILURE() << "nobody stopped the work";
}

// Deletes what has asked to be deleted later.
inline void deleteClosed() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

}  // namespace tz::test
