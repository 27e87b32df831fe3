#include "Keyring.h"

// libsecret's headers use the name, which Qt's keywords take.
#undef signals
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

// Takes the attributes.
bool store(GHashTable *attributes, const char *collection, const std::string &bytes)
{
    SecretValue *value = secret_value_new(bytes.data(), gssize(bytes.size()), "application/octet-stream");
    const bool stored = secret_service_store_sync(
        nullptr, nullptr, attributes, collection, "another program's", value, nullptr, nullptr);
    secret_value_unref(value);
    g_hash_table_unref(attributes);
    return stored;
}

} // namespace

bool stores(const std::string &account, const std::string &bytes)
{
    return store(attributes(account), SECRET_COLLECTION_DEFAULT, bytes);
}

bool storesBeside(const std::string &account, const std::string &bytes, int number)
{
    GHashTable *table = attributes(account);
    g_hash_table_insert(table, g_strdup("number"), g_strdup_printf("%d", number));
    return store(table, number % 2 ? SECRET_COLLECTION_SESSION : SECRET_COLLECTION_DEFAULT, bytes);
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

bool unlocks()
{
    // Without a prompt, which nobody would answer: an interface of GNOME's keyring that serves its own PAM module.
    GDBusConnection *bus = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
    const auto call = [bus](const char *interface, const char *method, GVariant *arguments) {
        return g_dbus_connection_call_sync(bus, "org.freedesktop.secrets", "/org/freedesktop/secrets", interface,
            method, arguments, nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
    };
    GVariant *opened =
        call("org.freedesktop.Secret.Service", "OpenSession", g_variant_new("(sv)", "plain", g_variant_new_string("")));
    const char *session = nullptr;
    g_variant_get(opened, "(v&o)", nullptr, &session);
    GVariant *nothing = g_variant_new_fixed_array(G_VARIANT_TYPE_BYTE, "", 0, 1);
    GVariant *password = g_variant_new_fixed_array(G_VARIANT_TYPE_BYTE, "\n", 1, 1);
    GVariant *done = call("org.gnome.keyring.InternalUnsupportedGuiltRiddenInterface", "UnlockWithMasterPassword",
        g_variant_new(
            "(o(o@ay@ays))", "/org/freedesktop/secrets/collection/login", session, nothing, password, "text/plain"));
    const bool unlocked = done != nullptr;
    g_clear_pointer(&done, g_variant_unref);
    g_variant_unref(opened);
    g_object_unref(bus);
    return unlocked;
}

} // namespace keyring
