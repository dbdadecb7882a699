#include <QApplication>
#include <QLineEdit>
#include <QtTest>
#include <array>

#include "core/catalogue/catalogue.h"
#include "desktop/frame/general_dialog.h"
#include "desktop/frame/globals.h"
#include "desktop/frame/manual_page.h"
#include "desktop/gridview/grid_view.h"
#include "desktop/manual/manual.h"
#include "desktop/report/export_file.h"
#include "desktop/report/report_window.h"
#include "desktop/shell/launch.h"
#include "desktop/shell/launch_window_list.h"
#include "images/images.h"
#include "support/every_report.h"

namespace tz::images {
namespace {

struct ReportView {
  const char* name;
  const char* account;
  const char* dept;
  const char* person;
  const char* format;
};

constexpr std::array reportViews = {
    ReportView{"amount", "122101", "销售部", "李明", "金额式"},
    ReportView{"quantity", "122104", "车床车间", "张伟", "数量金额式"},
    ReportView{"foreign", "122103", "销售部", "刘洋", "外币金额式"},
    ReportView{"quantity-foreign", "122105", "销售部", "O'Brien", "数量外币式"},
    ReportView{"foreign-alone", "122103", "销售部", "刘洋", "外币式"},
};
// A ledger of all units.
constexpr int allUnits = 10203;
// That, a ledger with columns, and of each family of tables and general ledgers those that differ most.
constexpr std::array reportsInManual = {allUnits, 10232, 10183, 10189, 10200, 10216, 10218, 10226};

// Where the first account or person has little to show.
void askForMore(int command, Request& request) {
  if (command == allUnits) request.set(ParameterKey::account, "112201");
  if (command == 10200) request.set(ParameterKey::account, "220202");
  if (command == 10226) request.set(ParameterKey::account, "221101");
  if (command == 10189) {
    request.set(ParameterKey::account, reportViews[0].account);
    request.set(ParameterKey::dept, reportViews[0].dept);
    request.set(ParameterKey::person, reportViews[0].person);
  }
}

// Wide enough for most columns; the page of the manual shrinks it.
constexpr QSize pictureSize(960, 600);

Request requestOf(const ReportView& view) {
  Request request;
  request.set(ParameterKey::account, view.account);
  request.set(ParameterKey::dept, view.dept);
  request.set(ParameterKey::person, view.person);
  request.set(ParameterKey::from, "1");
  request.set(ParameterKey::to, "12");
  request.set(ParameterKey::unposted, "1");
  request.set(ParameterKey::format, view.format);
  return request;
}

void drawWindow(const PictureBook& book, int command, const Request& request, const QString& name,
                const PictureBook::Step& first = {}) {
  ReportLauncher launcher(everybody(), findReport);
  const std::unique_ptr<ReportWindow> window(launcher.LaunchFromReport({command, request}, nullptr));
  addWindowList(*window, launcher);
  window->resize(pictureSize);
  window->Grid().SetCurrent(2, 2);
  QApplication::processEvents();
  if (first) first(*window);
  QApplication::processEvents();
  book.Take(*window, QStringLiteral("report-") + name);
}

ReportWindow& reportOf(QWidget& window) { return static_cast<ReportWindow&>(window); }

// The key columns beside the last ones.
void scrollToTheEnd(QWidget& window) {
  GridView& grid = reportOf(window).Grid();
  grid.SetCurrent(7, static_cast<int>(reportOf(window).Shown()->report.grid.Columns().size()) - 1);
}

void typeInto(QWidget& window, const char* field, const QString& text) {
  window.findChild<QLineEdit*>(QLatin1String(field))->setText(text);
  QTest::qWait(300);  // what is typed counts after a pause
}

// The ledger of all units, which has blocks: somewhere below, folded to its totals, filtered, and a text found.
void drawBlocks(const PictureBook& book, const Request& request) {
  const auto draw = [&](const char* name, const PictureBook::Step& first) {
    drawWindow(book, allUnits, request, QLatin1String(name), first);
  };
  draw("below", [](QWidget& window) {
    reportOf(window).Grid().SetCurrent(0, 0);
    reportOf(window).Grid().SetCurrent(60, 3);
  });
  draw("folded", [](QWidget& window) { QTest::keyClick(&reportOf(window).Grid(), Qt::Key_3, Qt::ControlModifier); });
  draw("filtered", [](QWidget& window) {
    QTest::keyClick(&reportOf(window).Grid(), Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    typeInto(window, "filterText", QStringLiteral("收到"));
    typeInto(window, "filterFrom", QStringLiteral("100,000"));
  });
  draw("located", [](QWidget& window) {
    QTest::keyClick(&reportOf(window).Grid(), Qt::Key_Slash);
    typeInto(window, "locate", QStringLiteral("货款"));
  });
}

// What a report shows besides its figures.
void drawStates(const PictureBook& book) {
  const auto draw = [&](const char* name, Request request, const PictureBook::Step& first) {
    drawWindow(book, 10190, request, QStringLiteral("state-") + QLatin1String(name), first);
  };
  const Request usual = requestOf(reportViews.front());
  draw("selected", usual, [](QWidget& window) { reportOf(window).Grid().SelectAll(); });
  draw("smallest", requestOf(reportViews.back()), [](QWidget& window) { window.resize(window.minimumSize()); });
  draw("wide", usual, [](QWidget& window) { window.resize(1600, 700); });
  Request warned = requestOf(reportViews.back());
  warned.set(ParameterKey::from, "3");
  draw("warned", warned, [](QWidget& window) { reportOf(window).Grid().SelectAll(); });
  draw("exported", usual, [](QWidget& window) {
    QTemporaryDir folder;
    reportOf(window).ExportTo({folder.filePath(QStringLiteral("三栏式明细帐.csv")), FileForm::csv});
  });
  draw("failed", usual, [](QWidget& window) {
    reportOf(window).ExportTo({QStringLiteral("/没有/这个/文件夹/三栏式明细帐.xlsx"), FileForm::xlsx});
  });
  Request empty = usual;
  empty.set(ParameterKey::account, "122105");
  empty.clear(ParameterKey::format);
  empty.clear(ParameterKey::unposted);
  draw("empty", empty, {});
  draw("busy", usual, [&book](QWidget& window) {
    CGeneralDialog busy(&window);
    busy.SetTextGeneral(QStringLiteral("正在查询数据,请稍侯....."));
    busy.Begin();
    book.Take(busy, QStringLiteral("busy-box"));
    busy.End();
  });
  draw("manual", usual, [&book](QWidget& window) {
    showManual(&window, manualPageOf(&window));
    QApplication::processEvents();
    book.Take(*QApplication::activeWindow(), QStringLiteral("manual"));
    closeManual();
  });
}

}  // namespace

void drawReports(const PictureBook& book, SampleLedger& ledger) {
  for (const ReportView& view : reportViews) drawWindow(book, 10190, requestOf(view), QLatin1String(view.name));
  drawWindow(book, 10190, requestOf(reportViews[3]), QStringLiteral("scrolled"), scrollToTheEnd);
  test::Reader reader(ledger.File());
  for (auto& [report, request] : test::everyReport(reader)) {
    if (!book.All() && std::ranges::find(reportsInManual, report->command) == reportsInManual.end()) continue;
    askForMore(report->command, request);
    if (report->command == allUnits) drawBlocks(book, request);
    drawWindow(book, report->command, request, QString::number(report->command));
  }
  if (book.All()) drawStates(book);
}

}  // namespace tz::images
