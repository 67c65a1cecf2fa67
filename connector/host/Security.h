#ifndef LUMARO_CONNECTOR_HOST_SECURITY_H_
#define LUMARO_CONNECTOR_HOST_SECURITY_H_

#include <string>
#include <string_view>

namespace host {

// A reversible text-to-text operation pair of the installation.
// Decrypt raises when the text was not made by Encrypt with this
// installation's key.
class Crypto {
 public:
  virtual ~Crypto() = default;
  virtual std::string Encrypt(std::string_view text) = 0;
  virtual std::string Decrypt(std::string_view text) = 0;
};

// Signs a text with the installation's signing key.
class TextSigner {
 public:
  virtual ~TextSigner() = default;
  virtual std::string Sign(std::string_view text) = 0;
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_SECURITY_H_
