// The form of one record of an archive, made from the archive's fields. What is refused is said in it, with the focus
// on the field at fault; what somebody else has written meanwhile is shown instead of overwritten. Enter leads through
// the fields and keeps on the last one, Ctrl+Enter keeps anywhere; Esc asks when something was written and not kept.
#pragma once

#include <QDialog>
#include <memory>
#include <vector>

#include "core/archives/archive_store.h"

class QLabel;
class QPushButton;

namespace tz {

class RecordField;

class RecordForm : public QDialog {
  Q_OBJECT

 public:
  // A new record that begins with these values, where the record has no id; else one that was read. The names that
  // fields refer to come from `reports`.
  RecordForm(const Archive& archive, LedgerKeeper& keeper, const CQnCwDB& reports, ArchiveRecord record,
             QWidget* parent);
  ~RecordForm() override;

  // The last record that was written; 0 for none.
  [[nodiscard]] Id Written() const { return written_; }
  // Whether the archive is another than before, by this form or by somebody else.
  [[nodiscard]] bool ListIsOld() const { return listIsOld_; }

  void accept() override;
  void reject() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void LayOut();
  void Fill();
  [[nodiscard]] ArchiveInput Input() const;
  [[nodiscard]] bool IsEdited() const;
  // False where nothing was written, which the form then says.
  bool Keep();
  [[nodiscard]] bool IsMeant(const ArchiveInput& input);
  void Refuse(const ArchiveRefusal& refusal);
  void TellMeanwhile(const ArchiveAnswer& answer);
  void Tell(const QString& text, const QString& detail = {});
  void KeepAndGoOn();

  const Archive& archive_;
  LedgerKeeper& keeper_;
  const CQnCwDB& reports_;
  ArchiveRecord read_;
  const ArchiveRecord first_;  // what a new record begins with
  ArchiveInput shown_;         // as the fields were filled
  std::vector<std::unique_ptr<RecordField>> fields_;
  QLabel* note_;
  QPushButton* ok_;
  Id written_ = 0;
  bool listIsOld_ = false;
};

}  // namespace tz
