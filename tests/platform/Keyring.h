#pragma once

#include <string>

// The session's Secret Service as another program uses it: through libsecret, without a schema. Stands apart from Qt, whose
// keywords libsecret's headers do not bear.
namespace keyring {

// Stores an item whose one attribute is "account"; any bytes will do.
bool stores(const std::string &account, const std::string &bytes);
// Stores one more item of that account, however many there are; `number` tells them apart by an attribute of its own. Every other
// one lies in another collection.
bool storesBeside(const std::string &account, const std::string &bytes, int number);
// Removes every item of that attribute.
bool clears(const std::string &account);
// The bytes of one of them.
std::string secret(const std::string &account);
// How many items have that attribute.
int itemCount(const std::string &account);
// The label of one of them.
std::string label(const std::string &account);
// Locks the default collection.
bool locks();
// Unlocks it with the password that with-keyring gave it.
bool unlocks();

} // namespace keyring
