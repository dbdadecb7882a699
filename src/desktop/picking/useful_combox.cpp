#include "desktop/picking/useful_combox.h"

#include <QAbstractListModel>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <algorithm>

#include "desktop/picking/search_popup.h"
#include "desktop/theme/qt_text.h"

namespace tz {

SearchEntry entryOf(const ComboEntry& entry) {
  const QString text = toQt(entry.text);
  if (!entry.beside.empty()) {
    const QString code = toQt(entry.beside);
    return {code, text.startsWith(code + u' ') ? text.mid(code.size() + 1) : text, entry.datum};
  }
  const auto isCodeSign = [](QChar sign) { return sign.unicode() < 0x80 && sign.isLetterOrNumber(); };
  const auto end = std::ranges::find_if_not(text, isCodeSign);
  const auto length = end - text.begin();
  if (length == 0 || end == text.end() || (*end != u' ' && *end != u'\t')) return {{}, text, entry.datum};
  return {text.left(length), text.mid(length + 1), entry.datum};
}

// The entries of a combo, however many, without an object for each.
class ComboEntries : public QAbstractListModel {
 public:
  using QAbstractListModel::QAbstractListModel;

  void Set(const ComboList& list) {
    beginResetModel();
    list_ = list;
    endResetModel();
  }
  [[nodiscard]] const ComboList& List() const { return list_; }
  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(list_.size());
  }
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
    if (!index.isValid()) return {};
    const ComboEntry& entry = list_[static_cast<std::size_t>(index.row())];
    if (role == Qt::DisplayRole || role == Qt::EditRole) return toQt(entry.text);
    return role == Qt::UserRole ? QVariant::fromValue<qlonglong>(entry.datum) : QVariant();
  }

 private:
  ComboList list_;
};

CUsefulCombox::CUsefulCombox(QWidget* parent, Leaving leaving)
    : QComboBox(parent),
      entries_(new ComboEntries(this)),
      found_(new FoundTexts(
          [this](std::size_t place) {
            const ComboEntry& entry = entries_->List()[place];
            const bool hasCode = entry.beside.empty() || entry.text.starts_with(entry.beside + " ");
            return toQt(hasCode ? entry.text : entry.beside + " " + entry.text);
          },
          this)),
      popup_(new SearchPopup(*found_, *this)),
      leaving_(leaving) {
  setModel(entries_);
  setEditable(true);
  setInsertPolicy(NoInsert);
  setCompleter(nullptr);
  setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
  setMaxVisibleItems(SearchPopup::rowsAtOnce);
  setFocusPolicy(Qt::StrongFocus);
  if (auto* rows = qobject_cast<QListView*>(view())) rows->setUniformItemSizes(true);
  view()->installEventFilter(this);
  connect(lineEdit(), &QLineEdit::textEdited, this, &CUsefulCombox::Search);
  connect(popup_, &SearchPopup::taken, this, [this](std::size_t place) { Choose(static_cast<int>(place)); });
  connect(popup_, &SearchPopup::clicked, this, &CUsefulCombox::clicked);
  connect(popup_, &SearchPopup::escaped, this, &CUsefulCombox::OnEscape);
  connect(this, &QComboBox::activated, this, &CUsefulCombox::OnActivated);
}

void CUsefulCombox::Fill(const ComboList& list) {
  const QSignalBlocker quiet(this);
  popup_->Close();
  entries_->Set(list);
  yearPart_.clear();
  readyToFind_ = false;
  SelectIndex(-1);
}

const ComboList& CUsefulCombox::Entries() const { return entries_->List(); }

void CUsefulCombox::FillMonths(int year) {
  Fill(CInitComboFun::InitMonthCombox(year));
  yearPart_ = QStringLiteral("%1.").arg(year);
}

void CUsefulCombox::ReadyToFind() {
  if (readyToFind_) return;
  readyToFind_ = true;
  std::vector<SearchEntry> entries;
  entries.reserve(entries_->List().size());
  for (const auto& entry : entries_->List()) {
    entries.push_back(yearPart_.isEmpty() ? entryOf(entry)
                                          : SearchEntry{QString::number(entry.datum), {}, entry.datum});
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
  ReadyToFind();
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
  // An emptied combo asks for nothing: the list would stand in the way of the next field.
  if (typed.trimmed().isEmpty()) {
    SetMiss(false);
    return popup_->Close();
  }
  ReadyToFind();
  int best = found_->Search(Meant(typed));
  const bool begins = best < 0 && BeginsMonth(typed);
  if (begins) best = found_->Search({});
  SetMiss(best < 0);
  if (best < 0) return popup_->Close();
  popup_->Open(begins ? -1 : best);
}

void CUsefulCombox::Choose(int index) {
  const bool isOther = index != chosen_;
  SelectIndex(index);
  SelectText();
  if (isOther) emit entryChanged();
}

void CUsefulCombox::ShowChosen() {
  lineEdit()->setText(itemText(currentIndex()));
  lineEdit()->setCursorPosition(0);
  SetMiss(false);
}

// From the end to the beginning, which is what a narrow combo then shows; only where one types.
void CUsefulCombox::SelectText() {
  const auto length = static_cast<int>(lineEdit()->text().size());
  if (hasFocus()) lineEdit()->setSelection(length, -length);
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

void CUsefulCombox::showPopup() {
  listIsOpen_ = true;
  QComboBox::showPopup();
}

// What is chosen in the list comes after the list has closed.
bool CUsefulCombox::eventFilter(QObject* watched, QEvent* event) {
  if (watched == view() && event->type() == QEvent::Hide) {
    QMetaObject::invokeMethod(
        this, [this] { listIsOpen_ = view()->isVisible(); }, Qt::QueuedConnection);
  }
  return QComboBox::eventFilter(watched, event);
}

void CUsefulCombox::OnActivated(int index) {
  Choose(index);
  if (std::exchange(listIsOpen_, false)) emit clicked();
}

void CUsefulCombox::keyPressEvent(QKeyEvent* event) {
  const bool taken = isEnterKey(event->key()) ? OnEnter() : event->key() == Qt::Key_Escape ? OnEscape() : false;
  if (taken) return event->accept();
  if (!isEnterKey(event->key())) return QComboBox::keyPressEvent(event);
  event->ignore();  // it is the window's
}

// A dialog goes on from text that stands for nothing, and refuses it in the end; elsewhere it stays to be mended.
bool CUsefulCombox::OnEnter() {
  if (popup_->IsOpen() && popup_->TakeMarked()) return false;
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
  SelectText();
  return true;
}

void CUsefulCombox::focusInEvent(QFocusEvent* event) {
  QComboBox::focusInEvent(event);
  if (lineEdit()->selectedText().size() == lineEdit()->text().size()) SelectText();
}

void CUsefulCombox::focusOutEvent(QFocusEvent* event) {
  QComboBox::focusOutEvent(event);
  if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason) return;
  Settle();
  lineEdit()->setCursorPosition(0);
}

bool CUsefulCombox::IsBeingTyped() const { return lineEdit()->text() != itemText(currentIndex()); }

void CUsefulCombox::SetMiss(bool miss) { lineEdit()->setPalette(fieldColours(miss)); }

}  // namespace tz
