// A window at work: the session with which it computes, and how it shows how far it is.
#pragma once

#include <QString>
#include <memory>

#include "core/output/page_head.h"
#include "core/reports/session.h"

class QWidget;

namespace tz {

class CGeneralDialog;
class LongWork;
class ReportStatus;

// Questions become message boxes of the window; progress and stopping are the work's.
[[nodiscard]] Session windowSession(LongWork& work, QWidget* window);

// Whoever prints in a window, and when.
[[nodiscard]] PageStamp windowStamp();

// Shows how far a work is for as long as it lives: in the status line, and in a busy box where there are words for one.
class WorkDisplay {
 public:
  WorkDisplay(LongWork& work, ReportStatus& status, QWidget* window, const QString& what, const QString& boxWords = {},
              const QString& unit = QStringLiteral("行"));
  WorkDisplay(const WorkDisplay&) = delete;
  WorkDisplay& operator=(const WorkDisplay&) = delete;
  ~WorkDisplay();

 private:
  ReportStatus& status_;
  std::unique_ptr<CGeneralDialog> box_;
};

}  // namespace tz
