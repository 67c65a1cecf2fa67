#include <memory>
#include <string>
#include <string_view>

#include "connector/LumaroConnector.h"
#include "connector/ModConnectorLumaro.h"
#include "connector/host/KeyDictionary.h"
#include "gtest/gtest.h"
#include "tests/support/TestHost.h"

namespace lumaro {
namespace {

class ConnectorModule : public ::testing::Test {
 protected:
  void TearDown() override { test_host_.Db().SetStatementObserver(nullptr); }

  testsupport::TestHost test_host_;
  LumaroConnector connector_{test_host_.Host()};
};

TEST_F(ConnectorModule, SystemSettingsOverrideTakesThePlaceOfTheContextsUntilCleared) {
  std::shared_ptr<host::SystemSettings> context_settings =
      test_host_.Host().SystemManager().Context().Settings();
  ASSERT_NE(context_settings, nullptr);
  EXPECT_EQ(ModConnectorLumaro::GetSystemSettings(), context_settings);

  auto form_settings = std::make_shared<host::SystemSettings>();
  form_settings->Key = 7;
  ModConnectorLumaro::SetSystemSettings(form_settings);
  EXPECT_EQ(ModConnectorLumaro::GetSystemSettings(), form_settings);

  ModConnectorLumaro::SetSystemSettings(nullptr);
  EXPECT_EQ(ModConnectorLumaro::GetSystemSettings(), context_settings);
}

TEST_F(ConnectorModule, CurrencyCacheHoldsOneEntry) {
  test_host_.Exec(
      "INSERT INTO Currency (CurrencyID, CurrencyKey, ExportCode, SaleExchange) "
      "VALUES ('USD', 'USD', 2, 1.25)");
  int loads = 0;
  test_host_.Db().SetStatementObserver([&](std::string_view sql) {
    if (sql.find("FROM Currency") != std::string_view::npos) ++loads;
  });

  // A first call for the empty id finds the new, empty entry of the cache.
  std::shared_ptr<host::Currency> empty = ModConnectorLumaro::GetCurrency("");
  ASSERT_NE(empty, nullptr);
  EXPECT_EQ(empty->CurrencyID, "");
  EXPECT_EQ(loads, 0);

  std::shared_ptr<host::Currency> euro = ModConnectorLumaro::GetCurrency("EUR");
  ASSERT_NE(euro, nullptr);
  EXPECT_EQ(euro->CurrencyID, "EUR");
  EXPECT_EQ(ModConnectorLumaro::GetCurrency("EUR"), euro);
  EXPECT_EQ(loads, 1);

  struct Call {
    const char* id;
    int32_t export_code;
  };
  for (const Call& call : {Call{"USD", 2}, Call{"EUR", 1}, Call{"USD", 2}, Call{"EUR", 1}}) {
    std::shared_ptr<host::Currency> currency = ModConnectorLumaro::GetCurrency(call.id);
    ASSERT_NE(currency, nullptr);
    EXPECT_EQ(currency->CurrencyID, call.id);
    EXPECT_EQ(currency->ExportCode, call.export_code);
  }
  EXPECT_EQ(loads, 5);
  EXPECT_DOUBLE_EQ(ModConnectorLumaro::GetCurrency("USD")->Exchange, 1.25);
}

TEST_F(ConnectorModule, UnknownCurrencyEmptiesTheCacheWhichRefillsWithAnEmptyId) {
  ASSERT_NE(ModConnectorLumaro::GetCurrency("EUR"), nullptr);
  EXPECT_EQ(ModConnectorLumaro::GetCurrency("XYZ"), nullptr);
  int loads = 0;
  test_host_.Db().SetStatementObserver([&](std::string_view sql) {
    if (sql.find("FROM Currency") != std::string_view::npos) ++loads;
  });
  // Like the very first call, a call on the emptied cache finds a new
  // currency with an empty id, and the empty id matches it.
  std::shared_ptr<host::Currency> refilled = ModConnectorLumaro::GetCurrency("");
  ASSERT_NE(refilled, nullptr);
  EXPECT_EQ(refilled->CurrencyID, "");
  EXPECT_EQ(loads, 0);
}

TEST(KeyDictionaryAdd, ExistingKeyKeepsTheFirstValueUnlessReplaceIsAsked) {
  host::KeyDictionary dictionary;
  dictionary.Add(host::Variant(int32_t{10}), "Customer|C1");
  dictionary.Add(host::Variant(int32_t{20}), "Customer|C1");
  dictionary.Add(host::Variant(int32_t{30}), "Customer|C1", false);
  EXPECT_EQ(dictionary.Item("Customer|C1"), host::Variant(int32_t{10}));
  dictionary.Add(host::Variant("novo"), "Customer|C1", true);
  EXPECT_EQ(dictionary.Item("Customer|C1"), host::Variant("novo"));
  EXPECT_EQ(dictionary.Count(), 1u);

  EXPECT_TRUE(dictionary.Exists("Customer|C1"));
  EXPECT_FALSE(dictionary.Exists("Customer|c1"));
  EXPECT_TRUE(dictionary.Item("Customer|C2").IsEmpty());
  EXPECT_FALSE(dictionary.Exists("Customer|C2"));  // reading adds nothing
}

}  // namespace
}  // namespace lumaro
