#include "desktop/theme/theme_drawing.h"

#include <QDateTime>
#include <QGroupBox>
#include <QPainter>
#include <algorithm>

#include "desktop/theme/theme.h"

namespace tz {
namespace {

constexpr double radius = 5;

void drawLines(QPainter& painter, const QPolygonF& line, const QColor& colour, double width) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(line);
  painter.restore();
}

}  // namespace

bool isIn(const QStyleOption& option, QStyle::StateFlag flag) { return option.state.testFlag(flag); }

bool isDefaultButton(const QStyleOption& option) {
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
  return button != nullptr && button->features.testFlag(QStyleOptionButton::DefaultButton);
}

void drawBox(QPainter& painter, const QRect& rect, const QColor& fill, const QColor& edge, double edgeWidth) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(edge.alpha() == 0 ? QPen(Qt::NoPen) : QPen(edge, edgeWidth));
  painter.setBrush(fill);
  const double inset = edgeWidth / 2;
  painter.drawRoundedRect(QRectF(rect).adjusted(inset, inset, -inset, -inset), radius, radius);
  painter.restore();
}

void drawFrame(QPainter& painter, const QRect& rect, bool focus) {
  const double width = focus ? 2 : 1;
  painter.setPen(
      QPen(focus ? currentTheme().accent : currentTheme().edge, width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(QRectF(rect).adjusted(width / 2, width / 2, -width / 2, -width / 2));
}

void drawButton(QPainter& painter, const QStyleOption& option) {
  const Theme& theme = currentTheme();
  const bool enabled = isIn(option, QStyle::State_Enabled);
  const bool focus = isIn(option, QStyle::State_HasFocus);
  if (isDefaultButton(option) && enabled) {
    const bool lit = isIn(option, QStyle::State_MouseOver) || isIn(option, QStyle::State_Sunken);
    drawBox(painter, option.rect, lit ? theme.accent.lighter(115) : theme.accent, focus ? theme.text : theme.accent,
            focus ? 2 : 1);
    return;
  }
  QColor fill = theme.surface;
  if (!enabled) fill = theme.ground;
  if (enabled && isIn(option, QStyle::State_MouseOver)) fill = theme.hover;
  if (isIn(option, QStyle::State_Sunken) || isIn(option, QStyle::State_On)) fill = theme.pressed;
  drawBox(painter, option.rect, fill, focus ? theme.accent : theme.edge, focus ? 2 : 1);
}

void drawField(QPainter& painter, const QStyleOption& option) {
  const Theme& theme = currentTheme();
  const bool focus = isIn(option, QStyle::State_HasFocus);
  const bool enabled = isIn(option, QStyle::State_Enabled);
  const QColor edge = focus ? theme.accent : isIn(option, QStyle::State_MouseOver) ? theme.strongRule : theme.edge;
  drawBox(painter, option.rect, enabled ? theme.surface : theme.ground, edge, focus ? 2 : 1);
}

void drawCheckBox(QPainter& painter, const QStyleOption& option) {
  const Theme& theme = currentTheme();
  const bool enabled = isIn(option, QStyle::State_Enabled);
  const bool filled = isIn(option, QStyle::State_On) || isIn(option, QStyle::State_NoChange);
  const QColor ink = enabled ? theme.accent : theme.disabledText;
  drawBox(painter, option.rect, filled ? ink : theme.surface, filled ? ink : theme.strongRule);
  const QRectF box = option.rect;
  const auto at = [&](double x, double y) { return box.topLeft() + QPointF(box.width() * x, box.height() * y); };
  if (isIn(option, QStyle::State_On))
    drawLines(painter, {at(.24, .53), at(.43, .71), at(.77, .31)}, theme.onAccent, 1.8);
  if (isIn(option, QStyle::State_NoChange)) drawLines(painter, {at(.27, .5), at(.73, .5)}, theme.onAccent, 1.8);
}

void drawRadioButton(QPainter& painter, const QStyleOption& option) {
  const Theme& theme = currentTheme();
  const bool on = isIn(option, QStyle::State_On);
  const QColor ink = isIn(option, QStyle::State_Enabled) ? theme.accent : theme.disabledText;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(on ? ink : theme.strongRule, on ? 4 : 1));
  painter.setBrush(theme.surface);
  const double inset = on ? 2 : 0.5;
  painter.drawEllipse(QRectF(option.rect).adjusted(inset, inset, -inset, -inset));
  painter.restore();
}

// The title of a group stands above its frame.
void drawGroupFrame(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
  const auto* group = qobject_cast<const QGroupBox*>(widget);
  const bool titled = group != nullptr && !group->title().isEmpty();
  const int title = titled ? std::max(16, option.fontMetrics.height()) + 3 : 0;
  drawBox(painter, option.rect.adjusted(0, title, 0, 0), Qt::transparent, currentTheme().rule);
}

void drawArrow(QPainter& painter, const QRect& place, Qt::ArrowType arrow, bool enabled, double size) {
  const QPointF middle = QRectF(place).center();
  size = std::min(size, place.width() / 3.0);
  const bool upright = arrow == Qt::UpArrow || arrow == Qt::DownArrow;
  const double ahead = arrow == Qt::UpArrow || arrow == Qt::LeftArrow ? -size / 2 : size / 2;
  const auto at = [&](double along, double across) {
    return middle + (upright ? QPointF(across, along) : QPointF(along, across));
  };
  const Theme& theme = currentTheme();
  drawLines(painter, {at(-ahead, -size), at(ahead, 0), at(-ahead, size)},
            enabled ? theme.mutedText : theme.disabledText, 1.6);
}

void drawToolPanel(QPainter& painter, const QStyleOption& option) {
  if (!isIn(option, QStyle::State_AutoRaise)) return drawButton(painter, option);
  const Theme& theme = currentTheme();
  if (isIn(option, QStyle::State_Sunken) || isIn(option, QStyle::State_On)) {
    drawBox(painter, option.rect, theme.pressed, Qt::transparent);
  } else if (isIn(option, QStyle::State_Enabled) && isIn(option, QStyle::State_MouseOver)) {
    drawBox(painter, option.rect, theme.hover, Qt::transparent);
  }
}

void drawScrollBar(QPainter& painter, const QStyleOptionSlider& option, QRect slider) {
  const Theme& theme = currentTheme();
  painter.fillRect(option.rect, theme.ground);
  if (option.maximum <= option.minimum) return;
  const bool active = option.activeSubControls.testFlag(QStyle::SC_ScrollBarSlider);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(active ? theme.mutedText : theme.strongRule);
  slider.adjust(3, 3, -3, -3);
  const double round = std::min(slider.width(), slider.height()) / 2.0;
  painter.drawRoundedRect(slider, round, round);
  painter.restore();
}

void drawToolSeparator(QPainter& painter, const QStyleOption& option) {
  const QRect place = option.rect;
  painter.setPen(currentTheme().edge);
  painter.drawLine(place.center().x(), place.top() + 5, place.center().x(), place.bottom() - 5);
}

void drawHeaderSection(QPainter& painter, const QStyleOption& option) {
  const Theme& theme = currentTheme();
  painter.fillRect(option.rect, theme.header);
  painter.setPen(theme.rule);
  painter.drawLine(option.rect.topRight(), option.rect.bottomRight());
  painter.drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
}

void drawProgress(QPainter& painter, const QStyleOptionProgressBar& option) {
  constexpr int height = 6;
  constexpr int round = 1600;  // milliseconds that the bar of unknown length takes from end to end
  const Theme& theme = currentTheme();
  QRectF groove = option.rect;
  groove.setTop(groove.center().y() - height / 2.0);
  groove.setHeight(height);
  QRectF done = groove;
  if (option.maximum > option.minimum) {
    done.setWidth(groove.width() * (option.progress - option.minimum) / (option.maximum - option.minimum));
  } else {
    done.setWidth(groove.width() / 4);
    const double way = static_cast<double>(QDateTime::currentMSecsSinceEpoch() % round) / round;
    done.moveLeft(groove.left() + (groove.width() - done.width()) * (1 - std::abs(1 - 2 * way)));
  }
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  for (const auto& [place, colour] : {std::pair(groove, theme.rule), std::pair(done, theme.accent)}) {
    painter.setBrush(colour);
    painter.drawRoundedRect(place, height / 2.0, height / 2.0);
  }
  painter.restore();
}

}  // namespace tz
