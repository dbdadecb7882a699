#include "core/sample/plans.h"

#include "core/data/record_io.h"
#include "core/sample/chart.h"
#include "core/sample/orders.h"
#include "core/sample/random.h"

namespace tz::sample {
namespace {

// A plan of an account, of a department on it, or of one research project there. monthly: whole home units.
struct PlanRow {
  Id account;
  Id dept = 0;
  Id project = 0;
  std::int64_t monthly = 0;
};
constexpr std::array planRows = {
    PlanRow{account("660104"), 0, 0, 6'000},          PlanRow{account("660301"), 0, 0, 20'500},
    PlanRow{account("605101"), 0, 0, 460'000},        PlanRow{account("660103"), salesDept, 0, 7'500},
    PlanRow{account("660102"), salesDept, 0, 12'000}, PlanRow{account("660202"), office, 0, 1'600},
    PlanRow{account("660202"), finance, 0, 1'400},    PlanRow{account("660202"), purchasing, 0, 1'300},
    PlanRow{account("660202"), salesDept, 0, 1'500},  PlanRow{account("660203"), purchasing, 0, 4'500},
    PlanRow{account("660203"), research, 0, 5'000},   PlanRow{account("510103"), latheShop, 0, 16'500},
    PlanRow{account("510103"), millShop, 0, 13'000},  PlanRow{account("530101"), research, 1, 23'500},
    PlanRow{account("530101"), research, 2, 23'500},  PlanRow{account("530101"), research, 3, 23'500},
    PlanRow{account("530102"), research, 1, 14'000},  PlanRow{account("530102"), research, 3, 16'000},
    PlanRow{account("605102"), salesDept, 0, 0},  // last year's figures only
};

}  // namespace

void writePlans(Connection& connection) {
  Random random(571);
  std::vector<PlanInfo> plans;
  for (const auto& row : planRows) {
    for (int month = 1; month <= 12; ++month) {
      PlanInfo plan;
      plan.lId = static_cast<Id>(plans.size()) + 1;
      plan.lCodeId = row.account;
      plan.lDeptId = row.dept;
      plan.lItemId = row.project;
      plan.sItemId = row.project == 0 ? "" : classId(ProjectClass::research);
      plan.byPeroid = month;
      const auto base = row.monthly == 0 ? 15'000 : row.monthly;
      plan.mPPlan = static_cast<double>(row.monthly);
      plan.mPFact = static_cast<double>(base * random.between(8'200, 11'400)) / 10'000.0;
      plan.mPLast = static_cast<double>(base * random.between(85, 105)) / 100.0;
      plans.push_back(plan);
    }
  }
  insertRecords(connection, plans);
}

void writeAges(Connection& connection) {
  constexpr std::array<std::array<int, 5>, 2> lengths = {{{15, 30, 60, 90, 180}, {30, 60, 90, 120, 365}}};
  std::vector<AgesInfo> ages;
  for (int type = 0; type < 2; ++type) {
    for (int number = 1; number <= 5; ++number) {
      const auto length = lengths[static_cast<std::size_t>(type)][static_cast<std::size_t>(number - 1)];
      ages.push_back({static_cast<Id>(ages.size()) + 1, type, number, length});
    }
  }
  insertRecords(connection, ages);
}

}  // namespace tz::sample
