// Every report of the catalogue asked of one ledger, with conditions found by trial: a refusal names the condition that
// is at fault, and the names that the ledger holds are tried for it one after the other.
#pragma once

#include <string>
#include <vector>

#include "core/reports/report_definition.h"
#include "core/voucher/voucher.h"

namespace tz::test {

struct Question {
  const ReportDefinition* report;
  Request request;
};

// A session of a reader; the ledger is open while it lives. Throws DbError.
class Reader {
 public:
  explicit Reader(const std::string& ledger);
  [[nodiscard]] ReportOutcome ask(const Question& question);
  [[nodiscard]] std::variant<Voucher, Refusal> voucher(const LineId& line) {
    return readVoucher(session_, line.book, line.voucher);
  }
  [[nodiscard]] CQnCwDB& db() { return db_; }

 private:
  CQnCwDB db_{Access::read};
  Session session_;
};

// For each report the conditions that it takes for the whole year, unposted vouchers included and no row hidden. One
// that refuses whatever is tried keeps the last trial, so that its refusal is asked for as well.
[[nodiscard]] std::vector<Question> everyReport(Reader& reader);
[[nodiscard]] std::string jsonText(const ComputedReport& report);
// The report as JSON, or its refusal.
[[nodiscard]] std::string answerText(const ReportOutcome& outcome);

}  // namespace tz::test
