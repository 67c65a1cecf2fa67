#ifndef LUMARO_STANDALONE_SODIUM_SECURITY_H_
#define LUMARO_STANDALONE_SODIUM_SECURITY_H_

#include <string>

#include "connector/host/Security.h"

namespace standalone {

// Crypto with libsodium's secretbox (XSalsa20-Poly1305) under the key of the
// installation, kept in the file "lumaro-secret.key" of the work folder
// (mode 0600; made at first use). The text is base64 of nonce + box.
class SodiumCrypto : public host::Crypto {
 public:
  explicit SodiumCrypto(std::string work_folder) : work_folder_(std::move(work_folder)) {}
  std::string Encrypt(std::string_view text) override;
  // Raises 5 for a text that this installation's key did not make.
  std::string Decrypt(std::string_view text) override;

 private:
  std::string work_folder_;
};

// Signs with Ed25519 under the installation's signing key, kept in the file
// "lumaro-signing.key" of the work folder (mode 0600; made at first use).
// The signature is given in base64.
class SodiumTextSigner : public host::TextSigner {
 public:
  explicit SodiumTextSigner(std::string work_folder) : work_folder_(std::move(work_folder)) {}
  std::string Sign(std::string_view text) override;
  // The public key that checks the signatures, in base64.
  std::string PublicKey();

 private:
  std::string work_folder_;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SODIUM_SECURITY_H_
