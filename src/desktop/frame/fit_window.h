// Windows on small screens: a window takes at most the room of its screen, its frame included, and what is too high for
// it scrolls.
#pragma once

#include <QScrollArea>

class QDialog;

namespace tz {

// What stands around the contents of a window, guessed until its frame is there.
[[nodiscard]] QMargins frameOf(const QWidget& window);
// By which windows step aside from each other: also where a frame is thinner than any title bar.
[[nodiscard]] int titleBarHeight(const QWidget& window);
// What the contents of a window may take on its screen.
[[nodiscard]] QSize roomFor(const QWidget& window);
// Moves a window that reaches beyond its screen back onto it.
void keepOnScreen(QWidget& window);
// Gives a dialog the size of its contents, as far as there is room, after `changed` in it grew or shrank.
void fitToContents(QWidget& changed);

// Lets a window grow, as far as there is room, after `changed` in it needs more.
void growToContents(QWidget& changed);

// Contents that scroll where they get less room than they need, and follow the focus.
class ContentsArea : public QScrollArea {
  Q_OBJECT

 public:
  ContentsArea(QWidget* contents, QWidget* parent);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  // Texts that wrap need their height: scrolling, not squeezing, is what saves room.
  void KeepHeight();
};

}  // namespace tz
