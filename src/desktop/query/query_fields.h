// The fields of condition dialogs: one class per kind of control, made from its record. A field shows a part of a
// request in its controls and takes it back; the dialog lays fields out and knows no kinds.
#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <vector>

#include "core/reports/dialog_spec.h"

class QWidget;

namespace tz {

class QueryField : public QObject {
  Q_OBJECT

 public:
  explicit QueryField(const ControlSpec& spec) : spec_(spec) {}

  [[nodiscard]] const ControlSpec& Spec() const { return spec_; }
  // What stands in the field's row, behind its caption.
  [[nodiscard]] virtual QWidget* Row() = 0;
  // The controls that Enter goes through, one for each condition of the field and in their order.
  [[nodiscard]] virtual std::vector<QWidget*> Stops() = 0;
  // Whether its caption stands in front of the row, not inside it.
  [[nodiscard]] virtual bool HasLabel() const { return true; }

  // What the field offers, as the ledger stands at this opening.
  virtual void Fill(const DialogSpec& /*dialog*/, Session& /*session*/) {}
  // What it offers for the account and the class that are chosen; what is chosen stays, where it is still offered.
  virtual void Follow(const Request& /*request*/, Session& /*session*/) {}
  virtual void Show(const Request& request) = 0;
  // Throws WrongUse for text that is no value of its condition.
  virtual void Take(Request& request) const = 0;
  // Throws WrongUse when the person has emptied what has to be chosen.
  virtual void Demand() const {}
  // Lets the person pick from a reference window. False when nothing was picked, or there is no such window.
  virtual bool Refer(Request& /*request*/, Session& /*session*/) { return false; }
  // What was just picked from the list below the field, where it fills in other fields as well.
  virtual void TakePicked(Request& /*request*/) const {}

  // Marks what does not belong to the conditions beside it, as they stand now.
  virtual void MarkStranger() {}

  // The conditions that others belong to, as the fields hold them at the moment.
  void SetOwners(std::function<Request()> owners) { owners_ = std::move(owners); }

 signals:
  void referenceWanted();
  // Another account or class was chosen by hand: fields that offer what belongs to it follow.
  void ownerChanged();
  void pickedWithOthers();
  // A name was chosen by hand: fields whose names belong to it look whether theirs still do.
  void memberChanged();
  void unreadable(const tz::DbError& error);

 protected:
  [[nodiscard]] Request Owners() const { return owners_ ? owners_() : Request(); }

 private:
  const ControlSpec& spec_;
  std::function<Request()> owners_;
};

[[nodiscard]] std::unique_ptr<QueryField> makeField(const ControlSpec& spec, QWidget* dialog);

}  // namespace tz
