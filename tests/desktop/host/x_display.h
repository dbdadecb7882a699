// A display of its own and a program on it, as a person has them: windows are found by their titles and closed as a
// window manager does it. Everything waits for a limited time and ends what it has started.
#pragma once

#include <QPoint>
#include <QProcess>
#include <QRect>
#include <QStringList>
#include <cstdint>
#include <memory>
#include <vector>

struct xcb_connection_t;

namespace tz::test {

class XDisplay {
 public:
  using Window = std::uint32_t;

  // A screen of 1920 x 1080. Throws when there is no display server.
  XDisplay();
  XDisplay(const XDisplay&) = delete;
  XDisplay& operator=(const XDisplay&) = delete;
  ~XDisplay();

  [[nodiscard]] QString Name() const { return name_; }
  // The titles of the windows that show, without menus and tips, sorted.
  [[nodiscard]] QStringList Titles() const;
  // Whether these become the titles within some seconds.
  [[nodiscard]] bool WaitForTitles(const QStringList& wanted) const;
  // The window of that title that came last; 0 for none.
  [[nodiscard]] Window Find(const QString& title) const;
  [[nodiscard]] QRect PlaceOf(Window window) const;
  // Whether a window's picture becomes more than one colour.
  [[nodiscard]] bool WaitForPicture(Window window) const;

  // As a window manager does, for want of one.
  void Activate(Window window) const;
  void Close(Window window) const;
  void Click(Window window, QPoint place) const;
  void Press(const QStringList& keys) const;

 private:
  [[nodiscard]] std::vector<Window> Showing() const;
  [[nodiscard]] QString TitleOf(Window window) const;
  [[nodiscard]] Window Atom(const char* name) const;

  QProcess server_;
  QString name_;
  xcb_connection_t* connection_ = nullptr;
  Window root_ = 0;
};

// The desktop's executable.
class DesktopProgram {
 public:
  // With settings in a folder of its own.
  DesktopProgram(const XDisplay& display, const QString& home, const QStringList& arguments);
  DesktopProgram(const DesktopProgram&) = delete;
  DesktopProgram& operator=(const DesktopProgram&) = delete;
  ~DesktopProgram();

  // Its exit status once it has ended; -1 when it does not, or by a signal.
  [[nodiscard]] int Ended();
  // Whether a process that it started lives on.
  [[nodiscard]] bool LeavesProcesses() const;

 private:
  QProcess process_;
  qint64 group_ = 0;
};

}  // namespace tz::test
