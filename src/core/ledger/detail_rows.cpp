#include "core/ledger/detail_rows.h"

#include <algorithm>
#include <cmath>

#include "core/ledger/direction_text.h"

namespace tz {
namespace {

constexpr int summaryColumn = 2;

// Below this an opening balance counts as none and has no row.
constexpr double openingThreshold = 0.00001;

}  // namespace

DetailRows::DetailRows(ComputedReport& computed, const AmountLayout& layout, SubAccountColumns* columns)
    : grid_(computed.grid), subjects_(computed.subjects), layout_(layout), columns_(columns) {
  if (columns_ == nullptr) {
    addLedgerColumns(grid_, layout_, threeColumnCaptions);
  } else {
    addLedgerColumns(grid_, layout_, multiColumnCaptions);
    columns_->addTo(grid_);
  }
  computed.carried = {.caption = summaryColumn,
                      .firstBalance = layout_.balance.direction,
                      .lastBalance = std::max({layout_.balance.amount, layout_.balance.foreign})};
}

void DetailRows::about(const Subject& subject, int level) {
  subject_ = subjects_.keep(subject);
  level_ = level;
  ofAccount_.clear();
  ofAccount_.emplace(subject.account, subject_);
}

bool DetailRows::hasOpeningRow(const LedgerBalance& balance) { return std::abs(balance.amount) >= openingThreshold; }

void DetailRows::writeOpening(std::string_view caption, const LedgerBalance& balance) {
  if (!hasOpeningRow(balance)) return;
  const auto row = appendNamed(RowKind::opening);
  grid_.SetText(row, summaryColumn, caption);
  writeBalance(grid_, row, layout_.opening, balance.amount >= 0 ? "借" : "贷", balance);
}

void DetailRows::writeLine(const LedgerLine& line, const LedgerBalance& balance, Book book) {
  const auto row = appendRow(RowKind::line);
  subjects_.set(row, subjectOf(line.account), level_, {.book = book, .line = line.line, .voucher = line.voucher});
  grid_.SetDate(row, 0, line.date);
  fillRow(row, line, balance);
  if (columns_ != nullptr) columns_->writeLine(grid_, row, line);
  if (book == Book::posted) return;
  grid_.SetBackground(row, lightGreen);
  grid_.SetRowData(row, 1);
}

std::int64_t DetailRows::writeTotal(const LedgerLine& total, const LedgerBalance& balance, RowKind kind) {
  const auto row = appendNamed(kind);
  fillRow(row, total, balance);
  return row;
}

void DetailRows::writeHeading(std::string_view name) {
  grid_.SetText(appendNamed(RowKind::heading), summaryColumn, name);
}

void DetailRows::fillRow(std::int64_t row, const LedgerLine& line, const LedgerBalance& balance) {
  grid_.SetText(row, 1, line.voucherNumber);
  grid_.SetText(row, summaryColumn, line.summary);
  writeMovements(grid_, row, layout_, line);
  writeBalance(grid_, row, layout_.balance, runningDirection(balance.amount), balance);
}

std::string_view DetailRows::runningDirection(double amount) const {
  return directionText(amount, columns_ == nullptr ? directions::running : directions::multiColumn);
}

std::int64_t DetailRows::appendRow(RowKind kind) {
  const auto row = grid_.GetRows();
  grid_.SetRows(row + 1);
  grid_.SetRowKind(row, kind);
  return row;
}

std::int64_t DetailRows::appendNamed(RowKind kind) {
  const auto row = appendRow(kind);
  subjects_.set(row, subject_, level_);
  return row;
}

RowSubjects::Place DetailRows::subjectOf(Id account) {
  const auto [known, isNew] = ofAccount_.try_emplace(account);
  if (isNew) {
    Subject subject = subjects_.at(subject_);
    subject.account = account;
    known->second = subjects_.keep(std::move(subject));
  }
  return known->second;
}

}  // namespace tz
