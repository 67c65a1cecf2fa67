#include "bench/floor/ExportFloor.h"

#include <memory>
#include <stdexcept>
#include <unordered_map>

#include "bench/floor/Sqlite.h"

namespace bench {
namespace {

// The back office's key of a host id, read once an id, found or not.
class KeyLookup {
 public:
  KeyLookup(Database& db, const std::string& sql) : query_(db, sql) {}

  const std::string& Of(const std::string& id) {
    auto known = keys_.find(id);
    if (known != keys_.end()) return known->second;
    query_.Bind(1, id);
    std::string key = query_.Step() ? query_.Text(0) : std::string();
    query_.Reset();
    return keys_.emplace(id, std::move(key)).first->second;
  }

 private:
  Statement query_;
  std::unordered_map<std::string, std::string> keys_;
};

// A line of the floor's file: a record's tag and values, "^"-separated.
class Record {
 public:
  explicit Record(std::string_view tag) : text_(tag) {}
  Record& operator<<(std::string_view value) {
    text_ += '^';
    text_ += value;
    return *this;
  }
  // Every column of a row read.
  Record& operator<<(const Row& row) {
    for (const std::string& value : row.text) *this << value;
    return *this;
  }
  const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

// A BIT column read as text: NULL and 0 are false.
bool IsTrue(const std::string& value) { return !value.empty() && value != "0"; }

struct Document {
  bool asks_payment = false;
  int64_t payment_mode = 0;
};

class ExportFloor {
 public:
  ExportFloor(Database& db, const ExportEntry& entry, const Clock& clock)
      : entry_(entry),
        clock_(clock),
        first_receipt_(db, "SELECT Min(CreateDate) AS FirstSale FROM TenderTransaction " +
                               Filter("") + " GROUP BY TransSerial, TransDocument, TransDocNumber"),
        first_sale_(db, "SELECT Min(CreateDate) AS FirstSale FROM SaleTransaction " + Filter("") +
                            " GROUP BY CreateDate"),
        customers_(db,
                   "SELECT Customer.*, PartyAddress.* FROM (Customer"
                   " INNER JOIN SaleTransaction ON (SaleTransaction.PartyID = Customer.CustomerID))"
                   " LEFT JOIN PartyAddress ON (PartyAddress.PartyID = Customer.CustomerID AND "
                   "PartyAddress.AddressID=0)" +
                       Filter("SaleTransaction.") + " AND Customer.CustomerKey =''"),
        mark_customer_(db, "UPDATE Customer SET CustomerKey='Exported' WHERE CustomerID=?"),
        sales_(db, "SELECT * FROM SaleTransaction " + Filter("") +
                       " ORDER BY TransSerial, TransDocument, TransDocNumber"),
        tenders_(db,
                 "SELECT TenderLineItem.TransSerial, TenderLineItem.TransDocument, "
                 "TenderLineItem.TransDocNumber, Min(TenderLineItem.TenderID) AS MinTenderID, "
                 "Min(TenderLineItem.TransOrder) AS MinTransOrder, "
                 "Sum(TenderLineItem.Amount) AS SumAmount, CheckTenderLineItem.CheckSequenceNumber"
                 " FROM TenderLineItem LEFT JOIN CheckTenderLineItem"
                 " ON (CheckTenderLineItem.TransSerial=TenderLineItem.TransSerial"
                 " AND CheckTenderLineItem.TransDocument=TenderLineItem.TransDocument"
                 " AND CheckTenderLineItem.TransDocNumber=TenderLineItem.TransDocNumber"
                 " AND CheckTenderLineItem.TransOrder=TenderLineItem.TransOrder)"
                 " WHERE TenderLineItem.TransSerial=? AND TenderLineItem.TransDocument=?"
                 " AND TenderLineItem.TransDocNumber=?"
                 " GROUP BY TenderLineItem.TransSerial, TenderLineItem.TransDocument,"
                 " TenderLineItem.TransDocNumber, TenderLineItem.TenderID,"
                 " CheckTenderLineItem.CheckSequenceNumber"),
        lines_(db, LinesQuery("SaleTransactionDetails", "TransactionPropDetails")),
        voided_lines_(db, LinesQuery("PostVoidTransaction", "PostVoidTranPropDetails")),
        tax_rate_(db,
                  "SELECT TaxRate FROM TaxTransactionDetail AS TTD WHERE TransSerial=?"
                  " AND TransDocument=? AND TransDocNumber=? AND LineItemID=?"
                  " AND LineItemSubID=0 AND TTD.TaxGroupID='IVA'"),
        mark_sale_(db,
                   "UPDATE SaleTransaction SET AccountingExportDate=? WHERE TransSerial=?"
                   " AND TransDocument=? AND TransDocNumber=?"),
        receipts_(db,
                  "SELECT TT.*, TLI.TenderID FROM TenderTransaction AS TT"
                  " LEFT JOIN TenderLineItem AS TLI ON (TLI.TransSerial=TT.TransSerial"
                  " AND TLI.TransDocument=TT.TransDocument"
                  " AND TLI.TransDocNumber=TT.TransDocNumber)" +
                      Filter("TT.") +
                      " AND TLI.TransOrder=1"
                      " ORDER BY TT.TransSerial, TT.TransDocument, TT.TransDocNumber"),
        receipt_lines_(db,
                       "SELECT * FROM TenderLineItem WHERE TransSerial=? AND TransDocument=?"
                       " AND TransDocNumber=?"),
        check_(db,
               "SELECT * FROM CheckTenderLineItem WHERE TransSerial=? AND TransDocument=?"
               " AND TransDocNumber=? AND TransOrder=?"),
        mark_receipt_(db,
                      "UPDATE TenderTransaction SET AccountingExportDate=? WHERE TransSerial=?"
                      " AND TransDocument=? AND TransDocNumber=?"),
        salesman_(db, "SELECT SalesmanKey FROM Salesman WHERE SalesmanID=?"),
        carrier_(db, "SELECT CarrierKey FROM Carrier WHERE CarrierID=?"),
        user_(db, "SELECT AppUserKey FROM AppUsers WHERE AppUserID=?"),
        level_(db, "SELECT GroupKey FROM CustomerGroups WHERE GroupID=?"),
        payment_(db, "SELECT PaymentKey FROM Payment WHERE PaymentID=?"),
        price_line_(db, "SELECT PriceLineKey FROM PriceLine WHERE PriceLineID=?"),
        item_(db, "SELECT ItemKey FROM Item WHERE ItemID=?"),
        currency_(db, "SELECT ExportCode FROM Currency WHERE CurrencyID=?") {
    Statement documents(db, "SELECT TransDocumentID, UsesPayment, PaymentMode FROM Documents");
    while (documents.Step()) {
      documents_[documents.Text(0)] = {documents.Integer(1) != 0, documents.Integer(2)};
    }
  }

  ExportFloorCounts Write(const std::string& file_path) {
    // Both first-date queries run, as the connector runs them; a file is
    // made when either found something.
    std::vector<Row> receipts = Bound(first_receipt_).All();
    std::vector<Row> sales = Bound(first_sale_).All();
    if (receipts.empty() && sales.empty()) return counts_;
    out_ = std::make_unique<LineWriter>(file_path);
    const std::string& first_date = !sales.empty() ? sales[0][0] : receipts[0][0];
    Write(Record("HF") << entry_.code << first_date);
    WriteCustomers();
    WriteSales();
    WriteReceipts();
    counts_.lines = out_->Lines();
    return counts_;
  }

 private:
  // The selection of every query of the file, as the connector writes it,
  // with the series as the statement's first parameter.
  std::string Filter(const std::string& prefix) const {
    for (char c : entry_.workstations) {
      if ((c < '0' || c > '9') && c != ',') throw std::runtime_error("bad workstation list");
    }
    return " WHERE " + prefix + "AccountingExportDate Is Null AND " + prefix +
           "WorkstationID IN (" + entry_.workstations + ") AND " + prefix + "TransSerial=?1";
  }

  static std::string LinesQuery(const std::string& lines, const std::string& properties) {
    return "SELECT STD.*, TPD.PropertyValue1 FROM " + lines + " AS STD LEFT JOIN " + properties +
           " AS TPD ON (TPD.TransSerial=STD.TransSerial AND TPD.TransDocument=STD.TransDocument"
           " AND TPD.TransDocNumber=STD.TransDocNumber AND TPD.LineItemID=STD.LineItemID"
           " AND TPD.LineItemSubID=STD.LineItemSubID)"
           " WHERE STD.TransSerial=? AND STD.TransDocument=? AND STD.TransDocNumber=?"
           " AND STD.LineItemSubID=0";
  }

  Statement& Bound(Statement& selection) {
    selection.Bind(1, entry_.serial);
    return selection;
  }

  // Binds a document's key (serial, document, number) from `from` at
  // `columns` to parameters 1 to 3 of `statement`, or 2 to 4 after a mark.
  static Statement& KeyOf(Statement& statement, const Row& from, const int columns[3],
                          int first = 1) {
    for (int k = 0; k < 3; ++k) statement.Bind(first + k, from[columns[k]]);
    return statement;
  }

  void Write(const Record& record) { out_->Write(record.Text()); }

  void Mark(Statement& mark, const Row& row, const int key[3]) {
    mark.Bind(1, clock_.today);
    KeyOf(mark, row, key, 2).Run();
    ++counts_.marked;
  }

  void WriteCustomers() {
    std::vector<Row> rows = Bound(customers_).All();
    const int id = customers_.Column("CustomerID");
    const int level = customers_.Column("CustomerLevel");
    const int price_line = customers_.Column("PriceLineID");
    const int salesman = customers_.Column("SalesmanID");
    const int payment = customers_.Column("PaymentID");
    // A customer with several sales comes once for each, as in the
    // connector's file.
    for (const Row& row : rows) {
      Write(Record("CL") << row << level_.Of(row[level]) << price_line_.Of(row[price_line])
                         << salesman_.Of(row[salesman]) << payment_.Of(row[payment]));
      mark_customer_.Bind(1, row[id]).Run();
      ++counts_.marked;
    }
  }

  void WriteSales() {
    std::vector<Row> rows = Bound(sales_).All();
    const int key[3] = {sales_.Column("TransSerial"), sales_.Column("TransDocument"),
                        sales_.Column("TransDocNumber")};
    const int salesman = sales_.Column("SalesmanID");
    const int carrier = sales_.Column("CarrierID");
    const int user = sales_.Column("UserAlt");
    const int currency = sales_.Column("CurrencyID");
    const int credit = sales_.Column("TransactionCreditSale");
    const int status = sales_.Column("TransStatus");
    const int party[] = {sales_.Column("PartyName"), sales_.Column("PartyAddress1"),
                         sales_.Column("PartyAddress2"), sales_.Column("PartyPostalCode"),
                         sales_.Column("PartyFederalTaxID")};
    for (const Row& sale : rows) {
      Write(Record("FC") << sale << salesman_.Of(sale[salesman]) << carrier_.Of(sale[carrier])
                         << user_.Of(sale[user]) << currency_.Of(sale[currency]));
      auto document = documents_.find(sale[key[1]]);
      if (document == documents_.end()) throw std::runtime_error("no document " + sale[key[1]]);
      const bool paid_at_till = document->second.payment_mode == 1 && document->second.asks_payment;
      if (paid_at_till && !IsTrue(sale[credit])) {
        for (const Row& tender : KeyOf(tenders_, sale, key).All()) Write(Record("FP") << tender);
      } else {
        Write(Record("FP") << "C" << sale[key[2]]);
      }
      // The walk-in customer's details, when the sale has any.
      for (int c : party) {
        if (!sale[c].empty()) {
          Write(Record("FM") << sale[party[0]] << sale[party[1]] << sale[party[2]] << sale[party[3]]
                             << sale[party[4]]);
          break;
        }
      }
      Statement& lines = sale[status] == "1" ? voided_lines_ : lines_;
      std::vector<Row> line_rows = KeyOf(lines, sale, key).All();
      const int line_id = lines.Column("LineItemID");
      const int item = lines.Column("ItemID");
      for (const Row& line : line_rows) {
        KeyOf(tax_rate_, sale, key).Bind(4, line[line_id]);
        std::vector<Row> rate = tax_rate_.All();
        Write(Record("FL") << line << item_.Of(line[item]) << (rate.empty() ? "" : rate[0][0]));
      }
      Mark(mark_sale_, sale, key);
    }
  }

  void WriteReceipts() {
    std::vector<Row> rows = Bound(receipts_).All();
    const int key[3] = {receipts_.Column("TransSerial"), receipts_.Column("TransDocument"),
                        receipts_.Column("TransDocNumber")};
    const int user = receipts_.Column("UserAlt");
    const int check_number = check_.Column("CheckSequenceNumber");
    for (const Row& receipt : rows) {
      Write(Record("TC") << receipt << user_.Of(receipt[user]));
      std::vector<Row> lines = KeyOf(receipt_lines_, receipt, key).All();
      const int order = receipt_lines_.Column("TransOrder");
      for (const Row& line : lines) {
        KeyOf(check_, receipt, key).Bind(4, line[order]);
        std::vector<Row> check = check_.All();
        Write(Record("TL") << line << (check.empty() ? "" : check[0][check_number]));
      }
      Mark(mark_receipt_, receipt, key);
    }
  }

  const ExportEntry& entry_;
  const Clock& clock_;
  Statement first_receipt_, first_sale_, customers_, mark_customer_, sales_, tenders_, lines_,
      voided_lines_, tax_rate_, mark_sale_, receipts_, receipt_lines_, check_, mark_receipt_;
  KeyLookup salesman_, carrier_, user_, level_, payment_, price_line_, item_, currency_;
  std::unordered_map<std::string, Document> documents_;
  std::unique_ptr<LineWriter> out_;
  ExportFloorCounts counts_;
};

}  // namespace

ExportFloorCounts RunExportFloor(const std::string& db_path, const std::string& file_path,
                                 const Clock& clock, const ExportEntry& entry) {
  Database db(db_path);
  db.ShareWithTheTill();
  return ExportFloor(db, entry, clock).Write(file_path);
}

}  // namespace bench
