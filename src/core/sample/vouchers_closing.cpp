// The last day of a month: depreciation, wages, overheads, finished machines, cost of sales and taxes. Each voucher
// needs the balances that the one before it left.
#include <fmt/format.h>

#include "core/sample/vouchers.h"

namespace tz::sample {
namespace {

struct DeptFigures {
  Dept dept;
  std::int64_t wages, depreciation;  // per month, whole home units
};
constexpr std::array deptFigures = {
    DeptFigures{office, 46'000, 9'500},     DeptFigures{finance, 34'000, 0},
    DeptFigures{salesDept, 52'000, 0},      DeptFigures{purchasing, 22'000, 0},
    DeptFigures{latheShop, 88'000, 38'000}, DeptFigures{millShop, 66'000, 31'000},
    DeptFigures{research, 58'000, 12'000},  DeptFigures{warehouse, 18'000, 0},
};

bool makesMachines(Dept dept) { return dept == latheShop || dept == millShop; }

Voucher onLastDay(int month, std::string digest, int attachments = 1) {
  return {day(month, daysInMonth(accountYear, month)), std::move(digest), attachments, {}};
}

void bookIfAny(Journal& journal, const Voucher& voucher) {
  if (!voucher.lines.empty()) journal.scripted(voucher);
}

// Spreads money over the shop's active orders; the last one takes the odd cents.
void debitOrders(Voucher& voucher, Id account, Dept shop, const std::vector<Id>& active, Cents money) {
  const auto share = money / static_cast<Cents>(active.size());
  for (const auto order : active) {
    const auto part = order == active.back() ? money - share * static_cast<Cents>(active.size() - 1) : share;
    voucher.debit(account, part).dept(shop).order(order);
  }
}

void bookDepreciation(Journal& journal, int month) {
  auto voucher = onLastDay(month, "计提折旧");
  for (const auto& row : deptFigures) {
    if (row.depreciation == 0) continue;
    const auto cost = makesMachines(row.dept) ? account("510102") : account("660204");
    voucher.debit(cost, yuan(row.depreciation)).dept(row.dept);
  }
  for (const auto& row : deptFigures) {
    if (row.depreciation != 0) voucher.credit(account("1602"), yuan(row.depreciation)).dept(row.dept);
  }
  journal.scripted(voucher);
}

void debitWages(Voucher& voucher, int month, Dept dept, Cents cost) {
  if (makesMachines(dept)) {
    const auto active = activeOrders(dept, month);
    if (active.empty()) {
      voucher.debit(account("510101"), cost).dept(dept);
    } else {
      debitOrders(voucher, account("500102"), dept, active, cost);
    }
  } else if (dept == research) {
    const Id projects = month < 2 ? 2 : 3;
    for (Id project = 1; project <= projects; ++project) {
      const auto part = project == 1 ? cost - cost / projects * (projects - 1) : cost / projects;
      voucher.debit(account("530101"), part).dept(dept).researching(project);
    }
  } else {
    voucher.debit(dept == salesDept ? account("660101") : account("660201"), cost).dept(dept);
  }
}

// Costs hold the wages and the company's fifth for social insurance.
void bookWages(Journal& journal, int month) {
  auto random = figures(month, 10);
  auto voucher = onLastDay(month, "分配本月工资及社会保险费", 2);
  std::array<Cents, deptFigures.size()> wages{};
  Cents insurance = 0;
  for (std::size_t i = 0; i < wages.size(); ++i) {
    wages[i] = yuan(deptFigures[i].wages) / 1000 * random.between(975, 1030);
    insurance += wages[i] / 5;
    debitWages(voucher, month, deptFigures[i].dept, wages[i] + wages[i] / 5);
  }
  for (std::size_t i = 0; i < wages.size(); ++i) {
    voucher.credit(account("221101"), wages[i]).dept(deptFigures[i].dept);
  }
  voucher.credit(account("221102"), insurance);
  journal.scripted(voucher);
}

void bookOverheads(Journal& journal, int month) {
  for (const auto shop : {latheShop, millShop}) {
    const auto active = activeOrders(shop, month);
    if (active.empty()) continue;
    auto voucher = onLastDay(month, fmt::format("结转{}制造费用", shop == latheShop ? "车床车间" : "铣床车间"));
    std::vector<Balances::Rest> costs;
    Cents total = 0;
    for (const auto account : {account("510101"), account("510102"), account("510103"), account("510104")}) {
      for (const auto& rest : journal.script().standing(account)) {
        if (rest.key.dept != shop) continue;
        costs.push_back(rest);
        total += rest.money;
      }
    }
    debitOrders(voucher, account("500103"), shop, active, total);
    for (const auto& cost : costs) voucher.credit(cost.key.account, cost.money).dept(shop);
    journal.scripted(voucher);
  }
}

Id stockAccount(const OrderRow& order) { return order.shop == latheShop ? account("140501") : account("140502"); }

void bookFinished(Journal& journal, int month) {
  Id item = 0;
  for (const auto& order : orders) {
    ++item;
    if (order.finish != month) continue;
    auto voucher = onLastDay(month, fmt::format("{}完工入库", order.code), 2);
    std::vector<Balances::Rest> costs;
    Cents total = 0;
    for (const auto account : {account("500101"), account("500102"), account("500103")}) {
      for (const auto& rest : journal.script().standing(account)) {
        if (rest.key.item != item) continue;
        costs.push_back(rest);
        total += rest.money;
      }
    }
    voucher.debit(stockAccount(order), total).order(item).pieces(order.machines * 1000);
    for (const auto& cost : costs) voucher.credit(cost.key.account, cost.money).dept(cost.key.dept).order(item);
    journal.scripted(voucher);
  }
}

void bookCostOfSales(Journal& journal, int month) {
  Id item = 0;
  auto machines = onLastDay(month, "结转整机销售成本");
  for (const auto& order : orders) {
    ++item;
    if (order.deliver != month) continue;
    for (const auto& rest : journal.script().standing(stockAccount(order))) {
      if (rest.key.item != item) continue;
      machines.debit(account("640101"), rest.money).order(item).pieces(rest.quantity);
      machines.credit(rest.key.account, rest.money).order(item).pieces(rest.quantity);
    }
  }
  bookIfAny(journal, machines);
  const auto sold = -journal.script().movement(account("605101"), month);
  const auto pieces = sold * 55 / 100 / yuan(180);
  auto parts = onLastDay(month, "结转配件销售成本");
  parts.debit(account("6402"), pieces * yuan(180));
  parts.credit(account("140303"), pieces * yuan(180)).pieces(pieces * 1000);
  journal.scripted(parts);
}

void bookTaxes(Journal& journal, int month) {
  Cents tax = 0;
  for (const auto account : {account("22210102"), account("22210103"), account("2221010101"), account("2221010102"),
                             account("2221010103")}) {
    for (const auto& rest : journal.script().standing(account)) tax -= rest.money;
  }
  if (tax > 0) {
    auto moved = onLastDay(month, "转出未交增值税");
    moved.debit(account("22210103"), tax);
    moved.credit(account("222102"), tax);
    journal.scripted(moved);
    auto surcharge = onLastDay(month, "计提附加税费");
    surcharge.debit(account("6403"), tax * 7 / 100 + tax * 3 / 100);
    surcharge.credit(account("222105"), tax * 7 / 100);
    surcharge.credit(account("222106"), tax * 3 / 100);
    journal.scripted(surcharge);
  }
  if (month % 3 == 0) {
    auto income = onLastDay(month, "预提季度企业所得税");
    income.debit(account("6801"), yuan(285'000));
    income.credit(account("222103"), yuan(285'000));
    journal.scripted(income);
  }
}

}  // namespace

void closeMonth(Journal& journal, int month) {
  bookDepreciation(journal, month);
  bookWages(journal, month);
  bookOverheads(journal, month);
  bookFinished(journal, month);
  bookCostOfSales(journal, month);
  bookTaxes(journal, month);
}

}  // namespace tz::sample
