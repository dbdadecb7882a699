// The one way in which windows tell and ask: a message box, or whatever a test puts in its place.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "core/reports/messages.h"

class QWidget;

namespace tz {

enum class MessageButtons { ok, yesNo };

struct ShownMessage {
  std::string text;
  std::string caption;  // as shown, never empty
  MessageIcon icon = MessageIcon::information;
  MessageButtons buttons = MessageButtons::ok;
  std::string detail = {};  // for whoever looks after the ledger: unfolds below; empty for none
};

// The caption of a message without one of its own.
inline constexpr std::string_view programCaption = "辅助核算";

// Shows a message and waits. True for "确定" and "是".
bool AfxMessageBox(QWidget* parent, std::string_view text, std::string_view caption = {},
                   MessageIcon icon = MessageIcon::information, MessageButtons buttons = MessageButtons::ok);
void AfxMessageBox(QWidget* parent, const Refusal& refusal);
// What went wrong in the ledger; the database's own words unfold.
void AfxMessageBox(QWidget* parent, const DbError& error);

// Answers messages instead of a box on the screen; an empty one brings the boxes back. Returns what answered before.
using MessageHandler = std::function<bool(const ShownMessage&)>;
MessageHandler setMessageHandler(MessageHandler replacement);

}  // namespace tz
