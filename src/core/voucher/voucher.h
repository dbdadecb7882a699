// A voucher as it was entered: head, lines with the names of everything they carry, totals, and its neighbours. Read in
// one read transaction, with a fixed number of statements however many lines it has.
//
// Vouchers follow each other by period, word (in the order of its characters), number and id, posted and unposted ones
// each for themselves. Opening vouchers (period 0) are no part of that, and cannot be looked at.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "core/data/line_query.h"
#include "core/data/records.h"
#include "core/output/report_output.h"
#include "core/reports/messages.h"
#include "core/reports/session.h"

namespace tz {

// A member that a line names; id 0 for none. Code and name are empty where the archive does not hold it.
struct VoucherMember {
  Id id = 0;
  std::string code = {};
  std::string name = {};

  [[nodiscard]] bool named() const { return id != 0; }
  // Its name, or its number where it has none.
  [[nodiscard]] std::string shown() const;
};

struct VoucherLine {
  RegSubInfo entry;         // as the ledger holds it
  CodeInfo account;         // lId 0 where the chart does not hold it
  std::string accountName;  // the path of names, "应收账款-国内货款"
  VoucherMember dept, person, unit, item;
  std::string itemClass;  // name of the item's class
  std::string currency;

  // Positive on its side, negative for a red entry.
  [[nodiscard]] double debit() const { return entry.bDirect != 0 ? entry.mMoney : 0; }
  [[nodiscard]] double credit() const { return entry.bDirect != 0 ? 0 : entry.mMoney; }
  // Amount ÷ quantity; 0 without a quantity.
  [[nodiscard]] double price() const { return entry.dAmount == 0 ? 0 : entry.mMoney / entry.dAmount; }
  // "122101 其他应收款-职工借款".
  [[nodiscard]] std::string accountText() const;
};

struct Voucher {
  Book book = Book::posted;
  RegMainInfo head;
  std::vector<VoucherLine> lines;
  std::string company = {};  // whose ledger it stands in
  double debit = 0;
  double credit = 0;
  Id previous = 0;  // 0: it is the first one
  Id next = 0;

  [[nodiscard]] bool balanced() const { return debit == credit; }
  // "记-0012".
  [[nodiscard]] std::string number() const;
};

namespace messages {
inline constexpr Message openingVoucher{"期初数无法联查凭证"};
}  // namespace messages

// The voucher, or why there is none to show. Throws DbError when the ledger cannot be read.
[[nodiscard]] std::variant<Voucher, Refusal> readVoucher(Session& session, Book book, Id id);

// The voucher as a table with its total, for paper: head, lines and signatures.
[[nodiscard]] ComputedReport voucherReport(const Voucher& voucher);

// What a line carries besides account and amounts, each as caption and text, in the order in which vouchers show it.
struct VoucherDetail {
  std::string_view caption;
  std::string text;
};
[[nodiscard]] std::vector<VoucherDetail> membersOf(const VoucherLine& line);
// Quantity, price, foreign amount and rate where the line has them.
[[nodiscard]] std::vector<VoucherDetail> figuresOf(const VoucherLine& line);
// Clerk, business number and clearing mark.
[[nodiscard]] std::vector<VoucherDetail> remarksOf(const VoucherLine& line);

[[nodiscard]] std::string_view bookName(Book book);

}  // namespace tz
