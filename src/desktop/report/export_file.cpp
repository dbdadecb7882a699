#include "desktop/report/export_file.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>
#include <algorithm>
#include <array>

#include "core/platform/sink.h"
#include "core/reports/output_guard.h"
#include "desktop/frame/globals.h"
#include "desktop/frame/message_box.h"
#include "desktop/page/report_pdf.h"
#include "desktop/report/long_work.h"
#include "desktop/report/work_display.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

struct FileChoice {
  const char* filter;
  const char* ending;
  FileForm form;
  bool pages = false;
};
constexpr std::array fileChoices = {
    FileChoice{"Excel 工作簿 (*.xlsx)", "xlsx", FileForm::xlsx},
    FileChoice{"CSV，UTF-8 (*.csv)", "csv", FileForm::csv},
    FileChoice{"CSV，GB18030 (*.csv)", "csv", FileForm::csvGb18030},
    FileChoice{"PDF，同打印的页面 (*.pdf)", "pdf", FileForm::xlsx, true},
};

QString startFolder(const ExportFolder& folder) {
  QString last = folder.last ? folder.last() : QString();
  if (!last.isEmpty() && QFileInfo(last).isDir()) return last;
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

const FileChoice* choiceOfEnding(const QString& path) {
  const QString ending = QFileInfo(path).suffix().toLower();
  const auto* const found = std::ranges::find_if(
      fileChoices, [&](const FileChoice& choice) { return ending == QLatin1String(choice.ending); });
  return found == fileChoices.end() ? nullptr : found;
}

// The name follows the kind of file that is chosen.
void followFilter(QFileDialog& dialog, const FileChoice& choice) {
  dialog.setDefaultSuffix(QLatin1String(choice.ending));
  const QStringList selected = dialog.selectedFiles();
  if (selected.isEmpty() || choiceOfEnding(selected.front()) == nullptr) return;
  const QFileInfo file(selected.front());
  dialog.selectFile(file.completeBaseName() + QLatin1Char('.') + QLatin1String(choice.ending));
}

const FileChoice& chosen(const QStringList& filters, const QString& filter) {
  return fileChoices.at(static_cast<std::size_t>(std::max<qsizetype>(0, filters.indexOf(filter))));
}

// The dialog has asked about the name as it was typed, not about one that got its ending here.
bool mayReplace(QWidget* parent, const QString& path) {
  if (!QFileInfo::exists(path)) return true;
  return AfxMessageBox(parent, Question{fromQt(QStringLiteral("“%1”已经存在，要替换它吗？").arg(path))});
}

}  // namespace

std::optional<ExportTarget> askExportTarget(QWidget* parent, const ComputedReport& report, const ExportFolder& folder,
                                            bool pages) {
  QStringList filters;
  for (const FileChoice& choice : fileChoices) filters.append(QString::fromUtf8(choice.filter));
  QFileDialog dialog(parent, QStringLiteral("输出到文件"), startFolder(folder));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setNameFilters(filters);
  const FileChoice& first = pages ? fileChoices.back() : fileChoices.front();
  dialog.selectNameFilter(QString::fromUtf8(first.filter));
  dialog.setDefaultSuffix(QLatin1String(first.ending));
  dialog.selectFile(toQt(report.fileName.empty() ? report.title : report.fileName) + QLatin1Char('.') +
                    QLatin1String(first.ending));
  QObject::connect(&dialog, &QFileDialog::filterSelected,
                   [&](const QString& filter) { followFilter(dialog, chosen(filters, filter)); });
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  QString path = dialog.selectedFiles().front();
  const FileChoice* choice = &chosen(filters, dialog.selectedNameFilter());
  // A name that ends as another kind does is of that kind.
  const FileChoice* named = choiceOfEnding(path);
  if (named == nullptr) {
    path += QLatin1Char('.') + QLatin1String(choice->ending);
    if (!mayReplace(parent, path)) return std::nullopt;
  } else if (QLatin1String(named->ending) != QLatin1String(choice->ending)) {
    choice = named;
  }
  if (folder.keep) folder.keep(QFileInfo(path).absolutePath());
  return ExportTarget{path, choice->form, choice->pages};
}

bool writeExport(const ComputedReport& report, const ExportTarget& target, const PageOptions& options, LongWork& work) {
  const auto wrong = ledgerAsOutput(fromQt(target.path), g_lpszQnZwDBName);
  if (!wrong.empty()) throw OutputError(wrong);
  const FileProgress progress = [&work](std::int64_t done, std::int64_t of) {
    work.Pump(done, of);
    return !work.Cancelled();
  };
  if (target.pages) return writePdf(report, options, windowStamp(), fromQt(target.path), progress);
  const CGridToFile writer(report, progress);
  return writer.CreateFile(fromQt(target.path), target.form);
}

}  // namespace tz
