-- What the POS holds before the back office's file ITpv0001.txt arrives:
-- the rows its records refer to by key, two customers that stand in the
-- way of its numbers, and the part of the family tree it hangs on.

-- A retention rate and a tax regime of the shop's own, so that a customer's
-- defaults are seen to come from here.
UPDATE ConfSystem SET RetentionTax = 20, TaxRegime = 3;

INSERT INTO Zone (ZoneID, ZoneKey, Description) VALUES (1, 'Z10', 'Norte'), (2, 'Z20', 'Sul');
INSERT INTO CustomerGroups (GroupID, GroupKey, Description) VALUES (5, 'GR1', 'Revenda');
INSERT INTO PriceLine (PriceLineID, PriceLineKey, ShortName, Description, LanguageID)
VALUES (2, 'PV2', 'PVP2', 'Preço de venda 2', 'PT'),
       (3, 'PV3', 'PVP3', 'Preço de venda 3', 'PT');
INSERT INTO Carrier (CarrierID, CarrierKey, Description)
VALUES (3, 'TR1', 'Transportes Um'), (4, 'TR2', 'Transportes Dois');
INSERT INTO Payment (PaymentID, PaymentKey, Description)
VALUES (7, 'PG30', '30 dias'), (8, 'PG60', '60 dias');
INSERT INTO Supplier (SupplierID, SupplierKey, OrganizationName) VALUES (4, 'F1', 'Fornecedor Um');
INSERT INTO UnitOfMeasure (UnitOfMeasureID, Description, LanguageID, BaseUnitOfMeasureID,
  UnitRatio, UnitFormula)
VALUES ('CX', 'Caixa', 'PT', 'CX', 1, '');

-- The rows a back-office load makes for the item properties.
INSERT INTO ItemProperty (PropertyID, Description, KeyDescription, PropertyKeyType, ControlMode,
  ControlType, UsePropertyTable, UseProductionDate, UseExpirationDate, ExpirationDateControl,
  MaximumQuantity)
VALUES ('CL', 'Controla Lotes', 'CL', 202, 0, 0, 0, 1, 1, 1, 0),
       ('CCT', 'Controla Cores/Tamanho', 'CCT', 202, 0, 0, 0, 0, 0, 1, 0),
       ('RLV', 'Regista Lotes na Venda', 'RLV', 202, 0, 1, 0, 1, 1, 1, 0),
       ('CNS', 'Controla Números de Série', 'CNS', 202, 0, 0, 0, 0, 0, 1, 1),
       ('RNV', 'Regista Nº de Série na Venda', 'RNV', 202, 0, 1, 0, 0, 0, 1, 1);

-- Salesman V01 with values of his own, which the import puts back to the
-- fixed ones.
INSERT INTO Salesman (SalesmanID, SalesmanKey, SalesmanName, Comments, CountryID, SalesmanLevel,
  MaximumDiscount, SalesGroupID, ComissionOnSale, ComissionOnPay, ComissionIncidenceType,
  SpokenLanguageID)
VALUES (1, 'V01', 'Vendedor Antigo', 'antigo', '', 3, 10, 2, 5, 50, 1, 'EN');

-- The root and family "01", whose children the file brings. "01" is a
-- service family with a stale name, a discount and level rows of its own.
INSERT INTO Family (FamilyID, FamilyKey, FamilyName, ParentFamilyID, ParentFamilyName,
  FamilyLevel, FamilyPath, MaximumDiscount, IsServiceFamily, FamilyItemKind)
VALUES (1, 'GeneralFamily', 'Geral', 0, 'Geral', 0, 'Geral', 100, 0, 0),
       (2, '01', 'Bebida', 1, 'Geral', 1, 'Geral\Bebida', 50, 1, 1);
INSERT INTO FamilyProfitRate (FamilyID, LevelNumber, LevelValue)
VALUES (2, 1, 10), (2, 2, 20), (2, 3, 30);

-- Customer 501 was made at the till and exported; the file brings it back
-- under its number. Customer 502 is someone else, whose id the file's 502
-- would take.
INSERT INTO Party (PartyID, PartyType) VALUES (501, 1), (502, 1);
INSERT INTO PartyAddress (PartyID, AddressID, AddressLine1, AddressLine2, PostalCode)
VALUES (501, 0, 'Rua Velha', 'Gaia', '4400-001'),
       (502, 0, 'Rua X', 'Braga', '4700-001');
INSERT INTO Customer (CustomerID, CustomerKey, OrganizationName, FederalTaxID, EmailAddress,
  Telephone1, Fax, CountryID, CurrencyID, AddressID, ZoneID, PaymentID, TenderID, TaxRegime,
  DirectDiscount, AplyRetentionTax, RetentionTax, Inactive, Comments, CreationDate,
  CustomerLevel, PriceLineID, SalesmanID, CarrierID, SecondDiscount, CreditLimitType,
  CreditLimitAmount, CreditLimitDays, CreditCurrencyID, PresetText)
VALUES (501, 'Exported', 'Cliente Balcão', '999999990', 'velho@exemplo.pt', '220000000',
        '220000009', 'PT', 'EUR', 0, 2, 8, 10, 2, 5, 1, 0, 0, 'Criado no balcão',
        '2026-02-10 12:00:00', 5, 3, 1, 4, 3, 3, 500, 30, 'EUR', 'XYZ'),
       (502, '9502', 'Outro Cliente', '500000000', 'outro@exemplo.pt', '253000000', '', 'PT',
        'EUR', 0, 2, 7, 1, 1, 0, 0, 0, 0, '', NULL, 0, 1, 1, 3, 0, 0, 0, 0, 'EUR', '');
