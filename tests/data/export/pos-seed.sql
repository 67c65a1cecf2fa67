-- One shop day for the export file test, on a fresh POS database (schema and
-- factory data: document TVD, currency EUR with ExportCode 1, tenders 1 and
-- 10, user 1, price lines 0 and 1). Exchange point 02 of settings.xml takes
-- series A of POS workstations 1 and 2; its file is "ETpv 02 0000042.txt".
-- Dates are stored as 'YYYY-MM-DD HH:MM:SS'; midnight is a date without a
-- time part and is written without one.

-- Document types besides TVD. TGT is paid elsewhere: it does not ask for
-- payment (UsesPayment 0) although its PaymentMode is 1, so its sale goes
-- on credit (FP^C). REC and DEV are receipts; DEV takes money out ("-"), so
-- its tender lines are written with "D".
INSERT INTO Documents (TransDocumentID, Description, UsesPayment, PaymentMode, DocumentSign)
VALUES ('TGT', 'Guia de Transporte', 0, 1, '+'),
       ('REC', 'Recibo', 1, 1, '+'),
       ('DEV', 'Devolução de Dinheiro', 1, 1, '-');
INSERT INTO Series (TransSerial, Description, SeriesType) VALUES ('B', 'Série B', 1);

-- Back-office keys. Customer level 3 and salesman 3 share an id on purpose:
-- the level's lookup keeps its key under the salesman's cache key, so the
-- walk-in sale TVD A/4 of salesman 3 shows "GRP03", never "VEND03".
INSERT INTO CustomerGroups (GroupID, GroupKey, Description) VALUES (3, 'GRP03', 'Revenda');
INSERT INTO Salesman (SalesmanID, SalesmanKey, SalesmanName)
VALUES (3, 'VEND03', 'Rui Matos'), (7, 'VEND07', 'Ana Lopes');
INSERT INTO Carrier (CarrierID, CarrierKey, Description) VALUES (2, 'TR02', 'Transportes Norte');
INSERT INTO Payment (PaymentID, PaymentKey, Description) VALUES (4, '30D', 'A 30 dias');
INSERT INTO PriceLine (PriceLineID, PriceLineKey, ShortName, Description)
VALUES (2, 'PV2', 'PVP2', 'Preço de revenda');
INSERT INTO AppUsers (AppUserID, AppUserKey, AppUserName) VALUES (2, 'OP2', 'Operador 2');
INSERT INTO Tender (TenderID, TenderKey, Description) VALUES (2, '', 'Cheque');

-- Items: A001 has a back-office key (FL shows "REF-A001"); B002 has none, so
-- its ItemID is written. X900 (sold on TVD A/2) has no Item row at all.
INSERT INTO Item (ItemID, ItemKey, Description) VALUES ('A001', 'REF-A001', 'Pão de forma');
INSERT INTO Item (ItemID, ItemKey, Description) VALUES ('B002', '', 'Café moído 250g');

-- Customers. 1001 and 1002 are new (CustomerKey ''): each gets a CL line and
-- the key "Exported". 1001 has a level, price line, salesman and payment with
-- back-office keys, an address and retention tax. 1002 has "^" in its name,
-- which the CL line keeps (its later fields move one place), and no address
-- row. 1002 has two sales in the selection, so the join gives it twice and
-- its CL line is written twice, on purpose. 1003 came from the back office
-- (key C0042): no CL line. 1004 is new but its sales are outside the
-- selection: no CL line, and its key stays ''.
INSERT INTO Customer (CustomerID, CustomerKey, OrganizationName, FederalTaxID, EmailAddress,
  Telephone1, Fax, CustomerLevel, PriceLineID, SalesmanID, PaymentID, AplyRetentionTax)
VALUES (1001, '', 'Padaria Conceição, Lda', '501234567', 'geral@conceicao.pt', '222000111',
        '222000112', 3, 2, 7, 4, 1),
       (1002, '', 'Sousa^Filhos', '', '', '', '', 0, 1, 0, 0, 0),
       (1003, 'C0042', 'Café Central', '502000000', '', '', '', 0, 0, 7, 0, 0),
       (1004, '', 'Cliente do Posto 3', '', '', '', '', 0, 0, 0, 0, 0);
INSERT INTO PartyAddress (PartyID, AddressID, AddressLine1, AddressLine2, PostalCode)
VALUES (1001, 0, 'Rua do Comércio, 12', '2.º Esq.', '4000-123 Porto'),
       (1001, 1, 'Armazém da Maia', '', '4470-000 Maia');

-- The sales of the file, inserted in the order the customers' join must give
-- (1001, then 1002 twice) whichever table the database drives it from.
INSERT INTO SaleTransaction (TransSerial, TransDocument, TransDocNumber, CreateDate, TransStatus,
  PartyID, SalesmanID, CarrierID, CurrencyID, TransactionTaxIncluded, TransactionCreditSale,
  TotalTransactionAmount, GlobalDiscountPercent, Comments, ContractReferenceNumber,
  LoadPlaceDescription, LoadPlaceDateTime, UnloadPlaceDescription, UnloadPlaceDateTime,
  PartyName, PartyAddress1, PartyAddress2, PartyPostalCode, PartyFederalTaxID, WorkstationID,
  UserAlt)
VALUES
  -- TVD A/1: cash sale of customer 1001, prices with tax; paid by two lines
  -- of tender 1 (20 given, 7,5 back): one FP^X of 12,5.
  ('A', 'TVD', 1, '2026-11-23 09:05:00', 0, 1001, 7, 0, 'EUR', 1, 0, 12.5, 0, '', '',
   '', NULL, '', NULL, '', '', '', '', '', 1, 2),
  -- TVD A/2: customer 1002, prices without tax; two cheques: two FP^X.
  ('A', 'TVD', 2, '2026-11-23 10:40:00', 0, 1002, 0, 0, 'EUR', 0, 0, 50, 0, '', '',
   '', NULL, '', NULL, '', '', '', '', '', 1, 1),
  -- TGT A/1: the earliest sale, at midnight (HF's date "23-11-2026"); a
  -- document that asks for no payment: FP^C. Carrier, places, contract and
  -- comments, "^" in the texts that FC cleans.
  ('A', 'TGT', 1, '2026-11-23 00:00:00', 0, 1002, 7, 2, 'EUR', 1, 0, 100, 2.5,
   'Entregar^antes das 18h', 'CT-2026/15', 'Armazém^Central', '2026-11-23 14:00:00',
   'Loja do Porto', '2026-11-24 00:00:00', '', '', '', '', '', 2, 2),
  -- TVD A/3: credit sale of the known customer 1003: FP^C, although the
  -- sale has a tender line (tender 10).
  ('A', 'TVD', 3, '2026-11-23 11:00:00', 0, 1003, 7, 0, 'EUR', 1, 1, 40, 0, '', '',
   '', NULL, '', NULL, '', '', '', '', '', 2, 1),
  -- TVD A/4: walk-in customer with "^" in the name: FM; salesman 3.
  ('A', 'TVD', 4, '2026-11-23 12:30:15', 0, 0, 3, 0, 'EUR', 0, 0, 7, 0, '', '',
   '', NULL, '', NULL, 'João^Sousa', 'Rua da Praça, 5', '3.º Dto.', '1000-001 Lisboa',
   '123456789', 2, 2),
  -- TVD A/10: voided (TransStatus 1); its lines are only in
  -- PostVoidTransaction; no tender row, so no FP line. Number 10 comes after
  -- 4: the order is by number, not by text.
  ('A', 'TVD', 10, '2026-11-23 13:00:00', 1, 0, 0, 0, 'EUR', 1, 0, 3.2, 0, '', '',
   '', NULL, '', NULL, '', '', '', '', '', 1, 1);

-- Sales that no file may take (and that are earlier than the file's date):
-- POS workstation 3 is outside the list; series B is another entry's; TVD A/7
-- was exported already.
INSERT INTO SaleTransaction (TransSerial, TransDocument, TransDocNumber, CreateDate, PartyID,
  CurrencyID, TotalTransactionAmount, WorkstationID, UserAlt, AccountingExportDate)
VALUES ('A', 'TVD', 6, '2026-11-20 08:00:00', 1004, 'EUR', 5, 3, 1, NULL),
       ('B', 'TVD', 1, '2026-11-21 08:00:00', 0, 'EUR', 5, 1, 1, NULL),
       ('A', 'TVD', 7, '2026-11-19 17:00:00', 1004, 'EUR', 5, 1, 1, '2026-11-20 00:00:00');

-- The lines. Units differ from Quantity on TVD A/1 line 2 ("S"); the others
-- are "V". Line 2 of TVD A/1 has a sub-line (LineItemSubID 1) that FL leaves
-- out.
INSERT INTO SaleTransactionDetails (TransSerial, TransDocument, TransDocNumber, LineItemID,
  LineItemSubID, ItemID, Description, Units, Quantity, UnitOfSaleID, UnitPrice,
  TaxIncludedPrice, CumulativeDiscountPercent1, CumulativeDiscountPercent2,
  CumulativeDiscountPercent3, TotalNetPrintAmout, CreateDate, WorkstationID)
VALUES
  ('A', 'TVD', 1, 1, 0, 'A001', 'Pão de forma', 2, 2, 'UN', 2.35, 2.49, 0, 0, 0, 4.98,
   '2026-11-23 09:05:00', 1),
  ('A', 'TVD', 1, 2, 0, 'B002', 'Café moído 250g', 6, 1, 'CX', 6.11, 7.52, 0, 0, 0, 7.52,
   '2026-11-23 09:05:00', 1),
  ('A', 'TVD', 1, 2, 1, 'B002-C', 'Componente', 1, 1, 'UN', 0, 0, 0, 0, 0, 0,
   '2026-11-23 09:05:00', 1),
  -- Without tax the price written is UnitPrice. Line 1 has only a stamp-duty
  -- row ("IS"), line 2 no tax row: both rates are empty.
  ('A', 'TVD', 2, 1, 0, 'X900', 'Açúcar^amarelo 1kg', 1.5, 1.5, 'KG', 20, 24.6, 5, 2.5, 0,
   30, '2026-11-23 10:40:00', 1),
  ('A', 'TVD', 2, 2, 0, 'A001', 'Cartão oferta 5€', 4, 4, 'UN', 5, 5, 0, 0, 0, 20,
   '2026-11-23 10:41:30', 1),
  ('A', 'TGT', 1, 1, 0, 'A001', 'Pão de forma', 40, 40, 'UN', 2.36, 2.5, 0, 0, 0, 100,
   '2026-11-23 00:00:00', 2),
  ('A', 'TVD', 3, 1, 0, 'B002', 'Café moído 250g', 1, 1, 'UN', 32.52, 40, 0, 0, 0, 40,
   '2026-11-23 11:00:00', 2),
  ('A', 'TVD', 4, 1, 0, 'A001', 'Pão de forma', 1, 1, 'UN', 7, 8.61, 0, 0, 0, 7,
   '2026-11-23 12:30:15', 2),
  ('A', 'TVD', 6, 1, 0, 'A001', 'Pão de forma', 2, 2, 'UN', 2.5, 2.5, 0, 0, 0, 5,
   '2026-11-20 08:00:00', 3),
  ('B', 'TVD', 1, 1, 0, 'A001', 'Pão de forma', 2, 2, 'UN', 2.5, 2.5, 0, 0, 0, 5,
   '2026-11-21 08:00:00', 1),
  ('A', 'TVD', 7, 1, 0, 'A001', 'Pão de forma', 2, 2, 'UN', 2.5, 2.5, 0, 0, 0, 5,
   '2026-11-19 17:00:00', 1);
INSERT INTO PostVoidTransaction (TransSerial, TransDocument, TransDocNumber, LineItemID,
  LineItemSubID, ItemID, Description, Units, Quantity, UnitOfSaleID, UnitPrice,
  TaxIncludedPrice, TotalNetPrintAmout, CreateDate, WorkstationID)
VALUES ('A', 'TVD', 10, 1, 0, 'A001', 'Pão de forma', 1, 1, 'UN', 3.02, 3.2, 3.2,
        '2026-11-23 13:00:00', 1);

-- Line properties: PropertyValue1 of TVD A/1 line 1 and of the voided line.
INSERT INTO TransactionPropDetails (TransSerial, TransDocument, TransDocNumber, LineItemID,
  LineItemSubID, ItemID, PropertyValue1, Quantity)
VALUES ('A', 'TVD', 1, 1, 0, 'A001', 'LOTE-7', 2);
INSERT INTO PostVoidTranPropDetails (TransSerial, TransDocument, TransDocNumber, LineItemID,
  LineItemSubID, ItemID, PropertyValue1, Quantity)
VALUES ('A', 'TVD', 10, 1, 0, 'A001', 'LOTE-9', 1);

-- Tax of the lines: only the group IVA gives the rate.
INSERT INTO TaxTransactionDetail (TransSerial, TransDocument, TransDocNumber, LineItemID,
  LineItemSubID, TaxGroupID, TaxSequenceID, TaxRate)
VALUES ('A', 'TVD', 1, 1, 0, 'IVA', 3, 6),
       ('A', 'TVD', 1, 2, 0, 'IVA', 1, 23),
       ('A', 'TVD', 2, 1, 0, 'IS', 1, 10),
       ('A', 'TGT', 1, 1, 0, 'IVA', 3, 6),
       ('A', 'TVD', 3, 1, 0, 'IVA', 1, 23),
       ('A', 'TVD', 4, 1, 0, 'IVA', 1, 23),
       ('A', 'TVD', 10, 1, 0, 'IVA', 3, 6);

-- The tenders of the sales.
INSERT INTO TenderLineItem (TransSerial, TransDocument, TransDocNumber, TransOrder, TenderID,
  Amount, CurrencyID)
VALUES ('A', 'TVD', 1, 1, 1, 20, 'EUR'),
       ('A', 'TVD', 1, 2, 1, -7.5, 'EUR'),
       ('A', 'TVD', 2, 1, 2, 30, 'EUR'),
       ('A', 'TVD', 2, 2, 2, 20, 'EUR'),
       ('A', 'TVD', 3, 1, 10, 40, 'EUR'),
       ('A', 'TVD', 4, 1, 1, 7, 'EUR'),
       ('A', 'TVD', 6, 1, 1, 5, 'EUR');
INSERT INTO CheckTenderLineItem (TransSerial, TransDocument, TransDocNumber, TransOrder,
  CheckSequenceNumber, Amount)
VALUES ('A', 'TVD', 2, 1, 'CH-0001', 30),
       ('A', 'TVD', 2, 2, 'CH-0002', 20);

-- Receipts. REC A/1: two tender lines, the second a cheque; TC names the
-- tender of the first. DEV A/1 takes money out; it is older than every sale,
-- yet HF's date is the sales' date. REC A/2 is of POS workstation 3 and must
-- not appear.
INSERT INTO TenderTransaction (TransSerial, TransDocument, TransDocNumber, CreateDate, PartyID,
  CurrencyID, TotalTransactionAmount, WorkstationID, UserAlt)
VALUES ('A', 'REC', 1, '2026-11-23 15:45:00', 1003, 'EUR', 75.5, 1, 2),
       ('A', 'DEV', 1, '2026-11-22 18:00:00', 0, 'EUR', -15, 2, 1),
       ('A', 'REC', 2, '2026-11-23 16:00:00', 0, 'EUR', 10, 3, 1);
INSERT INTO TenderLineItem (TransSerial, TransDocument, TransDocNumber, TransOrder, TenderID,
  Amount, CurrencyID)
VALUES ('A', 'REC', 1, 1, 1, 50, 'EUR'),
       ('A', 'REC', 1, 2, 2, 25.5, 'EUR'),
       ('A', 'DEV', 1, 1, 1, -15, 'EUR'),
       ('A', 'REC', 2, 1, 1, 10, 'EUR');
INSERT INTO CheckTenderLineItem (TransSerial, TransDocument, TransDocNumber, TransOrder,
  CheckSequenceNumber, Amount)
VALUES ('A', 'REC', 1, 2, 'CH-0100', 25.5);
