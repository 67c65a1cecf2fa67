#ifndef LUMARO_CONNECTOR_HOST_VARIANT_H_
#define LUMARO_CONNECTOR_HOST_VARIANT_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "connector/host/Date.h"

namespace host {

enum class VariantType {
  kEmpty,    // never set
  kNull,     // a database NULL
  kBoolean,  // True is -1, False is 0 as a number
  kInteger,  // 16-bit
  kLong,     // 32-bit
  kDouble,
  kDate,
  kString,  // UTF-8 text
  kBytes,
};

// A field or dictionary value in the manner of the classic run time.
// Conversions between kinds live in Conversions.h; this class only holds.
class Variant {
 public:
  using Bytes = std::vector<unsigned char>;

  Variant() = default;  // Empty
  Variant(bool value) : value_(value) {}
  Variant(int16_t value) : value_(value) {}
  Variant(int32_t value) : value_(value) {}
  Variant(double value) : value_(value) {}
  Variant(Date value) : value_(value) {}
  Variant(std::string value) : value_(std::move(value)) {}
  Variant(std::string_view value) : value_(std::string(value)) {}
  Variant(const char* value) : value_(std::string(value)) {}
  Variant(Bytes value) : value_(std::move(value)) {}

  static Variant Null() {
    Variant v;
    v.value_ = NullTag{};
    return v;
  }

  VariantType Type() const { return static_cast<VariantType>(value_.index()); }
  bool IsEmpty() const { return Type() == VariantType::kEmpty; }
  bool IsNull() const { return Type() == VariantType::kNull; }
  bool IsNumeric() const;  // Boolean, Integer, Long, Double

  // Direct access to the held value; the caller has checked Type().
  bool AsBoolean() const { return std::get<bool>(value_); }
  int16_t AsInteger() const { return std::get<int16_t>(value_); }
  int32_t AsLong() const { return std::get<int32_t>(value_); }
  double AsDouble() const { return std::get<double>(value_); }
  Date AsDate() const { return std::get<Date>(value_); }
  const std::string& AsString() const { return std::get<std::string>(value_); }
  const Bytes& AsBytes() const { return std::get<Bytes>(value_); }

  // Same kind and same value (two Empty or two Null are equal).
  friend bool operator==(const Variant& a, const Variant& b) { return a.value_ == b.value_; }

 private:
  struct EmptyTag {
    friend bool operator==(EmptyTag, EmptyTag) { return true; }
  };
  struct NullTag {
    friend bool operator==(NullTag, NullTag) { return true; }
  };
  // The order of the alternatives is the order of VariantType.
  std::variant<EmptyTag, NullTag, bool, int16_t, int32_t, double, Date, std::string, Bytes>
      value_;
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_VARIANT_H_
