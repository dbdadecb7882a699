// The row "保存的条件" above the fields of a condition dialog: take the last conditions, or what was kept under a name,
// keep what the fields hold, give up a name. What was done stands below it.
#pragma once

#include <QWidget>
#include <functional>
#include <optional>

#include "desktop/query/condition_store.h"

class QComboBox;
class QPushButton;

namespace tz {

class ElidedLabel;

class SavedConditionsBar : public QWidget {
  Q_OBJECT

 public:
  // What the fields hold; nothing when that is no condition, which the person has then been told.
  using Current = std::function<std::optional<Request>()>;
  SavedConditionsBar(ConditionStore& store, int report, Current current, QWidget* parent);

  // Reads the names and the last conditions anew and shows none of them as chosen.
  void Refresh();

 signals:
  void chosen(const Request& request);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void LayOut();
  void ReadNames();
  void ReadLast();
  void OnActivated(int index);
  void TakeLast();
  void Take(const Request& request, const QString& name);
  void Save();
  void Remove();
  [[nodiscard]] QString Name() const;
  // The place of what was kept under a name; -1 where nothing was.
  [[nodiscard]] int PlaceOf(const QString& name) const;
  [[nodiscard]] bool IsLast(int index) const { return last_ && index == 0; }
  void Tell(const QString& what);
  // Says why when the store fails.
  bool Attempt(const std::function<void()>& work);

  ConditionStore& store_;
  int report_;
  Current current_;
  std::optional<Request> last_;
  QComboBox* names_;
  bool clickedInto_ = false;
  QPushButton* takeLast_;
  ElidedLabel* told_;
};

}  // namespace tz
