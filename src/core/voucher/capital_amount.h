// Amounts in capital Chinese numerals, as they stand on vouchers and cheques: 1234.56 is
// "壹仟贰佰叁拾肆元伍角陆分".
#pragma once

#include <string>

namespace tz {

// Of an amount in home currency, rounded to cents as figures are. "整" closes amounts that end with yuan or jiao, "负"
// stands before negative ones. Empty for what is no number.
[[nodiscard]] std::string capitalAmount(double amount);

}  // namespace tz
