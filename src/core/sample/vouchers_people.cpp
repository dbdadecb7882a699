// Loans to employees and their settlement, petty cash, claims, tools and sample machines in their charge.
#include <fmt/format.h>

#include "core/sample/vouchers.h"

namespace tz::sample {
namespace {

struct Advance {
  Id person;
  std::string_view digest;
  Cents money, spent;
  std::string number;
  int settled;  // month
};

// Two travellers a month beside the salesman who always travels.
Advance advance(int month, int place) {
  constexpr std::array travellers = {person("0302"), person("0401"), person("0303"), person("0701"), person("0305"),
                                     person("0502"), person("0702"), person("0402"), person("0703"), person("0102")};
  constexpr std::array<std::string_view, 4> trips = {"预借上海差旅费", "预借供应商考察费", "预借用户回访差旅费",
                                                     "预借培训差旅费"};
  auto random = figures(month, 5, place);
  Advance trip;
  trip.person = travellers[static_cast<std::size_t>(month * 2 + place) % travellers.size()];
  trip.digest = trips[static_cast<std::size_t>(random.below(4))];
  trip.money = random.between(yuan(2'000), yuan(6'000), yuan(500));
  trip.spent = trip.money * random.between(80, 115) / 100 / 10 * 10;
  trip.number = fmt::format("JK25{:02}-{:02}", month, place + 2);
  trip.settled = place == 0 ? month : month + 1;
  return trip;
}

// Travel costs: sales keeps them by person, the others by department.
void addTravelCost(Voucher& voucher, Id traveller, Cents money) {
  if (personRow(traveller).dept == salesDept) {
    voucher.debit(account("660102"), money).person(traveller);
  } else {
    voucher.debit(account("660203"), money).dept(personRow(traveller).dept);
  }
}

void settle(Month& month, int dayOfMonth, const Advance& trip, int mark) {
  auto& voucher = month.add(dayOfMonth, fmt::format("报销差旅费 {}", trip.number), 5);
  addTravelCost(voucher, trip.person, trip.spent);
  if (const auto back = trip.money - trip.spent; back > 0) {
    voucher.debit(account("1001"), back).summary("退回余款");
  } else if (back < 0) {
    voucher.credit(account("1001"), -back).summary("补付差旅费");
  }
  voucher.credit(account("122101"), trip.money).person(trip.person).number(trip.number, mark);
}

// One line of a salesman's loan account: positive lent, negative settled by travel costs, red = taken back in red.
struct LoanStep {
  int month, day;
  int money;
  const char *digest, *number;
  int mark = 0;
  bool red = false;
};
constexpr std::array salesmanLoans = {
    LoanStep{1, 8, -4'500, "报销年终催款差旅费", "JK2412-07"},
    LoanStep{1, 14, 5'000, "预借合肥用户回访差旅费", "JK2501-01", 2},
    LoanStep{1, 24, -5'000, "报销合肥用户回访差旅费", "JK2501-01", 2},
    LoanStep{2, 17, 8'000, "预借上海机床展差旅费", "JK2502-01", 2},
    LoanStep{3, 12, -8'000, "报销上海机床展差旅费", "JK2502-01", 2},
    LoanStep{3, 19, 3'000, "预借苏州收款差旅费", "JK2503-01", 1},
    LoanStep{3, 28, -3'000, "报销苏州收款差旅费", "JK2503-01", 1},
    LoanStep{4, 15, 6'000, "预借北京机床展差旅费", "JK2504-01"},
    LoanStep{5, 9, -5'200, "报销北京机床展差旅费", "JK2504-01"},
    LoanStep{5, 20, 600, "冲回多记借款（红字）", "JK2504-01", 0, true},
    LoanStep{6, 10, 4'800, "预借西安项目差旅费", "JK2506-01"},
    LoanStep{6, 27, -4'800, "报销西安项目差旅费", "JK2506-01"},
    LoanStep{7, 16, 4'000, "预借武汉投标差旅费", "JK2507-01"},
    LoanStep{8, 18, -3'150, "报销武汉投标差旅费", "JK2507-01"},
    LoanStep{9, 11, 7'500, "预借大连装备展差旅费", "JK2509-01"},
    LoanStep{10, 14, -7'500, "报销大连装备展差旅费", "JK2509-01"},
    LoanStep{10, 22, 3'600, "预借石家庄交机差旅费", "JK2510-01"},
    LoanStep{11, 13, -3'600, "报销石家庄交机差旅费", "JK2510-01"},
    LoanStep{11, 20, 5'500, "预借年度用户会差旅费", "JK2511-01"},
    LoanStep{11, 27, -2'300, "报销年度用户会差旅费", "JK2511-01"},
    LoanStep{12, 9, 6'000, "预借年终催款差旅费", "JK2512-01"},
    LoanStep{12, 24, -3'200, "报销年度用户会差旅费", "JK2511-01"},
};

// Machines lent out with the salesman abroad, kept in dollars and pieces.
struct SampleMachineStep {
  int month, day, pieces;
  int dollars;  // per machine
  const char* digest;
};
constexpr std::array sampleMachines = {
    SampleMachineStep{3, 13, 1, 23'000, "样机运抵加州展厅"},    SampleMachineStep{5, 19, -1, 23'000, "样机售出收款"},
    SampleMachineStep{7, 10, 2, 22'750, "样机运抵慕尼黑展厅"},  SampleMachineStep{9, 17, -1, 22'750, "样机售出收款"},
    SampleMachineStep{11, 18, 1, 23'400, "样机运抵加州展厅"},   SampleMachineStep{11, 28, -1, 22'750, "样机售出收款"},
    SampleMachineStep{12, 15, 1, 23'100, "样机运抵芝加哥展厅"},
};

void bookSampleMachine(Month& month, const SampleMachineStep& step) {
  auto& voucher = month.add(step.day, step.digest, 3);
  const auto pieces = std::abs(step.pieces) * 1000;
  const auto dollars = yuan(std::int64_t{step.dollars} * std::abs(step.pieces));
  const auto number = fmt::format("YJ25{:02}-01", step.month);
  if (step.pieces > 0) {
    auto& line = voucher.debitForeign(account("122105"), dollars, monthRate(dollar, step.month));
    line.person(person("0304")).pieces(pieces).number(number);
    const auto home = line.money;
    voucher.credit(account("1406"), home).pieces(pieces);
    return;
  }
  voucher.debitForeign(account("100203"), dollars, monthRate(dollar, step.month));
  // A machine leaves at the rate at which it came.
  const auto came = step.month == 5 ? 3 : 7;
  voucher.creditForeign(account("122105"), dollars, monthRate(dollar, came))
      .person(person("0304"))
      .pieces(pieces)
      .number(number);
  voucher.bookExchangeDifference();
}

void addClaims(Month& month) {
  constexpr std::array claimants = {person("0305"), person("0303"), person("0304"), person("0301")};
  const auto claimant = [&](int m) { return claimants[static_cast<std::size_t>(m) % claimants.size()]; };
  const auto amount = [](int m) { return figures(m, 6).between(yuan(900), yuan(4'200), 1050); };
  auto& voucher = month.add(21, "业务招待费待报销", 4);
  voucher.debit(account("660105"), amount(month.month)).person(claimant(month.month));
  voucher.credit(account("224101"), amount(month.month))
      .person(claimant(month.month))
      .number(fmt::format("BX25{:02}-01", month.month));
  auto& paid = month.add(11, "支付报销款", 1);
  const bool first = month.month == 1;
  const auto earlier = month.month - 1;
  const auto money = first ? yuan(2'860) : amount(earlier);
  paid.debit(account("224101"), money)
      .person(first ? person("0305") : claimant(earlier))
      .number(first ? std::string("BX2412-11") : fmt::format("BX25{:02}-01", earlier));
  paid.credit(account("100201"), money);
}

void addPettyCashAndTools(Month& month) {
  if (month.month % 3 == 0) {
    const auto spent = figures(month.month, 7).between(yuan(3'000), yuan(8'000), 1'500);
    auto& voucher = month.add(26, "备用金报销仓储杂费", 6);
    voucher.debit(account("660202"), spent).dept(warehouse);
    voucher.credit(account("122102"), spent).person(person("0801"));
    auto& paid = month.add(27, "补足备用金", 1);
    paid.debit(account("122102"), spent).person(person("0801"));
    paid.credit(account("1001"), spent);
  }
  if (month.month == 2 || month.month == 6) {
    const auto taker = month.month == 2 ? person("0502") : person("0601");
    const int sets = month.month == 2 ? 2 : 1;
    auto& voucher = month.add(13, "领用精密量具", 1);
    voucher.debit(account("122104"), yuan(1'800) * sets)
        .person(taker)
        .pieces(sets * 1000)
        .number(fmt::format("LY25{:02}-01", month.month));
    voucher.credit(account("1411"), yuan(1'800) * sets).dept(personRow(taker).dept).pieces(sets * 1000);
  }
  if (month.month == 9) {
    auto& voucher = month.add(12, "退回精密量具", 1);
    voucher.debit(account("1411"), yuan(1'800)).dept(latheShop).pieces(1000);
    voucher.credit(account("122104"), yuan(1'800)).person(person("0501")).pieces(1000).number("LY2412-01");
  }
}

}  // namespace

void addTravel(Month& month) {
  for (int place = 0; place < 2; ++place) {
    const auto trip = advance(month.month, place);
    auto& lent = month.add(3 + place * 6, std::string(trip.digest), 1);
    const int mark = trip.settled <= 10 ? clearedMark(month.month) : 0;
    lent.debit(account("122101"), trip.money).person(trip.person).number(trip.number, mark);
    lent.credit(account("1001"), trip.money);
    if (trip.settled == month.month) settle(month, 18, trip, mark);
  }
  if (month.month > 1) {
    const auto trip = advance(month.month - 1, 1);
    settle(month, 7, trip, trip.settled <= 10 ? clearedMark(month.month - 1) : 0);
  }
  addClaims(month);
  addPettyCashAndTools(month);
}

void addSalesmanLoans(Month& month) {
  constexpr auto salesman = person("0301");
  for (const auto& step : salesmanLoans) {
    if (step.month != month.month) continue;
    auto& voucher = month.add(step.day, step.digest, step.money < 0 ? 4 : 1);
    const auto money = yuan(std::abs(step.money));
    if (step.red) {
      voucher.debit(account("122101"), -money).person(salesman).number(step.number, step.mark);
      voucher.credit(account("1001"), -money);
    } else if (step.money > 0) {
      voucher.debit(account("122101"), money).person(salesman).number(step.number, step.mark);
      voucher.credit(account("1001"), money);
    } else {
      voucher.debit(account("660102"), money).person(salesman);
      voucher.credit(account("122101"), money).person(salesman).number(step.number, step.mark);
    }
  }
}

void addPersonForeign(Month& month) {
  for (const auto& step : sampleMachines) {
    if (step.month == month.month) bookSampleMachine(month, step);
  }
  struct Journey {
    int lent, back;
    Id account, bank, traveller;
    Cents foreign;
    Currency currency;
    const char* place;
  };
  constexpr std::array journeys = {
      Journey{4, 5, account("122103"), account("100203"), person("0303"), yuan(4'000), dollar, "芝加哥"},
      Journey{9, 10, account("122103"), account("100203"), person("0304"), yuan(3'500), dollar, "汉诺威"},
      Journey{7, 8, account("122106"), account("100204"), person("0701"), yuan(600'000), yen, "名古屋"},
      Journey{12, 13, account("122103"), account("100203"), person("0302"), yuan(5'000), dollar, "底特律"},
  };
  for (const auto& journey : journeys) {
    const auto rate = monthRate(journey.currency, journey.lent);
    const auto number = fmt::format("CG25{:02}-W1", journey.lent);
    if (journey.lent == month.month) {
      auto& voucher = month.add(10, fmt::format("预借{}出国费用", journey.place), 2);
      voucher.debitForeign(journey.account, journey.foreign, rate).person(journey.traveller).number(number);
      voucher.creditForeign(journey.bank, journey.foreign, rate);
    }
    if (journey.back == month.month) {
      auto& voucher = month.add(16, fmt::format("报销{}出国费用", journey.place), 6);
      if (journey.currency == dollar) {
        voucher.debitForeign(account("660106"), journey.foreign, rate).dept(salesDept);
      } else {
        voucher.debit(account("660203"), toHome(journey.currency, journey.foreign, rate)).dept(research);
      }
      voucher.creditForeign(journey.account, journey.foreign, rate).person(journey.traveller).number(number);
    }
  }
}

}  // namespace tz::sample
