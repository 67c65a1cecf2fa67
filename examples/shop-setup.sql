-- The least of what the initial load leaves in a shop's POS database that
-- the example import files refer to by the back office's codes (those of
-- examples/backoffice): the price lines, a zone, a customer group, a
-- carrier, a payment term, and the rule of the items tracked by lot. For
-- the tests that import those files without a back office to load from.
UPDATE PriceLine SET PriceLineKey = '1' WHERE PriceLineID = 1;
INSERT INTO PriceLine (PriceLineID, PriceLineKey, ShortName, Description, LanguageID)
VALUES (2, '2', 'Revenda', 'Preço de revenda', 'PT');
INSERT INTO Zone (ZoneID, ZoneKey, Description, ZoneType, CountryID)
VALUES (1, '1', 'Portugal continental', 0, 'PT');
INSERT INTO CustomerGroups (GroupID, GroupKey, Description) VALUES (1, 'REV', 'Revenda');
INSERT INTO Carrier (CarrierID, CarrierKey, Description) VALUES (1, 'CTT', 'CTT Expresso');
INSERT INTO Payment (PaymentID, PaymentKey, Description) VALUES (1, 'PP', 'Pronto pagamento');
INSERT INTO Family (FamilyID, FamilyKey, FamilyName, FamilyLevel, MaximumDiscount, FamilyPath)
VALUES (1, 'GeneralFamily', 'Geral', 0, 100, 'Geral');
INSERT INTO ItemProperty (PropertyID, Description, KeyDescription, PropertyKeyType, ControlMode,
  ControlType, UsePropertyTable, UseProductionDate, UseExpirationDate, ExpirationDateControl,
  MaximumQuantity)
VALUES ('CL', 'Controla Lotes', 'CL', 202, 0, 0, 0, 1, 1, 1, 0);
