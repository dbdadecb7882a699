// Ledger files damaged at random: cut off, bits flipped, pages emptied or overwritten by others. Whatever the damage,
// opening, checking and every report end with an answer or an error. What is promised beyond that:
//
// - a ledger that `ledger check` calls sound holds exactly the rows it held before, and in them every value but those
//   of the columns listed here, which no rule and no second figure covers;
// - so a report that shows something else than before, without an error, is of a ledger that the check finds fault
//   with, or shows one of those values.
//
// TZ_DAMAGED_LEDGERS asks for more rounds than the ordinary run has; TZ_FIRST_DAMAGE for the round to begin with.
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iostream>
#include <map>
#include <set>

#include "core/check/ledger_check.h"
#include "core/data/create_ledger.h"
#include "core/data/schema.h"
#include "core/ledger/random_ledger.h"
#include "core/sample/sample_company.h"
#include "support/every_report.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

using naive::Dice;

// "Table.column", or a column of whatever table it stands in.
bool isUncovered(const std::string& column) {
  static const std::set<std::string, std::less<>> all = {
      // names and other texts
      ".sName", ".sDeptId", ".sDeptName", ".sPersonId", ".sEnterId", ".sEnterName", ".sAddress", ".sContact", ".sPhone",
      ".sPassHash", ".sUnit", ".sDigest", ".sBusiness", ".sWord", ".sMaker", ".sChecker", ".sPoster", ".sTitle",
      ".sType", ".FIELD0", ".FIELD1", ".FIELD2", ".FIELD3", ".FIELD4", ".FIELD5", ".FIELD6",
      // vouchers: their number, date within the year, attachments; marks
      ".nNumber", ".dtBill", ".nAttach", ".byFlag",
      // quantities of unposted lines: balances cover those of posted ones
      "UnregSub.dAmount",
      // rates, plans, limits, intervals
      ".dFrat", "Plan.mPPlan", "Plan.mPFact", "Plan.mPLast", "Enter.mCredit", "Ages.lLength", ".bLock"};
  return all.contains(column) || all.contains(column.substr(column.find('.')));
}

// "Table.column" of every table and view of the ledger.
std::vector<std::string> allColumns(Connection& connection) {
  std::vector<std::string> all;
  const auto columns = connection.query(
      "SELECT t.name || '.' || c.name FROM sqlite_master t, pragma_table_info(t.name) c WHERE t.type = 'table'");
  while (columns->next()) all.push_back(columns->anyText(0));
  return all;
}

std::string valuesOf(Connection& connection, const std::string& column) {
  const auto dot = column.find('.');
  const auto name = column.substr(dot + 1);
  const bool figure = name[0] == 'm' || (name[0] == 'd' && !name.starts_with("dt"));
  // The check compares figures in whole millionths.
  return rowsOf(connection,
                Sql("SELECT " + (figure ? "round(" + name + " * 1e6)" : name) + " FROM " + column.substr(0, dot)));
}

struct Seen {
  bool sound = false;                         // the check found nothing
  std::vector<std::string> answers;           // empty text: an error
  std::map<std::string, std::string> values;  // by column
};

class DamagedLedgers : public ::testing::Test {
 protected:
  DamagedLedgers() {
    createLedger(path_, [](Connection& connection) { fillSample(connection, {}); });
    {
      // Smaller pages make more trees of several levels; without WAL there is one file.
      const auto keeper = openLedger(path_, Access::keeper);
      for (const char* statement : {"PRAGMA journal_mode = DELETE", "PRAGMA page_size = 1024", "VACUUM"}) {
        keeper->execute(Sql(statement));
      }
      columns_ = allColumns(*keeper);
    }
    std::ifstream file(path_, std::ios::binary);
    bytes_ = {std::istreambuf_iterator<char>(file), {}};
    Reader reader(path_);
    questions_ = everyReport(reader);
    whole_ = see();
  }

  // A copy of the ledger with damage that follows from the number alone.
  void damage(int round) {
    auto bytes = bytes_;
    Dice dice(static_cast<std::uint64_t>(round));
    const auto place = [&](std::size_t below) { return static_cast<std::size_t>(dice.below(static_cast<int>(below))); };
    const auto page = [&] { return bytes.begin() + static_cast<std::ptrdiff_t>(place(bytes.size() / 1024) * 1024); };
    switch (dice.below(8)) {
      case 0:
        bytes.resize(place(bytes.size()));
        break;
      case 1:
        std::fill_n(page(), 1024, '\0');
        break;
      case 2:
        std::copy_n(page(), 1024, page());
        break;
      case 3: {  // where a page says what is in it
        auto header = page();
        header[dice.below(32)] ^= static_cast<char>(1U << static_cast<unsigned>(dice.below(8)));
        break;
      }
      default:
        for (int flips = 1 << dice.below(4); flips > 0; --flips) {
          bytes[place(bytes.size())] ^= static_cast<char>(1U << static_cast<unsigned>(dice.below(8)));
        }
    }
    for (const char* suffix : {"-wal", "-shm", "-journal"}) std::filesystem::remove(path_ + suffix);
    std::ofstream(path_, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  }

  [[nodiscard]] bool isSound() const {
    bool sound = true;
    checkLedger(*openAsStored(path_), [&](const Violation& violation) { sound = sound && violation.hint; });
    return sound;
  }

  [[nodiscard]] Seen see() {
    Seen seen;
    seen.answers.resize(questions_.size());
    try {
      Reader reader(path_);
      for (std::size_t i = 0; i < questions_.size(); ++i) {
        try {
          seen.answers[i] = answerText(reader.ask(questions_[i]));
        } catch (const std::exception&) {  // a class id of other signs, for one, is no error of the database
          seen.answers[i].clear();
        }
      }
      seen.sound = isSound();
      if (!seen.sound) return seen;
      for (const auto& column : columns_) seen.values[column] = valuesOf(reader.db().Current(), column);
    } catch (const std::exception&) {
      seen.sound = false;
    }
    return seen;
  }

  TempFolder folder_;
  std::string path_ = folder_.file("damaged.db");
  std::string bytes_;
  std::vector<Question> questions_;
  std::vector<std::string> columns_;
  Seen whole_;
};

int setting(const char* name, int otherwise) {
  const char* value = std::getenv(name);
  return value == nullptr ? otherwise : std::atoi(value);
}

TEST_F(DamagedLedgers, NeitherCrashNorPassForSound) {
  ASSERT_TRUE(whole_.sound);
  for (const auto& answer : whole_.answers) ASSERT_NE(answer, "");
  const int first = setting("TZ_FIRST_DAMAGE", 1);
  const int rounds = setting("TZ_DAMAGED_LEDGERS", 60);
  int errors = 0, faulty = 0, silent = 0, same = 0;
  for (int round = first; round < first + rounds; ++round) {
    SCOPED_TRACE("round " + std::to_string(round));
    damage(round);
    const auto seen = see();
    bool failed = false, differs = false;
    for (std::size_t i = 0; i < seen.answers.size(); ++i) {
      failed = failed || seen.answers[i].empty();
      differs = differs || (!seen.answers[i].empty() && seen.answers[i] != whole_.answers[i]);
    }
    ++(differs ? (seen.sound ? silent : faulty) : failed ? errors : same);
    if (!seen.sound) continue;
    for (const auto& [column, values] : seen.values) {
      EXPECT_TRUE(values == whole_.values.at(column) || isUncovered(column)) << column << " changed unseen";
    }
  }
  std::cout << "errors " << errors << ", differing and found by the check " << faulty << ", differing in values "
            << "that nothing covers " << silent << ", the same " << same << "\n";
  EXPECT_GT(errors, 0);
  EXPECT_GT(same, 0);
}

}  // namespace
}  // namespace tz::test
