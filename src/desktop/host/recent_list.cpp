#include "desktop/host/recent_list.h"

#include <QContextMenuEvent>
#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QStyledItemDelegate>

#include "core/data/connection.h"
#include "desktop/host/open_ledger.h"
#include "desktop/host/settings.h"
#include "desktop/theme/qt_text.h"
#include "desktop/theme/theme.h"

namespace tz {
namespace {

constexpr int addressRole = Qt::UserRole;
constexpr int nameRole = Qt::UserRole + 1;
constexpr int yearRole = Qt::UserRole + 2;
constexpr int missingRole = Qt::UserRole + 3;
constexpr int entryMargin = 10;

QString placeOf(const QString& address) {
  return isServerAddress(fromQt(address)) ? address : QDir::toNativeSeparators(address);
}

QFont smaller(QFont font) {
  constexpr double share = 0.88;
  font.setPixelSize(qRound(QFontInfo(font).pixelSize() * share));
  return font;
}

class RecentDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyleOptionViewItem ground = option;
    initStyleOption(&ground, index);
    ground.text.clear();
    ground.widget->style()->drawControl(QStyle::CE_ItemViewItem, &ground, painter, ground.widget);
    const bool missing = index.data(missingRole).toBool();
    const bool chosen = ground.state.testFlag(QStyle::State_Selected);
    const Theme& theme = currentTheme();
    const QColor strong = chosen ? theme.onAccent : missing ? theme.mutedText : theme.text;
    const QColor muted = chosen ? theme.onAccent : theme.mutedText;
    QRect line = option.rect.adjusted(entryMargin, entryMargin / 2, -entryMargin, 0);
    line.setHeight(option.fontMetrics.height());

    QFont name = option.font;
    name.setWeight(QFont::DemiBold);
    const QString year = index.data(yearRole).toString();
    painter->save();
    painter->setFont(smaller(option.font));
    painter->setPen(muted);
    painter->drawText(line, Qt::AlignRight | Qt::AlignVCenter, year);
    const int room = line.width() - painter->fontMetrics().horizontalAdvance(year) - entryMargin;
    painter->setFont(name);
    painter->setPen(strong);
    painter->drawText(line, Qt::AlignLeft | Qt::AlignVCenter,
                      painter->fontMetrics().elidedText(index.data(nameRole).toString(), Qt::ElideRight, room));
    line.translate(0, line.height() + 2);
    painter->setFont(smaller(option.font));
    if (missing) {
      const QString words = QStringLiteral("找不到文件　");
      painter->setPen(chosen ? theme.onAccent : theme.negative);
      painter->drawText(line, Qt::AlignLeft | Qt::AlignVCenter, words);
      line.setLeft(line.left() + painter->fontMetrics().horizontalAdvance(words));
    }
    painter->setPen(muted);
    const QString place = placeOf(index.data(addressRole).toString());
    painter->drawText(line, Qt::AlignLeft | Qt::AlignVCenter,
                      painter->fontMetrics().elidedText(place, Qt::ElideMiddle, line.width()));
    painter->restore();
  }

  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const override {
    return {0, 2 * option.fontMetrics.height() + entryMargin + 2};
  }
};

}  // namespace

RecentList::RecentList(HostSettings& settings, QWidget* parent) : QListWidget(parent), settings_(settings) {
  setObjectName(QStringLiteral("recent"));
  setAccessibleName(QStringLiteral("最近的帐套"));
  setItemDelegate(new RecentDelegate(this));
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollMode(ScrollPerPixel);
  connect(this, &QListWidget::itemDoubleClicked, this, &RecentList::openWanted);
  Fill();
}

void RecentList::Fill() {
  const int row = std::max(currentRow(), 0);
  clear();
  for (const QString& address : settings_.RecentLedgers()) {
    const LedgerTitle title = settings_.TitleOf(address);
    const bool server = isServerAddress(fromQt(address));
    const bool missing = !server && !QFileInfo::exists(address);
    const QString name = !title.name.isEmpty() ? title.name
                         : server              ? address.section(QLatin1Char('/'), -1)
                                               : QFileInfo(address).completeBaseName();
    const QString year = title.year == 0 ? QString() : QStringLiteral("%1 年度").arg(title.year);
    QStringList told = {name, year, missing ? QStringLiteral("找不到文件") : QString(), placeOf(address)};
    told.removeAll(QString());
    auto* item = new QListWidgetItem(this);
    item->setData(addressRole, address);
    item->setData(nameRole, name.simplified());
    item->setData(yearRole, year);
    item->setData(missingRole, missing);
    item->setData(Qt::AccessibleTextRole, told.join(QStringLiteral("，")));
    item->setToolTip(placeOf(address).toHtmlEscaped());
  }
  setCurrentRow(std::min(row, count() - 1));
  emit changed();
}

QString RecentList::Address() const {
  const QListWidgetItem* item = currentItem();
  return item == nullptr ? QString() : item->data(addressRole).toString();
}

void RecentList::Forget() {
  if (currentItem() == nullptr) return;
  settings_.ForgetLedger(Address());
  Fill();
}

void RecentList::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Delete && currentItem() != nullptr) {
    Forget();
    return;
  }
  QListWidget::keyPressEvent(event);
}

void RecentList::contextMenuEvent(QContextMenuEvent* event) {
  const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
  const QListWidgetItem* item = byKey ? currentItem() : itemAt(viewport()->mapFromGlobal(event->globalPos()));
  if (item == nullptr) return;
  setCurrentRow(row(item));
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->addAction(QStringLiteral("打开(&O)"), this, &RecentList::openWanted);
  menu->addAction(QStringLiteral("从列表中移除(&R)\tDel"), this, &RecentList::Forget);
  menu->popup(byKey ? viewport()->mapToGlobal(visualItemRect(item).center()) : event->globalPos());
}

void RecentList::changeEvent(QEvent* event) {
  QListWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) doItemsLayout();
}

void RecentList::paintEvent(QPaintEvent* event) {
  QListWidget::paintEvent(event);
  if (count() > 0) return;
  QPainter painter(viewport());
  painter.setPen(currentTheme().mutedText);
  painter.drawText(viewport()->rect().adjusted(entryMargin, entryMargin, -entryMargin, -entryMargin),
                   Qt::AlignCenter | Qt::TextWordWrap, QStringLiteral("还没有打开过帐套。\n可以先看一看示例单位。"));
}

}  // namespace tz
