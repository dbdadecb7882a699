// The balances and lines of a ledger that a report covers, for the naive computation.
#pragma once

#include <array>

#include "core/ledger/naive_dialog.h"
#include "core/ledger/naive_figures.h"

namespace tz::test::naive {

struct Dimensions {
  std::array<Id, 5> ids;  // by Entity; of a project the item
  std::string classId;

  [[nodiscard]] Id operator[](Entity entity) const { return ids[static_cast<std::size_t>(entity)]; }
};

struct Entry {
  RegMainInfo head;
  RegSubInfo line;
  Dimensions of;
  Figures figures;  // the rate is the line's, the price is not yet there
};

// An opening, positive on the debit side.
struct Opening {
  Dimensions of;
  Side amounts;
};

// A balance record, positive on the debit side.
struct Record {
  Dimensions of;
  int period;
  Side opening;
  Figures moved;
};

// As rows show them.
[[nodiscard]] std::string dateText(const Entry& entry);
[[nodiscard]] std::string voucherText(const Entry& entry);

class Lines {
 public:
  Lines(const Ledger& ledger, const Report& report, const Question& question, const Chosen& chosen);

  [[nodiscard]] std::vector<Opening> openings(int period) const;
  [[nodiscard]] std::vector<Record> records(int first, int last) const;
  // Lines of periods first to last in the report's order.
  [[nodiscard]] std::vector<Entry> posted(int first, int last) const;
  [[nodiscard]] std::vector<Entry> unposted(int first, int last) const;
  // Lines that move the opening, whichever clerk is theirs.
  [[nodiscard]] std::vector<Entry> unpostedBefore(int period) const;
  [[nodiscard]] bool coversAccount(Id account) const;

 private:
  [[nodiscard]] bool covers(const Dimensions& of) const;
  [[nodiscard]] bool coversUnit(Id unit) const;
  [[nodiscard]] bool coversProject(const Dimensions& of) const;
  [[nodiscard]] bool listsAccount(const Dimensions& of) const;
  [[nodiscard]] std::vector<Entry> selected(const std::vector<Entry>& all, int first, int last, Order order) const;

  const Ledger& ledger_;
  const Report& report_;
  const Question& question_;
  const Chosen& chosen_;
  std::vector<Entry> posted_, unposted_;
};

}  // namespace tz::test::naive
