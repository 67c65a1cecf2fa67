#include <gtest/gtest.h>
#include <sodium.h>
#include <sys/stat.h>

#include <string>
#include <vector>

#include "connector/host/Conversions.h"
#include "connector/host/Error.h"
#include "standalone/SodiumSecurity.h"
#include "tests/host/HostTestTools.h"
#include "tests/support/TestHost.h"

namespace standalone {
namespace {

using host::RaisedNumber;

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
  testsupport::TestHost test_host;
  testsupport::TempFolder other_folder;
  host::Crypto& crypto = test_host.Host().Context().Crypto();
  for (const std::string& text : {std::string("Pa$$ção €😀 ' \""), std::string()}) {
    std::string box = crypto.Encrypt(text);
    if (!text.empty()) {
      EXPECT_EQ(box.find(text), std::string::npos) << "never in clear";
    }
    EXPECT_NE(crypto.Encrypt(text), box) << "a fresh nonce each time";
    EXPECT_EQ(SodiumCrypto(test_host.Folder().Path()).Decrypt(box), text)
        << "the key is kept in the work folder";
    EXPECT_EQ(RaisedNumber([&] { SodiumCrypto(other_folder.Path()).Decrypt(box); }),
              host::err::kInvalidProcedureCall);
  }
  EXPECT_EQ(ModeOf(test_host.Folder().File("lumaro-secret.key")), 0600u);

  std::string tampered = crypto.Encrypt("segredo");
  tampered[tampered.size() / 2] = tampered[tampered.size() / 2] == 'A' ? 'B' : 'A';
  for (const std::string& garbage :
       {std::string("not base64 at all!"), std::string(80, 'A'), tampered}) {
    EXPECT_NE(RaisedNumber([&] { crypto.Decrypt(garbage); }), 0) << garbage;
  }
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
  EXPECT_EQ(SodiumTextSigner(folder.Path()).Sign("Lumaro 1.0"), signature) << "one key per folder";
  EXPECT_EQ(ModeOf(folder.File("lumaro-signing.key")), 0600u);
}

class HostContext : public ::testing::Test {
 protected:
  HostContextStore& Store() { return test_host_.Host().ContextStore(); }
  std::string StoredRows() { return test_host_.Scalar("SELECT COUNT(*) FROM HostContext"); }

  testsupport::TestHost test_host_;
};

TEST_F(HostContext, DefaultsThenSetValuesReadBackAndApply) {
  EXPECT_EQ(Store().Get("workfolder"), test_host_.Folder().Path());
  EXPECT_EQ(StoredRows(), "0");

  testsupport::TempFolder work;
  const std::pair<const char*, std::string> values[] = {
      {"GroupSeparator", " "},  // frees "." for the decimal separator
      {"WorkFolder", work.Path()}, {"CompanyNumber", "500 123 O'Neil"}, {"TerminalCount", "12"},
      {"ExternalSeries", "True"},  {"DecimalSeparator", "."},           {"ShortDate", "mm/dd/yyyy"},
      {"LongTime", "hh:mm"},       {"ItemImageFolder", "/srv/imagens"}};
  for (const auto& [key, value] : values) {
    Store().Set(key, value);
    EXPECT_EQ(Store().Get(key), value) << key;
  }
  EXPECT_EQ(StoredRows(), "9");

  standalone::StandaloneContext& context = test_host_.Host().Context();
  EXPECT_EQ(context.WorkFolder(), work.Path());
  EXPECT_EQ(context.TerminalCount(), 12);
  EXPECT_TRUE(context.ExternalSeries());
  EXPECT_EQ(context.ItemImageFolder(), "/srv/imagens");

  EXPECT_EQ(host::CStr(12.5), "12,5") << "not in force before they are applied";
  test_host_.Host().ApplyRegionalSettings();
  EXPECT_EQ(host::CStr(host::Variant(host::MakeDate(2026, 11, 23, 14, 5, 7))), "11/23/2026 14:05");
  EXPECT_EQ(host::CDbl(host::Variant("1 234.5")), 1234.5);
}

TEST_F(HostContext, SettingsTellWhetherItemsUseUnitsAndFormulas) {
  test_host_.Exec("UPDATE ConfSystem SET UseUnitOfMeasureItems = 0, UseUnitWithFormulaItems = 1");
  std::shared_ptr<host::SystemSettings> settings = test_host_.Host().Context().LoadSettings(1);
  EXPECT_FALSE(settings->UseUnitOfMeasureItems);
  EXPECT_TRUE(settings->UseUnitWithFormulaItems);
}

TEST_F(HostContext, BadKeysAndValuesAreRefusedAndStoreNothing) {
  // "." and "," are the other separator.
  const char* const cases[][2] = {{"Nope", "1"},
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
                                  {"LongTime", "mm:ss"}};
  for (const auto& [key, value] : cases) {
    EXPECT_EQ(RaisedNumber([&] { Store().Set(key, value); }), host::err::kInvalidProcedureCall)
        << key << " " << value;
  }
  EXPECT_EQ(StoredRows(), "0");
  EXPECT_EQ(RaisedNumber([&] { Store().Get("Nope"); }), host::err::kInvalidProcedureCall);
  EXPECT_EQ(Store().Get("DecimalSeparator"), ",");
}

}  // namespace
}  // namespace standalone
