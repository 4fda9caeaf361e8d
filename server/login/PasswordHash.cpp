#include "login/PasswordHash.h"

#include <sodium.h>

#include <stdexcept>

namespace orbelan::server {

namespace {

void startSodium()
{
    static const int started = sodium_init();
    if (started < 0) {
        throw std::runtime_error("libsodium cannot start");
    }
}

} // namespace

std::string PasswordHash::make(const std::string& password)
{
    startSodium();
    char encoded[crypto_pwhash_STRBYTES];
    if (crypto_pwhash_str_alg(encoded, password.data(), password.size(),
                              crypto_pwhash_OPSLIMIT_INTERACTIVE,
                              crypto_pwhash_MEMLIMIT_INTERACTIVE,
                              crypto_pwhash_ALG_ARGON2ID13) != 0) {
        throw std::runtime_error("out of memory while hashing a password");
    }
    return encoded;
}

bool PasswordHash::matches(const std::string& hash, const std::string& password)
{
    startSodium();
    if (!isArgon2id(hash) || hash.size() >= crypto_pwhash_STRBYTES) {
        return false;
    }
    return crypto_pwhash_str_verify(hash.c_str(), password.data(), password.size()) == 0;
}

bool PasswordHash::isArgon2id(const std::string& hash)
{
    return hash.starts_with(crypto_pwhash_argon2id_STRPREFIX);
}

void PasswordHash::wipe(std::string& secret)
{
    sodium_memzero(secret.data(), secret.size());
    secret.clear();
}

} // namespace orbelan::server
