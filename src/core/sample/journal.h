// Takes the sample company's vouchers in the order of their dates, numbers them (收, 付, 转 per month; 记 for the
// openings) and writes them in blocks, heads and lines apart, because a server takes one table at a time.
#pragma once

#include <array>

#include "core/data/records.h"
#include "core/sample/balances.h"

namespace tz::sample {

inline constexpr int accountYear = 2025;
inline constexpr Date lastPostedDay{accountYear, 11, 25};

constexpr Date day(int month, int dayOfMonth) {
  return {accountYear, static_cast<std::uint8_t>(month), static_cast<std::uint8_t>(dayOfMonth)};
}

class Journal {
 public:
  // Without a connection it only counts.
  explicit Journal(Connection* connection) : connection_(connection) {}

  // An open item of an earlier year: its lines of persons and units are their openings, the other side is told only.
  void opening(const Voucher& voucher);
  void openBalance(const Line& line);
  // Posted when its date is not after lastPostedDay. Throws std::logic_error when debits and credits differ.
  void scripted(const Voucher& voucher);
  // A voucher of the grown company; the script's own balances do not see it.
  void grown(const Voucher& voucher);
  void finish();

  [[nodiscard]] std::int64_t postedLines() const { return postedLines_; }
  [[nodiscard]] std::int64_t unpostedLines() const { return unpostedLines_; }
  // The balances of scripted vouchers, unposted ones included.
  [[nodiscard]] const Balances& script() const { return script_; }

 private:
  struct Block {
    std::vector<RegMainInfo> heads;
    std::vector<RegSubInfo> lines;
  };
  struct UnpostedBlock {
    std::vector<UnregMainInfo> heads;
    std::vector<UnregSubInfo> lines;
  };

  void post(const Voucher& voucher);
  template <class AnyBlock>
  void append(AnyBlock& block, const Voucher& voucher, const RegMainInfo& head);
  template <class AnyBlock>
  void flush(AnyBlock& block);

  Connection* connection_;
  Block posted_;
  UnpostedBlock unposted_;
  Balances written_, script_;
  std::int64_t postedLines_ = 0, unpostedLines_ = 0;
  Id lastVoucher_ = 0, lastLine_ = 0;
  int openingNumber_ = 0;
  std::array<std::array<int, 3>, 13> numbers_{};  // by month and word
};

}  // namespace tz::sample
