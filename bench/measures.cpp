// bench: takes every measure and prints it with its bar, as ratios of CPU time of whole processes. Ledgers are grown
// from the sample company: a million posted lines, of which one person has a tenth, and the same at a tenth of the
// size.
//
//   bench [GROUP...]      all measures, or those of the groups members, tables, clearing, windows, making, grid,
//                         server; what is measured on a server only with TZ_TEST_POSTGRES (bench/run sets it)
//   bench workbook N FILE a grid of N rows as a workbook, for the measure of that name
//   bench grid N          the same grid alone
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fmt/format.h>
#include <limits>
#include <set>

#include "bench/clearing_measures.h"
#include "bench/grid_work.h"
#include "bench/process.h"
#include "bench/table.h"
#include "core/data/connection.h"
#include "core/data/record_io.h"
#include "core/data/records.h"

namespace tz::bench {
namespace {

namespace fs = std::filesystem;

const std::string build = TZ_BUILD;
const std::string program = build + "/src/tzassistant";
constexpr std::int64_t million = 1'000'000;

// A member of the detail ledger, as a person asks for it and as its rows are selected.
struct Member {
  std::string account, dept, person;
  Id accountId, deptId, personId;

  [[nodiscard]] Command report(const std::string& ledger) const {
    return {program, "report",   "10190", "--ledger", ledger, "--account", account, "--dept",
            dept,    "--person", person,  "--from",   "1",    "--to",      "12"};
  }
  [[nodiscard]] std::string select() const {
    return fmt::format(
        "SELECT m.dtBill, m.sWord, m.nNumber, s.sDigest, s.bDirect, s.mMoney, s.lCodeId, s.lId, s.lTieId "
        "FROM RegSub s CROSS JOIN RegMain m WHERE m.lTieId = s.lTieId AND m.byPeroid BETWEEN 1 AND 12 AND "
        "+lCodeId IN ({}) AND lDeptId = {} AND lPersonId = {} ORDER BY s.dtDate, s.lId, s.lTieId",
        accountId, deptId, personId);
  }
};

// The member with the fewest lines of at least `lines` on person accounts.
Member memberOf(const std::string& ledger, int lines) {
  const auto connection = openLedger(ledger, Access::read);
  const auto found = connection->query(Sql(
      "SELECT c.sCode, d.sDeptName, p.sName, c.lId, d.lDeptId, p.lId, count(*) FROM RegSub s, Code c, Dept d, Person p "
      "WHERE c.lId = s.lCodeId AND d.lDeptId = s.lDeptId AND p.lId = s.lPersonId AND p.lDeptId = d.lDeptId AND "
      "c.sAssBook LIKE '%A%' GROUP BY c.sCode, d.sDeptName, p.sName, c.lId, d.lDeptId, p.lId "
      "HAVING count(*) >= ? ORDER BY 7, 6, 4 LIMIT 1",
      lines));
  if (!found->next()) throw std::runtime_error("no member of that size");
  return {std::string(found->text(0)), std::string(found->text(1)), std::string(found->text(2)),
          found->integer(3),           found->integer(4),           found->integer(5)};
}

// A list member: the ledger of a unit account, unit by unit.
struct ListMember {
  std::string account;
  Id accountId;

  [[nodiscard]] Command report(const std::string& ledger) const {
    return {program, "report", "10203", "--ledger", ledger, "--account", account, "--from", "1", "--to", "12"};
  }
  [[nodiscard]] std::string select() const {
    return fmt::format(
        "SELECT m.dtBill, m.sWord, m.nNumber, s.sDigest, s.bDirect, s.mMoney, s.lCodeId, s.lId, s.lTieId, s.lEnterId "
        "FROM RegSub s CROSS JOIN RegMain m WHERE m.lTieId = s.lTieId AND m.byPeroid BETWEEN 1 AND 12 AND "
        "+lCodeId IN ({}) AND lEnterId <> 0 ORDER BY s.lEnterId, s.dtDate, s.lTieId, s.lId",
        accountId);
  }
};

// That with the fewest lines of at least `lines`.
ListMember listMemberOf(const std::string& ledger, int lines) {
  const auto connection = openLedger(ledger, Access::read);
  const auto found = connection->query(
      Sql("SELECT c.sCode, c.lId, count(*) FROM RegSub s, Code c WHERE c.lId = s.lCodeId AND c.sAssBook LIKE '%B%' AND "
          "s.lEnterId <> 0 GROUP BY c.sCode, c.lId HAVING count(*) >= ? ORDER BY 3, 2 LIMIT 1",
          lines));
  if (!found->next()) throw std::runtime_error("no list member of that size");
  return {std::string(found->text(0)), found->integer(1)};
}

void createLedger(const std::string& address, std::int64_t lines) {
  run({program, "ledger", "create", address, "--sample", "--lines", std::to_string(lines)});
}

void measureMembers(const std::string& large, const std::string& small) {
  const auto big = memberOf(large, 100'000);
  const auto detail = compare(big.report(large), {build + "/bench/bare_scan", large, big.select()}, {.pairs = 7});
  printRatio("detail ledger of 100 000 lines as text", "stepping the same rows", detail, 1.3);
  printFigure("the same, memory", "", detail.peakMiB, 32, "MiB");
  const auto list = listMemberOf(large, 100'000);
  printRatio("an account's ledger, unit by unit, of more than 100 000 lines", "stepping the same rows",
             compare(list.report(large), {build + "/bench/bare_scan", large, list.select()}, {.pairs = 7}), 1.5);

  printRatio("the lines with a text, of all lines", "stepping the columns that are searched",
             compare({program, "find", "差旅费", "--ledger", large},
                     {build + "/bench/bare_scan", large, "SELECT lId, lTieId, mMoney, sDigest, sBusiness FROM RegSub"},
                     {.pairs = 7}),
             1.25);

  const auto few = memberOf(large, 30);
  printRatio("a member of 30 lines", "sqlite3 running the SELECT",
             compare(few.report(large), {"sqlite3", large, few.select()}, {.pairs = 41}), 1.25);
  const auto fewOfSmall = memberOf(small, 30);
  printRatio("the same", "on a tenth of the ledger",
             compare(few.report(large), fewOfSmall.report(small), {.pairs = 41}), 1.1);
  printRatio("start of the command line", "sqlite3 -version",
             compare({program, "--version"}, {"sqlite3", "-version"}, {.pairs = 41}), 2);
}

// The sample company with many more persons on an account, each with a balance in every month.
ListMember addBalances(const std::string& ledger, int records) {
  constexpr int months = 12;
  constexpr double odd = 0.37;
  const auto keeper = openLedger(ledger, Access::keeper);
  const auto number = [&](const char* select) {
    const auto found = keeper->query(Sql(select));
    if (!found->next()) throw std::runtime_error("the sample company is another");
    return found->integer(0);
  };
  const ListMember member{"122101", number("SELECT lId FROM Code WHERE sCode = '122101'")};
  const Id depts = number("SELECT count(*) FROM Dept");
  const Id firstDept = number("SELECT min(lDeptId) FROM Dept");
  Id person = number("SELECT max(lId) FROM Person");
  Id record = number("SELECT max(lId) FROM AssAcc");
  std::vector<PersonInfo> persons;
  std::vector<AssAccInfo> balances;
  while (std::ssize(balances) < records) {
    ++person;
    persons.push_back(
        {person, fmt::format("P{:06}", person), fmt::format("职员{:06}", person), firstDept + person % depts});
    double standing = 0;
    for (int month = 1; month <= months; ++month) {
      AssAccInfo balance{.lId = ++record, .lCodeId = member.accountId};
      balance.lDeptId = persons.back().lDeptId;
      balance.lPersonId = person;
      balance.byPeroid = month;
      balance.mBegin = standing;
      balance.mDebit = static_cast<double>(person % 1000) + odd;
      balance.mCredit = static_cast<double>(record % 1000) + odd;
      standing += balance.mDebit - balance.mCredit;
      balances.push_back(balance);
    }
  }
  Transaction transaction(*keeper, Transaction::Purpose::writing);
  insertRecords(*keeper, persons);
  insertRecords(*keeper, balances);
  transaction.commit();
  return member;
}

void measureTables(const std::string& ledger) {
  run({program, "ledger", "create", ledger, "--sample"});
  const auto member = addBalances(ledger, 250'000);
  const auto select = fmt::format(
      "SELECT lCodeId, byPeroid, mBegin, mDebit, mCredit, lDeptId, lPersonId FROM AssAcc WHERE +lCodeId IN ({}) AND "
      "lDeptId > 0 AND lPersonId > 0 AND byPeroid BETWEEN 1 AND 12 ORDER BY lDeptId, lPersonId, byPeroid, lId",
      member.accountId);
  printRatio("a balance table over 250 000 AssAcc records, a row for each of 20 000 persons", "stepping the same rows",
             compare({program, "report", "10183", "--ledger", ledger, "--account", member.account, "--from", "1",
                      "--to", "12"},
                     {build + "/bench/bare_scan", ledger, select}, {.pairs = 15}),
             1.5);
}

void measureWindows(const std::string& large) {
  const std::string windows = build + "/bench/desktop_work";
  printRatio("the navigator painted once", "an empty window with the same fonts",
             compare({windows, "navigator"}, {windows, "empty"}, {.pairs = 15}), 1.5);
  const auto big = memberOf(large, 100'000);
  printRatio("the window of 100 000 lines, first rows shown", "the same as text",
             compare({windows, "report", large, big.account, big.dept, big.person}, big.report(large), {.pairs = 7}),
             1.5);
}

void measureMaking(const fs::path& folder, const std::string& large) {
  const auto script = (folder / "load.sql").string();
  run({"sh", "-c", "sqlite3 '" + large + "' .dump > '" + script + "'"});
  const auto made = run({program, "ledger", "create", (folder / "made.db").string(), "--sample", "--lines", "1000000"});
  const auto loaded = run({"sqlite3", (folder / "loaded.db").string()}, script);
  printFigure("making a million lines, indexes included", "sqlite3 loading a dump of them",
              made.cpuSeconds / loaded.cpuSeconds, 1, "×");
}

// What one does with a million rows at once, beside a loop that reads every cell of them; the making of the grid, which
// all of them begin with, is taken off.
void measureRows(const std::string& windows) {
  constexpr int times = 40;
  const auto secondsOf = [&](const char* work) {
    double least = std::numeric_limits<double>::max();
    for (int round = 0; round < 3; ++round) {
      least = std::min(least, run({windows, "rows", work, std::to_string(times)}).cpuSeconds);
    }
    return least;
  };
  const double making = secondsOf("none");
  const double bare = secondsOf("bare") - making;
  const std::string against = "reading every cell";
  printFigure("a filter over a million rows", against, (secondsOf("filter") - making) / bare, 3, "×");
  printFigure("folding all blocks of them, or opening them", against, (secondsOf("fold") - making) / bare, 1, "×");
  printFigure("selecting all of them and adding them up", against, (secondsOf("select") - making) / bare, 2, "×");
}

void measureGrid(const fs::path& folder, const std::string& self) {
  const auto report = makeReport(million);
  const auto bytes = report.grid.MemoryUsed() + report.subjects.memoryUsed();
  printFigure("a grid of a million rows and what each is about", "",
              static_cast<double>(bytes) / static_cast<double>(million), 200, "bytes a row");
  const std::string windows = build + "/bench/desktop_work";
  printRatio("5 000 pages of it scrolled and painted", "an empty table of that size",
             compare({windows, "scroll", "grid", "5000"}, {windows, "scroll", "table", "5000"}, {.pairs = 5}), 3);
  measureRows(windows);
  const auto ours = (folder / "ours.xlsx").string();
  const auto theirs = (folder / "theirs.xlsx").string();
  const auto workbook = compare({self, "workbook", std::to_string(million), ours},
                                {build + "/bench/bare_xlsx", theirs, std::to_string(million)}, {.pairs = 5});
  printRatio("a workbook of a million rows, its grid included", "the library alone", workbook, 2);
  const auto beyondGrid = [&](std::int64_t rows) {
    const auto count = std::to_string(rows);
    return run({self, "workbook", count, ours}).peakMiB - run({self, "grid", count}).peakMiB;
  };
  const auto ofTenth = beyondGrid(million / 10);
  printFigure("the same, memory beyond its grid", fmt::format("{:.1f} MiB at a tenth of the rows", ofTenth),
              beyondGrid(million), 16, "MiB");
}

// The client itself: Debian's command of that name is a script that takes four times as long to find it.
std::string psql() {
  fs::path newest;
  for (const auto& version : fs::directory_iterator("/usr/lib/postgresql")) {
    const auto found = version.path() / "bin" / "psql";
    if (fs::exists(found)) newest = std::max(newest, found);
  }
  return newest.string();
}

void measureOnServer(const std::string& address) {
  const Server machine(address);  // while nobody is connected
  openEmpty(address)->execute("CREATE DATABASE bench TEMPLATE template0");
  const auto ledger = databaseOf(address, "bench");
  createLedger(ledger, million);
  openLedger(ledger, Access::keeper)->execute("ANALYZE");
  const auto client = psql();
  const auto both = [&](const std::string& what, const Member& member, const Sampling& how) {
    printRatio(what, "psql --csv running the SELECT, client and server together",
               compare(member.report(ledger), {client, "-X", "--csv", ledger, "-c", member.select()}, how), 1.25);
  };
  both("detail ledger of 100 000 lines on PostgreSQL, client and server together", memberOf(ledger, 100'000),
       {.pairs = 7, .server = &machine});
  both("a member of 30 lines there", memberOf(ledger, 30), {.pairs = 7, .times = 20, .server = &machine});
}

int measure(const std::string& self, const std::set<std::string>& groups) {
  static const std::set<std::string> known = {"members", "tables", "clearing", "windows", "making", "grid", "server"};
  for (const auto& group : groups) {
    if (!known.contains(group)) throw std::runtime_error("no group of measures is called " + group);
  }
  const auto wanted = [&](const char* group) { return groups.empty() || groups.contains(group); };
  ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  const auto folder = fs::temp_directory_path() / fmt::format("tz-bench-{}", std::rand());
  fs::create_directories(folder);
  fs::permissions(folder, fs::perms::owner_all);
  ::setenv("XDG_RUNTIME_DIR", folder.c_str(), 0);  // the window toolkit complains without one
  const auto large = (folder / "large.db").string();
  const auto small = (folder / "small.db").string();
  if (wanted("members") || wanted("windows") || wanted("making")) createLedger(large, million);
  if (wanted("members")) createLedger(small, million / 10);
  printHead();
  if (wanted("members")) measureMembers(large, small);
  if (wanted("tables")) measureTables((folder / "tables.db").string());
  const char* server = std::getenv("TZ_TEST_POSTGRES");
  if (wanted("clearing")) {
    measureClearing(folder, program, build + "/bench/bare_scan", server == nullptr ? "" : server);
  }
  if (wanted("windows")) measureWindows(large);
  if (wanted("making")) measureMaking(folder, large);
  if (wanted("grid")) measureGrid(folder, self);
  if (server != nullptr && wanted("server")) measureOnServer(server);
  fs::remove_all(folder);
  return missed() == 0 ? 0 : 1;
}

}  // namespace
}  // namespace tz::bench

int main(int argc, char** argv) {
  try {
    if (argc == 4 && std::string(argv[1]) == "workbook") {
      tz::bench::writeWorkbook(std::atoll(argv[2]), argv[3]);
      return 0;
    }
    if (argc == 3 && std::string(argv[1]) == "grid") {
      (void)tz::bench::makeReport(std::atoll(argv[2]));
      return 0;
    }
    return tz::bench::measure(argv[0], {argv + 1, argv + argc});
  } catch (const std::exception& error) {
    std::fprintf(stderr, "bench: %s\n", error.what());
    return 2;
  }
}
