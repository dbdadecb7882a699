#include "desktop/host/server_dialog.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/frame/fit_window.h"

namespace tz {
namespace {

constexpr int serverMargin = 24;
constexpr int fieldWidth = 300;
constexpr int portWidth = 84;
constexpr int highestPort = 65535;

bool says(const Failure& failure, std::initializer_list<const char*> signs) {
  return std::ranges::any_of(
      signs, [&](const char* sign) { return failure.detail.contains(QString::fromUtf8(sign), Qt::CaseInsensitive); });
}

// In words of the fields, where the database's own words tell more than their kind.
QString reasonAtHost(const Failure& failure, const ServerAddress& address) {
  const QString host = address.host.isEmpty() ? QStringLiteral("本机") : QStringLiteral("主机“%1”").arg(address.host);
  if (says(failure, {"translate host name", "主机名"})) {
    return QStringLiteral("找不到%1。请检查主机名，并确认网络可以到达。").arg(host);
  }
  if (says(failure, {"refused", "拒绝"})) {
    return QStringLiteral("%1没有接受连接。请检查端口，并确认数据库服务器已经启动。").arg(host);
  }
  return failure.text;
}

}  // namespace

ServerDialog::ServerDialog(Connect connect, QWidget* parent) : QDialog(parent), connect_(std::move(connect)) {
  setWindowTitle(QStringLiteral("服务器上的帐套"));
  LayOut();
  SetAddress({});
}

QLineEdit* ServerDialog::AddField(QFormLayout& form, const char* name, const QString& caption, FailureNote** note) {
  auto* field = new QLineEdit(this);
  field->setObjectName(QLatin1String(name));
  field->setMinimumWidth(fieldWidth);
  form.addRow(caption, field);
  if (note != nullptr) {
    *note = new FailureNote(this);
    (*note)->setObjectName(QLatin1String(name) + QStringLiteral("Failure"));
    form.addRow(QString(), *note);
  }
  return field;
}

void ServerDialog::LayOut() {
  form_ = new QFormLayout;
  form_->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
  auto* place = new QHBoxLayout;
  host_ = new QLineEdit(this);
  host_->setObjectName(QStringLiteral("host"));
  host_->setPlaceholderText(QStringLiteral("空着是本机"));
  port_ = new QLineEdit(this);
  port_->setObjectName(QStringLiteral("port"));
  port_->setPlaceholderText(QStringLiteral("5432"));
  port_->setValidator(new QIntValidator(1, highestPort, port_));
  port_->setFixedWidth(portWidth);
  port_->setAccessibleName(QStringLiteral("端口"));
  auto* portLabel = new QLabel(QStringLiteral("端口(&P)"), this);
  portLabel->setBuddy(port_);
  place->addWidget(host_, 1);
  place->addWidget(portLabel);
  place->addWidget(port_);
  auto* hostLabel = new QLabel(QStringLiteral("主机(&H)"), this);
  hostLabel->setBuddy(host_);
  form_->addRow(hostLabel, place);
  hostFailure_ = new FailureNote(this);
  hostFailure_->setObjectName(QStringLiteral("hostFailure"));
  form_->addRow(QString(), hostFailure_);
  database_ = AddField(*form_, "database", QStringLiteral("数据库(&D)"), &databaseFailure_);
  user_ = AddField(*form_, "user", QStringLiteral("用户(&U)"), nullptr);
  user_->setPlaceholderText(QStringLiteral("空着是本机登录的用户"));
  password_ = AddField(*form_, "password", QStringLiteral("口令(&W)"), &logonFailure_);
  password_->setEchoMode(QLineEdit::Password);
  password_->setPlaceholderText(QStringLiteral("不会保存"));
  address_ = AddField(*form_, "address", QStringLiteral("地址(&A)"), &addressFailure_);
  address_->setPlaceholderText(QStringLiteral("postgresql://用户@主机:端口/数据库"));
  address_->setToolTip(QStringLiteral("由上面各项组成；整个地址也可以粘贴在这里，各项随之填好"));
  address_->setAccessibleDescription(address_->toolTip());
  waiting_ = new QLabel(QStringLiteral("正在连接…（按 Esc 停止）"), this);
  waiting_->setObjectName(QStringLiteral("waiting"));
  waiting_->setForegroundRole(QPalette::PlaceholderText);
  waiting_->hide();

  auto* buttons = new QDialogButtonBox(this);
  ok_ = buttons->addButton(QStringLiteral("连接(&C)"), QDialogButtonBox::AcceptRole);
  ok_->setObjectName(QStringLiteral("1"));
  ok_->setDefault(true);
  buttons->addButton(QStringLiteral("取消"), QDialogButtonBox::RejectRole)->setObjectName(QStringLiteral("2"));
  QObject::connect(buttons, &QDialogButtonBox::accepted, this, &ServerDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, this, &ServerDialog::reject);
  for (QLineEdit* field : {host_, port_, database_, user_, password_}) {
    QObject::connect(field, &QLineEdit::textEdited, this, &ServerDialog::OnFieldEdited);
  }
  QObject::connect(address_, &QLineEdit::textEdited, this, &ServerDialog::OnAddressEdited);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(serverMargin, serverMargin, serverMargin, serverMargin);
  layout->setSpacing(serverMargin / 2);
  layout->addLayout(form_);
  layout->addStretch(1);
  layout->addWidget(waiting_);
  layout->addWidget(buttons);
}

ServerAddress ServerDialog::Address() const {
  const auto text = [](const QLineEdit* field) { return field->text().trimmed(); };
  return {text(host_), text(port_), text(database_), text(user_), password_->text(), parameters_};
}

void ServerDialog::FillFields(const ServerAddress& address) {
  host_->setText(address.host);
  port_->setText(address.port);
  database_->setText(address.database);
  user_->setText(address.user);
  password_->setText(address.password);
  parameters_ = address.parameters;
  if (!address.password.isEmpty()) AskPassword();
}

void ServerDialog::SetAddress(const QString& address) {
  FillFields(readServerAddress(address).value_or(ServerAddress{}));
  form_->setRowVisible(password_, !password_->text().isEmpty());
  OnFieldEdited();
  (host_->text().isEmpty() ? host_ : database_)->setFocus();
}

void ServerDialog::OnFieldEdited() {
  const ServerAddress address = Address();
  address_->setText(address == ServerAddress{} ? QString() : address.Text(false));
}

// A password leaves the line as soon as it is told from the rest.
void ServerDialog::OnAddressEdited(const QString& text) {
  const auto address = readServerAddress(text.trimmed());
  if (!address) return;
  FillFields(*address);
  if (!address->password.isEmpty()) address_->setText(address->Text(false));
}

void ServerDialog::AskPassword() {
  form_->setRowVisible(password_, true);
  growToContents(*password_);
}

void ServerDialog::ClearNotes() {
  for (FailureNote* note : {hostFailure_, databaseFailure_, logonFailure_, addressFailure_}) note->Clear();
}

void ServerDialog::Tell(FailureNote& note, QLineEdit& field, const Failure& failure) {
  note.Tell(failure);
  field.setFocus();
  field.selectAll();
}

void ServerDialog::ShowFailure(const Failure& failure) {
  using Kind = DbError::Kind;
  ClearNotes();
  const ServerAddress address = Address();
  Failure told = failure;
  if (!failure.kind) {
    Tell(*addressFailure_, *database_, told);
  } else if (*failure.kind == Kind::unreachable || *failure.kind == Kind::lost || *failure.kind == Kind::silent) {
    told.text = reasonAtHost(failure, address);
    Tell(*hostFailure_, *host_, told);
  } else if (*failure.kind == Kind::badLogon) {
    const bool asks = password_->text().isEmpty() && says(failure, {"password", "口令", "密码"});
    AskPassword();
    if (asks) told = {QStringLiteral("服务器要求口令。口令不会保存。"), failure.detail};
    Tell(*logonFailure_, asks || !password_->text().isEmpty() ? *password_ : *user_, told);
  } else {
    if (*failure.kind == Kind::notFound && !address.database.isEmpty()) {
      told.text = QStringLiteral("服务器上没有数据库“%1”。请检查名称，或请管理员建立。").arg(address.database);
    }
    Tell(*databaseFailure_, *database_, told);
  }
}

void ServerDialog::accept() {
  ClearNotes();
  const QString typed = address_->text().trimmed();
  if (!typed.isEmpty() && !readServerAddress(typed)) {
    Tell(*addressFailure_, *address_,
         {QStringLiteral("服务器地址应以 postgresql:// 开头，例如 postgresql://zhangsan@server/ledger2025")});
    return;
  }
  if (database_->text().trimmed().isEmpty()) {
    Tell(*databaseFailure_, *database_, {QStringLiteral("请输入数据库的名称。")});
    return;
  }
  ok_->setEnabled(false);
  waiting_->show();
  growToContents(*waiting_);
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  const Failure failure = connect_(Address().Text(true), this);
  waiting_->hide();
  ok_->setEnabled(true);
  if (failure.None()) {
    QDialog::accept();
  } else {
    ShowFailure(failure);
  }
}

}  // namespace tz
