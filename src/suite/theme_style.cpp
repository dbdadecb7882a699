#include "suite/theme_style.h"

#include <QGroupBox>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>
#include <algorithm>

#include "suite/theme.h"

namespace tz {
namespace {

constexpr double radius = 5;
constexpr int controlHeight = 28;
constexpr int buttonWidth = 84;
constexpr int textMargin = 4;
constexpr int scrollBarExtent = 12;
constexpr int shortestSlider = 28;

bool is(const QStyleOption& option, QStyle::StateFlag flag) { return option.state.testFlag(flag); }

bool isDefault(const QStyleOption& option) {
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
  return button != nullptr && button->features.testFlag(QStyleOptionButton::DefaultButton);
}

// A rounded box whose edge lies inside the given rectangle.
void drawBox(QPainter& painter, const QRect& rect, const QColor& fill, const QColor& edge, double edgeWidth = 1) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(edge.alpha() == 0 ? QPen(Qt::NoPen) : QPen(edge, edgeWidth));
  painter.setBrush(fill);
  const double inset = edgeWidth / 2;
  painter.drawRoundedRect(QRectF(rect).adjusted(inset, inset, -inset, -inset), radius, radius);
  painter.restore();
}

void drawLines(QPainter& painter, const QPolygonF& line, const QColor& colour, double width) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(line);
  painter.restore();
}

void drawButton(QPainter& painter, const QStyleOption& option) {
  const Theme& theme = currentTheme();
  const bool enabled = is(option, QStyle::State_Enabled);
  const bool focus = is(option, QStyle::State_HasFocus);
  if (isDefault(option) && enabled) {
    const bool lit = is(option, QStyle::State_MouseOver) || is(option, QStyle::State_Sunken);
    drawBox(painter, option.rect, lit ? theme.accent.lighter(115) : theme.accent, focus ? theme.text : theme.accent,
            focus ? 2 : 1);
    return;
  }
  QColor fill = theme.surface;
  if (!enabled) fill = theme.ground;
  if (enabled && is(option, QStyle::State_MouseOver)) fill = theme.hover;
  if (is(option, QStyle::State_Sunken) || is(option, QStyle::State_On)) fill = theme.pressed;
  drawBox(painter, option.rect, fill, focus ? theme.accent : theme.edge, focus ? 2 : 1);
}

void drawField(QPainter& painter, const QStyleOption& option, bool focus) {
  const Theme& theme = currentTheme();
  const bool enabled = is(option, QStyle::State_Enabled);
  const QColor edge = focus ? theme.accent : is(option, QStyle::State_MouseOver) ? theme.strongRule : theme.edge;
  drawBox(painter, option.rect, enabled ? theme.surface : theme.ground, edge, focus ? 2 : 1);
}

void drawCheckBox(QPainter& painter, const QStyleOption& option) {
  const Theme& theme = currentTheme();
  const bool enabled = is(option, QStyle::State_Enabled);
  const bool filled = is(option, QStyle::State_On) || is(option, QStyle::State_NoChange);
  const QColor ink = enabled ? theme.accent : theme.disabledText;
  drawBox(painter, option.rect, filled ? ink : theme.surface, filled ? ink : theme.strongRule);
  const QRectF box = option.rect;
  const auto at = [&](double x, double y) { return box.topLeft() + QPointF(box.width() * x, box.height() * y); };
  if (is(option, QStyle::State_On)) drawLines(painter, {at(.24, .53), at(.43, .71), at(.77, .31)}, theme.onAccent, 1.8);
  if (is(option, QStyle::State_NoChange)) drawLines(painter, {at(.27, .5), at(.73, .5)}, theme.onAccent, 1.8);
}

void drawRadioButton(QPainter& painter, const QStyleOption& option) {
  const Theme& theme = currentTheme();
  const bool on = is(option, QStyle::State_On);
  const QColor ink = is(option, QStyle::State_Enabled) ? theme.accent : theme.disabledText;
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

// An arrowhead around the middle of a place; `down` is 1 or -1.
void drawArrow(QPainter& painter, const QRect& place, int down, bool enabled, double size) {
  const QPointF middle = QRectF(place).center();
  const QPointF tip(0, size / 2 * down);
  const Theme& theme = currentTheme();
  drawLines(painter, {middle + QPointF(-size, 0) - tip, middle + tip, middle + QPointF(size, 0) - tip},
            enabled ? theme.mutedText : theme.disabledText, 1.6);
}

// Buttons of toolbars are flat until the pointer is over them.
void drawToolPanel(QPainter& painter, const QStyleOption& option) {
  const Theme& theme = currentTheme();
  if (is(option, QStyle::State_Sunken) || is(option, QStyle::State_On)) {
    drawBox(painter, option.rect, theme.pressed, Qt::transparent);
  } else if (is(option, QStyle::State_Enabled) && is(option, QStyle::State_MouseOver)) {
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

// Without arrows at the ends the slider runs along the whole bar.
QRect sliderRect(const QStyleOptionSlider& option) {
  const bool horizontal = option.orientation == Qt::Horizontal;
  const int length = horizontal ? option.rect.width() : option.rect.height();
  const qint64 range = static_cast<qint64>(option.maximum) - option.minimum;
  int slider = length;
  if (range > 0) {
    const auto share = static_cast<int>(static_cast<qint64>(option.pageStep) * length / (range + option.pageStep));
    slider = std::min(std::max(share, shortestSlider), length);
  }
  const int start = QStyle::sliderPositionFromValue(option.minimum, option.maximum, option.sliderPosition,
                                                    length - slider, option.upsideDown);
  return horizontal ? QRect(option.rect.left() + start, option.rect.top(), slider, option.rect.height())
                    : QRect(option.rect.left(), option.rect.top() + start, option.rect.width(), slider);
}

}  // namespace

ThemeStyle::ThemeStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void ThemeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
  switch (element) {
    case PE_PanelButtonCommand:
      return drawButton(*painter, *option);
    case PE_PanelButtonTool:
      return drawToolPanel(*painter, *option);
    case PE_IndicatorCheckBox:
      return drawCheckBox(*painter, *option);
    case PE_IndicatorRadioButton:
      return drawRadioButton(*painter, *option);
    case PE_FrameGroupBox:
      return drawGroupFrame(*painter, *option, widget);
    case PE_FrameFocusRect:
      return drawBox(*painter, option->rect, Qt::transparent, currentTheme().accent);
    case PE_PanelLineEdit: {
      // Without a frame the field lies in a box that has one already.
      const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
      if (frame != nullptr && frame->lineWidth > 0) drawField(*painter, *option, is(*option, State_HasFocus));
      return;
    }
    default:
      QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
}

void ThemeStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
  if (element == CE_PushButton && button != nullptr) {
    // The focus is the button's own edge.
    QStyleOptionButton label = *button;
    drawButton(*painter, *option);
    if (isDefault(*option) && is(*option, State_Enabled)) {
      label.palette.setColor(QPalette::ButtonText, currentTheme().onAccent);
    }
    QProxyStyle::drawControl(CE_PushButtonLabel, &label, painter, widget);
    return;
  }
  QProxyStyle::drawControl(element, option, painter, widget);
}

void ThemeStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                    const QWidget* widget) const {
  const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
  if (control == CC_ScrollBar && slider != nullptr) {
    drawScrollBar(*painter, *slider, sliderRect(*slider));
    return;
  }
  if (control == CC_ComboBox) {
    drawField(*painter, *option, is(*option, State_HasFocus));
    const QRect arrow = subControlRect(CC_ComboBox, option, SC_ComboBoxArrow, widget);
    drawArrow(*painter, arrow, 1, is(*option, State_Enabled), 4);
    return;
  }
  const auto* spin = qstyleoption_cast<const QStyleOptionSpinBox*>(option);
  if (control == CC_SpinBox && spin != nullptr) {
    drawField(*painter, *option, is(*option, State_HasFocus));
    const QRect up = subControlRect(CC_SpinBox, option, SC_SpinBoxUp, widget);
    const QRect down = subControlRect(CC_SpinBox, option, SC_SpinBoxDown, widget);
    drawArrow(*painter, up, -1, spin->stepEnabled.testFlag(QAbstractSpinBox::StepUpEnabled), 3);
    drawArrow(*painter, down, 1, spin->stepEnabled.testFlag(QAbstractSpinBox::StepDownEnabled), 3);
    return;
  }
  QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect ThemeStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                 const QWidget* widget) const {
  const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
  if (control != CC_ScrollBar || bar == nullptr) return QProxyStyle::subControlRect(control, option, part, widget);
  const QRect slider = sliderRect(*bar);
  QRect before = bar->rect;
  QRect after = bar->rect;
  if (bar->orientation == Qt::Horizontal) {
    before.setRight(slider.left() - 1);
    after.setLeft(slider.right() + 1);
  } else {
    before.setBottom(slider.top() - 1);
    after.setTop(slider.bottom() + 1);
  }
  switch (part) {
    case SC_ScrollBarSlider:
      return slider;
    case SC_ScrollBarSubPage:
      return before;
    case SC_ScrollBarAddPage:
      return after;
    case SC_ScrollBarGroove:
      return bar->rect;
    default:
      return {};
  }
}

QRect ThemeStyle::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const {
  const QRect rect = QProxyStyle::subElementRect(element, option, widget);
  // Text keeps clear of the rounded edge.
  return element == SE_LineEditContents ? rect.adjusted(textMargin, 0, -textMargin, 0) : rect;
}

QSize ThemeStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                   const QWidget* widget) const {
  QSize needed = QProxyStyle::sizeFromContents(type, option, size, widget);
  if (type == CT_PushButton) needed = needed.expandedTo({buttonWidth, controlHeight});
  if (type == CT_LineEdit || type == CT_ComboBox || type == CT_SpinBox) needed.setHeight(controlHeight);
  return needed;
}

int ThemeStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  switch (metric) {
    case PM_ScrollBarExtent:
      return scrollBarExtent;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
      return 16;
    // Beside the texts of lists and of their heads.
    case PM_FocusFrameHMargin:
    case PM_HeaderMargin:
      return textMargin;
    default:
      return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

}  // namespace tz
