// The user manual as windows open it: one window for all of them, which stays usable beside a dialog.
#pragma once

class QString;
class QWidget;

namespace tz {

// Opens the manual at a page, or brings it to the front: "reports/10190", "vouchers", with a heading
// "conditions#保存的条件". `asker` is the window that asks; null where there is none.
void showManual(QWidget* asker, const QString& page);
// With the desktop that it belongs to.
void closeManual();
// F1 opens the page of the window in front (frame/manual_page.h). Call once, after the application is there.
void installManualKey();

}  // namespace tz
