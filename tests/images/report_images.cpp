#include "images/report_images.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <array>

#include "catalogue/catalogue.h"
#include "data/create_ledger.h"
#include "host/desktop.h"
#include "host/start_window.h"
#include "reports/session.h"
#include "sample/sample_company.h"
#include "shell/launch_window_list.h"
#include "suite/globals.h"
#include "suite/grid_view.h"
#include "ui/report_window.h"

namespace tz::images {
namespace {

struct View {
  const char* name;
  const char* account;
  const char* dept;
  const char* person;
  const char* format;
};

constexpr std::array views = {
    View{"amount", "122101", "销售部", "李明", "金额式"},
    View{"quantity", "122104", "车床车间", "张伟", "数量金额式"},
    View{"foreign", "122103", "销售部", "刘洋", "外币金额式"},
    View{"quantity-foreign", "122105", "销售部", "O'Brien", "数量外币式"},
};

// Wide enough for most columns; the page of the manual shrinks it.
constexpr QSize pictureSize(960, 600);

Request requestOf(const View& view) {
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

// The sample company, open as the desktop opens it.
class SampleLedger {
 public:
  SampleLedger() {
    const std::string file = folder_.filePath(QStringLiteral("sample.db")).toStdString();
    createLedger(file, [](Connection& connection) { fillSample(connection, {}); });
    db_.Open(file);
    g_pDB = &db_;
    g_lpszQnZwDBName = file;
    g_tmLogonTime = defaultLogonDate(db_);
  }
  SampleLedger(const SampleLedger&) = delete;
  SampleLedger& operator=(const SampleLedger&) = delete;
  ~SampleLedger() { g_pDB = nullptr; }
  [[nodiscard]] static QString File() { return QString::fromStdString(g_lpszQnZwDBName); }

 private:
  QTemporaryDir folder_;
  CQnCwDB db_{Access::report};
};

bool drawView(const ReportDefinition& report, const View& view, const QString& theme, const Save& save) {
  ReportLauncher launcher(everybody(), findReport);
  ReportWindow* window = launcher.LaunchFromReport(report.command, requestOf(view), nullptr);
  if (window == nullptr) return false;
  addWindowList(*window, launcher);
  window->resize(pictureSize);
  window->Grid().SetCurrent(2, 2);
  QApplication::processEvents();
  const bool saved = save(*window, QStringLiteral("report-%1-%2").arg(QLatin1String(view.name), theme));
  delete window;
  return saved;
}

// Saves the modal window that opens next and closes it again; `first` runs before that.
void saveModal(const QString& name, const Save& save, bool& saved, std::function<void(QWidget&)> first = {}) {
  QTimer::singleShot(0, [name, &save, &saved, first = std::move(first)] {
    auto* window = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    saved = window != nullptr && save(*window, name);
    if (window == nullptr) return;
    if (first) first(*window);
    window->done(QDialog::Rejected);
  });
}

bool drawDialogs(const ReportDefinition& report, const QString& theme, const Save& save) {
  ReportWindow window(report, nullptr);
  window.SetConditions(requestOf(views.front()));
  bool asked = false;
  bool referred = false;
  saveModal(QStringLiteral("conditions-%1").arg(theme), save, asked, [&](QWidget& dialog) {
    constexpr int personReference = 2007;
    saveModal(QStringLiteral("reference-%1").arg(theme), save, referred);
    dialog.findChild<QAbstractButton*>(QString::number(personReference))->click();
  });
  window.OnCommandQuery();
  return asked && referred;
}

// Condition dialogs that have lists, ranges or choices, with everything unfolded.
constexpr std::array tellingDialogs = {541, 559, 560, 618, 621};

bool drawConditions(const ReportDefinition& report, const QString& theme, const Save& save) {
  ReportWindow window(report, nullptr);
  bool saved = false;
  QTimer::singleShot(0, [&] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) return;
    if (auto* button = dialog->findChild<QAbstractButton*>(QStringLiteral("unfold"))) button->click();
    QApplication::processEvents();
    saved = save(*dialog, QStringLiteral("conditions-%1-%2").arg(report.dialog->id).arg(theme));
    dialog->done(QDialog::Rejected);
  });
  window.OnCommandQuery();
  return saved;
}

// What the host shows: the window that asks for a ledger, and the navigator with the ledger's menu.
bool drawHost(const QString& ledger, const QString& theme, const Save& save) {
  g_lpArgument.clear();
  QTemporaryDir home;
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, home.path());
  HostSettings settings;
  for (const char* recent : {"postgresql://zhang@server/huayuan2024", "/home/zhang/帐套/华源2025.db"}) {
    settings.RememberLedger(QString::fromUtf8(recent));
  }
  StartWindow start(settings, [](const QString&) { return QString(); });
  start.show();
  if (!save(start, QStringLiteral("start-%1").arg(theme))) return false;
  const OpenLedger open(ledger);
  Desktop desktop(settings, open, everybody());
  desktop.Show();
  QApplication::processEvents();
  return save(*g_pDlgWnd, QStringLiteral("host-%1").arg(theme));
}

}  // namespace

bool drawReports(const QString& theme, const Save& save) {
  const SampleLedger ledger;
  const ReportDefinition* report = findReport(10190);
  for (const View& view : views) {
    if (!drawView(*report, view, theme, save)) return false;
  }
  for (const ReportDefinition* each : catalogue()) {
    const bool telling = std::ranges::find(tellingDialogs, each->dialog->id) != tellingDialogs.end();
    if (telling && !drawConditions(*each, theme, save)) return false;
  }
  return drawDialogs(*report, theme, save) && drawHost(ledger.File(), theme, save);
}

}  // namespace tz::images
