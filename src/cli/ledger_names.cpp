#include "cli/ledger_names.h"

#include <cstdlib>
#include <filesystem>

#include "core/catalogue/catalogue.h"
#include "core/reports/offers.h"
#include "core/reports/operator.h"

namespace tz::cli {
namespace {

std::string givenFor(const GivenValues& given, const char* name) {
  const auto found = given.find(name);
  return found == given.end() ? "" : found->second;
}

// The ledger's path; empty when none is named or it is no file. A shell hands over "~/" as it was typed.
std::string ledgerFile(const GivenValues& given) {
  auto path = givenFor(given, given.contains("--ledger") ? "--ledger" : "LEDGER");
  const char* home = std::getenv("HOME");
  if (path.starts_with("~/") && home != nullptr) path.replace(0, 1, home);
  std::error_code ignored;
  return std::filesystem::is_regular_file(path, ignored) ? path : "";
}

// The conditions that are on the line already.
Request requestOf(const GivenValues& given) {
  Request request;
  for (const auto& condition : allParameters()) {
    const auto found = given.find("--" + std::string(condition.option));
    try {
      if (found != given.end()) request.set(condition.key, found->second);
    } catch (const WrongUse&) {
      // What is no value narrows no list.
    }
  }
  return request;
}

}  // namespace

std::vector<std::pair<std::string, std::string>> ledgerNames(const Parameter& condition, const GivenValues& given) {
  std::vector<std::pair<std::string, std::string>> names;
  const auto path = ledgerFile(given);
  const auto* report = findReport(std::atoi(givenFor(given, "ID").c_str()));
  if (path.empty() || report == nullptr) return names;
  try {
    CQnCwDB db(Access::read);
    db.Open(path);
    if (needsLogon(db)) return names;
    for (const auto& entry : offered(report->dialog, condition.key, requestOf(given), db)) {
      auto word = valueOf(condition.key, entry.text);
      auto beside = entry.text == word ? entry.beside : entry.text.substr(word.size() + 1);
      names.emplace_back(std::move(word), std::move(beside));
    }
  } catch (const DbError&) {
    names.clear();
  }
  return names;
}

std::vector<std::string> operatorNames(const GivenValues& given) {
  std::vector<std::string> names;
  const auto path = ledgerFile(given);
  if (path.empty()) return names;
  try {
    CQnCwDB db(Access::read);
    db.Open(path);
    for (const auto& one : db.zOperator_GetInfo("lId > 0 ORDER BY lId")) names.push_back(one.sName);
  } catch (const DbError&) {
    names.clear();
  }
  return names;
}

}  // namespace tz::cli
