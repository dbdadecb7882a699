// Windows for the measures, each shown until it has painted once, then closed:
//   desktop_work empty                                 an empty window that loads the same fonts
//   desktop_work navigator                             the navigator
//   desktop_work report LEDGER ACCOUNT DEPT PERSON     the three-column detail ledger of a person over the whole year
// or scrolled:
//   desktop_work scroll grid|table PAGES               a grid, an empty table, of a million rows
// or worked with a million rows in blocks, so many times:
//   desktop_work rows none|bare|filter|fold|select TIMES
#include <QApplication>
#include <QPainter>
#include <QWidget>

#include "bench/rows_work.h"
#include "bench/scroll_work.h"
#include "core/catalogue/catalogue.h"
#include "core/reports/session.h"
#include "desktop/frame/globals.h"
#include "desktop/report/report_window.h"
#include "desktop/shell/launch.h"
#include "desktop/shell/navigator.h"
#include "desktop/theme/fonts.h"
#include "desktop/theme/theme.h"

namespace {

// Draws one text in every family that the navigator uses.
class EmptyWindow : public QWidget {
 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.drawText(20, 40, QStringLiteral("辅助核算"));
    QFont bold = painter.font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.drawText(20, 80, QStringLiteral("辅助核算"));
  }
};

int paint(QWidget& window) {
  window.resize(606, 384);
  window.show();
  (void)window.grab();
  return 0;
}

int showNavigator() {
  tz::CQnCwAssistantDlg navigator(nullptr);
  navigator.SetRunner({.obstacle = [](int) { return QString(); }, .run = [](int) {}, .help = {}});
  return paint(navigator);
}

int showReport(const QStringList& words) {
  tz::CQnCwDB db(tz::Access::report);
  db.Open(words.at(2).toStdString());
  tz::g_pDB = &db;
  tz::g_lpszQnZwDBName = words.at(2).toStdString();
  tz::g_tmLogonTime = tz::defaultLogonDate(db);
  tz::Request request;
  request.set(tz::ParameterKey::account, words.at(3).toStdString());
  request.set(tz::ParameterKey::dept, words.at(4).toStdString());
  request.set(tz::ParameterKey::person, words.at(5).toStdString());
  request.set(tz::ParameterKey::from, "1");
  request.set(tz::ParameterKey::to, "12");
  tz::ReportLauncher launcher(tz::everybody(), tz::findReport);
  auto* window = launcher.LaunchFromReport({.command = 10190, .conditions = request}, nullptr);
  if (window == nullptr || window->Shown() == nullptr) return 1;
  const int status = paint(*window);
  delete window;
  tz::g_pDB = nullptr;
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const auto words = QApplication::arguments();
  tz::installFonts();
  tz::applyTheme(tz::ThemeChoice::light);
  if (words.value(1) == QStringLiteral("navigator")) return showNavigator();
  if (words.value(1) == QStringLiteral("report") && words.size() == 6) return showReport(words);
  if (words.value(1) == QStringLiteral("scroll") && words.size() == 4) {
    const int pages = words.at(3).toInt();
    words.at(2) == QStringLiteral("grid") ? tz::bench::scrollGrid(pages) : tz::bench::scrollEmptyTable(pages);
    return 0;
  }
  if (words.value(1) == QStringLiteral("rows") && words.size() == 4) {
    return tz::bench::workWithRows(words.at(2).toStdString(), words.at(3).toInt()) ? 0 : 1;
  }
  EmptyWindow empty;
  return paint(empty);
}
