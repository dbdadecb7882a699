// The one way in which windows tell and ask: a message box, or whatever a test puts in its place.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "core/reports/messages.h"
#include "core/reports/question.h"

class QWidget;

namespace tz {

struct ShownMessage {
  std::string text;
  std::string caption;  // as shown, never empty
  MessageIcon icon = MessageIcon::information;
  std::string detail = {};  // for whoever looks after the ledger: unfolds below; empty for none
  std::string yes = "确定";
  std::string no = {};  // empty: it tells and does not ask
  bool defaultsToNo = false;

  [[nodiscard]] bool asks() const { return !no.empty(); }
};

// The caption of a message without one of its own.
inline constexpr std::string_view programCaption = "辅助核算";

// Shows a message and waits.
void AfxMessageBox(QWidget* parent, std::string_view text, std::string_view caption = {},
                   MessageIcon icon = MessageIcon::information);
// True for the first of the two answers; closing the box is the second.
bool AfxMessageBox(QWidget* parent, const Question& question);
void AfxMessageBox(QWidget* parent, const Refusal& refusal);
// What went wrong in the ledger; the database's own words unfold.
void AfxMessageBox(QWidget* parent, const DbError& error);

// Answers messages instead of a box on the screen; an empty one brings the boxes back. Returns what answered before.
using MessageHandler = std::function<bool(const ShownMessage&)>;
MessageHandler setMessageHandler(MessageHandler replacement);

}  // namespace tz
