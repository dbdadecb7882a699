#include "core/ledger/naive_reports.h"

namespace tz::test::naive {
namespace {

using enum Entity;
using enum Order;

const std::vector<Report> personReports = {
    {.id = 10184, .accounts = {Accounts::any, "A"}, .some = "dp", .groups = {dept, person}},
    {.id = 10186,
     .accounts = {Accounts::any, "A"},
     .dept = Dept::personsActive,
     .chosen = "d",
     .some = "p",
     .groups = {person}},
    {.id = 10188,
     .accounts = {Accounts::none, ""},
     .dept = Dept::active,
     .person = true,
     .chosen = "dp",
     .groups = {account}},
    {.id = 10190, .accounts = {Accounts::any, "A"}, .dept = Dept::active, .person = true, .chosen = "dp"},
    {.id = 10191,
     .accounts = {Accounts::parent, "A"},
     .dept = Dept::active,
     .person = true,
     .chosen = "dp",
     .onlyRealOpenings = true,
     .columns = true},
};

const std::vector<Report> personBalanceReports = {
    {.id = 10183,
     .accounts = {Accounts::any, "A"},
     .some = "dp",
     .groups = {dept, person},
     .family = Family::balance,
     .keys = "0n1n",
     .earlierUnposted = true,
     .amounts = true},
    {.id = 10185,
     .accounts = {Accounts::any, "A"},
     .dept = Dept::personsActive,
     .chosen = "d",
     .some = "p",
     .groups = {person},
     .family = Family::balance,
     .keys = "0n",
     .amounts = true},
    {.id = 10187,
     .accounts = {Accounts::none, ""},
     .dept = Dept::active,
     .person = true,
     .chosen = "dp",
     .groups = {account},
     .family = Family::balance,
     .personActive = false,
     .keys = "0c0n",
     .amounts = true},
    {.id = 10189,
     .accounts = {Accounts::any, "A"},
     .dept = Dept::active,
     .person = true,
     .chosen = "dp",
     .family = Family::periods,
     .personActive = false,
     .yearTotals = true,
     .months = false},
};

const std::vector<Report> unitBalanceReports = [] {
  std::vector<Report> reports = {
      {.id = 10196, .accounts = {Accounts::any, "B"}, .some = "u", .groups = {account}, .keys = "0c0n", .byCode = true},
      {.id = 10197, .accounts = {Accounts::none, ""}, .unit = true, .chosen = "u", .groups = {account}, .keys = "0c0n"},
      {.id = 10198,
       .accounts = {Accounts::any, "B"},
       .some = "u",
       .groups = {unitClass},
       .keys = "0n",
       .unitClassesNeeded = true},
      {.id = 10199, .accounts = {Accounts::any, "B"}, .some = "u", .groups = {dept}, .keys = "0n"},
      {.id = 10200,
       .accounts = {Accounts::any, "B"},
       .unitOrAll = true,
       .chosen = "U",
       .some = "ui",
       .groups = {unit, project},
       .keys = "0n1n",
       .turns = true,
       .groupsClose = true},
      {.id = 10202,
       .accounts = {Accounts::any, "B"},
       .some = "u",
       .groups = {clerk},
       .keys = "0n",
       .opening = OpeningOf::lines},
  };
  for (auto& report : reports) {
    report.family = Family::balance;
    report.earlierUnposted = report.amounts = report.limits = true;
  }
  reports.push_back({.id = 10201,
                     .accounts = {Accounts::any, "B"},
                     .unit = true,
                     .chosen = "u",
                     .family = Family::periods,
                     .yearTotals = true,
                     .limits = true});
  return reports;
}();

const std::vector<Report> unitReports = {
    {.id = 10203,
     .accounts = {Accounts::any, "B"},
     .some = "u",
     .groups = {unit},
     .order = {entryDateAndVoucher, entryDateAndVoucher}},
    {.id = 10204,
     .accounts = {Accounts::list, "B alone"},
     .unit = true,
     .chosen = "u",
     .groups = {account},
     .onlyRealOpenings = true,
     .onlyMetAccounts = true,
     .order = {voucher, voucher}},
    {.id = 10205,
     .accounts = {Accounts::any, "B"},
     .unitClass = true,
     .some = "u",
     .groups = {unit},
     .order = {entryDateAndVoucher, entryDateAndVoucher}},
    {.id = 10206,
     .accounts = {Accounts::any, "B"},
     .dept = Dept::ofList,
     .chosen = "d",
     .some = "u",
     .groups = {unit},
     .onlyRealOpenings = true,
     .order = {entryDateAndVoucher, entryDateAndVoucher}},
    {.id = 10207,
     .accounts = {Accounts::any, "B"},
     .some = "ui",
     .groups = {project, unit},
     .order = {entryDateAndVoucher, entryDateAndVoucher}},
    {.id = 10208,
     .accounts = {Accounts::any, "B"},
     .unit = true,
     .chosen = "u",
     .order = {entryDateAndVoucher, entryDate}},
    {.id = 10209,
     .accounts = {Accounts::parent, "B"},
     .unit = true,
     .chosen = "u",
     .columns = true,
     .order = {entryDateAndVoucher, entryDate}},
    {.id = 10210,
     .accounts = {Accounts::any, "B"},
     .clerk = true,
     .some = "u",
     .groups = {unit},
     .order = {entryDateAndVoucher, entryDateAndVoucher}},
};

const std::vector<Report> projectReports = {
    {.id = 10219,
     .accounts = {Accounts::any, "D"},
     .classOfAccount = true,
     .some = "i",
     .groups = {project},
     .onlyRealOpenings = true,
     .order = {voucher, entryDate}},
    {.id = 10220,
     .accounts = {Accounts::list, "D"},
     .dept = Dept::orAll,
     .classesNeeded = true,
     .project = true,
     .chosen = "Di",
     .onlyRealOpenings = true,
     .order = {voucher, entryDate}},
    {.id = 10221,
     .accounts = {Accounts::any, "D"},
     .classesNeeded = true,
     .project = true,
     .classNamed = true,
     .chosen = "i",
     .onlyRealOpenings = true,
     .order = {voucher, entryDate}},
    {.id = 10222,
     .accounts = {Accounts::any, "CD"},
     .dept = Dept::orAll,
     .classOfAccount = true,
     .chosen = "D",
     .some = "di",
     .groups = {dept, project},
     .onlyRealOpenings = true,
     .order = {voucher, entryDate}},
    {.id = 10223,
     .accounts = {Accounts::parent, "D"},
     .dept = Dept::orAll,
     .classesNeeded = true,
     .project = true,
     .chosen = "Di",
     .onlyRealOpenings = true,
     .columns = true,
     .order = {voucher, entryDate}},
};

const std::vector<Report> deptReports = {
    {.id = 10229,
     .accounts = {Accounts::any, "C"},
     .some = "d",
     .groups = {dept},
     .order = {voucher, entryDateAndVoucher}},
    {.id = 10230,
     .accounts = {Accounts::none, "C"},
     .dept = Dept::given,
     .chosen = "d",
     .groups = {account},
     .order = {voucher, entryDateAndVoucher}},
    {.id = 10231,
     .accounts = {Accounts::leaf, "C"},
     .dept = Dept::given,
     .chosen = "d",
     .onlyRealOpenings = true,
     .order = {voucher, entryDate}},
    {.id = 10232,
     .accounts = {Accounts::parent, "C"},
     .dept = Dept::given,
     .chosen = "d",
     .fromYearsStart = true,
     .columns = true,
     .order = {entryDateAndVoucher, entryDate}},
};

const std::vector<Report> deptGeneralReports = {
    {.id = 10226,
     .accounts = {Accounts::any, "C"},
     .some = "d",
     .groups = {dept},
     .family = Family::balance,
     .keys = "0n",
     .opening = OpeningOf::latestRecord,
     .earlierUnposted = true},
    {.id = 10227,
     .accounts = {Accounts::none, "C"},
     .dept = Dept::given,
     .chosen = "d",
     .groups = {account},
     .family = Family::balance,
     .keys = "0c0n"},
    {.id = 10228,
     .accounts = {Accounts::any, "C"},
     .dept = Dept::given,
     .chosen = "d",
     .family = Family::periods,
     .months = false},
};

}  // namespace

const std::vector<Report>& allNaive() {
  static const auto all = [] {
    std::vector<Report> reports;
    // Each area has its own right.
    for (const auto& [right, area] : {std::pair(4, personReports),
                                      {3, personBalanceReports},
                                      {77, unitBalanceReports},
                                      {10, deptGeneralReports},
                                      {78, unitReports},
                                      {17, projectReports},
                                      {11, deptReports}}) {
      for (const auto& report : area) reports.emplace_back(report).right = right;
    }
    return reports;
  }();
  return all;
}

const Report* findNaive(int id) {
  for (const auto& report : allNaive()) {
    if (report.id == id) return &report;
  }
  return nullptr;
}

}  // namespace tz::test::naive
