#include "core/ledger/naive_reports.h"

namespace tz::test::naive {
namespace {

using enum Entity;
using enum Order;

constexpr const char* noActivity = "没有查到该部门的个人往来记录";
constexpr Name personDept = {"部门不能为空，请重新输入！", "非法的部门", noActivity};
constexpr Name spacedDept = {"部门不能为空, 请重新输入!", "非法的部门, 请重新输入!"};
constexpr const char* noUnitAccount = "没有符合条件的科目!";

const std::vector<Report> personReports = {
    {.id = 10184,
     .wording = {"个人往来明细帐", "\n科  目:{account}", "个人期初"},
     .accounts = {Accounts::any, "A", "没有个人核算科目，不能查询个人科目明细帐。"},
     .some = "dp",
     .groups = {{dept, "部门小计"}, {person, "个人小计"}}},
    {.id = 10186,
     .wording = {"部门明细帐", "科目：{account}\n部门：{dept}", "个人期初"},
     .accounts = {Accounts::any, "A", "没有个人核算科目,不能查询个人部门明细帐。"},
     .dept = {"部门不能为空，请重新输入！", "非法的部门！", noActivity},
     .chosen = "d",
     .some = "p",
     .groups = {{person, "个人小计"}}},
    {.id = 10188,
     .wording = {"个人明细帐", "部门：{dept}\n个人：{person}", "科目期初"},
     .accounts = {Accounts::none, ""},
     .dept = personDept,
     .person = true,
     .chosen = "dp",
     .groups = {{account, "科目小计"}}},
    {.id = 10190,
     .wording = {"三栏式明细帐", "科目：{account}\n部门：{dept}     个人：{person}", "个人期初"},
     .accounts = {Accounts::any, "A", "没有个人核算科目,不能查询个人三栏明细帐。"},
     .dept = personDept,
     .person = true,
     .chosen = "dp"},
    {.id = 10191,
     .wording = {"多栏式明细帐", "上级科目：{account}\n部    门：{dept}     个人：{person}", "部门期初"},
     .accounts = {Accounts::parent, "A", "不能查询个人多栏式明细帐。"},
     .dept = personDept,
     .person = true,
     .chosen = "dp",
     .onlyRealOpenings = true,
     .columns = true},
};

const std::vector<Report> unitReports = {
    {.id = 10203,
     .wording = {"单位往来_科目明细帐", "\n科  目: {account}", "单位期初"},
     .accounts = {Accounts::any, "B", noUnitAccount},
     .some = "u",
     .groups = {{unit, "小计"}},
     .order = {entryDateAndVoucher, entryDateAndVoucher}},
    {.id = 10204,
     .wording = {"单位明细帐", "\n单  位: {unit}", "科目期初"},
     .accounts = {Accounts::list, "B alone", "没有单位核算科目！"},
     .unit = {"单位不能为空", "非法的单位"},
     .chosen = "u",
     .groups = {{account, "科目小计"}},
     .onlyRealOpenings = true,
     .order = {voucher, voucher}},
    {.id = 10205,
     .wording = {"分类明细帐", "分  类: {unit class}\n科  目:{account}", "单位期初"},
     .accounts = {Accounts::any, "B", noUnitAccount},
     .some = "u",
     .groups = {{unit, "单位小计"}},
     .order = {entryDateAndVoucher, entryDateAndVoucher}},
    {.id = 10206,
     .wording = {"部门明细帐", "部  门: {dept}\n科  目:{account}", "单位期初"},
     .accounts = {Accounts::any, "B", noUnitAccount},
     .chosen = "d",
     .some = "u",
     .groups = {{unit, "单位小计"}},
     .onlyRealOpenings = true,
     .order = {entryDateAndVoucher, entryDateAndVoucher}},
    {.id = 10207,
     .wording = {"项目往来明细帐", "\n科  目: {account}", "单位期初"},
     .accounts = {Accounts::any, "B", noUnitAccount},
     .some = "ui",
     .groups = {{project, "项目小计"}, {unit, "单位小计"}},
     .order = {entryDateAndVoucher, entryDateAndVoucher}},
    {.id = 10208,
     .wording = {"三栏式明细帐", "单  位: {unit}\n科  目:{account}", "单位期初"},
     .accounts = {Accounts::any, "B", noUnitAccount},
     .unit = {"请输入单位", "非法的单位"},
     .chosen = "u",
     .order = {entryDateAndVoucher, entryDate}},
    {.id = 10209,
     .wording = {"单位往来多栏帐", "上级科目: {account}\n单    位:{unit}", "单位期初"},
     .accounts = {Accounts::parent, "B", "没有单位核算上级科目！"},
     .unit = {nullptr, "非法的单位"},
     .chosen = "u",
     .columns = true,
     .order = {entryDateAndVoucher, entryDate}},
    {.id = 10210,
     .wording = {"业务员明细帐", "业务员: {clerk}\n科 目:{account}", "单位期初"},
     .accounts = {Accounts::any, "B", noUnitAccount},
     .some = "u",
     .groups = {{unit, "单位小记"}},
     .order = {entryDateAndVoucher, entryDateAndVoucher}},
};

constexpr const char* noCode = "没有查到符合要求的科目编号。";
const std::vector<Report> projectReports = {
    {.id = 10219,
     .wording = {"项目科目明细帐", "\n科目：{account}", "项目期初"},
     .accounts = {Accounts::any, "D", noCode},
     .classOfAccount = true,
     .some = "i",
     .groups = {{project, "项目小计"}},
     .onlyRealOpenings = true,
     .order = {voucher, entryDate}},
    {.id = 10220,
     .wording = {"项目明细帐", "部  门：{dept}\n项  目：{project}", "项目期初"},
     .accounts = {Accounts::list, "D", noCode},
     .dept = {nullptr, "非法的部门名称."},
     .noClass = "请先定义项目大类!",
     .project = true,
     .chosen = "Di",
     .onlyRealOpenings = true,
     .order = {voucher, entryDate}},
    {.id = 10221,
     .wording = {"项目明细帐", "科  目：{account}\n项  目：{project}", "项目期初"},
     .accounts = {Accounts::any, "D", "没有查到符合要求的项目核算科目。"},
     .noClass = "请先定义项目大类",
     .project = true,
     .chosen = "i",
     .onlyRealOpenings = true,
     .order = {voucher, entryDate}},
    {.id = 10222,
     .wording = {"部门项目明细帐", "科  目：{account}\n部  门：{dept}", "期初"},
     .accounts = {Accounts::any, "CD", "没有查到符合要求的科目。"},
     .dept = {nullptr, "非法的部门名称."},
     .classOfAccount = true,
     .chosen = "D",
     .some = "di",
     .groups = {{dept, "部门小结"}, {project, "项目小结"}},
     .onlyRealOpenings = true,
     .order = {voucher, entryDate}},
    {.id = 10223,
     .wording = {"项目明细帐", "科  目：{account}\n项  目：{project}", "项目期初"},
     .accounts = {Accounts::parent, "D", noCode},
     .dept = {nullptr, "非法的部门名称."},
     .noClass = "请先定义项目大类!",
     .project = true,
     .chosen = "Di",
     .onlyRealOpenings = true,
     .columns = true,
     .order = {voucher, entryDate}},
};

const std::vector<Report> deptReports = {
    {.id = 10229,
     .wording = {"科目明细帐", "\n科目：{account}", "部门期初"},
     .accounts = {Accounts::any, "C", "没有部门核算科目！"},
     .some = "d",
     .groups = {{dept, "小计"}},
     .order = {voucher, entryDateAndVoucher}},
    {.id = 10230,
     .wording = {"部门明细帐", "\n部门：{dept}", "科目期初"},
     .accounts = {Accounts::none, "C"},
     .dept = spacedDept,
     .chosen = "d",
     .groups = {{account, "小计"}},
     .order = {voucher, entryDateAndVoucher}},
    {.id = 10231,
     .wording = {"部门三栏式明细帐", "科  目：{account}\n部  门：{dept}", "部门期初"},
     .accounts = {Accounts::leaf, "C", "没有部门核算科目！"},
     .dept = {"部门不能为空，请重新输入。", "没有该部门，请重新输入。"},
     .chosen = "d",
     .onlyRealOpenings = true,
     .order = {voucher, entryDate}},
    {.id = 10232,
     .wording = {"部门三栏明细帐", "上级科目:{account}\n部门:{dept}", "部门期初"},
     .accounts = {Accounts::parent, "C", "没有符合条件的的部门核算科目！"},
     .dept = spacedDept,
     .chosen = "d",
     .columns = true,
     .order = {entryDateAndVoucher, entryDate}},
};

}  // namespace

const std::vector<Report>& allNaive() {
  static const auto all = [] {
    std::vector<Report> reports;
    for (const auto& area : {personReports, unitReports, projectReports, deptReports}) {
      reports.insert(reports.end(), area.begin(), area.end());
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
