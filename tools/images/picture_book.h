// Where pictures of windows go: a folder, one file per window, theme and scale. What cannot be drawn throws
// std::runtime_error.
#pragma once

#include <QDir>
#include <QString>
#include <functional>

class QImage;
class QWidget;

namespace tz::images {

class PictureBook {
 public:
  // With `all` every window and state is drawn, to look them over; else those that the manual shows.
  PictureBook(QDir folder, bool all) : folder_(std::move(folder)), all_(all) {}

  void SetTheme(const QString& name) { theme_ = name; }
  [[nodiscard]] bool All() const { return all_; }
  // Draws a window as NAME-THEME-PERCENT.png.
  void Take(QWidget& window, const QString& name) const;
  // The same with a picture that is drawn already.
  void Keep(const QImage& picture, const QString& name) const;
  // Draws the modal window that `open` shows, and closes it; `first` runs in it before it is drawn, `then` behind.
  using Step = std::function<void(QWidget&)>;
  void TakeModal(const QString& name, const std::function<void()>& open, const Step& first = {},
                 const Step& then = {}) const;
  // Draws the popup, menu or combo list, that `open` shows, and closes it.
  void TakePopup(const QString& name, const std::function<void()>& open) const;

 private:
  QDir folder_;
  bool all_;
  QString theme_;
};

}  // namespace tz::images
