// How blocks of a grid view fold and open, how one goes from block to block, and the headings that stay in sight.
#include <QAccessible>
#include <QKeyEvent>
#include <QMenu>
#include <QScrollBar>

#include "desktop/gridview/grid_view.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

constexpr int signWidth = 16;
constexpr int mostStuckHeadings = 3;
// Of the rows in sight, so many for each heading that stays.
constexpr int rowsPerStuckHeading = 4;

// What stands in a row before its figures.
QString firstTextOf(const CTzGrid& grid, std::int64_t row) {
  for (int column = 0; column < grid.GetCols(); ++column) {
    const auto text = grid.TextAt(row, column);
    if (!text.empty()) return toQt(text);
  }
  return {};
}

}  // namespace

int GridView::MostStuck() const {
  return std::min(mostStuckHeadings, viewport()->height() / rowHeight_ / rowsPerStuckHeading);
}

int GridView::StuckAbove(std::int64_t row) const {
  return std::min(MostStuck(), static_cast<int>(Blocks().HeadingsAbove(row).size()));
}

std::vector<GridView::StuckHeading> GridView::StuckHeadings() const {
  std::vector<StuckHeading> stuck;
  if (Empty()) return stuck;
  int below = 0;
  for (const auto& tier : Blocks().Tiers()) {
    const std::int64_t place = (std::int64_t{verticalScrollBar()->value()} + below) / rowHeight_;
    if (place >= rows_.Count() || below >= MostStuck() * rowHeight_) break;
    const GridBlock* block = Blocks().Holding(tier, rows_.RowAt(place));
    if (block == nullptr || !block->headed || block->folded || TopOf(rows_.PlaceOf(block->first)) >= below) continue;
    // The next block pushes it out.
    const int lastTop = TopOf(rows_.PlaceOf(block->last));
    stuck.push_back({block->first, std::min(below, lastTop)});
    below += rowHeight_;
  }
  return stuck;
}

std::optional<std::int64_t> GridView::StuckAt(QPoint point) const {
  if (!viewport()->rect().contains(point)) return std::nullopt;
  for (const auto& [row, top] : StuckHeadings()) {
    if (point.y() >= top && point.y() < top + rowHeight_) return row;
  }
  return std::nullopt;
}

QRect GridView::SignRect(std::int64_t row, int top) const {
  if (Blocks().TitledBy(row) == nullptr) return {};
  return {columns_.XOf(0) + 2, top, signWidth, rowHeight_};
}

const GridBlock* GridView::SignAt(QPoint point) const {
  if (Empty() || !viewport()->rect().contains(point)) return nullptr;
  const GridCell cell = CellAt(point);
  const bool stuck = StuckAt(point).has_value();
  const int top = stuck ? point.y() : TopOf(rows_.PlaceOf(cell.row));
  return SignRect(cell.row, top).contains(point) ? Blocks().TitledBy(cell.row) : nullptr;
}

bool GridView::TakeBlockClick(QPoint point) {
  if (const GridBlock* block = SignAt(point)) {
    Fold(*block, !block->folded);
    return true;
  }
  const auto heading = StuckAt(point);
  if (!heading) return false;
  MoveTo(CellAt(point), false);
  ShowAtTop(*heading);
  return true;
}

void GridView::KeepCurrentShown() {
  if (Empty()) {
    anchor_ = current_ = {};
    return;
  }
  if (current_.valid() && !rows_.Shows(current_.row)) {
    const GridBlock* folded = Blocks().FoldedAround(current_.row);
    current_.row = rows_.RowAt(rows_.PlaceOf(folded == nullptr ? current_.row : folded->title()));
  }
  if (!anchor_.valid() || !rows_.Shows(anchor_.row)) anchor_ = current_;
}

void GridView::ChangeRows(const std::function<void()>& change) {
  const GridCell before = current_;
  const QRect seen = VisiblePart(current_);
  const std::int64_t topPlace = verticalScrollBar()->value() / rowHeight_;
  std::int64_t steady = Empty() ? 0 : rows_.RowAt(std::min(topPlace, rows_.Count() - 1));
  change();
  KeepCurrentShown();
  if (seen.isValid() && current_.valid()) steady = current_.row;
  LayOut();
  const int top = seen.isValid() ? seen.top() : 0;
  if (!Empty()) verticalScrollBar()->setValue(static_cast<int>(rows_.PlaceOf(steady) * rowHeight_ - top));
  if (seen.isValid() && current_.valid()) ShowCell(current_);
  SumUp();
  if (QAccessible::isActive()) {
    QAccessibleTableModelChangeEvent reset(this, QAccessibleTableModelChangeEvent::ModelReset);
    QAccessible::updateAccessibility(&reset);
  }
  emit shownRowsChanged();
  if (current_ == before) return;
  if (current_.valid()) grid_->ActivateCell(current_.row, current_.column);
  TellCurrent();
  emit currentChanged(current_.row, current_.column);
}

void GridView::Fold(const GridBlock& block, bool folded) {
  const std::int64_t title = block.title();
  ChangeRows([&] { rowState_.SetFolded(block, folded); });
  emit told((folded ? QStringLiteral("已折叠：") : QStringLiteral("已展开：")) + firstTextOf(*grid_, title));
}

bool GridView::FoldAtCurrent() {
  const GridBlock* block = current_.valid() ? Blocks().OpenAround(current_.row) : nullptr;
  if (block == nullptr) return false;
  const GridCell title{block->title(), current_.column};
  Fold(*block, true);
  if (rows_.Shows(title.row)) MoveTo(title, false);
  return true;
}

bool GridView::OpenAtCurrent() {
  const GridBlock* block = current_.valid() ? Blocks().FoldedAround(current_.row) : nullptr;
  if (block == nullptr) return false;
  Fold(*block, false);
  return true;
}

void GridView::Reveal(std::int64_t row) {
  if (rows_.Shows(row) || Blocks().FoldedAround(row) == nullptr) return;
  ChangeRows([&] {
    const GridBlock* block = Blocks().FoldedAround(row);
    for (; block != nullptr && !rows_.Shows(row); block = Blocks().FoldedAround(row))
      rowState_.SetFolded(*block, false);
  });
}

bool GridView::StandOn(std::int64_t row) {
  if (row < 0 || row >= RowCount() || columns_.ShownCount() == 0) return false;
  Reveal(row);
  if (!rows_.Shows(row) || !SetCurrent(row, columns_.ColumnAtPlace(0))) return false;
  const auto headings = Blocks().HeadingsAbove(row);
  // With the beginning of its block in sight, and that of the report where there is room for both.
  ShowAtTop(headings.empty() ? 0 : headings.back());
  const bool inSight = viewport()->rect().contains(CellRect(row, current_.column));
  if (headings.empty() && !inSight) ShowAtTop(row);
  ShowCell(current_);
  return true;
}

QStringList GridView::OutlineNames() const {
  QStringList names{QStringLiteral("全部")};
  const auto& tiers = Blocks().Tiers();
  for (auto tier = tiers.rbegin(); tier != tiers.rend(); ++tier) {
    const GridBlock& block = tier->front();
    const bool months = Blocks().HasMonths() && tier == tiers.rbegin();
    const bool totalled = block.bodyLast < block.last;
    names.append(months     ? QStringLiteral("月合计")
                 : totalled ? firstTextOf(*grid_, block.bodyLast + 1)
                            : QStringLiteral("标题"));
  }
  return names;
}

void GridView::SetOutline(int outline) {
  ChangeRows([&] { rowState_.SetOutline(outline); });
  const QString name = OutlineNames().value(Outline());
  emit told(Outline() == 0 ? QStringLiteral("已全部展开") : QStringLiteral("已折叠到") + name);
}

void GridView::HideMonthTotals(bool hide) {
  ChangeRows([&] { rowState_.HideMonthTotals(hide); });
  const bool folded = ShowsMonths(true);
  if (hide) {
    emit told(folded ? QStringLiteral("不显示本年累计；折叠的月份只留本月合计")
                     : QStringLiteral("不显示本月合计、本年累计"));
  } else {
    const bool seen = folded || ShowsMonths(false);
    emit told(seen ? QStringLiteral("显示本月合计、本年累计") : QStringLiteral("展开后显示本月合计、本年累计"));
  }
}

bool GridView::ShowsMonths(bool folded) const {
  return Blocks().HasMonths() && std::ranges::any_of(Blocks().Tiers().back(), [&](const GridBlock& month) {
           return month.folded == folded && rows_.Shows(month.title());
         });
}

void GridView::SetKept(std::optional<RowBits> kept) {
  ChangeRows([&] { rowState_.SetKept(std::move(kept)); });
}

void GridView::Mark(const CellMatcher& matcher) {
  mark_ = matcher;
  viewport()->update();
}

bool GridView::GoToBlock(bool next) {
  const GridBlocks::Tier* tier = Blocks().Walked();
  if (tier == nullptr || Empty()) return false;
  const std::int64_t from = current_.valid() ? current_.row : -1;
  const auto title = [](const GridBlock& block) { return std::int64_t{block.title()}; };
  const auto at =
      next ? std::ranges::upper_bound(*tier, from, {}, title) : std::ranges::lower_bound(*tier, from, {}, title);
  auto place = at - tier->begin() - (next ? 0 : 1);
  const auto end = std::ssize(*tier);
  while (place >= 0 && place < end && !rows_.Shows((*tier)[static_cast<std::size_t>(place)].title())) {
    place += next ? 1 : -1;
  }
  if (place < 0 || place >= end) {
    emit told(next ? QStringLiteral("已是最后一块") : QStringLiteral("已是第一块"));
    return false;
  }
  const std::int64_t row = (*tier)[static_cast<std::size_t>(place)].title();
  MoveTo({row, std::max(current_.column, 0)}, false);
  if ((*tier)[static_cast<std::size_t>(place)].headed) ShowAtTop(row);
  return true;
}

void GridView::ShowAtTop(std::int64_t row) {
  const std::int64_t place = rows_.PlaceOf(row) - StuckAbove(row);
  verticalScrollBar()->setValue(static_cast<int>(place * rowHeight_));
}

bool GridView::TakeBlockKey(const QKeyEvent& event) {
  const Qt::KeyboardModifiers with = event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
  const bool page = event.key() == Qt::Key_PageDown || event.key() == Qt::Key_PageUp;
  if (page && with == Qt::ControlModifier && !event.modifiers().testFlag(Qt::ShiftModifier)) {
    GoToBlock(event.key() == Qt::Key_PageDown);
    return true;
  }
  if (with == Qt::NoModifier && event.key() == Qt::Key_Minus) {
    FoldAtCurrent();
    return true;
  }
  if (with == Qt::NoModifier && (event.key() == Qt::Key_Plus || event.key() == Qt::Key_Equal)) {
    OpenAtCurrent();
    return true;
  }
  if (with != Qt::ControlModifier) return false;
  if (event.key() == Qt::Key_M && Blocks().HasMonths()) {
    HideMonthTotals(!MonthTotalsHidden());
    return true;
  }
  const int outline = event.key() - Qt::Key_1;
  if (outline < 0 || outline > std::ssize(Blocks().Tiers())) return false;
  SetOutline(outline);
  return true;
}

// Letters, digits and signs begin to look for something.
bool GridView::TakeTyping(const QKeyEvent& event) {
  if (event.key() == Qt::Key_Escape) {
    emit escaped();
    return false;
  }
  const QString text = event.text();
  const bool modified = (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
  if (RowCount() == 0 || modified || text.isEmpty() || !text.front().isPrint() || text.front().isSpace()) return false;
  emit typed(text);
  return true;
}

void GridView::inputMethodEvent(QInputMethodEvent* event) {
  if (RowCount() > 0) emit composing(event);
  event->accept();
}

void GridView::MakeBlockMenu() {
  auto* menu = new QMenu(QStringLiteral("折叠与展开(&K)"), this);
  menu->setObjectName(QStringLiteral("blockMenu"));
  connect(menu, &QMenu::aboutToShow, this, [this, menu] { FillBlockMenu(*menu); });
  addAction(menu->menuAction());
}

void GridView::FillBlockMenu(QMenu& menu) {
  menu.clear();
  const auto add = [&](const QString& text, bool enabled, auto action) {
    QAction* added = menu.addAction(text, this, action);
    added->setEnabled(enabled);
    return added;
  };
  const bool current = current_.valid();
  add(QStringLiteral("折叠这一块(&F)\t-"), current && Blocks().OpenAround(current_.row) != nullptr,
      [this] { FoldAtCurrent(); });
  add(QStringLiteral("展开这一块(&U)\t+"), current && Blocks().FoldedAround(current_.row) != nullptr,
      [this] { OpenAtCurrent(); });
  menu.addSeparator();
  const QStringList names = OutlineNames();
  for (int outline = 0; outline < names.size(); ++outline) {
    const QString text = outline == 0 ? QStringLiteral("全部展开") : QStringLiteral("折叠到") + names[outline];
    QAction* action = add(QStringLiteral("%1(&%2)\tCtrl+%2").arg(text).arg(outline + 1), names.size() > 1,
                          [this, outline] { SetOutline(outline); });
    action->setCheckable(true);
    action->setChecked(outline == Outline());
  }
  QAction* months = add(QStringLiteral("显示本月合计、本年累计(&M)\tCtrl+M"), Blocks().HasMonths(),
                        [this] { HideMonthTotals(!MonthTotalsHidden()); });
  months->setCheckable(true);
  months->setChecked(!MonthTotalsHidden());
  menu.addSeparator();
  const bool walked = Blocks().Walked() != nullptr;
  add(QStringLiteral("下一块(&N)\tCtrl+PageDown"), walked, [this] { GoToBlock(true); });
  add(QStringLiteral("上一块(&P)\tCtrl+PageUp"), walked, [this] { GoToBlock(false); });
}

}  // namespace tz
