#!/usr/bin/env bash
# Benchmark of a whole export run: a POS database with DOCS cash sales of
# LINES lines each (and their tenders and taxes) and DOCS/10 new customers,
# exported by `lumaro export`. Prints the time and peak memory of the export
# (GNU time) and the size of the file.
#
#   bench/export-day.sh [DOCS] [LINES]      (defaults 20000 and 3)
#
# With PREPARE_ONLY=DIR set, it only makes the POS database and settings in
# DIR, so that a timing tool can run the export itself on copies of it:
#   PREPARE_ONLY=/tmp/day bench/export-day.sh 20000 3
#   cp -r /tmp/day /tmp/run && cd /tmp/run && lumaro --quiet export
#
# Needs a build in build/ (scripts/build) and the sqlite3 program.
set -euo pipefail
docs=${1:-20000}
lines=${2:-3}
root="$(cd "$(dirname "$0")/.." && pwd)"
. "$root/bench/common.sh"

bench_prepare() {
  "$lumaro" --quiet init
  "$lumaro" settings load "$root/examples/settings.xml"
  mkdir -p exchange
  sqlite3 vendara.db <<SQL
BEGIN;
WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < $docs / 10)
INSERT INTO Customer (CustomerID, CustomerKey, OrganizationName, FederalTaxID)
SELECT 5000 + i, '', 'Cliente ' || i, printf('5%08d', i) FROM n;
WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < $docs)
INSERT INTO SaleTransaction (TransSerial, TransDocument, TransDocNumber, CreateDate, PartyID,
  CurrencyID, TransactionTaxIncluded, TotalTransactionAmount, WorkstationID, UserAlt)
SELECT 'A', 'TVD', i, '2026-11-20 10:00:00', CASE WHEN i % 10 = 0 THEN 5000 + i / 10 ELSE 0 END,
  'EUR', 1, 12.5 * $lines, 1 + i % 2, 1 FROM n;
WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < $docs),
     l(j) AS (SELECT 1 UNION ALL SELECT j + 1 FROM l WHERE j < $lines)
INSERT INTO SaleTransactionDetails (TransSerial, TransDocument, TransDocNumber, LineItemID,
  ItemID, Description, Units, Quantity, UnitOfSaleID, TaxIncludedPrice, UnitPrice,
  TotalNetPrintAmout, CreateDate)
SELECT 'A', 'TVD', i, j, 'ART' || j, 'Artigo ' || j, 1, 1, 'UN', 12.5, 10.16, 12.5,
  '2026-11-20 10:00:00' FROM n, l;
INSERT INTO TaxTransactionDetail (TransSerial, TransDocument, TransDocNumber, LineItemID,
  TaxGroupID, TaxRate)
SELECT TransSerial, TransDocument, TransDocNumber, LineItemID, 'IVA', 23
FROM SaleTransactionDetails;
INSERT INTO TenderLineItem (TransSerial, TransDocument, TransDocNumber, TransOrder, TenderID,
  Amount)
SELECT TransSerial, TransDocument, TransDocNumber, 1, 1, TotalTransactionAmount
FROM SaleTransaction;
COMMIT;
SQL
}

bench_prepare
[ -n "${PREPARE_ONLY:-}" ] && exit 0
/usr/bin/time -f "export of $docs documents x $lines lines: %e s wall, %U s user, %M KiB peak" \
  "$lumaro" --quiet --now "2026-11-23 09:00:00" export
ls -l exchange
