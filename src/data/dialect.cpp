#include "data/dialect.h"

#include <algorithm>
#include <stdexcept>

namespace tz {

Sql classIs(std::string_view classId) { return Sql("sItemId = ?", classId); }

bool isClassId(std::string_view classId) {
  return !classId.empty() && std::ranges::all_of(classId, [](unsigned char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
  });
}

std::string itemTable(std::string_view classId) {
  if (!isClassId(classId)) throw std::invalid_argument("a project class id holds letters and digits only");
  return "ProjItems" + std::string(classId);
}

}  // namespace tz
