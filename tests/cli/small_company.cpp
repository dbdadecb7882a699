#include "cli/small_company.h"

#include <algorithm>
#include <fstream>
#include <iterator>

#include "core/data/record_io.h"

namespace tz::test {
namespace {

RegSubInfo line(Id id, Id voucher, double money, bool debit, const std::string& summary, Date day) {
  RegSubInfo record;
  record.lId = id;
  record.lTieId = voucher;
  record.lCodeId = 1;
  record.lDeptId = 1;
  record.lPersonId = 1;
  record.mMoney = money;
  record.bDirect = debit ? 1 : 0;
  record.sDigest = summary;
  record.dtDate = day;
  return record;
}

}  // namespace

void fillSmallCompany(Connection& keeper, int lines) {
  Transaction writing(keeper, Transaction::Purpose::writing);
  insertRecords(keeper, std::vector{CodeInfo{1, "113301", "备用金", 2, 1, 1, "A"}});
  insertRecords(keeper, std::vector{DeptInfo{1, 1, "D1", "销售部"}});
  insertRecords(keeper, std::vector{PersonInfo{1, "P1", "张三", 1}});
  insertRecords(keeper, std::vector{zAccountMInfo{1, "小公司", "4222", 2006}});
  AssAccInfo balance;
  balance.lId = balance.lCodeId = balance.lDeptId = balance.lPersonId = 1;
  balance.byPeroid = 1;
  balance.mBegin = 500;
  insertRecords(keeper, std::vector{balance});
  const Date day{2006, 1, 5};
  insertRecords(keeper, std::vector{RegMainInfo{1, 1, day, day, "记", 1}});
  std::vector records = {line(1, 1, 1000, true, "预借差旅费", day), line(2, 1, 600, false, "报销差旅费", day)};
  for (Id i = 0; i < lines; ++i) records.push_back(line(3 + i, 1, 0.01, true, "零星借款", day));
  insertRecords(keeper, records);
  UnregSubInfo unposted{line(1, 2, 50, true, "尚未记帐", day)};
  RegMainInfo head{2, 1, day, day, "记", 2};
  insertRecords(keeper, std::vector{UnregMainInfo{head}});
  insertRecords(keeper, std::vector{unposted});
  writing.commit();
}

std::vector<std::string> smallReportWords(const std::string& address, const std::vector<std::string>& more) {
  std::vector<std::string> words = {"report", "10190", "--ledger", address, "--account", "113301", "--dept", "销售部"};
  for (const char* word : {"--person", "张三", "--unposted"}) words.emplace_back(word);
  words.insert(words.end(), more.begin(), more.end());
  return words;
}

ProgramRun smallReport(const std::string& address, const std::vector<std::string>& more,
                       const std::vector<std::string>& settings) {
  return runProgram(smallReportWords(address, more), settings);
}

std::string fileBytes(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::string> namesIn(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) names.push_back(entry.path().filename());
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace tz::test
