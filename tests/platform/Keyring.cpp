#include "Keyring.h"

#include <libsecret/secret.h>

namespace keyring {

namespace {

GHashTable *attributes(const std::string &account)
{
    GHashTable *table = g_hash_table_new_full(g_str_hash, g_str_equal, g_free, g_free);
    g_hash_table_insert(table, g_strdup("account"), g_strdup(account.c_str()));
    return table;
}

GList *items(const std::string &account)
{
    GHashTable *table = attributes(account);
    GList *found = secret_service_search_sync(nullptr, nullptr, table, SECRET_SEARCH_ALL, nullptr, nullptr);
    g_hash_table_unref(table);
    return found;
}

} // namespace

bool stores(const std::string &account, const std::string &bytes)
{
    GHashTable *table = attributes(account);
    SecretValue *value = secret_value_new(bytes.data(), gssize(bytes.size()), "application/octet-stream");
    const bool stored = secret_service_store_sync(
        nullptr, nullptr, table, SECRET_COLLECTION_DEFAULT, "another program's", value, nullptr, nullptr);
    secret_value_unref(value);
    g_hash_table_unref(table);
    return stored;
}

bool clears(const std::string &account)
{
    GHashTable *table = attributes(account);
    GError *error = nullptr;
    secret_service_clear_sync(nullptr, nullptr, table, nullptr, &error);
    g_hash_table_unref(table);
    const bool failed = error != nullptr;
    g_clear_error(&error);
    return !failed;
}

std::string secret(const std::string &account)
{
    GHashTable *table = attributes(account);
    SecretValue *value = secret_service_lookup_sync(nullptr, nullptr, table, nullptr, nullptr);
    g_hash_table_unref(table);
    if (!value) {
        return {};
    }
    gsize length = 0;
    const char *bytes = secret_value_get(value, &length);
    const std::string secret(bytes, length);
    secret_value_unref(value);
    return secret;
}

int itemCount(const std::string &account)
{
    GList *found = items(account);
    const guint count = g_list_length(found);
    g_list_free_full(found, g_object_unref);
    return int(count);
}

std::string label(const std::string &account)
{
    GList *found = items(account);
    std::string text;
    if (found) {
        char *label = secret_item_get_label(SECRET_ITEM(found->data));
        text = label;
        g_free(label);
    }
    g_list_free_full(found, g_object_unref);
    return text;
}

bool locks()
{
    SecretService *service = secret_service_get_sync(SECRET_SERVICE_NONE, nullptr, nullptr);
    SecretCollection *collection = service
        ? secret_collection_for_alias_sync(service, SECRET_COLLECTION_DEFAULT, SECRET_COLLECTION_NONE, nullptr, nullptr)
        : nullptr;
    if (!collection) {
        return false;
    }
    GList *list = g_list_append(nullptr, collection);
    const int locked = secret_service_lock_sync(service, list, nullptr, nullptr, nullptr);
    g_list_free_full(list, g_object_unref);
    g_object_unref(service);
    return locked == 1;
}

} // namespace keyring
