#include "cli/voucher_text.h"

#include <algorithm>
#include <fmt/format.h>

#include "core/grid/figures.h"
#include "core/grid/utf8.h"
#include "core/output/display_text.h"
#include "core/output/report_output.h"
#include "core/voucher/capital_amount.h"

namespace tz::cli {
namespace {

constexpr int gap = 2;
constexpr int narrowText = 12;
constexpr int widestSummary = 28;
constexpr int widestAccount = 44;
constexpr int indent = 2;
constexpr std::string_view red = "\x1b[31m";
constexpr std::string_view usual = "\x1b[39m";

std::string blanks(int count) { return std::string(static_cast<std::size_t>(std::max(count, 0)), ' '); }

std::string padded(const std::string& text, int width) { return text + blanks(width - displayWidth(text)); }

std::string rule(std::string_view sign, int width) {
  std::string line;
  for (int i = 0; i < width; ++i) line += sign;
  return line;
}

// Pieces of at most so many columns; at least one, be it empty.
std::vector<std::string> wrapped(std::string_view text, int width) {
  const std::string shown = shownLine(text);
  std::vector<std::string> pieces(1);
  int taken = 0;
  for (std::size_t place = 0; place < shown.size();) {
    const std::size_t start = place;
    (void)nextCharacter(shown, place);
    const auto sign = std::string_view(shown).substr(start, place - start);
    taken += displayWidth(sign);
    if (taken > width) {
      pieces.emplace_back();
      taken = displayWidth(sign);
    }
    pieces.back() += sign;
  }
  return pieces;
}

// As many in a line as there is room for.
void appendDetails(std::vector<std::string>& texts, const std::vector<VoucherDetail>& details) {
  bool begun = false;
  for (const auto& [caption, value] : details) {
    auto text = fmt::format("{}：{}", caption, value);
    const int together = begun ? displayWidth(texts.back()) + gap + displayWidth(text) : widestAccount;
    if (together <= widestAccount - indent) {
      texts.back().append(blanks(gap)).append(text);
    } else {
      texts.push_back(std::move(text));
    }
    begun = true;
  }
}

// The account in the first line, what else the entry carries below it.
std::vector<std::string> accountTexts(const VoucherLine& line) {
  std::vector<std::string> texts = {line.accountText()};
  for (const auto& details : {membersOf(line), figuresOf(line), remarksOf(line)}) appendDetails(texts, details);
  return texts;
}

std::string amountText(double amount) { return amount == 0 ? "" : figureText(amount, ColumnKind::amount); }

class VoucherPage {
 public:
  VoucherPage(const Voucher& voucher, bool colour) : voucher_(voucher), colour_(colour) { measure(); }

  std::string text() {
    writeHead();
    for (const auto& line : voucher_.lines) writeEntry(line);
    if (voucher_.lines.empty()) out_ += "（没有分录）\n";
    writeFoot();
    return std::move(out_);
  }

 private:
  void measure() {
    for (const auto& line : voucher_.lines) {
      summary_ = std::max(summary_, displayWidth(line.entry.sDigest));
      account_ = std::max(account_, displayWidth(line.accountText()));
      for (const auto& text : accountTexts(line)) account_ = std::max(account_, displayWidth(text) + indent);
      for (const double amount : {line.debit(), line.credit()}) {
        figures_ = std::max(figures_, displayWidth(amountText(amount)));
      }
    }
    for (const double total : {voucher_.debit, voucher_.credit}) {
      figures_ = std::max(figures_, displayWidth(figureText(total, ColumnKind::amount)));
    }
    summary_ = std::min(summary_, widestSummary);
    account_ = std::min(account_, widestAccount);
    width_ = summary_ + account_ + 2 * figures_ + 3 * gap;
  }
  void writeLine(const std::string& text) { out_.append(text).append("\n"); }

  void writeHead() {
    constexpr std::string_view title = "记 帐 凭 证";
    const int side = (width_ - displayWidth(title)) / 2;
    writeLine(blanks(side) + std::string(title));
    writeLine(blanks(side) + rule("═", displayWidth(title)));
    std::string date;
    appendDate(date, voucher_.head.dtBill);
    writeLine(shownLine(fmt::format("凭证号：{}    日期：{}    会计期间：{} 月    附单据 {} 张", voucher_.number(),
                                    date, voucher_.head.byPeroid, voucher_.head.nAttach)));
    writeLine(std::string(bookName(voucher_.book)));
    out_ += '\n';
    writeColumns("摘要", "科目", "借方", "贷方");
    writeRules();
  }

  void writeRules() {
    const auto space = blanks(gap);
    writeLine(rule("─", summary_) + space + rule("─", account_) + space + rule("─", figures_) + space +
              rule("─", figures_));
  }

  void writeColumns(const std::string& summary, const std::string& account, const std::string& debit,
                    const std::string& credit) {
    std::string line = padded(summary, summary_) + blanks(gap) + padded(account, account_);
    appendAmount(line, debit);
    appendAmount(line, credit);
    line.erase(line.find_last_not_of(' ') + 1);
    writeLine(line);
  }

  void appendAmount(std::string& line, const std::string& amount) const {
    line += blanks(gap + figures_ - displayWidth(amount));
    const bool inRed = colour_ && amount.starts_with('-');
    if (inRed) line += red;
    line += amount;
    if (inRed) line += usual;
  }

  void writeEntry(const VoucherLine& line) {
    const auto summary = wrapped(line.entry.sDigest, summary_);
    std::vector<std::string> account;
    for (const auto& text : accountTexts(line)) {
      const auto before = blanks(account.empty() ? 0 : indent);
      for (const auto& piece : wrapped(text, account_ - static_cast<int>(before.size()))) {
        account.push_back(before + piece);
      }
    }
    for (std::size_t i = 0; i < std::max(summary.size(), account.size()); ++i) {
      const bool first = i == 0;
      writeColumns(i < summary.size() ? summary[i] : "", i < account.size() ? account[i] : "",
                   first ? amountText(line.debit()) : "", first ? amountText(line.credit()) : "");
    }
  }

  void writeFoot() {
    writeRules();
    const auto capitals = wrapped("合计　" + capitalAmount(voucher_.debit), summary_ + gap + account_);
    for (const auto& piece : capitals) {
      std::string line = padded(piece, summary_ + gap + account_);
      if (&piece == &capitals.front()) {
        appendAmount(line, figureText(voucher_.debit, ColumnKind::amount));
        appendAmount(line, figureText(voucher_.credit, ColumnKind::amount));
      }
      writeLine(line);
    }
    if (!voucher_.balanced()) writeLine("借贷不平");
    const auto& head = voucher_.head;
    out_ += '\n';
    writeLine(shownLine(fmt::format("制单：{}    审核：{}    记帐：{}", head.sMaker, head.sChecker, head.sPoster)));
  }

  const Voucher& voucher_;
  bool colour_;
  int summary_ = narrowText;
  int account_ = narrowText;
  int figures_ = narrowText;
  int width_ = 0;
  std::string out_;
};

}  // namespace

std::string voucherText(const Voucher& voucher, bool colour) { return VoucherPage(voucher, colour).text(); }

}  // namespace tz::cli
