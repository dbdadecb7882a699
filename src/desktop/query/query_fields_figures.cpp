// Conditions that are typed: the two ends of a range of amounts, a date.
#include <QCalendarWidget>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QShortcut>
#include <QTextCharFormat>
#include <QToolButton>
#include <QVBoxLayout>

#include "desktop/query/query_field_parts.h"
#include "desktop/theme/picture_icon.h"
#include "desktop/theme/qt_text.h"
#include "desktop/theme/theme.h"

namespace tz {
namespace {

class AmountRangeField : public QueryField {
 public:
  AmountRangeField(const ControlSpec& spec, QWidget* dialog)
      : QueryField(spec), row_(new QWidget(dialog)), lower_(MadeEdit(spec.id)), upper_(MadeEdit(spec.companion)) {
    lower_->setAccessibleName(toQt(spec.caption) + QStringLiteral("下限"));
    upper_->setAccessibleName(toQt(spec.caption) + QStringLiteral("上限"));
    auto* layout = rowLayout(row_);
    layout->addWidget(lower_, 1);
    layout->addWidget(new QLabel(QStringLiteral("至"), row_));
    layout->addWidget(upper_, 1);
  }
  QWidget* Row() override { return row_; }
  std::vector<QWidget*> Stops() override { return {lower_, upper_}; }
  void Show(const Request& request) override {
    lower_->setText(toQt(request.text(ParameterKey::minimum)));
    upper_->setText(toQt(request.text(ParameterKey::maximum)));
  }
  void Take(Request& request) const override {
    setText(request, ParameterKey::minimum, fromQt(lower_->text()));
    setText(request, ParameterKey::maximum, fromQt(upper_->text()));
  }

 private:
  QLineEdit* MadeEdit(int id) {
    static const QRegularExpression number(QStringLiteral("-?[0-9]{0,13}(\\.[0-9]{0,4})?"));
    auto* edit = madeControl<QLineEdit>(id, row_);
    edit->setAlignment(Qt::AlignRight);
    edit->setValidator(new QRegularExpressionValidator(number, edit));
    return edit;
  }
  QWidget* row_;
  QLineEdit* lower_;
  QLineEdit* upper_;
};

// A date to type, or to pick from a calendar; the day of logon unless something else is asked for.
class DateField : public QueryField {
 public:
  DateField(const ControlSpec& spec, QWidget* dialog)
      : QueryField(spec), row_(new QWidget(dialog)), edit_(madeControl<QLineEdit>(spec.id, row_)) {
    edit_->setAccessibleName(toQt(spec.caption));
    edit_->setPlaceholderText(QStringLiteral("YYYY-MM-DD"));
    auto* pick = madeControl<QToolButton>(spec.companion, row_);
    constexpr int calendarPicture = 1357;
    pick->setIcon(pictureIcon(calendarPicture));
    pick->setToolTip(QStringLiteral("选择日期 (F2)"));
    pick->setAccessibleName(QStringLiteral("选择日期"));
    pick->setFocusPolicy(Qt::TabFocus);
    auto* layout = rowLayout(row_);
    layout->setSpacing(4);
    layout->addWidget(edit_, 1);
    layout->addWidget(pick);
    connect(pick, &QToolButton::clicked, this, &DateField::OpenCalendar);
    auto* key = new QShortcut(Qt::Key_F2, edit_, nullptr, nullptr, Qt::WidgetShortcut);
    connect(key, &QShortcut::activated, this, &DateField::OpenCalendar);
  }
  QWidget* Row() override { return row_; }
  std::vector<QWidget*> Stops() override { return {edit_}; }
  void Fill(const DialogSpec& /*dialog*/, Session& session) override {
    const auto& [year, month, day] = session.logon;
    logon_ = QDate(year, month, day);
  }
  void Show(const Request& request) override {
    const QString text = toQt(request.text(Spec().key));
    edit_->setText(text.isEmpty() ? logon_.toString(Qt::ISODate) : text);
  }
  void Take(Request& request) const override { setText(request, Spec().key, fromQt(edit_->text().trimmed())); }

 private:
  // In Chinese and in the theme's colours.
  [[nodiscard]] QCalendarWidget* MadeCalendar(QWidget* popup) const {
    auto* calendar = new QCalendarWidget(popup);
    calendar->setObjectName(QStringLiteral("calendar"));
    calendar->setAccessibleName(toQt(Spec().caption));
    calendar->setLocale(QLocale(QLocale::Chinese, QLocale::China));
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    QTextCharFormat plain;
    plain.setForeground(currentTheme().text);
    calendar->setWeekdayTextFormat(Qt::Saturday, plain);
    calendar->setWeekdayTextFormat(Qt::Sunday, plain);
    calendar->findChild<QToolButton*>(QStringLiteral("qt_calendar_prevmonth"))->setArrowType(Qt::LeftArrow);
    calendar->findChild<QToolButton*>(QStringLiteral("qt_calendar_nextmonth"))->setArrowType(Qt::RightArrow);
    CalmBar(*calendar->findChild<QWidget*>(QStringLiteral("qt_calendar_navigationbar")));
    return calendar;
  }
  // Month and year on the colour of heads: only the chosen day stands out.
  static void CalmBar(QWidget& bar) {
    QPalette colours = bar.palette();
    colours.setColor(QPalette::Highlight, currentTheme().header);
    colours.setColor(QPalette::HighlightedText, currentTheme().text);
    bar.setPalette(colours);
    for (auto* button : bar.findChildren<QToolButton*>()) button->setPalette(colours);
  }
  void OpenCalendar() {
    auto* popup = new QFrame(edit_, Qt::Popup);
    popup->setAttribute(Qt::WA_DeleteOnClose);
    popup->setFrameShape(QFrame::StyledPanel);
    auto* calendar = MadeCalendar(popup);
    const QDate typed = QDate::fromString(edit_->text().trimmed(), Qt::ISODate);
    calendar->setSelectedDate(typed.isValid() ? typed : logon_);
    auto* layout = new QVBoxLayout(popup);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->addWidget(calendar);
    const auto choose = [this, popup](QDate date) {
      edit_->setText(date.toString(Qt::ISODate));
      popup->close();
      edit_->setFocus(Qt::PopupFocusReason);
    };
    connect(calendar, &QCalendarWidget::clicked, this, choose);
    connect(calendar, &QCalendarWidget::activated, this, choose);
    popup->move(edit_->mapToGlobal(QPoint(0, edit_->height() + 2)));
    popup->show();
    calendar->setFocus(Qt::PopupFocusReason);
  }

  QWidget* row_;
  QLineEdit* edit_;
  QDate logon_;
};

}  // namespace

std::unique_ptr<QueryField> makeFigureField(const ControlSpec& spec, QWidget* dialog) {
  switch (spec.kind) {
    case ControlSpec::Kind::amountRange:
      return std::make_unique<AmountRangeField>(spec, dialog);
    case ControlSpec::Kind::date:
      return std::make_unique<DateField>(spec, dialog);
    default:
      return nullptr;
  }
}

}  // namespace tz
