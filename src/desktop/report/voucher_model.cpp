#include "desktop/report/voucher_model.h"

#include <algorithm>

#include "core/grid/figures.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

// Without what would break a line of text.
QString shown(const std::string& text) { return toQt(text).simplified(); }

QString joined(const std::vector<VoucherDetail>& details) {
  QStringList texts;
  for (const auto& [caption, text] : details) texts += toQt(caption) + u'：' + shown(text);
  return texts.join(QStringLiteral("　"));
}

QString figureOf(double amount) { return amount == 0 ? QString() : toQt(figureText(amount, ColumnKind::amount)); }

}  // namespace

void VoucherModel::Show(const Voucher* voucher) {
  beginResetModel();
  voucher_ = voucher;
  endResetModel();
}

int VoucherModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() || voucher_ == nullptr ? 0 : static_cast<int>(voucher_->lines.size());
}

int VoucherModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : columns; }

double VoucherModel::Amount(const QModelIndex& index) const {
  const auto& line = voucher_->lines[static_cast<std::size_t>(index.row())];
  return index.column() == debit ? line.debit() : index.column() == credit ? line.credit() : 0;
}

QStringList VoucherModel::Texts(const QModelIndex& index) const {
  const auto& line = voucher_->lines[static_cast<std::size_t>(index.row())];
  if (index.column() == summary) return {shown(line.entry.sDigest)};
  if (index.column() != account) return {figureOf(Amount(index))};
  QStringList texts{shown(line.accountText())};
  for (const auto& details : {membersOf(line), figuresOf(line), remarksOf(line)}) {
    if (!details.empty()) texts += joined(details);
  }
  return texts;
}

QVariant VoucherModel::data(const QModelIndex& index, int role) const {
  if (voucher_ == nullptr || !index.isValid()) return {};
  if (role == Qt::DisplayRole) return Texts(index).join(u'\n');
  if (role == Qt::AccessibleTextRole) {
    const QString text = Texts(index).join(u'，');
    return text.isEmpty() ? text : headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString() + u' ' + text;
  }
  return {};
}

QVariant VoucherModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
  switch (section) {
    case summary:
      return QStringLiteral("摘要");
    case account:
      return QStringLiteral("科目");
    case debit:
      return QStringLiteral("借方金额");
    default:
      return QStringLiteral("贷方金额");
  }
}

QString VoucherModel::LineText(int row) const {
  QStringList cells;
  for (int column = 0; column < columns; ++column) cells += Texts(index(row, column)).join(u'　');
  return cells.join(u'\t');
}

int VoucherModel::RowOf(Id line) const {
  const auto found = std::ranges::find(voucher_->lines, line, [](const VoucherLine& one) { return one.entry.lId; });
  return found == voucher_->lines.end() ? -1 : static_cast<int>(found - voucher_->lines.begin());
}

}  // namespace tz
