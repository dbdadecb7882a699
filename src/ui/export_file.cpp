#include "ui/export_file.h"

#include <QFileDialog>
#include <QFileInfo>
#include <algorithm>
#include <array>

#include "grid/platform.h"
#include "reports/output_guard.h"
#include "suite/globals.h"
#include "suite/qt_text.h"
#include "ui/long_work.h"

namespace tz {
namespace {

struct Choice {
  const char* filter;
  const char* ending;
  FileForm form;
};
constexpr std::array choices = {
    Choice{"Excel 工作簿 (*.xlsx)", "xlsx", FileForm::xlsx},
    Choice{"CSV，UTF-8 (*.csv)", "csv", FileForm::csv},
    Choice{"CSV，GB18030 (*.csv)", "csv", FileForm::csvGb18030},
};

}  // namespace

std::optional<ExportTarget> askExportTarget(QWidget* parent, const ComputedReport& report) {
  QStringList filters;
  for (const Choice& choice : choices) filters.append(QString::fromUtf8(choice.filter));
  QString filter = filters.front();
  QString path =
      QFileDialog::getSaveFileName(parent, QStringLiteral("输出到文件"), toQt(report.title) + QStringLiteral(".xlsx"),
                                   filters.join(QStringLiteral(";;")), &filter);
  if (path.isEmpty()) return std::nullopt;
  const Choice* choice = &choices.at(static_cast<std::size_t>(std::max<qsizetype>(0, filters.indexOf(filter))));
  const QString ending = QFileInfo(path).suffix().toLower();
  if (ending.isEmpty()) path += QLatin1Char('.') + QLatin1String(choice->ending);
  // A name that ends as another kind does is of that kind.
  if (ending != QLatin1String(choice->ending)) {
    const auto* const named =
        std::ranges::find_if(choices, [&](const Choice& one) { return ending == QLatin1String(one.ending); });
    if (named != choices.end()) choice = named;
  }
  return ExportTarget{path, choice->form};
}

bool writeExport(const ComputedReport& report, const ExportTarget& target, LongWork& work) {
  const auto wrong = ledgerAsOutput(fromQt(target.path), g_lpszQnZwDBName);
  if (!wrong.empty()) throw OutputError(wrong);
  const CGridToFile writer(report, [&work](std::int64_t done, std::int64_t of) {
    work.Pump(done, of);
    return !work.Cancelled();
  });
  return writer.CreateFile(fromQt(target.path), target.form);
}

}  // namespace tz
