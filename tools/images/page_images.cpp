// Printed pages: the first one of a report of each family, and of a voucher.
#include <QImage>
#include <QPainter>
#include <array>
#include <stdexcept>

#include "core/voucher/voucher.h"
#include "desktop/page/page_painter.h"
#include "desktop/report/work_display.h"
#include "images/images.h"
#include "support/every_report.h"

namespace tz::images {
namespace {

struct PrintedReport {
  const char* name;
  int command;
  const char* account = "";  // others than the first ones that the report takes
  const char* dept = "";
  const char* person = "";
};

constexpr std::array printedReports = {
    PrintedReport{"detail", 10190, "122101", "销售部", "李明"},
    PrintedReport{"list-detail", 10203, "112201"},
    PrintedReport{"multi-column", 10232, "6602"},
    PrintedReport{"balance", 10183},
    PrintedReport{"three-column", 10189, "122101", "销售部", "李明"},
    PrintedReport{"general", 10226, "221101"},
    PrintedReport{"project-general", 10216},
};

void drawFirstSheet(const PictureBook& book, const ComputedReport& report, const QString& name) {
  constexpr double dotsPerInch = 110;
  constexpr double scale = dotsPerInch / pointsPerInch;
  const ReportPages pages(report, {.columnEm = pageColumnEm()}, windowStamp());
  const auto& paper = pages.Columns().paper;
  QImage sheet(qRound(paper.width * scale), qRound(paper.height * scale), QImage::Format_RGB32);
  sheet.fill(Qt::white);
  QPainter painter(&sheet);
  PagePainter(pages).Paint(painter, 0, scale);
  painter.end();
  book.Keep(sheet, QStringLiteral("page-") + name);
}

test::Question questionFor(const PrintedReport& printed, const std::vector<test::Question>& questions) {
  auto question = *std::ranges::find_if(
      questions, [&](const test::Question& one) { return one.report->command == printed.command; });
  const auto give = [&](ParameterKey key, const char* value) {
    if (*value != '\0') question.request.set(key, value);
  };
  give(ParameterKey::account, printed.account);
  give(ParameterKey::dept, printed.dept);
  give(ParameterKey::person, printed.person);
  return question;
}

void drawFirstVoucher(const PictureBook& book, test::Reader& reader, const ComputedReport& ledger) {
  for (std::int64_t row = 0; row < ledger.grid.GetRows(); ++row) {
    const auto line = ledger.subjects.line(row);
    if (!line) continue;
    const auto outcome = reader.voucher(*line);
    return drawFirstSheet(book, voucherReport(std::get<Voucher>(outcome)), QStringLiteral("voucher"));
  }
}

}  // namespace

void drawPages(const PictureBook& book, SampleLedger& ledger) {
  test::Reader reader(ledger.File());
  const auto questions = test::everyReport(reader);
  for (const auto& printed : printedReports) {
    const auto outcome = reader.ask(questionFor(printed, questions));
    const auto* report = std::get_if<ComputedReport>(&outcome);
    if (report == nullptr) throw std::runtime_error(std::string("no page of ") + printed.name);
    drawFirstSheet(book, *report, QLatin1String(printed.name));
    if (&printed == &printedReports.front()) drawFirstVoucher(book, reader, *report);
  }
}

}  // namespace tz::images
