// The conditions that reports ask for. One record per condition: its option on the command line, its label, the kind of
// its value and its help; dialogs, command line and saved conditions all go by it.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace tz {

enum class ParameterKey {
  account,
  dept,
  person,
  unit,
  unitClass,
  clerk,
  projectClass,
  project,
  projectFrom,
  projectTo,
  accountFrom,
  accountTo,
  from,
  to,
  unposted,
  minimum,
  maximum,
  side,
  cutoff,
  analysis,
  month,
  creditLimit,
  unitGrouping,
  deptGrouping,
  clearingGrouping,
  hideDetails,
  hideZero,
  format,
};

// One of the few values that a condition may have: as it is typed, and as windows and subtitles say it.
struct ParameterChoice {
  std::string_view value;
  std::string_view caption;
};

// Each at the place of its value.
enum class BalanceSide : std::uint8_t { both, debit, credit };
inline constexpr std::array balanceSides = {ParameterChoice{"both", "双方余额"}, ParameterChoice{"debit", "借方余额"},
                                            ParameterChoice{"credit", "贷方余额"}};
// Of multi-column ledgers: sums of net movements, or of their absolute values.
enum class Analysis : std::uint8_t { balance, amount };
inline constexpr std::array analyses = {ParameterChoice{"balance", "余额分析"}, ParameterChoice{"amount", "金额分析"}};
// Of the units' project table: whose projects, or which project's units stand together.
inline constexpr std::array unitGroupings = {ParameterChoice{"unit", "按单位统计"},
                                             ParameterChoice{"project", "按项目统计"}};

// Of the projects' department ledger: which departments' projects, or which project's departments stand together.
inline constexpr std::array deptGroupings = {ParameterChoice{"dept", "按部门查"},
                                             ParameterChoice{"project", "按项目查"}};

// Of unit two-clearing: what the lines stand together by.
enum class ClearingGrouping : std::uint8_t { date, dept, project, clerk };
inline constexpr std::array clearingGroupings = {ParameterChoice{"date", "按日期"}, ParameterChoice{"dept", "按部门"},
                                                 ParameterChoice{"project", "按项目"},
                                                 ParameterChoice{"clerk", "按业务员"}};

struct Parameter {
  enum class Kind {
    text,    // a code or name
    list,    // codes, one on each line; the option may be repeated
    month,   // 1 to 12
    amount,  // a number
    date,    // YYYY-MM-DD
    choice,  // one of `choices`
    flag,    // given or not
  };

  ParameterKey key;
  std::string_view option;  // without its dashes
  std::string_view label;   // as windows name it
  Kind kind;
  std::string_view valueName;  // as help shows the value; empty for flags
  std::string_view help;
  std::span<const ParameterChoice> choices = {};
  std::string_view fieldHelp = {};  // of its field in windows, where that reads otherwise
  std::string_view savedAs = {};    // its name in saved conditions, where another condition has the same option
  bool byCode = false;              // asked for by the code with which the entries of its list begin

  [[nodiscard]] std::string_view savedName() const { return savedAs.empty() ? option : savedAs; }
  [[nodiscard]] std::string_view helpInWindow() const { return fieldHelp.empty() ? help : fieldHelp; }
};

[[nodiscard]] std::span<const Parameter> allParameters();
[[nodiscard]] const Parameter& parameter(ParameterKey key);

// A value that is none of its kind, or a choice that is not offered: an error of use, not a refusal. What it says fits
// windows and the command line alike; which condition it is about, each of them says in its own way.
class WrongUse : public std::invalid_argument {
 public:
  explicit WrongUse(const std::string& words) : std::invalid_argument(words) {}
  WrongUse(ParameterKey about, const std::string& words) : std::invalid_argument(words), about_(about) {}

  // The condition at fault, where it is one.
  [[nodiscard]] std::optional<ParameterKey> about() const { return about_; }
  // "--from：…" for the command line, "起始月份：…" where no field shows what is meant.
  [[nodiscard]] std::string withOption() const;
  [[nodiscard]] std::string withLabel() const;

 private:
  std::optional<ParameterKey> about_;
};

}  // namespace tz
