#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>
#include <tuple>

#include "core/catalogue/catalogue.h"
#include "desktop/frame/globals.h"
#include "desktop/host/desktop.h"
#include "desktop/host/logon_dialog.h"
#include "desktop/host/new_ledger_dialog.h"
#include "desktop/host/server_dialog.h"
#include "desktop/host/start_window.h"
#include "desktop/report/export_file.h"
#include "images/images.h"

namespace tz::images {
namespace {

// Of the sample company.
constexpr int accountYear = 2025;

void drawServer(const PictureBook& book) {
  ServerDialog server([](const QString&, QWidget*) { return Failure{}; }, nullptr);
  server.SetAddress(QStringLiteral("postgresql://zhang@server:5432/huayuan2024"));
  server.show();
  book.Take(server, QStringLiteral("server"));
  server.ShowFailure(
      {QStringLiteral("数据库服务器不接受这个用户名或口令。请检查帐套地址中的用户名和口令，或请管理员授权。"),
       QStringLiteral("fe_sendauth: no password supplied"), DbError::Kind::badLogon});
  book.Take(server, QStringLiteral("server-password"));
  server.ShowFailure({QStringLiteral("连不上数据库服务器。请检查主机名和端口，并确认服务器已经启动、网络可以到达。"),
                      QStringLiteral("connection to server at \"server\" failed: Connection refused"),
                      DbError::Kind::unreachable});
  book.Take(server, QStringLiteral("server-refused"));
}

void drawStart(const PictureBook& book, HostSettings& settings) {
  const auto open = [](const QString&, QWidget*) { return Failure{}; };
  if (book.All()) {
    StartWindow empty(settings, open, nullptr);
    empty.show();
    book.Take(empty, QStringLiteral("start-empty"));
    const QString server = QStringLiteral("postgresql://zhang@server/huayuan2024");
    empty.ShowFailure(server, {QStringLiteral("连不上数据库服务器。请检查主机名和端口，并确认服务器已经启动、"
                                              "网络可以到达。"),
                               QStringLiteral("connection to server at \"server\" failed: Connection refused"),
                               DbError::Kind::unreachable});
    book.Take(empty, QStringLiteral("start-failed"));
    drawServer(book);
    NewLedgerDialog fresh(open, accountYear, nullptr);
    fresh.show();
    QTest::mouseClick(fresh.findChild<QAbstractButton*>(QStringLiteral("1")), Qt::LeftButton);
    fresh.findChild<QLineEdit*>(QStringLiteral("file"))->setText(QStringLiteral("/home/zhang/文档/帐套.db"));
    book.Take(fresh, QStringLiteral("new-ledger"));
  }
  settings.RememberLedger(QStringLiteral("postgresql://zhang@server/huayuan2024"),
                          {QStringLiteral("华源机械制造有限公司"), accountYear - 1});
  settings.RememberLedger(QStringLiteral("/home/zhang/帐套/华源2025.db"),
                          {QStringLiteral("华源机械制造有限公司"), accountYear});
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
  for (auto* button : g_pDlgWnd->findChildren<QToolButton*>()) {
    if (!button->text().endsWith(QStringLiteral("▾"))) continue;  // opens no menu
    const bool windows = button->text().startsWith(QStringLiteral("窗口"));
    book.TakePopup(windows ? QStringLiteral("host-windows") : QStringLiteral("host-menu"), [&] { button->click(); });
  }
  drawLogon(book, open);
  drawExport(book);
}

}  // namespace tz::images
