#include "bench/tools/ItemFile.h"

#include <cstdio>
#include <vector>

#include "bench/floor/BackOfficeText.h"
#include "bench/tools/Random.h"

namespace bench {
namespace {

// Descriptions are made of these (UTF-8 here, Windows-1252 in the file).
const std::vector<std::string> kNouns = {
    "Arroz", "Feijão", "Açúcar", "Café", "Leite", "Pão",  "Azeite", "Vinho", "Bacalhau", "Queijo",
    "Maçã",  "Limão",  "Massa",  "Atum", "Chá",   "Sumo", "Água",   "Sal",   "Grão",     "Pêra"};
const std::vector<std::string> kKinds = {"agulha", "carolino",   "biológico", "extra",  "magro",
                                         "tinto",  "branco",     "fresco",    "gordo",  "clássico",
                                         "light",  "meio-gordo", "integral",  "rústico"};
const std::vector<std::string> kBrands = {"Marca Própria", "Quinta do Vale", "Serra da Estrela",
                                          "Minhota",       "Atlântico",      "Alentejana"};
const std::vector<std::string> kSizes = {"250 g", "500 g", "1 kg", "1 L", "75 cl", "6 × 33 cl"};
// The sale (and stock) unit; an item sold by weight is sold by scale.
const std::vector<std::string> kUnits = {"UN", "UN", "UN", "KG", "LT"};

// "DD-MM-YYYY" of a day of `year` (days 1 to 28, so that every month has it).
std::string DateIn(Random& random, int year) {
  const int day = static_cast<int>(random.Between(1, 28));
  const int month = static_cast<int>(random.Between(1, 12));
  char text[16];
  std::snprintf(text, sizeof text, "%02d-%02d-%04d", day, month, year);
  return text;
}

// "12,34": a price of `cents`.
std::string Price(int64_t cents) {
  char text[32];
  std::snprintf(text, sizeof text, "%lld,%02lld", static_cast<long long>(cents / 100),
                static_cast<long long>(cents % 100));
  return text;
}

class FileOut {
 public:
  explicit FileOut(const std::string& path) : out_(path) {}
  void Line(const std::string& utf8) { out_.Write(Windows1252FromUtf8(utf8)); }
  long Lines() const { return out_.Lines(); }

 private:
  LineWriter out_;
};

}  // namespace

long WriteItemFile(const std::string& path, const ItemFileShape& shape) {
  Random random(shape.seed);
  FileOut file(path);
  file.Line("HF^4^1^" + shape.company + "^" + std::to_string(shape.year));
  char code[24];
  for (long i = 1; i <= shape.items; ++i) {
    std::snprintf(code, sizeof code, "A%06ld", i);
    const std::string number = std::to_string(i);
    // One draw a statement: the order of the draws is the data.
    const std::string& noun = random.Pick(kNouns);
    const std::string& kind = random.Pick(kKinds);
    const std::string& brand = random.Pick(kBrands);
    const std::string& size = random.Pick(kSizes);
    const std::string& unit = random.Pick(kUnits);
    const std::string tax_type = std::to_string(random.Between(1, 4));
    const int year = static_cast<int>(random.Between(2024, 2026));
    const std::string date = DateIn(random, year);
    const bool by_lot = i % 5 == 0;
    file.Line("AR^" + std::string(code) + "^" + noun + " " + kind + " " + number + "^" + noun +
              " " + kind + " " + brand + " " + size + " n.º " + number + "^A^01^01^^^^^" +
              tax_type + "^" + unit + "^" + unit + "^1^0^0^^^^" + (by_lot ? "1" : "0") + "^^" +
              date + "^^" + (unit == "KG" ? "1" : "0"));
    for (int line = 1; line <= 3; ++line) {
      const std::string price = Price(random.Between(49, 19999));
      const std::string price_date = DateIn(random, 2026);
      file.Line("AP^" + std::string(code) + "^" + std::to_string(line) + "^" + price + "^" +
                price_date + "^^^^" + (line == 3 ? "1" : "0"));
    }
    char barcode[32];
    std::snprintf(barcode, sizeof barcode, "56%011ld", i);
    file.Line("AB^" + std::string(barcode) + "^" + code + "^^^1");
  }
  for (long i = 5; i <= shape.items; i += 5) {
    std::snprintf(code, sizeof code, "A%06ld", i);
    for (int lot = 1; lot <= 2; ++lot) {
      std::string made = DateIn(random, 2026);
      std::string expires = made.substr(0, 6) + "2027";
      file.Line("AL^" + std::string(code) + "^L" + std::to_string(i) + "-" + std::to_string(lot) +
                "^^" + made + "^" + expires + "^01");
    }
  }
  return file.Lines();
}

}  // namespace bench
