#include "core/data/dialect.h"

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

std::optional<int> itemField(std::string_view column) {
  constexpr std::string_view prefix = "field";
  if (!lowerCase(column).starts_with(prefix)) return std::nullopt;
  const auto digits = column.substr(prefix.size());
  const bool number = std::ranges::all_of(digits, [](char c) { return c >= '0' && c <= '9'; });
  if (!number || digits.empty() || digits.size() > 2 || (digits.size() == 2 && digits.front() == '0')) {
    return std::nullopt;
  }
  return std::stoi(std::string(digits));
}

std::string lowerCase(std::string_view text) {
  std::string lower(text);
  constexpr char otherCase = 'a' - 'A';
  for (char& c : lower) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + otherCase) : c;
  return lower;
}

}  // namespace tz
