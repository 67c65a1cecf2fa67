#include "standalone/schema/SchemaParts.h"

namespace standalone::schema {

// The stand-alone host's own tables: its context (work folder, company
// number, regional settings ...) and the settings its connectors store.
std::vector<std::string_view> HostSchema() {
  return {
      R"sql(
CREATE TABLE HostContext (
  ContextKey VARCHAR(50) NOT NULL PRIMARY KEY,
  ContextValue TEXT NOT NULL DEFAULT ''))sql",
      R"sql(
CREATE TABLE ConnectorSettings (
  Key1 VARCHAR(100) NOT NULL,
  Key2 VARCHAR(100) NOT NULL,
  XMLSettings TEXT NOT NULL DEFAULT '',
  PRIMARY KEY (Key1, Key2)))sql",
  };
}

}  // namespace standalone::schema
