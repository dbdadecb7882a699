#include "ledger/detail_engine.h"

#include <cmath>

#include "grid/tz_grid.h"
#include "ledger/amount_layout.h"
#include "ledger/line_reader.h"
#include "reports/cancellation.h"
#include "reports/messages.h"

namespace tz {
namespace {

constexpr int summaryColumn = 2;

// Below this an opening balance counts as none and has no row.
constexpr double openingThreshold = 0.00001;

std::string_view openingDirection(double amount) { return amount >= 0 ? "借" : "贷"; }

// Coarser than the opening's on purpose, and a balance of exactly the threshold reads "贷".
std::string_view runningDirection(double amount) {
  constexpr double threshold = 0.0001;
  if (std::abs(amount) < threshold) return "平";
  return amount > threshold ? "借" : "贷";
}

// The account condition and the member's dimension keys: what its lines and balances have in common.
Sql memberFilter(const DetailMember& member, const Conditions& conditions) {
  return conditions.data->GetCodeSubString(conditions.account.sCode) + " AND " + member.dimension(conditions);
}

class DetailRun {
 public:
  DetailRun(const DetailMember& member, Session& session, const Conditions& conditions, CTzGrid& grid)
      : member_(member),
        session_(session),
        conditions_(conditions),
        data_(*conditions.data),
        grid_(grid),
        layout_(amountLayout(conditions.format)),
        filter_(memberFilter(member, conditions)),
        steps_(session) {}

  void run() {
    addLedgerColumns(grid_, layout_);
    readOpening();
    writeOpening();
    posted_ = lines(Book::posted);
    if (conditions_.unposted) unposted_ = lines(Book::unposted);
    while (!posted_.done() || !unposted_.done()) {
      if (!walkMonths()) break;
    }
    reportLinesLeft();
  }

 private:
  [[nodiscard]] LineReader lines(Book book) const {
    return {session_.db.Current(), memberLines(member_, conditions_, book), layout_, conditions_.amounts};
  }

  void readOpening() {
    const auto records =
        session_.db.Current().query(Sql("SELECT lCodeId, dBegin, mBeginFor, mBegin FROM AssAcc WHERE ") + filter_ +
                                    Sql(" AND byPeroid = ? ORDER BY lId", conditions_.from));
    while (records->next()) {
      const auto* account = data_.GetCODEINFOByID(records->integer(0));
      const double sign = account->bDirect != 0 ? 1 : -1;
      balance_.quantity += sign * records->real(1);
      balance_.foreignAmount += sign * records->real(2);
      balance_.amount += sign * records->real(3);
    }
    if (conditions_.unposted) addEarlierUnposted();
    recomputePriceAndRate();
  }

  // Amounts only: quantities and foreign amounts of earlier unposted lines stay out of the opening.
  void addEarlierUnposted() {
    const LineQuery earlier{Book::unposted, filter_, 0, conditions_.from - 1, {}};
    const auto rows = session_.db.Current().query(lineStatement(earlier, "s.bDirect, s.mMoney"));
    while (rows->next()) balance_.amount += rows->integer(0) != 0 ? rows->real(1) : -rows->real(1);
  }

  void recomputePriceAndRate() {
    const auto fresh = CGetData::GetScalAndPrice(balance_.amount, balance_.quantity, balance_.foreignAmount,
                                                 conditions_.amounts.rateMethod);
    const bool amount = balance_.amount != 0;
    if (!conditions_.amounts.unit.empty() && amount && balance_.quantity != 0) balance_.unitPrice = fresh.price;
    if (!conditions_.amounts.currency.empty() && amount && balance_.foreignAmount != 0) {
      balance_.exchangeRate = fresh.rate;
    }
  }

  void writeOpening() {
    if (std::abs(balance_.amount) < openingThreshold) return;
    const auto row = appendRow(RowKind::opening);
    grid_.SetText(row, summaryColumn, member_.openingCaption);
    writeBalance(grid_, row, layout_.opening, openingDirection(balance_.amount), balance_);
  }

  // One walk over the months; whether it consumed any line. A line whose voucher date lies outside the months stops its
  // list, and the walk is repeated for those behind it as long as that helps.
  bool walkMonths() {
    bool any = false;
    for (int month = conditions_.from; month <= conditions_.to; ++month) {
      bool inMonth = takeMonth(posted_, month, false);
      inMonth = takeMonth(unposted_, month, true) || inMonth;
      if (inMonth) writeTotals();
      any = any || inMonth;
    }
    return any;
  }

  bool takeMonth(LineReader& reader, int month, bool unposted) {
    bool any = false;
    for (; !reader.done() && reader.line().month == month; reader.advance()) {
      const auto& line = reader.line();
      monthTotal_.debit += line.debit;
      monthTotal_.credit += line.credit;
      balance_.quantity += line.debit.quantity - line.credit.quantity;
      balance_.foreignAmount += line.debit.foreign - line.credit.foreign;
      balance_.amount += line.debit.amount - line.credit.amount;
      recomputePriceAndRate();
      writeRow(line, RowKind::line, unposted);
      steps_.step();
      any = true;
    }
    return any;
  }

  void writeTotals() {
    monthTotal_.summary = "本月合计";
    writeRow(monthTotal_, RowKind::subtotal, false);
    yearTotal_.debit += monthTotal_.debit;
    yearTotal_.credit += monthTotal_.credit;
    yearTotal_.summary = "本年累计";
    writeRow(yearTotal_, RowKind::subtotal, false);
    monthTotal_ = {};
  }

  void writeRow(const LedgerLine& line, RowKind kind, bool unposted) {
    const auto row = appendRow(kind);
    if (unposted) grid_.SetBackground(row, lightGreen);
    grid_.SetRowData(row, unposted ? 1 : 0);
    grid_.SetText(row, 0, line.dateText);
    grid_.SetText(row, 1, line.voucherNumber);
    grid_.SetText(row, summaryColumn, line.summary);
    writeMovements(grid_, row, layout_, line);
    writeBalance(grid_, row, layout_.balance, runningDirection(balance_.amount), balance_);
  }

  std::int64_t appendRow(RowKind kind) {
    const auto row = grid_.GetRows();
    grid_.SetRows(row + 1);
    grid_.SetRowKind(row, kind);
    return row;
  }

  void reportLinesLeft() {
    std::int64_t left = 0;
    for (auto* reader : {&posted_, &unposted_}) {
      for (; !reader->done(); reader->advance()) ++left;
    }
    if (left > 0) grid_.notices.push_back(messageText(MessageId::linesOutsideMonths, {std::to_string(left)}));
  }

  const DetailMember& member_;
  Session& session_;
  const Conditions& conditions_;
  CGetData& data_;
  CTzGrid& grid_;
  const AmountLayout& layout_;
  Sql filter_;
  Steps steps_;
  LineReader posted_;
  LineReader unposted_;
  LedgerBalance balance_;
  LedgerLine monthTotal_;
  LedgerLine yearTotal_;
};

}  // namespace

LineQuery memberLines(const DetailMember& member, const Conditions& conditions, Book book) {
  const auto order = book == Book::posted ? member.postedOrder : member.unpostedOrder;
  return {book, memberFilter(member, conditions), conditions.from, conditions.to, order};
}

void runDetailLedger(const DetailMember& member, Session& session, const Conditions& conditions, CTzGrid& grid) {
  DetailRun(member, session, conditions, grid).run();
}

}  // namespace tz
