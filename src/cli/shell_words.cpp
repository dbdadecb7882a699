#include "cli/shell_words.h"

#include <cctype>
#include <fmt/format.h>

#include "core/output/display_text.h"

namespace tz::cli {
namespace {

constexpr std::string_view parting = " \t\n;|&()<>";

int digitOf(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  const char low = static_cast<char>(c | 0x20);
  return low >= 'a' && low <= 'f' ? low - 'a' + 10 : 16;
}

// Reads one word after the other; nothing is expanded.
class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) {}

  // False at the end of the line, where `word` is the one that is being typed.
  bool Next(std::string& word) {
    word.clear();
    while (place_ < text_.size() && parting.find(text_[place_]) != std::string_view::npos) ++place_;
    start_ = place_;
    while (place_ < text_.size()) {
      if (quoting_ == Quoting::none && parting.find(text_[place_]) != std::string_view::npos) return true;
      Take(word);
    }
    return false;
  }
  [[nodiscard]] std::size_t Start() const { return start_; }
  [[nodiscard]] Quoting EndsIn() const { return quoting_; }

 private:
  void Take(std::string& word) {
    switch (quoting_) {
      case Quoting::none:
        return TakePlain(word);
      case Quoting::single:
        return TakeUntil('\'', word);
      case Quoting::doubled:
        if (text_[place_] == '\\' && Ahead("$`\"\\\n")) {
          ++place_;
          return TakeOne(word);
        }
        return TakeUntil('"', word);
      case Quoting::ansi:
        return text_[place_] == '\\' ? TakeEscape(word) : TakeUntil('\'', word);
    }
  }
  void TakePlain(std::string& word) {
    const char c = text_[place_];
    if (c == '\\') {
      ++place_;
      if (place_ < text_.size()) TakeOne(word);
    } else if (c == '$' && Ahead("'\"")) {
      quoting_ = text_[place_ + 1] == '"' ? Quoting::doubled : Quoting::ansi;
      place_ += 2;
    } else if (c == '\'' || c == '"') {
      quoting_ = c == '"' ? Quoting::doubled : Quoting::single;
      ++place_;
    } else {
      TakeOne(word);
    }
  }
  void TakeOne(std::string& word) { word += text_[place_++]; }
  void TakeUntil(char end, std::string& word) {
    if (text_[place_] == end) {
      quoting_ = Quoting::none;
      ++place_;
    } else {
      TakeOne(word);
    }
  }
  // The escapes that shellCompletion writes, and those for one character that people use.
  void TakeEscape(std::string& word) {
    ++place_;
    if (place_ >= text_.size()) return;
    constexpr std::string_view letters = "abeEfnrtv";
    constexpr std::string_view meanings = "\a\b\x1b\x1b\f\n\r\t\v";
    if (const auto letter = letters.find(text_[place_]); letter != std::string_view::npos) {
      word += meanings[letter];
      ++place_;
    } else if (text_[place_] == 'x') {
      ++place_;
      TakeNumber(16, 2, word);
    } else if (digitOf(text_[place_]) < 8) {
      TakeNumber(8, 3, word);
    } else {
      TakeOne(word);
    }
  }
  void TakeNumber(int base, int digits, std::string& word) {
    int value = 0;
    for (; digits > 0 && place_ < text_.size() && digitOf(text_[place_]) < base; --digits) {
      value = value * base + digitOf(text_[place_++]);
    }
    word += static_cast<char>(value);
  }
  [[nodiscard]] bool Ahead(std::string_view wanted) const {
    return place_ + 1 < text_.size() && wanted.find(text_[place_ + 1]) != std::string_view::npos;
  }

  std::string_view text_;
  std::size_t place_ = 0;
  std::size_t start_ = 0;
  Quoting quoting_ = Quoting::none;
};

bool isAssignment(std::string_view word) {
  const auto equals = word.find('=');
  if (equals == 0 || equals == std::string_view::npos) return false;
  for (const char c : word.substr(0, equals)) {
    if (std::isalnum(static_cast<unsigned char>(c)) == 0 && c != '_') return false;
  }
  return true;
}

// Bytes that only $'…' can hold without harm to the terminal that shows them.
bool needsAnsi(std::string_view text) { return !measureText(text).clean; }

std::string ansiText(std::string_view text) {
  std::string written;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x20 || byte >= 0x7F) {
      written += fmt::format("\\{:03o}", byte);
    } else {
      if (c == '\'' || c == '\\') written += '\\';
      written += c;
    }
  }
  return written;
}

std::string plainText(std::string_view text) {
  constexpr std::string_view special = " !\"#$&'()*;<>?[\\]^`{|}~";
  std::string written;
  for (const char c : text) {
    if (special.find(c) != std::string_view::npos) written += '\\';
    written += c;
  }
  return written;
}

// Up to and with the closing quote. A "!" would bring back the history inside double quotes, even behind a backslash.
std::string doubleQuoted(std::string_view text) {
  std::string written;
  for (const char c : text) {
    if (c == '!') {
      written += "\"'!'\"";
      continue;
    }
    if (c == '$' || c == '`' || c == '"' || c == '\\') written += '\\';
    written += c;
  }
  return written + '"';
}

std::string singleQuoted(std::string_view text) {
  std::string written;
  for (const char c : text) written += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return written + '\'';
}

std::string quoted(std::string_view text, Quoting quoting) {
  const bool ansi = needsAnsi(text);
  switch (quoting) {
    case Quoting::none:
      return ansi ? "$'" + ansiText(text) + "'" : plainText(text);
    case Quoting::single:
      return ansi ? "'$'" + ansiText(text) + "'" : singleQuoted(text);
    case Quoting::doubled:
      // Ends in an empty pair, so that bash sees its quote closed.
      return ansi ? "\"$'" + ansiText(text) + "'\"\"" : doubleQuoted(text);
    case Quoting::ansi:
      return ansiText(text) + "'";
  }
  return {};
}

}  // namespace

TypedShellLine readShellLine(std::string_view text) {
  Reader reader(text);
  TypedShellLine line;
  bool program = false;
  std::string word;
  bool more = true;
  while (more) {
    more = reader.Next(word);
    if (program || !more) {
      line.words.push_back(word);
    } else {
      program = !isAssignment(word);
    }
  }
  line.raw = text.substr(reader.Start());
  line.quoting = reader.EndsIn();
  return line;
}

std::string shellCompletion(const TypedShellLine& line, std::string_view replaced, std::string_view name) {
  if (name.find('\0') != std::string_view::npos) return {};
  std::string_view kept(line.raw);
  if (kept.ends_with(replaced)) kept.remove_suffix(replaced.size());
  Reader reader(kept);
  std::string before;
  (void)reader.Next(before);
  if (!name.starts_with(before)) return {};
  auto completion = quoted(name.substr(before.size()), reader.EndsIn());
  // A completion that begins with the quote before it takes that quote's place.
  const bool inQuotes = reader.EndsIn() != Quoting::none && !kept.empty();
  if (inQuotes && completion.starts_with(kept.back())) completion.insert(0, 1, kept.back());
  return completion;
}

}  // namespace tz::cli
