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
constexpr double kept = 0.1;  // of what was seen, when the view leafs on inside a sheet

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

int PageView::SheetInTheMiddle() const {
  const double middle = verticalScrollBar()->value() + viewport()->height() / 2.0;
  return std::clamp(static_cast<int>((middle - gap / 2) / RowHeight()), 0, std::max(0, Rows() - 1)) * Across();
}

void PageView::GoTo(int sheet) {
  const int wanted = std::clamp(sheet, 0, std::max(0, Sheets() - 1));
  const int row = wanted / Across();
  verticalScrollBar()->setValue(static_cast<int>(std::lround(row * RowHeight())));
  current_ = wanted;  // also where the view sees several rows
  emit currentChanged(current_);
}

double PageView::Scale() const {
  if (pages_ == nullptr) return 1;
  const auto& paper = pages_->Columns().paper;
  const double wide = (viewport()->width() - (Across() + 1) * gap) / (paper.width * Across());
  const double high = (viewport()->height() - 2 * gap) / paper.height;
  if (zoom_ == sheetWidth) return std::max(smallestScale, wide);
  if (zoom_ == wholeSheet || zoom_ == twoSheets) return std::max(smallestScale, std::min(wide, high));
  return pixelsPerPoint * zoom_ / 100;
}

QSizeF PageView::SheetSize() const {
  if (pages_ == nullptr) return {};
  const auto& paper = pages_->Columns().paper;
  return QSizeF(paper.width, paper.height) * Scale();
}

double PageView::RowHeight() const { return SheetSize().height() + gap; }

QRectF PageView::SheetPlace(int sheet) const {
  const QSizeF size = SheetSize();
  const double all = Across() * (size.width() + gap) - gap;
  const double room = viewport()->width() - all;
  const int row = sheet / Across();
  const double left = room > 2 * gap ? room / 2 : gap - horizontalScrollBar()->value();
  return {
      QPointF(left + sheet % Across() * (size.width() + gap), gap + row * RowHeight() - verticalScrollBar()->value()),
      size};
}

void PageView::LayOut() {
  const double height = gap + Rows() * RowHeight();
  const double width = Across() * (SheetSize().width() + gap) + gap;
  verticalScrollBar()->setRange(0, std::max(0, static_cast<int>(std::ceil(height)) - viewport()->height()));
  verticalScrollBar()->setPageStep(viewport()->height());
  verticalScrollBar()->setSingleStep(static_cast<int>(3 * gap));
  horizontalScrollBar()->setRange(0, std::max(0, static_cast<int>(std::floor(width)) - viewport()->width()));
  horizontalScrollBar()->setPageStep(viewport()->width());
}

template <typename Change>
void PageView::KeepingPlace(Change change) {
  const int sheet = current_;
  change();
  LayOut();
  GoTo(sheet);
  viewport()->update();
}

void PageView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  painter.fillRect(event->rect(), currentTheme().ground);
  if (pages_ == nullptr) return;
  const int firstRow = std::max(0, static_cast<int>((verticalScrollBar()->value() - gap) / RowHeight()));
  for (int sheet = firstRow * Across(); sheet < Sheets(); ++sheet) {
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
  current_ = SheetInTheMiddle();
  emit currentChanged(current_);
}

void PageView::Leaf(int direction) {
  if (SheetSize().height() <= viewport()->height()) return Turn(direction);
  const double step = viewport()->height() * (1 - kept);
  verticalScrollBar()->setValue(verticalScrollBar()->value() + static_cast<int>(direction * step));
}

void PageView::keyPressEvent(QKeyEvent* event) {
  const bool control = event->modifiers().testFlag(Qt::ControlModifier);
  switch (event->key()) {
    case Qt::Key_PageDown:
      return control ? Turn(1) : Leaf(1);
    case Qt::Key_PageUp:
      return control ? Turn(-1) : Leaf(-1);
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
