// The windows on the way to a voucher and away from it: the voucher itself, the search, the pages of a report.
#include <QApplication>
#include <QLineEdit>
#include <QtTest>

#include "core/catalogue/catalogue.h"
#include "desktop/gridview/grid_view.h"
#include "desktop/report/report_window.h"
#include "desktop/report/search_window.h"
#include "desktop/report/voucher_window.h"
#include "desktop/shell/launch.h"
#include "images/images.h"

namespace tz::images {
namespace {

Request ledgerOfUnits() {
  Request request;
  request.set(ParameterKey::account, "112201");
  request.set(ParameterKey::from, "1");
  request.set(ParameterKey::to, "12");
  request.set(ParameterKey::unposted, "1");
  return request;
}

void drawVoucher(const PictureBook& book, ReportLauncher& launcher, ReportWindow& ledger) {
  const auto& report = ledger.Shown()->report;
  for (std::int64_t row = 0; row < report.grid.GetRows(); ++row) {
    const auto line = report.subjects.line(row);
    if (!line) continue;
    QWidget* window = launcher.OpenVoucher(*line, &ledger);
    QApplication::processEvents();
    book.Take(*window, QStringLiteral("voucher"));
    return;
  }
}

void drawSearch(const PictureBook& book, ReportLauncher& launcher) {
  launcher.OpenSearch();
  ProcessWindow* window = launcher.SlotOf(SearchWindow::searchWindow);
  auto* field = window->findChild<QLineEdit*>();
  field->setText(QStringLiteral("货款"));
  QTest::keyClick(field, Qt::Key_Return);
  QApplication::processEvents();
  book.Take(*window, QStringLiteral("search"));
}

}  // namespace

void drawWayToVouchers(const PictureBook& book) {
  ReportLauncher launcher(everybody(), findReport);
  const std::unique_ptr<ReportWindow> ledger(
      launcher.LaunchFromReport({.command = 10203, .conditions = ledgerOfUnits()}, nullptr));
  book.TakeModal(QStringLiteral("preview"), [&] { ledger->OnPreview(); });
  drawVoucher(book, launcher, *ledger);
  drawSearch(book, launcher);
  launcher.CloseAll();
}

}  // namespace tz::images
