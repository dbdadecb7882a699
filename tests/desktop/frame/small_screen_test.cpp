// Windows on a small screen: every dialog of the catalogue, folded and unfolded, stays on the screen with its buttons,
// and none cuts its texts. Run once more on a screen of 960 x 540, which is what 200 % leave of 1920 x 1080.
#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>
#include <QScrollBar>

#include "core/catalogue/catalogue.h"
#include "desktop/frame/fit_window.h"
#include "desktop/host/host_ledger.h"
#include "desktop/host/logon_dialog.h"
#include "desktop/host/new_ledger_dialog.h"
#include "desktop/host/open_ledger.h"
#include "desktop/host/server_dialog.h"
#include "desktop/host/settings.h"
#include "desktop/host/start_window.h"
#include "desktop/manual/open_manual.h"
#include "desktop/picking/reference_dialog.h"
#include "desktop/query/condition_store.h"
#include "desktop/query/query_dialog.h"
#include "desktop/shell/navigator.h"
#include "support/refusal_cases.h"

namespace tz::test {
namespace {

class SmallScreen : public HostTest {
 protected:
  SmallScreen() {
    fillRefusalLedger(refusals_);
    db_.Open(refusals_.address());
  }
  TestLedger refusals_{Engine::sqlite};
  CQnCwDB db_;
  Session session_{.db = db_, .ledger = refusals_.address(), .logon = {2006, 3, 15}};
};

void expectOnScreen(const QWidget& window) {
  QApplication::processEvents();
  const QRect screen = window.screen()->availableGeometry();
  EXPECT_TRUE(screen.contains(window.frameGeometry()))
      << window.frameGeometry().width() << " x " << window.frameGeometry().height() << " at "
      << window.frameGeometry().left() << ", " << window.frameGeometry().top();
}

// What a text needs beside what its control got.
void expectUncut(const QWidget& window) {
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    const auto* label = qobject_cast<const QLabel*>(widget);
    const bool text = (label != nullptr && !label->text().isEmpty()) || qobject_cast<const QAbstractButton*>(widget);
    if (!text || !widget->isVisible() || qobject_cast<const PictureButton*>(widget) != nullptr) continue;
    const bool wraps = label != nullptr && label->wordWrap();
    const int needed = wraps ? widget->heightForWidth(widget->width()) : widget->minimumSizeHint().height();
    EXPECT_GE(widget->height(), needed) << fromQt(widget->objectName());
    const auto* button = qobject_cast<const QAbstractButton*>(widget);
    const int wide =
        button == nullptr ? widget->minimumSizeHint().width() : widget->fontMetrics().horizontalAdvance(button->text());
    if (!wraps) {
      EXPECT_GE(widget->width(), wide) << fromQt(widget->objectName());
    }
  }
}

void expectUnscrolled(const QWidget& window) {
  for (const ContentsArea* area : window.findChildren<ContentsArea*>()) {
    EXPECT_FALSE(area->verticalScrollBar()->isVisible()) << area->widget()->minimumSizeHint().height();
  }
}

void expectWhole(const QWidget& window, const std::vector<const char*>& buttons) {
  expectOnScreen(window);
  expectUncut(window);
  for (const char* id : buttons) {
    const auto& button = control<QAbstractButton>(window, id);
    EXPECT_TRUE(window.rect().contains(QRect(button.mapTo(&window, QPoint()), button.size()))) << id;
  }
}

TEST_F(SmallScreen, HoldsEveryConditionDialogAsItFoldsAndUnfolds) {
  QTemporaryDir folder;
  FileConditionStore store(folder.filePath("conditions.json").toStdString());
  for (const ReportDefinition* report : catalogue()) {
    SCOPED_TRACE(report->dialog.id);
    CTzQueryDialog dialog(report->dialog, session_, nullptr);
    dialog.OfferSaved(store, report->command);
    inModal([](QWidget& window) {
      expectWhole(window, {"1", "2"});
      if (auto* unfold = window.findChild<QAbstractButton*>("unfold")) {
        const QSize folded = window.size();
        unfold->click();
        expectWhole(window, {"1", "2"});
        expectUnscrolled(window);
        EXPECT_GE(window.height(), folded.height());
        unfold->click();
        expectWhole(window, {"1", "2"});
        EXPECT_EQ(window.size(), folded);
      }
      // Each field can be seen once it has the focus.
      for (QWidget* field = window.focusWidget(); field->objectName() != "1"; field = window.focusWidget()) {
        const QRect place(field->mapTo(&window, QPoint()), field->size());
        EXPECT_TRUE(window.rect().contains(place)) << fromQt(field->objectName());
        EXPECT_FALSE(field->visibleRegion().isEmpty()) << fromQt(field->objectName());
        QTest::keyClick(field, Qt::Key_Tab);
      }
      click(window, "2");
    });
    dialog.DoModal();
  }
}

TEST_F(SmallScreen, ContentsThatAreTooHighScrollAndFollowTheFocus) {
  QDialog dialog;
  auto* contents = new QWidget;
  auto* rows = new QVBoxLayout(contents);
  std::vector<QLineEdit*> lines;
  for (int row = 0; row < 60; ++row) {
    lines.push_back(new QLineEdit(contents));
    rows->addWidget(lines.back());
  }
  auto* area = new ContentsArea(contents, &dialog);
  auto* layout = new QVBoxLayout(&dialog);
  layout->addWidget(area);
  layout->addWidget(new QPushButton("确定", &dialog));
  fitToContents(dialog);
  dialog.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
  expectOnScreen(dialog);
  EXPECT_TRUE(area->verticalScrollBar()->isVisible());
  lines.back()->setFocus();
  EXPECT_FALSE(lines.back()->visibleRegion().isEmpty());
  const int high = dialog.height();
  for (std::size_t row = 5; row < lines.size(); ++row) lines[row]->hide();
  fitToContents(*contents);
  QApplication::processEvents();
  EXPECT_LT(dialog.height(), high);
  EXPECT_FALSE(area->verticalScrollBar()->isVisible());
}

TEST_F(SmallScreen, HoldsWhatTheHostShows) {
  HostSettings settings;
  for (int n = 0; n < 9; ++n) settings.RememberLedger(QStringLiteral("/帐套/%1.db").arg(n));
  StartWindow start(settings, {}, nullptr);
  const QString far =
      QStringLiteral("/home/zhang") + QStringLiteral("/very_long_name_of_a_folder").repeated(6) + "/x.db";
  start.show();
  for (const QString& address : {far, QStringLiteral("postgresql://li@server/x")}) {
    start.ShowFailure(address,
                      {address + "：找不到帐套。请检查文件名、文件夹或服务器地址。", QString("words ").repeated(40)});
    for (auto* more : start.findChildren<QAbstractButton*>("failureMore")) {
      if (more->isVisible()) more->click();
    }
    expectWhole(start, {"open", "sample"});
  }
  ServerDialog server([](const QString&, QWidget*) { return Failure{}; }, nullptr);
  server.SetAddress("postgresql://li@server/x");
  server.show();
  for (const auto kind : {DbError::Kind::unreachable, DbError::Kind::notFound, DbError::Kind::badLogon}) {
    server.ShowFailure({QString("连不上数据库服务器。").repeated(6), QString("words ").repeated(40), kind});
    expectWhole(server, {"1", "2"});
  }
  NewLedgerDialog fresh([](const QString&, QWidget*) { return Failure{}; }, 2025, nullptr);
  fresh.show();
  click(fresh, "1");
  expectWhole(fresh, {"1", "2", "browse"});

  addOperator(ledger_.ledger());
  const OpenLedger open(address());
  LogonDialog logon(open, {}, nullptr);
  logon.show();
  control<QLineEdit>(logon, "password").setText("错");
  click(logon, "1");
  expectWhole(logon, {"1", "2"});

  CQnCwAssistantDlg navigator(nullptr);
  navigator.show();
  expectOnScreen(navigator);
  showManual(&navigator, QStringLiteral("index"));
  expectOnScreen(*openManual());
  expectUncut(*openManual());
  closeManual();
}

TEST_F(SmallScreen, HoldsReportsReferencesAndMessages) {
  auto* window = new ReportWindow(*findReport(10190), nullptr);
  window->SetConditions(ReportLedger::zhangSan());
  ASSERT_TRUE(window->CreateTheDialog(nullptr));
  window->RefreshDisplay();
  expectOnScreen(*window);
  inModal([](QWidget& dialog) {
    inModal([](QWidget& reference) {
      expectWhole(reference, {"1", "2"});
      QTest::keyClick(&reference, Qt::Key_Escape);
    });
    click(dialog, "2007");
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  window->OnCommandQuery();
  inModal([](QWidget& box) {
    expectOnScreen(box);
    expectUncut(box);
    for (auto* button : box.findChildren<QAbstractButton*>()) {
      if (!button->text().contains("确定")) button->click();
    }
    expectOnScreen(box);
    QTest::keyClick(&box, Qt::Key_Escape);
  });
  const DbError broken(DbError::Kind::incomplete, std::string(300, 'x'));
  AfxMessageBox(window, Refusal{.text = "没有符合条件的科目!", .failure = broken});
  inModal([](QWidget& files) {
    expectOnScreen(files);
    QTest::keyClick(&files, Qt::Key_Escape);
  });
  window->OnCommand(50020);
  window->close();
  deleteClosed();
}

}  // namespace
}  // namespace tz::test
