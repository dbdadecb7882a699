#include <QApplication>
#include <QLineEdit>
#include <QToolButton>
#include <tuple>

#include "catalogue/catalogue.h"
#include "host/desktop.h"
#include "host/logon_dialog.h"
#include "host/start_window.h"
#include "images/images.h"
#include "shell/navigator_help.h"
#include "suite/globals.h"
#include "ui/export_file.h"

namespace tz::images {
namespace {

void drawStart(const PictureBook& book, HostSettings& settings) {
  const auto open = [](const QString&) { return QString(); };
  if (book.All()) {
    StartWindow empty(settings, open);
    empty.ShowFailure(QStringLiteral("帐套文件不存在：/home/zhang/帐套/华源2024.db。请核对路径，或从备份恢复。"));
    empty.show();
    book.Take(empty, QStringLiteral("start-empty"));
  }
  for (const char* recent : {"postgresql://zhang@server/huayuan2024", "/home/zhang/帐套/华源2025.db"}) {
    settings.RememberLedger(QString::fromUtf8(recent));
  }
  StartWindow start(settings, open);
  start.show();
  book.Take(start, QStringLiteral("start"));
}

void drawLogon(const PictureBook& book, SampleLedger& ledger) {
  LogonDialog logon(ledger.Database(), QStringLiteral("华源机械 2025"), {}, g_tmLogonTime);
  book.TakeModal(
      QStringLiteral("logon"), [&] { logon.exec(); },
      [](QWidget& window) {
        window.findChild<QLineEdit*>(QStringLiteral("password"))->setText(QStringLiteral("wrong"));
        static_cast<QDialog&>(window).accept();
      });
  book.TakeModal(QStringLiteral("logon-date"), [] { std::ignore = askLogonDate(g_pDlgWnd, g_tmLogonTime); });
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
  const OpenLedger open(QString::fromStdString(ledger.File()));
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
  drawLogon(book, ledger);
  drawExport(book);
}

}  // namespace tz::images
