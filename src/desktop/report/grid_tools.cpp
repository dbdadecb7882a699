#include "desktop/report/grid_tools.h"

#include <QAction>
#include <QElapsedTimer>
#include <QInputMethodEvent>
#include <QTimerEvent>
#include <QVBoxLayout>

#include "core/grid/figures.h"
#include "desktop/gridview/grid_view.h"
#include "desktop/report/filter_row.h"
#include "desktop/report/locate_bar.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

constexpr int sliceTime = 12;  // milliseconds
constexpr std::int64_t sliceCells = 20'000;

// Works for a slice of time; whether all is done.
bool workOn(const std::function<bool()>& some) {
  QElapsedTimer time;
  time.start();
  while (!some()) {
    if (time.elapsed() >= sliceTime) return false;
  }
  return true;
}

}  // namespace

GridTools::GridTools(GridView& view, QVBoxLayout& body, bool findIsFree)
    : QObject(&view),
      view_(view),
      filterRow_(new FilterRow(view.parentWidget())),
      locateBar_(new LocateBar(view.parentWidget())) {
  const int place = body.indexOf(&view);
  body.insertWidget(place, filterRow_);
  body.insertWidget(place + 2, locateBar_);
  filterRow_->hide();
  MakeActions(findIsFree);
  connect(filterRow_, &FilterRow::changed, this, &GridTools::BeginFilter);
  connect(filterRow_, &FilterRow::outlineChosen, &view_, &GridView::SetOutline);
  connect(filterRow_, &FilterRow::monthTotalsWanted, &view_, [this](bool shown) { view_.HideMonthTotals(!shown); });
  connect(filterRow_, &FilterRow::closeWanted, this, [this] { filterAction_->setChecked(false); });
  connect(filterRow_, &FilterRow::tableWanted, &view_, [this] { view_.setFocus(); });
  connect(locateBar_, &LocateBar::textChanged, this, &GridTools::BeginSearch);
  connect(locateBar_, &LocateBar::nextWanted, this, [this] { GoTo(1); });
  connect(locateBar_, &LocateBar::previousWanted, this, [this] { GoTo(-1); });
  connect(locateBar_, &LocateBar::closed, this, &GridTools::EndLocating);
  connect(&view_, &GridView::refreshed, this, &GridTools::OnRefreshed);
  connect(&view_, &GridView::shownRowsChanged, this, &GridTools::OnRowsChanged);
  connect(&view_, &GridView::filterByWanted, this, &GridTools::FilterBy);
  connect(&view_, &GridView::typed, this, &GridTools::Locate);
  connect(&view_, &GridView::composing, this, &GridTools::Compose);
  connect(&view_, &GridView::escaped, this, &GridTools::OnEscaped);
}

void GridTools::MakeActions(bool findIsFree) {
  const auto make = [this](const char* text, const QKeySequence& key, auto action) {
    auto* made = new QAction(QString::fromUtf8(text), this);
    made->setShortcut(key);
    made->setShortcutVisibleInContextMenu(true);
    connect(made, &QAction::triggered, this, action);
    return made;
  };
  filterAction_ = make("筛选行(&R)", Qt::CTRL | Qt::SHIFT | Qt::Key_F, [] {});
  filterAction_->setIconText(QStringLiteral("筛选"));
  filterAction_->setToolTip(QStringLiteral("筛选表中的行，选择显示到哪一级合计 (Ctrl+Shift+F)"));
  filterAction_->setCheckable(true);
  connect(filterAction_, &QAction::toggled, this, &GridTools::ShowFilter);
  view_.addAction(filterAction_);
  const QKeySequence find = findIsFree ? QKeySequence(Qt::CTRL | Qt::Key_F) : QKeySequence();
  view_.addAction(make("定位(&T)…", find, [this] { Locate({}); }));
  view_.parentWidget()->addAction(make("下一处", Qt::Key_F3, [this] { GoTo(1); }));
  view_.parentWidget()->addAction(make("上一处", Qt::SHIFT | Qt::Key_F3, [this] { GoTo(-1); }));
}

void GridTools::ShowFilter(bool shown) {
  const bool focused = filterRow_->isAncestorOf(filterRow_->window()->focusWidget());
  if (!shown && !filterRow_->Filter().empty()) filterRow_->Clear();
  filterRow_->setVisible(shown);
  if (!shown && focused) view_.setFocus();
}

void GridTools::FilterBy(qint64 row, int column) {
  const ComputedReport* report = view_.Report();
  if (report == nullptr || !canFilterBy(report->grid, row, column)) return;
  const QString shown = toQt(report->grid.ShownAt(row, column));
  filterAction_->setChecked(true);
  if (report->grid.TypeAt(row, column) == CTzGrid::CellType::number) {
    filterRow_->NarrowToAmount(shown);
  } else {
    filterRow_->NarrowToText(shown);
  }
}

void GridTools::EndAll() {
  EndLocating();
  filterRow_->Clear();
}

void GridTools::BeginFilter() {
  filtering_.stop();
  const ComputedReport* report = view_.Report();
  const RowFilter& filter = filterRow_->Filter();
  if (report == nullptr || filter.empty()) {
    if (report != nullptr) view_.SetKept(std::nullopt);
    filterRow_->ShowResult(0, 0, false);
    return;
  }
  filterRun_ = FilterRun(*report, filter, view_.Marks().column);
  filtering_.start(0, this);
  GoOnFiltering();
}

void GridTools::GoOnFiltering() {
  if (!workOn([this] { return filterRun_.Add(sliceCells); })) return;
  filtering_.stop();
  view_.SetKept(filterRun_.Kept());
}

void GridTools::ShowOutline() {
  const bool hasMonths = view_.Blocks().HasMonths();
  filterRow_->ShowOutline(view_.OutlineNames(), view_.Outline(), hasMonths, !view_.MonthTotalsHidden());
}

// A new report: what is looked for stays, and is looked for in it.
void GridTools::OnRefreshed() {
  filtering_.stop();
  searching_.stop();
  search_ = {};
  searched_ = true;
  reached_ = -1;
  filterRun_ = {};
  if (view_.Report() == nullptr) return;
  filterRow_->ShowLines(view_.RowCount() == 0 || view_.ShowsVoucherLines(), view_.Marks().withoutMark);
  ShowOutline();
  if (!filterRow_->Filter().empty()) BeginFilter();
  if (!locateBar_->isHidden()) BeginSearch();
}

// What was found stays found; where one cannot go to it any more, the next place takes its turn.
void GridTools::OnRowsChanged() {
  ShowOutline();
  if (!filtering_.isActive()) filterRow_->ShowResult(filterRun_.Kept().Count(), filterRun_.Lines(), view_.FoldsKept());
  if (locateBar_->isHidden() || view_.Report() == nullptr || locateBar_->Text().trimmed().isEmpty()) return;
  search_.Bar(view_.Barred());
  if (reached_ >= 0 && !search_.Has(reached_)) {
    from_ = reached_;
    reached_ = -1;
  }
  if (reached_ < 0 && searched_) {
    GoTo(0);
  } else {
    ShowPlace(reached_);
  }
}

void GridTools::OnEscaped() {
  if (!locateBar_->isHidden()) {
    EndLocating();
  } else if (!filterRow_->Filter().empty()) {
    filterRow_->Clear();
  }
}

void GridTools::Locate(const QString& text) {
  from_ = std::max<std::int64_t>(view_.Current().row, 0);
  locateBar_->Open(text == QStringLiteral("/") ? QString() : text);
  if (text.isEmpty() && !locateBar_->Text().isEmpty()) BeginSearch();
}

void GridTools::Compose(QInputMethodEvent* event) {
  from_ = std::max<std::int64_t>(view_.Current().row, 0);
  locateBar_->Compose(*event);
}

void GridTools::BeginSearch() {
  const ComputedReport* report = view_.Report();
  const CellMatcher typed(fromQt(locateBar_->Text().trimmed()));
  searching_.stop();
  searched_ = true;
  reached_ = -1;
  view_.Mark(typed);
  search_ = {};
  if (report == nullptr || typed.empty()) {
    locateBar_->ShowResult({});
    return;
  }
  search_ = RowSearch(report->grid, view_.Barred(), view_.Columns().Shown(), typed);
  searched_ = false;
  searching_.start(0, this);
  GoOnSearching();
}

void GridTools::GoOnSearching() {
  searched_ = workOn([this] { return search_.Add(sliceCells); });
  if (searched_) searching_.stop();
  const bool here = reached_ < 0 && search_.After(from_) >= from_;
  if (here || (searched_ && reached_ < 0)) {
    GoTo(0);
  } else {
    ShowPlace(reached_);
  }
}

void GridTools::GoTo(int step) {
  if (view_.Report() == nullptr) return;
  if (locateBar_->isHidden()) {
    Locate({});
    if (locateBar_->Text().isEmpty()) return;
  }
  const std::int64_t at = reached_ >= 0 ? reached_ : from_;
  const std::int64_t row = step < 0 ? search_.Before(at) : search_.After(reached_ >= 0 && step > 0 ? at + 1 : at);
  if (row >= 0) {
    reached_ = row;
    view_.Reveal(row);
    view_.SetCurrent(row, search_.ColumnOf(row));
  }
  ShowPlace(row);
}

void GridTools::ShowPlace(std::int64_t row) {
  locateBar_->ShowResult({.number = row < 0 ? -1 : search_.NumberOf(row),
                          .found = search_.Found(),
                          .filtered = search_.Filtered(),
                          .inHiddenTotals = search_.InHiddenTotals(),
                          .finished = searched_});
}

void GridTools::EndLocating() {
  searching_.stop();
  searched_ = true;
  search_ = {};
  reached_ = -1;
  view_.Mark({});
  const bool focused = locateBar_->isAncestorOf(locateBar_->window()->focusWidget());
  locateBar_->hide();
  if (focused) view_.setFocus();
}

void GridTools::timerEvent(QTimerEvent* event) {
  if (event->timerId() == filtering_.timerId()) {
    GoOnFiltering();
  } else if (event->timerId() == searching_.timerId()) {
    GoOnSearching();
  } else {
    QObject::timerEvent(event);
  }
}

}  // namespace tz
