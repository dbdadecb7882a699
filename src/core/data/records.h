// The records of a ledger, one per table, fields in the order of the ledger contract. columns() lists every field with
// its name once; reading, writing, creating the tables and copying a ledger all go by it. Prefixes tell the meaning:
// l id, s text, m money in home currency, d quantity or rate, by/b/n small number, flag, number, dt date.
#pragma once

#include <cstdint>
#include <string>

#include "core/data/value.h"

// columns(self, visit) calls visit("name", field) for every field in order.
#define TZ_COLUMNS(...)                            \
  template <class Self, class Visit>               \
  static void columns(Self& self, Visit&& visit) { \
    __VA_ARGS__                                    \
  }
#define TZ_COLUMN(name) visit(#name, self.name);

namespace tz {

using Id = std::int64_t;

// The chart of accounts. bDirect: nonzero = debit balance. sAssBook: any of A person, B unit, C department, D project.
struct CodeInfo {
  static constexpr const char* table = "Code";
  Id lId = 0;
  std::string sCode, sName;
  int byGrade = 0, bEnd = 0, bDirect = 0;
  std::string sAssBook;
  Id lDeptId = 0;
  std::string sUnit;
  int byExchId = 0, bLock = 0, byKind = 0;

  [[nodiscard]] bool keeps(char flag) const { return sAssBook.find(flag) != std::string::npos; }
  TZ_COLUMNS(TZ_COLUMN(lId) TZ_COLUMN(sCode) TZ_COLUMN(sName) TZ_COLUMN(byGrade) TZ_COLUMN(bEnd) TZ_COLUMN(bDirect)
                 TZ_COLUMN(sAssBook) TZ_COLUMN(lDeptId) TZ_COLUMN(sUnit) TZ_COLUMN(byExchId) TZ_COLUMN(bLock)
                     TZ_COLUMN(byKind))
};

struct DeptInfo {
  static constexpr const char* table = "Dept";
  Id lId = 0, lDeptId = 0;
  std::string sDeptId, sDeptName;
  TZ_COLUMNS(TZ_COLUMN(lId) TZ_COLUMN(lDeptId) TZ_COLUMN(sDeptId) TZ_COLUMN(sDeptName))
};

struct PersonInfo {
  static constexpr const char* table = "Person";
  Id lId = 0;
  std::string sPersonId, sName;
  Id lDeptId = 0;
  TZ_COLUMNS(TZ_COLUMN(lId) TZ_COLUMN(sPersonId) TZ_COLUMN(sName) TZ_COLUMN(lDeptId))
};

struct EnterClassInfo {
  static constexpr const char* table = "EnterClass";
  Id lId = 0;
  std::string sName;
  TZ_COLUMNS(TZ_COLUMN(lId) TZ_COLUMN(sName))
};

// A unit: customer or supplier. mCredit 0 = no credit limit.
struct EnterInfo {
  static constexpr const char* table = "Enter";
  Id lId = 0;
  std::string sEnterId, sEnterName;
  Id lClassId = 0;
  double mCredit = 0;
  std::string sAddress, sContact, sPhone;
  TZ_COLUMNS(TZ_COLUMN(lId) TZ_COLUMN(sEnterId) TZ_COLUMN(sEnterName) TZ_COLUMN(lClassId) TZ_COLUMN(mCredit)
                 TZ_COLUMN(sAddress) TZ_COLUMN(sContact) TZ_COLUMN(sPhone))
};

// Auxiliary balance of one leaf account, one combination of dimensions and one period; openings in the account's own
// direction.
struct AssAccInfo {
  static constexpr const char* table = "AssAcc";
  Id lId = 0, lCodeId = 0, lDeptId = 0, lPersonId = 0, lEnterId = 0, lItemId = 0;
  std::string sItemId;
  int byPeroid = 0;
  double mBegin = 0;
  int bBegin = 0;
  double dBegin = 0, mBeginFor = 0, mDebit = 0, mCredit = 0, dDebit = 0, dCredit = 0, mDebitFor = 0, mCreditFor = 0;
  TZ_COLUMNS(TZ_COLUMN(lId) TZ_COLUMN(lCodeId) TZ_COLUMN(lDeptId) TZ_COLUMN(lPersonId) TZ_COLUMN(lEnterId)
                 TZ_COLUMN(lItemId) TZ_COLUMN(sItemId) TZ_COLUMN(byPeroid) TZ_COLUMN(mBegin) TZ_COLUMN(bBegin)
                     TZ_COLUMN(dBegin) TZ_COLUMN(mBeginFor) TZ_COLUMN(mDebit) TZ_COLUMN(mCredit) TZ_COLUMN(dDebit)
                         TZ_COLUMN(dCredit) TZ_COLUMN(mDebitFor) TZ_COLUMN(mCreditFor))
};

// A voucher head. dtBill voucher date, dtDate entry date.
struct RegMainInfo {
  static constexpr const char* table = "RegMain";
  Id lTieId = 0;
  int byPeroid = 0;
  Date dtBill, dtDate;
  std::string sWord;
  int nNumber = 0, nAttach = 0;
  std::string sMaker, sChecker, sPoster;
  TZ_COLUMNS(TZ_COLUMN(lTieId) TZ_COLUMN(byPeroid) TZ_COLUMN(dtBill) TZ_COLUMN(dtDate) TZ_COLUMN(sWord)
                 TZ_COLUMN(nNumber) TZ_COLUMN(nAttach) TZ_COLUMN(sMaker) TZ_COLUMN(sChecker) TZ_COLUMN(sPoster))
};
struct UnregMainInfo : RegMainInfo {
  static constexpr const char* table = "UnregMain";
};

// A voucher line. Figures are positive on the side that bDirect names, negative for a red entry. byFlag: 0 open,
// 1 cleared by hand, 2 cleared automatically.
struct RegSubInfo {
  static constexpr const char* table = "RegSub";
  Id lId = 0, lTieId = 0, lCodeId = 0, lDeptId = 0, lPersonId = 0, lEnterId = 0, lItemId = 0;
  std::string sItemId;
  double mMoney = 0;
  int bDirect = 0;
  double dAmount = 0, mForeign = 0, dFrat = 0;
  int byExchId = 0;
  std::string sDigest, sName;
  int byFlag = 0;
  std::string sBusiness;
  Date dtDate;
  TZ_COLUMNS(TZ_COLUMN(lId) TZ_COLUMN(lTieId) TZ_COLUMN(lCodeId) TZ_COLUMN(lDeptId) TZ_COLUMN(lPersonId)
                 TZ_COLUMN(lEnterId) TZ_COLUMN(lItemId) TZ_COLUMN(sItemId) TZ_COLUMN(mMoney) TZ_COLUMN(bDirect)
                     TZ_COLUMN(dAmount) TZ_COLUMN(mForeign) TZ_COLUMN(dFrat) TZ_COLUMN(byExchId) TZ_COLUMN(sDigest)
                         TZ_COLUMN(sName) TZ_COLUMN(byFlag) TZ_COLUMN(sBusiness) TZ_COLUMN(dtDate))
};
struct UnregSubInfo : RegSubInfo {
  static constexpr const char* table = "UnregSub";
};

// A project class; sItemId is the class id, letters and digits.
struct ProjClassInfo {
  static constexpr const char* table = "ProjClass";
  Id lId = 0;
  std::string sItemId, sName;
  TZ_COLUMNS(TZ_COLUMN(lId) TZ_COLUMN(sItemId) TZ_COLUMN(sName))
};

// A field of a project class. sType "5" settlement, "3" text, "4" date, others numbers.
struct ProjItemsInfo {
  static constexpr const char* table = "ProjItems";
  Id lId = 0;
  std::string sItemId;
  int nField = 0;
  std::string sTitle, sType;
  TZ_COLUMNS(TZ_COLUMN(lId) TZ_COLUMN(sItemId) TZ_COLUMN(nField) TZ_COLUMN(sTitle) TZ_COLUMN(sType))
};

struct ProjCodesInfo {
  static constexpr const char* table = "ProjCodes";
  Id lId = 0, lCodeId = 0;
  std::string sItemId;
  TZ_COLUMNS(TZ_COLUMN(lId) TZ_COLUMN(lCodeId) TZ_COLUMN(sItemId))
};

// mPPlan planned, mPFact last year's actual, mPLast last year's planned amount; all rounded to four decimals.
struct PlanInfo {
  static constexpr const char* table = "Plan";
  Id lId = 0, lCodeId = 0, lDeptId = 0, lItemId = 0;
  std::string sItemId;
  int byPeroid = 0;
  double mPPlan = 0, mPFact = 0, mPLast = 0;
  TZ_COLUMNS(TZ_COLUMN(lId) TZ_COLUMN(lCodeId) TZ_COLUMN(lDeptId) TZ_COLUMN(lItemId) TZ_COLUMN(sItemId)
                 TZ_COLUMN(byPeroid) TZ_COLUMN(mPPlan) TZ_COLUMN(mPFact) TZ_COLUMN(mPLast))
};

// An aging interval: byType 0 persons, 1 units; lLength in days.
struct AgesInfo {
  static constexpr const char* table = "Ages";
  Id lId = 0;
  int byType = 0, nNumber = 0;
  Id lLength = 0;
  TZ_COLUMNS(TZ_COLUMN(lId) TZ_COLUMN(byType) TZ_COLUMN(nNumber) TZ_COLUMN(lLength))
};

// bConvert 1: home = foreign × rate; 0: home = foreign ÷ rate.
struct CyrencyInfo {
  static constexpr const char* table = "Cyrency";
  Id lId = 0;
  int byExchId = 0;
  std::string sName;
  int bConvert = 0;
  TZ_COLUMNS(TZ_COLUMN(lId) TZ_COLUMN(byExchId) TZ_COLUMN(sName) TZ_COLUMN(bConvert))
};

struct ExchgFixInfo {
  static constexpr const char* table = "ExchgFix";
  Id lId = 0;
  int byExchId = 0;
  double dFrat = 0;
  TZ_COLUMNS(TZ_COLUMN(lId) TZ_COLUMN(byExchId) TZ_COLUMN(dFrat))
};

struct ExchgFltInfo {
  static constexpr const char* table = "ExchgFlt";
  Id lId = 0;
  int byExchId = 0;
  Date dtDate;
  double dFrat = 0;
  TZ_COLUMNS(TZ_COLUMN(lId) TZ_COLUMN(byExchId) TZ_COLUMN(dtDate) TZ_COLUMN(dFrat))
};

// The account set. sCodeScheme: one digit per code level ("4222"); nYear the account year.
struct zAccountMInfo {
  static constexpr const char* table = "zAccountM";
  Id lId = 0;
  std::string sName, sCodeScheme;
  int nYear = 0;
  TZ_COLUMNS(TZ_COLUMN(lId) TZ_COLUMN(sName) TZ_COLUMN(sCodeScheme) TZ_COLUMN(nYear))
};

struct zOperatorInfo {
  static constexpr const char* table = "zOperator";
  Id lId = 0;
  std::string sName, sPassHash;
  int bAll = 0;
  TZ_COLUMNS(TZ_COLUMN(lId) TZ_COLUMN(sName) TZ_COLUMN(sPassHash) TZ_COLUMN(bAll))
};

struct zRightInfo {
  static constexpr const char* table = "zRight";
  Id lOperatorId = 0;
  int nRight = 0;
  TZ_COLUMNS(TZ_COLUMN(lOperatorId) TZ_COLUMN(nRight))
};

// One change of a two-clearing mark. sWhen UTC, ISO 8601.
struct MarkLogInfo {
  static constexpr const char* table = "MarkLog";
  Id lId = 0, lTieId = 0, lLineId = 0;
  int byOld = 0, byNew = 0;
  std::string sOperator, sWhen, sBatch;
  TZ_COLUMNS(TZ_COLUMN(lId) TZ_COLUMN(lTieId) TZ_COLUMN(lLineId) TZ_COLUMN(byOld) TZ_COLUMN(byNew) TZ_COLUMN(sOperator)
                 TZ_COLUMN(sWhen) TZ_COLUMN(sBatch))
};

// One project item of a class: the row of its item table, fields from FIELD0 (code) and FIELD1 (name) on, as text.
struct ItemInfo {
  Id lId = 0;
  std::vector<std::string> fields;
};

// visit.template operator()<Record>() for every table of the contract, in its order.
template <class Visit>
void forEachRecord(Visit&& visit) {
  const auto all = [&]<class... Records>() { (visit.template operator()<Records>(), ...); };
  all.template
  operator()<CodeInfo, DeptInfo, PersonInfo, EnterClassInfo, EnterInfo, AssAccInfo, RegMainInfo, UnregMainInfo,
             RegSubInfo, UnregSubInfo, ProjClassInfo, ProjItemsInfo, ProjCodesInfo, PlanInfo, AgesInfo, CyrencyInfo,
             ExchgFixInfo, ExchgFltInfo, zAccountMInfo, zOperatorInfo, zRightInfo, MarkLogInfo>();
}

}  // namespace tz

#undef TZ_COLUMNS
#undef TZ_COLUMN
