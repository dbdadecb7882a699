// Openings of the account year: open items with the dates of their own years, and the other accounts' balances.
#include "core/sample/vouchers.h"

namespace tz::sample {
namespace {

struct OpenItem {
  Id account;
  Id party;  // a person or a unit, as the account asks
  Date date;
  std::int64_t amount;  // whole units, of the foreign currency where the account keeps one
  std::string_view digest, number, clerk;
  std::int64_t pieces = 0;
  int mark = 0;
};

constexpr Date in(int year, int month, int dayOfMonth) {
  return {static_cast<std::int16_t>(year), static_cast<std::uint8_t>(month), static_cast<std::uint8_t>(dayOfMonth)};
}

constexpr std::array openItems = {
    OpenItem{account("122101"), person("0301"), in(2023, 6, 12), 1'200, "预借参展差旅费", "JK2306-02", ""},
    OpenItem{account("112201"), unit("K001"), in(2023, 9, 5), 58'600, "销售配件（质量争议）", "XS2309-03", "张伟"},
    OpenItem{account("220201"), unit("G004"), in(2023, 12, 14), 18'400, "购入紧固件", "CG2312-05", "胡建平"},
    OpenItem{account("224102"), unit("X002"), in(2024, 1, 15), 20'000, "收外协质量保证金", "YJ2401-01", ""},
    OpenItem{account("112204"), unit("K005"), in(2024, 7, 18), 642'000, "分期收款销售车床", "XS2407-02", "李明", 2},
    OpenItem{account("112201"), unit("K004"), in(2024, 8, 22), 73'250, "销售配件", "XS2408-06", "刘洋"},
    OpenItem{account("122105"), person("0304"), in(2024, 9, 10), 46'000, "携样机出国推广", "YJ2409-01", "", 2},
    OpenItem{account("220202"), unit("S001"), in(2024, 10, 12), 180'000, "购入三坐标测量仪", "CG2410-03", "马强", 0, 1},
    OpenItem{account("122101"), person("0301"), in(2024, 10, 15), 6'000, "预借华东展会差旅费", "JK2410-03", ""},
    OpenItem{account("112201"), unit("K008"), in(2024, 10, 30), 95'000, "销售配件", "XS2410-09", "张伟"},
    OpenItem{account("1121"), unit("K002"), in(2024, 11, 5), 200'000, "收到银行承兑汇票", "HP2411-01", "李明"},
    OpenItem{account("112202"), unit("W001"), in(2024, 11, 15), 48'000, "出口数控车床", "CK2411-01", "O'Brien", 1},
    OpenItem{account("122101"), person("0401"), in(2024, 11, 18), 5'000, "预借采购差旅费", "JK2411-02", ""},
    OpenItem{account("112201"), unit("K001"), in(2024, 11, 20), 486'000, "销售配件", "XS2411-08", "李明"},
    OpenItem{account("220201"), unit("G002"), in(2024, 11, 27), 156'000, "购入床身铸件", "CG2411-07", "马强"},
    OpenItem{account("220201"), unit("G003"), in(2024, 12, 5), 43'750, "购入标准件", "CG2412-01", "胡建平"},
    OpenItem{account("122101"), person("0302"), in(2024, 12, 5), 3'000, "预借差旅费", "JK2412-01", ""},
    OpenItem{account("2201"), unit("G002"), in(2024, 12, 9), 120'000, "开出银行承兑汇票", "HP2412-02", "马强"},
    OpenItem{account("220203"), unit("G005"), in(2024, 12, 10), 4'500'000, "进口精密轴承", "JK2412-J1", "马强"},
    OpenItem{account("112201"), unit("K003"), in(2024, 12, 10), 126'400, "销售配件", "XS2412-02", "刘洋"},
    OpenItem{account("112203"), unit("W003"), in(2024, 12, 12), 3'200'000, "出口机床附件", "CK2412-01", "O'Brien"},
    OpenItem{account("220201"), unit("G001"), in(2024, 12, 18), 234'600, "购入圆钢", "CG2412-04", "马强"},
    OpenItem{account("122101"), person("0301"), in(2024, 12, 20), 4'500, "预借年终催款差旅费", "JK2412-07", ""},
    OpenItem{account("122104"), person("0501"), in(2024, 12, 20), 3'600, "领用精密量具", "LY2412-01", "", 2},
    OpenItem{account("122104"), person("0601"), in(2024, 12, 20), 1'800, "领用精密量具", "LY2412-02", "", 1},
    OpenItem{account("220204"), unit("X001"), in(2024, 12, 20), 26'400, "主轴热处理加工费", "WX2412-01", "胡建平", 220},
    OpenItem{account("112205"), unit("K001"), in(2024, 12, 22), 850'000, "销售数控车床尾款", "XS2412-06", "李明"},
    OpenItem{account("122102"), person("0801"), in(2024, 12, 25), 10'000, "拨付备用金", "BY2412-01", ""},
    OpenItem{account("122102"), person("0401"), in(2024, 12, 25), 20'000, "拨付备用金", "BY2412-02", ""},
    OpenItem{account("112301"), unit("G001"), in(2024, 12, 26), 150'000, "预付钢材款", "YF2412-01", "马强"},
    OpenItem{account("112201"), unit("K006"), in(2024, 12, 28), 38'900, "销售配件", "XS2412-09", ""},
    OpenItem{account("2203"), unit("K007"), in(2024, 12, 29), 100'000, "预收专用车床定金", "YS2412-01", "张伟"},
    OpenItem{account("224101"), person("0305"), in(2024, 12, 30), 2'860, "招待费待报销", "BX2412-11", ""},
    OpenItem{account("112201"), unit("K010"), in(2024, 12, 30), 4'680, "销售配件", "", ""},
};

struct OpenBalance {
  Id account;
  std::int64_t amount;  // whole home units, or of the foreign currency; on the account's own side
  Id dept = 0;
  std::int64_t pieces = 0;
  Id order = 0;
};

constexpr std::array openBalances = {
    OpenBalance{account("1001"), 86'000},
    OpenBalance{account("100201"), 5'200'000},
    OpenBalance{account("100202"), 1'800'000},
    OpenBalance{account("100203"), 260'000},
    OpenBalance{account("100204"), 18'000'000},
    OpenBalance{account("1231"), 64'000},
    OpenBalance{account("140301"), 437'000, 0, 95},
    OpenBalance{account("140302"), 327'600, 0, 42},
    OpenBalance{account("140303"), 756'000, 0, 4200},
    OpenBalance{account("140304"), 405'000, 0, 900},
    OpenBalance{account("1406"), 990'000, 0, 6},
    OpenBalance{account("1411"), 72'000, latheShop, 40},
    OpenBalance{account("1411"), 54'000, millShop, 30},
    OpenBalance{account("1411"), 45'000, warehouse, 25},
    OpenBalance{account("1601"), 8'600'000, latheShop},
    OpenBalance{account("1601"), 6'900'000, millShop},
    OpenBalance{account("1601"), 2'400'000, office},
    OpenBalance{account("1601"), 1'800'000, research},
    OpenBalance{account("1601"), 950'000, warehouse},
    OpenBalance{account("1601"), 620'000, salesDept},
    OpenBalance{account("1602"), 3'010'000, latheShop},
    OpenBalance{account("1602"), 2'415'000, millShop},
    OpenBalance{account("1602"), 760'000, office},
    OpenBalance{account("1602"), 510'000, research},
    OpenBalance{account("1602"), 290'000, warehouse},
    OpenBalance{account("1602"), 215'000, salesDept},
    OpenBalance{account("1701"), 1'200'000},
    OpenBalance{account("2001"), 3'000'000},
    OpenBalance{account("221101"), 46'000, office},
    OpenBalance{account("221101"), 34'000, finance},
    OpenBalance{account("221101"), 52'000, salesDept},
    OpenBalance{account("221101"), 22'000, purchasing},
    OpenBalance{account("221101"), 88'000, latheShop},
    OpenBalance{account("221101"), 66'000, millShop},
    OpenBalance{account("221101"), 58'000, research},
    OpenBalance{account("221101"), 18'000, warehouse},
    OpenBalance{account("221102"), 76'800},
    OpenBalance{account("222102"), 186'000},
    OpenBalance{account("222103"), 95'000},
    OpenBalance{account("222104"), 11'520},
    OpenBalance{account("222105"), 13'020},
    OpenBalance{account("222106"), 5'580},
    OpenBalance{account("224103"), 38'400},
    OpenBalance{account("2501"), 4'000'000},
    OpenBalance{account("4001"), 15'000'000},
    OpenBalance{account("4101"), 1'850'000},
    OpenBalance{account("500101"), 340'000, latheShop, 0, 1},
    OpenBalance{account("500102"), 96'000, latheShop, 0, 1},
    OpenBalance{account("500103"), 88'000, latheShop, 0, 1},
    OpenBalance{account("500101"), 115'000, millShop, 0, 2},
    OpenBalance{account("500102"), 48'000, millShop, 0, 2},
    OpenBalance{account("500103"), 41'000, millShop, 0, 2},
};

// The other side of an open item, as it was booked in its own year.
Id otherSide(Id account) {
  const auto code = accountRow(account).code;
  if (code == "122105") return tz::sample::account("1406");
  if (code == "122104") return tz::sample::account("1001");
  if (code.starts_with("1221") || code == "224102") return tz::sample::account("1001");
  if (code.starts_with("22") && code != "2203" && !code.starts_with("224")) return tz::sample::account("140301");
  if (code == "2203" || code.starts_with("1123")) return tz::sample::account("100201");
  return tz::sample::account("410401");
}

void bookOpenItem(Journal& journal, const OpenItem& item) {
  const auto& row = accountRow(item.account);
  Voucher voucher{item.date, std::string(item.digest), 1, {}};
  const auto amount = yuan(item.amount);
  const auto rate = monthRate(row.currency, 1);
  const auto home = row.currency == none ? amount : toHome(row.currency, amount, rate);
  auto& line = row.side == debit ? voucher.debit(item.account, home) : voucher.credit(item.account, home);
  if (row.currency != none) line.foreign = amount, line.rate = rate;
  line.pieces(item.pieces * 1000).number(item.number, item.mark);
  if (row.flags.starts_with('A')) {
    line.person(item.party);
  } else {
    line.unit(item.party, item.clerk);
    if (row.code == "112205") line.dept(salesDept);
    if (row.code == "220204") line.dept(latheShop);
    if (row.code == "220202") line.researching(1);
  }
  const auto other = otherSide(item.account);
  row.side == debit ? voucher.credit(other, home) : voucher.debit(other, home);
  journal.opening(voucher);
}

Line openLine(const OpenBalance& balance) {
  const auto& row = accountRow(balance.account);
  Line line;
  line.key.account = balance.account;
  line.side = row.side;
  line.money = yuan(balance.amount);
  if (row.currency != none) {
    line.foreign = line.money;
    line.money = toHome(row.currency, line.foreign, monthRate(row.currency, 1));
  }
  line.quantity = balance.pieces * 1000;
  line.dept(balance.dept);
  if (balance.order != 0) line.order(balance.order);
  return line;
}

}  // namespace

void bookOpenings(Journal& journal) {
  for (const auto& item : openItems) bookOpenItem(journal, item);
  for (const auto& balance : openBalances) journal.openBalance(openLine(balance));
  Line retained;
  retained.key.account = account("410401");
  retained.side = credit;
  retained.money = journal.script().openingDifference();
  journal.openBalance(retained);
}

}  // namespace tz::sample
