#include "core/sample/chart.h"

#include "core/data/record_io.h"

namespace tz::sample {
namespace {

// Codes have 4, 6, 8 or 10 digits; the table is in code order, so a parent is followed by its first child.
int gradeOf(std::string_view code) { return static_cast<int>(code.size()) / 2 - 1; }

bool isLeaf(std::size_t place) {
  return place + 1 == chart.size() || !chart[place + 1].code.starts_with(chart[place].code);
}

int kindOf(std::string_view code) {
  constexpr std::array<int, 7> kindOfFirstDigit = {0, 1, 2, 3, 3, 4, 5};
  return kindOfFirstDigit[static_cast<std::size_t>(code.front() - '0')];
}

}  // namespace

void writeChart(Connection& connection) {
  std::vector<CodeInfo> codes;
  std::vector<ProjCodesInfo> links;
  for (std::size_t i = 0; i < chart.size(); ++i) {
    const auto& row = chart[i];
    CodeInfo code;
    code.lId = static_cast<Id>(i) + 1;
    code.sCode = row.code;
    code.sName = row.name;
    code.byGrade = gradeOf(row.code);
    code.bEnd = isLeaf(i) ? 1 : 0;
    code.bDirect = row.side;
    code.sAssBook = row.flags;
    code.sUnit = row.unit;
    code.byExchId = row.currency;
    code.bLock = row.locked ? 1 : 0;
    code.byKind = kindOf(row.code);
    codes.push_back(code);
    for (auto rest = row.classes; !rest.empty(); rest.remove_prefix(std::min<std::size_t>(rest.size(), 3))) {
      links.push_back({static_cast<Id>(links.size()) + 1, code.lId, std::string(rest.substr(0, 2))});
    }
  }
  insertRecords(connection, codes);
  insertRecords(connection, links);
}

}  // namespace tz::sample
