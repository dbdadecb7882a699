#include "desktop/host/new_ledger_dialog.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QStandardPaths>
#include <QVBoxLayout>

#include "core/data/record_io.h"
#include "desktop/host/make_ledger.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

constexpr int newLedgerMargin = 24;
constexpr int newFileWidth = 340;
constexpr int firstYear = 1900;
constexpr int lastYear = 9999;

QString ledgerFolder() {
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

// A free name in the usual folder, of the signs that every file system takes.
QString proposedFile(QString name) {
  for (const QChar sign : QStringLiteral("/\\:*?\"<>|")) name.replace(sign, QLatin1Char('_'));
  constexpr int longest = 60;
  name = name.simplified().left(longest);
  if (name.isEmpty() || name.startsWith(QLatin1Char('.'))) name.prepend(QStringLiteral("帐套"));
  const QDir folder(ledgerFolder());
  QString file = folder.filePath(name + QStringLiteral(".db"));
  for (int number = 2; QFileInfo::exists(file); ++number) {
    file = folder.filePath(QStringLiteral("%1 %2.db").arg(name).arg(number));
  }
  return QDir::toNativeSeparators(file);
}

}  // namespace

NewLedgerDialog::NewLedgerDialog(Open open, int year, QWidget* parent)
    : QDialog(parent),
      open_(std::move(open)),
      name_(new QLineEdit(this)),
      year_(new QSpinBox(this)),
      file_(new QLineEdit(this)),
      nameFailure_(new FailureNote(this)),
      fileFailure_(new FailureNote(this)) {
  setWindowTitle(QStringLiteral("新建帐套"));
  LayOut(year);
  FollowName();
}

void NewLedgerDialog::LayOut(int year) {
  name_->setObjectName(QStringLiteral("name"));
  year_->setObjectName(QStringLiteral("year"));
  file_->setObjectName(QStringLiteral("file"));
  nameFailure_->setObjectName(QStringLiteral("nameFailure"));
  fileFailure_->setObjectName(QStringLiteral("newFileFailure"));
  year_->setRange(firstYear, lastYear);
  year_->setValue(year);
  file_->setMinimumWidth(newFileWidth);
  auto* browse = new QPushButton(QStringLiteral("浏览(&B)…"), this);
  browse->setObjectName(QStringLiteral("browse"));
  browse->setAutoDefault(false);
  auto* form = new QFormLayout;
  form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
  form->addRow(QStringLiteral("单位名称(&N)"), name_);
  form->addRow(QString(), nameFailure_);
  form->addRow(QStringLiteral("会计年度(&Y)"), year_);
  auto* place = new QHBoxLayout;
  place->addWidget(file_, 1);
  place->addWidget(browse);
  auto* fileLabel = new QLabel(QStringLiteral("文件(&F)"), this);
  fileLabel->setBuddy(file_);
  form->addRow(fileLabel, place);
  form->addRow(QString(), fileFailure_);
  auto* buttons = new QDialogButtonBox(this);
  auto* make = buttons->addButton(QStringLiteral("建立(&C)"), QDialogButtonBox::AcceptRole);
  make->setObjectName(QStringLiteral("1"));
  make->setDefault(true);
  buttons->addButton(QStringLiteral("取消"), QDialogButtonBox::RejectRole)->setObjectName(QStringLiteral("2"));
  connect(buttons, &QDialogButtonBox::accepted, this, &NewLedgerDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &NewLedgerDialog::reject);
  connect(browse, &QPushButton::clicked, this, &NewLedgerDialog::Browse);
  connect(name_, &QLineEdit::textChanged, this, &NewLedgerDialog::FollowName);
  connect(file_, &QLineEdit::textEdited, this, [this] { fileChosen_ = true; });
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(newLedgerMargin, newLedgerMargin, newLedgerMargin, newLedgerMargin);
  layout->setSpacing(newLedgerMargin / 2);
  layout->addLayout(form);
  layout->addStretch(1);
  layout->addWidget(buttons);
  name_->setFocus();
}

// Until a file is named by hand.
void NewLedgerDialog::FollowName() {
  if (!fileChosen_) file_->setText(proposedFile(name_->text()));
}

void NewLedgerDialog::Browse() {
  // An existing file is refused later, so nothing is asked about replacing it.
  const QString chosen =
      QFileDialog::getSaveFileName(this, QStringLiteral("新帐套的文件"), File(), QStringLiteral("帐套 (*.db)"), nullptr,
                                   QFileDialog::DontConfirmOverwrite);
  if (chosen.isEmpty()) return;
  fileChosen_ = true;
  file_->setText(QDir::toNativeSeparators(chosen));
  file_->setFocus();
}

QString NewLedgerDialog::File() const {
  const QString typed = file_->text().trimmed();
  if (typed.isEmpty()) return {};
  const QString file = QDir(ledgerFolder()).absoluteFilePath(QDir::fromNativeSeparators(typed));
  return QFileInfo(file).suffix().isEmpty() && !QFileInfo(file).isDir() ? file + QStringLiteral(".db") : file;
}

void NewLedgerDialog::Refuse(FailureNote& note, QLineEdit& field, const Failure& failure) {
  note.Tell(failure);
  field.setFocus();
  field.selectAll();
}

void NewLedgerDialog::accept() {
  nameFailure_->Clear();
  fileFailure_->Clear();
  const QString name = name_->text().trimmed();
  if (name.isEmpty()) return Refuse(*nameFailure_, *name_, {QStringLiteral("请输入单位名称。")});
  if (isServerAddress(fromQt(file_->text().trimmed()))) {
    return Refuse(*fileFailure_, *file_,
                  {QStringLiteral("这里是文件的位置。服务器上的新帐套用 tzassistant ledger create 建立。")});
  }
  const QString file = File();
  if (file.isEmpty()) return Refuse(*fileFailure_, *file_, {QStringLiteral("请指定帐套的文件。")});
  if (QFileInfo::exists(file)) {
    return Refuse(*fileFailure_, *file_,
                  {QStringLiteral("已经有“%1”，没有改动它。请换一个名称。").arg(QDir::toNativeSeparators(file))});
  }
  if (const QString folder = QFileInfo(file).path(); !QFileInfo(folder).isDir()) {
    return Refuse(*fileFailure_, *file_, {QStringLiteral("没有文件夹“%1”。").arg(QDir::toNativeSeparators(folder))});
  }
  const zAccountMInfo company{1, fromQt(name), "4222", year_->value()};
  Failure failure =
      makeLedger(this, file, QStringLiteral("正在建立帐套…"), [&company](Connection& connection, LedgerWork& work) {
        insertRecords(connection, std::vector{company});
        work.Step(1, 1);
      });
  if (!failure.None()) return Refuse(*fileFailure_, *file_, failure);
  failure = open_(file, this);
  if (!failure.None()) return Refuse(*fileFailure_, *file_, failure);
  QDialog::accept();
}

}  // namespace tz
