// Values on their way into a ledger and back, unchanged whatever they hold; dates and class ids in statements.
#include <limits>
#include <stdexcept>

#include "core/data/record_io.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

const std::vector<std::string> hostileTexts = {"O'Brien'; DROP TABLE Plan --",
                                               "100%",
                                               "_",
                                               "a\\b\\n\\.\\N",
                                               "\\.",
                                               "\\N",
                                               "tab\tline\nreturn\r\nend",
                                               "😀🀄 emoji",
                                               "销售部 张三",
                                               "\"quoted\" $1 ?",
                                               " blanks ",
                                               "",
                                               "NULL",
                                               "$tz$"};

// Fills every field with a value that differs from its neighbours'.
template <class Record>
Record sampleRecord(std::size_t number) {
  Record record;
  std::size_t place = number;
  Record::columns(record, [&](const char* name, auto& field) {
    using Field = std::remove_cvref_t<decltype(field)>;
    ++place;
    if constexpr (std::same_as<Field, std::string>) {
      field = hostileTexts[place % hostileTexts.size()];
    } else if constexpr (std::same_as<Field, double>) {
      field = (place % 2 == 0 ? 0.1 : -1234567.89) * static_cast<double>(place);
    } else if constexpr (std::same_as<Field, Date>) {
      field = dateFromDays(static_cast<std::int32_t>(13'000 + 31 * place));
    } else if constexpr (std::same_as<Field, Id>) {
      field = static_cast<Id>(5'000'000'000 + place);
    } else {
      const bool mark = std::string_view(name) == "byFlag";
      field = static_cast<int>(mark ? place % 3 : place);
    }
  });
  return record;
}

template <class Record>
void expectSame(const Record& found, const Record& wanted) {
  std::vector<Value> values;
  const auto collect = [&](const char*, const auto& field) {
    if constexpr (std::same_as<std::remove_cvref_t<decltype(field)>, int>) {
      values.emplace_back(static_cast<std::int64_t>(field));
    } else {
      values.emplace_back(field);
    }
  };
  Record::columns(found, collect);
  const auto half = values.size();
  Record::columns(wanted, collect);
  const auto names = columnNames<Record>();
  for (std::size_t i = 0; i < half; ++i) EXPECT_EQ(values[i], values[half + i]) << Record::table << "." << names[i];
}

class Values : public DatabaseTest {
 protected:
  TestLedger ledger{GetParam()};
};

TEST_P(Values, EveryRecordComesBackAsItWas) {
  forEachRecord([&]<class Record>() {
    std::vector<Record> records;
    for (std::size_t number = 0; number < hostileTexts.size(); ++number)
      records.push_back(sampleRecord<Record>(number));
    insertRecords(ledger.keeper(), records);
    const auto found = readRecords<Record>(ledger.keeper(), Sql("1 = 1 ORDER BY " + columnNames<Record>().front()));
    ASSERT_EQ(found.size(), records.size()) << Record::table;
    for (std::size_t i = 0; i < found.size(); ++i) expectSame(found[i], records[i]);
  });
}

TEST_P(Values, BoundTextsAreTextsAndNothingElse) {
  const std::vector<std::string> columns = {"lId", "sName"};
  for (std::size_t i = 0; i < hostileTexts.size(); ++i) {
    ledger.keeper().execute(
        Sql("INSERT INTO Person (lId, sName) VALUES (?, ?)", static_cast<std::int64_t>(i), hostileTexts[i]));
  }
  for (std::size_t i = 0; i < hostileTexts.size(); ++i) {
    EXPECT_EQ(rowsOf(ledger.keeper(), Sql("SELECT lId FROM Person WHERE sName = ?", hostileTexts[i])),
              std::to_string(i) + "\n")
        << hostileTexts[i];
  }
  EXPECT_EQ(ledger.rows("SELECT count(*) FROM Plan"), "0\n");
}

TEST_P(Values, FiguresKeepEveryBit) {
  const std::vector<double> figures = {0.1 + 0.2, 1e-300, 1.7976931348623157e308, -0.01, 123456789012.34, 1e15 + 0.3};
  auto& connection = ledger.keeper();
  for (const double figure : figures) {
    connection.execute("DELETE FROM ExchgFix");
    connection.execute(Sql("INSERT INTO ExchgFix (lId, byExchId, dFrat) VALUES (?, ?, ?)",
                           std::numeric_limits<std::int64_t>::max(), 32767, figure));
    const auto cursor = connection.query(Sql("SELECT lId, byExchId, dFrat FROM ExchgFix WHERE dFrat = ?", figure));
    ASSERT_TRUE(cursor->next());
    EXPECT_EQ(cursor->integer(0), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(cursor->integer(1), 32767);
    EXPECT_EQ(cursor->real(2), figure);
    EXPECT_EQ(std::stod(cursor->anyText(2)), figure);
    EXPECT_FALSE(cursor->next());
  }
}

TEST_P(Values, SumsAndCountsReadAlikeOnBothDatabases) {
  ledger.fill("Ages", R"(
      lId | byType | nNumber | lLength
      1   | 0      | 1       | 30
      2   | 0      | 2       | 60 )");
  ledger.fill("ExchgFix", R"(
      lId | byExchId | dFrat
      1   | 1        | 7.5
      2   | 2        | 0.5 )");
  const auto cursor = ledger.keeper().query(
      "SELECT count(*), sum(lLength), sum(nNumber), max(byType), max(lId), EXISTS (SELECT 1 FROM Plan) FROM Ages");
  ASSERT_TRUE(cursor->next());
  const std::vector<std::int64_t> wanted = {2, 90, 3, 0, 2, 0};
  for (int column = 0; column < cursor->columns(); ++column) {
    const auto figure = wanted[static_cast<std::size_t>(column)];
    EXPECT_EQ(cursor->integer(column), figure) << column;
    EXPECT_EQ(cursor->real(column), static_cast<double>(figure)) << column;
    EXPECT_EQ(cursor->text(column), std::to_string(figure)) << column;
    EXPECT_EQ(cursor->anyText(column), std::to_string(figure)) << column;
  }
  EXPECT_EQ(ledger.rows("SELECT sum(dFrat) FROM ExchgFix"), "8\n");
  const auto nothing = ledger.keeper().query("SELECT max(mPPlan), max(sItemId), max(lId) FROM Plan");
  ASSERT_TRUE(nothing->next());
  EXPECT_EQ(nothing->real(0), 0.0);
  EXPECT_EQ(nothing->text(1), "");
  EXPECT_EQ(nothing->integer(2), 0);
  EXPECT_EQ(nothing->anyText(2), "");
}

TEST_P(Values, DatesMoveByDaysInTheirOwnForm) {
  ledger.fill("RegMain", R"(
      lTieId | byPeroid | dtBill     | dtDate
      1      | 1        | 2006-01-31 | 2006-01-31
      2      | 2        | 2006-02-28 | 2006-02-28
      3      | 12       | 2004-02-28 | 2006-12-31 )");
  const auto& dialect = ledger.keeper().dialect();
  const auto moved = [&](int days) {
    return rowsOf(ledger.keeper(),
                  Sql("SELECT lTieId, ") + dialect.dateAdd("dtBill", days) + " FROM RegMain ORDER BY lTieId");
  };
  EXPECT_EQ(moved(1), "1|2006-02-01\n2|2006-03-01\n3|2004-02-29\n");
  EXPECT_EQ(moved(-31), "1|2005-12-31\n2|2006-01-28\n3|2004-01-28\n");
  const auto due = Sql("SELECT lTieId, dtBill, dtDate FROM RegMain WHERE ") + dialect.dateAdd("dtBill", 30) +
                   Sql(" <= ? ORDER BY lTieId", Date{2006, 3, 2});
  const auto cursor = ledger.keeper().query(due);
  ASSERT_TRUE(cursor->next());
  EXPECT_EQ(cursor->text(1), "2006-01-31");
  ASSERT_TRUE(cursor->next());
  EXPECT_EQ(cursor->date(1), (Date{2004, 2, 28}));
  EXPECT_EQ(cursor->text(1), "2004-02-28");
  EXPECT_EQ(cursor->text(2), "2006-12-31");
  EXPECT_FALSE(cursor->next());
}

TEST_P(Values, ClassIdsAreTextsWithTheirZeros) {
  ledger.fill("ProjClass", R"(
      lId | sItemId | sName
      1   | 01      | 工程
      2   | 1       | 合同 )");
  EXPECT_EQ(rowsOf(ledger.keeper(), Sql("SELECT sName FROM ProjClass WHERE ") + classIs("01")), "工程\n");
  EXPECT_EQ(rowsOf(ledger.keeper(), Sql("SELECT sName FROM ProjClass WHERE ") + classIs("1")), "合同\n");
  EXPECT_EQ(rowsOf(ledger.keeper(), Sql("SELECT sName FROM PROJCLASS WHERE LID = 2")), "合同\n");
  EXPECT_EQ(itemTable("01"), "ProjItems01");
  for (const auto* id : {"", "0 1", "1;DROP TABLE Plan", "项目", "a'", "a_b", "a-b"}) {
    EXPECT_THROW((void)itemTable(id), std::invalid_argument) << id;
  }
}

TEST_P(Values, ARowThatDoesNotFitIsRefused) {
  const std::vector<std::string> columns = {"lId", "byPeroid"};
  Transaction transaction(ledger.keeper(), Transaction::Purpose::writing);
  EXPECT_THROW(
      {
        const auto writer = ledger.keeper().insertInto("Plan", columns);
        writer->put(std::int64_t{1});
        writer->put(std::string_view("一月"));
        writer->endRow();
        writer->finish();
      },
      DbError);
}

TZ_ON_BOTH_DATABASES(Values);

TEST(IsoDate, ReadsCalendarDatesAlone) {
  EXPECT_EQ(parseIsoDate("2004-02-29"), (Date{2004, 2, 29}));
  for (const auto* text : {"", "2006-02-29", "2006-13-01", "2006-00-10", "2006-01-32", "2006-1-01", "2006/01/01",
                           "0000-01-01", "-006-01-01", "2006-01-0x", "2006-01-01 "}) {
    EXPECT_FALSE(parseIsoDate(text)) << text;
  }
  for (const std::int32_t days : {-719162, -1, 0, 10957, 13148}) EXPECT_EQ(daysSinceEpoch(dateFromDays(days)), days);
}

TEST(SqlText, NumbersItsValuesAcrossJoinedPieces) {
  const auto sql = Sql("a = ? AND ", 1) + Sql("b IN (?, ?)", "x", 2.5) + Sql(" OR ") + inList("c", {3, 5}) + " AND " +
                   inList("d", {});
  EXPECT_EQ(sql.numbered(), "a = $1 AND b IN ($2, $3) OR c IN (3,5) AND 1 = 0");
  EXPECT_EQ(sql.values(), (std::vector<Value>{std::int64_t{1}, "x", 2.5}));
}

}  // namespace
}  // namespace tz::test
