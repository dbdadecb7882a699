#include "desktop/theme/theme_style.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>
#include <QToolButton>
#include <QWheelEvent>
#include <algorithm>

#include "desktop/theme/theme.h"
#include "desktop/theme/theme_drawing.h"

namespace tz {
namespace {

constexpr int controlHeight = 28;
// Above and below its text.
constexpr int controlMargins = 9;
constexpr int buttonWidth = 84;
constexpr int textMargin = 4;
constexpr int listFrame = 2;
constexpr int scrollBarExtent = 12;
constexpr int shortestSlider = 38;  // 32 pixels, and the ground around them

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

// Who rolls past a field that has not the focus does not change it: what it stands in scrolls.
class WheelGuard : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject* field, QEvent* event) override {
    if (event->type() != QEvent::Wheel || static_cast<QWidget*>(field)->hasFocus()) return false;
    event->ignore();
    return true;
  }
};

// A letter with Alt is a key of the window, also where it has no such key: no field takes it for text.
class AltGuard : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject* /*field*/, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return false;
    const auto& key = *static_cast<QKeyEvent*>(event);
    const bool types = !key.text().isEmpty() && key.text().front().isPrint();
    if (!types || (key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) != Qt::AltModifier) return false;
    event->ignore();
    return true;
  }
};

// A list of its own, not one that opens below a field.
bool isList(const QWidget* widget) {
  return qobject_cast<const QAbstractItemView*>(widget) != nullptr && widget->window()->windowType() != Qt::Popup;
}

}  // namespace

ThemeStyle::ThemeStyle()
    : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))),
      wheelGuard_(new WheelGuard(this)),
      altGuard_(new AltGuard(this)) {}

void ThemeStyle::polish(QWidget* widget) {
  QProxyStyle::polish(widget);
  const auto* combo = qobject_cast<QComboBox*>(widget);
  if (qobject_cast<QLineEdit*>(widget) != nullptr || (combo != nullptr && combo->isEditable())) {
    widget->installEventFilter(altGuard_);
  }
  if (combo == nullptr && qobject_cast<QAbstractSpinBox*>(widget) == nullptr) return;
  // The wheel does not bring the focus either.
  if (widget->focusPolicy() == Qt::WheelFocus) widget->setFocusPolicy(Qt::StrongFocus);
  widget->installEventFilter(wheelGuard_);
}

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
      // The focus of a button with an edge is that edge.
      if (const auto* button = qobject_cast<const QToolButton*>(widget); button != nullptr && !button->autoRaise())
        return;
      return drawBox(*painter, option->rect, Qt::transparent, currentTheme().accent);
    case PE_IndicatorToolBarSeparator:
      return drawToolSeparator(*painter, *option);
    case PE_IndicatorArrowLeft:
      return drawArrow(*painter, option->rect, Qt::LeftArrow, isIn(*option, State_Enabled));
    case PE_IndicatorArrowRight:
      return drawArrow(*painter, option->rect, Qt::RightArrow, isIn(*option, State_Enabled));
    case PE_IndicatorArrowDown:
      return drawArrow(*painter, option->rect, Qt::DownArrow, isIn(*option, State_Enabled));
    case PE_Frame:
      // A list shows its focus also where it has no row to show it on.
      return drawFrame(*painter, option->rect, isList(widget) && isIn(*option, State_HasFocus));
    case PE_FrameMenu:
      return drawFrame(*painter, option->rect, false);
    case PE_PanelLineEdit: {
      // Without a frame the field lies in a box that has one already.
      const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
      if (frame != nullptr && frame->lineWidth > 0) drawField(*painter, *option);
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
    if (isDefaultButton(*option) && isIn(*option, State_Enabled)) {
      label.palette.setColor(QPalette::ButtonText, currentTheme().onAccent);
    }
    QProxyStyle::drawControl(CE_PushButtonLabel, &label, painter, widget);
    return;
  }
  if (element == CE_HeaderSection) {
    drawHeaderSection(*painter, *option);
    return;
  }
  const auto* bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option);
  if (element == CE_ProgressBar && bar != nullptr) {
    drawProgress(*painter, *bar);
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
    drawField(*painter, *option);
    const QRect arrow = subControlRect(CC_ComboBox, option, SC_ComboBoxArrow, widget);
    drawArrow(*painter, arrow, Qt::DownArrow, isIn(*option, State_Enabled));
    return;
  }
  const auto* spin = qstyleoption_cast<const QStyleOptionSpinBox*>(option);
  if (control == CC_SpinBox && spin != nullptr) {
    drawField(*painter, *option);
    const QRect up = subControlRect(CC_SpinBox, option, SC_SpinBoxUp, widget);
    const QRect down = subControlRect(CC_SpinBox, option, SC_SpinBoxDown, widget);
    drawArrow(*painter, up, Qt::UpArrow, spin->stepEnabled.testFlag(QAbstractSpinBox::StepUpEnabled), 3);
    drawArrow(*painter, down, Qt::DownArrow, spin->stepEnabled.testFlag(QAbstractSpinBox::StepDownEnabled), 3);
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
  const int height = std::max(controlHeight, option->fontMetrics.height() + controlMargins);
  if (type == CT_PushButton) needed = needed.expandedTo({buttonWidth, height});
  if (type == CT_LineEdit || type == CT_ComboBox || type == CT_SpinBox) needed.setHeight(height);
  return needed;
}

int ThemeStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* returned) const {
  // A menu of a hundred columns would stand beside itself until it leaves the screen.
  return hint == SH_Menu_Scrollable ? 1 : QProxyStyle::styleHint(hint, option, widget, returned);
}

int ThemeStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  switch (metric) {
    case PM_DefaultFrameWidth:
      return isList(widget) ? listFrame : QProxyStyle::pixelMetric(metric, option, widget);
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
