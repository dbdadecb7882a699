// The dialog of Find: asks for members as condition dialogs do. A name that nobody bears is taken too: no row has it.
#pragma once

#include "desktop/query/query_dialog.h"

namespace tz {

class FindDialog : public CTzQueryDialog {
 public:
  using CTzQueryDialog::CTzQueryDialog;

 protected:
  [[nodiscard]] std::optional<Refusal> Refused() override { return std::nullopt; }
};

}  // namespace tz
