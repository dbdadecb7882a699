#include "desktop/picking/useful_combox.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>
#include <algorithm>

#include "desktop/picking/search_model.h"
#include "desktop/theme/qt_text.h"
#include "desktop/theme/theme.h"

namespace tz {
namespace {

constexpr int rowsAtOnce = 14;
constexpr int listRowPixels = 24;

// "122101 职工借款" and "122101<tab>职工借款" are a code and a name, any other text is a name.
SearchEntry entryOf(const ComboEntry& entry) {
  const QString text = toQt(entry.text);
  const auto isCodeSign = [](QChar sign) { return sign.unicode() < 0x80 && sign.isLetterOrNumber(); };
  const auto end = std::ranges::find_if_not(text, isCodeSign);
  const auto length = end - text.begin();
  if (length == 0 || end == text.end() || (*end != u' ' && *end != u'\t')) return {{}, text, entry.datum};
  return {text.left(length), text.mid(length + 1), entry.datum};
}

// Shows the texts as the combo box holds them.
class FoundTexts : public SearchModel {
 public:
  explicit FoundTexts(QComboBox* combo) : SearchModel(combo), combo_(combo) {}
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
    if (role == Qt::SizeHintRole) return QSize(0, listRowPixels);
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::EditRole)) return {};
    return combo_->itemText(static_cast<int>(PlaceOf(index.row())));
  }

 private:
  QComboBox* combo_;
};

bool isEnter(int key) { return key == Qt::Key_Return || key == Qt::Key_Enter; }

}  // namespace

CUsefulCombox::CUsefulCombox(QWidget* parent, Leaving leaving)
    : QComboBox(parent), found_(new FoundTexts(this)), popup_(new QCompleter(found_, this)), leaving_(leaving) {
  setEditable(true);
  setInsertPolicy(NoInsert);
  setCompleter(nullptr);
  setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
  setMaxVisibleItems(rowsAtOnce);
  setFocusPolicy(Qt::StrongFocus);
  popup_->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
  popup_->setMaxVisibleItems(rowsAtOnce);
  popup_->setWidget(this);
  popup_->popup()->installEventFilter(this);
  popup_->popup()->setTextElideMode(Qt::ElideRight);
  connect(lineEdit(), &QLineEdit::textEdited, this, &CUsefulCombox::Search);
  connect(popup_, qOverload<const QModelIndex&>(&QCompleter::activated), this,
          [this](const QModelIndex& index) { Choose(static_cast<int>(found_->PlaceOf(index.row()))); });
  connect(this, &QComboBox::activated, this, &CUsefulCombox::Choose);
}

void CUsefulCombox::Fill(const ComboList& list) {
  const QSignalBlocker quiet(this);
  clear();
  yearPart_.clear();
  std::vector<SearchEntry> entries;
  entries.reserve(list.size());
  for (const auto& entry : list) {
    addItem(toQt(entry.text), QVariant::fromValue<qlonglong>(entry.datum));
    entries.push_back(entryOf(entry));
  }
  found_->SetEntries(std::move(entries));
  SelectIndex(-1);
}

void CUsefulCombox::FillMonths(int year) {
  const auto months = CInitComboFun::InitMonthCombox(year);
  Fill(months);
  yearPart_ = QStringLiteral("%1.").arg(year);
  std::vector<SearchEntry> entries;
  for (const auto& month : months) {
    entries.push_back({QString::number(month.datum), {}, month.datum});
  }
  found_->SetEntries(std::move(entries));
}

void CUsefulCombox::SelectIndex(int index) {
  const QSignalBlocker quiet(this);
  setCurrentIndex(index);
  chosen_ = currentIndex();
  ShowChosen();
}

void CUsefulCombox::SelectDatum(Id datum) { SelectIndex(findData(QVariant::fromValue<qlonglong>(datum))); }

void CUsefulCombox::ShowUnknown(const QString& text) {
  SelectIndex(-1);
  lineEdit()->setText(text);
  lineEdit()->setCursorPosition(0);
  SetMiss(true);
}

std::string CUsefulCombox::CurrentText() const { return fromQt(itemText(currentIndex())); }

std::string CUsefulCombox::UnknownText() const {
  return IsBeingTyped() ? fromQt(lineEdit()->text().trimmed()) : std::string();
}

QString CUsefulCombox::Meant(const QString& typed) const {
  QString text = typed.trimmed();
  if (yearPart_.isEmpty()) return text;
  if (text.startsWith(yearPart_)) text.remove(0, yearPart_.size());
  if (text.size() > 1 && text.startsWith(u'0')) text.remove(0, 1);
  return text;
}

bool CUsefulCombox::BeginsMonth(const QString& typed) const {
  const QString text = typed.trimmed();
  return !yearPart_.isEmpty() && (text == u"0" || (yearPart_ + u'0').startsWith(text));
}

int CUsefulCombox::OnlyMeaning(const QString& typed) {
  if (const int whole = findText(typed.trimmed(), Qt::MatchExactly); whole >= 0) return whole;
  const QString text = Meant(typed);
  const int best = found_->Search(text);
  if (best < 0) return -1;
  const auto isWhole = [&](int row) {
    const SearchEntry& entry = found_->EntryAt(row);
    return entry.code == text || entry.name == text;
  };
  int wholes = 0;
  for (int row = 0; row < found_->rowCount(); ++row) wholes += isWhole(row) ? 1 : 0;
  const bool alone = wholes == 1 ? isWhole(best) : wholes == 0 && found_->rowCount() == 1;
  return alone ? static_cast<int>(found_->PlaceOf(best)) : -1;
}

void CUsefulCombox::Search(const QString& typed) {
  int best = found_->Search(Meant(typed));
  const bool begins = best < 0 && BeginsMonth(typed);
  if (begins) best = found_->Search({});
  SetMiss(best < 0);
  if (best < 0) {
    popup_->popup()->hide();
    return;
  }
  popup_->complete();
  // The row is only marked: the line keeps what is being typed.
  const QSignalBlocker quiet(popup_);
  const bool marked = !begins && !typed.trimmed().isEmpty();
  popup_->popup()->setCurrentIndex(marked ? popup_->completionModel()->index(best, 0) : QModelIndex());
}

void CUsefulCombox::Choose(int index) {
  const bool isOther = index != chosen_;
  SelectIndex(index);
  lineEdit()->selectAll();
  if (isOther) emit entryChanged();
}

void CUsefulCombox::ShowChosen() {
  lineEdit()->setText(itemText(currentIndex()));
  lineEdit()->setCursorPosition(0);
  SetMiss(false);
}

void CUsefulCombox::Settle() {
  if (!IsBeingTyped()) return;
  const QString typed = lineEdit()->text().trimmed();
  if (leaving_ == Leaving::restores) {
    ShowChosen();
    if (!typed.isEmpty()) emit givenUp(typed);
    return;
  }
  const int meant = typed.isEmpty() ? -1 : OnlyMeaning(typed);
  if (meant >= 0 || typed.isEmpty()) return Choose(meant);
  SetMiss(true);
}

bool CUsefulCombox::eventFilter(QObject* watched, QEvent* event) {
  if (watched == popup_->popup() && event->type() == QEvent::KeyPress) {
    if (OnKeyInPopup(static_cast<QKeyEvent*>(event)->key())) return true;
  }
  return QComboBox::eventFilter(watched, event);
}

bool CUsefulCombox::OnKeyInPopup(int key) {
  if (!isEnter(key) && key != Qt::Key_Tab && key != Qt::Key_Escape) return false;
  const QModelIndex current = popup_->popup()->currentIndex();
  popup_->popup()->hide();
  if (key == Qt::Key_Escape) {
    OnEscape();
    return true;
  }
  if (current.isValid()) Choose(static_cast<int>(found_->PlaceOf(current.row())));
  // The same key then means to the window what it means in any other field.
  QKeyEvent again(QEvent::KeyPress, key, Qt::NoModifier);
  QApplication::sendEvent(this, &again);
  return true;
}

void CUsefulCombox::keyPressEvent(QKeyEvent* event) {
  const bool taken = isEnter(event->key()) ? OnEnter() : event->key() == Qt::Key_Escape ? OnEscape() : false;
  if (taken) return event->accept();
  if (!isEnter(event->key())) return QComboBox::keyPressEvent(event);
  event->ignore();  // it is the window's
}

// A dialog goes on from text that stands for nothing, and refuses it in the end; elsewhere it stays to be mended.
bool CUsefulCombox::OnEnter() {
  if (!IsBeingTyped()) return false;
  if (leaving_ == Leaving::keeps) {
    Settle();
    return false;
  }
  const QString typed = lineEdit()->text().trimmed();
  if (typed.isEmpty()) return OnEscape();
  if (const int meant = OnlyMeaning(typed); meant >= 0) {
    Choose(meant);
    return false;
  }
  Search(typed);  // opens the pop-up where there is something to choose from
  if (found_->rowCount() == 0) emit notFound(typed);
  lineEdit()->selectAll();
  return true;
}

bool CUsefulCombox::OnEscape() {
  if (!IsBeingTyped()) return false;
  ShowChosen();
  lineEdit()->selectAll();
  return true;
}

void CUsefulCombox::focusOutEvent(QFocusEvent* event) {
  QComboBox::focusOutEvent(event);
  if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason) Settle();
}

bool CUsefulCombox::IsBeingTyped() const { return lineEdit()->text() != itemText(currentIndex()); }

void CUsefulCombox::SetMiss(bool miss) {
  QPalette colours;
  if (miss) colours.setColor(QPalette::Text, currentTheme().negative);
  lineEdit()->setPalette(colours);
}

// Rolling over a dialog must not change its conditions.
void CUsefulCombox::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) {
    QComboBox::wheelEvent(event);
  } else {
    event->ignore();
  }
}

}  // namespace tz
