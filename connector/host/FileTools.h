#ifndef LUMARO_CONNECTOR_HOST_FILE_TOOLS_H_
#define LUMARO_CONNECTOR_HOST_FILE_TOOLS_H_

#include <string>
#include <string_view>

namespace host {

// The host's helpers for its working files.
class FileTools {
 public:
  virtual ~FileTools() = default;
  // Appends one entry (date text and message) to `file_name` in `folder`.
  virtual void WriteLog(std::string_view date_text, std::string_view message,
                        std::string_view folder, std::string_view file_name) = 0;
};

// The host's rules for names.
class NameTools {
 public:
  virtual ~NameTools() = default;
  // Whether a group or family name may not be used as it stands.
  virtual bool IsReserved(std::string_view name) const = 0;
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_FILE_TOOLS_H_
