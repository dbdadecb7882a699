// The find dialogs of the balance tables and general ledgers. Each asks for the members that the table's rows are of.
#pragma once

#include "core/reports/find_rule.h"

namespace tz::finds {

using Kind = ControlSpec::Kind;

inline constexpr std::string_view findTitle = "查找";
inline constexpr std::string_view choose = "请选择";

inline constexpr Message personNotFound{"没找到与该个人有关的记录！"};
inline constexpr Message accountNotFound{"没有该科目的记录！"};
inline constexpr Message deptNotFound{"没有该部门的记录！"};
inline constexpr Message unitNotFound{"没有符合条件的记录!"};
inline constexpr Message recordNotFound{"没找到有关的记录！"};
inline constexpr Message productNotFound{"没找到与该产品有关的记录！"};

constexpr FindRule findBy(int dialog, const ControlSpec& control, const Message& notFound, std::string_view group = {},
                          std::string_view accounts = {}, std::string_view title = findTitle) {
  return {.dialog = {.id = dialog, .title = title, .accountWhere = accounts, .controls = {control}, .group = group},
          .columns = {0},
          .notFound = notFound};
}

// A combo of accounts, under the label and with the ids of its dialog.
constexpr FindRule findAccount(int dialog, int label, int combo, std::string_view accounts, const Message& notFound) {
  return findBy(
      dialog,
      {.kind = Kind::accountCombo, .key = ParameterKey::account, .id = combo, .caption = "科  目:", .label = label},
      notFound, choose, accounts);
}

}  // namespace tz::finds
