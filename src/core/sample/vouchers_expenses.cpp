// Expenses of the departments, research projects, taxes and wages paid.
#include <fmt/format.h>

#include "core/sample/vouchers.h"

namespace tz::sample {
namespace {

void addOfficeCosts(Month& month, Random& random) {
  auto& voucher = month.add(11, "购买办公用品", 3);
  for (const auto dept : {office, finance, purchasing, salesDept}) {
    voucher.debit(account("660202"), random.between(yuan(300), yuan(2'600), 1'050)).dept(dept);
  }
  voucher.credit(account("1001"), voucher.difference());
  if (month.month == 5) {
    auto& red = month.add(22, "冲回重复报销办公费（红字）", 1);
    red.debit(account("660202"), -yuan(480)).dept(office);
    red.credit(account("1001"), -yuan(480));
  }
}

void addUtilities(Month& month, Random& random) {
  auto& voucher = month.add(25, "支付水电费", 4);
  voucher.debit(account("510103"), random.between(yuan(14'000), yuan(19'000), 3'300)).dept(latheShop);
  voucher.debit(account("510103"), random.between(yuan(11'000), yuan(15'000), 3'300)).dept(millShop);
  voucher.debit(account("660205"), random.between(yuan(2'000), yuan(3'600), 2'100)).dept(office);
  const auto tax = valueAddedTax(voucher.difference());
  voucher.debit(account("2221010103"), tax);
  voucher.credit(account("100202"), voucher.difference());
}

void addSellingCosts(Month& month, Random& random) {
  auto& freight = month.add(24, "支付整机运输费", 2);
  freight.debit(account("660103"), random.between(yuan(4'000), yuan(11'000), 5'000)).dept(salesDept);
  freight.credit(account("100202"), freight.difference());
  if (month.month % 2 == 1) {
    auto& advertising = month.add(12, "支付行业网站广告费", 1);
    advertising.debit(account("660104"), random.between(yuan(6'000), yuan(15'000), yuan(500))).dept(salesDept);
    advertising.credit(account("100201"), advertising.difference());
  }
  if (month.month == 4 || month.month == 10) {
    auto& fair = month.add(18, month.month == 4 ? "汉诺威展位费" : "芝加哥展位费", 3);
    fair.debitForeign(account("660106"), yuan(6'800), monthRate(dollar, month.month)).dept(salesDept);
    fair.creditForeign(account("100203"), yuan(6'800), monthRate(dollar, month.month));
  }
}

void addStoresAndBank(Month& month, Random& random) {
  auto& cash = month.add(2, "提取备用现金", 1);
  cash.debit(account("1001"), yuan(20'000));
  cash.credit(account("100201"), yuan(20'000));
  auto& fee = month.add(24, "银行手续费", 1);
  fee.debit(account("660303"), random.between(yuan(80), yuan(420), 550));
  fee.credit(account("100201"), fee.difference());
  if (month.month % 3 == 0) {
    auto& interest = month.add(21, "支付季度借款利息", 2);
    interest.debit(account("660301"), yuan(61'250));
    interest.credit(account("100202"), yuan(61'250));
  }
  if (month.month % 4 == 1) {
    auto& bought = month.add(13, "购入工具入库", 2);
    bought.debit(account("1411"), yuan(9'000)).dept(warehouse).pieces(5'000);
    bought.debit(account("2221010101"), valueAddedTax(yuan(9'000)));
    bought.credit(account("100201"), bought.difference());
  }
  if (month.month % 3 == 1) {
    auto& used = month.add(23, "领用工具", 1);
    const auto dept = month.month % 2 == 1 ? research : office;
    used.debit(account("660206"), yuan(3'600)).dept(dept).pieces(2'000);
    used.credit(account("1411"), yuan(3'600)).dept(warehouse).pieces(2'000);
  }
}

// The equipment bought for a research project, and the payment of last year's.
void addResearchEquipment(Month& month) {
  if (month.month == 2) {
    auto& paid = month.add(26, "支付三坐标测量仪款", 1);
    paid.debit(account("220202"), yuan(180'000)).unit(unit("S001"), "马强").researching(1).number("CG2410-03", 1);
    paid.credit(account("100201"), yuan(180'000));
  }
  if (month.month == 3 || month.month == 8) {
    const auto net = month.month == 3 ? yuan(240'000) : yuan(86'000);
    auto& bought = month.add(14, month.month == 3 ? "购入振动分析仪" : "购入数据采集器", 3);
    bought.debit(account("1601"), net).dept(research);
    bought.debit(account("2221010102"), valueAddedTax(net));
    bought.credit(account("220202"), bought.difference())
        .unit(month.month == 3 ? unit("S001") : unit("S002"), month.month == 3 ? "马强" : "")
        .researching(3)
        .number(fmt::format("CG25{:02}-S1", month.month));
  }
  if (month.month == 6) {
    const auto gross = yuan(240'000) + valueAddedTax(yuan(240'000));
    auto& paid = month.add(17, "支付振动分析仪款", 1);
    paid.debit(account("220202"), gross).unit(unit("S001"), "马强").researching(3).number("CG2503-S1");
    paid.credit(account("100201"), gross);
  }
}

// Pays what stood on the account when the month began.
void payStanding(Month& month, const Balances& balances, int dayOfMonth, const char* digest,
                 std::initializer_list<Id> owed) {
  Voucher voucher{day(month.month, dayOfMonth), digest, 2, {}};
  for (const auto account : owed) {
    for (const auto& rest : balances.standing(account)) {
      if (rest.money < 0) voucher.debit(account, -rest.money);
    }
  }
  if (voucher.lines.empty()) return;
  voucher.credit(account("100201"), voucher.difference());
  month.vouchers.push_back(std::move(voucher));
}

void payWages(Month& month, const Balances& balances) {
  auto& voucher = month.add(10, "发放上月工资", 2);
  for (const auto& rest : balances.standing(account("221101"))) {
    voucher.debit(account("221101"), -rest.money).dept(rest.key.dept);
  }
  const auto wages = voucher.difference();
  voucher.credit(account("222104"), wages * 3 / 100).summary("代扣个人所得税");
  voucher.credit(account("224103"), wages / 10).summary("代扣个人社会保险费");
  voucher.credit(account("100201"), voucher.difference());
}

}  // namespace

void addExpenses(Month& month) {
  auto random = figures(month.month, 8);
  addOfficeCosts(month, random);
  addUtilities(month, random);
  addSellingCosts(month, random);
  addStoresAndBank(month, random);
}

void addResearch(Month& month) {
  auto random = figures(month.month, 9);
  const Id project = month.month % 3 + 1;
  const Id begun = project == 3 && month.month < 3 ? 1 : project;
  const auto pieces = random.between(40, 120, 5);
  auto& issue = month.add(8, fmt::format("{}试制领料", researchProjects[static_cast<std::size_t>(begun - 1)].code), 1);
  issue.debit(account("530102"), pieces * yuan(180)).dept(research).researching(begun);
  issue.credit(account("140303"), pieces * yuan(180)).pieces(pieces * 1000);
  const auto fee = random.between(yuan(2'000), yuan(9'000), yuan(100));
  auto& test = month.add(19, "支付试制检验费", 1);
  if (month.month % 2 == 0) {
    test.debit(account("530103"), fee).researching(begun);
  } else {
    test.debit(account("530103"), fee)
        .order(activeOrders(millShop, month.month).empty() ? 1 : activeOrders(millShop, month.month).front());
  }
  test.credit(account("100201"), fee);
  if (month.month == 5 || month.month == 9) {
    auto& abroad = month.add(20, "境外主轴检测费", 2);
    abroad.debitForeign(account("530104"), yuan(5'200), monthRate(dollar, month.month)).researching(2);
    abroad.creditForeign(account("100203"), yuan(5'200), monthRate(dollar, month.month));
  }
  addResearchEquipment(month);
}

void addPayments(Month& month, const Balances& balances) {
  payWages(month, balances);
  payStanding(month, balances, 12, "缴纳社会保险费", {account("221102"), account("224103")});
  payStanding(month, balances, 14, "缴纳上月税费",
              {account("222102"), account("222103"), account("222104"), account("222105"), account("222106")});
}

}  // namespace tz::sample
