// The kits' components and the groups of equivalent items, once the items
// are there: each item found by its key, loaded, given its rows and saved
// again.

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Error.h"
#include "initialload/BSOUpgBrevantaLumaroTables.h"
#include "initialload/LoadStep.h"

namespace lumaro {

void BSOUpgBrevantaLumaroTables::Upgrade_ItemComponents() {
  LoadStep step("Upgrade_ItemComponents");
  Progress("ItemComponents");
  host::DatabaseService& source = source_.Get();
  std::unique_ptr<host::ItemService> items;
  host::RecordsetPtr rs;
  // An article "F" is a plain item in the initial load.
  if (!step.Run(1, [&] {
        items = ModConnectorLumaro::Host().NewItemService();
        rs = source.OpenRecordset(initialize_mode_
                                      ? "SELECT CArt FROM Artig WHERE TipArt IN ('G')"
                                      : "SELECT CArt FROM Artig WHERE TipArt IN ('F','G')");
      })) {
    return;
  }
  double total = rs->Eof() ? 0 : rs->RecordCount();
  std::shared_ptr<host::Item> item;  // in hand until the next is loaded
  for (; total > 0 && !rs->Eof(); rs->MoveNext()) {
    std::string item_id;
    bool wanted = false;
    step.Run(2, [&] {
      // Articles the items left out have no key.
      item_id = KeyText("ItemID|" + SourceText(*rs, "CArt"));
      wanted = !item_id.empty() && items->Exists(item_id);
    });
    if (!wanted) continue;
    step.Run(3, [&] {
      std::shared_ptr<host::Item> loaded = items->Get(item_id);
      if (!loaded) host::Raise(host::err::kObjectNotSet, "Upgrade_ItemComponents");
      item = loaded;
    });
    if (!item) continue;
    bool has_components = false;
    step.Run(4, [&] { has_components = items->HasComponents(item->ItemID); });
    if (has_components) continue;  // never merged
    host::RecordsetPtr parts;
    step.Run(5, [&] {
      parts = source.OpenRecordset("SELECT * FROM ArAgr WHERE CArt= '" +
                                   source.SqlFormat().QuoteText(SourceText(*rs, "CArt")) + "' ");
    });
    for (; parts && !parts->Eof(); parts->MoveNext()) {
      step.Run(6, [&] {
        host::ItemComponent component;
        // A component that was not loaded stays, with no item.
        component.ComponentItemID = KeyText("ItemID|" + SourceText(*parts, "CArtAgr"));
        component.ComponentQuantity = SourceNumber(*parts, "Qtd");
        component.ComponentKey = component.ComponentItemID;
        component.ComponentColorID = 0;
        // The collection numbers its rows.
        component.ComponentOrder = static_cast<int16_t>(item->Components.Count() + 1);
        component.MakeLookup();
        item->Components.Add(component);
      });
    }
    item->ComponentsKind = 1;
    host::RecordsetTools::CloseRecordset(parts);
    step.Run(7, [&] { items->Save(*item); });
  }
  host::RecordsetTools::CloseRecordset(rs);
}

void BSOUpgBrevantaLumaroTables::Upgrade_ItemAlternative() {
  LoadStep step("Upgrade_ItemAlternative");
  Progress("ItemAlternative");
  host::DatabaseService& source = source_.Get();
  std::unique_ptr<host::ItemService> items;
  host::RecordsetPtr groups;
  if (!step.Run(1, [&] {
        items = ModConnectorLumaro::Host().NewItemService();
        groups = source.OpenRecordset("SELECT DISTINCT CGrp FROM ArEqu WHERE EGrp=0");
      })) {
    return;
  }
  double total = groups->Eof() ? 0 : groups->RecordCount();
  std::shared_ptr<host::Item> item;  // in hand until the next is loaded
  for (; total > 0 && !groups->Eof(); groups->MoveNext()) {
    // The group's code is that of its main article.
    std::string main_id;
    bool wanted = false;
    step.Run(2, [&] {
      main_id = KeyText("ItemID|" + SourceText(*groups, "CGrp"));
      wanted = !main_id.empty() && items->Exists(main_id);
    });
    if (!wanted) continue;
    host::RecordsetPtr rows;
    step.Run(3, [&] {
      rows = source.OpenRecordset("SELECT * FROM ArEqu WHERE EGrp=0 AND CGrp = '" +
                                  source.SqlFormat().QuoteText(SourceText(*groups, "CGrp")) + "'");
    });
    if (!rows || rows->Eof()) continue;
    // A failed Get leaves the last item in hand, as it always did.
    step.Run(4, [&] {
      std::shared_ptr<host::Item> loaded = items->Get(main_id);
      if (!loaded) host::Raise(host::err::kObjectNotSet, "Upgrade_ItemAlternative");
      item = loaded;
    });
    if (!item) continue;
    item->Alternatives = host::ItemAlternatives();  // what it held is replaced
    int16_t order = 0;
    for (; !rows->Eof(); rows->MoveNext()) {
      // An article not loaded is skipped, and its number stays used.
      ++order;
      step.Run(5, [&] {
        host::AlternativeItem alternative;
        alternative.AlternativeOrder = order;
        alternative.AlternativeItemID = KeyText("ItemID|" + SourceText(*rows, "CArt"));
        if (!alternative.AlternativeItemID.empty()) item->Alternatives.Add(alternative);
      });
    }
    host::RecordsetTools::CloseRecordset(rows);
    step.Run(6, [&] { items->Save(*item); });
  }
  host::RecordsetTools::CloseRecordset(groups);
}

}  // namespace lumaro
