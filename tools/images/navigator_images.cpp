#include <QAbstractButton>
#include <QTest>
#include <stdexcept>

#include "core/catalogue/catalogue.h"
#include "desktop/frame/globals.h"
#include "desktop/shell/navigator.h"
#include "images/images.h"

namespace tz::images {
namespace {

struct View {
  const char* argument;
  const char* name;
  int area;
  bool inManual = false;
};

constexpr View views[] = {
    {"", "archive", 10177},
    {"", "person", 10182, true},
    {"", "department", 10225},
    {"", "plan", 10234},
    {"", "project", 10214},
    {"", "unit", 10195, true},
    {"-ERPCONSOLE", "console", 10225, true},
    {"-ERPCONSOLE", "console-unit", 10195},
};

QAbstractButton& buttonOf(const QWidget& window, int command) {
  return *window.findChild<QAbstractButton*>(QString::number(command));
}

// One button in each state, side by side in one picture.
void drawStates(const PictureBook& book, QWidget& navigator) {
  buttonOf(navigator, 10195).setAttribute(Qt::WA_UnderMouse);
  buttonOf(navigator, 10184).setAttribute(Qt::WA_UnderMouse);
  buttonOf(navigator, 10186).setDown(true);
  buttonOf(navigator, 10188).setFocus(Qt::TabFocusReason);
  if (!QTest::qWaitForWindowActive(&navigator)) throw std::runtime_error("the navigator does not become active");
  book.Take(navigator, QStringLiteral("navigator-states"));
}

}  // namespace

void drawNavigator(const PictureBook& book) {
  const CommandRunner runner{
      [](int command) { return findReport(command) != nullptr ? QString() : QStringLiteral("该功能尚未提供"); },
      [](int) {},
      {}};
  for (const View& view : views) {
    if (!view.inManual && !book.All()) continue;
    g_lpArgument = view.argument;
    CQnCwAssistantDlg navigator(nullptr);
    navigator.SetRunner(runner);
    navigator.show();
    QTest::mouseClick(&buttonOf(navigator, view.area), Qt::LeftButton);
    book.Take(navigator, QStringLiteral("navigator-") + QLatin1String(view.name));
    if (book.All() && view.area == 10182) drawStates(book, navigator);
  }
  g_lpArgument.clear();
}

}  // namespace tz::images
