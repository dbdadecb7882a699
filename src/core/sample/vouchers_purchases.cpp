// Purchases of material, subcontracting and imports, their payment, and what production takes from the store.
#include <fmt/format.h>

#include "core/sample/vouchers.h"

namespace tz::sample {
namespace {

struct Material {
  Id account;
  Id supplier;
  Cents price;             // per unit of quantity
  std::int64_t low, high;  // bought per month, whole units
  std::string_view digest, clerk;
};
constexpr std::array materialsBought = {
    Material{account("140301"), unit("G001"), yuan(4'600), 44, 56, "购入圆钢", "马强"},
    Material{account("140302"), unit("G002"), yuan(7'800), 10, 14, "购入床身铸件", "马强"},
    Material{account("140303"), unit("G003"), yuan(180), 1'000, 1'250, "购入标准件", "胡建平"},
    Material{account("140303"), unit("G004"), yuan(180), 900, 1'100, "购入紧固件", ""},
};

struct Purchase {
  std::int64_t units;
  Cents net;
  std::string number;
  int paid;  // month; 13 = not within the year
  [[nodiscard]] Cents gross() const { return net + valueAddedTax(net); }
  [[nodiscard]] int mark(int month) const { return paid <= 10 ? clearedMark(month) : 0; }
};

Purchase purchase(int month, std::size_t place) {
  const auto& material = materialsBought[place];
  auto random = figures(month, 3, static_cast<int>(place));
  Purchase bought;
  bought.units = random.between(material.low, material.high);
  bought.net = bought.units * (material.price + random.between(-20, 20) * material.price / 1000);
  bought.number = fmt::format("CG25{:02}-{:02}", month, place + 1);
  bought.paid = place == 3 && month % 4 == 0 ? 13 : month + 1;
  return bought;
}

void addImport(Month& month) {
  constexpr Cents price = yuan(9'600);  // yen per set
  if (month.month % 3 == 2) {
    auto& voucher = month.add(17, "进口精密轴承入库", 4);
    const auto rate = monthRate(yen, month.month);
    voucher.debit(account("140304"), toHome(yen, price * 300, rate)).pieces(300'000);
    voucher.creditForeign(account("220203"), price * 300, rate)
        .unit(unit("G005"), "马强")
        .number(fmt::format("JK25{:02}-J1", month.month));
  }
  const int ordered = month.month - 2;
  if (ordered % 3 == 2) {
    auto& voucher = month.add(21, "支付昭和轴承货款", 2);
    voucher.debitForeign(account("220203"), price * 300, monthRate(yen, ordered))
        .unit(unit("G005"), "马强")
        .number(fmt::format("JK25{:02}-J1", ordered));
    voucher.creditForeign(account("100204"), price * 300, monthRate(yen, month.month));
    voucher.bookExchangeDifference();
  }
}

void addSubcontracting(Month& month) {
  const bool hardening = month.month % 2 == 1;
  const auto shop = hardening ? latheShop : millShop;
  const auto party = hardening ? unit("X001") : unit("X002");
  const auto pieces = figures(month.month, 4).between(120, 260, 10);
  const auto money = pieces * yuan(120);
  const auto number = fmt::format("WX25{:02}-01", month.month);
  auto& voucher = month.add(19, hardening ? "主轴热处理加工费" : "防护罩电镀加工费", 2);
  voucher.debit(account("510104"), money).dept(shop);
  voucher.credit(account("220204"), money).unit(party, "胡建平").dept(shop).pieces(pieces * 1000).number(number);
  if (month.month < 3) return;
  const int earlier = month.month - 2;
  const auto owed = figures(earlier, 4).between(120, 260, 10);
  auto& paid = month.add(24, "支付外协加工费", 1);
  paid.debit(account("220204"), owed * yuan(120))
      .unit(party, "胡建平")
      .dept(shop)
      .pieces(owed * 1000)
      .number(fmt::format("WX25{:02}-01", earlier));
  paid.credit(account("100202"), owed * yuan(120));
}

void addOldPayments(Month& month) {
  struct OldItem {
    int month;
    Id account, supplier;
    Cents money;
    const char* number;
    std::string_view clerk;
  };
  constexpr std::array items = {
      OldItem{1, account("220201"), unit("G001"), yuan(234'600), "CG2412-04", "马强"},
      OldItem{1, account("220201"), unit("G002"), yuan(156'000), "CG2411-07", "马强"},
      OldItem{2, account("220201"), unit("G003"), yuan(43'750), "CG2412-01", "胡建平"},
      OldItem{3, account("2201"), unit("G002"), yuan(120'000), "HP2412-02", "马强"},
  };
  for (const auto& item : items) {
    if (item.month != month.month) continue;
    auto& voucher = month.add(22, "支付上年货款", 1);
    voucher.debit(item.account, item.money).unit(item.supplier, item.clerk).number(item.number);
    voucher.credit(account("100201"), item.money);
  }
  if (month.month == 1) {
    auto& voucher = month.add(23, "支付昭和轴承上年货款", 2);
    voucher.debitForeign(account("220203"), yuan(4'500'000), monthRate(yen, 1))
        .unit(unit("G005"), "马强")
        .number("JK2412-J1");
    voucher.creditForeign(account("100204"), yuan(4'500'000), monthRate(yen, 1));
  }
  // The deposit of last December is set off against the steel bought in March.
  if (month.month == 3) {
    auto& voucher = month.add(25, "预付款抵付钢材款", 1);
    voucher.debit(account("220201"), yuan(150'000)).unit(unit("G001"), "马强").number("CG2503-01");
    voucher.credit(account("112301"), yuan(150'000)).unit(unit("G001"), "马强").number("YF2412-01");
  }
  if (month.month == 10) {
    auto& voucher = month.add(15, "预付数控系统款", 1);
    voucher.debit(account("112302"), yuan(96'000)).unit(unit("S002"), "马强").number("YF2510-01");
    voucher.credit(account("100201"), yuan(96'000));
  }
}

// Shares of an order's material in the store's accounts, at standing prices.
void addIssueLines(Voucher& voucher, Cents total) {
  struct Share {
    Id account;
    Cents price;
    std::int64_t percent, thousandthsStep;
  };
  constexpr std::array shares = {
      Share{account("140301"), yuan(4'600), 50, 10},
      Share{account("140302"), yuan(7'800), 20, 10},
      Share{account("140303"), yuan(180), 20, 1000},
      Share{account("140304"), yuan(450), 10, 1000},
  };
  for (const auto& share : shares) {
    const auto steps = total * share.percent / 100 * 1000 / share.price / share.thousandthsStep;
    const auto quantity = steps * share.thousandthsStep;
    voucher.credit(share.account, quantity * share.price / 1000).pieces(quantity);
  }
}

Cents monthlyMaterial(const OrderRow& order) {
  const int months = std::min(order.finish, 12) - order.start + 1;
  return homePrice(order) * 44 / 100 / months;
}

}  // namespace

std::vector<Id> activeOrders(Dept shop, int month) {
  std::vector<Id> active;
  Id id = 0;
  for (const auto& order : orders) {
    ++id;
    if (order.shop == shop && order.start <= month && month <= order.finish) active.push_back(id);
  }
  return active;
}

void addPurchases(Month& month) {
  for (std::size_t place = 0; place < materialsBought.size(); ++place) {
    const auto& material = materialsBought[place];
    const auto bought = purchase(month.month, place);
    auto& voucher = month.add(4 + static_cast<int>(place) * 5, std::string(material.digest), 3);
    voucher.debit(material.account, bought.net).pieces(bought.units * 1000);
    voucher.debit(account("2221010101"), valueAddedTax(bought.net));
    voucher.credit(account("220201"), bought.gross())
        .unit(material.supplier, material.clerk)
        .number(bought.number, bought.mark(month.month));
    if (month.month == 1) continue;
    const auto earlier = purchase(month.month - 1, place);
    if (earlier.paid != month.month) continue;
    auto& paid = month.add(7 + static_cast<int>(place) * 5, "支付材料款", 1);
    paid.debit(account("220201"), earlier.gross())
        .unit(material.supplier, material.clerk)
        .number(earlier.number, earlier.mark(month.month - 1));
    paid.credit(account("100201"), earlier.gross());
  }
  addImport(month);
  addSubcontracting(month);
  addOldPayments(month);
}

void addMaterialIssues(Month& month) {
  for (const auto shop : {latheShop, millShop}) {
    for (const auto id : activeOrders(shop, month.month)) {
      const auto& order = orders[static_cast<std::size_t>(id - 1)];
      auto& voucher = month.add(shop == latheShop ? 6 : 10, fmt::format("{}领料", order.code), 2);
      addIssueLines(voucher, monthlyMaterial(order));
      const auto money = -voucher.difference();
      voucher.debit(account("500101"), money).dept(shop).order(id);
      std::rotate(voucher.lines.begin(), voucher.lines.end() - 1, voucher.lines.end());
    }
  }
}

}  // namespace tz::sample
