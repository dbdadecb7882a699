#include "core/projstat/statistics_launch_checks.h"

namespace tz {

bool hasProjectClass(const CQnCwDB& db) { return db.Exists("ProjClass", "sItemId <> ''"); }

}  // namespace tz
