#include "support/every_report.h"

#include <algorithm>

#include "core/catalogue/catalogue.h"

namespace tz::test {
namespace {

// What a ledger holds by name, and a value for each kind of condition that is no name.
std::vector<std::string> candidates(CQnCwDB& db) {
  std::vector<std::string> all = {"0", "2025-06-30"};
  const auto add = [&](const std::string& select) {
    const auto cursor = db.Current().query(Sql(select));
    while (cursor->next()) all.emplace_back(cursor->text(0));
  };
  add("SELECT sCode FROM Code ORDER BY sCode");
  add("SELECT sDeptName FROM Dept ORDER BY lId");
  add("SELECT sName FROM Person ORDER BY lId");
  add("SELECT sEnterName FROM Enter ORDER BY lId");
  add("SELECT sName FROM EnterClass ORDER BY lId");
  for (const auto& projectClass : db.ProjClass_GetInfo("sItemId <> '' ORDER BY lId")) {
    all.push_back(projectClass.sItemId);
    add("SELECT FIELD1 FROM " + itemTable(projectClass.sItemId) + " ORDER BY lId");
  }
  return all;
}

// Goes through the candidates of one condition after the other, the one tried first changing last.
class Search {
 public:
  explicit Search(const std::vector<std::string>& values) : values_(values) {}

  // False when everything was tried.
  bool change(Request& request, ParameterKey key) {
    if (std::ranges::find(order_, key, &Trial::key) == order_.end()) order_.push_back({key, 0});
    while (order_.back().key != key) drop(request);
    while (!order_.empty()) {
      if (setNext(request, order_.back())) return true;
      drop(request);
    }
    return false;
  }

 private:
  struct Trial {
    ParameterKey key;
    std::size_t next;
  };

  void drop(Request& request) {
    request.clear(order_.back().key);
    order_.pop_back();
  }

  bool setNext(Request& request, Trial& trial) {
    while (trial.next < values_.size()) {
      try {
        request.set(trial.key, values_[trial.next++]);
        return true;
      } catch (const WrongUse&) {
        continue;  // of another kind
      }
    }
    return false;
  }

  const std::vector<std::string>& values_;
  std::vector<Trial> order_;
};

Question questionFor(const ReportDefinition& report, Reader& reader, const std::vector<std::string>& values) {
  Question question{&report, {}};
  const auto taken = parametersOf(report);
  for (const auto key : taken) {
    if (key == ParameterKey::from) question.request.set(key, "1");
    if (key == ParameterKey::to) question.request.set(key, "12");
    const bool hides = key == ParameterKey::hideDetails || key == ParameterKey::hideZero;
    if (parameter(key).kind == Parameter::Kind::flag && !hides) question.request.set(key, "1");
  }
  const auto classes = reader.db().ProjClass_GetInfo("sItemId <> '' ORDER BY lId");
  if (!classes.empty() && std::ranges::find(taken, ParameterKey::projectClass) != taken.end()) {
    question.request.set(ParameterKey::projectClass, classes.front().sItemId);
  }
  Search search(values);
  for (int tries = 0; tries < 5000; ++tries) {
    const auto outcome = reader.ask(question);
    const auto* refusal = std::get_if<Refusal>(&outcome);
    if (refusal == nullptr || !refusal->about) break;
    auto changed = question.request;
    if (!search.change(changed, *refusal->about)) break;
    question.request = changed;
  }
  return question;
}

}  // namespace

Reader::Reader(const std::string& ledger) : session_{.db = db_, .ledger = ledger, .logon = {}} {
  db_.Open(ledger);
  session_.logon = defaultLogonDate(db_);
}

ReportOutcome Reader::ask(const Question& question) { return runReport(*question.report, question.request, session_); }

std::vector<Question> everyReport(Reader& reader) {
  const auto values = candidates(reader.db());
  std::vector<Question> questions;
  for (const auto* report : catalogue()) questions.push_back(questionFor(*report, reader, values));
  return questions;
}

std::string jsonText(const ComputedReport& report) {
  std::string text;
  writeJson(report, [&](std::string_view piece) {
    text += piece;
    return true;
  });
  return text;
}

std::string answerText(const ReportOutcome& outcome) {
  if (const auto* refusal = std::get_if<Refusal>(&outcome)) return refusal->text;
  return jsonText(std::get<ComputedReport>(outcome));
}

}  // namespace tz::test
