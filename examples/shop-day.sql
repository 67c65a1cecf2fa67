-- A small shop day for the example run, after the back office's files were
-- imported: two sales at the till of imported items (one of a customer made
-- at the till, paid in cash; one on credit, of the imported customer 2001)
-- and one receipt on account. The settings in settings.xml export them.
INSERT INTO Customer (CustomerID, CustomerKey, OrganizationName, FederalTaxID, EmailAddress)
VALUES (1001, '', 'Padaria Conceição, Lda', '509876543', 'geral@padaria.pt');
INSERT INTO PartyAddress (PartyID, AddressID, AddressLine1, PostalCode)
VALUES (1001, 0, 'Rua da Prata 12', '1100-420 Lisboa');

INSERT INTO SaleTransaction (TransSerial, TransDocument, TransDocNumber, CreateDate, PartyID,
  CurrencyID, TransactionTaxIncluded, TotalTransactionAmount, WorkstationID, UserAlt)
VALUES ('A', 'TVD', 1, '2026-11-20 09:12:40', 1001, 'EUR', 1, 7.5, 1, 1),
       ('A', 'TVD', 2, '2026-11-20 11:02:05', 2001, 'EUR', 1, 1.6, 2, 1);
UPDATE SaleTransaction SET TransactionCreditSale = 1 WHERE TransDocNumber = 2;

INSERT INTO SaleTransactionDetails (TransSerial, TransDocument, TransDocNumber, LineItemID,
  ItemID, Description, Units, Quantity, UnitOfSaleID, TaxIncludedPrice, UnitPrice,
  TotalNetPrintAmout, CreateDate)
VALUES ('A', 'TVD', 1, 1, 'PAO', 'Pão de centeio', 3, 3, 'UN', 2.5, 2.36, 7.5, '2026-11-20 09:12:40'),
       ('A', 'TVD', 2, 1, 'CAFE', 'Café expresso', 2, 2, 'UN', 0.8, 0.71, 1.6, '2026-11-20 11:02:05');
INSERT INTO TaxTransactionDetail (TransSerial, TransDocument, TransDocNumber, LineItemID,
  TaxGroupID, TaxRate)
VALUES ('A', 'TVD', 1, 1, 'IVA', 6), ('A', 'TVD', 2, 1, 'IVA', 13);
INSERT INTO TenderLineItem (TransSerial, TransDocument, TransDocNumber, TransOrder, TenderID,
  Amount)
VALUES ('A', 'TVD', 1, 1, 1, 7.5);

INSERT INTO TenderTransaction (TransSerial, TransDocument, TransDocNumber, CreateDate,
  TotalTransactionAmount, WorkstationID, UserAlt)
VALUES ('A', 'TVD', 100, '2026-11-20 17:45:00', 20, 1, 1);
INSERT INTO TenderLineItem (TransSerial, TransDocument, TransDocNumber, TransOrder, TenderID,
  Amount)
VALUES ('A', 'TVD', 100, 1, 1, 20);
