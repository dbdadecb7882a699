#include "desktop/frame/img_dlg_button.h"

#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

#include "desktop/frame/picture_accessible.h"
#include "desktop/theme/fonts.h"
#include "desktop/theme/theme.h"

namespace tz {
namespace {

// High enough for a caption of two lines.
constexpr int tall = 40;

QColor transparentOf(QColor colour, double opacity) {
  colour.setAlphaF(static_cast<float>(opacity));
  return colour;
}

}  // namespace

PictureButton::PictureButton(int bitmap, QRect place, PictureLook look, QWidget* parent)
    : QAbstractButton(parent), bitmap_(bitmap), place_(place), look_(look) {
  if (const Picture* picture = findPicture(bitmap)) setText(QString::fromUtf8(picture->caption));
  setCheckable(look == PictureLook::rail);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  setCursor(Qt::PointingHandCursor);
  connect(this, &QAbstractButton::clicked, this, &PictureButton::OnClicked);
  PictureAccessible::Install();
}

void PictureButton::SetAvailable(bool available) {
  available_ = available;
  setCursor(available ? Qt::PointingHandCursor : Qt::ArrowCursor);
  update();
}

void PictureButton::OnClicked() {
  if (available_) {
    emit commanded();
    return;
  }
  QToolTip::showText(mapToGlobal(rect().bottomLeft()), toolTip(), this);
}

void PictureButton::MoveTo(QPointF origin, double scale) {
  scale_ = scale;
  const QRectF scaled(origin + QPointF(place_.topLeft()) * scale, QSizeF(place_.size()) * scale);
  setGeometry(QRect(QPoint(qRound(scaled.left()), qRound(scaled.top())),
                    QPoint(qRound(scaled.right()) - 1, qRound(scaled.bottom()) - 1)));
}

PictureButton::Measures PictureButton::MeasuresAt(double scale) const {
  if (look_ == PictureLook::rail) return {10 * scale, 17 * scale, 9 * scale, qRound(13 * scale)};
  if (look_ == PictureLook::closeCard) return {3 * scale, 15 * scale, 4 * scale, qRound(12 * scale)};
  return {7 * scale, 16 * scale, 6 * scale, qRound(12 * scale)};
}

QFont PictureButton::CaptionFont(int pixels) const {
  return uiFont(pixels, isChecked() ? QFont::DemiBold : QFont::Normal);
}

QStringList PictureButton::CaptionLines(const QFontMetricsF& metrics, double width) const {
  if (place_.height() < tall || metrics.horizontalAdvance(text()) <= width) return {text()};
  const qsizetype half = (text().size() + 1) / 2;
  return {text().left(half), text().mid(half)};
}

bool PictureButton::CaptionFits() const {
  const Measures measures = MeasuresAt(1);
  const QFontMetricsF metrics(CaptionFont(measures.fontPixels));
  const double width = place_.width() - measures.margin - measures.icon - measures.gap;
  const QStringList lines = CaptionLines(metrics, width);
  return metrics.ascent() + metrics.descent() <= place_.height() &&
         std::ranges::all_of(lines, [&](const QString& line) { return metrics.horizontalAdvance(line) <= width; });
}

PictureButton::Colours PictureButton::ColoursNow() const {
  const Theme& theme = currentTheme();
  if (look_ == PictureLook::rail) {
    const QColor text = isChecked() ? theme.onRailSelected : theme.railText;
    const double strength = isChecked() ? 1 : isDown() ? 0.6 : underMouse() ? 0.35 : 0;
    return {transparentOf(theme.railSelected, strength), Qt::transparent, text, {text, text}};
  }
  const QColor border = look_ == PictureLook::outlined ? theme.rule : QColor(Qt::transparent);
  if (!available_) return {Qt::transparent, border, theme.disabledText, {theme.disabledText, theme.disabledText}};
  const QColor fill = isDown() ? theme.pressed : underMouse() ? theme.hover : QColor(Qt::transparent);
  return {fill, border, theme.text, {theme.accent, theme.accent}};
}

void PictureButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Colours colours = ColoursNow();
  const Measures measures = MeasuresAt(scale_);
  const bool ring = hasFocus() && focusByKeyboard_;
  const double line = ring ? 2 * scale_ : 1;
  const QRectF frame = QRectF(rect()).adjusted(line / 2, line / 2, -line / 2, -line / 2);
  const QColor ringColour = look_ == PictureLook::rail ? currentTheme().onRailSelected : currentTheme().accent;
  painter.setPen(QPen(ring ? ringColour : colours.border, line));
  painter.setBrush(colours.fill);
  painter.drawRoundedRect(frame, 6 * scale_, 6 * scale_);

  const QFont font = CaptionFont(measures.fontPixels);
  const QFontMetricsF metrics(font);
  double left = measures.margin;
  const double contentWidth = measures.icon + measures.gap + metrics.horizontalAdvance(text());
  if (look_ == PictureLook::outlined) left = (width() - contentWidth) / 2;
  paintPicture(painter, bitmap_, {left, (height() - measures.icon) / 2, measures.icon, measures.icon}, colours.drawing);

  left += measures.icon + measures.gap;
  const QStringList lines = CaptionLines(metrics, width() - left);
  painter.setFont(font);
  painter.setPen(colours.text);
  const double lineHeight = (metrics.ascent() + metrics.descent()) * (lines.size() > 1 ? 0.9 : 1.0);
  QRectF lineRect(left, (height() - lineHeight * static_cast<double>(lines.size())) / 2, width() - left, lineHeight);
  for (const QString& text : lines) {
    painter.drawText(lineRect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, text);
    lineRect.translate(0, lineHeight);
  }
}

void PictureButton::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (!event->isAutoRepeat()) click();
      return;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
      emit arrowPressed(event->key());
      return;
    default:
      QAbstractButton::keyPressEvent(event);
  }
}

void PictureButton::focusInEvent(QFocusEvent* event) {
  switch (event->reason()) {
    case Qt::MouseFocusReason:
      focusByKeyboard_ = false;
      break;
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
    case Qt::ShortcutFocusReason:
      // A dialog that opens tells its first control of the Tab key before anything has the focus.
      focusByKeyboard_ = hasFocus();
      break;
    default:
      break;  // the window became active again: as it was
  }
  QAbstractButton::focusInEvent(event);
}

}  // namespace tz
