#include "bench/clearing_measures.h"

#include <algorithm>
#include <fmt/format.h>
#include <limits>
#include <random>

#include "bench/process.h"
#include "bench/table.h"
#include "core/data/connection.h"
#include "core/data/record_io.h"
#include "core/data/records.h"

namespace tz::bench {
namespace {

namespace fs = std::filesystem;

// A ledger of one unit with so many open lines, five to a voucher: most of them pairs, some with a business number.
void makeOpenLines(const std::string& program, const std::string& ledger, int count) {
  constexpr int linesEach = 5, months = 12, days = 28, numbered = 3, lonely = 5, cents = 100;
  run({program, "ledger", "create", ledger, "--empty", "--year", "2006"});
  const auto keeper = openLedger(ledger, Access::keeper);
  std::vector<RegMainInfo> heads;
  std::vector<RegSubInfo> lines;
  std::minstd_rand dice(1);
  double amount = 0;
  for (int line = 0; line < count; ++line) {
    const Id voucher = line / linesEach + 1;
    const Date date{2006, static_cast<std::uint8_t>(1 + voucher % months),
                    static_cast<std::uint8_t>(1 + voucher % days)};
    if (line % linesEach == 0) {
      heads.push_back({.lTieId = voucher, .byPeroid = date.month, .dtBill = date, .dtDate = date});
      heads.back().sWord = "记";
      heads.back().nNumber = static_cast<int>(voucher);
    }
    // The second line of a pair takes the amount of the first.
    const int pair = line / 2;
    if (line % 2 == 0 || pair % lonely == 0) {
      amount = static_cast<double>(dice() % static_cast<unsigned>(count * cents)) / cents;
    }
    RegSubInfo one{.lId = line + 1, .lTieId = voucher, .lCodeId = 1, .lEnterId = 1};
    one.mMoney = amount;
    one.bDirect = line % 2;
    one.sDigest = "销售货款";
    if (pair % numbered == 0) one.sBusiness = fmt::format("B{}", pair);
    one.dtDate = date;
    lines.push_back(one);
  }
  CodeInfo account{.lId = 1, .sCode = "1122", .sName = "应收账款"};
  account.byGrade = account.bEnd = account.bDirect = 1;
  account.sAssBook = "B";
  Transaction transaction(*keeper, Transaction::Purpose::writing);
  insertRecords(*keeper, std::vector{account});
  insertRecords(*keeper, std::vector{EnterInfo{.lId = 1, .sEnterId = "E1", .sEnterName = "大客户"}});
  insertRecords(*keeper, heads);
  insertRecords(*keeper, lines);
  transaction.commit();
}

// The least of several runs, each over a fresh copy.
double secondsToMatch(const std::string& program, const std::string& ledger) {
  const auto copy = ledger + ".copy";
  double least = std::numeric_limits<double>::max();
  for (int round = 0; round < 5; ++round) {
    for (const char* beside : {"", "-wal", "-shm"}) fs::remove(copy + beside);
    fs::copy_file(ledger, copy);
    least = std::min(least, run({program, "clear", "match", "--ledger", copy, "--kind", "unit", "--all"}).cpuSeconds);
  }
  return least;
}

}  // namespace

void measureClearing(const fs::path& folder, const std::string& program, const std::string& bareScan) {
  constexpr int many = 200'000;
  const auto half = (folder / "half.db").string();
  const auto whole = (folder / "whole.db").string();
  makeOpenLines(program, half, many / 2);
  makeOpenLines(program, whole, many);
  printFigure("automatic matching of 200 000 open lines of one party", "half of them",
              secondsToMatch(program, whole) / secondsToMatch(program, half), 2.2, "×");
  const std::string select =
      "SELECT m.dtBill, m.sWord, m.nNumber, m.byPeroid, s.lId, s.lTieId, s.bDirect, s.mMoney, s.sDigest, s.sBusiness, "
      "s.byFlag FROM RegSub s CROSS JOIN RegMain m WHERE m.lTieId = s.lTieId AND lEnterId = 1 AND lEnterId <> 0 AND "
      "lCodeId = 1 AND m.dtBill <= '2006-12-31' ORDER BY m.dtBill, m.sWord, m.nNumber, s.lId, s.lTieId";
  printRatio(
      "their two-clearing as text", "stepping the same rows in the same order",
      compare({program, "report", "10211", "--ledger", whole, "--account", "1122", "--unit", "大客户", "--month", "12"},
              {bareScan, whole, select}, {.pairs = 7}),
      1.5);
}

}  // namespace tz::bench
