#include "core/voucher/line_search.h"

#include <cmath>
#include <limits>
#include <map>
#include <set>
#include <tuple>

#include "core/data/dialect.h"
#include "core/data/line_query.h"
#include "core/reports/cancel_watch.h"
#include "core/reports/cancellation.h"

namespace tz {
namespace {

constexpr const char* searchColumns =
    "m.byPeroid, m.sWord, m.nNumber, s.lId, s.lTieId, m.dtBill, s.sDigest, s.sBusiness, s.bDirect, s.mMoney, "
    "s.lCodeId, s.lDeptId, s.lPersonId, s.lEnterId, s.lItemId, s.sItemId";
enum SearchColumn {
  periodAt,
  wordAt,
  numberAt,
  lineAt,
  voucherAt,
  billAt,
  summaryAt,
  businessAt,
  sideAt,
  moneyAt,
  accountAt,
  deptAt,
  personAt,
  unitAt,
  itemAt,
  itemClassAt
};

constexpr double centsPerUnit = 100;

using FoundOrder = std::tuple<int, std::string_view, int, Id, Book, Id>;

FoundOrder orderOf(const FoundLine& line) {
  return {line.period, line.word, line.number, line.id.line, line.id.book, line.id.voucher};
}
FoundOrder orderOf(const Cursor& row, Book book) {
  return {static_cast<int>(row.integer(periodAt)),
          row.text(wordAt),
          static_cast<int>(row.integer(numberAt)),
          row.integer(lineAt),
          book,
          row.integer(voucherAt)};
}

struct InOrder {
  bool operator()(const FoundLine& left, const FoundLine& right) const { return orderOf(left) < orderOf(right); }
};

// What the database looks for: no less than what foundBy() confirms.
Sql conditionFor(const SearchText& text, Book book, const Dialect& dialect) {
  const auto either = [](Sql& condition, const Sql& other) { condition += Sql(" OR ") + other; };
  Sql condition = Sql("(") + dialect.contains("s.sDigest", text.text);
  either(condition, dialect.contains("s.sBusiness", text.text));
  if (text.cents) {
    constexpr double cent = 1 / centsPerUnit;
    const double amount = static_cast<double>(*text.cents) / centsPerUnit;
    either(condition, Sql("s.mMoney BETWEEN ? AND ?", amount - cent, amount + cent));
  }
  if (text.voucher) {
    Sql heads(book == Book::posted ? "s.lTieId IN (SELECT lTieId FROM RegMain WHERE nNumber = "
                                   : "s.lTieId IN (SELECT lTieId FROM UnregMain WHERE nNumber = ");
    heads += Sql("?", text.voucher->number);
    if (!text.voucher->word.empty()) heads += Sql(" AND sWord = ?", text.voucher->word);
    either(condition, heads + Sql(")"));
  }
  return condition + Sql(")");
}

bool isAmount(double money, std::int64_t cents) {
  const double scaled = money * centsPerUnit;
  return std::abs(scaled) < 1e17 && std::llround(scaled) == cents;
}

FoundBy foundBy(const Cursor& row, const SearchText& text) {
  const auto& voucher = text.voucher;
  return {.amount = text.cents && isAmount(row.real(moneyAt), *text.cents),
          .voucher = voucher && row.integer(numberAt) == voucher->number &&
                     (voucher->word.empty() || row.text(wordAt) == voucher->word),
          .summary = containsAnyCase(row.text(summaryAt), text.text),
          .business = containsAnyCase(row.text(businessAt), text.text)};
}

FoundLine lineOf(const Cursor& row, Book book, const FoundBy& by) {
  FoundLine line;
  line.period = static_cast<int>(row.integer(periodAt));
  line.word = row.text(wordAt);
  line.number = static_cast<int>(row.integer(numberAt));
  line.id = {.book = book, .line = row.integer(lineAt), .voucher = row.integer(voucherAt)};
  line.date = row.date(billAt);
  line.summary = row.text(summaryAt);
  line.business = row.text(businessAt);
  line.isDebit = row.integer(sideAt) != 0;
  (line.isDebit ? line.debit : line.credit) = row.real(moneyAt);
  line.about.account = row.integer(accountAt);
  line.about.dept = row.integer(deptAt);
  line.about.person = row.integer(personAt);
  line.about.unit = row.integer(unitAt);
  line.about.item = row.integer(itemAt);
  line.about.itemClass = row.text(itemClassAt);
  line.by = by;
  return line;
}

std::string namedOr(const std::string& name, Id id) { return id == 0 ? std::string() : nameOrNumber(name, id); }

class LineNames {
 public:
  explicit LineNames(const CQnCwDB& db) : db_(db), data_(db) {}

  void give(FoundLine& line) {
    const auto& about = line.about;
    line.names = {.account = namedOr(data_.GetCodeCode(about.account), about.account),
                  .accountName = data_.GetCodeName(about.account),
                  .dept = namedOr(data_.GetDeptName(about.dept), about.dept),
                  .person = namedOr(data_.GetPersonName(about.person), about.person),
                  .unit = namedOr(data_.GetUnitName(about.unit), about.unit),
                  .project = namedOr(projectName(about), about.item)};
  }

 private:
  // A line may name a class that is none, or has no items yet.
  std::string projectName(const Subject& about) {
    if (about.item == 0 || !isClassId(about.itemClass)) return {};
    const auto [known, isNew] = hasItems_.try_emplace(about.itemClass);
    if (isNew) known->second = db_.Exists("systable", Sql("creator = 4 AND table_name = ?", itemTable(known->first)));
    return known->second ? data_.GetItemName(about.itemClass, about.item) : std::string();
  }

  const CQnCwDB& db_;
  CGetData data_;
  std::map<std::string, bool> hasItems_;
};

// Keeps the first ones and counts all.
class Finding {
 public:
  Finding(Session& session, const LineSearch& search)
      : session_(session), search_(search), names_(session.db), steps_(session) {}

  void lookThrough(Book book) {
    auto& connection = session_.db.Current();
    const LineQuery query{.book = book,
                          .filter = conditionFor(search_.text, book, connection.dialect()),
                          .firstPeriod = std::numeric_limits<std::int16_t>::min(),
                          .lastPeriod = std::numeric_limits<std::int16_t>::max(),
                          .order = {}};
    const auto row = connection.query(unorderedStatement(query, searchColumns));
    while (row->next()) {
      steps_.step();
      take(*row, book);
    }
  }

  [[nodiscard]] FoundLines result() {
    FoundLines all{.found = found_, .lines = {}, .stopped = false};
    all.lines.reserve(first_.size());
    while (!first_.empty()) {
      all.lines.push_back(std::move(first_.extract(first_.begin()).value()));
      names_.give(all.lines.back());
    }
    return all;
  }

 private:
  void take(const Cursor& row, Book book) {
    const auto by = foundBy(row, search_.text);
    if (!by.any()) return;
    ++found_;
    if (first_.size() < search_.most || orderOf(row, book) < orderOf(*first_.rbegin())) {
      first_.insert(lineOf(row, book, by));
      if (first_.size() > search_.most) first_.erase(std::prev(first_.end()));
    }
    if (search_.onSome && found_ >= tellAt_) tellSome();
  }

  void tellSome() {
    constexpr std::size_t mostShown = 200;
    FoundLines some{.found = found_, .lines = {}, .stopped = false};
    for (const auto& line : first_) {
      if (some.lines.size() == mostShown) break;
      some.lines.push_back(line);
      names_.give(some.lines.back());
    }
    search_.onSome(some);
    tellAt_ = found_ * 2;
  }

  Session& session_;
  const LineSearch& search_;
  LineNames names_;
  Steps steps_;
  std::set<FoundLine, InOrder> first_;
  std::int64_t found_ = 0;
  std::int64_t tellAt_ = 1;
};

}  // namespace

std::variant<FoundLines, Refusal> searchLines(Session& session, const LineSearch& search) {
  if (session.db.DBSelect(session.ledger) != 0) {
    auto refusal = refusalWith(messages::databaseNotOpen);
    refusal.ledgerNotOpen = true;
    return refusal;
  }
  Transaction reading(session.db.Current(), Transaction::Purpose::reading);
  Finding finding(session, search);
  bool stopped = false;
  try {
    const CancelWatch watch(session);
    finding.lookThrough(Book::posted);
    finding.lookThrough(Book::unposted);
  } catch (const CancelledWork&) {
    stopped = true;
  } catch (const DbError&) {
    // A statement that was stopped on request ends with an error of the database.
    if (!session.cancelled()) throw;
    stopped = true;
  }
  auto found = finding.result();
  found.stopped = stopped;
  if (!stopped) reading.commit();
  return found;
}

}  // namespace tz
