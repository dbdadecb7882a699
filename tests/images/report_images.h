// Draws report windows and condition dialogs over the sample company.
#pragma once

#include <QDir>
#include <functional>

namespace tz::images {

using Save = std::function<bool(QWidget& window, const QString& name)>;

// False when a picture could not be made.
bool drawReports(const QString& theme, const Save& save);

}  // namespace tz::images
