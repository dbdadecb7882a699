#include "desktop/page/page_view.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "desktop/theme/theme.h"

namespace tz {
namespace {

constexpr double gap = 16;  // around the sheets
constexpr double pixelsPerPoint = 96.0 / 72.0;
constexpr double smallestScale = 0.1;

}  // namespace

PageView::PageView(QWidget* parent) : QAbstractScrollArea(parent) {
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(QStringLiteral("打印页面"));
}

void PageView::Show(const ReportPages& pages) {
  pages_ = &pages;
  painter_ = std::make_unique<PagePainter>(pages);
  LayOut();
  GoTo(0);
  viewport()->update();
}

void PageView::SetZoom(int zoom) {
  KeepingPlace([&] { zoom_ = zoom; });
}

int PageView::Percent() const { return static_cast<int>(std::lround(Scale() / pixelsPerPoint * 100)); }

int PageView::Sheets() const { return pages_ == nullptr ? 0 : static_cast<int>(pages_->Sheets()); }

int PageView::Current() const {
  const double each = SheetSize().height() + gap;
  const double middle = verticalScrollBar()->value() + viewport()->height() / 2.0;
  return std::clamp(static_cast<int>((middle - gap / 2) / each), 0, std::max(0, Sheets() - 1));
}

void PageView::GoTo(int sheet) {
  const double each = SheetSize().height() + gap;
  verticalScrollBar()->setValue(static_cast<int>(std::lround(std::clamp(sheet, 0, std::max(0, Sheets() - 1)) * each)));
  emit currentChanged(Current());
}

double PageView::Scale() const {
  if (pages_ == nullptr) return 1;
  const auto& paper = pages_->Columns().paper;
  const double wide = (viewport()->width() - 2 * gap) / paper.width;
  const double high = (viewport()->height() - 2 * gap) / paper.height;
  if (zoom_ == sheetWidth) return std::max(smallestScale, wide);
  if (zoom_ == wholeSheet) return std::max(smallestScale, std::min(wide, high));
  return pixelsPerPoint * zoom_ / 100;
}

QSizeF PageView::SheetSize() const {
  if (pages_ == nullptr) return {};
  const auto& paper = pages_->Columns().paper;
  return QSizeF(paper.width, paper.height) * Scale();
}

QRectF PageView::SheetPlace(int sheet) const {
  const QSizeF size = SheetSize();
  const double room = viewport()->width() - size.width();
  const double left = room > 2 * gap ? room / 2 : gap - horizontalScrollBar()->value();
  return {QPointF(left, gap + sheet * (size.height() + gap) - verticalScrollBar()->value()), size};
}

void PageView::LayOut() {
  const QSizeF size = SheetSize();
  const double height = gap + Sheets() * (size.height() + gap);
  const double width = size.width() + 2 * gap;
  verticalScrollBar()->setRange(0, std::max(0, static_cast<int>(std::ceil(height)) - viewport()->height()));
  verticalScrollBar()->setPageStep(viewport()->height());
  verticalScrollBar()->setSingleStep(static_cast<int>(3 * gap));
  horizontalScrollBar()->setRange(0, std::max(0, static_cast<int>(std::floor(width)) - viewport()->width()));
  horizontalScrollBar()->setPageStep(viewport()->width());
}

template <typename Change>
void PageView::KeepingPlace(Change change) {
  const int sheet = Current();
  change();
  LayOut();
  GoTo(sheet);
  viewport()->update();
}

void PageView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  painter.fillRect(event->rect(), currentTheme().ground);
  if (pages_ == nullptr) return;
  const double each = SheetSize().height() + gap;
  const int first = std::max(0, static_cast<int>((verticalScrollBar()->value() - gap) / each));
  for (int sheet = first; sheet < Sheets(); ++sheet) {
    const QRectF place = SheetPlace(sheet);
    if (place.top() > viewport()->height()) break;
    painter.fillRect(place, Qt::white);
    painter.setPen(currentTheme().edge);
    painter.drawRect(place);
    painter.save();
    painter.setClipRect(place);
    painter.translate(place.topLeft());
    painter_->Paint(painter, static_cast<std::size_t>(sheet), Scale());
    painter.restore();
  }
}

void PageView::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  KeepingPlace([] {});
}

void PageView::scrollContentsBy(int /*dx*/, int /*dy*/) {
  viewport()->update();
  emit currentChanged(Current());
}

void PageView::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_PageDown:
      return GoTo(Current() + 1);
    case Qt::Key_PageUp:
      return GoTo(Current() - 1);
    case Qt::Key_Home:
      return GoTo(0);
    case Qt::Key_End:
      return GoTo(Sheets() - 1);
    default:
      QAbstractScrollArea::keyPressEvent(event);
  }
}

void PageView::wheelEvent(QWheelEvent* event) {
  if (event->modifiers().testFlag(Qt::ControlModifier)) {
    emit zoomAsked(event->angleDelta().y() > 0 ? 1 : -1);
  } else {
    QAbstractScrollArea::wheelEvent(event);
  }
}

}  // namespace tz
