#include "desktop/query/query_fields.h"

#include <cassert>

#include "desktop/query/query_field_parts.h"

namespace tz {

std::unique_ptr<QueryField> makeField(const ControlSpec& spec, QWidget* dialog) {
  for (const auto make :
       {makeReferenceField, makeListField, makeRangeField, makeAccountListsField, makeFigureField, makeChoiceField}) {
    if (auto field = make(spec, dialog)) return field;
  }
  assert(!"a kind of control without a field");
  return nullptr;
}

}  // namespace tz
