#include "connector/host/Error.h"

#include <utility>

namespace host {

namespace {

// What the classic run time calls an error it raises without a description.
constexpr char kApplicationDefined[] = "Application-defined or object-defined error";

std::string WhatText(int32_t number, const std::string& source, const std::string& description) {
  std::string text = "error " + std::to_string(number);
  if (!source.empty()) text += " in " + source;
  return text + ": " + description;
}

}  // namespace

Error::Error(int32_t number, std::string description, std::string source)
    : number_(number),
      description_(std::move(description)),
      source_(std::move(source)),
      what_(WhatText(number_, source_, description_)) {}

Error Error::WithSource(std::string source) const {
  return Error(number_, description_, std::move(source));
}

std::string StandardDescription(int32_t number) {
  switch (number) {
    case err::kInvalidProcedureCall:
      return "Invalid procedure call or argument";
    case err::kOverflow:
      return "Overflow";
    case err::kSubscriptOutOfRange:
      return "Subscript out of range";
    case err::kTypeMismatch:
      return "Type mismatch";
    case err::kFileNotFound:
      return "File not found";
    case err::kDeviceIoError:
      return "Device I/O error";
    case err::kFileAlreadyExists:
      return "File already exists";
    case err::kPermissionDenied:
      return "Permission denied";
    case err::kPathNotFound:
      return "Path not found";
    case err::kObjectNotSet:
      return "Object variable or With block variable not set";
    case err::kInvalidPatternString:
      return "Invalid pattern string";
    case err::kInvalidUseOfNull:
      return "Invalid use of Null";
    case err::kNoCurrentRecord:
      return "Either BOF or EOF is True, or the current record has been deleted. Requested "
             "operation requires a current record.";
    case err::kItemNotFound:
      return "Item cannot be found in the collection corresponding to the requested name or "
             "ordinal.";
    case err::kOperationNotAllowedWhenClosed:
      return "Operation is not allowed when the object is closed.";
    default:
      return "";
  }
}

void Raise(int32_t number, std::string source) {
  std::string description = StandardDescription(number);
  if (description.empty()) description = kApplicationDefined;
  throw Error(number, std::move(description), std::move(source));
}

void RaiseWith(int32_t number, std::string description, std::string source) {
  throw Error(number, std::move(description), std::move(source));
}

}  // namespace host
