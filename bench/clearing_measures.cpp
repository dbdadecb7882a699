#include "bench/clearing_measures.h"

#include <algorithm>
#include <fmt/format.h>
#include <functional>
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

// What a party's open lines are like: their amounts, and which of them have a business number.
struct Lines {
  std::string name;
  std::function<double(int line, unsigned chance)> amount;
  std::function<std::string(int line)> number;
};

// Two lines stand for a pair; mixed ones have some that no other takes, and some with a number.
std::vector<Lines> kindsOfLines() {
  constexpr int lonely = 5, numbered = 3, cents = 100;
  const auto none = [](int) { return std::string(); };
  const auto ofPair = [](int pair) { return static_cast<double>(pair + 1) / cents; };
  return {
      {"of one party",
       [=](int line, unsigned chance) {
         return line / 2 % lonely == 0 ? static_cast<double>(chance) / cents : ofPair(line / 2 * 7919 % 1'000'003);
       },
       [=](int line) { return line / 2 % numbered == 0 ? fmt::format("B{}", line / 2) : std::string(); }},
      {"all of one amount", [](int, unsigned) { return 100.0; }, none},
      {"no two of one amount", [=](int line, unsigned) { return ofPair(line); }, none},
      {"all of one business number", [=](int line, unsigned) { return ofPair(line / 2); },
       [](int) { return std::string("B1"); }},
  };
}

// A ledger of one unit with so many open lines, five to a voucher.
void makeOpenLines(const std::string& program, const std::string& ledger, int count, const Lines& kind) {
  constexpr int linesEach = 5, months = 12, days = 28;
  run({program, "ledger", "create", ledger, "--empty", "--year", "2006"});
  const auto keeper = openLedger(ledger, Access::keeper);
  std::vector<RegMainInfo> heads;
  std::vector<RegSubInfo> lines;
  std::minstd_rand dice(1);
  for (int line = 0; line < count; ++line) {
    const Id voucher = line / linesEach + 1;
    const Date date{2006, static_cast<std::uint8_t>(1 + voucher % months),
                    static_cast<std::uint8_t>(1 + voucher % days)};
    if (line % linesEach == 0) {
      heads.push_back({.lTieId = voucher, .byPeroid = date.month, .dtBill = date, .dtDate = date});
      heads.back().sWord = "记";
      heads.back().nNumber = static_cast<int>(voucher);
    }
    RegSubInfo one{.lId = line + 1, .lTieId = voucher, .lCodeId = 1, .lEnterId = 1};
    one.mMoney = kind.amount(line, static_cast<unsigned>(dice()));
    one.bDirect = line % 2;
    one.sDigest = "销售货款";
    one.sBusiness = kind.number(line);
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

// Where ledgers are made: in a folder, or on a server.
struct Place {
  std::function<std::string(const std::string& name)> make;   // the address of one that is to be made
  std::function<std::string(const std::string& made)> fresh;  // of a copy of one that was made
  const Server* server = nullptr;
  std::string words = {};
};

Place inFolder(const fs::path& folder) {
  return {.make =
              [folder](const std::string& name) {
                const auto made = (folder / (name + ".db")).string();
                fs::remove(made);
                return made;
              },
          .fresh =
              [](const std::string& made) {
                const auto copy = made + ".copy";
                for (const char* beside : {"", "-wal", "-shm"}) fs::remove(copy + beside);
                fs::copy_file(made, copy);
                return copy;
              }};
}

Place onServer(const std::string& address, const Server& server) {
  const auto run = [address](const std::string& text) { openEmpty(address)->execute(Sql(text)); };
  return {.make =
              [=](const std::string& name) {
                run("DROP DATABASE IF EXISTS " + name);
                run("CREATE DATABASE " + name + " TEMPLATE template0");
                return databaseOf(address, name);
              },
          .fresh =
              [=, &server](const std::string& made) {
                server.settle();  // who is still connected keeps a database from being copied
                const auto end = made.rfind('?');
                const auto start = made.rfind('/', end) + 1;
                run("DROP DATABASE IF EXISTS fresh");
                run("CREATE DATABASE fresh TEMPLATE " + made.substr(start, end - start));
                return databaseOf(address, "fresh");
              },
          .server = &server,
          .words = " on PostgreSQL, client and server together"};
}

// The least of several runs, each over a fresh copy.
double secondsToMatch(const std::string& program, const std::string& ledger, const Place& place) {
  double least = std::numeric_limits<double>::max();
  for (int round = 0; round < 5; ++round) {
    const auto copy = place.fresh(ledger);
    const auto used = sample({program, "clear", "match", "--ledger", copy, "--kind", "unit", "--all"},
                             {.pairs = 1, .server = place.server});
    least = std::min(least, used.cpuSeconds);
  }
  return least;
}

void measureMatching(const std::string& program, const Place& place) {
  constexpr int many = 200'000;
  constexpr double bar = 2.2;
  for (const auto& kind : kindsOfLines()) {
    const auto secondsFor = [&](const std::string& name, int count) {
      const auto ledger = place.make(name);
      makeOpenLines(program, ledger, count, kind);
      return secondsToMatch(program, ledger, place);
    };
    const double half = secondsFor("half", many / 2);
    printFigure(fmt::format("automatic matching of 200 000 open lines, {}{}", kind.name, place.words), "half of them",
                secondsFor("whole", many) / half, bar, "×");
  }
}

}  // namespace

void measureClearing(const fs::path& folder, const std::string& program, const std::string& bareScan,
                     const std::string& server) {
  const auto here = inFolder(folder);
  measureMatching(program, here);
  if (!server.empty()) {
    const Server machine(server);
    measureMatching(program, onServer(server, machine));
  }
  constexpr int many = 200'000;
  const auto whole = here.make("listed");
  makeOpenLines(program, whole, many, kindsOfLines().front());
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
