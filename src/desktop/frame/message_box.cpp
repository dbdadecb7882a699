#include "desktop/frame/message_box.h"

#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <algorithm>
#include <utility>

#include "core/reports/explain_error.h"
#include "desktop/frame/manual_page.h"
#include "desktop/theme/fonts.h"
#include "desktop/theme/qt_text.h"
#include "desktop/theme/theme.h"

namespace tz {
namespace {

MessageHandler& handler() {
  static MessageHandler current;
  return current;
}

QString signOfIcon(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::warning:
      return QStringLiteral("!");
    case MessageIcon::question:
      return QStringLiteral("?");
    default:
      return QStringLiteral("i");
  }
}

// The usual answers can be given by a key.
QString answerText(const std::string& answer) {
  if (answer == "是") return QStringLiteral("是(&Y)");
  if (answer == "否") return QStringLiteral("否(&N)");
  return toQt(answer);
}

// A disc with its sign, in the theme's colours.
QPixmap iconOf(const ShownMessage& message, double scale) {
  constexpr int size = 36;
  QPixmap picture(QSize(size, size) * scale);
  picture.setDevicePixelRatio(scale);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(message.icon == MessageIcon::warning ? currentTheme().negative : currentTheme().accent);
  painter.drawEllipse(QRectF(0, 0, size, size));
  painter.setPen(currentTheme().onAccent);
  painter.setFont(uiFont(size * 2 / 3, QFont::Bold));
  painter.drawText(QRectF(0, 0, size, size), Qt::AlignCenter, signOfIcon(message.icon));
  return picture;
}

// A message of one line stays on one line; a longer one is broken at a width that reads well.
void setTextWidth(QMessageBox& box) {
  constexpr int narrowest = 200;
  constexpr int widest = 420;
  auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
  if (label == nullptr) return;
  label->setMinimumWidth(
      std::clamp(label->fontMetrics().boundingRect({}, 0, box.text()).width() + 1, narrowest, widest));
}

// What a report says stands on its page.
QString pageOfMessages(const QWidget* parent) {
  const QString page = manualPageOf(parent).section(QLatin1Char('#'), 0, 0);
  return page.startsWith(QStringLiteral("reports/")) ? page + QStringLiteral("#提示与拒绝")
                                                     : QStringLiteral("messages");
}

bool showBox(QWidget* parent, const ShownMessage& message) {
  QMessageBox box(QMessageBox::NoIcon, toQt(message.caption), toQt(message.text), QMessageBox::NoButton, parent);
  setManualPage(box, pageOfMessages(parent));
  box.setIconPixmap(iconOf(message, box.devicePixelRatioF()));
  // Names from a ledger may look like markup.
  box.setTextFormat(Qt::PlainText);
  setTextWidth(box);
  QPushButton* yes = box.addButton(answerText(message.yes), QMessageBox::AcceptRole);
  box.setDefaultButton(yes);
  if (!message.detail.empty()) box.setDetailedText(toQt(message.detail));
  if (message.asks()) {
    QPushButton* no = box.addButton(answerText(message.no), QMessageBox::RejectRole);
    box.setEscapeButton(no);
    if (message.defaultsToNo) box.setDefaultButton(no);
  }
  constexpr int margin = 20;
  box.layout()->setContentsMargins(margin, margin, margin, margin);
  box.exec();
  return box.clickedButton() == yes;
}

std::string captionOr(std::string_view caption) { return std::string(caption.empty() ? programCaption : caption); }

bool answered(QWidget* parent, const ShownMessage& message) {
  return handler() ? handler()(message) : showBox(parent, message);
}

}  // namespace

void AfxMessageBox(QWidget* parent, std::string_view text, std::string_view caption, MessageIcon icon) {
  answered(parent, {std::string(text), captionOr(caption), icon});
}

bool AfxMessageBox(QWidget* parent, const Question& question) {
  return answered(parent, {.text = question.text,
                           .caption = captionOr(question.caption),
                           .icon = question.icon,
                           .yes = std::string(question.yes),
                           .no = std::string(question.no),
                           .defaultsToNo = question.defaultsToNo});
}

void AfxMessageBox(QWidget* parent, const Refusal& refusal) {
  ShownMessage message{refusal.text, captionOr(refusal.caption), refusal.icon};
  if (refusal.failure) {
    message.text += "\n\n" + explainInWindow(*refusal.failure);
    message.detail = refusal.failure->what();
    message.icon = MessageIcon::warning;
  }
  answered(parent, message);
}

void AfxMessageBox(QWidget* parent, const DbError& error) {
  answered(parent, {.text = explainInWindow(error),
                    .caption = captionOr({}),
                    .icon = MessageIcon::warning,
                    .detail = wordsOf(error)});
}

MessageHandler setMessageHandler(MessageHandler replacement) {
  return std::exchange(handler(), std::move(replacement));
}

}  // namespace tz
