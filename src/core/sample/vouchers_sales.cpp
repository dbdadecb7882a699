// Sales of spare parts, services and machines, and what customers pay.
#include <fmt/format.h>

#include "core/sample/vouchers.h"

namespace tz::sample {
namespace {

constexpr int sparePartsSales = 4;  // per month

struct SparePartsSale {
  Id customer;
  std::string_view clerk, digest;
  Cents net;
  std::string number;
  int collected;  // month of the receipt, 13 = not within the year
  [[nodiscard]] Cents gross() const { return net + valueAddedTax(net); }
  [[nodiscard]] int mark(int month) const { return collected <= 10 ? clearedMark(month) : 0; }
};

SparePartsSale sparePartsSale(int month, int place) {
  constexpr std::array customers = {unit("K001"), unit("K002"), unit("K003"), unit("K004"), unit("K005"),
                                    unit("K006"), unit("K007"), unit("K008"), unit("K009"), unit("K010")};
  constexpr std::array<std::string_view, 4> clerks = {"李明", "张伟", "刘洋", ""};
  constexpr std::array<std::string_view, 4> digests = {"销售主轴组件", "销售刀架配件", "销售滚珠丝杠", "销售夹具"};
  auto random = figures(month, 1, place);
  SparePartsSale sale;
  // The first customer buys every month, the others in turn.
  sale.customer = place == 0 ? customers[0] : customers[static_cast<std::size_t>(month * 2 + place) % customers.size()];
  sale.clerk = clerks[static_cast<std::size_t>(random.below(4))];
  sale.digest = digests[static_cast<std::size_t>(random.below(4))];
  const bool small = sale.customer == unit("K010");
  sale.net = small ? random.between(yuan(1'500), yuan(6'000), yuan(50))
                   : random.between(yuan(58'000), yuan(168'000), yuan(200));
  sale.number = fmt::format("XS25{:02}-{:02}", month, place + 1);
  sale.collected = place == 3 && month % 2 == 0 ? 13 : month + 1 + static_cast<int>(random.below(2));
  return sale;
}

void bookMachineSale(Month& month, const OrderRow& order, Id item) {
  const bool abroad = order.channel == Channel::dollarExport || order.channel == Channel::yenExport;
  auto& voucher = month.add(20, fmt::format("{}{}{}台", abroad ? "出口" : "销售", order.name, order.machines), 3);
  const auto pieces = std::int64_t{order.machines} * 1000;
  const auto price = yuan(std::int64_t{order.price} * order.machines);
  const auto number = fmt::format("{}25{:02}-{}", abroad ? "CK" : "HT", month.month, order.code.substr(4));
  const int mark = order.collect <= 9 ? clearedMark(month.month) : 0;
  if (abroad) {
    const bool inDollars = order.channel == Channel::dollarExport;
    const auto receivable = inDollars ? account("112202") : account("112203");
    const auto income = inDollars ? account("600102") : account("600103");
    const auto rate = monthRate(accountRow(income).currency, month.month);
    auto& line = voucher.debitForeign(receivable, price, rate).unit(order.customer, "O'Brien").number(number, mark);
    if (inDollars) line.pieces(pieces);
    voucher.creditForeign(income, price, rate).dept(salesDept).order(item).pieces(pieces);
    return;
  }
  const auto gross = price + valueAddedTax(price);
  switch (order.channel) {
    case Channel::keyCustomer:
      voucher.debit(account("112205"), gross).unit(order.customer, "李明").dept(salesDept).number(number, mark);
      break;
    case Channel::instalment:
      voucher.debit(account("112204"), gross).unit(order.customer, "张伟").pieces(pieces).number(number, mark);
      break;
    default:
      voucher.debit(account("112206"), gross).unit(order.customer, "刘洋").order(item).number(number, mark);
  }
  voucher.credit(account("600101"), price).dept(salesDept).order(item).pieces(pieces);
  voucher.credit(account("22210102"), valueAddedTax(price));
}

void bookMachineReceipt(Month& month, const OrderRow& order, Id item) {
  const auto price = yuan(std::int64_t{order.price} * order.machines);
  const auto number = fmt::format("{}25{:02}-{}", order.channel >= Channel::dollarExport ? "CK" : "HT", order.deliver,
                                  order.code.substr(4));
  const int mark = order.collect <= 9 ? clearedMark(order.deliver) : 0;
  auto& voucher = month.add(16, fmt::format("收到{}货款", order.name), 2);
  if (order.channel == Channel::dollarExport || order.channel == Channel::yenExport) {
    const bool inDollars = order.channel == Channel::dollarExport;
    const auto currency = inDollars ? dollar : yen;
    voucher.debitForeign(inDollars ? account("100203") : account("100204"), price, monthRate(currency, month.month));
    auto& line = voucher.creditForeign(inDollars ? account("112202") : account("112203"), price,
                                       monthRate(currency, order.deliver));
    line.unit(order.customer, "O'Brien").number(number, mark);
    if (inDollars) line.pieces(std::int64_t{order.machines} * 1000);
    voucher.bookExchangeDifference();
    return;
  }
  const auto gross = price + valueAddedTax(price);
  voucher.debit(account("100201"), gross);
  switch (order.channel) {
    case Channel::keyCustomer:
      voucher.credit(account("112205"), gross).unit(order.customer, "李明").dept(salesDept).number(number, mark);
      break;
    case Channel::instalment:
      voucher.credit(account("112204"), gross)
          .unit(order.customer, "张伟")
          .pieces(std::int64_t{order.machines} * 1000)
          .number(number, mark);
      break;
    default:
      voucher.credit(account("112206"), gross).unit(order.customer, "刘洋").order(item).number(number, mark);
  }
}

// Open items of last year that customers pay in the first months.
void addOldReceipts(Month& month) {
  if (month.month == 1) {
    auto& voucher = month.add(9, "收到江淮重工货款", 2);
    voucher.debit(account("100201"), yuan(486'000));
    voucher.credit(account("112201"), yuan(486'000)).unit(unit("K001"), "李明").number("XS2411-08");
    auto& bill = month.add(15, "银行承兑汇票到期收款", 1);
    bill.debit(account("100202"), yuan(200'000));
    bill.credit(account("1121"), yuan(200'000)).unit(unit("K002"), "李明").number("HP2411-01");
  }
  if (month.month == 2) {
    auto& voucher = month.add(18, "收到车床尾款", 1);
    voucher.debit(account("100201"), yuan(850'000));
    voucher.credit(account("112205"), yuan(850'000)).unit(unit("K001"), "李明").dept(salesDept).number("XS2412-06");
    auto& dollars = month.add(24, "收到哈特曼货款", 2);
    dollars.debitForeign(account("100203"), yuan(48'000), monthRate(dollar, 2));
    dollars.creditForeign(account("112202"), yuan(48'000), monthRate(dollar, 1))
        .unit(unit("W001"), "O'Brien")
        .pieces(1000)
        .number("CK2411-01");
    dollars.bookExchangeDifference();
  }
  if (month.month == 4) {
    auto& voucher = month.add(11, "收到东方轴承货款", 1);
    voucher.debit(account("100202"), yuan(126'400));
    voucher.credit(account("112201"), yuan(126'400)).unit(unit("K003"), "刘洋").number("XS2412-02");
    auto& part = month.add(25, "收到西北石油分期款", 1);
    part.debit(account("100201"), yuan(321'000));
    part.credit(account("112204"), yuan(321'000)).unit(unit("K005"), "李明").pieces(1000).number("XS2407-02");
  }
}

}  // namespace

Cents homePrice(const OrderRow& order) {
  const auto price = yuan(std::int64_t{order.price} * order.machines);
  if (order.channel == Channel::dollarExport) return toHome(dollar, price, dollarRates[0]);
  return order.channel == Channel::yenExport ? toHome(yen, price, yenRates[0]) : price;
}

void addSpareParts(Month& month) {
  for (int place = 0; place < sparePartsSales; ++place) {
    const auto sale = sparePartsSale(month.month, place);
    auto& voucher = month.add(5 + place * 5, std::string(sale.digest), 2);
    voucher.debit(account("112201"), sale.gross())
        .unit(sale.customer, sale.clerk)
        .number(sale.number, sale.mark(month.month));
    voucher.credit(account("605101"), sale.net).dept(salesDept);
    voucher.credit(account("22210102"), valueAddedTax(sale.net));
  }
  // Part of a delivery comes back: the sale is taken back in red.
  if (month.month == 4 || month.month == 9) {
    const auto returned = sparePartsSale(month.month, 1);
    const auto net = returned.net / 1000 * 200;
    auto& voucher = month.add(23, "退货冲减销售（红字）", 2);
    voucher.debit(account("112201"), -net - valueAddedTax(net))
        .unit(returned.customer, returned.clerk)
        .number(returned.number);
    voucher.credit(account("605101"), -net).dept(salesDept);
    voucher.credit(account("22210102"), -valueAddedTax(net));
  }
  const auto net = figures(month.month, 2).between(yuan(8'000), yuan(26'000), yuan(100));
  auto& service = month.add(14, "收机床维修服务费", 1);
  service.debit(account("100202"), net + valueAddedTax(net));
  service.credit(account("605102"), net).dept(salesDept);
  service.credit(account("22210102"), valueAddedTax(net));
}

void addMachineSales(Month& month) {
  Id item = 0;
  for (const auto& order : orders) {
    ++item;
    if (order.deliver == month.month) bookMachineSale(month, order, item);
    if (order.collect == month.month) bookMachineReceipt(month, order, item);
  }
}

void addReceipts(Month& month) {
  addOldReceipts(month);
  int receipts = 0;
  for (int sold = std::max(1, month.month - 2); sold < month.month; ++sold) {
    for (int place = 0; place < sparePartsSales; ++place) {
      const auto sale = sparePartsSale(sold, place);
      if (sale.collected != month.month) continue;
      auto& voucher = month.add(8 + receipts++ * 3 % 17, "收到配件货款", 1);
      voucher.debit(place % 2 == 0 ? account("100201") : account("100202"), sale.gross());
      voucher.credit(account("112201"), sale.gross())
          .unit(sale.customer, sale.clerk)
          .number(sale.number, sale.mark(sold));
    }
  }
}

}  // namespace tz::sample
