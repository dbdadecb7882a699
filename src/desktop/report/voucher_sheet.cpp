#include "desktop/report/voucher_sheet.h"

#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

#include "core/grid/figures.h"
#include "core/voucher/capital_amount.h"
#include "desktop/theme/pixel_lines.h"
#include "desktop/theme/qt_text.h"
#include "desktop/theme/theme.h"

namespace tz {
namespace {

constexpr QMargins cellMargins(8, 6, 8, 6);
constexpr int leastSummary = 130;
constexpr int leastAccount = 240;

bool isMoney(int column) { return column == VoucherModel::debit || column == VoucherModel::credit; }

// A text in lines of a width; words that are longer are broken.
class WrappedText {
 public:
  WrappedText(const QString& text, const QFont& font, int width) : layout_(text, font) {
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout_.setTextOption(option);
    layout_.beginLayout();
    for (QTextLine line = layout_.createLine(); line.isValid(); line = layout_.createLine()) {
      line.setLineWidth(std::max(width, 1));
      line.setPosition({0, height_});
      height_ += std::ceil(line.height());
    }
    layout_.endLayout();
  }
  [[nodiscard]] int Height() const { return static_cast<int>(height_); }
  void Paint(QPainter& painter, QPoint place) const { layout_.draw(&painter, place); }

 private:
  QTextLayout layout_;
  qreal height_ = 0;
};

class VoucherCell : public QStyledItemDelegate {
 public:
  explicit VoucherCell(VoucherSheet& sheet) : QStyledItemDelegate(&sheet), sheet_(sheet) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const Theme& theme = currentTheme();
    const QRect cell = option.rect;
    const PixelLines lines(*painter);
    painter->fillRect(cell, theme.surface);
    if (option.state.testFlag(QStyle::State_Selected)) painter->fillRect(cell, theme.currentRow);
    painter->setFont(option.font);
    painter->setPen(theme.text);
    if (isMoney(index.column())) {
      sheet_.Money().PaintLines(*painter, cell);
      const QRect first(cell.left(), cell.top() + cellMargins.top(), cell.width(), option.fontMetrics.height());
      sheet_.Money().PaintAmount(*painter, first, sheet_.Lines().Amount(index), false);
    } else {
      PaintTexts(*painter, option, sheet_.Lines().Texts(index));
    }
    lines.Bottom(cell, theme.rule);
    lines.Right(cell, theme.strongRule);
  }

  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const int width = sheet_.columnWidth(index.column()) - cellMargins.left() - cellMargins.right();
    int height = cellMargins.top() + cellMargins.bottom();
    if (isMoney(index.column())) return {width, height + option.fontMetrics.height()};
    for (const QString& text : sheet_.Lines().Texts(index)) height += WrappedText(text, option.font, width).Height();
    return {width, height};
  }

 private:
  // What stands below the first line explains it.
  static void PaintTexts(QPainter& painter, const QStyleOptionViewItem& option, const QStringList& texts) {
    QRect room = option.rect.marginsRemoved(cellMargins);
    for (const QString& text : texts) {
      const WrappedText wrapped(text, option.font, room.width());
      wrapped.Paint(painter, room.topLeft());
      room.setTop(room.top() + wrapped.Height());
      painter.setPen(currentTheme().mutedText);
    }
  }

  VoucherSheet& sheet_;
};

// Captions, and below those of amounts the names of their places.
class VoucherHeads : public QHeaderView {
 public:
  explicit VoucherHeads(VoucherSheet& sheet) : QHeaderView(Qt::Horizontal, &sheet), sheet_(sheet) {
    setSectionsClickable(false);
    setSectionResizeMode(QHeaderView::Fixed);
    setHighlightSections(false);
  }

  [[nodiscard]] QSize sizeHint() const override {
    return {QHeaderView::sizeHint().width(), 2 * fontMetrics().height() + cellMargins.top()};
  }

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int section) const override {
    const Theme& theme = currentTheme();
    const PixelLines lines(*painter);
    painter->fillRect(rect, theme.header);
    painter->setPen(theme.text);
    const QString caption = model()->headerData(section, Qt::Horizontal).toString();
    if (isMoney(section)) {
      const QRect upper(rect.left(), rect.top(), rect.width(), rect.height() / 2);
      const QRect lower(rect.left(), upper.bottom() + 1, rect.width(), rect.height() - upper.height());
      painter->drawText(upper, Qt::AlignCenter, caption);
      painter->setPen(theme.mutedText);
      sheet_.Money().PaintPlaces(*painter, lower);
      sheet_.Money().PaintLines(*painter, lower);
      lines.Bottom(upper, theme.rule);
    } else {
      painter->drawText(rect, Qt::AlignCenter, caption);
    }
    lines.Bottom(rect, theme.strongRule);
    lines.Right(rect, theme.strongRule);
  }

 private:
  VoucherSheet& sheet_;
};

}  // namespace

VoucherSheet::VoucherSheet(QWidget* parent) : QTableView(parent) {
  setObjectName(QStringLiteral("voucherLines"));
  setAccessibleName(QStringLiteral("分录"));
  setHorizontalHeader(new VoucherHeads(*this));
  setItemDelegate(new VoucherCell(*this));
  setModel(&model_);
  verticalHeader()->hide();
  verticalHeader()->setMinimumSectionSize(1);
  setShowGrid(false);
  setFrameShape(QFrame::NoFrame);
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setTabKeyNavigation(false);
  setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

void VoucherSheet::Show(const Voucher& voucher, Id line) {
  money_ = {};
  for (const auto& one : voucher.lines) money_.Hold(one.entry.mMoney);
  money_.Hold(voucher.debit);
  money_.Hold(voucher.credit);
  model_.Show(&voucher);
  ShareRoom();
  const int row = std::max(model_.RowOf(line), 0);
  setCurrentIndex(model_.index(row, 0));
  if (row < model_.rowCount()) scrollTo(currentIndex());
}

QRect VoucherSheet::ColumnRect(int column) const {
  const int left = viewport()->x() + columnViewportPosition(column);
  return {left, 0, columnWidth(column), height()};
}

void VoucherSheet::ShareRoom() {
  const int money = money_.WidthFor(fontMetrics());
  const int rest = viewport()->width() - 2 * money;
  const int summary = std::max(rest * 2 / 5, leastSummary);
  setColumnWidth(VoucherModel::summary, summary);
  setColumnWidth(VoucherModel::account, std::max(rest - summary, leastAccount));
  setColumnWidth(VoucherModel::debit, money);
  setColumnWidth(VoucherModel::credit, money);
  resizeRowsToContents();
}

void VoucherSheet::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  if (event->size().width() != event->oldSize().width()) ShareRoom();
}

void VoucherSheet::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::FontChange) ShareRoom();
}

VoucherTotal::VoucherTotal(VoucherSheet& sheet) : QLabel(sheet.parentWidget()), sheet_(sheet) {
  setObjectName(QStringLiteral("voucherTotal"));
  setTextFormat(Qt::PlainText);
  connect(sheet.horizontalScrollBar(), &QScrollBar::valueChanged, this, qOverload<>(&QWidget::update));
  connect(sheet.horizontalHeader(), &QHeaderView::sectionResized, this, qOverload<>(&QWidget::update));
}

void VoucherTotal::Show(const Voucher& voucher) {
  debit_ = voucher.debit;
  credit_ = voucher.credit;
  capital_ = QStringLiteral("合计：") + toQt(capitalAmount(debit_));
  if (!voucher.balanced()) capital_ += QStringLiteral("（借贷不平）");
  const auto figure = [](double amount) { return toQt(figureText(amount, ColumnKind::amount)); };
  setText(QStringLiteral("%1，借方 %2，贷方 %3").arg(capital_, figure(debit_), figure(credit_)));
  update();
}

QSize VoucherTotal::sizeHint() const {
  return {0, 2 * fontMetrics().height() + cellMargins.top() + cellMargins.bottom()};
}

void VoucherTotal::paintEvent(QPaintEvent* /*event*/) {
  const Theme& theme = currentTheme();
  QPainter painter(this);
  const PixelLines lines(painter);
  painter.fillRect(rect(), theme.header);
  const auto column = [this](int which) {
    const QRect place = sheet_.ColumnRect(which);
    return QRect(place.left(), 0, place.width(), height());
  };
  painter.setClipRect(sheet_.viewport()->geometry().adjusted(0, -height(), 0, height()).united({0, 0, 1, height()}));
  painter.setPen(theme.text);
  const QRect words = column(VoucherModel::summary).united(column(VoucherModel::account));
  painter.drawText(words.marginsRemoved(cellMargins), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWrapAnywhere,
                   capital_);
  lines.Right(words, theme.strongRule);
  for (const auto& [which, amount] : {std::pair(VoucherModel::debit, debit_), {VoucherModel::credit, credit_}}) {
    sheet_.Money().PaintLines(painter, column(which));
    sheet_.Money().PaintAmount(painter, column(which), amount, true);
    lines.Right(column(which), theme.strongRule);
  }
  painter.setClipping(false);
  lines.Top(rect(), theme.strongRule, 2);
}

}  // namespace tz
