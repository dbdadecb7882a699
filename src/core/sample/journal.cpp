#include "core/sample/journal.h"

#include <stdexcept>

#include "core/data/record_io.h"

namespace tz::sample {
namespace {

constexpr std::size_t linesPerBlock = 20'000;
constexpr std::array<const char*, 3> words = {"收", "付", "转"};

// Money that leaves is 付 even when it goes from the bank to the cash box.
std::size_t wordOf(const Voucher& voucher) {
  bool in = false;
  for (const auto& line : voucher.lines) {
    if (!accountRow(line.key.account).code.starts_with("100")) continue;
    if ((line.side == credit) == (line.money > 0)) return 1;
    in = true;
  }
  return in ? 0 : 2;
}

// Entered on the voucher's day, those of every third day on the next one of the same month.
Date entryDate(Date bill) {
  if (bill.day % 3 != 0 || bill.day == daysInMonth(bill.year, bill.month)) return bill;
  return {bill.year, bill.month, static_cast<std::uint8_t>(bill.day + 1)};
}

void copyLine(const Line& line, RegSubInfo& record) {
  const auto& row = accountRow(line.key.account);
  record.lCodeId = line.key.account;
  record.lDeptId = line.key.dept;
  record.lPersonId = line.key.person;
  record.lEnterId = line.key.unit;
  record.lItemId = line.key.item;
  record.sItemId = classId(line.key.projectClass);
  record.mMoney = static_cast<double>(line.money) / 100.0;
  record.bDirect = line.side;
  record.dAmount = static_cast<double>(line.quantity) / 1000.0;
  record.mForeign = static_cast<double>(line.foreign) / 100.0;
  record.dFrat = static_cast<double>(line.rate) / static_cast<double>(rateUnit);
  record.byExchId = row.currency;
  record.sDigest = line.digest;
  record.sName = line.clerk;
  record.byFlag = line.flag;
  record.sBusiness = line.business;
}

}  // namespace

template <class AnyBlock>
void Journal::append(AnyBlock& block, const Voucher& voucher, const RegMainInfo& head) {
  static_cast<RegMainInfo&>(block.heads.emplace_back()) = head;
  for (const auto& line : voucher.lines) {
    auto& record = block.lines.emplace_back();
    copyLine(line, record);
    record.lId = ++lastLine_;
    record.lTieId = head.lTieId;
    record.dtDate = head.dtDate;
  }
  if (block.lines.size() >= linesPerBlock) flush(block);
}

template <class AnyBlock>
void Journal::flush(AnyBlock& block) {
  if (connection_ != nullptr) {
    insertRecords(*connection_, block.heads);
    insertRecords(*connection_, block.lines);
  }
  block.heads.clear();
  block.lines.clear();
}

void Journal::opening(const Voucher& voucher) {
  if (voucher.difference() != 0) throw std::logic_error("an opening voucher does not balance: " + voucher.digest);
  RegMainInfo head{++lastVoucher_,
                   0,
                   voucher.date,
                   day(1, 1),
                   "记",
                   ++openingNumber_,
                   voucher.attachments,
                   std::string(maker),
                   std::string(checker),
                   std::string(poster)};
  append(posted_, voucher, head);
  postedLines_ += static_cast<std::int64_t>(voucher.lines.size());
  for (const auto& line : voucher.lines) {
    if (line.key.person != 0 || line.key.unit != 0) openBalance(line);
  }
}

void Journal::openBalance(const Line& line) {
  written_.open(line);
  script_.open(line);
}

void Journal::scripted(const Voucher& voucher) {
  for (const auto& line : voucher.lines) script_.move(line, voucher.date.month);
  post(voucher);
}

void Journal::grown(const Voucher& voucher) { post(voucher); }

void Journal::post(const Voucher& voucher) {
  if (voucher.difference() != 0) throw std::logic_error("a voucher does not balance: " + voucher.digest);
  const auto word = wordOf(voucher);
  RegMainInfo head{++lastVoucher_,          voucher.date.month, voucher.date,
                   entryDate(voucher.date), words[word],        ++numbers_[voucher.date.month][word],
                   voucher.attachments,     std::string(maker)};
  const auto lines = static_cast<std::int64_t>(voucher.lines.size());
  if (voucher.date <= lastPostedDay) {
    head.sChecker = checker;
    head.sPoster = poster;
    for (const auto& line : voucher.lines) written_.move(line, voucher.date.month);
    append(posted_, voucher, head);
    postedLines_ += lines;
  } else {
    if (voucher.date.month < 12) head.sChecker = checker;
    append(unposted_, voucher, head);
    unpostedLines_ += lines;
  }
}

void Journal::finish() {
  flush(posted_);
  flush(unposted_);
  if (connection_ != nullptr) written_.write(*connection_);
}

}  // namespace tz::sample
