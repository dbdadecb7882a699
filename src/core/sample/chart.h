// The sample company's chart of accounts, codes of four levels (4-2-2-2), in code order. An account's id is its place
// in the table, from 1; a code that does not exist fails to compile.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "core/data/connection.h"
#include "core/data/records.h"

namespace tz::sample {

enum Side : std::uint8_t { credit = 0, debit = 1 };
enum Currency : std::uint8_t { none = 0, dollar = 1, yen = 2 };

// flags: A person, B unit, C department, D project. classes: the project classes of a D account, by blanks.
struct AccountRow {
  std::string_view code, name;
  Side side = debit;
  std::string_view flags = "", unit = "";
  Currency currency = none;
  std::string_view classes = "";
  bool locked = false;
};

inline constexpr std::array chart = {
    AccountRow{"1001", "库存现金"},
    AccountRow{"1002", "银行存款"},
    AccountRow{"100201", "工商银行基本户"},
    AccountRow{"100202", "建设银行一般户"},
    AccountRow{"100203", "中国银行美元户", debit, "", "", dollar},
    AccountRow{"100204", "中国银行日元户", debit, "", "", yen},
    AccountRow{"1121", "应收票据", debit, "B"},
    AccountRow{"1122", "应收账款", debit, "B"},
    AccountRow{"112201", "国内货款", debit, "B"},
    AccountRow{"112202", "美元货款", debit, "B", "台", dollar},
    AccountRow{"112203", "日元货款", debit, "B", "", yen},
    AccountRow{"112204", "分期收款设备", debit, "B", "台"},
    AccountRow{"112205", "大客户货款", debit, "BC"},
    AccountRow{"112206", "成套项目款", debit, "BD", "", none, "01"},
    AccountRow{"1123", "预付账款", debit, "B"},
    AccountRow{"112301", "材料预付款", debit, "B"},
    AccountRow{"112302", "设备预付款", debit, "B"},
    AccountRow{"1221", "其他应收款", debit, "A"},
    AccountRow{"122101", "职工借款", debit, "A"},
    AccountRow{"122102", "部门备用金", debit, "AC"},
    AccountRow{"122103", "出国借款", debit, "A", "", dollar},
    AccountRow{"122104", "领用工具款", debit, "A", "套"},
    AccountRow{"122105", "外派样机款", debit, "A", "台", dollar},
    AccountRow{"122106", "赴日培训借款", debit, "A", "", yen},
    AccountRow{"1231", "坏账准备", credit},
    AccountRow{"1301", "待摊费用（停用）", debit, "", "", none, "", true},
    AccountRow{"1403", "原材料"},
    AccountRow{"140301", "钢材", debit, "", "吨"},
    AccountRow{"140302", "铸件", debit, "", "吨"},
    AccountRow{"140303", "外购件", debit, "", "件"},
    AccountRow{"140304", "进口轴承", debit, "", "套"},
    AccountRow{"1405", "库存商品", debit, "D", "", none, "01"},
    AccountRow{"140501", "数控车床", debit, "D", "台", none, "01"},
    AccountRow{"140502", "数控铣床", debit, "D", "台", none, "01"},
    AccountRow{"1406", "发出商品", debit, "", "台"},
    AccountRow{"1411", "周转材料", debit, "C", "套"},
    AccountRow{"1601", "固定资产", debit, "C"},
    AccountRow{"1602", "累计折旧", credit, "C"},
    AccountRow{"1701", "无形资产"},
    AccountRow{"2001", "短期借款", credit},
    AccountRow{"2201", "应付票据", credit, "B"},
    AccountRow{"2202", "应付账款", credit, "B"},
    AccountRow{"220201", "材料款", credit, "B"},
    AccountRow{"220202", "研发设备款", credit, "BD", "", none, "RD"},
    AccountRow{"220203", "进口轴承款", credit, "B", "", yen},
    AccountRow{"220204", "外协加工费", credit, "BC", "件"},
    AccountRow{"2203", "预收账款", credit, "B"},
    AccountRow{"2211", "应付职工薪酬", credit, "C"},
    AccountRow{"221101", "工资", credit, "C"},
    AccountRow{"221102", "社会保险费", credit},
    AccountRow{"2221", "应交税费", credit},
    AccountRow{"222101", "应交增值税", credit},
    AccountRow{"22210101", "进项税额", debit},
    AccountRow{"2221010101", "材料采购进项", debit},
    AccountRow{"2221010102", "固定资产进项", debit},
    AccountRow{"2221010103", "费用进项", debit},
    AccountRow{"22210102", "销项税额", credit},
    AccountRow{"22210103", "转出未交增值税", debit},
    AccountRow{"222102", "未交增值税", credit},
    AccountRow{"222103", "应交企业所得税", credit},
    AccountRow{"222104", "应交个人所得税", credit},
    AccountRow{"222105", "应交城市维护建设税", credit},
    AccountRow{"222106", "应交教育费附加", credit},
    AccountRow{"2241", "其他应付款", credit, "A"},
    AccountRow{"224101", "职工报销款", credit, "A"},
    AccountRow{"224102", "押金保证金", credit, "B"},
    AccountRow{"224103", "代扣社会保险费", credit},
    AccountRow{"2501", "长期借款", credit},
    AccountRow{"4001", "实收资本", credit},
    AccountRow{"4101", "盈余公积", credit},
    AccountRow{"4103", "本年利润", credit},
    AccountRow{"4104", "利润分配", credit},
    AccountRow{"410401", "未分配利润", credit},
    AccountRow{"5001", "生产成本", debit, "CD", "", none, "01"},
    AccountRow{"500101", "直接材料", debit, "DC", "", none, "01"},
    AccountRow{"500102", "直接人工", debit, "CD", "", none, "01"},
    AccountRow{"500103", "制造费用转入", debit, "CD", "", none, "01"},
    AccountRow{"5101", "制造费用", debit, "C"},
    AccountRow{"510101", "工资", debit, "C"},
    AccountRow{"510102", "折旧费", debit, "C"},
    AccountRow{"510103", "水电费", debit, "C"},
    AccountRow{"510104", "外协加工费", debit, "C"},
    AccountRow{"5301", "研发支出", debit, "D", "", none, "RD"},
    AccountRow{"530101", "人员人工", debit, "CD", "", none, "RD"},
    AccountRow{"530102", "材料费", debit, "CD", "", none, "RD"},
    AccountRow{"530103", "试制检验费", debit, "D", "", none, "01 RD"},
    AccountRow{"530104", "境外检测费", debit, "D", "", dollar, "RD"},
    AccountRow{"6001", "主营业务收入", credit, "CD", "", none, "01"},
    AccountRow{"600101", "国内整机收入", credit, "CD", "台", none, "01"},
    AccountRow{"600102", "美元出口收入", credit, "CD", "台", dollar, "01"},
    AccountRow{"600103", "日元出口收入", credit, "DC", "台", yen, "01"},
    AccountRow{"6051", "其他业务收入", credit, "C"},
    AccountRow{"605101", "配件销售收入", credit, "C"},
    AccountRow{"605102", "维修服务收入", credit, "C"},
    AccountRow{"6401", "主营业务成本", debit, "D", "", none, "01"},
    AccountRow{"640101", "整机销售成本", debit, "D", "台", none, "01"},
    AccountRow{"6402", "其他业务成本"},
    AccountRow{"6403", "税金及附加"},
    AccountRow{"6601", "销售费用", debit, "C"},
    AccountRow{"660101", "工资", debit, "C"},
    AccountRow{"660102", "差旅费", debit, "AC"},
    AccountRow{"660103", "运输费", debit, "C"},
    AccountRow{"660104", "广告费", debit, "C"},
    AccountRow{"660105", "业务招待费", debit, "AC"},
    AccountRow{"660106", "境外展览费", debit, "C", "", dollar},
    AccountRow{"6602", "管理费用", debit, "C"},
    AccountRow{"660201", "工资", debit, "C"},
    AccountRow{"660202", "办公费", debit, "C"},
    AccountRow{"660203", "差旅费", debit, "C"},
    AccountRow{"660204", "折旧费", debit, "C"},
    AccountRow{"660205", "水电费", debit, "C"},
    AccountRow{"660206", "低值易耗品", debit, "C", "套"},
    AccountRow{"6603", "财务费用"},
    AccountRow{"660301", "利息支出"},
    AccountRow{"660302", "汇兑损益"},
    AccountRow{"660303", "手续费"},
    AccountRow{"6801", "所得税费用"},
};

consteval Id account(std::string_view code) {
  for (std::size_t i = 0; i < chart.size(); ++i) {
    if (chart[i].code == code) return static_cast<Id>(i) + 1;
  }
  throw "no such account";
}

inline constexpr const AccountRow& accountRow(Id id) { return chart[static_cast<std::size_t>(id - 1)]; }

void writeChart(Connection& connection);

}  // namespace tz::sample
