// The row "保存的条件" above the fields of a condition dialog: take what was kept under a name, keep what the fields
// hold, give up a name.
#pragma once

#include <QWidget>
#include <functional>
#include <optional>

#include "desktop/query/condition_store.h"

class QComboBox;

namespace tz {

class SavedConditionsBar : public QWidget {
  Q_OBJECT

 public:
  // What the fields hold; nothing when that is no condition, which the person has then been told.
  using Current = std::function<std::optional<Request>()>;
  SavedConditionsBar(ConditionStore& store, int report, Current current, QWidget* parent);

  // Reads the names anew and shows none of them as chosen.
  void Refresh();

 signals:
  void chosen(const Request& request);

 private:
  void Load(const QString& name);
  void Save();
  void Remove();
  [[nodiscard]] QString Name() const;
  [[nodiscard]] bool IsKept(const QString& name) const;
  // Says why when the store fails.
  bool Attempt(const std::function<void()>& work);

  ConditionStore& store_;
  int report_;
  Current current_;
  QComboBox* names_;
};

}  // namespace tz
