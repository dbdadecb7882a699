#include "desktop/host/start_window.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/data/connection.h"
#include "desktop/frame/fit_window.h"
#include "desktop/host/open_ledger.h"
#include "desktop/host/settings.h"
#include "desktop/theme/fonts.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

constexpr int startMargin = 24;
constexpr int titlePixels = 20;
constexpr int entryHeight = 48;

QString entryOf(const QString& address) {
  if (isServerAddress(fromQt(address))) return shownAddress(address);
  const QFileInfo file(address);
  return QStringLiteral("%1\n%2").arg(file.completeBaseName(), QDir::toNativeSeparators(file.path()));
}

QLabel* heading(const QString& text, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  label->setFont(uiFont(titlePixels * textSize() / usualTextSize, QFont::DemiBold));
  return label;
}

}  // namespace

StartWindow::StartWindow(HostSettings& settings, Open open, QWidget* parent)
    : QDialog(parent),
      settings_(settings),
      open_(std::move(open)),
      recent_(new QListWidget(this)),
      server_(new QLineEdit(this)),
      fileFailure_(new FailureNote(this)),
      serverFailure_(new FailureNote(this)) {
  setWindowTitle(QStringLiteral("辅助核算 — 打开帐套"));
  LayOut();
  FillRecent();
}

void StartWindow::LayOut() {
  recent_->setAccessibleName(QStringLiteral("最近的帐套"));
  recent_->setSpacing(2);
  // Enter is the default button's.
  connect(recent_, &QListWidget::itemDoubleClicked, this, &StartWindow::OpenChosen);
  auto* openRecent = new QPushButton(QStringLiteral("打开"), this);
  openRecent->setDefault(true);
  connect(openRecent, &QPushButton::clicked, this, &StartWindow::OpenChosen);
  auto* file = new QPushButton(QStringLiteral("选择文件…"), this);
  file->setObjectName(QStringLiteral("chooseFile"));
  openRecent->setObjectName(QStringLiteral("open"));
  connect(file, &QPushButton::clicked, this, &StartWindow::OpenFile);
  server_->setObjectName(QStringLiteral("server"));
  server_->setPlaceholderText(QStringLiteral("postgresql://用户@服务器/数据库"));
  server_->setAccessibleName(QStringLiteral("服务器地址"));
  auto* connectServer = new QPushButton(QStringLiteral("连接"), this);
  connectServer->setAutoDefault(false);
  connect(connectServer, &QPushButton::clicked, this, &StartWindow::OpenServer);
  connectServer->setObjectName(QStringLiteral("connect"));
  fileFailure_->setObjectName(QStringLiteral("fileFailure"));
  serverFailure_->setObjectName(QStringLiteral("serverFailure"));

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(file);
  buttons->addStretch(1);
  buttons->addWidget(openRecent);
  auto* server = new QHBoxLayout;
  server->addWidget(server_, 1);
  server->addWidget(connectServer);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(startMargin, startMargin, startMargin, startMargin);
  layout->setSpacing(startMargin / 2);
  layout->addWidget(heading(QStringLiteral("打开帐套"), this));
  layout->addWidget(recent_, 1);
  layout->addLayout(buttons);
  layout->addWidget(fileFailure_);
  layout->addSpacing(startMargin / 2);
  layout->addWidget(new QLabel(QStringLiteral("服务器上的帐套"), this));
  layout->addLayout(server);
  layout->addWidget(serverFailure_);
  resize(QSize(520, 460).boundedTo(roomFor(*this)));
}

void StartWindow::FillRecent() {
  recent_->clear();
  for (const QString& address : settings_.RecentLedgers()) {
    auto* item = new QListWidgetItem(entryOf(address), recent_);
    item->setData(Qt::UserRole, address);
    item->setToolTip(shownAddress(address));
    item->setSizeHint({0, entryHeight});
  }
  if (recent_->count() > 0) {
    recent_->setCurrentRow(0);
    return;
  }
  auto* none = new QListWidgetItem(QStringLiteral("还没有打开过帐套"), recent_);
  none->setFlags(Qt::NoItemFlags);
}

void StartWindow::OpenChosen() {
  if (server_->hasFocus() && !server_->text().isEmpty()) {
    OpenServer();
  } else if (const auto* item = recent_->currentItem()) {
    const QString address = item->data(Qt::UserRole).toString();
    // Passwords are not remembered; here one can be added.
    if (isServerAddress(fromQt(address))) server_->setText(address);
    TryOpen(address, *fileFailure_, recent_);
  } else {
    OpenFile();
  }
}

void StartWindow::OpenFile() {
  const QString file = QFileDialog::getOpenFileName(this, QStringLiteral("打开帐套"), {},
                                                    QStringLiteral("帐套 (*.db *.tz *.sqlite);;所有文件 (*)"));
  if (!file.isEmpty()) TryOpen(file, *fileFailure_, findChild<QWidget*>(QStringLiteral("chooseFile")));
}

void StartWindow::OpenServer() {
  const QString address = server_->text().trimmed();
  if (!isServerAddress(fromQt(address))) {
    serverFailure_->Tell(
        {QStringLiteral("服务器地址应以 postgresql:// 开头，例如 postgresql://zhangsan@server/ledger2025")});
    server_->setFocus();
    server_->selectAll();
    return;
  }
  TryOpen(address, *serverFailure_, server_);
}

void StartWindow::TryOpen(const QString& address, FailureNote& note, QWidget* from) {
  fileFailure_->Clear();
  serverFailure_->Clear();
  const Failure failure = open_(address, this);
  if (failure.text.isEmpty()) {
    accept();
    return;
  }
  note.Tell(failure);
  from->setFocus();
}

void StartWindow::ShowFailure(const QString& address, const Failure& failure) {
  fileFailure_->Clear();
  serverFailure_->Clear();
  if (!isServerAddress(fromQt(address))) {
    fileFailure_->Tell(failure);
    return;
  }
  server_->setText(shownAddress(address));
  serverFailure_->Tell(failure);
  server_->setFocus();
}

void StartWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Delete && recent_->hasFocus() && recent_->currentItem() != nullptr) {
    settings_.ForgetLedger(recent_->currentItem()->data(Qt::UserRole).toString());
    FillRecent();
    return;
  }
  QDialog::keyPressEvent(event);
}

}  // namespace tz
