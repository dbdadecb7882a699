// Further vouchers of the daily kinds, for a sample company of any size. Of the lines written here two in eleven are on
// persons' loans and as many on customers, three fifths of either on one party, which so gets a tenth of all lines.
#pragma once

#include "core/sample/journal.h"
#include "core/sample/random.h"

namespace tz::sample {

class GrownBusiness {
 public:
  explicit GrownBusiness(const Growth& growth) : growth_(growth) {}
  void book(Journal& journal, Date date);

 private:
  struct Traveller {
    Id person;
    Dept dept;
  };
  Traveller traveller();
  Id customer();
  Voucher travel(Date date);
  Voucher sale(Date date);
  Voucher purchase(Date date);
  Voucher costs(Date date);
  Voucher issue(Date date);

  Growth growth_;
  Random random_{20'250'101};
  std::int64_t sales_ = 0;
};

}  // namespace tz::sample
