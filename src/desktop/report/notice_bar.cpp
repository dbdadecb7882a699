#include "desktop/report/notice_bar.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

#include "desktop/frame/announce.h"
#include "desktop/theme/qt_text.h"
#include "desktop/theme/theme.h"

namespace tz {
namespace {

constexpr int padding = 6;
constexpr int signRoom = 30;

// A triangle with an exclamation mark in it, as high as a line of text.
void drawSign(QPainter& painter, const QRectF& place) {
  const Theme& theme = currentTheme();
  painter.setPen(Qt::NoPen);
  painter.setBrush(theme.warning);
  painter.drawPolygon(QPolygonF({QPointF(place.center().x(), place.top()), place.bottomRight(), place.bottomLeft()}));
  painter.setBrush(theme.warningGround);
  const double unit = place.height() / 16;
  const double middle = place.center().x();
  painter.drawRect(QRectF(middle - unit, place.top() + 5.5 * unit, 2 * unit, 5 * unit));
  painter.drawRect(QRectF(middle - unit, place.top() + 12 * unit, 2 * unit, 2 * unit));
}

}  // namespace

NoticeBar::NoticeBar(QWidget* parent) : QWidget(parent), text_(new QLabel(this)) {
  text_->setObjectName(QStringLiteral("warnings"));
  text_->setTextFormat(Qt::PlainText);
  text_->setWordWrap(true);
  text_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(signRoom, padding, padding, padding);
  layout->addWidget(text_);
  Colour();
  hide();
}

void NoticeBar::ShowWarnings(const std::vector<Notice>& notices) {
  QStringList lines;
  for (const Notice& notice : notices) {
    if (notice.warns()) lines.append(toQt(notice.text));
  }
  const QString text = lines.join(QLatin1Char('\n'));
  const bool news = text != text_->text() && !text.isEmpty();
  text_->setText(text);
  text_->setAccessibleName(text.isEmpty() ? QString() : QStringLiteral("注意：") + text);
  setVisible(!text.isEmpty());
  if (news) announce(text_);
}

void NoticeBar::Colour() {
  QPalette palette;
  palette.setColor(QPalette::WindowText, currentTheme().warning);
  text_->setPalette(palette);
}

void NoticeBar::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) Colour();
  QWidget::changeEvent(event);
}

void NoticeBar::paintEvent(QPaintEvent* /*event*/) {
  const Theme& theme = currentTheme();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(theme.warning);
  painter.setBrush(theme.warningGround);
  constexpr double corner = 4;
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), corner, corner);
  const int height = fontMetrics().ascent();
  drawSign(painter, QRectF(padding + 2, padding + fontMetrics().descent() / 2.0, height + 2, height));
}

}  // namespace tz
