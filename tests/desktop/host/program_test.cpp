// The desktop program itself on a display: what it opens, how its windows are titled, and that it ends.
#include <QTemporaryDir>
#include <fstream>

#include "core/catalogue/catalogue.h"
#include "core/data/create_ledger.h"
#include "core/sample/sample_company.h"
#include "desktop/host/x_display.h"
#include "desktop/shell/command_table.h"
#include "desktop/support/window_script.h"

namespace tz::test {
namespace {

constexpr const char* navigatorTitle = "辅助核算";
constexpr const char* startTitle = "辅助核算 — 打开帐套";

class Program : public ::testing::Test {
 protected:
  QString sample() {
    const QString file = home_.filePath("sample.db");
    createLedger(fromQt(file), [](Connection& connection) { fillSample(connection, {}); });
    return file;
  }
  QString letter() {
    const QString file = home_.filePath("letter.db");
    std::ofstream(fromQt(file)) << "no ledger";
    return file;
  }
  // Opens, shows the window of that title, and ends once it is closed.
  void opensAndCloses(const QStringList& arguments, const QString& title) {
    SCOPED_TRACE(fromQt(arguments.join(' ')));
    DesktopProgram program(display_, home_.path(), arguments);
    ASSERT_TRUE(display_.WaitForTitles({title})) << fromQt(display_.Titles().join('|'));
    EXPECT_TRUE(display_.WaitForPicture(display_.Find(title)));
    display_.Close(display_.Find(title));
    EXPECT_EQ(program.Ended(), 0);
    EXPECT_FALSE(program.LeavesProcesses());
    EXPECT_TRUE(display_.WaitForTitles({}));
  }
  // A picture of the navigator.
  void clickCommand(int command) {
    QRect place;
    for (const AreaPicture& area : areaPictures()) {
      if (area.command == command) place = area.standardPlace;
    }
    if (const Command* known = findCommand(command)) place = known->place;
    display_.Click(display_.Find(navigatorTitle), place.center());
  }
  // Confirms the dialog of that title, field by field.
  void confirm(const QString& title, std::size_t fields) {
    display_.Activate(display_.Find(title));
    display_.Press(QStringList(static_cast<qsizetype>(fields), "Return"));
  }

  QTemporaryDir home_;
  XDisplay display_;
};

TEST_F(Program, OpensShowsAndEnds) {
  opensAndCloses({sample()}, navigatorTitle);
  opensAndCloses({}, startTitle);
  opensAndCloses({letter()}, startTitle);
  opensAndCloses({home_.filePath("nowhere.db")}, startTitle);
}

// Nothing is appended to the title of a window or the caption of a message.
TEST_F(Program, TitlesAreTheGivenTextsAlone) {
  constexpr int personArea = 10182;
  constexpr int threeColumns = 10190;
  constexpr int bySubject = 10184;
  DesktopProgram program(display_, home_.path(), {sample()});
  ASSERT_TRUE(display_.WaitForTitles({navigatorTitle}));
  clickCommand(personArea);

  const QString dialog = toQt(findReport(threeColumns)->dialog.title);
  clickCommand(threeColumns);
  ASSERT_TRUE(display_.WaitForTitles({dialog, navigatorTitle})) << fromQt(display_.Titles().join('|'));
  // A department is wanted, and asked for by a message.
  confirm(dialog, 6);
  ASSERT_TRUE(display_.WaitForTitles({dialog, navigatorTitle, navigatorTitle})) << fromQt(display_.Titles().join('|'));
  display_.Activate(display_.Find(navigatorTitle));
  display_.Press({"Return"});
  ASSERT_TRUE(display_.WaitForTitles({dialog, navigatorTitle}));
  display_.Activate(display_.Find(dialog));
  display_.Press({"Escape"});
  ASSERT_TRUE(display_.WaitForTitles({navigatorTitle}));

  clickCommand(bySubject);
  const QString accounts = toQt(findReport(bySubject)->dialog.title);
  ASSERT_TRUE(display_.WaitForTitles({accounts, navigatorTitle})) << fromQt(display_.Titles().join('|'));
  confirm(accounts, 4);
  const QString report = toQt(findReport(bySubject)->windowTitle);
  QStringList shown = {report, navigatorTitle};
  shown.sort();
  ASSERT_TRUE(display_.WaitForTitles(shown)) << fromQt(display_.Titles().join('|'));
  EXPECT_TRUE(display_.WaitForPicture(display_.Find(report)));

  // As wide as its columns ask, on a screen that has room for them.
  EXPECT_GE(display_.PlaceOf(display_.Find(report)).width(), 980);
  EXPECT_TRUE(QRect(0, 0, 1920, 1080).contains(display_.PlaceOf(display_.Find(report))));

  // With a report open, leaving is asked about; "否" has the focus.
  const QStringList asked = [&] {
    QStringList titles = shown + QStringList{navigatorTitle};
    titles.sort();
    return titles;
  }();
  for (const char* answer : {"Return", "alt+y"}) {
    const auto navigator = display_.Find(navigatorTitle);
    display_.Close(navigator);
    ASSERT_TRUE(display_.WaitForTitles(asked)) << fromQt(display_.Titles().join('|'));
    display_.Activate(display_.Find(navigatorTitle));
    display_.Press({answer});
    if (answer == std::string("Return")) {
      ASSERT_TRUE(display_.WaitForTitles(shown));
    }
  }
  EXPECT_EQ(program.Ended(), 0);
  EXPECT_FALSE(program.LeavesProcesses());
}

}  // namespace
}  // namespace tz::test
