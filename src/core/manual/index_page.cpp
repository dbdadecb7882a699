#include <array>
#include <fmt/format.h>
#include <iterator>

#include "core/catalogue/catalogue.h"
#include "core/manual/manual_pages.h"
#include "core/manual/markdown.h"
#include "core/manual/report_page.h"

namespace tz::manual {
namespace {

constexpr std::array beginnings = {
    Chapter{"start", "开始使用", "打开帐套、登录、导航窗口，第一张帐表"},
    Chapter{"conditions", "查询条件", "输入、简拼、参照窗口、上次和保存的条件"},
    Chapter{"tables", "帐表窗口", "折叠、筛选、定位、查找、移动列、复制"},
    Chapter{"drill", "从余额到凭证", "从余额到明细帐，从明细帐到凭证，再从凭证到别的帐"},
};
constexpr std::array figures = {
    Chapter{"formats", "金额格式", "金额式、数量金额式、外币金额式、数量外币式、外币式"},
    Chapter{"detail-ledgers", "明细帐怎样算出来", "期初、本月合计、本年累计、未记帐、其它"},
    Chapter{"balances", "余额表和总帐怎样算出来", "期初、发生额、期末、余额范围、信用额度、上年结转"},
};
constexpr std::array tools = {
    Chapter{"clearing", "往来两清", "手工两清、自动勾对、反两清、撤销和平衡检查"},
    Chapter{"search", "查找分录", "在整个帐套里按摘要、金额、凭证查找"},
    Chapter{"vouchers", "凭证", "看一张凭证，上一张、下一张，它的明细帐"},
    Chapter{"printing", "打印、预览和 PDF", "纸张、承前页、过次页，没有打印机时怎么办"},
    Chapter{"files", "输出文件", "工作簿、CSV、JSON、文本、PDF"},
};
constexpr std::array keeping = {
    Chapter{"archives", "档案", "个人、部门、项目、单位的目录：增加、修改、删除"},
    Chapter{"operators", "操作员", "第一个操作员、权限、口令，操作日志"},
};
constexpr std::array reference = {
    Chapter{"messages", "提示信息一览", "程序的每一条提示，为什么，怎么办"},
    Chapter{"keys", "按键", "每个窗口的按键"},
    Chapter{"terms", "名词", "辅助核算的名词"},
};
constexpr std::array parts = {
    Part{"入门", beginnings}, Part{"数字的来历", figures}, Part{"工具", tools},
    Part{"管理", keeping},    Part{"查阅", reference},
};
constexpr std::array areas = {Area::person, Area::unit, Area::department, Area::project, Area::plan};

std::string reportsOf(Area area) {
  std::string text;
  for (const auto* report : catalogue()) {
    if (report->area != area) continue;
    fmt::format_to(std::back_inserter(text), "- {}\n", link(report->rightName, reportPage(*report) + ".md"));
  }
  return text.empty() ? text : fmt::format("## {}\n\n{}\n", areaName(area), text);
}

std::string chaptersOf(const Part& part) {
  auto text = fmt::format("## {}\n\n", part.title);
  for (const auto& [page, title, about] : part.chapters) {
    fmt::format_to(std::back_inserter(text), "- {}：{}\n", link(title, fmt::format("{}.md", page)), about);
  }
  return text + "\n";
}

}  // namespace

std::span<const Part> manualParts() { return parts; }

std::string composeIndexPage() {
  std::string text =
      "# 辅助核算使用手册\n\n个人往来、单位往来、部门核算、项目核算的帐表：怎样查，数字从哪里来，提示是什么意思。"
      "在任何窗口里按 F1，打开讲它的一页；右上角的一栏在整本手册里查找。\n\n";
  for (const auto& part : parts) {
    if (&part == &parts[2]) {
      for (const auto area : areas) text += reportsOf(area);
    }
    text += chaptersOf(part);
  }
  text.pop_back();
  return text;
}

}  // namespace tz::manual
