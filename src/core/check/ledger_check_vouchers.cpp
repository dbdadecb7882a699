// Voucher heads and lines, posted and unposted.
#include <cstdlib>
#include <fmt/format.h>
#include <tuple>

#include "core/check/ledger_check_movements.h"

namespace tz::check {
namespace {

struct Head {
  int period;
  Date entered;
  std::int64_t difference = 0;  // debits minus credits, in millionths
  std::int64_t size = 0;        // the sum of all lines, whatever their side and sign
};
using Heads = std::unordered_map<Id, Head>;
// Unposted vouchers by what people know them by: period, word and number; number 0 is none.
using Numbers = std::map<std::tuple<int, std::string, int>, Id>;

std::string byVoucher(Id voucher) { return fmt::format("lTieId={}", voucher); }

void checkHead(const RegMainInfo& head, const char* table, Report& report, const Facts& facts) {
  const auto record = byVoucher(head.lTieId);
  if (head.lTieId == 0) report.add(table, record, "lTieId 须大于 0");
  if (head.byPeroid > 12) report.add(table, record, fmt::format("期间 {} 不在 0 至 12 之间", head.byPeroid));
  const int year = head.dtBill.year;
  if (head.dtBill.empty()) return;
  if (head.byPeroid == 0) {
    if (facts.year != 0 && year > facts.year) {
      report.add(table, record, fmt::format("期初凭证日期 {} 晚于会计年度 {}", isoText(head.dtBill), facts.year));
    }
    return;
  }
  if (facts.year != 0 && year != facts.year) {
    report.add(table, record, fmt::format("凭证日期 {} 不在会计年度 {} 内", isoText(head.dtBill), facts.year));
  }
  if (head.sWord.empty()) report.add(table, record, "没有凭证字");
  if (head.nNumber < 0) report.add(table, record, fmt::format("凭证号 {} 不能为负数", head.nNumber));
  if (head.nAttach < 0) report.add(table, record, fmt::format("附件数 {} 不能为负数", head.nAttach));
}

template <class Main, class Each>
Heads checkHeads(Connection& connection, Report& report, const Facts& facts, Each&& each) {
  Heads heads;
  readTable<Main>(connection, report, [&](const Main& head) {
    checkHead(head, Main::table, report, facts);
    each(head);
    if (!heads.try_emplace(head.lTieId, Head{head.byPeroid, head.dtDate}).second) {
      report.add(Main::table, byVoucher(head.lTieId), "lTieId 重复");
    }
  });
  return heads;
}

void checkCurrency(const RegSubInfo& line, const CodeInfo& code, const char* table, Report& report) {
  if (line.dFrat < 0) report.add(table, byId(line.lId), fmt::format("汇率 {} 不能为负数", line.dFrat));
  if (line.byExchId != 0 && line.byExchId != code.byExchId) {
    report.add(table, byId(line.lId),
               fmt::format("币种 {} 与科目 {} 的币种 {} 不同", line.byExchId, code.sCode, code.byExchId));
  }
  if (line.mForeign != 0 && line.byExchId == 0) report.add(table, byId(line.lId), "有外币金额而没有币种");
}

void checkLine(const RegSubInfo& line, const char* table, Report& report, const Facts& facts) {
  const auto found = facts.codes.find(line.lCodeId);
  if (found == facts.codes.end()) {
    report.add(table, byId(line.lId), fmt::format("科目 lCodeId = {} 不存在", line.lCodeId));
  } else {
    const auto& code = found->second;
    if (code.bEnd == 0) report.add(table, byId(line.lId), fmt::format("科目 {} 不是末级科目", code.sCode));
    checkCurrency(line, code, table, report);
    const auto wrong = wrongDimensions(code, {line.lDeptId, line.lPersonId, line.lEnterId, line.lItemId, {}});
    if (!wrong.empty()) report.add(table, byId(line.lId), wrong);
  }
  if (line.lDeptId == 0 && line.lPersonId == 0 && line.lEnterId == 0 && line.lItemId == 0 && line.sItemId.empty())
    return;
  checkDimensions(facts, report, table, byId(line.lId),
                  {line.lDeptId, line.lPersonId, line.lEnterId, line.lItemId, line.sItemId});
}

// Every line of one pair of tables; counts(line, period) for those whose head exists.
template <class Sub, class Counts>
void checkLines(Connection& connection, Report& report, const Facts& facts, Heads& heads, Counts&& counts) {
  const bool keyedByVoucher = connection.dialect().linesKeyedByVoucher();
  std::vector<std::pair<Id, Id>> ids;
  readTable<Sub>(connection, report, [&](const Sub& line) {
    ids.emplace_back(line.lId, keyedByVoucher ? line.lTieId : 0);
    checkLine(line, Sub::table, report, facts);
    const auto found = heads.find(line.lTieId);
    if (found == heads.end()) {
      report.add(Sub::table, byId(line.lId), fmt::format("凭证 lTieId = {} 不存在", line.lTieId));
      return;
    }
    auto& head = found->second;
    if (line.dtDate != head.entered && !line.dtDate.empty() && !head.entered.empty()) {
      report.add(Sub::table, byId(line.lId),
                 fmt::format("录入日期 {} 与凭证 lTieId = {} 的 {} 不同", isoText(line.dtDate), line.lTieId,
                             isoText(head.entered)));
    }
    const auto money = millionths(line.mMoney);
    addTo(head.difference, line.bDirect != 0 ? money : -money);
    addTo(head.size, std::abs(money));
    counts(line, head.period);
  });
  std::ranges::sort(ids);
  for (auto twice = std::ranges::adjacent_find(ids); twice != ids.end();
       twice = std::adjacent_find(std::next(twice), ids.end())) {
    report.add(Sub::table, byId(twice->first), "lId 重复");
  }
}

void reportDifferences(const Heads& heads, const char* table, Report& report) {
  std::map<Id, std::int64_t> differences;
  for (const auto& [voucher, head] : heads) {
    if (std::abs(head.difference) > slack(head.size)) differences.emplace(voucher, head.difference);
  }
  for (const auto& [voucher, difference] : differences) {
    report.add(table, byVoucher(voucher), "借贷不平，相差 " + figureText(difference));
  }
}

}  // namespace

void checkVouchers(Connection& connection, Report& report, const Facts& facts, Movements& movements) {
  Numbers numbers;
  auto unposted = checkHeads<UnregMainInfo>(connection, report, facts, [&](const RegMainInfo& head) {
    if (head.byPeroid == 0) {
      report.add(UnregMainInfo::table, byVoucher(head.lTieId), "期间 0 只能有已记帐凭证");
    } else if (head.nNumber != 0) {
      numbers.emplace(std::tuple(head.byPeroid, head.sWord, head.nNumber), head.lTieId);
    }
  });
  auto posted = checkHeads<RegMainInfo>(connection, report, facts, [&](const RegMainInfo& head) {
    const auto number = numbers.find({head.byPeroid, head.sWord, head.nNumber});
    if (!unposted.contains(head.lTieId) && number == numbers.end()) return;
    const auto other = unposted.contains(head.lTieId) ? head.lTieId : number->second;
    report.add(RegMainInfo::table, byVoucher(head.lTieId),
               fmt::format("凭证既已记帐，又在未记帐凭证中（UnregMain {}）", byVoucher(other)));
  });
  checkLines<RegSubInfo>(connection, report, facts, posted, [&](const RegSubInfo& line, int period) {
    if (period >= 1 && period <= 12) movements.add(line, period);
  });
  reportDifferences(posted, RegMainInfo::table, report);
  checkLines<UnregSubInfo>(connection, report, facts, unposted, [](const RegSubInfo&, int) {});
  reportDifferences(unposted, UnregMainInfo::table, report);
}

}  // namespace tz::check
