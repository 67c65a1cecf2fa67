#ifndef LUMARO_CONNECTOR_HOST_ERROR_H_
#define LUMARO_CONNECTOR_HOST_ERROR_H_

#include <cstdint>
#include <exception>
#include <string>

namespace host {

// The error numbers that the system keeps and tests against.
namespace err {
inline constexpr int32_t kInvalidProcedureCall = 5;
inline constexpr int32_t kOverflow = 6;
inline constexpr int32_t kSubscriptOutOfRange = 9;
inline constexpr int32_t kTypeMismatch = 13;
inline constexpr int32_t kFileNotFound = 53;
inline constexpr int32_t kDeviceIoError = 57;  // a write that did not reach the file
inline constexpr int32_t kFileAlreadyExists = 58;
inline constexpr int32_t kPermissionDenied = 70;
inline constexpr int32_t kPathNotFound = 76;
inline constexpr int32_t kObjectNotSet = 91;
inline constexpr int32_t kInvalidPatternString = 93;  // Like with an unclosed "["
inline constexpr int32_t kInvalidUseOfNull = 94;
inline constexpr int32_t kNoCurrentRecord = 3021;
inline constexpr int32_t kItemNotFound = 3265;
inline constexpr int32_t kOperationNotAllowedWhenClosed = 3704;
// 0x80040E14: the database refused an SQL statement.
inline constexpr int32_t kSqlRefused = -2147217900;
}  // namespace err

// A raised run-time error: a number, the source that raised it and a
// description. Every failure of the host and of the connector is one of these.
class Error : public std::exception {
 public:
  Error(int32_t number, std::string description, std::string source = "");

  int32_t Number() const { return number_; }
  const std::string& Source() const { return source_; }
  const std::string& Description() const { return description_; }

  // The same number and description with `source` in place of the old source:
  // what "raised again with the source <X>" means.
  Error WithSource(std::string source) const;

  const char* what() const noexcept override { return what_.c_str(); }

 private:
  int32_t number_;
  std::string description_;
  std::string source_;
  std::string what_;
};

// The description the run time gives to its own error numbers
// ("Overflow", "Type mismatch", ...); empty for numbers it does not know.
std::string StandardDescription(int32_t number);

// Raises `number` with its standard description.
[[noreturn]] void Raise(int32_t number, std::string source = "");

// Raises `number` with the given description.
[[noreturn]] void RaiseWith(int32_t number, std::string description, std::string source = "");

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_ERROR_H_
