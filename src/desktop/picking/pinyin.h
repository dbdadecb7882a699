// Chinese names found by their sound: "zgjk" and "zhigongjiekuan" both find 职工借款. The readings come from ICU, which
// is asked on the first search by letters; a few signs that names use with a second reading answer to both.
#pragma once

#include <QByteArrayView>
#include <QStringView>

namespace tz {

// The first place in `text` from which `typed` (small letters and digits) spells what follows: each sign by its whole
// reading or by the beginning of it, in any mixture. -1 when there is none.
[[nodiscard]] qsizetype pinyinPlace(QStringView text, QByteArrayView typed);

// Whether this is something that pinyinPlace() could find: letters, perhaps with digits.
[[nodiscard]] bool looksLikePinyin(QStringView typed);

}  // namespace tz
