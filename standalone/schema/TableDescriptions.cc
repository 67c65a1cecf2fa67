#include <unordered_map>

#include "standalone/schema/PosSchema.h"

namespace standalone {

std::string TableDescription(std::string_view table) {
  // The tables a load or a clearing names to the person who waits for it.
  static const std::unordered_map<std::string_view, std::string_view> kDescriptions = {
      {"AppGroups", "Grupos de utilizadores"},
      {"AppUsers", "Utilizadores"},
      {"Bank", "Bancos"},
      {"Carrier", "Transportadores"},
      {"Currency", "Moedas"},
      {"Customer", "Clientes"},
      {"CustomerGroups", "Grupos de clientes"},
      {"CustomerLedgerAccount", "Conta corrente de clientes"},
      {"Documents", "Documentos"},
      {"Family", "Famílias"},
      {"Item", "Artigos"},
      {"ItemAlternative", "Artigos alternativos"},
      {"ItemComponents", "Componentes de artigos"},
      {"ItemProperty", "Propriedades de artigos"},
      {"LoadUnloadPlace", "Locais de carga e descarga"},
      {"LocalityCodes", "Concelhos"},
      {"Payment", "Condições de pagamento"},
      {"PriceLine", "Linhas de preço"},
      {"ProvinceCodes", "Distritos"},
      {"Salesman", "Vendedores"},
      {"Stock", "Stock"},
      {"StockTransaction", "Movimento de stock"},
      {"Supplier", "Fornecedores"},
      {"TaxTable", "Taxas de imposto"},
      {"Tender", "Meios de pagamento"},
      {"UnitOfMeasure", "Unidades de medida"},
      {"Warehouse", "Armazéns"},
      {"Zone", "Zonas"},
  };
  auto found = kDescriptions.find(table);
  return std::string(found == kDescriptions.end() ? table : found->second);
}

}  // namespace standalone
