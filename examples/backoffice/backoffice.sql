-- The back office's database of a small shop, as the initial load reads it:
-- the tables and columns the load names, with rows that exercise it. Built
-- into a SQLite file by make-backoffice; the connector reaches such a file
-- when the settings' SQLDataSource reads "sqlite:FOLDER". Declared types
-- follow SQL Server's (DATETIME, BIT, SMALLINT, FLOAT), so that each column
-- reads as the back office's would.

-- Currencies: the euro, the escudo (an old euro currency, with its fixed
-- rate), two others with their exchange, one with no exchange, and a code of
-- more than three characters that falls on the euro's id.
CREATE TABLE Moeda (
  CMoe VARCHAR(5) NOT NULL PRIMARY KEY,
  DESCR VARCHAR(40),
  DtCamb DATETIME,
  Rnd SMALLINT,
  RndP SMALLINT,
  UEM BIT,
  TConv FLOAT,
  Camb FLOAT);
INSERT INTO Moeda VALUES ('EUR', 'Euro', '2026-01-02 00:00:00', 2, 4, 1, 1, 1);
INSERT INTO Moeda VALUES ('PTE', 'Escudo', '2001-12-31 00:00:00', 0, 0, 1, 200.482, 1);
INSERT INTO Moeda VALUES ('USD', ' Dólar americano ', '2026-11-20 00:00:00', 2, 4, 0, 0, 1.0842);
INSERT INTO Moeda VALUES ('GBP', 'Libra esterlina', '2026-11-20 00:00:00', -1, 3, 0, 0, 0.8391);
INSERT INTO Moeda VALUES ('CHF', 'Franco suíço', NULL, 2, 2, 0, 0, 0);
INSERT INTO Moeda VALUES ('EURO2', 'Euro (segunda)', NULL, 2, 2, 1, 1, 1);

-- The company's parameters: its seat (the tax region), the IVA rates as a
-- history by date (a rate in the future is not yet in force), the reason
-- of exemption, the retention tax, the digits of each family level.
CREATE TABLE ParEmp (
  CPar VARCHAR(30) NOT NULL PRIMARY KEY,
  Valor VARCHAR(100));
INSERT INTO ParEmp VALUES ('Sede', 'C');
INSERT INTO ParEmp VALUES ('TxIvaCN20100701', '21');
INSERT INTO ParEmp VALUES ('TxIvaCN20110101', '23');
INSERT INTO ParEmp VALUES ('TxIvaCN20990101', '25');
INSERT INTO ParEmp VALUES ('TxIvaCI20110101', '13');
INSERT INTO ParEmp VALUES ('TxIvaCR20110101', '6');
INSERT INTO ParEmp VALUES ('TxIvaMN20240101', '22');
INSERT INTO ParEmp VALUES ('TxIvaMI20240101', '12');
INSERT INTO ParEmp VALUES ('TxIvaMR20240101', '4');
INSERT INTO ParEmp VALUES ('TxIvaAN20240101', '16');
INSERT INTO ParEmp VALUES ('TxIvaAI20240101', '9');
INSERT INTO ParEmp VALUES ('TxIvaAR20240101', '4');
INSERT INTO ParEmp VALUES ('TaxExemptionReason', 'M07 - Isento nos termos do artigo 9.º do CIVA');
INSERT INTO ParEmp VALUES ('TemIRRetC', '1');
INSERT INTO ParEmp VALUES ('TxIRRet', '11.5');
INSERT INTO ParEmp VALUES ('CFam1', '2');
INSERT INTO ParEmp VALUES ('CFam2', '2');
INSERT INTO ParEmp VALUES ('CFam3', '3');

-- User groups and operators; two operators share a description.
CREATE TABLE Grupo (
  CGr VARCHAR(10) NOT NULL PRIMARY KEY,
  Descr VARCHAR(40));
INSERT INTO Grupo VALUES ('ADM', 'Administração');
INSERT INTO Grupo VALUES ('LOJA', 'Loja');
INSERT INTO Grupo VALUES ('ARM', '');

CREATE TABLE Opers (
  COper VARCHAR(10) NOT NULL PRIMARY KEY,
  Descr VARCHAR(40),
  CGr VARCHAR(10));
INSERT INTO Opers VALUES ('ANA', 'Ana Sousa', 'ADM');
INSERT INTO Opers VALUES ('RUI', 'Rui Lopes', 'LOJA');
INSERT INTO Opers VALUES ('RUI2', 'Rui Lopes', 'LOJA');
INSERT INTO Opers VALUES ('EVA', 'Eva Matos', 'ARM');

-- The delegations, with the range of customer numbers of each.
CREATE TABLE Deleg (
  CDlg INTEGER NOT NULL PRIMARY KEY,
  Descr VARCHAR(40),
  CCliIn FLOAT,
  CCliFi FLOAT);
INSERT INTO Deleg VALUES (1, 'Porto', 100000, 199999);
INSERT INTO Deleg VALUES (2, 'Lisboa', 200000, -1);

-- Kits: a kit's components (its presence turns the POS's kits on).
CREATE TABLE ArAgr (
  CArt VARCHAR(20) NOT NULL,
  CArtC VARCHAR(20) NOT NULL,
  Qtd FLOAT,
  PRIMARY KEY (CArt, CArtC));
INSERT INTO ArAgr VALUES ('CABAZ', 'PAO', 2);
INSERT INTO ArAgr VALUES ('CABAZ', 'CAFE', 1);

-- Payment conditions (cash, by days, in parts) and the parts of one.
CREATE TABLE CDPag (
  CPag VARCHAR(10) NOT NULL PRIMARY KEY,
  DESCR VARCHAR(40),
  PPag BIT,
  tipo VARCHAR(1),
  Dias SMALLINT);
INSERT INTO CDPag VALUES ('PP', 'Pronto pagamento', 1, 'D', 0);
INSERT INTO CDPag VALUES ('30D', '30 dias', 0, 'D', 30);
INSERT INTO CDPag VALUES ('3X', 'Três prestações', 0, 'P', 0);

CREATE TABLE CdCob (
  Cpag VARCHAR(10) NOT NULL,
  Dias SMALLINT NOT NULL,
  Perc FLOAT,
  PRIMARY KEY (Cpag, Dias));
INSERT INTO CdCob VALUES ('3X', 30, 40);
INSERT INTO CdCob VALUES ('3X', 60, 30);
INSERT INTO CdCob VALUES ('3X', 90, 30);
