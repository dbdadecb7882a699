#include "suite/message_box.h"

#include <QMessageBox>
#include <QPushButton>
#include <utility>

#include "suite/qt_text.h"

namespace tz {
namespace {

MessageHandler& handler() {
  static MessageHandler current;
  return current;
}

QMessageBox::Icon iconOf(const Message& message) {
  if (message.buttons == MessageButtons::yesNo) return QMessageBox::Question;
  return message.icon == MessageIcon::warning ? QMessageBox::Warning : QMessageBox::Information;
}

bool showBox(QWidget* parent, const Message& message) {
  QMessageBox box(iconOf(message), toQt(message.caption), toQt(message.text), QMessageBox::NoButton, parent);
  // Names from a ledger may look like markup.
  box.setTextFormat(Qt::PlainText);
  const bool asks = message.buttons == MessageButtons::yesNo;
  QPushButton* yes = box.addButton(asks ? QStringLiteral("是(&Y)") : QStringLiteral("确定"), QMessageBox::AcceptRole);
  box.setDefaultButton(yes);
  if (asks) box.setEscapeButton(box.addButton(QStringLiteral("否(&N)"), QMessageBox::RejectRole));
  box.exec();
  return box.clickedButton() == yes;
}

}  // namespace

bool AfxMessageBox(QWidget* parent, std::string_view text, std::string_view caption, MessageIcon icon,
                   MessageButtons buttons) {
  const Message message{std::string(text), std::string(caption.empty() ? programCaption : caption), icon, buttons};
  return handler() ? handler()(message) : showBox(parent, message);
}

void AfxMessageBox(QWidget* parent, const Refusal& refusal) {
  AfxMessageBox(parent, refusal.text(), refusal.caption, refusal.icon);
}

MessageHandler setMessageHandler(MessageHandler replacement) {
  return std::exchange(handler(), std::move(replacement));
}

}  // namespace tz
