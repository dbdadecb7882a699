// Members of one name on the command line: the name alone is the first by lId, a code in front tells them apart.
#include "support/namesakes.h"

#include <nlohmann/json.hpp>

#include "core/data/init_combo_fun.h"
#include "core/reports/members.h"
#include "support/run_program.h"

namespace tz::test {
namespace {

class NamesakesTest : public DatabaseTest {
 protected:
  NamesakesTest() { fillNamesakes(ledger_); }

  // The opening that the report shows, or its refusal.
  [[nodiscard]] std::string opening(const std::string& report, const std::vector<std::string>& conditions) const {
    std::vector<std::string> words = {"report", report, "--ledger", ledger_.address(), "--date", "2006-01-31", "--from",
                                      "1",      "--as", "json"};
    words.insert(words.end(), conditions.begin(), conditions.end());
    const auto run = runProgram(words);
    if (run.status != 0) return run.err;
    const auto rows = nlohmann::json::parse(run.out).at("rows");
    return rows.empty() ? "" : std::to_string(rows.front().at("cells").back().get<int>());
  }

  TestLedger ledger_{GetParam()};
};

TEST_P(NamesakesTest, AreToldApartByTheirCodes) {
  const auto person = [&](const char* dept, const char* name) {
    return opening("10190", {"--account", "1221", "--dept", dept, "--person", name});
  };
  EXPECT_EQ(person("销售部", "李明"), "40") << "the first department by lId";
  EXPECT_EQ(person("D1 销售部", "李明"), "10") << "the first person by lId";
  EXPECT_EQ(person("D1 销售部", "0301 李明"), "20");
  EXPECT_EQ(person("D1 销售部", "0302 李明"), "10");
  EXPECT_EQ(person("D1 销售部", "0401 李明"), "该用户不属于该部门，请重新输入其他名字。\n");
  EXPECT_EQ(person("D1 销售部", "0309 李明"), "非法的姓名\n");
  EXPECT_EQ(person("D9 销售部", "李明"), "非法的部门\n");

  const auto unit = [&](const char* name) { return opening("10208", {"--account", "1122", "--unit", name}); };
  EXPECT_EQ(unit("江源"), "100");
  EXPECT_EQ(unit("K01 江源"), "200");
  EXPECT_EQ(unit("K03 江源"), "非法的单位\n");

  const auto item = [&](const char* name) {
    return opening("10221", {"--account", "1604", "--project-class", "RD", "--project", name});
  };
  EXPECT_EQ(item("新机型"), "1000");
  EXPECT_EQ(item("R1 新机型"), "2000");
  EXPECT_EQ(item("R3 新机型"), "该项目大类下没有该项目.\n");
}

// A name that holds a blank is a name first.
TEST_P(NamesakesTest, ABlankMayBelongToTheName) {
  ledger_.keeper().execute("UPDATE Enter SET sEnterName = 'K02 江源' WHERE lId = 3");
  ledger_.keeper().execute("UPDATE AssAcc SET lEnterId = 3 WHERE lEnterId = 2");
  EXPECT_EQ(opening("10208", {"--account", "1122", "--unit", "K02 江源"}), "200");
}

// What was picked from a list is that record, while it goes by that text.
TEST_P(NamesakesTest, ARecordThatWasPickedIsThatRecord) {
  CQnCwDB db;
  db.Open(ledger_.address());
  EXPECT_EQ(findPerson(db, {"李明", 2}, 12)->sPersonId, "0301");
  EXPECT_EQ(findPerson(db, {"0301 李明", 2}, 12)->sPersonId, "0301");
  EXPECT_EQ(findPerson(db, {"李明", 3}, 12)->sPersonId, "0302") << "another one bears that id";
  EXPECT_EQ(findPerson(db, {"李明", 2}, 11)->sPersonId, "0401") << "he is not of that department";
  EXPECT_EQ(findDept(db, {"销售部", 12})->sDeptId, "D1");
  EXPECT_EQ(findUnit(db, {"江源", 2})->sEnterId, "K01");
  CGetData data(db);
  EXPECT_EQ(findItem(data, "RD", {"新机型", 2})->fields[0], "R1");
  Request request;
  request.choose(ParameterKey::unit, {"江源", 2});
  EXPECT_EQ(request.member(ParameterKey::unit).id, 2);
  request.set(ParameterKey::unit, "江源");
  EXPECT_EQ(request.member(ParameterKey::unit).id, 0) << "typed";
}

TEST_P(NamesakesTest, ListsShowCodesWhereNamesMeet) {
  CQnCwDB db;
  db.Open(ledger_.address());
  const auto texts = [](const ComboList& list) {
    std::vector<std::string> all;
    for (const auto& entry : list) all.push_back(entry.text);
    return all;
  };
  using Texts = std::vector<std::string>;
  EXPECT_EQ(texts(CInitComboFun::InitPartNameCombox(db)), (Texts{"D1 销售部", "D2 销售部", "采购部"}));
  EXPECT_EQ(texts(CInitComboFun::InitNameCombox(db, 12)), (Texts{"0301 李明", "0302 李明", "王强"}));
  EXPECT_EQ(texts(CInitComboFun::InitNameCombox(db, 11)), Texts{"李明"});
  EXPECT_EQ(texts(CInitComboFun::InitEnterCombox(db)), (Texts{"K01 江源", "K02 江源", "宏达"}));
}

TZ_ON_BOTH_DATABASES(NamesakesTest);

}  // namespace
}  // namespace tz::test
