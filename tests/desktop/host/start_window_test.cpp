// The first minute: without a ledger the start window offers the sample company, a new ledger, a file and a server, and
// says below each why it could not be opened. By clicks and keys, with the host behind it.
#include "desktop/host/start_window.h"

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QSpinBox>
#include <QTextBrowser>
#include <QToolButton>
#include <fstream>
#include <iterator>
#include <thread>

#include "core/data/create_ledger.h"
#include "core/sample/sample_company.h"
#include "desktop/host/host.h"
#include "desktop/host/host_ledger.h"
#include "desktop/host/recent_list.h"
#include "desktop/host/server_dialog.h"

namespace tz::test {
namespace {

std::string fileBytes(const QString& path) {
  std::ifstream file(fromQt(path), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

QString toldIn(const QWidget& window, const char* note) {
  const auto& failure = control<QWidget>(window, note);
  return failure.isVisible() ? control<QLabel>(failure, "failure").accessibleName() : QString();
}

class FirstMinute : public HostTest {
 protected:
  FirstMinute() { qputenv("XDG_DATA_HOME", home_.path().toUtf8()); }
  ~FirstMinute() override {
    if (dataHome_.isNull()) {
      qunsetenv("XDG_DATA_HOME");
    } else {
      qputenv("XDG_DATA_HOME", dataHome_);
    }
  }
  static void escape(QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); }
  // What the navigator calls the ledger that the host has opened.
  static QString openLedgerName() {
    QCoreApplication::processEvents();
    return control<QToolButton>(*g_pDlgWnd, "ledger").text();
  }
  [[nodiscard]] QStringList filesMade() const {
    return QDir(QFileInfo(sampleLedgerFile()).path()).entryList(QDir::Files | QDir::Hidden);
  }

  QByteArray dataHome_ = qgetenv("XDG_DATA_HOME");
};

TEST_F(FirstMinute, TheSampleCompanyIsMadeOnceAndOpened) {
  {
    Host host;
    inModal([](QWidget& start) {
      expectNamed(start);
      EXPECT_EQ(start.findChild<RecentList*>()->count(), 0);
      EXPECT_FALSE(control<QWidget>(start, "open").isEnabled());
      EXPECT_EQ(start.focusWidget(), &control<QWidget>(start, "sample"));
      QTest::keyClick(start.focusWidget(), Qt::Key_Return);
    });
    ASSERT_TRUE(host.Start({}));
    EXPECT_EQ(openLedgerName(), "华源机械制造有限公司 ▾");
    g_pDlgWnd->close();
  }
  const std::string made = fileBytes(sampleLedgerFile());
  Host again;
  inModal([](QWidget& start) {
    auto& recent = *start.findChild<RecentList*>();
    ASSERT_EQ(recent.count(), 1);
    EXPECT_EQ(recent.Address(), sampleLedgerFile());
    EXPECT_TRUE(
        recent.item(0)->data(Qt::AccessibleTextRole).toString().startsWith("华源机械制造有限公司，2025 年度，"));
    EXPECT_EQ(start.focusWidget(), &recent);
    click(start, "sample");
  });
  ASSERT_TRUE(again.Start({}));
  EXPECT_EQ(openLedgerName(), "华源机械制造有限公司 ▾");
  EXPECT_TRUE(fileBytes(sampleLedgerFile()) == made) << "it is the same ledger";
  g_pDlgWnd->close();
}

// Stopped, on a full disk, without a folder, and made by somebody else meanwhile: never half a ledger.
TEST_F(FirstMinute, TheMakingOfTheSampleCanBeStoppedAndFail) {
  HostSettings settings;
  QStringList opened;
  StartWindow start(
      settings, [&](const QString& address, QWidget*) { return opened.append(address), Failure{}; }, nullptr);
  start.show();
  ASSERT_TRUE(waitActive(&start));

  start.SetSample([](Connection&, LedgerWork& work) {
    for (int step = 0; step < 2000; ++step) {
      work.Step(step, 2000);
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
  });
  // Esc once the box shows how far it is; it goes when the work has ended.
  QTimer person;
  QObject::connect(&person, &QTimer::timeout, &start, [&] {
    QWidget* box = QApplication::activeModalWidget();
    if (box != nullptr && box != &start && box->findChild<QProgressBar*>()->value() > 0) escape(*box);
  });
  person.start(10);
  click(start, "sample");
  person.stop();
  EXPECT_EQ(toldIn(start, "sampleFailure"), "已停止，没有建立帐套");
  EXPECT_TRUE(start.isVisible());
  EXPECT_EQ(start.focusWidget(), &control<QWidget>(start, "sample"));
  EXPECT_EQ(filesMade(), QStringList());

  start.SetSample([](Connection&, LedgerWork&) { throw DbError(DbError::Kind::full, "database or disk is full"); });
  click(start, "sample");
  EXPECT_TRUE(toldIn(start, "sampleFailure").startsWith("磁盘已满"));
  EXPECT_EQ(filesMade(), QStringList());
  EXPECT_TRUE(opened.isEmpty());

  start.SetSample([](Connection& connection, LedgerWork& work) {
    createLedger(fromQt(sampleLedgerFile()), [](Connection& other) { fillSample(other, {}); });
    fillWithSample(connection, work);
  });
  click(start, "sample");
  EXPECT_EQ(opened, QStringList(sampleLedgerFile()));
  EXPECT_EQ(filesMade(), QStringList(QFileInfo(sampleLedgerFile()).fileName()));

  const QString file = home_.filePath("file");
  std::ofstream(fromQt(file)) << "no folder";
  qputenv("XDG_DATA_HOME", file.toUtf8());
  start.show();
  click(start, "sample");
  EXPECT_TRUE(toldIn(start, "sampleFailure").startsWith("不能建立文件夹 " + file));
}

TEST_F(FirstMinute, ANewLedgerIsMadeWhereNothingStandsAndOpened) {
  const QString taken = home_.filePath("信.db");
  std::ofstream(fromQt(taken)) << "no ledger";
  const QString company = "O'Brien'; DROP TABLE Plan -- & 华源";
  const QString file = home_.filePath("新/帐套.db");
  Host host;
  inModal([&](QWidget& start) {
    inModal([&](QWidget& dialog) {
      expectNamed(dialog);
      auto& name = control<QLineEdit>(dialog, "name");
      auto& place = control<QLineEdit>(dialog, "file");
      QTest::keyClick(&name, Qt::Key_Return);
      EXPECT_EQ(toldIn(dialog, "nameFailure"), "请输入单位名称。");
      enterText(name, company);
      EXPECT_TRUE(place.text().endsWith("O'Brien'; DROP TABLE Plan -- & 华源.db")) << "it follows the name";
      control<QSpinBox>(dialog, "year").setValue(2024);
      for (const auto& [typed, answer] :
           {std::pair(taken, "已经有“" + taken + "”，没有改动它。请换一个名称。"),
            std::pair(home_.path(), "已经有“" + home_.path() + "”，没有改动它。请换一个名称。"),
            std::pair(file, "没有文件夹“" + QFileInfo(file).path() + "”。"),
            std::pair(QString("postgresql://server/x"), QString("这里是文件的位置。"))}) {
        place.selectAll();
        enterText(place, typed);
        QTest::keyClick(&place, Qt::Key_Return);
        EXPECT_TRUE(toldIn(dialog, "newFileFailure").startsWith(answer)) << fromQt(toldIn(dialog, "newFileFailure"));
        EXPECT_EQ(dialog.focusWidget(), &place);
      }
      QDir(home_.path()).mkdir("新");
      place.selectAll();
      enterText(place, file);
      QTest::keyClick(&place, Qt::Key_Return);
    });
    QTest::keyClick(&start, Qt::Key_N, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&start] { return !start.isVisible(); }));
  });
  ASSERT_TRUE(host.Start({}));
  EXPECT_EQ(fileBytes(taken), "no ledger");
  EXPECT_TRUE(control<QToolButton>(*g_pDlgWnd, "ledger").toolTip().contains(company));
  EXPECT_EQ(g_tmLogonTime.year, 2024);
  EXPECT_EQ(HostSettings().TitleOf(file).name, company);
  EXPECT_EQ(HostSettings().TitleOf(file).year, 2024);
  g_pDlgWnd->close();
}

TEST_F(FirstMinute, RecentLedgersAreOpenedAndForgottenByKeysAndMouse) {
  HostSettings settings;
  const QString missing = home_.filePath("没有.db");
  settings.RememberLedger("postgresql://li@server/huayuan", {"服务器上的", 2023});
  settings.RememberLedger(address(), {"华源机械", 2006});
  settings.RememberLedger(missing, {"东方", 2007});
  StartWindow start(
      settings,
      [&](const QString& chosen, QWidget*) {
        return chosen == missing ? Failure{"找不到帐套。", "no such thing", DbError::Kind::notFound} : Failure{};
      },
      nullptr);
  start.show();
  ASSERT_TRUE(waitActive(&start));
  expectNamed(start);
  auto& recent = *start.findChild<RecentList*>();
  EXPECT_TRUE(recent.item(0)->data(Qt::AccessibleTextRole).toString().startsWith("东方，2007 年度，找不到文件，"));
  EXPECT_FALSE(recent.item(1)->data(Qt::AccessibleTextRole).toString().contains("找不到"));

  QTest::keyClick(&recent, Qt::Key_Return);
  EXPECT_EQ(toldIn(start, "recentFailure"), missing + "：找不到帐套。");
  EXPECT_EQ(start.focusWidget(), &recent);
  auto& note = control<QWidget>(start, "recentFailure");
  EXPECT_FALSE(control<QLabel>(note, "failureDetail").isVisible());
  click(note, "failureMore");
  EXPECT_EQ(control<QLabel>(note, "failureDetail").text(), "no such thing");
  EXPECT_TRUE(control<QLabel>(note, "failureDetail").isVisible());

  QTest::keyClick(&recent, Qt::Key_Delete);
  EXPECT_EQ(settings.RecentLedgers().size(), 2);
  EXPECT_EQ(recent.Address(), address());
  QContextMenuEvent byKey(QContextMenuEvent::Keyboard, QPoint(), QPoint());
  recent.setCurrentRow(1);
  QApplication::sendEvent(&recent, &byKey);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  QTest::keyClick(menu, Qt::Key_R);
  EXPECT_EQ(settings.RecentLedgers(), QStringList(address()));

  const QPoint place = recent.visualItemRect(recent.item(0)).center();
  QTest::mouseClick(recent.viewport(), Qt::LeftButton, {}, place);
  QTest::mouseDClick(recent.viewport(), Qt::LeftButton, {}, place);
  EXPECT_EQ(start.result(), QDialog::Accepted);
  start.show();
  click(start, "forget");
  EXPECT_EQ(recent.count(), 0);
  EXPECT_EQ(start.focusWidget(), &control<QWidget>(start, "sample"));
  EXPECT_TRUE(QFileInfo::exists(address())) << "only the list has forgotten it";
}

// Fields and address fill each other, and what is wrong stands below the field at fault.
TEST_F(FirstMinute, AServerIsAskedForByItsPartsOrItsAddress) {
  Failure answer;
  QStringList asked;
  ServerDialog dialog([&](const QString& address, QWidget*) { return asked.append(address), answer; }, nullptr);
  dialog.show();
  ASSERT_TRUE(waitActive(&dialog));
  const auto field = [&](const char* name) -> QLineEdit& { return control<QLineEdit>(dialog, name); };
  const auto paste = [&](const QString& text) {
    QApplication::clipboard()->setText(text);
    field("address").setFocus();
    field("address").selectAll();
    QTest::keyClick(&field("address"), Qt::Key_V, Qt::ControlModifier);
  };
  EXPECT_FALSE(field("password").isVisible()) << "asked at need";
  EXPECT_EQ(dialog.focusWidget(), &field("host"));
  QTest::keyClicks(&field("host"), "db.example.com");
  QTest::keyClicks(&field("user"), "li");
  click(dialog, "1");
  EXPECT_EQ(toldIn(dialog, "databaseFailure"), "请输入数据库的名称。");
  QTest::keyClicks(&field("database"), "hua yuan/2");
  QTest::keyClicks(&field("port"), "5433");
  EXPECT_EQ(field("address").text(), "postgresql://li@db.example.com:5433/hua%20yuan%2F2");

  struct Case {
    DbError::Kind kind;
    const char* words;
    const char* note;
    const char* focus;
    const char* says;
  };
  for (const Case& wrong : {
           Case{DbError::Kind::unreachable, "could not translate host name \"x\"", "hostFailure", "host",
                "找不到主机“db."},
           Case{DbError::Kind::unreachable, "Connection refused", "hostFailure", "host", "没有接受连接"},
           Case{DbError::Kind::notFound, "database does not exist", "databaseFailure", "database", "“hua yuan/2”"},
           Case{DbError::Kind::notALedger, "it holds none", "databaseFailure", "database", "不行"},
           Case{DbError::Kind::badLogon, "no password supplied", "passwordFailure", "password", "要求口令"},
           Case{DbError::Kind::badLogon, "role does not exist", "passwordFailure", "user", "不行"},
       }) {
    SCOPED_TRACE(wrong.words);
    answer = {"不行", wrong.words, wrong.kind};
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_TRUE(toldIn(dialog, wrong.note).contains(wrong.says)) << fromQt(toldIn(dialog, wrong.note));
    EXPECT_EQ(dialog.focusWidget(), &field(wrong.focus));
    EXPECT_EQ(std::ranges::count_if(dialog.findChildren<FailureNote*>(), &QWidget::isVisible), 1);
  }
  EXPECT_TRUE(field("password").isVisible());
  expectNamed(dialog);

  // As it is pasted, with whatever signs the password holds: the line forgets it at once.
  paste("PostgreSQL://zhang:se/c@ret@[::1]:5444/东方?sslmode=require&password=ge%26heim");
  EXPECT_EQ(field("user").text(), "zhang");
  EXPECT_EQ(field("host").text(), "[::1]");
  EXPECT_EQ(field("port").text(), "5444");
  EXPECT_EQ(field("database").text(), "东方");
  EXPECT_EQ(field("password").text(), "ge&heim");
  EXPECT_FALSE(field("address").text().contains("heim") || field("address").text().contains("ret"));
  paste("postgresql://zhang:se/c@ret@server/x");
  EXPECT_EQ(field("password").text(), "se/c@ret");
  EXPECT_EQ(field("address").text(), "postgresql://zhang@server/x");
  paste("somewhere");
  QTest::keyClick(&dialog, Qt::Key_Return);
  EXPECT_TRUE(toldIn(dialog, "addressFailure").startsWith("服务器地址应以 postgresql:// 开头"));
  paste("postgresql://zhang@server/x?options=-csearch_path%3Dpublic");
  EXPECT_EQ(readServerAddress(field("address").text())->parameters, "options=-csearch_path%3Dpublic");
  answer = {};
  QTest::keyClick(&dialog, Qt::Key_Return);
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_EQ(fromQt(asked.back()), "postgresql://zhang@server/x?options=-csearch_path%3Dpublic");
}

}  // namespace
}  // namespace tz::test
