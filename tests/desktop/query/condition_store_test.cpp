#include "desktop/query/condition_store.h"

#include <QFile>
#include <gtest/gtest.h>

#include "support/test_ledger.h"

namespace tz::test {
namespace {

class ConditionStoreTest : public ::testing::Test {
 protected:
  void write(const char* text) {
    QFile out(QString::fromStdString(file.string()));
    ASSERT_TRUE(out.open(QIODevice::WriteOnly));
    out.write(text);
  }
  std::string contents() {
    QFile in(QString::fromStdString(file.string()));
    return in.open(QIODevice::ReadOnly) ? in.readAll().toStdString() : std::string();
  }

  TempFolder folder;
  std::filesystem::path file = folder.path() / "配置" / "conditions.json";  // the folder is made at need
  FileConditionStore store{file};
};

TEST_F(ConditionStoreTest, KeepsConditionsPerReportAndName) {
  Request request;
  request.set(ParameterKey::dept, "O'Brien'; DROP TABLE Plan --");
  request.set(ParameterKey::from, "2");
  request.set(ParameterKey::unposted, "1");
  request.choose(ParameterKey::person, {"0302 李明", 7});
  for (const auto& condition : allParameters()) {
    if (!condition.choices.empty()) request.set(condition.key, condition.choices.back().value);
  }
  EXPECT_TRUE(store.Names(10190).empty());
  store.Save(10190, "甲\"{}", request);
  store.Save(10190, "乙", {});
  store.Save(10191, "甲\"{}", {});
  store.Remove(10190, "乙");
  const FileConditionStore later(file);
  EXPECT_EQ(later.Names(10190), std::vector<std::string>{"甲\"{}"});
  EXPECT_EQ(later.Load(10190, "甲\"{}").values(), request.values());
  EXPECT_EQ(later.Load(10190, "甲\"{}").ids(), request.ids());
  EXPECT_TRUE(later.Load(10191, "甲\"{}").values().empty());
  EXPECT_THROW(static_cast<void>(later.Load(10190, "乙")), StoreError);
}

TEST_F(ConditionStoreTest, BrokenFileIsNeitherReadNorReplaced) {
  store.Save(10190, "甲", {});
  for (const char* text : {"{\"10190\":", "[1, 2]", "null", ""}) {
    write(text);
    EXPECT_THROW(static_cast<void>(store.Names(10190)), StoreError) << text;
    EXPECT_THROW(store.Save(10190, "乙", {}), StoreError) << text;
    EXPECT_THROW(store.Remove(10190, "甲"), StoreError) << text;
    EXPECT_EQ(contents(), text);
  }
}

// Last conditions are nothing to lose: a broken file of theirs begins anew, and named ones do not hang on it.
TEST_F(ConditionStoreTest, LastConditionsStandApart) {
  Request request;
  request.choose(ParameterKey::person, {"0302 李明", 7});
  store.Save(10190, "甲", {});
  store.KeepLast(10190, request);
  EXPECT_EQ(store.Last(10190)->ids(), request.ids());
  EXPECT_EQ(store.Names(10190), std::vector<std::string>{"甲"});
  file = file.parent_path() / "last-conditions.json";
  write("{");
  EXPECT_THROW(static_cast<void>(store.Last(10190)), StoreError);
  store.KeepLast(10191, request);
  EXPECT_TRUE(store.Last(10191));
  EXPECT_FALSE(store.Last(10190));
}

TEST_F(ConditionStoreTest, ValueThatIsNoneIsToldWithItsName) {
  store.Save(10190, "甲", {});
  write(R"({"10190": {"甲": {"from": "13"}, "乙": {"later": "1", "to": "4"}}})");
  try {
    static_cast<void>(store.Load(10190, "甲"));
    FAIL() << "month 13 was taken";
  } catch (const StoreError& error) {
    EXPECT_NE(std::string(error.what()).find("甲"), std::string::npos);
    EXPECT_NE(std::string(error.what()).find("起始月份"), std::string::npos);
    EXPECT_EQ(std::string(error.what()).find("--"), std::string::npos) << "no words of the command line";
  }
  EXPECT_EQ(store.Load(10190, "乙").month(ParameterKey::to), 4);
}

TEST_F(ConditionStoreTest, PlaceThatCannotBeWrittenIsTold) {
  std::filesystem::create_directories(file);  // a folder stands where the file should
  EXPECT_THROW(store.Save(10190, "甲", {}), StoreError);
}

}  // namespace
}  // namespace tz::test
