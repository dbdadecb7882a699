#include <QApplication>
#include <QLineEdit>
#include <QToolButton>
#include <tuple>

#include "core/catalogue/catalogue.h"
#include "desktop/frame/globals.h"
#include "desktop/host/desktop.h"
#include "desktop/host/logon_dialog.h"
#include "desktop/host/start_window.h"
#include "desktop/report/export_file.h"
#include "desktop/shell/navigator_help.h"
#include "images/images.h"

namespace tz::images {
namespace {

void drawStart(const PictureBook& book, HostSettings& settings) {
  const auto open = [](const QString&, QWidget*) { return Failure{}; };
  if (book.All()) {
    StartWindow empty(settings, open, nullptr);
    const QString file = QStringLiteral("/home/zhang/帐套/华源机械制造有限公司/二〇二四年度/huayuan-2024.db");
    empty.ShowFailure(file, {file + QStringLiteral("：找不到帐套。请检查文件名、文件夹或服务器地址。"),
                             QStringLiteral("unable to open database file")});
    const QString server = QStringLiteral("postgresql://zhang@server/huayuan2024");
    empty.ShowFailure(server,
                      {server + QStringLiteral("：连不上数据库服务器。请检查主机名和端口，并确认服务器已经启动、"
                                               "网络可以到达。"),
                       QStringLiteral("connection to server at \"server\" failed: Connection refused")});
    empty.show();
    book.Take(empty, QStringLiteral("start-empty"));
  }
  for (const char* recent : {"postgresql://zhang@server/huayuan2024", "/home/zhang/帐套/华源2025.db"}) {
    settings.RememberLedger(QString::fromUtf8(recent));
  }
  StartWindow start(settings, open, nullptr);
  start.show();
  book.Take(start, QStringLiteral("start"));
}

void drawLogon(const PictureBook& book, const OpenLedger& ledger) {
  LogonDialog logon(ledger, {}, nullptr);
  book.TakeModal(
      QStringLiteral("logon"), [&] { logon.exec(); },
      [](QWidget& window) {
        window.findChild<QLineEdit*>(QStringLiteral("password"))->setText(QStringLiteral("wrong"));
        static_cast<QDialog&>(window).accept();
      });
  book.TakeModal(QStringLiteral("logon-date"),
                 [] { std::ignore = askLogonDate(g_pDlgWnd, g_tmLogonTime, std::nullopt); });
}

void drawExport(const PictureBook& book) {
  ComputedReport report;
  report.fileName = "三栏式明细帐 122101 职工借款 李明 2025.01-03";
  const QTemporaryDir files;
  const ExportFolder folder{.last = [&files] { return files.path(); }, .keep = {}};
  book.TakeModal(QStringLiteral("export"), [&] { std::ignore = askExportTarget(nullptr, report, folder); });
}

}  // namespace

void drawHost(const PictureBook& book, SampleLedger& ledger) {
  QTemporaryDir home;
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, home.path());
  HostSettings settings;
  drawStart(book, settings);
  OpenLedger open(QString::fromStdString(ledger.File()));
  open.MakeCurrent(g_tmLogonTime);
  Desktop desktop(settings, open, everybody());
  desktop.Show();
  QApplication::processEvents();
  book.Take(*g_pDlgWnd, QStringLiteral("host"));
  if (!book.All()) return;
  showNavigatorHelp(g_pDlgWnd);
  QApplication::processEvents();
  book.Take(*g_pDlgWnd->findChild<QDialog*>(QStringLiteral("help")), QStringLiteral("help-navigator"));
  for (auto* button : g_pDlgWnd->findChildren<QToolButton*>()) {
    const bool windows = button->text().startsWith(QStringLiteral("窗口"));
    book.TakePopup(windows ? QStringLiteral("host-windows") : QStringLiteral("host-menu"), [&] { button->click(); });
  }
  drawLogon(book, open);
  drawExport(book);
}

}  // namespace tz::images
