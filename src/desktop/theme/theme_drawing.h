// How the parts of controls look: boxes, arrows, marks. The style says which part is drawn where.
#pragma once

#include <QStyleOption>

class QColor;
class QPainter;
class QWidget;

namespace tz {

[[nodiscard]] bool isIn(const QStyleOption& option, QStyle::StateFlag flag);
[[nodiscard]] bool isDefaultButton(const QStyleOption& option);

// A rounded box whose edge lies inside the given rectangle.
void drawBox(QPainter& painter, const QRect& rect, const QColor& fill, const QColor& edge, double edgeWidth = 1);
// A frame of one line, whole at every scale.
void drawFrame(QPainter& painter, const QRect& rect, bool focus);
void drawButton(QPainter& painter, const QStyleOption& option);
void drawField(QPainter& painter, const QStyleOption& option);
void drawCheckBox(QPainter& painter, const QStyleOption& option);
void drawRadioButton(QPainter& painter, const QStyleOption& option);
void drawGroupFrame(QPainter& painter, const QStyleOption& option, const QWidget* widget);
// Buttons of toolbars are flat until the pointer is over them.
void drawToolPanel(QPainter& painter, const QStyleOption& option);
// An arrowhead around the middle of a place.
void drawArrow(QPainter& painter, const QRect& place, Qt::ArrowType arrow, bool enabled, double size = 4);
void drawScrollBar(QPainter& painter, const QStyleOptionSlider& option, QRect slider);
// A line that parts the buttons of a toolbar.
void drawToolSeparator(QPainter& painter, const QStyleOption& option);
// A head above the columns of a list.
void drawHeaderSection(QPainter& painter, const QStyleOption& option);
// A bar without text. One of unknown length runs by the clock, so that each repaint shows it further on.
void drawProgress(QPainter& painter, const QStyleOptionProgressBar& option);

}  // namespace tz
