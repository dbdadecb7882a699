// Two-clearing: both windows with marks, the units in groups, and their small dialogs.
#include <QAction>
#include <QApplication>
#include <QToolBar>
#include <QtTest>

#include "core/catalogue/catalogue.h"
#include "core/reports/conditions.h"
#include "core/reports/operator.h"
#include "desktop/frame/globals.h"
#include "desktop/gridview/grid_view.h"
#include "desktop/receivables/clearing_dialogs.h"
#include "desktop/report/report_window.h"
#include "desktop/shell/launch.h"
#include "desktop/shell/launch_window_list.h"
#include "images/images.h"

namespace tz::images {
namespace {

constexpr QSize clearingSize(1180, 640);
constexpr int personClearing = 10192;
constexpr int unitClearing = 10211;

Request requestOf(std::initializer_list<std::pair<ParameterKey, const char*>> values) {
  Request request;
  for (const auto& [key, value] : values) request.set(key, value);
  return request;
}

Request ofPerson() {
  return requestOf({{ParameterKey::account, "122101"},
                    {ParameterKey::dept, "销售部"},
                    {ParameterKey::person, "李明"},
                    {ParameterKey::month, "12"}});
}
Request ofUnit(SampleLedger& ledger, const char* grouping) {
  auto request = requestOf(
      {{ParameterKey::account, "112201"}, {ParameterKey::month, "12"}, {ParameterKey::clearingGrouping, grouping}});
  const auto rows = ledger.Database().Current().query(
      Sql("SELECT e.sEnterName, COUNT(*) AS n FROM RegSub s JOIN Enter e ON e.lId = s.lEnterId JOIN Code c ON c.lId = "
          "s.lCodeId WHERE c.sCode = '112201' GROUP BY e.lId, e.sEnterName ORDER BY n DESC, e.lId LIMIT 1"));
  if (rows->next()) request.set(ParameterKey::unit, rows->text(0));
  return request;
}

void press(ReportWindow& window, WindowCommand command) {
  window.ActionOf(static_cast<int>(command))->trigger();
  QApplication::processEvents();
}

// Toggles lines of these rows by the space bar.
void toggle(const ReportWindow& window, std::initializer_list<std::int64_t> rows) {
  for (const auto row : rows) {
    window.Grid().SetCurrent(row, 2);
    QTest::keyClick(&window.Grid(), Qt::Key_Space);
  }
}

using ClearingStep = std::function<void(ReportWindow&)>;
void drawClearingWindow(const PictureBook& book, int command, const Request& request, const char* name,
                        const ClearingStep& first, const ClearingStep& then = {}) {
  ReportLauncher launcher(everybody(), findReport);
  const std::unique_ptr<ReportWindow> window(launcher.LaunchFromReport({command, request}, nullptr));
  addWindowList(*window, launcher);
  window->resize(clearingSize);
  QApplication::processEvents();
  first(*window);
  QApplication::processEvents();
  book.Take(*window, QStringLiteral("report-") + QLatin1String(name));
  if (then) then(*window);
}

void drawProgress(const PictureBook& book, QWidget* parent) {
  MatchProgressDialog progress(parent);
  progress.ShowAccount(QStringLiteral("应收帐款(112201)"));
  progress.ShowParty(QStringLiteral("江源机械有限公司"));
  progress.ShowProgress(2, 5);
  progress.show();
  QApplication::processEvents();
  book.Take(progress, QStringLiteral("clearing-progress"));
}

void drawResult(const PictureBook& book, ReportWindow& window, SampleLedger& ledger) {
  Session session{.db = ledger.Database(), .ledger = ledger.File(), .logon = g_tmLogonTime};
  const auto& unit = window.Shown()->report.resolved->unit;
  MatchResultDialog result(matchAutomatically(session, ClearingKind::unit, {{unit.lId, unit.sEnterName}}), &window);
  book.TakeModal(QStringLiteral("clearing-result"), [&] { result.exec(); });
}

}  // namespace

void drawClearing(const PictureBook& book, SampleLedger& ledger) {
  g_operator = everybody();
  drawClearingWindow(
      book, personClearing, ofPerson(), "clearing-person",
      [](ReportWindow& window) {
        toggle(window, {0, 1, 3});
      },
      [&](ReportWindow& window) {
        book.TakeModal(QStringLiteral("clearing-check"), [&] { press(window, WindowCommand::checkClearing); });
        if (book.All()) drawProgress(book, &window);
      });
  drawClearingWindow(
      book, unitClearing, ofUnit(ledger, "clerk"), "clearing-unit",
      [&](ReportWindow& window) {
        drawResult(book, window, ledger);
        window.Recompute();
        toggle(window, {1});
      },
      [&](ReportWindow& window) {
        book.TakeModal(QStringLiteral("clearing-locate"), [&] { press(window, WindowCommand::find); });
      });
}

}  // namespace tz::images
