// The fields of condition dialogs: one class per kind of control, made from its record. A field shows a part of a
// request in its controls and takes it back; the dialog lays fields out and knows no kinds.
#pragma once

#include <QObject>
#include <memory>
#include <vector>

#include "reports/dialog_spec.h"

class QWidget;

namespace tz {

class QueryField : public QObject {
  Q_OBJECT

 public:
  explicit QueryField(const ControlSpec& spec) : spec_(spec) {}

  [[nodiscard]] const ControlSpec& Spec() const { return spec_; }
  // What stands in the field's row, behind its caption.
  [[nodiscard]] virtual QWidget* Row() = 0;
  // The controls that Enter goes through.
  [[nodiscard]] virtual std::vector<QWidget*> Stops() = 0;
  // Whether its caption stands in front of the row, not inside it.
  [[nodiscard]] virtual bool HasLabel() const { return true; }

  // What the field offers, as the ledger stands at this opening. False: a list without which the dialog cannot open.
  virtual bool Fill(const DialogSpec& /*dialog*/, Session& /*session*/) { return true; }
  virtual void Show(const Request& request) = 0;
  virtual void Take(Request& request) const = 0;
  // Lets the person pick from a reference window. False when nothing was picked, or there is no such window.
  virtual bool Refer(Request& /*request*/, Session& /*session*/) { return false; }

 signals:
  void referenceWanted();

 private:
  const ControlSpec& spec_;
};

[[nodiscard]] std::unique_ptr<QueryField> makeField(const ControlSpec& spec, QWidget* dialog);

}  // namespace tz
