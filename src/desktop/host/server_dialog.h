// Asks for a ledger on a server: by host, port, database and user, or by its whole address, which each fills the other.
// The password is asked for when the server wants one, and never kept. What is wrong is said below the field at fault.
#pragma once

#include <QDialog>
#include <functional>

#include "desktop/host/failure_note.h"
#include "desktop/host/server_address.h"

class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace tz {

class ServerDialog : public QDialog {
  Q_OBJECT

 public:
  // Opens an address, its password included; empty when it did.
  using Connect = std::function<Failure(const QString& address, QWidget* window)>;
  ServerDialog(Connect connect, QWidget* parent);

  // What the fields begin with.
  void SetAddress(const QString& address);
  // Why that could not be opened.
  void ShowFailure(const Failure& failure);

 protected:
  void accept() override;

 private:
  void LayOut();
  QLineEdit* AddField(QFormLayout& form, const char* name, const QString& caption, FailureNote** note);
  [[nodiscard]] ServerAddress Address() const;
  void FillFields(const ServerAddress& address);
  void OnFieldEdited();
  void OnAddressEdited(const QString& text);
  void AskPassword();
  void ClearNotes();
  void Tell(FailureNote& note, QLineEdit& field, const Failure& failure);

  Connect connect_;
  QString parameters_;
  QFormLayout* form_ = nullptr;
  QLineEdit* host_ = nullptr;
  QLineEdit* port_ = nullptr;
  QLineEdit* database_ = nullptr;
  QLineEdit* user_ = nullptr;
  QLineEdit* password_ = nullptr;
  QLineEdit* address_ = nullptr;
  FailureNote* hostFailure_ = nullptr;
  FailureNote* databaseFailure_ = nullptr;
  FailureNote* logonFailure_ = nullptr;
  FailureNote* addressFailure_ = nullptr;
  QLabel* waiting_ = nullptr;
  QPushButton* ok_ = nullptr;
};

}  // namespace tz
