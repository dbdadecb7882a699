#include "ledger/line_reader.h"

#include <charconv>

namespace tz {
namespace {

constexpr const char* columns = "m.dtBill, m.sWord, m.nNumber, s.sDigest, s.bDirect, s.mMoney";
enum Column { bill, word, number, digest, direct, money, furtherColumns };

void putNumber(std::string& text, int value, int digits) {
  char buffer[12];
  const auto [end, error] = std::to_chars(std::begin(buffer), std::end(buffer), value);
  const auto length = static_cast<int>(end - buffer);
  if (length < digits) text.append(static_cast<std::size_t>(digits - length), '0');
  text.append(buffer, end);
}

void putDate(std::string& text, Date date) {
  text.clear();
  putNumber(text, date.year, 4);
  text += '.';
  putNumber(text, date.month, 2);
  text += '.';
  putNumber(text, date.day, 2);
}

void putVoucher(std::string& text, std::string_view voucherWord, int voucherNumber) {
  text = voucherWord;
  text += '-';
  putNumber(text, voucherNumber, 4);
}

}  // namespace

LineReader::LineReader(Connection& connection, const LineQuery& query, const AmountLayout& layout,
                       const AccountAmounts& amounts)
    : priced_(!amounts.unit.empty()), done_(false) {
  std::string wanted = columns;
  int next = furtherColumns;
  const auto add = [&](const char* column) {
    wanted += column;
    return next++;
  };
  if (layout.showsQuantities()) quantityColumn_ = add(", s.dAmount");
  if (layout.showsForeign()) foreignColumn_ = add(", s.mForeign");
  if (layout.showsForeign() && !amounts.currency.empty()) rateColumn_ = add(", s.dFrat");
  cursor_ = connection.query(lineStatement(query, wanted));
  advance();
}

void LineReader::advance() {
  if (!cursor_->next()) {
    done_ = true;
    cursor_.reset();
    return;
  }
  const auto& row = *cursor_;
  const auto billDate = row.date(bill);
  putDate(line_.dateText, billDate);
  putVoucher(line_.voucherNumber, row.text(word), static_cast<int>(row.integer(number)));
  line_.summary = row.text(digest);
  line_.month = billDate.month;
  const auto figure = [&](int column) { return column < 0 ? 0 : row.real(column); };
  const SideFigures figures{figure(quantityColumn_), figure(foreignColumn_), row.real(money)};
  const bool debit = row.integer(direct) != 0;
  line_.debit = debit ? figures : SideFigures{};
  line_.credit = debit ? SideFigures{} : figures;
  line_.exchangeRate = figure(rateColumn_);
  const bool priced = priced_ && figures.amount != 0 && figures.quantity != 0;
  line_.unitPrice = priced ? figures.amount / figures.quantity : 0;
}

}  // namespace tz
