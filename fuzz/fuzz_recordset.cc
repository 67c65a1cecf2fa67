// The client-side recordset's Filter and Find over fixed rows that hold
// every kind of value: texts (with quotes, accents, blanks and an empty
// one), 16- and 32-bit integers, doubles, truth values, dates with and
// without a time, Null, Empty and bytes.
//
// The input is split at its first newline: the part before is the Filter,
// the part after the Find. A host::Error is a valid outcome (a criteria that
// is malformed, names a column the recordset lacks or compares what cannot
// be compared). Beyond crashes, the target checks what the recordset
// promises: the rows visible are as many as RecordCount says and every one
// reads; a Find stops on a row or at EOF; and a Find with the Filter's own
// single clause, from the first row of what the Filter let through, finds
// that first row.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "connector/host/Date.h"
#include "connector/host/Error.h"
#include "connector/host/Recordset.h"
#include "connector/host/RecordsetCriteria.h"
#include "connector/host/Regional.h"
#include "connector/host/Variant.h"

namespace {

using host::Variant;

[[noreturn]] void Broken(const char* promise) {
  std::fprintf(stderr, "recordset breaks its promise: %s\n", promise);
  std::abort();
}

host::Recordset MakeRows() {
  const Variant null = Variant::Null();
  const Variant empty;
  const Variant bytes(Variant::Bytes{0x00, 0xFF, 0x41});
  std::vector<std::string> columns = {"ID",      "Name", "Price",  "Qty",   "Active",
                                      "Created", "Note", "Código", "Bytes", "Name"};
  std::vector<host::Recordset::Row> rows = {
      {int32_t{1}, "Café", 2.5, int16_t{3}, true, host::MakeDate(2026, 3, 14), "a'b", "ç", bytes,
       "second"},
      {int32_t{2}, "cafe", -0.0, int16_t{-32768}, false, host::MakeDate(2026, 3, 14, 10, 0, 0),
       null, "Ç", null, empty},
      {int32_t{-2147483647 - 1}, "", 1e300, int16_t{32767}, null,
       host::MakeDate(1899, 12, 30, 23, 59, 59), empty, "", empty, "x"},
      {int32_t{2147483647}, "  blanks  ", 1e-300, null, true, host::Date{-1.25}, "100%", "_under",
       bytes, null},
      {null, null, null, null, null, null, null, null, null, null},
      {empty, empty, empty, empty, empty, empty, empty, empty, empty, empty},
      {int32_t{7}, "O'Neil [x]", 0.1 + 0.2, int16_t{0}, false, host::MakeDate(9999, 12, 31),
       "#date#", "*?", bytes, "Name"},
      {int32_t{8}, "2026-03-14", 20260314.0, int16_t{14}, true, host::MakeDate(100, 1, 1),
       "14-03-2026", "12,5", null, "12.5"},
  };
  return host::Recordset(std::move(columns), std::move(rows));
}

// Reads every field of every visible row by position and by name; returns
// the rows read.
int32_t ReadAll(host::Recordset& rs) {
  int32_t read = 0;
  for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) {
    for (int i = 0; i < rs.FieldCount(); ++i) {
      const Variant& by_position = rs.Fields(i);
      const Variant& by_name = rs.Fields(rs.FieldName(i));
      (void)by_position;
      (void)by_name;
    }
    ++read;
  }
  return read;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  host::SetCurrentRegional(host::RegionalSettings::Portuguese());
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const size_t newline = input.find('\n');
  const std::string_view filter = input.substr(0, newline);
  const std::string_view find =
      newline == std::string_view::npos ? std::string_view() : input.substr(newline + 1);

  host::Recordset rs = MakeRows();
  bool filtered = false;
  try {
    rs.SetFilter(filter);
    filtered = true;
  } catch (const host::Error&) {
    // A criteria refused leaves the recordset as it was: every row visible.
    if (rs.RecordCount() != 8) Broken("a refused Filter leaves the rows as they were");
  }
  if (ReadAll(rs) != rs.RecordCount()) Broken("RecordCount counts the rows visible");

  if (filtered && rs.RecordCount() > 0) {
    // The Filter's own clause, found from the first row it let through,
    // stops on that row.
    size_t clauses = 0;
    try {
      clauses = host::RecordsetCriteria(filter).ClauseCount();
    } catch (const host::Error&) {
      // An empty Filter has no clause.
    }
    if (clauses == 1) {
      rs.MoveFirst();
      try {
        if (!rs.Find(filter)) Broken("Find with the Filter's clause finds its first row");
        if (rs.Eof() || rs.Bof()) Broken("a Find that finds stands on a row");
      } catch (const host::Error&) {
        Broken("Find takes the clause that Filter took");
      }
    }
  }

  rs.MoveFirst();
  try {
    const bool found = rs.Find(find);
    if (found == rs.Eof()) Broken("a Find stops on a row, or at EOF when none matches");
    if (found) ReadAll(rs);
  } catch (const host::Error&) {
    // A Find that is refused.
  }
  return 0;
}
