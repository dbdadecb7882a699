#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <iterator>

#include "core/catalogue/catalogue.h"
#include "core/manual/manual_pages.h"
#include "core/manual/markdown.h"
#include "core/manual/report_page.h"
#include "core/reports/explain_error.h"

namespace tz::manual {
namespace {

// What no record of a report tells; "……" stands for a name or number.
struct OtherMessage {
  std::string_view text;
  std::string_view advice;
};

constexpr std::array aboveTables = {
    OtherMessage{
        "有……条分录的凭证日期不在查询月份内，未列示",
        "这些凭证的会计期间在查询月份内，凭证日期却不在；排在它们后面没有轮到的也算在内。表里的数因此不全，标题写着"
        "“不完整”。改宽月份再查，或用查找分录找出这些凭证。"},
    OtherMessage{"本年累计自……月起累计。",
                 "起始月份不是 1 月，本年累计从起始月份加起。要全年的累计，起始月份选 1 月。"},
    OtherMessage{"起始月份在终止月份之后。", "月份颠倒了，没有一个月在范围里。改正月份。"},
    OtherMessage{"起始项目在终止项目之后。", "项目范围颠倒了，没有一个项目在范围里。改正范围。"},
    OtherMessage{"起始科目在终止科目之后。", "科目范围颠倒了，没有一个科目在范围里。改正范围。"},
    OtherMessage{"外币式沿用七栏表头：借方外币在“贷方”栏，贷方外币在“余额”栏。",
                 "外币式只有七栏，数字比表头错后。要看清楚，改用外币金额式。"},
    OtherMessage{"登录日期 …… 不在会计年度 …… 内，表中月份的年份与帐套不符。",
                 "在导航窗口的帐套菜单里，把登录日期改到帐套的会计年度。"},
};

constexpr std::array vouchersAndSearch = {
    OtherMessage{"期初数无法联查凭证", "期初凭证（期间 0）不能打开来看。"},
    OtherMessage{"没有编号为 …… 的……凭证！", "凭证已经不在，或帐套不是原来那个。刷新帐表（F5）再试。"},
    OtherMessage{"请先选择一条分录", "凭证窗口里没有选分录。选一条再查明细帐。"},
    OtherMessage{"该分录的科目没有辅助核算，没有可以联查的明细帐。",
                 "这条分录没有个人、单位、部门、项目。选另一条分录。"},
};

constexpr std::array ofClearing = {
    OtherMessage{"没有可以撤销的两清标记", "没有留下记录的标记可以取回，或者都撤销过了。"},
    OtherMessage{"这条分录的两清标记已……改动，现在是……，没有再改。",
                 "你看到以后，它在别处被改过。行里已是现在的标记；还要改，再点一次。"},
    OtherMessage{"最近一批是……（……，…… 条分录）。要撤销吗?", "看清是谁的哪一批再选“是”；别人的标记也会取回。"},
    OtherMessage{"这一批标记已被别人撤销", "别人先撤销了。刷新（F5）再看。"},
    OtherMessage{"是否对所有……业务进行反两清?", "选“是”就取消全部个人（或全部单位）的标记，不只是列出的；可以撤销。"},
    OtherMessage{"无须执行定位功能", "按日期排列时没有分组。先换到部门、项目或业务员，再定位。"},
    OtherMessage{"往来两清检查平衡", "有标记的借方与贷方相等，勾对没有差错。"},
};

constexpr std::array inOtherWindows = {
    OtherMessage{"没有查到符合要求的科目!", "还没有按部门编制的计划。先编制计划，再来看执行情况。"},
    OtherMessage{"没有查到符合条件的项目大类!", "还没有按项目编制的计划。先编制计划，再来看执行情况。"},
    OtherMessage{"操作员 …… 没有“……”的权限（…… 号），请向管理员申请", "你的权限里没有这一号。请管理员授予。"},
    OtherMessage{"操作员 …… 没有任何明细帐的权限，不能查找分录",
                 "看凭证、查找分录要有任一明细帐的权限。请管理员授予。"},
    OtherMessage{"该功能尚未提供", "这个版本还没有这项功能。"},
    OtherMessage{"操作员姓名或口令不对", "重新输入。连错几次以后，要等提示的秒数才能再试。"},
    OtherMessage{"登录日期不在会计年度内，请改为 …… 年的日期", "一个帐套是一个会计年度；登录日期改到那一年。"},
    OtherMessage{"没有登录，帐套没有打开", "帐套有操作员，要登录才能打开。"},
    OtherMessage{"月份应为 1 至 12，不是“……”", "改成 1 到 12 的数字。"},
    OtherMessage{"“……”不是数字", "金额写成数字，如 1234.50。"},
    OtherMessage{"“……”已经保存过，换成现在的条件吗？", "选“是”替换原来保存的条件；选“否”另起一个名称。"},
    OtherMessage{"删除保存的条件“……”吗？", "只删除保存的条件，帐套里的数不变。"},
    OtherMessage{"“……”已经存在，要替换它吗？", "选“是”写在原来的文件上；选“否”另起一个文件名。"},
    OtherMessage{"……是所查的帐套……，不能用报表覆盖", "输出的文件选到了帐套自己。另选一个文件名。"},
    OtherMessage{"打不开“……”：没有登记打开……的程序。它的完整路径已复制，可以粘贴到别处。",
                 "文件已经写好，只是没有程序能打开它。安装一个，或粘贴路径到文件管理器。"},
    OtherMessage{"打印没有完成：打印机“……”不接受页面，请检查打印机后重试", "检查打印机的电源、纸和连接，再打印一次。"},
    OtherMessage{"还有 …… 个报表窗口开着，要全部关闭并……吗？", "选“是”全部关闭；帐表随时可以重新查询，不会丢失什么。"},
};

std::string tableOf(std::span<const OtherMessage> messages) {
  auto text = tableHead({"提示", "为什么，怎么办"});
  for (const auto& [message, advice] : messages) text += tableRow({plain(message), plain(advice)});
  return text + "\n";
}

// A message with its advice, and the reports that say it.
struct Told {
  ExplainedRefusal refusal;
  std::vector<const ReportDefinition*> by;
};

template <class RefusalsOf>
std::string tableOfReports(RefusalsOf refusals) {
  std::vector<Told> all;
  for (const auto* report : catalogue()) {
    for (auto& refusal : refusals(*report)) {
      const auto same = [&](const Told& one) {
        return one.refusal.text == refusal.text && one.refusal.advice == refusal.advice;
      };
      auto found = std::ranges::find_if(all, same);
      if (found == all.end()) found = all.insert(all.end(), {std::move(refusal), {}});
      found->by.push_back(report);
    }
  }
  constexpr std::size_t mostNamed = 3;
  auto text = tableHead({"提示", "为什么，怎么办", "帐表"});
  for (const auto& [refusal, by] : all) {
    std::string reports;
    for (const auto* report : by) {
      reports.append(reports.empty() ? "" : "、").append(link(reportTitle(*report), reportPage(*report) + ".md"));
    }
    if (by.size() > mostNamed) reports = fmt::format("{} 张帐表", by.size());
    text += tableRow({plain(refusal.text), plain(refusal.advice), reports});
  }
  return text + "\n";
}

std::vector<ExplainedRefusal> fromRows(const ReportDefinition& report) {
  auto all = drillRefusals(report.detail);
  std::ranges::move(drillRefusals(report.generalLedger), std::back_inserter(all));
  return all;
}

std::string ledgerErrors() {
  auto text = tableHead({"提示", "怎么办"});
  for (int kind = 0; kind <= static_cast<int>(DbError::Kind::other); ++kind) {
    const auto whole = explainInWindow(DbError(static_cast<DbError::Kind>(kind), ""));
    const auto end = whole.find("。");
    text += tableRow({plain(whole.substr(0, end)), plain(whole.substr(end + std::string_view("。").size()))});
  }
  return text + "\n";
}

}  // namespace

std::string composeMessagesPage() {
  return "# 提示信息一览\n\n提示都写明是什么事。下面是每一条的原因和办法；“……”处是具体的名称或数字。在提示框里按 F1，"
         "打开讲它的一页。\n\n失败不会看起来像没有数：读不出来时，提示下面写着真正的原因。被停止或失败的操作不改动帐套"
         "。\n\n"
         "## 打开帐表时\n\n" +
         tableOfReports(openingRefusals) + "## 查询时\n\n" + tableOfReports(confirmingRefusals) +
         "## 查看明细和凭证时\n\n" + tableOfReports(fromRows) + tableOf(vouchersAndSearch) + "## 在表里查找时\n\n" +
         tableOfReports(findRefusals) + "## 两清\n\n" + tableOf(ofClearing) +
         "## 表的上面\n\n这些不是拒绝：表照样列出，提醒你怎样看它。打印和输出时同样写在表的上面。\n\n" +
         tableOf(aboveTables) + "## 读写帐套时\n\n括号里或“详细”里是数据库的原文，供管理员参考。\n\n" + ledgerErrors() +
         "## 其他窗口\n\n" + tableOf(inOtherWindows).substr(0, tableOf(inOtherWindows).size() - 1);
}

}  // namespace tz::manual
