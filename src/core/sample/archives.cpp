#include "core/sample/archives.h"

#include <fmt/format.h>

#include "core/data/record_io.h"
#include "core/sample/orders.h"

namespace tz::sample {
namespace {

void writeDepartments(Connection& connection) {
  constexpr std::array<const char*, 8> names = {"总经理办公室", "财务部",   "销售部", "采购部",
                                                "车床车间",     "铣床车间", "研发部", "仓储部"};
  std::vector<DeptInfo> departments;
  for (const auto* name : names) {
    const auto place = static_cast<Id>(departments.size());
    departments.push_back({place + 1, office + place, fmt::format("{:02}", place + 1), name});
  }
  insertRecords(connection, departments);
}

void writePersons(Connection& connection, const Growth& growth) {
  std::vector<PersonInfo> persons;
  for (const auto& row : people) {
    persons.push_back(
        {firstPerson + static_cast<Id>(persons.size()), std::string(row.code), std::string(row.name), row.dept});
  }
  for (std::int64_t place = 0; place < growth.persons; ++place) {
    persons.push_back({Growth::person(place), fmt::format("9{:05}", place + 1), fmt::format("员工{:05}", place + 1),
                       Growth::deptOfPerson(place)});
  }
  insertRecords(connection, persons);
}

void writeUnits(Connection& connection, const Growth& growth) {
  insertRecords(connection, std::vector<EnterClassInfo>{{domestic, "国内客户"},
                                                        {abroad, "国外客户"},
                                                        {materials, "材料供应商"},
                                                        {equipment, "设备供应商"},
                                                        {subcontractor, "外协单位"}});
  std::vector<EnterInfo> all;
  for (const auto& row : units) {
    all.push_back({firstUnit + static_cast<Id>(all.size()), std::string(row.code), std::string(row.name), row.unitClass,
                   static_cast<double>(row.creditLimit), std::string(row.address), std::string(row.contact),
                   std::string(row.phone)});
  }
  for (std::int64_t place = 0; place < growth.customers; ++place) {
    all.push_back({Growth::customer(place), fmt::format("K9{:05}", place + 1), fmt::format("经销商{:05}", place + 1),
                   domestic, 50'000, "", "", ""});
  }
  for (std::int64_t place = 0; place < growth.suppliers; ++place) {
    all.push_back({growth.supplier(place), fmt::format("G9{:05}", place + 1), fmt::format("供货商{:05}", place + 1),
                   materials, 0, "", "", ""});
  }
  insertRecords(connection, all);
}

}  // namespace

Dept Growth::deptOfPerson(std::int64_t place) {
  constexpr std::array travelling = {salesDept, purchasing, research, office};
  return travelling[static_cast<std::size_t>(place) % travelling.size()];
}

Id Growth::order(std::int64_t place) { return static_cast<Id>(sample::orders.size()) + 1 + place; }

void writeArchives(Connection& connection, const Growth& growth) {
  writeDepartments(connection);
  writePersons(connection, growth);
  writeUnits(connection, growth);
}

}  // namespace tz::sample
