#include "desktop/report/report_feature.h"

#include <map>

namespace tz {
namespace {

// Made when it is first asked for: features register before any order of files is settled.
std::map<std::string_view, FeatureMaker>& registeredFeatures() {
  static std::map<std::string_view, FeatureMaker> features;
  return features;
}

}  // namespace

void registerFeature(std::string_view name, FeatureMaker make) { registeredFeatures()[name] = std::move(make); }

std::unique_ptr<ReportFeature> makeFeature(std::string_view name) {
  const auto found = registeredFeatures().find(name);
  return found == registeredFeatures().end() ? nullptr : found->second();
}

}  // namespace tz
