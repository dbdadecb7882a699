#include "core/manual/control_texts.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>

namespace tz::manual {
namespace {

using Kind = ControlSpec::Kind;

struct AccountWords {
  std::string_view where;
  std::string_view words;
};
constexpr std::array accountWords = {
    AccountWords{"sAssBook LIKE '%A%' AND lId>0 ORDER BY sCode", "核算个人的科目"},
    AccountWords{"sAssBook LIKE '%A%' AND bEnd = 0 ORDER BY sCode", "核算个人、还有下级的科目"},
    AccountWords{"sAssBook LIKE '%A%' AND lId>0 AND bEnd <> 0 ORDER BY sCode", "核算个人的末级科目"},
    AccountWords{"sAssBook LIKE '%B%' AND bEnd <> 0 ORDER BY sCode", "核算单位的末级科目"},
    AccountWords{"sAssBook LIKE '%B%' AND lId>0 ORDER BY sCode", "核算单位的科目"},
    AccountWords{"sAssBook LIKE '%B%' AND bEnd = 0 ORDER BY sCode", "核算单位、还有下级的科目"},
    AccountWords{"sAssBook = 'B' ORDER BY sCode", "只核算单位的科目（同时核算部门或项目的不在其中）"},
    AccountWords{"sAssBook LIKE '%C%' ORDER BY sCode", "核算部门的科目"},
    AccountWords{"sAssBook LIKE '%C%' AND bEnd != 0 ORDER BY sCode", "核算部门的末级科目"},
    AccountWords{"sAssBook LIKE '%C%' AND bEnd = 0 ORDER BY sCode", "核算部门、还有下级的科目"},
    AccountWords{"sAssBook LIKE '%D%' ORDER BY sCode", "核算项目的科目"},
    AccountWords{"sAssBook LIKE '%D%' AND bEnd = 0 ORDER BY sCode", "核算项目、还有下级的科目"},
    AccountWords{"sAssBook IN ('D', 'CD', 'DC') ORDER BY sCode", "只核算项目，或核算部门和项目的科目"},
    AccountWords{"sAssBook IN ('CD', 'DC') ORDER BY sCode", "核算部门和项目的科目"},
    AccountWords{"sAssBook LIKE '%C%' AND sAssBook LIKE '%D%' ORDER BY sCode", "核算部门、又核算项目的科目"},
};

constexpr std::string_view byName = "输入编码、名称的一部分或拼音首字母，或按 F2 打开参照窗口";
constexpr std::string_view required = "不能，会提示";
constexpr std::string_view alwaysOne = "不能；打开时已有一个";
constexpr std::string_view noLimit = "可以，就是不限";

ControlText ofMember(std::string_view what, const ControlSpec& control) {
  return {.caption = {},
          .meaning = fmt::format("{}。{}。", what, byName),
          .empty = control.all ? "可以；空着或“全部”就是所有" + std::string(parameter(control.key).label)
                               : std::string(required)};
}

ControlText ofOneOfTwo(const ControlSpec& control) {
  const auto choices = parameter(control.key).choices;
  ControlText text{.caption = {},
                   .meaning = fmt::format("“{}”或“{}”。", choices[0].caption, choices[1].caption),
                   .empty = std::string(alwaysOne)};
  if (control.key == ParameterKey::analysis) {
    text.meaning += "余额分析的各栏合计是借贷相抵后的净额；金额分析的各栏合计是每笔净额的绝对值之和。";
  } else if (control.key == ParameterKey::deptGrouping) {
    text.meaning += "前者把一个部门的项目放在一起，后者把一个项目的部门放在一起；只查一个部门时不分组。";
  } else {
    text.meaning += "前者把一个单位的项目放在一起，后者把一个项目的单位放在一起。";
  }
  return text;
}

ControlText ofTick(const ControlSpec& control) {
  ControlText text{.caption = {}, .meaning = std::string(control.caption) + "。", .empty = "不勾选就是不要"};
  if (control.key == ParameterKey::unposted) {
    text.meaning = "勾选后，已制单而未记帐的凭证也算在内。";
    text.empty = "不勾选就只算已记帐的";
  } else if (control.key == ParameterKey::creditLimit) {
    text.meaning = "勾选后，表的最后多出“信用额度”和“超额”两栏。";
    text.empty = "不勾选就没有这两栏";
  }
  return text;
}

ControlText ofAccount(const ControlSpec& control, const DialogSpec& dialog) {
  const auto words = accountsInWords(dialog.accountWhere);
  if (control.kind == Kind::accountLists) {
    return {.caption = {},
            .meaning = fmt::format("左边列出{}，移到右边的才列入；移入的科目连同它的下级。", words),
            .empty = "可以，就是全部"};
  }
  const bool leaves = words.find("末级") != std::string_view::npos;
  return {.caption = {},
          .meaning = fmt::format("列出{}。选一个{}。输入编码、名称的一部分或拼音首字母就能找到。", words,
                                 leaves ? "" : "，连同它的全部下级"),
          .empty = std::string(alwaysOne)};
}

ControlText ofRange(const ControlSpec& control) {
  const bool accounts = control.kind == Kind::accountRange;
  return {.caption = {},
          .meaning = fmt::format("起止两个{}编码，两端都包括{}。{}", accounts ? "科目" : "项目",
                                 accounts ? "，终止科目含它的下级" : "",
                                 control.unfoldedCaption.empty() ? "" : "点这个按钮才展开。"),
          .empty = std::string(noLimit) + "，一端空着也行"};
}

ControlText ofKind(const ControlSpec& control, const DialogSpec& dialog) {
  switch (control.kind) {
    case Kind::accountCombo:
    case Kind::accountLists:
      return ofAccount(control, dialog);
    case Kind::deptReference:
      return ofMember("一个部门", control);
    case Kind::personReference:
      return ofMember("一个人；选中一个人，他的部门随之填上", control);
    case Kind::unitReference:
      return ofMember("一个单位，客户或供应商", control);
    case Kind::deptCombo:
      return {{}, control.all ? "一个部门，或“全部”。" : "一个部门。", std::string(alwaysOne)};
    case Kind::unitClassCombo:
      return {{}, "单位的一个分类；最后一项“其它”是没有分类的单位。", std::string(alwaysOne)};
    case Kind::clerkCombo:
      return {{}, "在所选科目的分录上出现过的业务员；最后一项“其它”是没有业务员的。", std::string(alwaysOne)};
    case Kind::classCombo:
      return {{},
              asksForAccount(dialog) ? "所选科目核算的项目大类；换了科目，大类跟着换。" : "帐套里的一个项目大类。",
              std::string(alwaysOne)};
    case Kind::projectReference:
      return {{}, fmt::format("先选项目大类，再填这个大类的一个项目。{}。", byName), std::string(required)};
    case Kind::projectRange:
    case Kind::accountRange:
      return ofRange(control);
    case Kind::months:
      return {{},
              "起始和终止月份，是凭证的会计期间。旁边的按钮填入本月、上月、本季、本年，以登录日期为准。",
              "不能；第一次打开时是登录日期的月份"};
    case Kind::month:
      return {{}, "一个月份，列到这个月的月末。", "不能；第一次打开时是登录日期的月份"};
    case Kind::amountRange:
      return {{}, "期末余额（绝对值）的下限和上限，两端都包括；两个都是 0 就不选。", "可以，空着等于 0"};
    case Kind::side:
      return {{}, "“双方余额”全部列出，“借方余额”“贷方余额”只列期末在这一方的行。", std::string(alwaysOne)};
    case Kind::analysis:
      return ofOneOfTwo(control);
    case Kind::checkBox:
      return ofTick(control);
    case Kind::date:
      return {{}, "截止的一天，这一天包括在内。", std::string(required)};
    default:
      return ofMember(parameter(control.key).label, control);
  }
}

}  // namespace

std::string_view accountsInWords(std::string_view accountWhere) {
  const auto* const found = std::ranges::find(accountWords, accountWhere, &AccountWords::where);
  return found == accountWords.end() ? std::string_view() : found->words;
}

ControlText controlText(const ControlSpec& control, const DialogSpec& dialog) {
  auto text = ofKind(control, dialog);
  text.caption = control.caption;
  return text;
}

std::optional<ParameterKey> demanded(const ControlSpec& control) {
  switch (control.kind) {
    case Kind::deptCombo:
      return control.all ? std::nullopt : std::optional(control.key);
    case Kind::unitClassCombo:
    case Kind::clerkCombo:
    case Kind::classCombo:
    case Kind::months:
    case Kind::month:
      return control.key;
    default:
      return std::nullopt;
  }
}

}  // namespace tz::manual
