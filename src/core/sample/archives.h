// The sample company's departments, persons, units and research projects, and how many more the grown company has.
// Lines carry Dept.lDeptId, Person.lId, Enter.lId; each kind has its own range of ids.
#pragma once

#include <array>
#include <string_view>

#include "core/data/connection.h"
#include "core/data/records.h"

namespace tz::sample {

enum Dept : std::uint8_t {
  office = 101,
  finance,
  salesDept,
  purchasing,
  latheShop,
  millShop,
  research,
  warehouse,
};

struct PersonRow {
  std::string_view code, name;
  Dept dept;
};

// Two persons are called 张伟.
inline constexpr std::array people = {
    PersonRow{"0101", "王建国", office},     PersonRow{"0102", "周敏", office},
    PersonRow{"0201", "李淑华", finance},    PersonRow{"0202", "陈晓燕", finance},
    PersonRow{"0203", "孙丽", finance},      PersonRow{"0204", "赵文静", finance},
    PersonRow{"0301", "李明", salesDept},    PersonRow{"0302", "张伟", salesDept},
    PersonRow{"0303", "刘洋", salesDept},    PersonRow{"0304", "O'Brien", salesDept},
    PersonRow{"0305", "欧阳慧", salesDept},  PersonRow{"0401", "马强", purchasing},
    PersonRow{"0402", "胡建平", purchasing}, PersonRow{"0501", "张伟", latheShop},
    PersonRow{"0502", "郭志刚", latheShop},  PersonRow{"0601", "何军", millShop},
    PersonRow{"0701", "林涛", research},     PersonRow{"0702", "高翔", research},
    PersonRow{"0703", "罗 丹", research},    PersonRow{"0801", "谢春生", warehouse},
};
inline constexpr Id firstPerson = 301;
inline constexpr std::string_view maker = "陈晓燕", checker = "李淑华", poster = "孙丽";

enum UnitClass : std::uint8_t { unclassed, domestic, abroad, materials, equipment, subcontractor };

struct UnitRow {
  std::string_view code, name;
  UnitClass unitClass;
  int creditLimit;  // whole home units, 0 = none
  std::string_view address, contact, phone;
};

inline constexpr std::array units = {
    UnitRow{"K001", "江淮重工集团", domestic, 3'000'000, "合肥市经开区繁华大道88号", "方志远", "0551-6555-0101"},
    UnitRow{"K002", "宏达精密机械厂", domestic, 800'000, "苏州市吴中区东吴北路12号", "钱小芳", "0512-6555-0102"},
    UnitRow{"K003", "东方轴承制造有限公司", domestic, 500'000, "洛阳市涧西区建设路96号", "石磊", "0379-6555-0103"},
    UnitRow{"K004", "南通船舶配件厂", domestic, 300'000, "南通市崇川区任港路7号", "顾海燕", "0513-8555-0104"},
    UnitRow{"K005", "西北石油装备公司", domestic, 1'500'000, "西安市未央区凤城八路30号", "雷振东", "029-8555-0105"},
    UnitRow{"K006", "鲁中农机有限公司", domestic, 100'000, "淄博市张店区柳泉路45号", "孔令军", "0533-2555-0106"},
    UnitRow{"K007", "浦江电机股份有限公司", domestic, 0, "上海市闵行区江川路900号", "沈洁", "021-5555-0107"},
    UnitRow{"K008", "长河矿山机械厂", domestic, 200'000, "长沙市望城区雷锋大道21号", "谭勇", "0731-8555-0108"},
    UnitRow{"K009", "华北铁路配件有限公司", domestic, 600'000, "石家庄市长安区光华路3号", "霍建民", "0311-8555-0109"},
    UnitRow{"K010", "周家铺五金店", unclassed, 20'000, "", "周老板", ""},
    UnitRow{"W001", "Hartmann Maschinen GmbH", abroad, 2'000'000, "Industriestr. 14, Chemnitz", "K. Vogel",
            "+49 371 555 0101"},
    UnitRow{"W002", "Pacific Tools Inc.", abroad, 0, "420 Harbor Rd, Oakland", "J. D'Angelo", "+1 510 555 0102"},
    UnitRow{"W003", "大和精工株式会社", abroad, 900'000, "名古屋市中川区3-5", "佐藤健", "+81 52 555 0103"},
    UnitRow{"G001", "北方钢铁销售公司", materials, 0, "鞍山市铁西区环钢路2号", "曲波", "0412-8555-0201"},
    UnitRow{"G002", "恒通铸造厂", materials, 0, "泊头市工业区5号", "宋铁成", "0317-8555-0202"},
    UnitRow{"G003", "德昌标准件有限公司", materials, 0, "永年县临洺关镇", "冀学文", "0310-6555-0203"},
    UnitRow{"G004", "永固紧固件厂", materials, 0, "海盐县武原街道", "沈阿根", "0573-8655-0204"},
    UnitRow{"G005", "昭和轴承株式会社", materials, 0, "大阪市西区1-9", "田中诚", "+81 6 555 0205"},
    UnitRow{"S001", "精测仪器有限公司", equipment, 0, "北京市海淀区学院路40号", "杜若", "010-8255-0301"},
    UnitRow{"S002", "华诚数控系统公司", equipment, 0, "武汉市洪山区珞瑜路6号", "肖斌", "027-8755-0302"},
    UnitRow{"X001", "顺达热处理厂", subcontractor, 0, "无锡市惠山区钱桥镇", "过祥林", "0510-8355-0401"},
    UnitRow{"X002", "明辉电镀厂", subcontractor, 0, "无锡市锡山区安镇", "华明辉", "0510-8855-0402"},
    UnitRow{"Q001", "顺风达物流公司", unclassed, 0, "", "", "400-555-0501"},
    UnitRow{"Q002", "科技园物业公司", unclassed, 0, "无锡市新区长江路1号", "", "0510-8555-0502"},
};
inline constexpr Id firstUnit = 501;

consteval Id person(std::string_view code) {
  for (std::size_t i = 0; i < people.size(); ++i) {
    if (people[i].code == code) return firstPerson + static_cast<Id>(i);
  }
  throw "no such person";
}
consteval Id unit(std::string_view code) {
  for (std::size_t i = 0; i < units.size(); ++i) {
    if (units[i].code == code) return firstUnit + static_cast<Id>(i);
  }
  throw "no such unit";
}
constexpr const PersonRow& personRow(Id id) { return people[static_cast<std::size_t>(id - firstPerson)]; }

// What the grown company has beside the readable one.
struct Growth {
  std::int64_t persons = 0, customers = 0, suppliers = 0, orders = 0;

  static Growth forLines(std::int64_t lines) { return {lines / 1000, lines / 1000, lines / 4000, lines / 4000}; }
  [[nodiscard]] static Id person(std::int64_t place) { return firstPerson + static_cast<Id>(people.size()) + place; }
  [[nodiscard]] static Dept deptOfPerson(std::int64_t place);
  [[nodiscard]] static Id customer(std::int64_t place) { return firstUnit + static_cast<Id>(units.size()) + place; }
  [[nodiscard]] Id supplier(std::int64_t place) const { return customer(customers + place); }
  [[nodiscard]] static Id order(std::int64_t place);
};

void writeArchives(Connection& connection, const Growth& growth);

}  // namespace tz::sample
