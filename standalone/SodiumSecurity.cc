#include "standalone/SodiumSecurity.h"

#include <fcntl.h>
#include <sodium.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <vector>

#include "connector/host/Error.h"

namespace standalone {
namespace {

using Bytes = std::vector<unsigned char>;
constexpr char kSource[] = "Crypto";

void RequireSodium() {
  if (sodium_init() < 0) host::RaiseWith(host::err::kInvalidProcedureCall, "libsodium failed", kSource);
}

std::string Base64(const unsigned char* data, size_t size) {
  std::string text(sodium_base64_encoded_len(size, sodium_base64_VARIANT_ORIGINAL), '\0');
  sodium_bin2base64(text.data(), text.size(), data, size, sodium_base64_VARIANT_ORIGINAL);
  text.resize(std::strlen(text.c_str()));
  return text;
}

bool FromBase64(std::string_view text, Bytes& out) {
  // No bytes to hand libsodium: an empty vector has no storage to point at.
  if (text.empty()) {
    out.clear();
    return true;
  }
  out.assign(text.size(), 0);
  size_t size = 0;
  if (sodium_base642bin(out.data(), out.size(), text.data(), text.size(), nullptr, &size, nullptr,
                        sodium_base64_VARIANT_ORIGINAL) != 0)
    return false;
  out.resize(size);
  return true;
}

// Reads the key file of `size` bytes in the folder, making it with fresh
// random bytes (mode 0600) when it does not exist yet.
Bytes InstallationKey(const std::string& folder, const char* name, size_t size,
                      void (*make)(unsigned char*)) {
  std::string path = folder + "/" + name;
  Bytes key(size);
  int fd = ::open(path.c_str(), O_RDONLY);
  if (fd < 0 && errno == ENOENT) {
    make(key.data());
    fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0600);
    if (fd >= 0) {
      bool written = ::write(fd, key.data(), size) == static_cast<ssize_t>(size);
      ::close(fd);
      if (written) return key;
      ::unlink(path.c_str());
    } else if (errno == EEXIST) {
      fd = ::open(path.c_str(), O_RDONLY);  // another process made it first
    }
    if (fd < 0) {
      host::RaiseWith(host::err::kPermissionDenied,
                      "Cannot create the key file '" + path + "': " + std::strerror(errno), kSource);
    }
  }
  if (fd < 0) {
    host::RaiseWith(host::err::kPermissionDenied,
                    "Cannot read the key file '" + path + "': " + std::strerror(errno), kSource);
  }
  ssize_t got = ::read(fd, key.data(), size);
  ::close(fd);
  if (got != static_cast<ssize_t>(size)) {
    host::RaiseWith(host::err::kInvalidProcedureCall,
                    "The key file '" + path + "' is damaged", kSource);
  }
  return key;
}

void MakeSecretKey(unsigned char* key) { crypto_secretbox_keygen(key); }
void MakeSigningSeed(unsigned char* seed) { randombytes_buf(seed, crypto_sign_SEEDBYTES); }

Bytes SigningSecretKey(const std::string& folder, Bytes* public_key = nullptr) {
  Bytes seed = InstallationKey(folder, "lumaro-signing.key", crypto_sign_SEEDBYTES, MakeSigningSeed);
  Bytes pk(crypto_sign_PUBLICKEYBYTES), sk(crypto_sign_SECRETKEYBYTES);
  crypto_sign_seed_keypair(pk.data(), sk.data(), seed.data());
  sodium_memzero(seed.data(), seed.size());
  if (public_key != nullptr) *public_key = pk;
  return sk;
}

}  // namespace

std::string SodiumCrypto::Encrypt(std::string_view text) {
  RequireSodium();
  Bytes key = InstallationKey(work_folder_, "lumaro-secret.key", crypto_secretbox_KEYBYTES,
                              MakeSecretKey);
  Bytes message(crypto_secretbox_NONCEBYTES + crypto_secretbox_MACBYTES + text.size());
  unsigned char* nonce = message.data();
  randombytes_buf(nonce, crypto_secretbox_NONCEBYTES);
  crypto_secretbox_easy(message.data() + crypto_secretbox_NONCEBYTES,
                        reinterpret_cast<const unsigned char*>(text.data()), text.size(), nonce,
                        key.data());
  sodium_memzero(key.data(), key.size());
  return Base64(message.data(), message.size());
}

std::string SodiumCrypto::Decrypt(std::string_view text) {
  RequireSodium();
  Bytes box;
  if (!FromBase64(text, box) || box.size() < crypto_secretbox_NONCEBYTES + crypto_secretbox_MACBYTES) {
    host::RaiseWith(host::err::kInvalidProcedureCall, "The text is not an encrypted text", kSource);
  }
  Bytes key = InstallationKey(work_folder_, "lumaro-secret.key", crypto_secretbox_KEYBYTES,
                              MakeSecretKey);
  size_t size = box.size() - crypto_secretbox_NONCEBYTES - crypto_secretbox_MACBYTES;
  std::string clear(size, '\0');
  int rc = crypto_secretbox_open_easy(reinterpret_cast<unsigned char*>(clear.data()),
                                      box.data() + crypto_secretbox_NONCEBYTES,
                                      box.size() - crypto_secretbox_NONCEBYTES, box.data(),
                                      key.data());
  sodium_memzero(key.data(), key.size());
  if (rc != 0) {
    host::RaiseWith(host::err::kInvalidProcedureCall,
                    "The text was not encrypted with this installation's key", kSource);
  }
  return clear;
}

std::string SodiumTextSigner::Sign(std::string_view text) {
  RequireSodium();
  Bytes secret = SigningSecretKey(work_folder_);
  unsigned char signature[crypto_sign_BYTES];
  crypto_sign_detached(signature, nullptr, reinterpret_cast<const unsigned char*>(text.data()),
                       text.size(), secret.data());
  sodium_memzero(secret.data(), secret.size());
  return Base64(signature, sizeof signature);
}

std::string SodiumTextSigner::PublicKey() {
  RequireSodium();
  Bytes public_key;
  Bytes secret = SigningSecretKey(work_folder_, &public_key);
  sodium_memzero(secret.data(), secret.size());
  return Base64(public_key.data(), public_key.size());
}

}  // namespace standalone
