// One picture of an image dialog: an ordinary button to keyboard, mouse and screen readers, painted by us. Its drawing
// and caption come from its bitmap id and grow with the window.
#pragma once

#include <QAbstractButton>

#include "desktop/res/pictures.h"

namespace tz {

// Areas stand on the dark rail, commands on the card (close to each other where there are many), and what leaves the
// window has an outline.
enum class PictureLook { rail, card, closeCard, outlined };

class PictureButton : public QAbstractButton {
  Q_OBJECT

 public:
  PictureButton(int bitmap, QRect place, PictureLook look, QWidget* parent);

  // Pixels at 100 %.
  [[nodiscard]] QRect Place() const { return place_; }
  [[nodiscard]] PictureLook Look() const { return look_; }
  // Moves the button to where its place lies in a window enlarged by `scale`, whose layout starts at `origin`.
  void MoveTo(QPointF origin, double scale);
  // A picture that cannot be used is pale; clicked, by mouse or key, it shows its tip, which says why. It keeps the
  // focus: who works by keyboard or hears the screen would not come upon it otherwise.
  void SetAvailable(bool available);
  [[nodiscard]] bool IsAvailable() const { return available_; }
  // Whether the caption shows in full at 100 %.
  [[nodiscard]] bool CaptionFits() const;

 signals:
  // Clicked while available.
  void commanded();
  void arrowPressed(int key);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  // The dialog says which area is current; a click on it must not take that away.
  void nextCheckState() override {}

 private:
  struct Colours {
    QColor fill;
    QColor border;
    QColor text;
    PictureColours drawing;
  };
  struct Measures {
    double margin, icon, gap;
    int fontPixels;
  };
  void OnClicked();
  [[nodiscard]] Colours ColoursNow() const;
  [[nodiscard]] Measures MeasuresAt(double scale) const;
  [[nodiscard]] QFont CaptionFont(int pixels) const;
  [[nodiscard]] QStringList CaptionLines(const QFontMetricsF& metrics, double width) const;

  int bitmap_;
  QRect place_;
  PictureLook look_;
  double scale_ = 1;
  bool available_ = true;
  bool focusByKeyboard_ = false;
};

}  // namespace tz
