#include "core/sample/grown.h"

#include <fmt/format.h>

namespace tz::sample {
namespace {

// The lower of two draws: first parties get twice the average, the last ones next to nothing.
std::int64_t skewed(Random& random, std::int64_t count) { return std::min(random.below(count), random.below(count)); }

void onLoan(Line& line, Id person, Dept dept) {
  line.key.person = person;
  line.key.dept = dept;
}

}  // namespace

GrownBusiness::Traveller GrownBusiness::traveller() {
  if (growth_.persons == 0 || random_.below(100) < 60) return {person("0301"), salesDept};
  const auto place = skewed(random_, growth_.persons);
  return {Growth::person(place), Growth::deptOfPerson(place)};
}

Id GrownBusiness::customer() {
  if (growth_.customers == 0 || random_.below(100) < 60) return unit("K001");
  return Growth::customer(skewed(random_, growth_.customers));
}

Voucher GrownBusiness::travel(Date date) {
  const auto [who, dept] = traveller();
  const auto money = random_.between(yuan(200), yuan(5'000), 1'050);
  const bool lent = random_.below(2) == 0;
  Voucher voucher{date, lent ? "预借差旅费" : "报销差旅费", 2, {}};
  if (lent) {
    onLoan(voucher.debit(account("122101"), money), who, dept);
    voucher.credit(account("1001"), money);
    return voucher;
  }
  if (dept == salesDept) {
    onLoan(voucher.debit(account("660102"), money), who, dept);
  } else {
    voucher.debit(account("660203"), money).dept(dept);
  }
  onLoan(voucher.credit(account("122101"), money), who, dept);
  return voucher;
}

Voucher GrownBusiness::sale(Date date) {
  const auto buyer = customer();
  const auto net = random_.between(yuan(400), yuan(20'000), 2'500);
  const auto gross = net + valueAddedTax(net);
  const bool sold = random_.below(2) == 0;
  Voucher voucher{date, sold ? "销售配件" : "收到配件货款", 2, {}};
  const std::string_view clerk = random_.below(3) == 0 ? "" : "刘洋";
  if (sold) {
    voucher.debit(account("112201"), gross).unit(buyer, clerk).number(fmt::format("PX{:07}", ++sales_));
    voucher.credit(account("605101"), net).dept(salesDept);
    voucher.credit(account("22210102"), valueAddedTax(net));
  } else {
    voucher.debit(account("100201"), gross);
    voucher.credit(account("112201"), gross).unit(buyer, clerk);
  }
  return voucher;
}

Voucher GrownBusiness::purchase(Date date) {
  const auto supplier = growth_.suppliers == 0 ? unit("G003") : growth_.supplier(skewed(random_, growth_.suppliers));
  const auto pieces = random_.between(5, 80);
  const auto net = pieces * yuan(180);
  const auto gross = net + valueAddedTax(net);
  const bool bought = random_.below(2) == 0;
  Voucher voucher{date, bought ? "购入标准件" : "支付材料款", 2, {}};
  if (bought) {
    voucher.debit(account("140303"), net).pieces(pieces * 1000);
    voucher.debit(account("2221010101"), valueAddedTax(net));
    voucher.credit(account("220201"), gross).unit(supplier, "胡建平");
  } else {
    voucher.debit(account("220201"), gross).unit(supplier, "胡建平");
    voucher.credit(account("100201"), gross);
  }
  return voucher;
}

Voucher GrownBusiness::costs(Date date) {
  Voucher voucher{date, "购买办公用品", 1, {}};
  voucher.debit(account("660202"), random_.between(yuan(50), yuan(900), 550)).dept(office + random_.below(8));
  voucher.credit(account("1001"), voucher.difference());
  return voucher;
}

Voucher GrownBusiness::issue(Date date) {
  const auto order = growth_.orders == 0 ? Id{1} : Growth::order(random_.below(growth_.orders));
  const auto pieces = random_.between(2, 30);
  Voucher voucher{date, "生产领料", 1, {}};
  voucher.debit(account("500101"), pieces * yuan(180)).dept(order % 2 == 0 ? latheShop : millShop).order(order);
  voucher.credit(account("140303"), pieces * yuan(180)).pieces(pieces * 1000);
  return voucher;
}

void GrownBusiness::book(Journal& journal, Date date) {
  const auto kind = random_.below(100);
  if (kind < 40) {
    journal.grown(travel(date));
  } else if (kind < 80) {
    journal.grown(sale(date));
  } else if (kind < 88) {
    journal.grown(purchase(date));
  } else if (kind < 94) {
    journal.grown(costs(date));
  } else {
    journal.grown(issue(date));
  }
}

}  // namespace tz::sample
