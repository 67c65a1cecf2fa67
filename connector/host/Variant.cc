#include "connector/host/Variant.h"

namespace host {

bool Variant::IsNumeric() const {
  switch (Type()) {
    case VariantType::kBoolean:
    case VariantType::kInteger:
    case VariantType::kLong:
    case VariantType::kDouble:
      return true;
    default:
      return false;
  }
}

}  // namespace host
