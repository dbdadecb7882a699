#include "desktop/picking/pinyin.h"

#include <algorithm>
#include <memory>
#include <string>
#include <unicode/translit.h>
#include <unordered_map>
#include <vector>

namespace tz {
namespace {

// The readings of one sign, without tones, "ü" as "v".
using Readings = std::vector<std::string>;

struct TwoReadings {
  char16_t sign;
  const char* first;
  const char* second;
};
// Signs in names of people, firms and accounts that are read in two ways; ICU knows one of them.
constexpr TwoReadings twoReadings[] = {
    {u'长', "chang", "zhang"}, {u'行', "hang", "xing"}, {u'重', "chong", "zhong"}, {u'单', "shan", "dan"},
    {u'曾', "zeng", "ceng"},   {u'会', "kuai", "hui"},  {u'查', "zha", "cha"},     {u'厦', "xia", "sha"},
    {u'乐', "yue", "le"},      {u'调', "diao", "tiao"}, {u'差', "chai", "cha"},    {u'解', "xie", "jie"},
    {u'仇', "qiu", "chou"},    {u'区', "ou", "qu"},     {u'朴', "piao", "pu"},     {u'翟', "zhai", "di"},
    {u'薄', "bo", "bao"},      {u'车', "che", "ju"},    {u'都', "du", "dou"},      {u'还', "huan", "hai"},
    {u'折', "zhe", "she"},     {u'率', "lv", "shuai"},  {u'便', "bian", "pian"},   {u'尉', "yu", "wei"},
    {u'覃', "qin", "tan"},     {u'召', "shao", "zhao"}, {u'盖', "ge", "gai"},      {u'缪', "miao", "mou"},
};

const icu::Transliterator* transliterator() {
  static const std::unique_ptr<icu::Transliterator> hanToLatin = [] {
    UErrorCode error = U_ZERO_ERROR;
    std::unique_ptr<icu::Transliterator> made(
        icu::Transliterator::createInstance("Han-Latin; NFD; Lower", UTRANS_FORWARD, error));
    return U_SUCCESS(error) ? std::move(made) : nullptr;
  }();
  return hanToLatin.get();
}

// What ICU says, its tones dropped: they are marks of their own after NFD.
std::string mainReading(char16_t sign) {
  icu::UnicodeString text(sign);
  if (transliterator() != nullptr) transliterator()->transliterate(text);
  constexpr char16_t diaeresis = 0x308;
  std::string letters;
  for (int i = 0; i < text.length(); ++i) {
    const char16_t unit = text[i];
    if (unit == diaeresis && letters.ends_with('u')) letters.back() = 'v';
    if ((unit >= u'a' && unit <= u'z') || (unit >= u'0' && unit <= u'9')) letters += static_cast<char>(unit);
  }
  return letters;
}

Readings readingsOf(char16_t sign) {
  Readings readings;
  const auto add = [&readings](std::string reading) {
    if (reading.empty() || std::ranges::find(readings, reading) != readings.end()) return;
    readings.push_back(std::move(reading));
  };
  add(mainReading(sign));
  for (const auto& [known, first, second] : twoReadings) {
    if (known != sign) continue;
    add(first);
    add(second);
  }
  // Who has no "ü" on the keyboard types v, who spells as on a passport types u.
  const Readings spelled = readings;
  for (std::string reading : spelled) {
    const auto place = reading.find('v');
    if (place != std::string::npos && sign > 0x7F) add(reading.replace(place, 1, "u"));
  }
  return readings;
}

const Readings& readings(QChar sign) {
  static std::unordered_map<char16_t, Readings> known;
  const auto [place, isNew] = known.try_emplace(sign.unicode());
  if (isNew) place->second = readingsOf(sign.unicode());
  return place->second;
}

// How many letters of `typed` the reading begins with.
std::size_t commonLength(std::string_view reading, std::string_view typed) {
  const auto [inReading, inTyped] = std::ranges::mismatch(reading, typed);
  return static_cast<std::size_t>(inReading - reading.begin());
}

bool spelledFrom(QStringView text, std::string_view typed) {
  if (typed.empty()) return true;
  // Brackets, dots and blanks inside a name are not spelled.
  while (!text.isEmpty() && !text.front().isLetterOrNumber()) text = text.mid(1);
  if (text.isEmpty()) return false;
  for (const auto& reading : readings(text.front())) {
    for (auto length = commonLength(reading, typed); length > 0; --length) {
      if (spelledFrom(text.mid(1), typed.substr(length))) return true;
    }
  }
  return false;
}

}  // namespace

qsizetype pinyinPlace(QStringView text, QByteArrayView typed) {
  const std::string_view letters(typed.data(), static_cast<std::size_t>(typed.size()));
  for (qsizetype place = 0; place < text.size(); ++place) {
    if (spelledFrom(text.mid(place), letters)) return place;
  }
  return -1;
}

bool looksLikePinyin(QStringView typed) {
  bool letters = false;
  for (const QChar sign : typed) {
    const bool letter = (sign >= u'a' && sign <= u'z') || (sign >= u'A' && sign <= u'Z');
    if (!letter && !(sign >= u'0' && sign <= u'9')) return false;
    letters |= letter;
  }
  return letters;
}

}  // namespace tz
