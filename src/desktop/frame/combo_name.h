// What a screen reader calls a combo box. The toolkit gives it the text it shows for its name, and what has the focus
// in one that is typed into is its line: so the line bears the name, and one without a line has it for its description.
#pragma once

#include <QComboBox>
#include <QLineEdit>

namespace tz {

inline void nameCombo(QComboBox& combo, const QString& name) {
  combo.setAccessibleName(name);
  if (QLineEdit* line = combo.lineEdit()) {
    line->setAccessibleName(name);
  } else {
    combo.setAccessibleDescription(name);
  }
}

}  // namespace tz
