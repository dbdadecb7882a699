// The report definitions of src/ledger, for the catalogue.
#pragma once

#include <span>

#include "core/ledger/detail_engine.h"
#include "core/ledger/detail_member.h"
#include "core/reports/report_definition.h"

namespace tz {

// A detail ledger: the report and what it selects.
struct DetailReport {
  ReportDefinition report;
  const DetailMember* member;
};

[[nodiscard]] std::span<const DetailReport> personDetails();
[[nodiscard]] std::span<const DetailReport> unitDetails();
[[nodiscard]] std::span<const DetailReport> departmentDetails();
[[nodiscard]] std::span<const DetailReport> projectDetails();

// What a detail ledger selects, by its command id; null for other reports.
[[nodiscard]] const DetailMember* detailMember(int command);

// The computation of a member, for its definition.
template <const DetailMember& member>
void computeDetail(const ReportDefinition& report, Session& session, const Conditions& conditions,
                   ComputedReport& computed) {
  runDetailLedger(member, session, conditions, wholeSubject(report, conditions), computed);
}

}  // namespace tz
