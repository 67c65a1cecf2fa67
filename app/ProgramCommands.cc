// The commands on stored data: settings, host context and the file log.

#include <termios.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <iostream>
#include <pugixml.hpp>
#include <sstream>
#include <stdexcept>

#include "app/AttachedHost.h"
#include "app/Program.h"
#include "connector/host/Conversions.h"
#include "connector/host/Error.h"
#include "connector/host/FieldConverter.h"
#include "settingsui/BackOfficeConnection.h"

namespace app {
namespace {

constexpr char kSettingsKey1[] = "Orbiva.Vendara.Connector";
constexpr char kSettingsKey2[] = "Lumaro";

std::string ReadWholeFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read '" + path + "'");
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

// The stored document, one attribute a line, so that a person can read it;
// the order of the attributes is the document's own.
std::string Readable(const std::string& xml) {
  pugi::xml_document document;
  if (!document.load_string(xml.c_str())) return xml + "\n";
  std::ostringstream text;
  document.save(text, "  ",
                pugi::format_indent | pugi::format_indent_attributes | pugi::format_no_declaration);
  return text.str();
}

// A line typed at the terminal without its echo, after the prompt on
// stderr; a line of standard input as it comes when that is no terminal.
// Without its line end.
// The terminal as it was before its echo went off: put back on an
// interruption too, so that Ctrl-C does not leave it silent.
termios saved_terminal;

void RestoreTerminalAndStop(int signal_number) {
  ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &saved_terminal);
  std::signal(signal_number, SIG_DFL);
  std::raise(signal_number);
}

std::string ReadSecretLine(std::ostream& err, const char* prompt) {
  bool terminal = ::isatty(STDIN_FILENO) == 1;
  if (terminal) {
    err << prompt << std::flush;
    ::tcgetattr(STDIN_FILENO, &saved_terminal);
    termios quiet = saved_terminal;
    quiet.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    std::signal(SIGINT, RestoreTerminalAndStop);
    std::signal(SIGTERM, RestoreTerminalAndStop);
    ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &quiet);
  }
  std::string line;
  bool read = static_cast<bool>(std::getline(std::cin, line));
  if (terminal) {
    ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &saved_terminal);
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    err << '\n';
  }
  if (!read) throw std::runtime_error("no password was given");
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return line;
}

}  // namespace

int Program::SettingsPassword() {
  RequireArguments(2, "settings password");
  std::optional<lumaro::LumaroConnectorSetting> settings = StoredSettings();
  if (!settings) {
    err_ << "lumaro: no settings are stored: load them first with `lumaro settings load FILE`\n";
    return kFailure;
  }
  settings->SQLPassword = ReadSecretLine(err_, "SQL Server password: ");
  StoreSettings(*settings);
  return kSuccess;
}

void Program::WarnOfUntakenPassword(const std::string& xml, const std::string& file) {
  pugi::xml_document document;
  if (!document.load_string(xml.c_str())) return;
  std::string password = document.document_element().attribute("SQLPassword").as_string();
  if (password.empty()) return;
  try {
    Host().Context().Crypto().Decrypt(password);
  } catch (const host::Error&) {
    // The connector reads a password this installation did not encrypt as
    // no password at all, and says nothing.
    err_ << "lumaro: the SQLPassword of '" << file
         << "' is not one this installation encrypted, so it was not taken: set the password "
            "with `lumaro settings password`\n";
  }
}

int Program::SettingsCommand() {
  const auto& args = options_.command;
  if (args.size() < 2) {
    throw UsageError("usage: lumaro settings show|load FILE|password|delete|validate");
  }
  const std::string& action = args[1];
  if (action == "show") {
    RequireArguments(2, "settings show");
    auto text = Host().Settings().StoredText(kSettingsKey1, kSettingsKey2);
    if (!text) {
      err_ << "lumaro: no settings are stored\n";
      return kFailure;
    }
    out_ << Readable(*text);
    return kSuccess;
  }
  if (action == "load") {
    RequireArguments(3, "settings load FILE");
    std::string xml = ReadWholeFile(args[2]);
    if (!Connector().LoadDefaults(xml)) {
      err_ << "lumaro: the connector could not store the settings of '" << args[2] << "'\n";
      return kFailure;
    }
    WarnOfUntakenPassword(xml, args[2]);
    return kSuccess;
  }
  if (action == "password") return SettingsPassword();
  if (action == "delete") {
    RequireArguments(2, "settings delete");
    if (!Connector().Delete()) {
      err_ << "lumaro: the connector could not delete the settings\n";
      return kFailure;
    }
    return kSuccess;
  }
  if (action == "validate") {
    RequireArguments(2, "settings validate");
    bool valid = Connector().ValidateSettings();
    if (!options_.quiet) out_ << (valid ? "valid" : "not valid") << '\n';
    return valid ? kSuccess : kFailure;
  }
  throw UsageError("unknown settings command '" + action + "'");
}

int Program::BackOfficeCommand() {
  const auto& args = options_.command;
  if (args.size() != 2 || args[1] != "test") throw UsageError("usage: lumaro backoffice test");
  std::optional<lumaro::LumaroConnectorSetting> settings = StoredSettings();
  if (!settings) {
    err_ << "lumaro: no settings are stored: load them first with `lumaro settings load FILE`\n";
    return kFailure;
  }
  AttachedHost attached(Host());
  return lumaro::TestBackOfficeConnection(*settings) ? kSuccess : kFailure;
}

int Program::HostCommand() {
  const auto& args = options_.command;
  if (args.size() >= 2 && args[1] == "show") {
    RequireArguments(2, "host show");
    for (const auto& entry : Host().ContextStore().All()) {
      out_ << entry.key << ": " << entry.value << '\n';
    }
    return kSuccess;
  }
  if (args.size() >= 2 && args[1] == "set") {
    RequireArguments(4, "host set KEY VALUE");
    Host().ContextStore().Set(args[2], args[3]);
    return kSuccess;
  }
  throw UsageError("usage: lumaro host show | host set KEY VALUE");
}

int Program::LogCommand() {
  const auto& args = options_.command;
  standalone::PosEngine& db = Host().Database();
  bool has_table = db.Schema().TableExists("LumaroLog");
  if (args.size() == 1) {
    // The columns of the log viewer; the size is read but not shown.
    out_ << "Posto\tFicheiro\tData Importação\tData Ficheiro\n";
    if (!has_table) return kSuccess;
    auto rs = db.OpenRecordset(
        "SELECT WorkstationID, Filename, ImportDate, FileSize, FileDate FROM LumaroLog ORDER BY "
        "WorkstationID, ImportDate, FileDate DESC");
    using host::FieldConverter;
    for (; !rs->Eof(); rs->MoveNext()) {
      out_ << FieldConverter::ToText(rs->Fields("WorkstationID")) << '\t'
           << FieldConverter::ToText(rs->Fields("Filename")) << '\t'
           << host::DateText(FieldConverter::ToDate(rs->Fields("ImportDate"))) << '\t'
           << host::DateText(FieldConverter::ToDate(rs->Fields("FileDate"))) << '\n';
    }
    return kSuccess;
  }
  if (args[1] != "delete") throw UsageError("usage: lumaro log | log delete WORKSTATION FILENAME");
  RequireArguments(4, "log delete WORKSTATION FILENAME");
  char* end = nullptr;
  long workstation = std::strtol(args[2].c_str(), &end, 10);
  if (args[2].empty() || *end != '\0') {
    throw UsageError("the workstation is a number, not '" + args[2] + "'");
  }
  std::string where = " WHERE WorkstationID=" + std::to_string(workstation) + " AND Filename='" +
                      db.SqlFormat().QuoteText(args[3]) + "'";
  if (!has_table || db.OpenRecordset("SELECT Filename FROM LumaroLog" + where)->Eof()) {
    err_ << "lumaro: the log has no file '" << args[3] << "' of workstation " << workstation
         << '\n';
    return kFailure;
  }
  db.OpenRecordset("DELETE FROM LumaroLog" + where);
  return kSuccess;
}

}  // namespace app
