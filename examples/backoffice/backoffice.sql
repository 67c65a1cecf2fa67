-- The back office's database of a small shop, as the initial load reads it:
-- the tables and columns the load names, with rows that exercise it. Built
-- into a SQLite file by make-backoffice; the connector reaches such a file
-- when the settings' SQLDataSource reads "sqlite:FOLDER". Declared types
-- follow SQL Server's (VARCHAR, SMALLINT, INTEGER, FLOAT, BIT, DATETIME,
-- IMAGE), so that each column reads as the back office's would.

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
  CArtAgr VARCHAR(20) NOT NULL,
  Qtd FLOAT,
  PRIMARY KEY (CArt, CArtAgr));
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

-- More payment conditions, so that each way of reading one is met: days
-- that are zero (read as cash), "d" in lower case with a code that is a
-- number (the one a supplier finds by its number), parts of one and of two
-- installments (told by their days alone), parts whose one installment
-- has no percentage and so does not count, and a kind the load does not
-- know.
INSERT INTO CDPag VALUES ('0D', 'A 0 dias', 0, 'D', 0);
INSERT INTO CDPag VALUES ('60', '60 dias', 0, 'd', 60);
INSERT INTO CDPag VALUES ('1X', 'Uma prestação', 0, 'P', 0);
INSERT INTO CDPag VALUES ('2X', 'Duas prestações', 0, 'P', 0);
INSERT INTO CDPag VALUES ('PX', 'Prestações por acordar', 0, 'P', 0);
INSERT INTO CDPag VALUES ('FM', 'Fim do mês', 0, 'M', 30);

-- The installments: one of 1X has no days and no percentage and is not
-- counted; PX has only one of no percentage.
INSERT INTO CdCob VALUES ('1X', 0, 0);
INSERT INTO CdCob VALUES ('1X', 45, 100);
INSERT INTO CdCob VALUES ('2X', 30, 50);
INSERT INTO CdCob VALUES ('2X', 60, 50);
INSERT INTO CdCob VALUES ('PX', 30, 0);

-- Four installments at uneven days: each counts its days from the one
-- before.
INSERT INTO CDPag VALUES ('4X', 'Quatro prestações', 0, 'P', 0);
INSERT INTO CdCob VALUES ('4X', 15, 25);
INSERT INTO CdCob VALUES ('4X', 45, 25);
INSERT INTO CdCob VALUES ('4X', 60, 25);
INSERT INTO CdCob VALUES ('4X', 120, 25);

-- Districts: "7" comes out as province "07" and keeps its key "7"; a
-- code of ten digits makes a province id too long for the POS, and the
-- district is left out.
CREATE TABLE Distr (
  CDist VARCHAR(10) NOT NULL PRIMARY KEY,
  DESCR VARCHAR(40));
INSERT INTO Distr VALUES ('13', 'Porto');
INSERT INTO Distr VALUES ('11', 'Lisboa');
INSERT INTO Distr VALUES ('7', 'Évora');
INSERT INTO Distr VALUES ('1234567890', 'Distrito de código longo');

-- Municipalities: the district and the municipality in one code, the last
-- two characters being the municipality ("705" is Évora of district "7").
-- A code of two characters has no district (province "00"); one under the
-- long district keeps that district, since only the municipality's own two
-- digits are measured.
CREATE TABLE Conce (
  CConc VARCHAR(12) NOT NULL PRIMARY KEY,
  DESCR VARCHAR(40));
INSERT INTO Conce VALUES ('1312', 'Porto');
INSERT INTO Conce VALUES ('1317', 'Vila Nova de Gaia');
INSERT INTO Conce VALUES ('1106', 'Lisboa');
INSERT INTO Conce VALUES ('705', 'Évora');
INSERT INTO Conce VALUES ('15', 'Concelho sem distrito');
INSERT INTO Conce VALUES ('123456789001', 'Concelho do distrito longo');

-- Zones of the three kinds: home (1 to 499), one of them without a
-- description, which takes its Sigla; the European Union (500 to 699);
-- outside it (700 to 999). A second zone named "Espanha" falls on the
-- first one's row; a code above 999 counts as home.
CREATE TABLE ZPais (
  CPais SMALLINT NOT NULL PRIMARY KEY,
  DESCR VARCHAR(40),
  Sigla VARCHAR(10));
INSERT INTO ZPais VALUES (1, 'Portugal continental', 'PT');
INSERT INTO ZPais VALUES (2, '', 'PT-RA');
INSERT INTO ZPais VALUES (500, 'Espanha', 'ES');
INSERT INTO ZPais VALUES (510, 'França', 'FR');
INSERT INTO ZPais VALUES (700, 'Estados Unidos', 'US');
INSERT INTO ZPais VALUES (710, 'Brasil', 'BR');
INSERT INTO ZPais VALUES (520, 'Espanha', 'ES-CN');
INSERT INTO ZPais VALUES (1000, 'Zona franca', 'ZF');

-- Price lines: two with the tax included in the price, one without.
CREATE TABLE Preca (
  CPre SMALLINT NOT NULL PRIMARY KEY,
  Sigla VARCHAR(10),
  DESCR VARCHAR(40),
  IvaI BIT);
INSERT INTO Preca VALUES (1, 'PVP', 'Preço de venda ao público', 1);
INSERT INTO Preca VALUES (2, 'REV', 'Revenda', 0);
INSERT INTO Preca VALUES (3, 'PROMO', 'Promoção', 1);

-- Carriers, one without a description, which takes its code.
CREATE TABLE MeExp (
  CMExp VARCHAR(10) NOT NULL PRIMARY KEY,
  DESCR VARCHAR(40));
INSERT INTO MeExp VALUES ('CTT', 'CTT Expresso');
INSERT INTO MeExp VALUES ('PROP', 'Viatura própria');
INSERT INTO MeExp VALUES ('TRANSP', '');

-- Salesmen: one without a name, which takes its code, and one inactive,
-- which the load leaves behind (a customer of his falls back on the first).
CREATE TABLE Vendr (
  CVen VARCHAR(10) NOT NULL PRIMARY KEY,
  DESCR VARCHAR(40),
  Obs VARCHAR(255),
  EInact BIT);
INSERT INTO Vendr VALUES ('V01', 'Carlos Pinto', 'Loja do Porto', 0);
INSERT INTO Vendr VALUES ('V02', 'Marta Reis', ' Clientes empresariais ', 0);
INSERT INTO Vendr VALUES ('V03', '', '', 0);
INSERT INTO Vendr VALUES ('V09', 'José Antunes', 'Saiu em 2025', 1);

-- Customer groups, one without a description.
CREATE TABLE GrpCl (
  CGrpC VARCHAR(10) NOT NULL PRIMARY KEY,
  DESCR VARCHAR(40));
INSERT INTO GrpCl VALUES ('PAR', 'Particulares');
INSERT INTO GrpCl VALUES ('EMP', 'Empresas');
INSERT INTO GrpCl VALUES ('REV', '');

-- Customers, of the home zone, the European Union and outside it: one with
-- no contacts and no further address, a company with its three contacts, a
-- taxpayer number with dots, notes in Obs and Anot, retention tax and two
-- further addresses; a discount given as a number ("7,5"), by a code
-- ("*A", asked by two customers) and by a code that gives none ("*F");
-- the four credit states; currencies by their codes (read as numbers, so
-- as the default currency); price line 0 (the fixed one); the inactive
-- salesman; an inactive customer of delegation 2; one of district "7"
-- whose group is not given and whose carrier, payment and price line the
-- back office does not know, with a credit state in lower case.
CREATE TABLE Clien (
  CCLI INTEGER NOT NULL PRIMARY KEY,
  Nome VARCHAR(60),
  Morada VARCHAR(60),
  Local VARCHAR(40),
  CPostal VARCHAR(20),
  CPais SMALLINT,
  CDist VARCHAR(5),
  CConc VARCHAR(6),
  CMoe VARCHAR(5),
  DataFich DATETIME,
  NCONTRIB VARCHAR(20),
  CVen VARCHAR(10),
  CPag VARCHAR(10),
  CMExp VARCHAR(10),
  Email VARCHAR(60),
  CPre SMALLINT,
  CDsc VARCHAR(10),
  DscFT FLOAT,
  TemIRRet BIT,
  SitCredito VARCHAR(3),
  MaxSaldo FLOAT,
  MaxDias SMALLINT,
  CGrpC VARCHAR(10),
  Obs VARCHAR(255),
  Anot VARCHAR(255),
  Fax VARCHAR(20),
  TELEF VARCHAR(20),
  Inact BIT,
  ATTTes VARCHAR(40),
  TelTes VARCHAR(20),
  ATTCom VARCHAR(40),
  TelCom VARCHAR(20),
  ATTGer VARCHAR(40),
  Telger VARCHAR(20));
INSERT INTO Clien VALUES (100001, 'Ana Ferreira', 'Rua de Santa Catarina, 120', 'Porto', '4000-442',
  1, '13', '1312', 'EUR', '2024-03-15 00:00:00', '212345670', 'V01', 'PP', 'CTT',
  'ana.ferreira@example.pt', 1, '', 0, 0, 'C', 0, 0, 'PAR', '', '', '', '912345678', 0,
  '', '', '', '', '', '');
INSERT INTO Clien VALUES (100002, ' Construções Douro, Lda. ', 'Avenida da República, 1500', 'Vila Nova de Gaia',
  '4430-204', 1, '13', '1317', 'EUR', '2023-06-01 00:00:00', '501.234.567', 'V02', '30D', 'PROP',
  'geral@construcoesdouro.example.pt', 2, '*A', 2.5, 1, 'L', 5000, 1500, 'EMP',
  'Entregas só de manhã', 'Pede fatura em duplicado', '223456780', '223456789', 0,
  'Rui Matos', '223456781', 'Sofia Lima', '', '', '934567890');
INSERT INTO Clien VALUES (100003, 'Distribuciones Vigo, S.L.', 'Rúa do Príncipe, 22', 'Vigo', '36202',
  500, '', '', 'EUR', '2025-01-20 00:00:00', 'ESB12345678', 'V09', '3X', 'TRANSP',
  'compras@distvigo.example.es', 2, '7,5', 0, 0, 'I', 0, 0, 'REV', '', 'Paga por transferência', '', '+34 986 123 456', 0,
  '', '', 'Pilar Souto', '+34 986 123 457', '', '');
INSERT INTO Clien VALUES (100004, 'Smith Trading Ltd', '12 Harbour Street', 'Boston', 'MA 02110',
  700, '', '', 'USD', '2025-09-09 00:00:00', 'US-98-7654321', 'V01', '2X', 'CTT',
  'orders@smithtrading.example.com', 0, '*A', 0, 0, 'X', 0, 0, 'EMP', '', '', '', '+1 617 555 0100', 0,
  '', '', '', '', 'John Smith', '');
INSERT INTO Clien VALUES (200001, 'Pastelaria Lisboeta', 'Rua Augusta, 8', 'Lisboa', '1100-053',
  1, '11', '1106', 'EUR', '2022-11-30 00:00:00', '509876543', 'V03', 'FM', 'CTT',
  '', 3, '*F', 0, 0, 'L', 800, 30, 'REV', '', '', '', '213456789', 1,
  '', '', '', '', '', '');
INSERT INTO Clien VALUES (100005, 'Adega do Alentejo', 'Rua de Avis, 3', 'Évora', '7000-591',
  1, '7', '705', 'EUR', '2026-02-02 00:00:00', '507.111.222', 'V02', 'XX', 'DHL',
  'adega@alentejo.example.pt', 9, '', 0, 0, ' l ', 0, 0, '', '', 'Só por marcação', '', '266700000', 0,
  '', '', '', '', '', '');

-- Further addresses of customers: one with telephone and fax, one with
-- neither (the address alone), one with only its manager's contact.
CREATE TABLE CliMo (
  CCli INTEGER NOT NULL,
  CMor VARCHAR(10) NOT NULL,
  Morada VARCHAR(60),
  Local VARCHAR(40),
  CPostal VARCHAR(20),
  CPais SMALLINT,
  Telef VARCHAR(20),
  Fax VARCHAR(20),
  ATTGer VARCHAR(40),
  Telger VARCHAR(20),
  PRIMARY KEY (CCli, CMor));
INSERT INTO CliMo VALUES (100002, 'ESTAL', 'Zona Industrial de Canelas, lote 4', 'Vila Nova de Gaia', '4410-036', 1, '', '', '', '');
INSERT INTO CliMo VALUES (100002, 'OBRA', 'Rua do Ouro, 300', 'Porto', ' 4150-552 ', 1, '226100200', '226100201', '', '');
INSERT INTO CliMo VALUES (100003, 'ALM', 'Polígono de Balaídos, 5', 'Vigo', '36210', 500, '', '', 'Xoán Pereira', '+34 986 200 300');

-- Discount codes: "*A" gives 12.5 (with its discounts by family), "*F"
-- refers to another code and gives nothing.
CREATE TABLE Desco (
  CDsc VARCHAR(10) NOT NULL PRIMARY KEY,
  CDscX VARCHAR(20));
INSERT INTO Desco VALUES ('*A', '12.5');
INSERT INTO Desco VALUES ('*F', '*A');

-- The discounts of a code by family, which the load opens and does not use.
CREATE TABLE DesFa (
  CDsc VARCHAR(10) NOT NULL,
  CFam VARCHAR(20) NOT NULL,
  PRIMARY KEY (CDsc, CFam));
INSERT INTO DesFa VALUES ('*A', '01');
INSERT INTO DesFa VALUES ('*A', '02');

-- Account totals (opening balances of a plain run, never of the initial
-- load): customers with a balance, one with a credit balance, one with none
-- and the account 0, both left out, and a supplier's account, not a
-- customer's. The statement filters on Saldo, a column of the table.
CREATE TABLE TerTo (
  TCon VARCHAR(1) NOT NULL,
  CCon INTEGER NOT NULL,
  SalTot FLOAT,
  Saldo FLOAT,
  PRIMARY KEY (TCon, CCon));
INSERT INTO TerTo VALUES ('C', 100002, 1250.4, 1250.4);
INSERT INTO TerTo VALUES ('C', 100004, -300, -300);
INSERT INTO TerTo VALUES ('C', 100001, 0, 0);
INSERT INTO TerTo VALUES ('C', 0, 75, 75);
INSERT INTO TerTo VALUES ('F', 1, 980, 980);

-- Families in three levels of 2, 2 and 3 digits (ParEmp CFam1 to CFam3):
-- goods and services ("S", and "s" in lower case), a family without a
-- description, which takes its Sigla, one without either, one whose name
-- the POS keeps for itself, and a family of level 3 whose parent of level
-- 2 is missing, which the tree never reaches.
CREATE TABLE FmArt (
  CFam VARCHAR(20) NOT NULL PRIMARY KEY,
  DESCR VARCHAR(40),
  Sigla VARCHAR(20),
  TipArt VARCHAR(1));
INSERT INTO FmArt VALUES ('01', 'Mercearia', 'MERC', 'A');
INSERT INTO FmArt VALUES ('0101', 'Padaria e pastelaria', 'PADARIA', 'A');
INSERT INTO FmArt VALUES ('0101001', 'Pão e farinhas', 'PAO', 'A');
INSERT INTO FmArt VALUES ('0101002', 'Bolos', 'BOLOS', 'A');
INSERT INTO FmArt VALUES ('0102', 'Cafetaria', 'CAFETARIA', 'A');
INSERT INTO FmArt VALUES ('0102001', 'Café', 'CAFE', 'A');
INSERT INTO FmArt VALUES ('0102002', '', 'Cabazes', 'A');
INSERT INTO FmArt VALUES ('02', 'Bebidas', 'BEB', 'A');
INSERT INTO FmArt VALUES ('0201', 'Vinhos', 'VINHOS', 'A');
INSERT INTO FmArt VALUES ('0201001', 'Vinhos do Douro', 'DOURO', 'A');
INSERT INTO FmArt VALUES ('0201002', '', '', 'A');
INSERT INTO FmArt VALUES ('0201003', 'Todos', 'TODOS', 'A');
INSERT INTO FmArt VALUES ('0299001', 'Vinhos sem região', 'SEMREG', 'A');
INSERT INTO FmArt VALUES ('03', 'Serviços', 'SERV', 'S');
INSERT INTO FmArt VALUES ('0301', 'Entregas', 'ENTREGAS', 's');
INSERT INTO FmArt VALUES ('0301001', 'Entregas ao domicílio', 'DOMICILIO', 'S');

-- Warehouses of delegation 1 (codes from 10000) and delegation 2 (from
-- 20000); one that is closed (EArm false) is never read; one of
-- delegation 4, whose code is beyond a 16-bit number.
CREATE TABLE Armaz (
  CArm INTEGER NOT NULL PRIMARY KEY,
  Sigla VARCHAR(40),
  Mora VARCHAR(60),
  Loca VARCHAR(40),
  CodP VARCHAR(20),
  EArm BIT);
INSERT INTO Armaz VALUES (10000, 'Armazém do Porto', 'Rua do Freixo, 1000', 'Porto', '4300-219', 1);
INSERT INTO Armaz VALUES (10001, 'Loja de Santa Catarina', 'Rua de Santa Catarina, 200', 'Porto', '4000-450', 1);
INSERT INTO Armaz VALUES (10002, 'Armazém antigo', 'Rua da Alegria, 5', 'Porto', '4000-034', 0);
INSERT INTO Armaz VALUES (20000, 'Armazém de Lisboa', 'Rua do Açúcar, 50', 'Lisboa', '1950-009', 1);
INSERT INTO Armaz VALUES (40000, 'Armazém de Faro', 'Estrada da Penha, 40', 'Faro', '8005-139', 1);

-- Suppliers: one with its three contacts and a further address, whose
-- payment is the condition with a code that is a number; one without
-- Morada (its Local takes the first line) and with a taxpayer number with
-- dots, whose payment code is text (it takes the first condition); one of
-- the European Union; one inactive; one outside the European Union that
-- sells in dollars. The table has no TemIRRet: suppliers take the
-- company's retention parameter.
CREATE TABLE Fornc (
  CFor INTEGER NOT NULL PRIMARY KEY,
  Nome VARCHAR(60),
  Morada VARCHAR(60),
  Local VARCHAR(40),
  CPostal VARCHAR(20),
  CPais SMALLINT,
  CDist VARCHAR(5),
  CConc VARCHAR(6),
  NCONTRIB VARCHAR(20),
  Email VARCHAR(60),
  CMoe VARCHAR(5),
  CPag VARCHAR(10),
  Fax VARCHAR(20),
  TELEF VARCHAR(20),
  Obs VARCHAR(255),
  DataFich DATETIME,
  DscCab FLOAT,
  Inact BIT,
  ATTTes VARCHAR(40),
  TelTes VARCHAR(20),
  ATTCom VARCHAR(40),
  TelCom VARCHAR(20),
  ATTGer VARCHAR(40),
  Telger VARCHAR(20));
INSERT INTO Fornc VALUES (1, 'Moagem do Norte, S.A.', 'Rua da Moagem, 10', 'Vila Nova de Gaia', '4400-001',
  1, '13', '1317', '500111222', 'encomendas@moagemnorte.example.pt', 'EUR', '60', '227000001', '227000000',
  'Entrega às segundas', '2020-02-10 00:00:00', 3, 0,
  'Paula Dias', '227000010', 'Nuno Vaz', '227000011', 'Henrique Sá', '227000012');
INSERT INTO Fornc VALUES (2, 'Torrefação Lisboa, Lda.', '', 'Lisboa', '1100-100',
  1, '11', '1106', '502.333.444', 'vendas@torrefacao.example.pt', 'EUR', '30D', '', '213000000',
  '', '2021-05-05 00:00:00', 0, 0,
  '', '', 'Inês Gomes', '213000010', '', '');
INSERT INTO Fornc VALUES (3, 'Bodegas del Duero, S.L.', 'Calle Mayor, 3', 'Zamora', '49001',
  500, '', '', 'ESB87654321', 'ventas@bodegasduero.example.es', 'EUR', 'PP', '', '+34 980 000 000',
  '', '2022-09-01 00:00:00', 5, 0,
  '', '', '', '', '', '');
INSERT INTO Fornc VALUES (4, 'Embalagens Évora', 'Rua do Raimundo, 12', 'Évora', '7000-661',
  1, '7', '705', '503555666', '', 'EUR', '30D', '', '266000000',
  'Já não fornece', '2019-01-15 00:00:00', 0, 1,
  '', '', '', '', '', '');
INSERT INTO Fornc VALUES (5, ' Pacific Coffee Importers ', '200 Pier Road', 'Seattle', 'WA 98101',
  700, '', '', 'US.91.1234567', 'sales@pacificcoffee.example.com', 'USD', '2X', '+1 206 555 0101', '+1 206 555 0100',
  ' Contentores de 20 pés ', '2024-04-04 00:00:00', 2.5, 0,
  '', '', '', '', '', '');

-- Further addresses of suppliers: a warehouse with telephone and fax, and
-- a winery with only its manager's contact.
CREATE TABLE ForMo (
  CFor INTEGER NOT NULL,
  CMor VARCHAR(10) NOT NULL,
  Morada VARCHAR(60),
  Local VARCHAR(40),
  CPostal VARCHAR(20),
  CPais SMALLINT,
  Telef VARCHAR(20),
  Fax VARCHAR(20),
  ATTGer VARCHAR(40),
  Telger VARCHAR(20),
  PRIMARY KEY (CFor, CMor));
INSERT INTO ForMo VALUES (1, 'ARM', 'Zona Industrial da Maia, 7', 'Maia', '4470-000', 1, '229000000', '229000001', '', '');
INSERT INTO ForMo VALUES (3, 'BOD', 'Carretera de Toro, km 2', 'Zamora', '49002', 500, '', '', 'Luis Prieto', '+34 980 000 001');

-- Banks: one with bank and branch, one without branch, one without a bank
-- code (its account is dropped), one inactive and never read.
CREATE TABLE CoBan (
  CBan SMALLINT NOT NULL PRIMARY KEY,
  Banco VARCHAR(40),
  Balcao VARCHAR(40),
  DESCR VARCHAR(40),
  TELEF VARCHAR(20),
  Fax VARCHAR(20),
  Nib_Ban VARCHAR(4),
  Nib_Bal VARCHAR(4),
  Nib_Con VARCHAR(11),
  Nib_Chk VARCHAR(2),
  CMoe VARCHAR(5),
  EInact BIT);
INSERT INTO CoBan VALUES (1, 'Banco Atlântico', 'Porto - Aliados', 'Conta à ordem', '222000000', '222000001', '0033', '0000', '45123456789', '05', 'EUR', 0);
INSERT INTO CoBan VALUES (2, 'Caixa Central', '', 'Conta em dólares', '213500000', '', '0035', '0697', '00012345678', '31', 'USD', 0);
INSERT INTO CoBan VALUES (3, 'Banco do Minho', 'Braga', 'Conta caucionada', '253000000', '', '', '', '', '', 'EUR', 0);
INSERT INTO CoBan VALUES (4, 'Banco Antigo', 'Porto - Boavista', 'Conta encerrada', '', '', '0010', '0001', '99999999999', '12', 'EUR', 1);

-- Articles of every kind: goods ("A"), services ("S", one with its tax type
-- between blanks, and "s" in lower case), made here ("F", a plain article
-- in the initial load), a kit ("G", the components of ArAgr); tracked by
-- lot (TemLot 1, lots of ArLot), by serial number (2) and by lot at the
-- sale (4, lots of the stock by lot, ArLoA); a sale unit of a box of 6 and
-- one of more than three characters (the default unit); sold by the scale;
-- with a picture, and with an empty one. Validities: always (TipVal 0),
-- from a date (1), within a period (2), before a date (4), outside a period
-- (5) and never (3). TAXA belongs to a family of level 2 only, so a load of
-- level 3 leaves it out. RIVA is the sales tax type (1 reduced, 2 normal, 3
-- intermediate, 4 exempt); the load reads this column when the table has
-- it, in the place of dbo.Artig_RIVA. CRup names the reorder levels of
-- ArRup.
CREATE TABLE Artig (
  CArt VARCHAR(20) NOT NULL PRIMARY KEY,
  TipArt VARCHAR(1),
  Sigla VARCHAR(100),
  DESCR VARCHAR(100),
  UNID VARCHAR(10),
  UNVE VARCHAR(10),
  UPUV VARCHAR(20),  -- text here: one article's factor reads "S"
  NMED SMALLINT,
  RIVA VARCHAR(5),
  CFam VARCHAR(20),
  CFam1 VARCHAR(20),
  CFam2 VARCHAR(20),
  CFam3 VARCHAR(20),
  CFam4 VARCHAR(20),
  TemLot SMALLINT,
  TemLotTab BIT,
  UsaImgInFAC BIT,
  Img IMAGE,
  UsaBalVen BIT,
  TipVal SMALLINT,
  DtValDe DATETIME,
  DtValAte DATETIME,
  CRup VARCHAR(10));
INSERT INTO Artig VALUES ('PAO', 'A', 'Pão de trigo', 'Pão de trigo, unidade', 'UN', 'UN', 1, 0, '1',
  '0101001', '01', '0101', '0101001', '', 0, 0, 1, X'89504E470D0A1A0A', 0, 0, NULL, NULL, 'PAD');
INSERT INTO Artig VALUES ('FARINHA', 'A', 'Farinha T65 a granel', 'Farinha de trigo tipo 65, a granel', 'KG', 'KG', 1, 0, '1',
  '0101001', '01', '0101', '0101001', '', 0, 0, 0, NULL, 1, 2, '2026-01-01 00:00:00', '2027-12-31 00:00:00', 'PAD');
INSERT INTO Artig VALUES ('BOLOREI', 'F', 'Bolo-rei', 'Bolo-rei de fabrico próprio, 1 kg', 'UN', 'UN', 1, 0, '2',
  '0101002', '01', '0101', '0101002', '', 0, 0, 0, NULL, 0, 1, '2026-11-01 00:00:00', NULL, 'PAD');
INSERT INTO Artig VALUES ('CAFE', 'A', 'Café em grão 1 kg', 'Café em grão, lote da casa, 1 kg', 'UN', 'UN', 1, 0, '2',
  '0102001', '01', '0102', '0102001', '', 1, 1, 0, NULL, 0, 0, NULL, NULL, 'CAF');
INSERT INTO Artig VALUES ('MOINHO', 'A', 'Moinho de café elétrico', 'Moinho de café elétrico, 150 W', 'UN', 'UN', 1, 0, '2',
  '0102001', '01', '0102', '0102001', '', 2, 1, 0, X'', 0, 5, '2025-01-01 00:00:00', '2025-03-31 00:00:00', '');
INSERT INTO Artig VALUES ('CABAZ', 'G', 'Cabaz pequeno-almoço', 'Cabaz de pequeno-almoço: pão e café', 'UN', 'UN', 1, 0, '2',
  '0102002', '01', '0102', '0102002', '', 0, 0, 0, X'424D3E0000000000', 0, 0, NULL, NULL, '');
INSERT INTO Artig VALUES ('VINHO', 'A', 'Vinho tinto Douro 75 cl', 'Vinho tinto DOC Douro, garrafa de 75 cl', 'UN', 'CX', 6, 0, '2',
  '0201001', '02', '0201', '0201001', '', 4, 0, 0, NULL, 0, 0, NULL, NULL, 'VIN');
INSERT INTO Artig VALUES ('VINHORES', 'A', 'Vinho tinto Douro Reserva 75 cl', 'Vinho tinto DOC Douro Reserva, garrafa de 75 cl', 'UN', 'CAIXA', 6, 0, '2',
  '0201001', '02', '0201', '0201001', '', 0, 0, 0, NULL, 0, 4, '2027-06-30 00:00:00', NULL, 'VIN');
INSERT INTO Artig VALUES ('VINHO19', 'A', 'Vinho tinto Douro 2019', 'Vinho tinto DOC Douro, colheita de 2019 (esgotado)', 'UN', 'UN', 1, 0, '2',
  '0201001', '02', '0201', '0201001', '', 0, 0, 0, NULL, 0, 3, '2024-12-31 00:00:00', NULL, '');
INSERT INTO Artig VALUES ('ENTREGA', 'S', 'Entrega ao domicílio', 'Entrega ao domicílio no concelho', 'UN', 'UN', 1, 0, ' 2 ',
  '0301001', '03', '0301', '0301001', '', 0, 0, 0, NULL, 0, 0, NULL, NULL, '');
INSERT INTO Artig VALUES ('TAXA', 's', 'Taxa de embalagem', 'Taxa de embalagem para oferta', 'UN', 'UN', 1, 0, '2',
  '0301', '03', '0301', '', '', 0, 0, 0, NULL, 0, 0, NULL, NULL, '');

-- More articles, for the units, the rules of lots and the items' fields:
-- oil sold by a unit whose code is padded to four characters (so no unit
-- is made for it), tracked by lot but with no lot anywhere, whose family is
-- the level-1 one; wrapping paper measured in square metres (NMED 1, whose
-- unit is never made) with a tax type the company does not have; honey
-- whose code ends in a blank, with a picture that is no bitmap and a main
-- barcode; a wrapping service in lower case ("s") with a known and an
-- unknown supplier; a box of six wines whose UPUV reads "S" (a factor that
-- is no number); a kit without components; a kit of wines whose family
-- has no level 3 (left out at that level); eggs sold by the dozen, a code
-- of three characters with its blank; an apron tracked by colour and size
-- (TemLot 3), a kitchen scale with serial numbers at the sale (5, one of
-- them without a code) and a cheese of TemLot 6 (no rule), with a Sigla
-- longer than 50 characters. Articles never loaded, one for each way of
-- failing the validity: from tomorrow (1, its sale unit FT made all the
-- same), a period that ended (2: the jam, a component of the breakfast
-- basket, with a lot), a date already past (4) and a period we are in (5).
INSERT INTO Artig VALUES ('AZEITE', 'A', 'Azeite virgem extra 1 l', 'Azeite virgem extra, garrafa de 1 l', 'UN', 'LT  ', 1, 0, '1',
  '01', '01', '0101', '0101001', '', 1, 1, 1, NULL, 0, 0, NULL, NULL, '');
INSERT INTO Artig VALUES ('PAPEL', 'A', 'Papel de embrulho', 'Papel de embrulho kraft, ao metro quadrado', 'M2', 'M2', 4, 1, '9',
  '0301001', '03', '0301', '0301001', '', 0, 0, 0, NULL, 0, 0, NULL, NULL, '');
INSERT INTO Artig VALUES ('MEL ', 'A', ' Mel de rosmaninho 500 g ', '  Mel de rosmaninho do Alentejo, frasco de 500 g  ', 'UN', 'UN', 1, 0, '1',
  '0101001', '01', '0101', '0101001', '', 0, 0, 0, X'FFD8FFE000104A464946', 0, 0, NULL, NULL, '');
INSERT INTO Artig VALUES ('EMBRULHO', 's', 'Embrulho para oferta', 'Serviço de embrulho para oferta', 'UN', 'UN', 1, 0, '2',
  '0301001', '03', '0301', '0301001', '', 0, 0, 0, NULL, 0, 0, NULL, NULL, '');
INSERT INTO Artig VALUES ('CAIXAVINHO', 'A', 'Caixa de 6 vinhos Douro', 'Caixa de seis garrafas de vinho tinto DOC Douro', 'UN', 'CX', 'S', 0, '2',
  '0201001', '02', '0201', '0201001', '', 0, 0, 0, NULL, 0, 0, NULL, NULL, 'VIN');
INSERT INTO Artig VALUES ('CABAZNATAL', 'G', 'Cabaz de Natal', 'Cabaz de Natal, composição a definir', 'UN', 'UN', 1, 0, '2',
  '0102002', '01', '0102', '0102002', '', 0, 0, 0, NULL, 0, 0, NULL, NULL, '');
INSERT INTO Artig VALUES ('CABAZVINHO', 'G', 'Cabaz de vinhos', 'Cabaz de três garrafas de vinho do Douro', 'UN', 'UN', 1, 0, '2',
  '0201', '02', '0201', '', '', 0, 0, 0, NULL, 0, 0, NULL, NULL, '');
INSERT INTO Artig VALUES ('OVOS', 'A', 'Ovos de galinhas criadas ao ar livre', 'Ovos classe M, de galinhas criadas ao ar livre', 'UN', 'DZ ', 12, 0, '1',
  '0101001', '01', '0101', '0101001', '', 0, 0, 0, NULL, 0, 0, NULL, NULL, '');
INSERT INTO Artig VALUES ('AVENTAL', 'A', 'Avental de cozinha', 'Avental de cozinha em algodão, várias cores e tamanhos', 'UN', 'UN', 1, 0, '2',
  '0102002', '01', '0102', '0102002', '', 3, 0, 0, NULL, 0, 0, NULL, NULL, '');
INSERT INTO Artig VALUES ('BALANCA', 'A', 'Balança de cozinha digital', 'Balança de cozinha digital até 5 kg', 'UN', 'UN', 1, 0, '2',
  '0102001', '01', '0102', '0102001', '', 5, 1, 0, NULL, 0, 0, NULL, NULL, '');
INSERT INTO Artig VALUES ('QUEIJO', 'A', 'Queijo Serra da Estrela DOP amanteigado, à peça de cerca de 1 kg',
  'Queijo Serra da Estrela DOP amanteigado, vendido à peça de cerca de 1 kg, ao peso', 'KG', 'KG', 1, 0, '1',
  '0101001', '01', '0101', '0101001', '', 6, 0, 0, NULL, 1, 0, NULL, NULL, '');
INSERT INTO Artig VALUES ('ROSCA', 'F', 'Rosca de Natal', 'Rosca de Natal, à fatia', 'UN', 'FT', 1, 0, '2',
  '0101002', '01', '0101', '0101002', '', 0, 0, 0, NULL, 0, 1, '2026-11-24 00:00:00', NULL, '');
INSERT INTO Artig VALUES ('COMPOTA', 'A', 'Compota de abóbora', 'Compota de abóbora, frasco de 250 g', 'UN', 'UN', 1, 0, '1',
  '0101001', '01', '0101', '0101001', '', 1, 1, 0, NULL, 0, 2, '2026-01-01 00:00:00', '2026-10-31 00:00:00', '');
INSERT INTO Artig VALUES ('FOLAR', 'F', 'Folar da Páscoa', 'Folar da Páscoa, só antes da Páscoa', 'UN', 'UN', 1, 0, '2',
  '0101002', '01', '0101', '0101002', '', 0, 0, 0, NULL, 0, 4, '2026-04-01 00:00:00', NULL, '');
INSERT INTO Artig VALUES ('GRELHADOR', 'A', 'Grelhador elétrico', 'Grelhador elétrico, fora da época de natal', 'UN', 'UN', 1, 0, '2',
  '0102001', '01', '0102', '0102001', '', 0, 0, 0, NULL, 0, 5, '2026-11-01 00:00:00', '2026-12-31 00:00:00', '');

-- Prices on the price lines: with and without tax included, one without a
-- date, and one on a line that does not exist (9), which writes nothing.
CREATE TABLE ArPre (
  CArt VARCHAR(20) NOT NULL,
  CPre SMALLINT NOT NULL,
  DtPre DATETIME,
  prev FLOAT,
  PRIMARY KEY (CArt, CPre));
INSERT INTO ArPre VALUES ('PAO', 1, '2026-09-01 00:00:00', 0.35);
INSERT INTO ArPre VALUES ('PAO', 2, '2026-09-01 00:00:00', 0.3);
INSERT INTO ArPre VALUES ('FARINHA', 1, '2026-10-01 00:00:00', 1.2);
INSERT INTO ArPre VALUES ('BOLOREI', 1, '2026-11-01 00:00:00', 14.5);
INSERT INTO ArPre VALUES ('BOLOREI', 3, NULL, 12.9);
INSERT INTO ArPre VALUES ('CAFE', 1, '2026-06-15 00:00:00', 16.9);
INSERT INTO ArPre VALUES ('CAFE', 2, '2026-06-15 00:00:00', 12.5);
INSERT INTO ArPre VALUES ('CAFE', 9, '2026-06-15 00:00:00', 10);
INSERT INTO ArPre VALUES ('MOINHO', 1, '2025-02-01 00:00:00', 89.9);
INSERT INTO ArPre VALUES ('CABAZ', 1, '2026-10-01 00:00:00', 24.9);
INSERT INTO ArPre VALUES ('CABAZ', 3, '2026-11-15 00:00:00', 19.9);
INSERT INTO ArPre VALUES ('VINHO', 1, '2026-03-01 00:00:00', 7.95);
INSERT INTO ArPre VALUES ('VINHO', 2, '2026-03-01 00:00:00', 5.6);
INSERT INTO ArPre VALUES ('VINHO', 3, '2026-11-15 00:00:00', 6.95);
INSERT INTO ArPre VALUES ('VINHORES', 1, '2026-03-01 00:00:00', 14.95);
INSERT INTO ArPre VALUES ('VINHO19', 1, '2024-01-01 00:00:00', 6.5);
INSERT INTO ArPre VALUES ('ENTREGA', 1, '2026-01-01 00:00:00', 5);
INSERT INTO ArPre VALUES ('TAXA', 1, '2026-01-01 00:00:00', 1);

-- Prices of the further articles: the box whose UPUV reads "S" has its
-- prices multiplied by a factor of 0; the honey's rows name its code with
-- the blank it ends in.
INSERT INTO ArPre VALUES ('AZEITE', 1, '2026-11-20 00:00:00', 8.49);
INSERT INTO ArPre VALUES ('AZEITE', 2, '2026-11-20 00:00:00', 6.5);
INSERT INTO ArPre VALUES ('PAPEL', 1, '2026-11-01 00:00:00', 2.5);
INSERT INTO ArPre VALUES ('PAPEL', 2, '2026-11-01 00:00:00', 2);
INSERT INTO ArPre VALUES ('MEL ', 1, '2026-10-10 00:00:00', 4.75);
INSERT INTO ArPre VALUES ('EMBRULHO', 1, '2026-01-01 00:00:00', 2);
INSERT INTO ArPre VALUES ('CAIXAVINHO', 1, '2026-11-01 00:00:00', 45);
INSERT INTO ArPre VALUES ('CAIXAVINHO', 2, '2026-11-01 00:00:00', 30);
INSERT INTO ArPre VALUES ('OVOS', 1, '2026-11-01 00:00:00', 2.4);
INSERT INTO ArPre VALUES ('QUEIJO', 1, '2026-11-01 00:00:00', 18.9);
INSERT INTO ArPre VALUES ('ROSCA', 1, '2026-11-01 00:00:00', 1.5);

-- Suppliers of articles: the coffee has two (the first row read is its
-- main one), one of them without the date of its last cost; articles
-- without a row take the default supplier.
CREATE TABLE ArFor (
  CArt VARCHAR(20) NOT NULL,
  CFor INTEGER NOT NULL,
  RFor VARCHAR(30),
  UPC FLOAT,
  Dsc1 FLOAT,
  Dsc2 FLOAT,
  Dsc3 FLOAT,
  DtUPC DATETIME,
  PRIMARY KEY (CArt, CFor));
INSERT INTO ArFor VALUES ('PAO', 1, 'MN-PAO-01', 0.12, 0, 0, 0, '2026-10-15 00:00:00');
INSERT INTO ArFor VALUES ('FARINHA', 1, ' MN-T65 ', 0.55, 5, 2, 0, '2026-10-20 00:00:00');
-- The coffee's suppliers in the order of the key, as SQL Server reads them
-- and as every database here returns them: supplier 1 comes first.
INSERT INTO ArFor VALUES ('CAFE', 1, 'MN-CAFE-1KG', 10.4, 0, 0, 0, '2025-12-01 00:00:00');
INSERT INTO ArFor VALUES ('CAFE', 2, 'TL-GRAO-1KG', 9.8, 10, 0, 0, NULL);
INSERT INTO ArFor VALUES ('MOINHO', 2, 'TL-MOINHO', 41, 0, 0, 0, '2025-01-10 00:00:00');
INSERT INTO ArFor VALUES ('VINHO', 3, 'BD-D75', 3.1, 2, 1, 0.5, '2026-09-30 00:00:00');
INSERT INTO ArFor VALUES ('VINHORES', 3, 'BD-D75R', 6.2, 0, 0, 0, '2026-09-30 00:00:00');

-- A supplier the back office does not have (99): the king cake's only row,
-- so it takes the default supplier; the wrapping service's second row.
INSERT INTO ArFor VALUES ('BOLOREI', 99, 'FB-BOLO', 6, 0, 0, 0, '2026-11-01 00:00:00');
INSERT INTO ArFor VALUES ('EMBRULHO', 4, ' EV-EMB ', 0.8, 0, 0, 0, '2026-11-02 00:00:00');
INSERT INTO ArFor VALUES ('EMBRULHO', 99, 'XX-EMB', 0.7, 0, 0, 0, '2026-11-02 00:00:00');

-- Barcodes: the first marked for labels (EEtiq) is an article's main one;
-- a second one so marked and those not marked are further barcodes; the
-- kit has one, not marked, and so no main barcode.
CREATE TABLE ArBar (
  CArt VARCHAR(20) NOT NULL,
  CBar VARCHAR(30) NOT NULL,
  EEtiq BIT,
  PRIMARY KEY (CArt, CBar));
INSERT INTO ArBar VALUES ('PAO', '5601234000011', 1);
INSERT INTO ArBar VALUES ('PAO', '2000001', 0);
INSERT INTO ArBar VALUES ('CAFE', '5601234000028', 1);
INSERT INTO ArBar VALUES ('VINHO', '5601234000035', 1);
INSERT INTO ArBar VALUES ('VINHO', '5601234000042', 1);
INSERT INTO ArBar VALUES ('VINHO', '15601234000032', 0);
INSERT INTO ArBar VALUES ('CABAZ', '2000002', 0);
INSERT INTO ArBar VALUES ('MEL ', '5601234000059', 1);

-- Lots of the lot table (articles with TemLotTab): the coffee's lots, one
-- without a production date, and the grinder's serial numbers.
CREATE TABLE ArLot (
  CArt VARCHAR(20) NOT NULL,
  CLot VARCHAR(30) NOT NULL,
  Data DATETIME,
  DatV DATETIME,
  PRIMARY KEY (CArt, CLot));
INSERT INTO ArLot VALUES ('CAFE', 'C2610', '2026-10-05 00:00:00', '2027-10-05 00:00:00');
INSERT INTO ArLot VALUES ('CAFE', 'C2611', NULL, '2027-11-10 00:00:00');
INSERT INTO ArLot VALUES ('MOINHO', 'SN-0001', NULL, NULL);
INSERT INTO ArLot VALUES ('MOINHO', 'SN-0002', NULL, NULL);

-- The kitchen scale's serial numbers, one without a code (kept: only the
-- stock by lot leaves an empty lot out), and the lot of the jam, an article
-- that is never loaded as an item.
INSERT INTO ArLot VALUES ('BALANCA', 'BL-001', NULL, '2028-12-31 00:00:00');
INSERT INTO ArLot VALUES ('BALANCA', '', NULL, NULL);
INSERT INTO ArLot VALUES ('COMPOTA', 'CP2610', '2026-10-01 00:00:00', '2027-10-01 00:00:00');

-- Stock by lot and warehouse; warehouse 0 holds an article's totals. The
-- wine's lots (TemLotTab false) come from its totals, an empty lot left
-- out; articles without lots have the empty lot. Negative stock is read,
-- stock 0 is not; the closed warehouse and warehouse 0 bring no stock.
CREATE TABLE ArLoA (
  CArt VARCHAR(20) NOT NULL,
  CLot VARCHAR(30) NOT NULL,
  CArm INTEGER NOT NULL,
  QtdExi FLOAT,
  PRIMARY KEY (CArt, CLot, CArm));
INSERT INTO ArLoA VALUES ('PAO', '', 0, 55);
INSERT INTO ArLoA VALUES ('PAO', '', 10000, 40);
INSERT INTO ArLoA VALUES ('PAO', '', 10001, 15);
INSERT INTO ArLoA VALUES ('FARINHA', '', 0, -2.5);
INSERT INTO ArLoA VALUES ('FARINHA', '', 10000, -2.5);
INSERT INTO ArLoA VALUES ('FARINHA', '', 10001, 0);
INSERT INTO ArLoA VALUES ('BOLOREI', '', 0, 3);
INSERT INTO ArLoA VALUES ('BOLOREI', '', 10002, 3);
INSERT INTO ArLoA VALUES ('CAFE', 'C2610', 0, 3);
INSERT INTO ArLoA VALUES ('CAFE', 'C2610', 10000, 3);
INSERT INTO ArLoA VALUES ('CAFE', 'C2611', 0, 5);
INSERT INTO ArLoA VALUES ('CAFE', 'C2611', 10001, 5);
INSERT INTO ArLoA VALUES ('MOINHO', 'SN-0001', 0, 1);
INSERT INTO ArLoA VALUES ('MOINHO', 'SN-0001', 10001, 1);
INSERT INTO ArLoA VALUES ('VINHO', 'V2022', 0, 24);
INSERT INTO ArLoA VALUES ('VINHO', 'V2022', 10000, 18);
INSERT INTO ArLoA VALUES ('VINHO', 'V2022', 10001, 6);
INSERT INTO ArLoA VALUES ('VINHO', 'V2023', 0, 12);
INSERT INTO ArLoA VALUES ('VINHO', 'V2023', 20000, 12);
INSERT INTO ArLoA VALUES ('VINHO', '', 0, 0);

-- The apron's colours and sizes and the cheese's lot (TemLotTab false):
-- their totals in warehouse 0 are their lots.
INSERT INTO ArLoA VALUES ('AVENTAL', 'AZUL-M', 0, 5);
INSERT INTO ArLoA VALUES ('AVENTAL', 'AZUL-M', 10001, 5);
INSERT INTO ArLoA VALUES ('AVENTAL', 'VERDE-L', 0, 2);
INSERT INTO ArLoA VALUES ('AVENTAL', 'VERDE-L', 10000, 2);
INSERT INTO ArLoA VALUES ('QUEIJO', 'Q2611', 0, 4.5);
INSERT INTO ArLoA VALUES ('QUEIJO', 'Q2611', 10000, 4.5);

-- Reorder levels by profile (Artig.CRup) and warehouse: the minimum is the
-- level the load writes; the closed warehouse's row writes nothing.
CREATE TABLE ArRup (
  CRup VARCHAR(10) NOT NULL,
  CArm INTEGER NOT NULL,
  StMi FLOAT,
  StMe FLOAT,
  StMa FLOAT,
  PRIMARY KEY (CRup, CArm));
INSERT INTO ArRup VALUES ('PAD', 10000, 20, 40, 80);
INSERT INTO ArRup VALUES ('PAD', 10001, 10, 20, 40);
INSERT INTO ArRup VALUES ('PAD', 10002, 5, 10, 20);
INSERT INTO ArRup VALUES ('CAF', 10000, 5, 10, 20);
INSERT INTO ArRup VALUES ('VIN', 10000, 12, 24, 48);
INSERT INTO ArRup VALUES ('VIN', 20000, 6, 12, 24);

-- Kits (table above): the king cake made here takes flour, a component
-- that an article "F" receives only in a plain run.
INSERT INTO ArAgr VALUES ('BOLOREI', 'FARINHA', 0.4);

-- The breakfast basket also holds the jam, which is never loaded; the kit
-- of wines is left out with its family at level 3.
INSERT INTO ArAgr VALUES ('CABAZ', 'COMPOTA', 1);
INSERT INTO ArAgr VALUES ('CABAZVINHO', 'VINHO', 2);
INSERT INTO ArAgr VALUES ('CABAZVINHO', 'VINHORES', 1);

-- Equivalents: the wine's group (its main article among its rows, and an
-- article that is never loaded, which leaves a gap in the order), and a
-- group with EGrp set, which is not read.
CREATE TABLE ArEqu (
  CGrp VARCHAR(20) NOT NULL,
  CArt VARCHAR(20) NOT NULL,
  EGrp BIT,
  PRIMARY KEY (CGrp, CArt));
INSERT INTO ArEqu VALUES ('VINHO', 'VINHO', 0);
INSERT INTO ArEqu VALUES ('VINHO', 'VINHO19', 0);
INSERT INTO ArEqu VALUES ('VINHO', 'VINHORES', 0);
INSERT INTO ArEqu VALUES ('PAO', 'PAO', 1);
INSERT INTO ArEqu VALUES ('PAO', 'BOLOREI', 1);
-- A group whose main article is never loaded.
INSERT INTO ArEqu VALUES ('VINHO19', 'VINHO', 0);
INSERT INTO ArEqu VALUES ('VINHO19', 'VINHORES', 0);

-- Document types: sales ("FAC") of each movement (invoice, paid at once,
-- credit note, return, order, none given) and receipts and payments
-- ("TER"); a code of four characters, one not beginning with "T" and one
-- of another class are not brought over.
CREATE TABLE Tlanc (
  CLan VARCHAR(10) NOT NULL PRIMARY KEY,
  Cls0 VARCHAR(3),
  Descr VARCHAR(40),
  Sigla VARCHAR(20));
INSERT INTO Tlanc VALUES ('TVD', 'FAC', 'Venda a dinheiro', 'VD');
INSERT INTO Tlanc VALUES ('TFA', 'FAC', 'Fatura', 'FT');
INSERT INTO Tlanc VALUES ('TNC', 'FAC', 'Nota de crédito', 'NC');
INSERT INTO Tlanc VALUES ('TDV', 'FAC', 'Devolução de cliente', 'DEV');
INSERT INTO Tlanc VALUES ('TEC', 'FAC', 'Encomenda de cliente', 'ENCOMENDA CLIENTE');
INSERT INTO Tlanc VALUES ('TGT', 'FAC', 'Guia de transporte', 'GT');
INSERT INTO Tlanc VALUES ('TRE', 'TER', 'Recibo', 'RE');
INSERT INTO Tlanc VALUES ('TPG', 'TER', 'Pagamento', 'PG');
INSERT INTO Tlanc VALUES ('TFAC', 'FAC', 'Fatura (antiga)', 'FTA');
INSERT INTO Tlanc VALUES ('FAC', 'FAC', 'Fatura de fornecedor', 'FF');
INSERT INTO Tlanc VALUES ('TST', 'STK', 'Transferência de stock', 'TS');

-- Further sales and a receipt: a credit by movement "N" not paid at once,
-- a quotation of a movement the load does not name, a return paid at
-- once, an order with a deposit paid at once, and a cash transfer without
-- E_S.
INSERT INTO Tlanc VALUES ('TCN', 'FAC', 'Crédito por acerto', 'CA');
INSERT INTO Tlanc VALUES ('TOR', 'FAC', 'Orçamento', 'ORC');
INSERT INTO Tlanc VALUES ('TDP', 'FAC', 'Devolução com reembolso', 'DR');
INSERT INTO Tlanc VALUES ('TES', 'FAC', 'Encomenda com sinal', 'ES');
INSERT INTO Tlanc VALUES ('TTR', 'TER', 'Transferência de caixa', 'TR');

-- Properties of the document types: the movement (TMov) and payment at
-- once (PPag) of sales, and entry or exit (E_S) of receipts and payments.
CREATE TABLE TLPro (
  CLan VARCHAR(10) NOT NULL,
  Cls VARCHAR(3) NOT NULL,
  CProp VARCHAR(10) NOT NULL,
  Valor VARCHAR(20),
  PRIMARY KEY (CLan, Cls, CProp));
INSERT INTO TLPro VALUES ('TVD', 'FAC', 'TMov', 'F');
INSERT INTO TLPro VALUES ('TVD', 'FAC', 'PPag', 'S');
INSERT INTO TLPro VALUES ('TFA', 'FAC', 'TMov', 'F');
INSERT INTO TLPro VALUES ('TFA', 'FAC', 'PPag', 'N');
INSERT INTO TLPro VALUES ('TNC', 'FAC', 'TMov', 'C');
INSERT INTO TLPro VALUES ('TNC', 'FAC', 'PPag', 'S');
INSERT INTO TLPro VALUES ('TDV', 'FAC', 'TMov', 'D');
INSERT INTO TLPro VALUES ('TEC', 'FAC', 'TMov', 'P');
INSERT INTO TLPro VALUES ('TRE', 'TER', 'E_S', 'E');
INSERT INTO TLPro VALUES ('TPG', 'TER', 'E_S', 'S');
INSERT INTO TLPro VALUES ('TFAC', 'FAC', 'TMov', 'F');
INSERT INTO TLPro VALUES ('TCN', 'FAC', 'TMov', 'N');
INSERT INTO TLPro VALUES ('TCN', 'FAC', 'PPag', 'N');
INSERT INTO TLPro VALUES ('TOR', 'FAC', 'TMov', 'O');
INSERT INTO TLPro VALUES ('TDP', 'FAC', 'TMov', 'D');
INSERT INTO TLPro VALUES ('TDP', 'FAC', 'PPag', 'S');
INSERT INTO TLPro VALUES ('TES', 'FAC', 'TMov', 'P');
INSERT INTO TLPro VALUES ('TES', 'FAC', 'PPag', 'S');

-- Tills: the hundreds of a code are the till's number (tills 1 to 4);
-- of till 3, one that pays out (UsaDA) and one (309) that falls on the
-- tender 10 the POS keeps.
CREATE TABLE Caixa (
  CCxa SMALLINT NOT NULL PRIMARY KEY,
  UsaDA BIT,
  Descr VARCHAR(40));
INSERT INTO Caixa VALUES (100, 0, 'Caixa 1 - Numerário');
INSERT INTO Caixa VALUES (200, 0, 'Caixa 2 - Numerário');
INSERT INTO Caixa VALUES (300, 0, 'Numerário');
INSERT INTO Caixa VALUES (301, 1, 'Multibanco');
INSERT INTO Caixa VALUES (309, 0, 'Cheque');

-- More tills: of till 3, a card (303, tender 4) and vouchers at the end of
-- its range (399); on either side of it, 299 and 400.
INSERT INTO Caixa VALUES (303, 1, 'Cartão de crédito');
INSERT INTO Caixa VALUES (399, 0, 'Vales de oferta');
INSERT INTO Caixa VALUES (299, 0, 'Caixa 2 - Cheques');
INSERT INTO Caixa VALUES (400, 1, 'Caixa 4 - Multibanco');

-- Workstations and their series, by delegation: in delegation 1,
-- workstation 02 writes series A, an unsigned external series (Origem 3)
-- of the document TVD, and is the one exchange point; workstation 01's
-- series B is not external; workstation 05 belongs to delegation 2.
CREATE TABLE Posto (
  CPos VARCHAR(5) NOT NULL,
  CSer VARCHAR(5) NOT NULL,
  CDlg INTEGER,
  PRIMARY KEY (CPos, CSer));
INSERT INTO Posto VALUES ('01', 'B', 1);
INSERT INTO Posto VALUES ('02', 'A', 1);
INSERT INTO Posto VALUES ('05', 'L', 2);

CREATE TABLE Serie (
  CSer VARCHAR(5) NOT NULL,
  CLan VARCHAR(10) NOT NULL,
  Origem SMALLINT,
  PRIMARY KEY (CSer, CLan));
INSERT INTO Serie VALUES ('A', 'TVD', 3);
INSERT INTO Serie VALUES ('A', 'TFA', 3);
INSERT INTO Serie VALUES ('B', 'TVD', 1);
INSERT INTO Serie VALUES ('L', 'TVD', 3);
