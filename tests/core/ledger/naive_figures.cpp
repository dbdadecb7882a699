#include "core/ledger/naive_figures.h"

#include <cmath>

namespace tz::test::naive {
namespace {

// The places of a format, column by column, as letters: v voucher texts (three columns), p price, r rate, q f m of
// debit, Q F M of credit, d direction, 1 balance quantity, 2 balance price, 3 balance foreign, 4 balance rate, 5
// balance money.
std::string places(const std::string& format, Place place) {
  if (format == "金额式") return "vvvmMd5";
  if (format == "数量金额式") return "vvvpqmQMd125";
  if (format == "外币金额式") return "vvvrfmFMd345";
  if (format == "数量外币式") return "vvvprqfmQFMd12345";
  return place == Place::opening ? "vvv  d3" : "vvv f F";  // 外币式: seven columns, what lies beyond is lost
}

}  // namespace

void Side::add(const Side& other, double sign) {
  quantity += sign * other.quantity;
  foreign += sign * other.foreign;
  money += sign * other.money;
}

void Figures::add(const Figures& other) {
  debit.add(other.debit);
  credit.add(other.credit);
}

void Balance::move(const Figures& movement) {
  Side net = movement.debit;
  net.add(movement.credit, -1);
  add(net);
}

void Keeps::priceAndRate(Balance& balance) const {
  if (balance.money == 0) return;
  if (!unit.empty() && balance.quantity != 0) balance.price = balance.money / balance.quantity;
  if (currency.empty() || balance.foreign == 0) return;
  balance.rate = std::fabs(multiplies ? balance.money / balance.foreign : balance.foreign / balance.money);
}

std::vector<nlohmann::json> figureCells(const std::string& format, Place place, const Figures& figures,
                                        const std::string& direction, const Balance& balance) {
  const std::map<char, double> shown = {
      {'p', figures.price},
      {'r', figures.rate},
      {'q', figures.debit.quantity},
      {'f', figures.debit.foreign},
      {'m', figures.debit.money},
      {'Q', figures.credit.quantity},
      {'F', figures.credit.foreign},
      {'M', figures.credit.money},
      {'1', std::fabs(balance.quantity)},
      {'2', std::fabs(balance.price)},
      {'3', std::fabs(balance.foreign)},
      {'4', std::fabs(balance.rate)},
      {'5', std::fabs(balance.money)},
  };
  std::vector<nlohmann::json> cells;
  for (const char letter : places(format, place).substr(3)) {
    if (letter == 'd') {
      cells.emplace_back(direction);
    } else {
      const auto found = shown.find(letter);
      cells.push_back(found == shown.end() || found->second == 0 ? nlohmann::json() : nlohmann::json(found->second));
    }
  }
  return cells;
}

std::size_t columnsOf(const std::string& format) { return places(format, Place::running).size(); }

}  // namespace tz::test::naive
