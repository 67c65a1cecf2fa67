// The configuration steps of the load: currencies, the reload of the
// company's settings, the tax region, user groups and users, the
// delegation's range of customers.

#include <algorithm>
#include <functional>

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
#include "connector/host/Error.h"
#include "connector/host/FieldConverter.h"
#include "connector/host/Text.h"
#include "initialload/BSOUpgBrevantaLumaroConfiguration.h"
#include "initialload/LoadStep.h"

namespace lumaro {
namespace {

using host::FieldConverter;

host::SystemContext& Context() { return ModConnectorLumaro::Host().SystemManager().Context(); }

double Field(const host::Recordset& rs, const char* name) {
  return FieldConverter::ToNumber(rs.Fields(name));
}

// The columns of a Currency row and of its name, from a row of Moeda, each
// statement in its own handler: a column that fails is left unset, and the
// row is saved all the same.
void FillCurrency(LoadStep& step, const host::Recordset& rs, const std::string& id,
                  const std::string& language, host::SqlStatement& currency,
                  host::SqlStatement& names) {
  int line = 10;
  auto column = [&](const std::function<void()>& fill) { step.Run(line++, fill); };
  auto euro = [&] { return FieldConverter::ToBoolean(rs.Fields("UEM")); };
  column([&] { currency.Text("CurrencyKey", FieldConverter::ToText(rs.Fields("CMoe"))); });
  column([&] { currency.KeyText("CurrencyID", id); });
  column([&] { names.KeyText("CurrencyID", id); });
  column([&] { names.KeyText("LanguageID", language); });
  column(
      [&] { names.Text("Description", host::Trim(FieldConverter::ToText(rs.Fields("DESCR")))); });
  column([&] { currency.Date("ExchangeDate", FieldConverter::ToDate(rs.Fields("DtCamb"))); });
  column([&] { currency.Number("DecimalPlaces", std::max(0.0, Field(rs, "Rnd"))); });
  column([&] { currency.Number("PriceItemDecimalPlaces", std::max(0.0, Field(rs, "RndP"))); });
  column([&] { currency.Boolean("ItsEuroCurrency", euro()); });
  column([&] { currency.Text("RelatedCurrencyID", "EUR"); });
  column([&] { currency.Number("EuroConversionRate", euro() ? Field(rs, "TConv") : 1); });
  // Kept apart on purpose: the sale exchange is rounded after the division,
  // the buy exchange divides by the rounded rate and is not rounded again.
  column([&] {
    double camb = Field(rs, "Camb");
    currency.Number("SaleExchange", euro() ? 1 : camb > 0 ? host::RoundDecimal(1 / camb, 6) : 1);
  });
  column([&] {
    double camb = Field(rs, "Camb");
    currency.Number("BuyExchange", euro() ? 1 : camb > 0 ? 1 / host::RoundDecimal(camb, 6) : 1);
  });
  column([&] { SetAuditColumns(currency); });
  column([&] { SetAuditColumns(names); });
}

constexpr int32_t kDefaultGroup = 3880107;

// The names of groups or users: the description alone when every
// description is different (the code when the description is empty); else
// the code, a space and the description, for all.
class UniqueNames {
 public:
  void SetUnique(bool unique) { unique_ = unique; }
  std::string Of(const std::string& code, const std::string& description) const {
    std::string text = host::Trim(description);
    if (unique_) return text.empty() ? code : text;
    return code + (code.empty() ? "" : " ") + text;
  }

 private:
  bool unique_ = true;
};

// Opens `rows` on the back office, and tells `names` whether the
// descriptions are unique: whether `distinct` counts as many rows.
host::RecordsetPtr OpenWithUniqueness(host::DatabaseService& source, const std::string& distinct,
                                      const std::string& rows, UniqueNames& names) {
  host::RecordsetPtr descriptions = source.OpenRecordset(distinct);
  int32_t different = descriptions->RecordCount();
  host::RecordsetTools::CloseRecordset(descriptions);
  host::RecordsetPtr rs = source.OpenRecordset(rows);
  names.SetUnique(different == rs->RecordCount());
  return rs;
}

}  // namespace

void BSOUpgBrevantaLumaroConfiguration::UpgradeConfiguration() {
  Upgrade_Currency();
  ReloadSettings();
  Upgrade_AppGroups();
  Upgrade_AppUsers();
}

void BSOUpgBrevantaLumaroConfiguration::InitializeTillara() {
  Upgrade_Currency();
  ReloadSettings();
  Upgrade_ConfSystem();
  Upgrade_AppGroups();
  Upgrade_AppUsers();
  UpgradeCustomerRange();
}

void BSOUpgBrevantaLumaroConfiguration::Upgrade_Currency() {
  LoadStep step("Upgrade_Currency");
  if (events_) events_->ProgressGlobal("Currency", "");
  host::SqlStatement currency;
  host::SqlStatement names;
  currency.SetTable("Currency");
  names.SetTable("CurrencyNames");
  host::RecordsetPtr rs;
  if (!step.Run(1, [&] { rs = source_.Get().OpenRecordset("SELECT * FROM [Moeda]"); })) return;
  host::KeyDictionary& keys = ModConnectorLumaro::RunDictionary();
  std::string language = ModConnectorLumaro::GetSystemSettings()->LanguageID;
  double count = 0;
  double total = rs->RecordCount();
  for (; total > 0 && !rs->Eof(); rs->MoveNext()) {
    std::string code;
    std::string id;
    step.Run(2, [&] {
      code = FieldConverter::ToText(rs->Fields("CMoe"));
      if (code == "PTE") keys.Add(host::Variant(Field(*rs, "TConv")), "CurrencyExchange");
    });
    step.Run(3, [&] { id = host::Trim(host::Left(host::UCase(code), 3)); });
    ++count;
    currency.ClearColumns();
    names.ClearColumns();
    currency.SetOperation(2);
    names.SetOperation(2);
    FillCurrency(step, *rs, id, language, currency, names);
    if (!id.empty()) {
      step.Run(4, [&] {
        host::DatabaseService& pos = LoadTarget();
        std::string upper = host::UCase(id);
        host::RecordsetPtr found = pos.OpenRecordset("SELECT COUNT(*) FROM [Currency] " +
                                                     std::string("WHERE CurrencyID = '") +
                                                     pos.SqlFormat().QuoteText(upper) + "'");
        bool exists = FieldConverter::ToNumber(found->Fields(0)) > 0;
        host::RecordsetTools::CloseRecordset(found);
        if (exists) {
          currency.KeyText("CurrencyID", upper);
          names.KeyText("CurrencyID", upper);
          RunUpdateText(currency);
          RunUpdateText(names);
        } else {
          currency.Text("DecimalSeparator", ".");
          currency.Text("GroupSeparator", ",");
          currency.Text("SymbolPosition", "1 #");
          currency.Text("NegativeFormat", "-1 #");
          currency.Text("CurrencyID", id);
          names.Text("CurrencyID", id);
          names.Text("LanguageID", language);
          RunInsertText(currency);
          RunInsertText(names);
        }
      });
    }
    // A code of more than three characters keeps a key of its own, though
    // its row is that of its first three.
    step.Run(5, [&] { keys.Add(host::Variant(id), "Currency|" + host::Trim(code)); });
    if (events_) events_->ProgressCurrent("Currency", count, total);
  }
  host::RecordsetTools::CloseRecordset(rs);
  step.Run(6, [&] { keys.Add(host::Variant(Context().Defaults().CurrencyID), "Currency|"); });
}

void BSOUpgBrevantaLumaroConfiguration::ReloadSettings() {
  LoadStep("InitializeTillara").Run(1, [&] {
    host::SystemContext& context = Context();
    context.SetSettings(context.LoadSettings(context.Settings()->Key));
  });
}

void BSOUpgBrevantaLumaroConfiguration::Upgrade_ConfSystem() {
  LoadStep("Upgrade_ConfSystem").Run(1, [&] {
    std::optional<host::Variant> seat_value =
        FirstValue(source_.Get(), "SELECT Valor FROM ParEMp WHERE CPar='Sede'", "Valor");
    if (!seat_value) return;
    std::string seat = FieldConverter::ToText(*seat_value);
    // Exactly these letters; any other leaves the region as it stands.
    std::string region = seat == "C" ? "CON" : seat == "M" ? "MA" : seat == "A" ? "AC" : "";
    std::shared_ptr<host::SystemSettings> settings = ModConnectorLumaro::GetSystemSettings();
    if (region.empty() || region == settings->TaxRegionID) return;
    settings->TaxRegionID = region;
    LoadTarget().OpenRecordset("UPDATE ConfSystem SET TaxRegionID = '" + region + "'");
  });
}

void BSOUpgBrevantaLumaroConfiguration::Upgrade_AppGroups() {
  LoadStep step("Upgrade_AppGroups");
  if (events_) events_->ProgressGlobal("AppGroups", "");
  std::unique_ptr<host::AppGroupService> groups;
  UniqueNames names;
  host::RecordsetPtr rs;
  if (!step.Run(1, [&] {
        groups = ModConnectorLumaro::Host().NewAppGroupService();
        rs = OpenWithUniqueness(source_.Get(), "SELECT DISTINCT Descr FROM Grupo GROUP By Descr",
                                "SELECT * FROM Grupo", names);
      })) {
    return;
  }
  host::KeyDictionary& keys = ModConnectorLumaro::RunDictionary();
  const host::NameTools& reserved = ModConnectorLumaro::Host().NameTools();
  // Found by its name, or made; a reserved name takes "_" in front, once.
  auto group_named = [&](std::string name) {
    if (reserved.IsReserved(name)) name = "_" + name;
    std::optional<host::AppGroup> group = groups->FindByName(name);
    if (group) return group->AppGroupID;
    host::AppGroup made;
    made.AppGroupName = name;
    return groups->Add(made);
  };
  double count = 0;
  double total = rs->RecordCount();
  for (; !rs->Eof(); rs->MoveNext()) {
    ++count;
    std::string code;
    std::string name;
    int16_t id = 0;
    step.Run(2, [&] { code = host::Trim(FieldConverter::ToText(rs->Fields("CGr"))); });
    step.Run(3, [&] { name = names.Of(code, FieldConverter::ToText(rs->Fields("Descr"))); });
    step.Run(4, [&] { id = group_named(name); });
    step.Run(5, [&] { keys.Add(host::Variant(id), "AppGroups|" + code); });
    if (events_) events_->ProgressCurrent("AppGroups", count, total);
  }
  host::RecordsetTools::CloseRecordset(rs);
  step.Run(6, [&] {
    std::string name = ModConnectorLumaro::Host().UIManager().Messages().Text(kDefaultGroup);
    keys.Add(host::Variant(group_named(name)), "AppGroups|");
  });
}

void BSOUpgBrevantaLumaroConfiguration::Upgrade_AppUsers() {
  LoadStep step("Upgrade_AppUsers");
  if (events_) events_->ProgressGlobal("AppUsers", "");
  std::string clause = app_users_limit_.empty() ? "" : " WHERE COper IN (" + app_users_limit_ + ")";
  std::unique_ptr<host::AppUserService> users;
  UniqueNames names;
  host::RecordsetPtr rs;
  if (!step.Run(1, [&] {
        users = ModConnectorLumaro::Host().NewAppUserService();
        rs = OpenWithUniqueness(source_.Get(),
                                "SELECT DISTINCT Descr FROM Opers" + clause + " GROUP By Descr",
                                "SELECT * FROM Opers" + clause, names);
      })) {
    return;
  }
  host::KeyDictionary& keys = ModConnectorLumaro::RunDictionary();
  const host::NameTools& reserved = ModConnectorLumaro::Host().NameTools();
  std::unique_ptr<host::AppGroupService> groups = ModConnectorLumaro::Host().NewAppGroupService();
  host::DatabaseService& pos = LoadTarget();
  host::SystemContext& context = Context();
  bool current_user_seen = false;
  std::optional<std::pair<int32_t, std::string>> last_user;
  double count = 0;
  double total = rs->RecordCount();
  for (; !rs->Eof(); rs->MoveNext()) {
    ++count;
    std::string key;
    std::string name;
    std::shared_ptr<host::AppUser> user;
    step.Run(2, [&] { key = FieldConverter::ToText(rs->Fields("COper")); });
    step.Run(3, [&] {
      name = names.Of(host::Trim(key), FieldConverter::ToText(rs->Fields("Descr")));
      // Users take the "_" of a reserved name behind it, unlike groups: kept
      // so on purpose.
      if (reserved.IsReserved(name)) name += "_";
    });
    step.Run(4, [&] { user = users->GetByKey(key); });
    // A name another user has takes "_" until it is free.
    step.Run(5, [&] {
      auto taken = [&] {
        std::string other = user ? "AppUserID <>" + std::to_string(user->AppUserID) + " AND " : "";
        host::RecordsetPtr found =
            pos.OpenRecordset("SELECT * FROM AppUsers WHERE " + other + " AppUserName='" +
                              pos.SqlFormat().QuoteText(name) + "'");
        bool any = !found->Eof();
        host::RecordsetTools::CloseRecordset(found);
        return any;
      };
      while (taken()) name += "_";
    });
    if (!user) {
      user = std::make_shared<host::AppUser>();
      user->AppUserKey = key;
      user->AppUserName = name;
      // Without its group the user is saved all the same.
      step.Run(6, [&] {
        host::Variant group =
            keys.Item("AppGroups|" + host::Trim(FieldConverter::ToText(rs->Fields("CGr"))));
        if (group.IsEmpty()) return;
        int16_t group_id = static_cast<int16_t>(host::CDbl(group));
        if (groups->Exists(group_id)) user->Groups.push_back(group_id);
      });
    } else {
      user->AppUserName = name;
    }
    if (step.Run(7, [&] { users->Save(*user); })) {
      if (user->AppUserID == context.CurrentUser()) {
        context.SetCurrentUser(user->AppUserID, user->AppUserName);
        current_user_seen = true;
      }
      last_user.emplace(user->AppUserID, user->AppUserName);
      step.Run(8, [&] { keys.Add(host::Variant(user->AppUserID), "AppUsers|" + host::Trim(key)); });
    }
    if (events_) events_->ProgressCurrent("AppUsers", count, total);
  }
  host::RecordsetTools::CloseRecordset(rs);
  // The current user is one that exists: the last one handled, when it was
  // none of them.
  if (!current_user_seen && last_user) context.SetCurrentUser(last_user->first, last_user->second);
}

void BSOUpgBrevantaLumaroConfiguration::UpgradeCustomerRange() {
  LoadStep("InitializeTillara").Run(2, [&] {
    host::RecordsetPtr rs = source_.Get().OpenRecordset(
        "SELECT * FROM Deleg WHERE CDlg=" + source_.Get().SqlFormat().Number(delegation_id_));
    if (rs->Eof()) return;
    std::shared_ptr<host::SystemSettings> settings = ModConnectorLumaro::GetSystemSettings();
    double start = settings->CustomerRangeStart;
    double end = settings->CustomerRangeEnd;
    if (rs->HasField("CCliIn") && rs->HasField("CCliFi")) {
      start = Field(*rs, "CCliIn");
      end = Field(*rs, "CCliFi");
      if (start < 0) start = 0;
      if (end < 0) end = 9999999999;
    }
    host::RecordsetTools::CloseRecordset(rs);
    if (start == settings->CustomerRangeStart && end == settings->CustomerRangeEnd) return;
    host::DatabaseService& pos = LoadTarget();
    const host::SqlFormat& format = pos.SqlFormat();
    pos.OpenRecordset("UPDATE ConfSystem SET CustomerRangeStart=" + format.Number(start) +
                      ", CustomerRangeEnd=" + format.Number(end));
    settings->CustomerRangeStart = start;
    settings->CustomerRangeEnd = end;
    settings->SpecialConfigurations[40] = false;
    pos.OpenRecordset("UPDATE ConfSpecial SET Active =" + format.Boolean(false) +
                      " WHERE ConfSpecialID=40");
  });
}

}  // namespace lumaro
