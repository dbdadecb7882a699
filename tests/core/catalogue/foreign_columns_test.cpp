// The sample company as another program might keep it: codes as numbers, numbers as texts, cells without a type, views
// instead of tables, NULL for nothing, other collations. Every report shows what it shows of our own tables.
#include <algorithm>
#include <fmt/format.h>
#include <functional>

#include "core/data/create_ledger.h"
#include "core/data/schema.h"
#include "core/sample/sample_company.h"
#include "support/every_report.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

using Type = Dialect::Type;

// How one column is made anew: its type, empty for none, and its value from the old one.
struct NewColumn {
  std::string type, value;
};
using Making = std::function<NewColumn(const std::string& table, const ColumnSchema& column, const std::string& own)>;

bool isNumber(const ColumnSchema& column) { return column.type != Type::text && column.type != Type::date; }

// Every table again, without rules and indexes.
void makeAnew(Connection& connection, const Making& making) {
  Transaction all(connection, Transaction::Purpose::writing);
  connection.execute("DROP VIEW IF EXISTS systable");
  for (const auto& table : ledgerTables()) {
    std::string declared, values;
    for (const auto& column : table.columns) {
      const auto made = making(table.name, column, std::string(connection.dialect().typeName(column.type)));
      declared += fmt::format("{}{} {}", declared.empty() ? "" : ", ", column.name, made.type);
      values += (values.empty() ? "" : ", ") + made.value;
    }
    connection.execute(Sql(fmt::format("CREATE TABLE Anew ({})", declared)));
    connection.execute(Sql(fmt::format("INSERT INTO Anew SELECT {} FROM {}", values, table.name)));
    connection.execute(Sql("DROP TABLE " + table.name));
    connection.execute(Sql("ALTER TABLE Anew RENAME TO " + table.name));
  }
  all.commit();
}

void putViews(Connection& connection, const std::string& idForm) {
  Transaction all(connection, Transaction::Purpose::writing);
  connection.execute("DROP VIEW IF EXISTS systable");
  for (const auto& table : ledgerTables()) {
    std::string columns;
    for (const auto& column : table.columns) {
      const auto form = column.type == Type::id ? column.name + idForm : column.name;
      columns += fmt::format("{}{} AS {}", columns.empty() ? "" : ", ", form, column.name);
    }
    connection.execute(Sql(fmt::format("ALTER TABLE {0} RENAME TO {0}_stored", table.name)));
    connection.execute(Sql(fmt::format("CREATE VIEW {0} AS SELECT {1} FROM {0}_stored", table.name, columns)));
  }
  all.commit();
}

std::string cast(const std::string& value, const std::string& type) { return "CAST(" + value + " AS " + type + ")"; }

class ForeignColumns : public DatabaseTest {
 public:
  // Both databases answer the same, so one ledger is asked for both.
  static void SetUpTestSuite() {
    const TestPlace place(Engine::sqlite);
    createLedger(place.address(), [](Connection& connection) { fillSample(connection, {}); });
    Reader reader(place.address());
    questions_ = everyReport(reader);
    own_.clear();
    for (const auto& question : questions_) own_.push_back(answerText(reader.ask(question)));
  }

 protected:
  ForeignColumns() {
    createLedger(place_.address(), [](Connection& connection) { fillSample(connection, {}); });
  }
  void expectTheSame() {
    Reader reader(place_.address());
    for (std::size_t i = 0; i < questions_.size(); ++i) {
      EXPECT_TRUE(answerText(reader.ask(questions_[i])) == own_[i]) << questions_[i].report->command;
    }
    EXPECT_NO_THROW((void)rowsOf(*openLedger(place_.address(), Access::report), "SELECT sCode FROM Code"));
  }
  void makeAnew(const Making& making) { test::makeAnew(*openLedger(place_.address(), Access::keeper), making); }

  TestPlace place_{GetParam()};
  static inline std::vector<Question> questions_;
  static inline std::vector<std::string> own_;
};
TZ_ON_BOTH_DATABASES(ForeignColumns);

TEST_P(ForeignColumns, CodesAsNumbers) {
  makeAnew([&](const std::string& table, const ColumnSchema& column, const std::string& own) -> NewColumn {
    if (table != "Code" || column.name != "sCode") return {own, column.name};
    return {"bigint", cast(column.name, "bigint")};
  });
  expectTheSame();
}

TEST_P(ForeignColumns, NumbersAsTexts) {
  makeAnew([&](const std::string&, const ColumnSchema& column, const std::string& own) -> NewColumn {
    return isNumber(column) ? NewColumn{"varchar(30)", cast(column.name, "varchar(30)")} : NewColumn{own, column.name};
  });
  expectTheSame();
}

TEST_P(ForeignColumns, NullForNothing) {
  makeAnew([&](const std::string&, const ColumnSchema& column, const std::string& own) -> NewColumn {
    if (column.type == Type::date) return {own, column.name};
    return {own, fmt::format("nullif({}, {})", column.name, isNumber(column) ? "0" : "''")};
  });
  expectTheSame();
}

// Dates that another program left out: no date for us, whatever type the column has, and no failure.
TEST_P(ForeignColumns, EmptyDates) {
  const std::string text = onServer() ? "text" : "TEXT";
  for (const auto& [type, nothing] : {std::pair(text, "''"), {text, "NULL"}, {"date", "NULL"}}) {
    SCOPED_TRACE(type + " " + nothing);
    const TestPlace place(GetParam());
    createLedger(place.address(), [](Connection& connection) { fillSample(connection, {}); });
    test::makeAnew(*openLedger(place.address(), Access::keeper),
                   [&](const std::string& table, const ColumnSchema& column, const std::string& own) -> NewColumn {
                     if (column.type != Type::date || table != "UnregMain") return {own, column.name};
                     return {type, cast(nothing, type)};
                   });
    Reader reader(place.address());
    const auto cursor = reader.db().Current().query("SELECT dtBill, dtDate FROM UnregMain");
    ASSERT_TRUE(cursor->next());
    EXPECT_TRUE(cursor->date(0).empty());
    EXPECT_EQ(cursor->text(1), "");
    std::size_t leftOut = 0;
    for (const auto& question : questions_) {
      const auto answer = answerText(reader.ask(question));
      EXPECT_TRUE(answer.starts_with('{')) << answer;
      if (answer.find("不在查询月份内") != std::string::npos) ++leftOut;
    }
    EXPECT_GT(leftOut, 0U) << "a line without a date is of no month, and that is said";
  }
}

TEST_P(ForeignColumns, ViewsInsteadOfTables) {
  putViews(*openLedger(place_.address(), Access::keeper), " + 0");
  expectTheSame();
}

class ForeignColumnsInAFile : public ForeignColumns {};
INSTANTIATE_TEST_SUITE_P(On, ForeignColumnsInAFile, ::testing::Values(Engine::sqlite), engineName);

TEST_P(ForeignColumnsInAFile, CellsOfNoType) {
  makeAnew([&](const std::string& table, const ColumnSchema& column, const std::string&) -> NewColumn {
    if (table == "Code" && column.name == "sCode") return {"", cast(column.name, "INTEGER")};
    return {"", cast(column.name, "TEXT")};
  });
  expectTheSame();
}

TEST_P(ForeignColumnsInAFile, TextsInAnotherOrder) {
  makeAnew([&](const std::string&, const ColumnSchema& column, const std::string& own) -> NewColumn {
    return {own + (column.type == Type::text ? " COLLATE NOCASE" : ""), column.name};
  });
  expectTheSame();
}

TEST_P(ForeignColumnsInAFile, HalfANumberIsNoFigure) {
  makeAnew([&](const std::string& table, const ColumnSchema& column, const std::string& own) -> NewColumn {
    if (table != "RegSub" || column.name != "mMoney") return {own, column.name};
    return {own, "'1,' || mMoney"};
  });
  Reader reader(place_.address());
  std::size_t refused = 0;
  for (std::size_t i = 0; i < questions_.size(); ++i) {
    try {
      EXPECT_TRUE(answerText(reader.ask(questions_[i])) == own_[i]) << questions_[i].report->command;
    } catch (const DbError& error) {
      EXPECT_EQ(error.kind(), DbError::Kind::otherType) << error.what();
      ++refused;
    }
  }
  // Tables stand, as they read no line; so does what shows none.
  const auto details = static_cast<std::size_t>(std::ranges::count_if(questions_, [](const Question& one) {
    return one.report->windowTitle.find("明细帐") != std::string_view::npos;
  }));
  EXPECT_GT(refused, details / 2);
}

class ForeignColumnsOnAServer : public ForeignColumns {};
INSTANTIATE_TEST_SUITE_P(On, ForeignColumnsOnAServer, ::testing::Values(Engine::postgres), engineName);

TEST_P(ForeignColumnsOnAServer, TheServersOtherTypes) {
  makeAnew([&](const std::string&, const ColumnSchema& column, const std::string&) -> NewColumn {
    switch (column.type) {
      case Type::text:
        return {"char(80)", column.name};
      case Type::date:
        return {"timestamp", column.name};
      case Type::small:
        if (column.name[1] == 'y') return {"numeric(4)", column.name};
        return {"boolean", column.name + " <> 0"};
      default:
        return {"numeric", column.name};
    }
  });
  expectTheSame();
}

TEST_P(ForeignColumnsOnAServer, TextsInAnotherOrder) {
  openLedger(place_.address(), Access::keeper)
      ->execute("CREATE COLLATION anyhow (provider = icu, locale = 'und-u-ks-level2', deterministic = false)");
  makeAnew([&](const std::string&, const ColumnSchema& column, const std::string& own) -> NewColumn {
    return {column.type == Type::text ? "text COLLATE anyhow" : own, column.name};
  });
  expectTheSame();
}

TEST_P(ForeignColumnsOnAServer, ATypeThatIsNotReadIsNamed) {
  openLedger(place_.address(), Access::keeper)
      ->execute(
          "ALTER TABLE RegSub ALTER sDigest DROP DEFAULT, ALTER sDigest "
          "TYPE bytea USING CAST(sDigest AS bytea)");
  try {
    (void)openLedger(place_.address(), Access::read);
    ADD_FAILURE() << "opened";
  } catch (const DbError& error) {
    EXPECT_EQ(error.kind(), DbError::Kind::otherType);
    EXPECT_STREQ(error.what(), "regsub.sdigest 的类型不能读：bytea");
  }
}

}  // namespace
}  // namespace tz::test
