// What makes the window of one report do more than show: mark cells, change tabs, draw a chart, take figures in. A
// report's record names its feature; features register under that name, so that no window knows a report by its id.
// A feature lives as long as its window, and is told what happens there before the window acts by itself.
#pragma once

#include <QtGlobal>
#include <functional>
#include <memory>
#include <string_view>

class QKeyEvent;

namespace tz {

class ReportWindow;
struct ShownReport;

class ReportFeature {
 public:
  ReportFeature() = default;
  ReportFeature(const ReportFeature&) = delete;
  ReportFeature& operator=(const ReportFeature&) = delete;
  virtual ~ReportFeature() = default;

  // Once, when the window is laid out and nothing is shown yet: the place for controls of its own.
  virtual void Attach(ReportWindow& /*window*/) {}
  // A report was computed; what is changed in it now is what the window shows.
  virtual void AfterComputed(ShownReport& /*shown*/) {}

  // Whether it answers a command of the toolbar, which is pale otherwise where it has no action of its own.
  [[nodiscard]] virtual bool Answers(int /*command*/) const { return false; }
  // True when that is all that is to be done; false leaves it to the window.
  virtual bool OnCommand(int /*id*/) { return false; }
  virtual bool OnActivated(qint64 /*row*/) { return false; }  // Enter or a double click
  virtual bool OnClicked(qint64 /*row*/, int /*column*/) { return false; }
  virtual bool OnKey(QKeyEvent& /*event*/) { return false; }  // pressed in the grid
};

using FeatureMaker = std::function<std::unique_ptr<ReportFeature>()>;

// The name must outlive the program's windows. A later registration takes the place of an earlier one.
void registerFeature(std::string_view name, FeatureMaker make);
// Null for a name that nobody registered.
[[nodiscard]] std::unique_ptr<ReportFeature> makeFeature(std::string_view name);

// As a constant beside a feature, it registers that when the program starts.
struct FeatureRegistration {
  FeatureRegistration(std::string_view name, FeatureMaker make) { registerFeature(name, std::move(make)); }
};

}  // namespace tz
