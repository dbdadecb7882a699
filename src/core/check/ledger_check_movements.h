// The movements of the posted lines per member (a leaf account with a combination of dimension ids) and month, in whole
// millionths, to be held against the auxiliary balances.
#pragma once

#include <array>
#include <compare>

#include "core/check/ledger_check_facts.h"

namespace tz::check {

struct MemberKey {
  Id account = 0, dept = 0, person = 0, unit = 0, item = 0;
  int projectClass = 0;  // the place of the class id in Movements

  auto operator<=>(const MemberKey&) const = default;
  [[nodiscard]] bool hasDimension() const { return dept != 0 || person != 0 || unit != 0 || item != 0; }
};

struct MemberKeyHash {
  std::size_t operator()(const MemberKey& key) const {
    std::uint64_t hash = 0;
    for (const auto part : {key.account, key.dept, key.person, key.unit, key.item, Id{key.projectClass}}) {
      hash = (hash ^ static_cast<std::uint64_t>(part)) * 0x9E3779B97F4A7C15U;
      hash ^= hash >> 29U;
    }
    return hash;
  }
};

struct Figures {
  std::int64_t money = 0, quantity = 0, foreign = 0;
  bool operator==(const Figures&) const = default;
};
struct MonthMoves {
  Figures debit, credit;
  bool operator==(const MonthMoves&) const = default;
};
using YearMoves = std::array<MonthMoves, 12>;

class Movements {
 public:
  [[nodiscard]] MemberKey key(const auto& record) {
    return {record.lCodeId,  record.lDeptId, record.lPersonId,
            record.lEnterId, record.lItemId, classPlace(record.sItemId)};
  }
  // period 1 to 12.
  void add(const RegSubInfo& line, int period);
  // All zero when no line is posted there.
  [[nodiscard]] const YearMoves& of(const MemberKey& key) const;
  [[nodiscard]] std::vector<MemberKey> sortedKeys() const;
  [[nodiscard]] std::string text(const Facts& facts, const MemberKey& key) const;

 private:
  int classPlace(const std::string& classId);

  std::vector<std::string> classes_{""};
  std::unordered_map<MemberKey, YearMoves, MemberKeyHash> moves_;
};

void checkVouchers(Connection& connection, Report& report, const Facts& facts, Movements& movements);
void checkBalances(Connection& connection, Report& report, const Facts& facts, Movements& movements);

}  // namespace tz::check
