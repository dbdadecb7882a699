#include "core/reports/offers.h"

#include <map>
#include <set>

#include "core/catalogue/catalogue.h"
#include "core/ledger/detail_report.h"
#include "support/namesakes.h"

namespace tz::test {
namespace {

class Offers : public DatabaseTest {
 protected:
  Offers() {
    fillNamesakes(ledger_);
    fillOddNames(ledger_);
    db_.Open(ledger_.address());
  }
  [[nodiscard]] std::variant<Conditions, Refusal> answer(const DialogSpec& dialog, const Request& request) {
    Session session{.db = db_, .ledger = ledger_.address(), .logon = {2006, 1, 31}};
    return validate(dialog, request, session);
  }
  // The first entry of each list, but of this key's the one at this place; nothing when there are not so many.
  [[nodiscard]] std::optional<Request> chosen(const DialogSpec& dialog, ParameterKey tried, std::size_t place) const {
    Request request;
    for (const auto& control : dialog.controls) {
      for (const auto key : keysOf(control)) {
        const auto offer = offered(dialog, key, request, db_);
        const auto wanted = key == tried ? place : 0;
        if (key == tried && wanted >= offer.size()) return std::nullopt;
        if (!offer.empty() && control.kind != ControlSpec::Kind::accountLists) {
          request.choose(key, choiceOf(key, offer[wanted]));
        }
      }
    }
    return request;
  }

  TestLedger ledger_{GetParam()};
  CQnCwDB db_;
};
TZ_ON_BOTH_DATABASES(Offers);

// Which record the conditions came to, by the key that asked for it; of a clerk, who is a name, whether there is one.
const std::map<ParameterKey, Id (*)(const Conditions&)> resolvedIds = {
    {ParameterKey::account, [](const Conditions& c) { return c.account.lId; }},
    {ParameterKey::dept, [](const Conditions& c) { return c.dept.lDeptId; }},
    {ParameterKey::person, [](const Conditions& c) { return c.person.lId; }},
    {ParameterKey::unit, [](const Conditions& c) { return c.unit.lId; }},
    {ParameterKey::unitClass, [](const Conditions& c) { return c.unitClass.lId; }},
    {ParameterKey::clerk, [](const Conditions& c) -> Id { return c.clerk.name.empty() ? 0 : 1; }},
    {ParameterKey::projectClass, [](const Conditions& c) { return c.projectClass.lId; }},
    {ParameterKey::project, [](const Conditions& c) { return c.project.lId; }},
};

// Every dialog, every list, every entry: departments called "全部" and classes and clerks called "其它" among them.
TEST_P(Offers, AnEntryThatIsPickedIsThatVeryRecord) {
  std::map<ParameterKey, std::set<Id>> reached;
  for (const auto* report : catalogue()) {
    for (const auto& [key, resolved] : resolvedIds) {
      SCOPED_TRACE(std::to_string(report->command) + " " + std::string(parameter(key).option));
      const auto* control = controlOf(report->dialog, key);
      if (control == nullptr || control->kind == ControlSpec::Kind::accountLists) continue;
      for (std::size_t place = 0;; ++place) {
        const auto request = chosen(report->dialog, key, place);
        if (!request) break;
        const auto offer = offered(report->dialog, key, *request, db_);
        EXPECT_EQ(placeIn(offer, report->dialog, key, *request, db_), static_cast<int>(place));
        const auto answered = answer(report->dialog, *request);
        const auto* conditions = std::get_if<Conditions>(&answered);
        if (conditions == nullptr) continue;  // somebody without movements
        EXPECT_EQ(resolved(*conditions), offer.at(place).datum) << offer.at(place).text;
        reached[key].insert(offer.at(place).datum);
      }
    }
  }
  EXPECT_EQ(reached[ParameterKey::dept], (std::set<Id>{0, 11, 12, 13, 14}));
  EXPECT_EQ(reached[ParameterKey::person], (std::set<Id>{1, 2, 3}));
  EXPECT_EQ(reached[ParameterKey::unit], (std::set<Id>{0, 1, 2, 3}));
  EXPECT_EQ(reached[ParameterKey::unitClass], (std::set<Id>{0, 1, 2, 3}));
  EXPECT_EQ(reached[ParameterKey::clerk], (std::set<Id>{0, 1}));
  EXPECT_EQ(reached[ParameterKey::projectClass], (std::set<Id>{1, 2}));
  EXPECT_EQ(reached[ParameterKey::project], (std::set<Id>{1, 2}));
}

// Conditions kept of another ledger, or of this one before it changed: the id is another record's, the text decides.
TEST_P(Offers, AnIdOfAnotherNameGivesWayToTheText) {
  const auto resolve = [&](int command, ParameterKey key, const MemberChoice& member) {
    const auto& dialog = findReport(command)->dialog;
    auto request = *chosen(dialog, key, 0);
    request.choose(key, member);
    return resolvedIds.at(key)(std::get<Conditions>(answer(dialog, request)));
  };
  EXPECT_EQ(resolve(10206, ParameterKey::dept, {"采购部", 11}), 13);
  EXPECT_EQ(resolve(10208, ParameterKey::unit, {"宏达", 1}), 3);
  EXPECT_EQ(resolve(10205, ParameterKey::unitClass, {"客户", 3}), 1);
  EXPECT_EQ(resolve(10205, ParameterKey::unitClass, {"其它", 2}), 3);
  EXPECT_EQ(resolve(10221, ParameterKey::projectClass, {"RD", 2}), 1);
  EXPECT_EQ(resolve(10190, ParameterKey::person, {"0302 李明", 4}), 1);
  EXPECT_EQ(resolve(10222, ParameterKey::dept, {"全部", 11}), 0);
}

// Another operator renames an account and takes a department's name while a report is computed.
class OneMoment : public Offers {
 protected:
  OneMoment() {
    keeper = &ledger_.keeper();
    renamed.formats = [](const Conditions& conditions) {
      keeper->execute("UPDATE Code SET sName = '后来的名字'");
      keeper->execute("UPDATE Dept SET sDeptName = '后来的部门'");
      return findReport(10190)->formats(conditions);
    };
  }
  static inline Connection* keeper = nullptr;
  // With what its family needs: the computation goes by it.
  DetailReport renamed = static_cast<const DetailReport&>(*findReport(10190));
};
TZ_ON_BOTH_DATABASES(OneMoment);

TEST_P(OneMoment, EverythingThatComesBackIsOfTheMomentOfTheRows) {
  Session session{.db = db_, .ledger = ledger_.address(), .logon = {2006, 1, 31}};
  Request request;
  request.set(ParameterKey::account, "1221");
  request.choose(ParameterKey::dept, {"D1 销售部", 12});
  request.set(ParameterKey::person, "0301 李明");
  request.set(ParameterKey::format, "数量金额式");
  ComboList depts;
  const RunOptions options{.formatYields = true, .alongside = [&](const Conditions& c) {
                             depts = offered(renamed.dialog, ParameterKey::dept, c.request, db_);
                           }};
  const auto outcome = runReport(renamed, request, session, options);
  const auto& report = std::get<ComputedReport>(outcome);
  EXPECT_EQ(report.subtitle, "科目：1221 职工借款\n部门：销售部     个人：李明");
  EXPECT_EQ(report.resolved->accountText(), "1221 职工借款");
  EXPECT_EQ(report.resolved->dept.sDeptName, "销售部");
  ASSERT_EQ(depts.size(), 4U);
  EXPECT_EQ(depts.front().text, "D1 销售部");
  EXPECT_EQ(report.resolved->request.text(ParameterKey::format), "") << "the account does not offer it";
  EXPECT_EQ(report.formats, std::vector{AmountFormat::amount});
  EXPECT_EQ(report.format, AmountFormat::amount);
  const auto after = runReport(renamed, request, session);
  EXPECT_EQ(std::get<Refusal>(after).text, "非法的部门");
}

}  // namespace
}  // namespace tz::test
