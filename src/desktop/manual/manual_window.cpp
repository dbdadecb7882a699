#include "desktop/manual/manual_window.h"

#include <QAction>
#include <QDesktopServices>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QScrollBar>
#include <QSplitter>
#include <QStackedWidget>
#include <QTextBrowser>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <QWindow>
#include <array>

#include "desktop/frame/fit_window.h"
#include "desktop/manual/manual_document.h"
#include "desktop/theme/fonts.h"

namespace tz {
namespace {

constexpr QSize manualSize(980, 680);
constexpr int contentsWidth = 250;
constexpr int textPixels = 15;
constexpr int besideText = 6;  // of an entry
constexpr std::array zooms = {80, 90, 100, 115, 130, 150, 175, 200};
constexpr int usualZoom = 2;
// As it was left, for the next time that the manual is opened.
int& lastZoom() {
  static int zoom = usualZoom;
  return zoom;
}

}  // namespace

ManualWindow::ManualWindow()
    : QWidget(nullptr, Qt::Window),
      zoom_(lastZoom()),
      browser_(new QTextBrowser(this)),
      contents_(new QTreeWidget(this)),
      found_(new QListWidget(this)),
      left_(new QStackedWidget(this)),
      search_(new QLineEdit(this)) {
  setObjectName(QStringLiteral("manual"));
  setAttribute(Qt::WA_DeleteOnClose);
  LayOut();
  FillContents();
  visited_.push_back({{QStringLiteral("index"), {}}});
  SetPage();
  ShowPlace();
  connect(browser_, &QTextBrowser::anchorClicked, this, &ManualWindow::OnLink);
  connect(search_, &QLineEdit::textChanged, this, &ManualWindow::Search);
  connect(search_, &QLineEdit::returnPressed, this, &ManualWindow::OpenHit);
  connect(found_, &QListWidget::itemActivated, this, &ManualWindow::OpenHit);
  connect(found_, &QListWidget::itemClicked, this, &ManualWindow::OpenHit);
  connect(contents_, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* item) {
    const QString page = item == nullptr ? QString() : item->data(0, Qt::UserRole).toString();
    if (!page.isEmpty() && page != Place().page) Open({page, {}});
  });
}

void ManualWindow::LayOut() {
  browser_->setObjectName(QStringLiteral("page"));
  browser_->setAccessibleName(QStringLiteral("手册的一页"));
  browser_->setOpenLinks(false);
  browser_->setFrameShape(QFrame::NoFrame);
  contents_->setObjectName(QStringLiteral("contents"));
  contents_->setAccessibleName(QStringLiteral("目录"));
  contents_->setHeaderHidden(true);
  contents_->setFrameShape(QFrame::NoFrame);
  found_->setObjectName(QStringLiteral("found"));
  found_->setAccessibleName(QStringLiteral("找到的段落"));
  found_->setWordWrap(true);
  found_->setSpacing(besideText / 2);
  found_->setFrameShape(QFrame::NoFrame);
  found_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  left_->addWidget(contents_);
  left_->addWidget(found_);
  auto* halves = new QSplitter(this);
  halves->setChildrenCollapsible(false);
  halves->addWidget(left_);
  halves->addWidget(browser_);
  halves->setStretchFactor(1, 1);
  halves->setSizes({contentsWidth, manualSize.width() - contentsWidth});
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(MakeBar());
  layout->addWidget(halves, 1);
  resize(manualSize.boundedTo(roomFor(*this)));
  browser_->setFocus();
}

QWidget* ManualWindow::MakeBar() {
  auto* bar = new QWidget(this);
  auto* row = new QHBoxLayout(bar);
  constexpr int margin = 8;
  row->setContentsMargins(margin, margin, margin, margin);
  row->setSpacing(margin / 2);
  const auto add = [&](const char* name, const QString& text, const QString& tip, const QList<QKeySequence>& keys,
                       void (ManualWindow::*does)()) {
    auto* button = AddButton(*bar, name, text, tip, keys, does);
    row->addWidget(button);
    return button;
  };
  back_ = add("back", QStringLiteral("← 后退"), QStringLiteral("回到前一处（Alt+←）"), {Qt::ALT | Qt::Key_Left},
              &ManualWindow::GoBack);
  forward_ = add("forward", QStringLiteral("前进 →"), QStringLiteral("再到后一处（Alt+→）"), {Qt::ALT | Qt::Key_Right},
                 &ManualWindow::GoForward);
  add("home", QStringLiteral("目录"), QStringLiteral("到第一页（Alt+Home）"), {Qt::ALT | Qt::Key_Home},
      &ManualWindow::GoHome);
  add("smaller", QStringLiteral("缩小"), QStringLiteral("文字小一些（Ctrl+-）"), {Qt::CTRL | Qt::Key_Minus},
      &ManualWindow::Smaller);
  add("larger", QStringLiteral("放大"), QStringLiteral("文字大一些（Ctrl++）"),
      {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal}, &ManualWindow::Larger);
  add("print", QStringLiteral("打印"), QStringLiteral("打印这一页（Ctrl+P）"), {Qt::CTRL | Qt::Key_P},
      &ManualWindow::Print);
  row->addStretch(1);
  search_->setObjectName(QStringLiteral("search"));
  search_->setPlaceholderText(QStringLiteral("在手册里查找"));
  search_->setAccessibleName(QStringLiteral("在手册里查找"));
  search_->setToolTip(QStringLiteral("几个词用空格隔开（Ctrl+F）"));
  search_->setClearButtonEnabled(true);
  search_->setMaxLength(100);
  search_->setMinimumWidth(contentsWidth);
  row->addWidget(search_);
  const auto key = [this](const QKeySequence& keys, auto does) {
    auto* action = new QAction(this);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, does);
    addAction(action);
  };
  key(Qt::CTRL | Qt::Key_F, &ManualWindow::FocusSearch);
  key(Qt::CTRL | Qt::Key_W, &QWidget::close);
  key(Qt::Key_Escape, &ManualWindow::OnEscape);
  key(Qt::CTRL | Qt::Key_0, &ManualWindow::UsualSize);
  return bar;
}

QToolButton* ManualWindow::AddButton(QWidget& bar, const char* name, const QString& text, const QString& tip,
                                     const QList<QKeySequence>& keys, void (ManualWindow::*does)()) {
  auto* action = new QAction(text, this);
  action->setShortcuts(keys);
  action->setToolTip(tip);
  connect(action, &QAction::triggered, this, does);
  addAction(action);
  auto* button = new QToolButton(&bar);
  button->setObjectName(QLatin1String(name));
  button->setDefaultAction(action);
  button->setAutoRaise(true);
  button->setAccessibleDescription(tip);
  return button;
}

void ManualWindow::FillContents() {
  QTreeWidgetItem* heading = nullptr;
  const auto addTo = [this](QTreeWidgetItem* above, const ManualEntry& entry) {
    auto* item = above == nullptr ? new QTreeWidgetItem(contents_) : new QTreeWidgetItem(above);
    item->setText(0, entry.title);
    item->setToolTip(0, entry.title);
    item->setSizeHint(0, {0, fontMetrics().height() + besideText});
    item->setData(0, Qt::UserRole, entry.page);
    return item;
  };
  for (const ManualEntry& entry : manualContents()) {
    QTreeWidgetItem* item = addTo(entry.page.isEmpty() ? nullptr : heading, entry);
    if (entry.page.isEmpty()) heading = item;
  }
  contents_->expandAll();
}

void ManualWindow::Open(const ManualPlace& wanted) {
  ManualPlace place = wanted;
  if (manualText(place.page).isEmpty()) place = {QStringLiteral("index"), {}};
  visited_[current_].scroll = browser_->verticalScrollBar()->value();
  const bool samePage = place.page == Place().page;
  if (!(place == Place())) {
    visited_.resize(current_ + 1);
    visited_.push_back({place});
    ++current_;
  }
  if (!samePage) SetPage();
  ScrollTo(place.anchor);
  ShowPlace();
}

void ManualWindow::GoTo(std::size_t visit) {
  if (visit >= visited_.size()) return;  // before the first, too
  visited_[current_].scroll = browser_->verticalScrollBar()->value();
  const QString page = Place().page;
  current_ = visit;
  if (page != Place().page) SetPage();
  browser_->verticalScrollBar()->setValue(visited_[current_].scroll);
  ShowPlace();
}

void ManualWindow::SetPage() {
  const int pixels =
      textPixels * textSize() / usualTextSize * zooms.at(static_cast<std::size_t>(zoom_)) / usualTextSize;
  const QPointer<QTextDocument> before = browser_->document();  // the browser deletes the first one itself
  browser_->setDocument(manualDocument(manualText(Place().page), pixels, browser_));
  delete before.data();
  browser_->verticalScrollBar()->setValue(0);
}

void ManualWindow::ScrollTo(const QString& anchor) {
  if (anchor.isEmpty()) {
    browser_->verticalScrollBar()->setValue(0);
  } else {
    browser_->scrollToAnchor(anchor);
  }
}

void ManualWindow::ShowPlace() {
  const QString& page = Place().page;
  QString title = QStringLiteral("使用手册");
  const QSignalBlocker quiet(contents_);
  for (QTreeWidgetItemIterator item(contents_); *item != nullptr; ++item) {
    if ((*item)->data(0, Qt::UserRole).toString() != page) continue;
    contents_->setCurrentItem(*item);
    contents_->scrollToItem(*item);
    title = (*item)->text(0) + QStringLiteral(" — ") + title;
  }
  setWindowTitle(title);
  back_->defaultAction()->setEnabled(current_ > 0);
  forward_->defaultAction()->setEnabled(current_ + 1 < visited_.size());
}

void ManualWindow::StandBeside(QWidget* dialog) {
  if (windowHandle() == nullptr) create();
  windowHandle()->setTransientParent(dialog == nullptr ? nullptr : dialog->window()->windowHandle());
}

void ManualWindow::UsualSize() { SetZoom(usualZoom); }

void ManualWindow::SetZoom(int zoom) {
  const int wanted = std::clamp(zoom, 0, static_cast<int>(zooms.size()) - 1);
  if (wanted == zoom_) return;
  zoom_ = lastZoom() = wanted;
  const QScrollBar& bar = *browser_->verticalScrollBar();
  const double place = bar.maximum() == 0 ? 0 : static_cast<double>(bar.value()) / bar.maximum();
  SetPage();
  browser_->verticalScrollBar()->setValue(static_cast<int>(place * bar.maximum()));
}

void ManualWindow::Print() {
  QPrinter printer(QPrinter::HighResolution);
  QPrintDialog dialog(&printer, this);
  if (dialog.exec() == QDialog::Accepted) browser_->print(&printer);
}

void ManualWindow::FocusSearch() {
  search_->setFocus(Qt::ShortcutFocusReason);
  search_->selectAll();
}

// What was searched for first, then the window.
void ManualWindow::OnEscape() {
  if (search_->text().isEmpty()) {
    close();
  } else {
    search_->clear();
    browser_->setFocus();
  }
}

void ManualWindow::OnLink(const QUrl& link) {
  const ManualPlace place = linkedPlace(Place().page, link.toString());
  place.page.isEmpty() ? static_cast<void>(QDesktopServices::openUrl(link)) : Open(place);
}

void ManualWindow::Search(const QString& words) {
  constexpr std::size_t most = 60;
  hits_ = searchManual(words);
  const auto all = hits_.size();
  hits_.resize(std::min(all, most));
  found_->clear();
  for (const ManualHit& hit : hits_) {
    const QString where = hit.heading == hit.title ? hit.title : hit.title + QStringLiteral(" › ") + hit.heading;
    found_->addItem(hit.words.isEmpty() ? where : where + QLatin1Char('\n') + hit.words);
  }
  const auto tell = [this](const QString& note) {
    found_->addItem(note);
    found_->item(found_->count() - 1)->setFlags(Qt::NoItemFlags);
  };
  if (hits_.empty()) tell(QStringLiteral("手册里没有找到"));
  if (all > most) tell(QStringLiteral("还有 %1 处，再写几个字就能缩小范围").arg(all - most));
  if (!hits_.empty()) found_->setCurrentRow(0);
  left_->setCurrentWidget(words.trimmed().isEmpty() ? static_cast<QWidget*>(contents_) : found_);
}

void ManualWindow::OpenHit() {
  const auto row = static_cast<std::size_t>(found_->currentRow());
  if (left_->currentWidget() == found_ && row < hits_.size()) Open(hits_[row].place);
}

void ManualWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  const bool looks = event->type() == QEvent::PaletteChange || event->type() == QEvent::ApplicationFontChange ||
                     event->type() == QEvent::FontChange;
  if (!looks || visited_.empty()) return;
  const int scroll = browser_->verticalScrollBar()->value();
  SetPage();
  browser_->verticalScrollBar()->setValue(scroll);
}

}  // namespace tz
