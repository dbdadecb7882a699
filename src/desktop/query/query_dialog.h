// CTzQueryDialog: the modal dialog in which a report asks for its conditions, built from the report's DialogSpec. Its
// controls carry their ids as object names; OK is "1", Cancel "2". What the person may not ask is said by message box,
// and the dialog stays as it is. Enter goes from field to field and confirms on the last, Ctrl+Enter and Alt+O confirm
// from any, Esc and Alt+C cancel, F2 opens the reference window of a field. What is picked leads on to the next field.
#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <vector>

#include "core/reports/dialog_spec.h"

namespace tz {

class ConditionStore;
class QueryField;
class SavedConditionsBar;

class CTzQueryDialog : public QDialog {
  Q_OBJECT

 public:
  static constexpr int IDOK = 1;
  static constexpr int IDCANCEL = 2;

  // The session must outlive the dialog.
  CTzQueryDialog(const DialogSpec& dialog, Session& session, QWidget* parent);
  ~CTzQueryDialog() override;

  // Offers conditions kept under a name. The store must outlive the dialog.
  void OfferSaved(ConditionStore& store, int report);

  // What the dialog opens on; after DoModal() returned true, what the person asked for.
  void SetRequest(const Request& request) { request_ = request; }
  [[nodiscard]] const Request& GetRequest() const { return request_; }
  // Runs the dialog anew. False when the person cancelled, or when it closed itself after its message.
  bool DoModal();

 protected:
  virtual bool OnInitDialog();
  virtual void OnOK();
  virtual void OnCancel() { QDialog::done(Rejected); }
  // Why what was asked for is not taken.
  [[nodiscard]] virtual std::optional<Refusal> Refused();
  // The one place where values move: from the controls into the request, or back.
  void DoDataExchange(bool takes);

  void accept() override { OnOK(); }
  void reject() override { OnCancel(); }
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void LayOut();
  void ConnectFields();
  bool FillFields();
  // Fields that offer what belongs to an account or class offer what belongs to those chosen now.
  void OnOwnerChanged();
  // Runs a piece of work and tells by message box why it fails.
  bool Attempt(const std::function<void()>& work);
  void TellNotOpen();
  void OnReference(QueryField& field);
  void MarkStrangers();
  void OnPickedWithOthers(const QueryField& field);
  // What the fields hold.
  [[nodiscard]] Request Taken() const;
  [[nodiscard]] Request Owners() const;
  void SettleTexts();
  void FocusOn(ParameterKey key);
  // To the field behind a control, from the last one to OK.
  void GoOnFrom(QWidget* control);
  void OnEnter();
  [[nodiscard]] std::vector<QWidget*> Stops() const;
  [[nodiscard]] QueryField* FocusedField() const;  // null when the focus is elsewhere

  const DialogSpec& dialog_;
  Session& session_;
  Request request_;
  Request openedOn_;  // what the request was when it came
  std::vector<std::unique_ptr<QueryField>> fields_;
  SavedConditionsBar* saved_ = nullptr;
};

}  // namespace tz
