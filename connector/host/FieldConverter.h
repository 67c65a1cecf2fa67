#ifndef LUMARO_CONNECTOR_HOST_FIELD_CONVERTER_H_
#define LUMARO_CONNECTOR_HOST_FIELD_CONVERTER_H_

#include <string>

#include "connector/host/Date.h"
#include "connector/host/Variant.h"

namespace host {

// Reads a field's value into the kind the caller asks for. NULL (and Empty)
// never fail: ToText gives "", ToNumber 0, ToDate date 0, ToBoolean False.
// Text that holds a stored date ("YYYY-MM-DD HH:MM:SS") or a stored truth
// value ("1"/"0") reads back as what it stands for; a text that is no
// number reads as the number 0 (a currency code "EUR" read as a number).
class FieldConverter {
 public:
  static std::string ToText(const Variant& value);
  static double ToNumber(const Variant& value);
  static Date ToDate(const Variant& value);
  static bool ToBoolean(const Variant& value);
};

// NumberTools: conversion of text and numbers.
class NumberTools {
 public:
  // Reads a number with the given decimal separator, whatever the regional
  // settings. Raises 13 on text that is no number.
  static double ParseNumber(std::string_view text, std::string_view decimal_separator);
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_FIELD_CONVERTER_H_
