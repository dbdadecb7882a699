// Why something could not be done, below the field where it happened: the reason, and behind "详细" the words of the
// database.
#pragma once

#include <QWidget>
#include <optional>

#include "core/data/connection.h"

class QLabel;
class QToolButton;

namespace tz {

// Empty where nothing failed.
struct Failure {
  QString text;
  QString detail = {};                               // for whoever looks after the ledger; empty for none
  std::optional<DbError::Kind> kind = std::nullopt;  // of a failure of the database

  [[nodiscard]] bool None() const { return text.isEmpty(); }
};

[[nodiscard]] Failure failureOf(const DbError& error);

class FailureNote : public QWidget {
  Q_OBJECT

 public:
  explicit FailureNote(QWidget* parent);

  void Tell(const Failure& failure);
  void Clear() { hide(); }

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Paint();

  QLabel* text_;
  QToolButton* more_;
  QLabel* detail_;
};

}  // namespace tz
