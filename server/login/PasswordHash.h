#pragma once

#include <string>

namespace orbelan::server {

// Passwords as the store keeps them: Argon2id hashes in libsodium's encoded
// form ("$argon2id$v=19$m=...,t=...,p=...$salt$hash"), each with its own
// salt and its cost written in it. Hashing or checking one takes tens of
// milliseconds and 64 MiB on purpose.
class PasswordHash {
public:
    // Throws std::runtime_error when libsodium cannot start or runs out of
    // memory.
    static std::string make(const std::string& password);
    // False for a wrong password and for a hash that is not a valid one.
    static bool matches(const std::string& hash, const std::string& password);
    static bool isArgon2id(const std::string& hash);
    // Overwrites the text's bytes before it is freed.
    static void wipe(std::string& secret);
};

} // namespace orbelan::server
