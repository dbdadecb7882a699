// The sample company's project classes: production orders (class 01), each with its way through the year, and research
// projects (class RD). An item's id is its place in the table, from 1.
#pragma once

#include <array>
#include <string_view>

#include "core/data/connection.h"
#include "core/sample/archives.h"

namespace tz::sample {

enum class ProjectClass : std::uint8_t { none, order, research };
constexpr std::string_view classId(ProjectClass projectClass) {
  constexpr std::array<std::string_view, 3> ids = {"", "01", "RD"};
  return ids[static_cast<std::size_t>(projectClass)];
}

enum class Channel : std::uint8_t { keyCustomer, instalment, project, dollarExport, yenExport };

// A production order: machines of one shop for one customer. Months of the account year; 0 = begun before it, above 12
// = not within it. price: per machine in whole units of the channel's currency, without tax.
struct OrderRow {
  std::string_view code, name;
  Dept shop;
  Id customer;
  Channel channel;
  int machines;
  int price;
  int start, finish, deliver, collect;
};

inline constexpr std::array orders = {
    OrderRow{"DD2501", "江淮数控车床", latheShop, unit("K001"), Channel::keyCustomer, 4, 386'000, 0, 1, 2, 3},
    OrderRow{"DD2502", "宏达数控铣床", millShop, unit("K002"), Channel::instalment, 3, 262'000, 0, 2, 3, 5},
    OrderRow{"DD2503", "哈特曼出口车床", latheShop, unit("W001"), Channel::dollarExport, 3, 54'500, 2, 3, 4, 6},
    OrderRow{"DD2504", "西北石油成套车床", latheShop, unit("K005"), Channel::project, 5, 402'000, 3, 5, 6, 8},
    OrderRow{"DD2505", "江淮龙门铣床", millShop, unit("K001"), Channel::keyCustomer, 4, 318'000, 3, 4, 5, 7},
    OrderRow{"DD2506", "大和精密铣床", millShop, unit("W003"), Channel::yenExport, 2, 6'350'000, 5, 6, 7, 9},
    OrderRow{"DD2507", "华北铁路车轴车床", latheShop, unit("K009"), Channel::instalment, 4, 371'500, 6, 7, 8, 10},
    OrderRow{"DD2508", "太平洋出口铣床", millShop, unit("W002"), Channel::dollarExport, 3, 41'200, 7, 8, 9, 11},
    OrderRow{"DD2509", "东方轴承成套铣床", millShop, unit("K003"), Channel::project, 4, 289'000, 9, 10, 11, 13},
    OrderRow{"DD2510", "江淮数控车床二期", latheShop, unit("K001"), Channel::keyCustomer, 4, 392'000, 8, 10, 11, 13},
    OrderRow{"DD2511", "浦江电机专用车床", latheShop, unit("K007"), Channel::keyCustomer, 3, 405'000, 11, 13, 13, 13},
    OrderRow{"DD2512", "宏达铣床技改", millShop, unit("K002"), Channel::instalment, 2, 275'000, 11, 12, 13, 13},
};

struct ResearchRow {
  std::string_view code, name, leader, begun;
  int budget;
  bool settled;
};
inline constexpr std::array researchProjects = {
    ResearchRow{"RD2401", "五轴联动数控系统", "林涛", "2024-03-01", 860'000, false},
    ResearchRow{"RD2402", "高速主轴轻量化", "高翔", "2024-09-15", 420'000, true},
    ResearchRow{"RD2501", "车床振动在线监测", "罗 丹", "2025-02-10", 310'000, false},
};

void writeProjects(Connection& connection, const Growth& growth, int year);

}  // namespace tz::sample
