#include "core/voucher/voucher.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <map>
#include <memory>
#include <set>

#include "core/data/get_data.h"
#include "core/data/record_io.h"
#include "core/grid/figures.h"
#include "core/reports/cancel_watch.h"

namespace tz {
namespace {

using Members = std::map<Id, VoucherMember>;

// Amounts add up as whole millionths, so that 0.1 + 0.2 is 0.3.
class ExactSum {
 public:
  void add(double amount) { millionths_ += std::round(amount * scale); }
  [[nodiscard]] double value() const { return millionths_ / scale; }

 private:
  static constexpr double scale = 1e6;
  double millionths_ = 0;
};

// The head of the voucher; nothing when the book has no such voucher.
template <class Head>
std::optional<RegMainInfo> headOf(Connection& connection, Id id) {
  auto heads = readRecords<Head>(connection, Sql("lTieId = ?", id));
  if (heads.empty()) return std::nullopt;
  return std::move(heads.front());
}

template <class Line>
std::vector<VoucherLine> entriesOf(Connection& connection, Id id) {
  std::vector<VoucherLine> lines;
  for (auto& entry : readRecords<Line>(connection, Sql("lTieId = ? ORDER BY lId", id))) {
    lines.emplace_back().entry = std::move(entry);
  }
  return lines;
}

// The voucher next to this one in its book; 0 when there is none.
Id neighbour(Connection& connection, Book book, const RegMainInfo& head, bool forward) {
  const std::string table = book == Book::posted ? RegMainInfo::table : UnregMainInfo::table;
  const std::string_view order =
      forward ? "byPeroid, sWord, nNumber, lTieId" : "byPeroid DESC, sWord DESC, nNumber DESC, lTieId DESC";
  const auto cursor =
      connection.query(Sql(fmt::format("SELECT lTieId FROM {} WHERE (byPeroid, sWord, nNumber, lTieId) {} (", table,
                                       forward ? '>' : '<')) +
                       Sql("?, ?, ?, ?) AND byPeroid > 0 AND lTieId <> 0 ORDER BY ", head.byPeroid, head.sWord,
                           head.nNumber, head.lTieId) +
                       Sql(order) + " LIMIT 1");
  return cursor->next() ? cursor->integer(0) : 0;
}

// Which of the archive's records the lines name, read in one statement.
template <class Record>
Members membersNamed(Connection& connection, const std::vector<VoucherLine>& lines, Id RegSubInfo::*carried,
                     std::string_view key, VoucherMember (*of)(const Record&)) {
  std::set<Id> ids;
  for (const auto& line : lines) {
    if (line.entry.*carried != 0) ids.insert(line.entry.*carried);
  }
  Members members;
  for (const Id id : ids) members[id].id = id;
  if (ids.empty()) return members;
  for (const auto& record : readRecords<Record>(connection, inList(key, {ids.begin(), ids.end()}))) {
    auto member = of(record);
    members[member.id] = std::move(member);
  }
  return members;
}

VoucherMember memberOf(const Members& members, Id id) {
  const auto found = members.find(id);
  return found == members.end() ? VoucherMember{} : found->second;
}

void nameArchives(Connection& connection, std::vector<VoucherLine>& lines) {
  const auto depts = membersNamed<DeptInfo>(connection, lines, &RegSubInfo::lDeptId, "lDeptId", [](const auto& r) {
    return VoucherMember{r.lDeptId, r.sDeptId, r.sDeptName};
  });
  const auto persons = membersNamed<PersonInfo>(connection, lines, &RegSubInfo::lPersonId, "lId", [](const auto& r) {
    return VoucherMember{r.lId, r.sPersonId, r.sName};
  });
  const auto units = membersNamed<EnterInfo>(connection, lines, &RegSubInfo::lEnterId, "lId", [](const auto& r) {
    return VoucherMember{r.lId, r.sEnterId, r.sEnterName};
  });
  for (auto& line : lines) {
    line.dept = memberOf(depts, line.entry.lDeptId);
    line.person = memberOf(persons, line.entry.lPersonId);
    line.unit = memberOf(units, line.entry.lEnterId);
  }
}

// Each class has a table of its own; a voucher names one or two of them.
void nameItems(const CQnCwDB& db, CGetData& data, std::vector<VoucherLine>& lines) {
  std::map<std::string, std::set<Id>> named;
  for (auto& line : lines) {
    line.item.id = line.entry.lItemId;
    if (line.item.named()) named[line.entry.sItemId].insert(line.item.id);
  }
  if (named.empty()) return;
  for (const auto& ofLedger : data.ProjClassTable()) {
    const auto ids = named.find(ofLedger.sItemId);
    if (ids == named.end()) continue;
    Members items;
    for (auto& item : db.Items_GetInfo(ofLedger.sItemId, inList("lId", {ids->second.begin(), ids->second.end()}))) {
      items[item.lId] = {item.lId, item.fields[0], item.fields[1]};
    }
    for (auto& line : lines) {
      if (!line.item.named() || line.entry.sItemId != ofLedger.sItemId) continue;
      line.itemClass = ofLedger.sName;
      if (items.contains(line.item.id)) line.item = items[line.item.id];
    }
  }
}

// The names of the accounts above it and its own.
std::string pathOf(CGetData& data, const CodeInfo& account) {
  std::string path;
  for (std::size_t length = 1; length < account.sCode.size(); ++length) {
    const auto* above = data.GetCODEINFOByCode(std::string_view(account.sCode).substr(0, length));
    if (above != nullptr) path.append(above->sName).append("-");
  }
  return path + account.sName;
}

void nameAccounts(CGetData& data, std::vector<VoucherLine>& lines) {
  for (auto& line : lines) {
    if (const auto* account = data.GetCODEINFOByID(line.entry.lCodeId)) {
      line.account = *account;
      line.accountName = pathOf(data, *account);
    }
    const int currency = line.entry.byExchId != 0 ? line.entry.byExchId : line.account.byExchId;
    if (currency != 0 && line.entry.mForeign != 0) line.currency = data.GetExchName(currency);
  }
}

void addUp(Voucher& voucher) {
  ExactSum debit;
  ExactSum credit;
  for (const auto& line : voucher.lines) {
    debit.add(line.debit());
    credit.add(line.credit());
  }
  voucher.debit = debit.value();
  voucher.credit = credit.value();
}

Refusal notThere(Book book, Id id) { return {.text = fmt::format("没有编号为 {} 的{}凭证！", id, bookName(book))}; }

std::string figure(double value, ColumnKind kind, std::string_view unit) {
  return unit.empty() ? figureText(value, kind) : fmt::format("{} {}", figureText(value, kind), unit);
}

void addNamed(std::vector<VoucherDetail>& details, std::string_view caption, std::string text) {
  if (!text.empty()) details.push_back({caption, std::move(text)});
}

}  // namespace

std::string VoucherMember::shown() const {
  if (!named()) return {};
  return nameOrNumber(name, id);
}

std::string VoucherLine::accountText() const {
  if (account.lId == 0) return fmt::format("（{} 号科目，不在科目表中）", entry.lCodeId);
  return account.sCode + " " + accountName;
}

std::string Voucher::number() const { return fmt::format("{}-{:04}", head.sWord, head.nNumber); }

std::string_view bookName(Book book) { return book == Book::posted ? "已记帐" : "未记帐"; }

std::variant<Voucher, Refusal> readVoucher(Session& session, Book book, Id id) {
  if (session.db.DBSelect(session.ledger) != 0) {
    auto refusal = refusalWith(messages::databaseNotOpen);
    refusal.ledgerNotOpen = true;
    return refusal;
  }
  Connection& connection = session.db.Current();
  const CancelWatch watch(session);
  Transaction reading(connection, Transaction::Purpose::reading);
  const bool posted = book == Book::posted;
  auto head = posted ? headOf<RegMainInfo>(connection, id) : headOf<UnregMainInfo>(connection, id);
  if (!head || id == 0) {
    reading.commit();
    return notThere(book, id);
  }
  if (head->byPeroid == 0) {
    reading.commit();
    return refusalWith(messages::openingVoucher);
  }
  Voucher voucher{.book = book, .head = std::move(*head), .lines = {}};
  voucher.lines = posted ? entriesOf<RegSubInfo>(connection, id) : entriesOf<UnregSubInfo>(connection, id);
  CGetData data(session.db);
  nameAccounts(data, voucher.lines);
  nameArchives(connection, voucher.lines);
  nameItems(session.db, data, voucher.lines);
  addUp(voucher);
  voucher.previous = neighbour(connection, book, voucher.head, false);
  voucher.next = neighbour(connection, book, voucher.head, true);
  voucher.company = accountSet(session.db).company;
  reading.commit();
  return voucher;
}

std::vector<VoucherDetail> membersOf(const VoucherLine& line) {
  std::vector<VoucherDetail> details;
  addNamed(details, "部门", line.dept.shown());
  addNamed(details, "个人", line.person.shown());
  addNamed(details, "单位", line.unit.shown());
  addNamed(details, "项目", line.item.shown());
  return details;
}

std::vector<VoucherDetail> figuresOf(const VoucherLine& line) {
  const auto& entry = line.entry;
  std::vector<VoucherDetail> details;
  if (entry.dAmount != 0) {
    details.push_back({"数量", figure(entry.dAmount, ColumnKind::quantity, line.account.sUnit)});
    details.push_back({"单价", figure(line.price(), ColumnKind::price, {})});
  }
  if (entry.mForeign != 0) {
    details.push_back({"外币", figure(entry.mForeign, ColumnKind::amount, line.currency)});
    if (entry.dFrat != 0) details.push_back({"汇率", figure(entry.dFrat, ColumnKind::rate, {})});
  }
  return details;
}

std::vector<VoucherDetail> remarksOf(const VoucherLine& line) {
  const auto& entry = line.entry;
  std::vector<VoucherDetail> details;
  addNamed(details, "业务员", entry.sName);
  addNamed(details, "业务号", entry.sBusiness);
  if (entry.byFlag != 0) details.push_back({"两清", entry.byFlag == 1 ? "手工" : "自动"});
  return details;
}

}  // namespace tz
