#include <gtest/gtest.h>
#include <sodium.h>
#include <sys/stat.h>

#include <string>
#include <vector>

#include "connector/host/Conversions.h"
#include "connector/host/Error.h"
#include "standalone/SodiumSecurity.h"
#include "tests/host/RaisedNumber.h"
#include "tests/support/TestHost.h"

namespace standalone {
namespace {

using host::RaisedNumber;

// A setting that gives its document as it is and keeps what it is given.
class FakeSetting : public host::IGenericSetting {
 public:
  FakeSetting(std::string key2, std::string xml) : key2_(std::move(key2)), xml_(std::move(xml)) {}
  std::string Key1() const override { return "Lumaro"; }
  std::string Key2() const override { return key2_; }
  bool ExportToBranch() const override { return false; }
  std::string ToXML() override { return xml_; }
  void FromXML(std::string_view xml) override { xml_ = "loaded: " + std::string(xml); }

 private:
  std::string key2_;
  std::string xml_;
};

// What Load gives the setting of `key2`: "loaded: <document>", or "none".
std::string Loaded(host::SettingStore& store, const std::string& key2) {
  FakeSetting setting(key2, "none");
  bool found = store.Load(setting);
  std::string xml = setting.ToXML();
  return found == (xml != "none") ? xml : "Load said " + std::to_string(found) + " but gave " + xml;
}

TEST(SettingStore, SavesLoadsAndDeletesByBothKeys) {
  testsupport::TestHost test_host;
  host::SettingStore& store = test_host.Host().ModuleManager().ConnectorRegistry().SettingStore();
  const std::string document = "<Settings Folder=\"C:\\Troca\">O'Neil &amp; Conceição</Settings>";
  FakeSetting old("1", "<Old/>"), first("1", document), other("2", "<Other/>");
  store.Save(old);
  store.Save(first);  // replaces
  store.Save(other);
  EXPECT_EQ(Loaded(*test_host.Host().NewSettingStore(), "1"), "loaded: " + document);
  EXPECT_EQ(test_host.Scalar("SELECT COUNT(*) FROM ConnectorSettings"), "2");
  EXPECT_EQ(Loaded(store, "3"), "none");
  store.Delete(first);
  EXPECT_EQ(Loaded(store, "1"), "none");
  EXPECT_EQ(Loaded(store, "2"), "loaded: <Other/>");
}

std::vector<unsigned char> Unbase64(const std::string& text) {
  std::vector<unsigned char> bytes(text.size());
  size_t size = 0;
  EXPECT_EQ(sodium_base642bin(bytes.data(), bytes.size(), text.data(), text.size(), nullptr, &size,
                              nullptr, sodium_base64_VARIANT_ORIGINAL),
            0)
      << text;
  bytes.resize(size);
  return bytes;
}

mode_t ModeOf(const std::string& path) {
  struct stat info;
  EXPECT_EQ(::stat(path.c_str(), &info), 0) << path;
  return info.st_mode & 0777;
}

TEST(InstallationCrypto, EncryptsReversiblyUnderTheWorkFolderKey) {
  testsupport::TempFolder folder, other_folder;
  SodiumCrypto crypto(folder.Path());
  const std::string texts[] = {"segredo", "", "Pa$$ção €😀 ' \"", std::string(1000, 'z')};
  for (const std::string& text : texts) {
    std::string box = crypto.Encrypt(text);
    if (!text.empty()) {
      EXPECT_EQ(box.find(text), std::string::npos) << "never in clear";
    }
    EXPECT_NE(crypto.Encrypt(text), box) << "a fresh nonce each time";
    EXPECT_EQ(crypto.Decrypt(box), text);
    EXPECT_EQ(SodiumCrypto(folder.Path()).Decrypt(box), text) << "the key is kept in the folder";
    EXPECT_EQ(RaisedNumber([&] { SodiumCrypto(other_folder.Path()).Decrypt(box); }),
              host::err::kInvalidProcedureCall);
  }
  EXPECT_EQ(ModeOf(folder.File("lumaro-secret.key")), 0600u);

  const std::string box = crypto.Encrypt("segredo");
  std::string tampered = box;
  tampered[box.size() / 2] = tampered[box.size() / 2] == 'A' ? 'B' : 'A';
  const std::string garbage_texts[] = {"", "not base64 at all!", "AAAA", std::string(80, 'A'),
                                       tampered};
  for (const std::string& garbage : garbage_texts) {
    EXPECT_NE(RaisedNumber([&] { crypto.Decrypt(garbage); }), 0) << garbage;
  }

  testsupport::TestHost test_host;
  std::string from_host = test_host.Host().Context().Crypto().Encrypt("segredo");
  EXPECT_EQ(SodiumCrypto(test_host.Folder().Path()).Decrypt(from_host), "segredo")
      << "the host's crypto keeps its key in the work folder";
}

TEST(InstallationSigner, SignsWithEd25519) {
  testsupport::TempFolder folder;
  SodiumTextSigner signer(folder.Path());
  const std::vector<unsigned char> public_key = Unbase64(signer.PublicKey());
  ASSERT_EQ(public_key.size(), crypto_sign_PUBLICKEYBYTES);
  auto verifies = [&](const std::string& signature, const std::string& text) {
    std::vector<unsigned char> bytes = Unbase64(signature);
    return bytes.size() == crypto_sign_BYTES &&
           crypto_sign_verify_detached(bytes.data(),
                                       reinterpret_cast<const unsigned char*>(text.data()),
                                       text.size(), public_key.data()) == 0;
  };
  const std::string signature = signer.Sign("Lumaro 1.0");
  EXPECT_TRUE(verifies(signature, "Lumaro 1.0"));
  EXPECT_FALSE(verifies(signature, "Lumaro 1.1"));
  EXPECT_NE(signer.Sign("Lumaro 1.1"), signature);
  EXPECT_TRUE(verifies(signer.Sign("Conceição"), "Conceição"));
  EXPECT_EQ(SodiumTextSigner(folder.Path()).Sign("Lumaro 1.0"), signature) << "one key per folder";
  EXPECT_EQ(ModeOf(folder.File("lumaro-signing.key")), 0600u);
}

class HostContext : public ::testing::Test {
 protected:
  HostContextStore& Store() { return test_host_.Host().ContextStore(); }
  std::string StoredRows() { return test_host_.Scalar("SELECT COUNT(*) FROM HostContext"); }

  testsupport::TestHost test_host_;
};

TEST_F(HostContext, DefaultsThenSetValuesReadBack) {
  testsupport::TempFolder work;
  struct Case {
    const char* key;
    std::string default_value, value;
  };
  const Case cases[] = {
      {"WorkFolder", test_host_.Folder().Path(), work.Path()},
      {"CompanyNumber", "1", "500 123 O'Neil"},
      {"TerminalCount", "1", "12"},
      {"ExternalSeries", "False", "True"},
      {"DecimalSeparator", ",", "."},
      {"GroupSeparator", ".", " "},
      {"ShortDate", "dd-mm-yyyy", "mm/dd/yyyy"},
      {"LongTime", "hh:mm:ss", "hh:mm"},
      {"ItemImageFolder", "", "/srv/imagens"},  // its default is left to the host
  };
  for (const Case& c : cases) {
    if (!c.default_value.empty()) {
      EXPECT_EQ(Store().Get(c.key), c.default_value) << c.key;
    }
  }
  EXPECT_EQ(Store().Get("workfolder"), test_host_.Folder().Path());
  EXPECT_EQ(StoredRows(), "0");

  Store().Set("GroupSeparator", " ");  // frees "." for the decimal separator
  for (const Case& c : cases) {
    Store().Set(c.key, c.value);
    EXPECT_EQ(Store().Get(c.key), c.value) << c.key;
  }
  Store().Set("companynumber", "77");
  EXPECT_EQ(Store().Get("CompanyNumber"), "77");
  EXPECT_EQ(StoredRows(), "9");

  standalone::StandaloneContext& context = test_host_.Host().Context();
  EXPECT_EQ(context.WorkFolder(), work.Path());
  EXPECT_EQ(context.TerminalCount(), 12);
  EXPECT_TRUE(context.ExternalSeries());
  EXPECT_EQ(context.ItemImageFolder(), "/srv/imagens");

  const host::Variant date(host::MakeDate(2026, 11, 23, 14, 5, 7));
  EXPECT_EQ(host::CStr(12.5), "12,5") << "not in force before they are applied";
  test_host_.Host().ApplyRegionalSettings();
  EXPECT_EQ(host::CStr(12.5), "12.5");
  EXPECT_EQ(host::CStr(date), "11/23/2026 14:05");
  EXPECT_EQ(host::CDbl(host::Variant("1 234.5")), 1234.5);
}

TEST_F(HostContext, BadKeysAndValuesAreRefusedAndStoreNothing) {
  // "." and "," are the other separator.
  const char* const cases[][2] = {
      {"Nope", "1"},
      {"TerminalCount", "x"},
      {"TerminalCount", "-1"},
      {"TerminalCount", "12345"},
      {"DecimalSeparator", "ab"},
      {"DecimalSeparator", ""},
      {"DecimalSeparator", "5"},
      {"DecimalSeparator", "."},
      {"GroupSeparator", ","},
      {"ExternalSeries", "maybe"},
      {"WorkFolder", "/no/such"},
      {"ShortDate", "dd-mm"},
      {"LongTime", "mm:ss"},
  };
  for (const auto& [key, value] : cases) {
    EXPECT_EQ(RaisedNumber([&] { Store().Set(key, value); }), host::err::kInvalidProcedureCall)
        << key << " " << value;
    EXPECT_EQ(StoredRows(), "0") << key << " " << value;
  }
  EXPECT_EQ(RaisedNumber([&] { Store().Get("Nope"); }), host::err::kInvalidProcedureCall);
  EXPECT_EQ(Store().Get("TerminalCount"), "1");
  EXPECT_EQ(Store().Get("DecimalSeparator"), ",");
}

}  // namespace
}  // namespace standalone
