#include "session/password.h"

#include <sodium.h>

#include <array>

namespace tarvex {

PasswordCheck checkPassword(std::string_view kept, std::string_view typed) {
  if (!kept.starts_with(crypto_pwhash_argon2id_STRPREFIX))
    return kept == typed ? PasswordCheck::rightButPlain : PasswordCheck::wrong;
  const std::string text(kept);  // the library wants it to end with a zero
  if (sodium_init() < 0) return PasswordCheck::wrong;
  const bool right = crypto_pwhash_str_verify(text.c_str(), typed.data(), typed.size()) == 0;
  return right ? PasswordCheck::right : PasswordCheck::wrong;
}

std::optional<std::string> keptPassword(std::string_view typed) {
  std::array<char, crypto_pwhash_STRBYTES> text{};
  if (sodium_init() < 0) return std::nullopt;
  if (crypto_pwhash_str_alg(text.data(), typed.data(), typed.size(), crypto_pwhash_OPSLIMIT_INTERACTIVE,
                            crypto_pwhash_MEMLIMIT_INTERACTIVE, crypto_pwhash_ALG_ARGON2ID13) != 0)
    return std::nullopt;
  return text.data();
}

}  // namespace tarvex
