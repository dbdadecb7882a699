#include "core/archives/archive_values.h"

#include <charconv>
#include <cmath>
#include <fmt/format.h>

#include "core/grid/utf8.h"
#include "core/output/display_text.h"

namespace tz {
namespace {

using Kind = ArchiveField::Kind;
using Read = std::variant<Value, std::string>;  // or why not

constexpr double largestFigure = 1e12;
constexpr std::string_view wideBlank = "　";

std::size_t charactersOf(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t place = 0; place < text.size(); ++count) (void)nextCharacter(text, place);
  return count;
}

// "1,234.50" and the figures of Chinese input methods, as a number is read.
std::string plainFigure(std::string_view text) {
  constexpr char32_t wideOffset = 0xFF00 - 0x20;
  std::string plain;
  for (std::size_t place = 0; place < text.size();) {
    auto character = nextCharacter(text, place);
    if (character > 0xFF00 && character < 0xFF5F) character -= wideOffset;
    if (character == U'，' || character == ',' || character == ' ') continue;
    if (character == U'。') character = '.';
    appendCharacter(plain, character);
  }
  return plain;
}

std::optional<double> figureOf(std::string_view text) {
  const auto plain = plainFigure(text);
  double figure = 0;
  const auto [end, error] =
      std::from_chars(plain.data(), plain.data() + plain.size(), figure, std::chars_format::fixed);
  if (error != std::errc() || end != plain.data() + plain.size() || !std::isfinite(figure)) return std::nullopt;
  return figure;
}

Read readAmount(const ArchiveField& field, const std::string& text) {
  if (text.empty()) return Value(0.0);
  const auto amount = figureOf(text);
  if (!amount) return fmt::format("{}“{}”不是金额。", field.caption, text);
  if (*amount < 0) return fmt::format("{}不能是负数。", field.caption);
  if (*amount >= largestFigure) return fmt::format("{}太大了。", field.caption);
  constexpr double cents = 100;
  if (std::abs(std::round(*amount * cents) - *amount * cents) > 1e-4) {
    return fmt::format("{}最多有两位小数。", field.caption);
  }
  return Value(*amount == 0 ? 0.0 : std::round(*amount * cents) / cents);
}

Read readNumber(const ArchiveField& field, const std::string& text) {
  if (text.empty()) return Value(0.0);
  const auto number = figureOf(text);
  if (!number) return fmt::format("{}“{}”不是数。", field.caption, text);
  if (std::abs(*number) >= largestFigure) return fmt::format("{}太大了。", field.caption);
  return Value(*number == 0 ? 0.0 : *number);
}

// "2006-1-5", "2006.01.05", "2006/1/5", "2006年1月5日" or "20060105".
std::optional<Date> dateOf(const std::string& text) {
  std::vector<int> parts(1);
  std::size_t digits = 0;
  for (std::size_t place = 0; place < text.size();) {
    const auto character = nextCharacter(text, place);
    if (character >= '0' && character <= '9') {
      constexpr int ten = 10;
      constexpr std::size_t mostDigits = 8;
      if (++digits > mostDigits) return std::nullopt;
      parts.back() = parts.back() * ten + static_cast<int>(character - '0');
    } else if (std::u32string_view(U"-./年月日").find(character) != std::u32string_view::npos) {
      if (character != U'日') parts.push_back(0);
    } else {
      return std::nullopt;
    }
  }
  constexpr int hundred = 100;
  if (parts.size() == 1) parts = {parts[0] / hundred / hundred, parts[0] / hundred % hundred, parts[0] % hundred};
  if (parts.size() != 3) return std::nullopt;
  return parseIsoDate(fmt::format("{:04}-{:02}-{:02}", parts[0], parts[1], parts[2]));
}

Read readDate(const ArchiveField& field, const std::string& text) {
  if (text.empty()) return Value(text);
  const auto date = dateOf(text);
  if (!date) return fmt::format("{}“{}”不是日期，请写成 2025-01-31。", field.caption, text);
  return Value(isoText(*date));
}

std::string wrongText(const ArchiveField& field, const std::string& text) {
  const bool wanted = field.kind == Kind::code || field.kind == Kind::name || field.kind == Kind::classId;
  if (text.empty()) return wanted ? fmt::format("请填写{}。", field.caption) : "";
  if (!measureText(text).clean) return fmt::format("{}中有换行、制表符或其他不能显示的字符，请删去。", field.caption);
  const auto length = charactersOf(text);
  if (field.longest > 0 && length > static_cast<std::size_t>(field.longest)) {
    return fmt::format("{}最多 {} 个字，现在有 {} 个。", field.caption, field.longest, length);
  }
  const bool blank = text.find(' ') != std::string::npos || text.find(wideBlank) != std::string::npos;
  if (field.kind == Kind::code && blank) return fmt::format("{}中不能有空格。", field.caption);
  if (field.kind == Kind::classId && !isClassId(text)) {
    return fmt::format("{}只能由字母和数字组成。", field.caption);
  }
  return "";
}

Read readReference(const ArchiveField& field, const ArchiveReferences& references, const MemberChoice& choice) {
  const auto id = references.Find(field.kind, choice);
  if (!id) return fmt::format("没有{}“{}”，请从列表中选择。", field.caption, trimmedText(choice.text));
  if (*id == 0 && field.kind != Kind::unitClass) return fmt::format("请选择{}。", field.caption);
  return Value(*id);
}

Read readValue(const ArchiveField& field, const ArchiveReferences& references, const MemberChoice& choice) {
  if (field.refers()) return readReference(field, references, choice);
  const auto text = trimmedText(choice.text);
  if (field.kind == Kind::settled) return Value(text == "1" ? 1.0 : 0.0);
  if (const auto wrong = wrongText(field, text); !wrong.empty()) return wrong;
  if (field.kind == Kind::amount) return readAmount(field, text);
  if (field.kind == Kind::number) return readNumber(field, text);
  if (field.kind == Kind::date) return readDate(field, text);
  if (field.kind == Kind::fieldType) {
    const auto known = std::ranges::any_of(fieldTypes(), [&](const FieldTypeName& one) { return one.type == text; });
    if (!known) return fmt::format("请选择{}。", field.caption);
  }
  return Value(text);
}

}  // namespace

std::string trimmedText(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n\v\f";
  for (;;) {
    if (text.starts_with(wideBlank)) {
      text.remove_prefix(wideBlank.size());
    } else if (text.ends_with(wideBlank)) {
      text.remove_suffix(wideBlank.size());
    } else if (!text.empty() && blanks.find(text.front()) != std::string_view::npos) {
      text.remove_prefix(1);
    } else if (!text.empty() && blanks.find(text.back()) != std::string_view::npos) {
      text.remove_suffix(1);
    } else {
      return std::string(text);
    }
  }
}

ArchiveReferences::ArchiveReferences(const CQnCwDB& db, const Archive& archive) {
  const auto add = [this](Kind kind, Id id, const std::string& code, const std::string& name) {
    const auto shown = code.empty() ? name : kind == Kind::account ? fmt::format("{} {}", code, name) : name;
    const auto place = static_cast<int>(kind);
    if (entries_[place].try_emplace(id, Entry{code, name, shown}).second) inOrder_[place].push_back(id);
  };
  if (archive.has(Kind::department)) {
    for (const auto& dept : db.Dept_GetInfo("lId > 0 ORDER BY sDeptId, lId")) {
      add(Kind::department, dept.lDeptId, dept.sDeptId, dept.sDeptName);
    }
  }
  if (archive.has(Kind::unitClass)) {
    for (const auto& unitClass : db.EnterClass_GetInfo("lId > 0 ORDER BY lId")) {
      add(Kind::unitClass, unitClass.lId, "", unitClass.sName);
    }
  }
  if (archive.has(Kind::account)) {
    for (const auto& code : db.Code_GetInfo("sAssBook LIKE '%D%' ORDER BY sCode")) {
      add(Kind::account, code.lId, code.sCode, code.sName);
    }
  }
}

std::string_view ArchiveReferences::NameOf(Kind kind, Id id) const {
  const auto entries = entries_.find(static_cast<int>(kind));
  if (entries == entries_.end()) return {};
  const auto found = entries->second.find(id);
  return found == entries->second.end() ? std::string_view() : std::string_view(found->second.shown);
}

std::optional<Id> ArchiveReferences::Find(Kind kind, const MemberChoice& choice) const {
  const auto text = trimmedText(choice.text);
  if (choice.id == 0 && text.empty()) return 0;
  const auto entries = entries_.find(static_cast<int>(kind));
  if (entries == entries_.end()) return std::nullopt;
  if (choice.id != 0) return entries->second.contains(choice.id) ? std::optional(choice.id) : std::nullopt;
  for (const Id id : inOrder_.at(static_cast<int>(kind))) {
    const auto& entry = entries->second.at(id);
    if (text == entry.name || text == entry.code || text == fmt::format("{} {}", entry.code, entry.name)) return id;
  }
  return std::nullopt;
}

std::variant<std::vector<Value>, ArchiveRefusal> readInput(const Archive& archive, const ArchiveReferences& references,
                                                           const ArchiveInput& input) {
  std::vector<Value> values;
  for (std::size_t place = 0; place < archive.fields.size(); ++place) {
    auto read = readValue(archive.fields[place], references, place < input.size() ? input[place] : MemberChoice{});
    if (auto* wrong = std::get_if<std::string>(&read)) return ArchiveRefusal{Refusal{std::move(*wrong)}, place};
    values.push_back(std::get<Value>(std::move(read)));
  }
  return values;
}

std::string inputText(const ArchiveField& field, const Value& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  if (const auto* figure = std::get_if<double>(&value)) {
    if (*figure == 0 && field.kind != Kind::settled) return "";
    return fmt::format("{}", *figure);
  }
  return "";
}

ArchiveInput inputOf(const Archive& archive, const ArchiveRecord& record) {
  ArchiveInput input;
  for (std::size_t place = 0; place < archive.fields.size(); ++place) {
    const auto& value = record.values[place];
    const auto* id = std::get_if<std::int64_t>(&value);
    input.push_back({inputText(archive.fields[place], value), id == nullptr ? 0 : *id});
  }
  return input;
}

}  // namespace tz
