#!/usr/bin/env bash
# Benchmark of a whole import run: one import file of ITEMS items (each an AR
# record with 3 AP prices and 1 AB barcode; every fifth item tracked by lot,
# with 2 AL lots), imported by `lumaro import` into an empty POS database,
# then imported again after its date moved (every item updated). Prints the
# time and peak memory of each run (GNU time) and the size of the file.
#
#   bench/import-items.sh [ITEMS]      (default 100000)
#
# With PREPARE_ONLY=DIR set, it only makes the POS database, settings and
# file in DIR, so that a timing tool can run the import itself on copies.
#
# Needs a build in build/ (scripts/build), the sqlite3 program and awk.
set -euo pipefail
items=${1:-100000}
root="$(cd "$(dirname "$0")/.." && pwd)"
. "$root/bench/common.sh"

"$lumaro" --quiet init
"$lumaro" settings load "$root/examples/settings.xml"
mkdir -p exchange
# Three price lines known by the back office's keys 1 to 3, a family, and the
# lot rule that the items tracked by lot follow.
sqlite3 vendara.db <<'SQL'
UPDATE PriceLine SET PriceLineKey='1' WHERE PriceLineID=1;
INSERT INTO PriceLine (PriceLineID, PriceLineKey, ShortName, Description) VALUES
  (2, '2', 'PVP2', 'Preço de venda 2'), (3, '3', 'PVP3', 'Preço de venda 3');
INSERT INTO Family (FamilyID, FamilyKey, FamilyName, FamilyLevel, FamilyPath) VALUES
  (1, 'GeneralFamily', 'Geral', 0, 'Geral'), (2, '01', 'Mercearia', 1, 'Geral\Mercearia');
INSERT INTO ItemProperty (PropertyID, Description, KeyDescription, PropertyKeyType,
  UseProductionDate, UseExpirationDate, ExpirationDateControl)
VALUES ('CL', 'Controla Lotes', 'CL', 202, 1, 1, 1);
SQL

# The file, in the back office's manner: Windows-1252 ("\351" is "é"), CR LF.
awk -v items="$items" 'BEGIN {
  printf "HF^4^1^EMP01^2026\r\n"
  for (i = 1; i <= items; i++) {
    code = sprintf("A%06d", i)
    lot = (i % 5 == 0) ? 1 : 0
    printf "AR^%s^Artigo %d^Artigo de mercearia n\351 %d^A^01^01^^^^^%d^UN^UN^1^0^0^^^^%d^^15-01-2026^^0\r\n", \
      code, i, i, 1 + i % 4, lot
    for (p = 1; p <= 3; p++)
      printf "AP^%s^%d^%d,%02d^01-03-2026^^^^%s\r\n", code, p, 1 + i % 50 + p, i % 100, \
        (p == 3 ? "1" : "0")
    printf "AB^56%011d^%s^^^1\r\n", i, code
  }
  for (i = 5; i <= items; i += 5) {
    code = sprintf("A%06d", i)
    printf "AL^%s^L%d-1^^01-01-2026^01-01-2027^01\r\n", code, i
    printf "AL^%s^L%d-2^^01-02-2026^01-02-2027^01\r\n", code, i
  }
}' > exchange/ITpv0000001.txt

[ -n "${PREPARE_ONLY:-}" ] && exit 0
ls -l exchange/ITpv0000001.txt
/usr/bin/time -f "import of $items items into an empty POS: %e s wall, %U s user, %M KiB peak" \
  "$lumaro" --quiet --now "2026-11-23 09:00:00" import
touch -d "+1 minute" exchange/ITpv0000001.txt
/usr/bin/time -f "the same file again, every item updated: %e s wall, %U s user, %M KiB peak" \
  "$lumaro" --quiet --now "2026-11-23 09:00:00" import
sqlite3 vendara.db "SELECT 'items ' || count(*) FROM Item; SELECT 'prices ' || count(*) FROM ItemSellingPrices WHERE PriceWithTax > 0; SELECT 'barcodes ' || count(*) FROM Item WHERE Barcode <> ''; SELECT 'lots ' || count(*) FROM StockProperty;"
