// CInitComboFun: what the combo boxes of conditions and windows offer: texts in order, each with the id that it stands
// for. The windows show these lists; the command line tests its options against them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/data/amount_format.h"
#include "core/data/get_data.h"
#include "core/data/qncw_db.h"

namespace tz {

struct ComboEntry {
  std::string text;
  Id datum = 0;
  std::string beside = {};  // the code of a name, for whoever shows both
};
using ComboList = std::vector<ComboEntry>;

// The entry whose text equals `text`, else the first one, else -1 for an empty list.
[[nodiscard]] int preselected(const ComboList& list, std::string_view text);

// What an account keeps besides amounts, and the amount formats that follow from it.
struct AccountAmounts {
  int direction = 1;                                      // 1 debit, 0 credit balance account
  std::string unit;                                       // quantity unit, empty = no quantities
  std::string currency;                                   // foreign currency, empty = home currency only
  int rateMethod = 1;                                     // 1: rate = amount ÷ foreign, else foreign ÷ amount
  std::vector<AmountFormat> formats;                      // those whose figures it keeps, "外币式" apart
  AmountFormat preselectedFormat = AmountFormat::amount;  // the richest one; without one account the plainest
};

inline constexpr std::string_view allMembers = "全部";
inline constexpr std::string_view otherMembers = "其它";

// A member of an archive, for a list of names.
struct NamedMember {
  std::string code, name;
  Id id = 0;
};
// Their names; where several bear one name, code and name, so that they can be told apart.
[[nodiscard]] ComboList toldApart(const std::vector<NamedMember>& members);

struct CInitComboFun {
  // Accounts that meet a condition on Code, as "code name" and as "code<tab>name"; the datum is the account's id.
  [[nodiscard]] static ComboList InitCodeComb_1Blank(const CQnCwDB& db, const Sql& where);
  [[nodiscard]] static ComboList InitCodeComb_2Tab(const CQnCwDB& db, const Sql& where);
  // Departments by code ("lId > 0 ORDER BY sDeptId"); the datum is the id that lines carry.
  [[nodiscard]] static ComboList InitPartNameCombox(const CQnCwDB& db);
  // The persons of a department by code.
  [[nodiscard]] static ComboList InitNameCombox(const CQnCwDB& db, Id deptId);
  // The units by code.
  [[nodiscard]] static ComboList InitEnterCombox(const CQnCwDB& db);
  // Unit classes, "其它" for units without one last.
  [[nodiscard]] static ComboList InitEnterClassCombox(const CQnCwDB& db);
  // Project classes; the datum is the place of the class in the list, the text is "id name".
  [[nodiscard]] static ComboList InitItemClassCombox(const CQnCwDB& db);
  // Direction, unit, currency and rate method of an account and the formats that it allows.
  [[nodiscard]] static AccountAmounts InitAmountCombox(CGetData& data, std::string_view codeText);
  // The twelve months of an account year as "2006.01"; the datum is the month.
  [[nodiscard]] static ComboList InitMonthCombox(int year);
  // The months that can be last once `first` is chosen.
  [[nodiscard]] static ComboList MonthEdComboReset(int year, int first);
};

}  // namespace tz
