#include "core/ledger/line_reader.h"

#include "core/grid/figures.h"

namespace tz {
namespace {

constexpr const char* columns =
    "m.dtBill, m.sWord, m.nNumber, s.sDigest, s.bDirect, s.mMoney, s.lCodeId, s.lId, s.lTieId";
enum Column { bill, word, number, digest, direct, money, accountId, lineId, voucherId, furtherColumns };

}  // namespace

LineReader::LineReader(Connection& connection, const LineQuery& query, const GroupLevels& levels,
                       const AmountLayout& layout) {
  std::string wanted = columns;
  int next = furtherColumns;
  const auto add = [&](const char* column) {
    wanted += column;
    return next++;
  };
  if (layout.showsQuantities()) quantityColumn_ = add(", s.dAmount");
  if (layout.showsForeign()) foreignColumn_ = add(", s.mForeign");
  if (layout.showsForeign()) rateColumn_ = add(", s.dFrat");
  if (!levels.empty()) wanted += groups_.emplace(levels, next).ofLines();
  cursor_ = connection.query(lineStatement(query, wanted));
  advance();
  done_ = ended();
}

void LineReader::advance() {
  if (!cursor_->next()) {
    done_ = true;
    cursor_.reset();
    return;
  }
  if (groups_ && groups_->read(*cursor_, key_)) done_ = true;
  readRow();
}

void LineReader::openBlock(const GroupKey& key) { done_ = ended() || key_ != key; }

void LineReader::readRow() {
  const auto& row = *cursor_;
  line_.date = row.date(bill);
  line_.voucherNumber.clear();
  appendVoucher(line_.voucherNumber, row.text(word), static_cast<int>(row.integer(number)));
  line_.summary = row.text(digest);
  line_.month = line_.date.month;
  const auto figure = [&](int column) { return column < 0 ? 0 : row.real(column); };
  const SideFigures figures{figure(quantityColumn_), figure(foreignColumn_), row.real(money)};
  const bool debit = row.integer(direct) != 0;
  line_.debit = debit ? figures : SideFigures{};
  line_.credit = debit ? SideFigures{} : figures;
  line_.account = row.integer(accountId);
  line_.line = row.integer(lineId);
  line_.voucher = row.integer(voucherId);
  setPriceAndRate();
}

void LineReader::setPriceAndRate() {
  if (ended()) return;
  // A line whose amount is 0 has no price, whichever side it stands on.
  const auto& figures = line_.debit.amount != 0 ? line_.debit : line_.credit;
  line_.exchangeRate = rated_ && rateColumn_ >= 0 ? cursor_->real(rateColumn_) : 0;
  line_.unitPrice = priced_ && figures.amount != 0 && figures.quantity != 0 ? figures.amount / figures.quantity : 0;
}

}  // namespace tz
