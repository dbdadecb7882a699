// One field of a record's form, by its kind: a line of text, a choice, or a name that is found as one types.
#pragma once

#include <QString>
#include <memory>

#include "core/archives/archive_values.h"

class QWidget;

namespace tz {

class RecordField {
 public:
  RecordField() = default;
  RecordField(const RecordField&) = delete;
  RecordField& operator=(const RecordField&) = delete;
  virtual ~RecordField() = default;

  // What stands in the form, buttons beside the field included; and what takes the focus.
  [[nodiscard]] virtual QWidget* Place() const = 0;
  [[nodiscard]] virtual QWidget* Focus() const = 0;
  // `name` is how a reference is called.
  virtual void Show(const MemberChoice& value, const QString& name) = 0;
  [[nodiscard]] virtual MemberChoice Input() const = 0;
  virtual void SelectAll() {}
  virtual void SetFixed() = 0;
};

[[nodiscard]] std::unique_ptr<RecordField> makeRecordField(const ArchiveField& field, const CQnCwDB& db,
                                                           QWidget* parent);

}  // namespace tz
