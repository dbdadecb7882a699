#include "desktop/host/start_window.h"

#include <QDate>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/data/connection.h"
#include "desktop/frame/fit_window.h"
#include "desktop/frame/manual_page.h"
#include "desktop/host/new_ledger_dialog.h"
#include "desktop/host/open_ledger.h"
#include "desktop/host/recent_list.h"
#include "desktop/host/server_dialog.h"
#include "desktop/host/settings.h"
#include "desktop/manual/manual.h"
#include "desktop/theme/fonts.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

constexpr int startMargin = 24;
constexpr int titlePixels = 20;
constexpr int choicesWidth = 290;
constexpr QSize startSize(800, 480);

Failure named(const QString& address, Failure failure) {
  if (failure.kind) failure.text.prepend(shownAddress(address) + QStringLiteral("："));
  return failure;
}

}  // namespace

StartWindow::StartWindow(HostSettings& settings, Open open, QWidget* parent)
    : QDialog(parent),
      settings_(settings),
      open_(std::move(open)),
      recent_(new RecentList(settings, this)),
      recentFailure_(new FailureNote(this)) {
  setWindowTitle(QStringLiteral("辅助核算 — 打开帐套"));
  setManualPage(*this, QStringLiteral("start#打开帐套"));
  LayOut();
  connect(recent_, &RecentList::openWanted, this, &StartWindow::OpenRecent);
  connect(recent_, &RecentList::changed, this, &StartWindow::EnableRecent);
  EnableRecent();
}

// What this window is for, in words for who comes here first.
void StartWindow::LayOutHead(QVBoxLayout& layout) {
  auto* title = new QLabel(QStringLiteral("打开帐套"), this);
  title->setFont(uiFont(titlePixels * textSize() / usualTextSize, QFont::DemiBold));
  auto* about =
      new QLabel(QStringLiteral("帐套是一个单位一个会计年度的全部帐目：一个文件，或服务器上的一个数据库。"), this);
  about->setForegroundRole(QPalette::PlaceholderText);
  about->setWordWrap(true);
  auto* help = new QPushButton(QStringLiteral("使用手册(&H)"), this);
  help->setObjectName(QStringLiteral("manual"));
  help->setToolTip(QStringLiteral("打开使用手册（F1）"));
  help->setAutoDefault(false);
  connect(help, &QPushButton::clicked, this, [this] { showManual(this, manualPageOf(this)); });
  auto* top = new QHBoxLayout;
  top->addWidget(title, 1);
  top->addWidget(help);
  layout.addLayout(top);
  layout.addWidget(about);
}

void StartWindow::LayOut() {
  auto* recentLabel = new QLabel(QStringLiteral("最近的帐套(&L)"), this);
  recentLabel->setBuddy(recent_);
  openRecent_ = new QPushButton(QStringLiteral("打开(&O)"), this);
  openRecent_->setObjectName(QStringLiteral("open"));
  forget_ = new QPushButton(QStringLiteral("移除(&R)"), this);
  forget_->setObjectName(QStringLiteral("forget"));
  forget_->setToolTip(QStringLiteral("只从列表中移除，帐套仍在原处（Del）"));
  forget_->setAutoDefault(false);
  recentFailure_->setObjectName(QStringLiteral("recentFailure"));
  connect(openRecent_, &QPushButton::clicked, this, &StartWindow::OpenRecent);
  connect(forget_, &QPushButton::clicked, recent_, &RecentList::Forget);
  auto* below = new QHBoxLayout;
  below->addWidget(forget_);
  below->addStretch(1);
  below->addWidget(openRecent_);
  auto* left = new QVBoxLayout;
  left->setSpacing(startMargin / 3);
  left->addWidget(recentLabel);
  left->addWidget(recent_, 1);
  left->addLayout(below);
  left->addWidget(recentFailure_);

  auto* choices = new QWidget;
  auto* right = new QVBoxLayout(choices);
  right->setContentsMargins(0, 0, 0, 0);
  right->setSpacing(startMargin / 6);
  right->addWidget(new QLabel(QStringLiteral("或者"), choices));
  sampleChoice_ = AddChoice(*right, "sample", QStringLiteral("示例单位(&S)"),
                            QStringLiteral("一家机床厂 2025 年的帐，先看一看各种帐表"));
  auto* fresh = AddChoice(*right, "newLedger", QStringLiteral("新建帐套(&N)…"),
                          QStringLiteral("空帐套：单位名称、会计年度和文件"));
  fileChoice_ = AddChoice(*right, "chooseFile", QStringLiteral("打开文件(&F)…"), QStringLiteral("已有的帐套文件"));
  serverChoice_ = AddChoice(*right, "chooseServer", QStringLiteral("服务器上的帐套(&V)…"),
                            QStringLiteral("按主机、数据库和用户连接"));
  right->addStretch(1);
  connect(sampleChoice_, &QPushButton::clicked, this, &StartWindow::OpenSample);
  connect(fresh, &QPushButton::clicked, this, &StartWindow::MakeNew);
  connect(fileChoice_, &QPushButton::clicked, this, &StartWindow::OpenFile);
  connect(serverChoice_, &QPushButton::clicked, this,
          [this] { OpenServer(failedServer_.isEmpty() ? settings_.LastServer() : failedServer_, serverFailure_); });
  choices_ = new ContentsArea(choices, this);
  choices_->setMinimumWidth(choicesWidth);
  choices_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);

  auto* columns = new QHBoxLayout;
  columns->setSpacing(startMargin);
  columns->addLayout(left, 1);
  columns->addWidget(choices_);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(startMargin, startMargin, startMargin, startMargin);
  layout->setSpacing(startMargin / 2);
  LayOutHead(*layout);
  layout->addLayout(columns, 1);
  resize(startSize.boundedTo(roomFor(*this)));
}

QPushButton* StartWindow::AddChoice(QVBoxLayout& choices, const char* name, const QString& caption,
                                    const QString& hint) {
  auto* button = new QPushButton(caption, this);
  button->setObjectName(QLatin1String(name));
  button->setAccessibleDescription(hint);
  auto* told = new QLabel(hint, this);
  told->setForegroundRole(QPalette::PlaceholderText);
  auto* note = new FailureNote(this);
  note->setObjectName(QLatin1String(name) + QStringLiteral("Failure"));
  choices.addWidget(button);
  choices.addWidget(told);
  choices.addWidget(note);
  choices.addSpacing(startMargin / 3);
  choiceFailures_.emplace_back(button, note);
  return button;
}

// Without a recent ledger the sample company is the first choice.
void StartWindow::EnableRecent() {
  const bool any = recent_->count() > 0;
  openRecent_->setEnabled(any);
  forget_->setEnabled(any);
  (any ? openRecent_ : sampleChoice_)->setDefault(true);
  if (any) {
    recent_->setFocus();
  } else {
    sampleChoice_->setFocus();
  }
}

void StartWindow::OpenRecent() {
  const QString address = recent_->Address();
  if (!address.isEmpty()) TryOpen(address, recent_);
}

void StartWindow::OpenSample() {
  ClearNotes();
  const Failure failure = provideSampleLedger(this, sample_);
  if (failure.None()) {
    TryOpen(sampleLedgerFile(), sampleChoice_);
  } else {
    Tell(sampleChoice_, failure);
  }
}

void StartWindow::MakeNew() {
  ClearNotes();
  NewLedgerDialog dialog(open_, QDate::currentDate().year(), this);
  if (dialog.exec() == Accepted) accept();
}

void StartWindow::OpenFile() {
  const QString file = QFileDialog::getOpenFileName(this, QStringLiteral("打开帐套"), {},
                                                    QStringLiteral("帐套 (*.db *.tz *.sqlite);;所有文件 (*)"));
  if (!file.isEmpty()) TryOpen(file, fileChoice_);
}

void StartWindow::OpenServer(const QString& address, const Failure& failure) {
  ClearNotes();
  ServerDialog dialog(open_, this);
  dialog.SetAddress(address);
  if (!failure.None()) dialog.ShowFailure(failure);
  if (dialog.exec() == Accepted) accept();
}

void StartWindow::TryOpen(const QString& address, QWidget* from) {
  ClearNotes();
  const Failure failure = open_(address, this);
  if (failure.None()) {
    accept();
  } else if (isServerAddress(fromQt(address)) && failure.kind) {
    // Its fields are there, with the one at fault: passwords are not remembered.
    OpenServer(address, failure);
  } else {
    Tell(from, named(address, failure));
    recent_->Fill();
    from->setFocus();
  }
}

void StartWindow::Tell(QWidget* from, const Failure& failure) {
  FailureNote* note = recentFailure_;
  for (const auto& [button, below] : choiceFailures_) {
    if (button == from) note = below;
  }
  note->Tell(failure);
  from->setFocus();
  if (note != recentFailure_) choices_->ensureWidgetVisible(note);
}

void StartWindow::ClearNotes() {
  recentFailure_->Clear();
  for (const auto& [button, note] : choiceFailures_) note->Clear();
}

void StartWindow::ShowFailure(const QString& address, const Failure& failure) {
  ClearNotes();
  if (!isServerAddress(fromQt(address))) {
    Tell(recent_->count() > 0 ? static_cast<QWidget*>(recent_) : fileChoice_, named(address, failure));
    return;
  }
  failedServer_ = shownAddress(address);
  serverFailure_ = failure;
  Tell(serverChoice_, named(address, failure));
  serverChoice_->setDefault(true);
}

}  // namespace tz
