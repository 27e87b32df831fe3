// libsecret comes first: its headers use a name that Qt's keywords take.
#include <libsecret/secret.h>

#include "platform/LibsecretStore.h"

#include <QCoroFuture>

#include <QPromise>
#include <QThread>

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

namespace quillmere {

namespace {

const SecretSchema *schema()
{
    static const SecretSchema schema = [] {
        SecretSchema made{};
        made.name = "com.quillmere.studio";
        made.flags = SECRET_SCHEMA_DONT_MATCH_NAME;
        made.attributes[0] = {"account", SECRET_SCHEMA_ATTRIBUTE_STRING};
        return made;
    }();
    return &schema;
}

// The process that is the keyring at the moment, by its name on the bus; empty where there is none.
QByteArray presentKeyring(GCancellable *cancellable)
{
    QByteArray keyring;
    GDBusConnection *bus = g_bus_get_sync(G_BUS_TYPE_SESSION, cancellable, nullptr);
    GVariant *reply = bus ? g_dbus_connection_call_sync(bus, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                          "org.freedesktop.DBus", "GetNameOwner", g_variant_new("(s)", "org.freedesktop.secrets"),
                          G_VARIANT_TYPE("(s)"), G_DBUS_CALL_FLAGS_NONE, -1, cancellable, nullptr)
                          : nullptr;
    if (reply) {
        const char *name = nullptr;
        g_variant_get(reply, "(&s)", &name);
        keyring = name;
        g_variant_unref(reply);
    }
    g_clear_object(&bus);
    return keyring;
}

} // namespace

struct LibsecretStore::Worker : public QThread {
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<std::function<void(GCancellable *)>> operations;
    bool ending = false;
    GCancellable *cancellable = g_cancellable_new();
    QByteArray keyring;

    Worker() { setObjectName(QStringLiteral("Secret store")); }
    ~Worker() override { g_object_unref(cancellable); }

    void enqueue(std::function<void(GCancellable *)> operation)
    {
        {
            const std::lock_guard lock(mutex);
            operations.push_back(std::move(operation));
            if (!isRunning()) {
                start();
            }
        }
        changed.notify_one();
    }

    void run() override
    {
        // libsecret's synchronous calls must not pick up events of the main thread's context.
        GMainContext *context = g_main_context_new();
        g_main_context_push_thread_default(context);
        for (;;) {
            std::unique_lock lock(mutex);
            changed.wait(lock, [this] { return ending || !operations.empty(); });
            if (operations.empty()) {
                break;
            }
            const auto operation = std::move(operations.front());
            operations.pop_front();
            lock.unlock();
            meetKeyring();
            operation(cancellable);
        }
        g_main_context_pop_thread_default(context);
        g_main_context_unref(context);
    }

    // libsecret keeps its session with a keyring for good. A keyring that was started anew does not know it, and from then on
    // nothing would be found.
    void meetKeyring()
    {
        const QByteArray present = presentKeyring(cancellable);
        if (present != keyring) {
            secret_service_disconnect();
            keyring = present;
        }
    }

    // Whether it has ended.
    bool end()
    {
        {
            const std::lock_guard lock(mutex);
            ending = true;
        }
        changed.notify_one();
        // A save or removal that was said just before the end gets its chance; a keyring that does not answer does not.
        if (wait(QDeadlineTimer(2000))) {
            return true;
        }
        g_cancellable_cancel(cancellable);
        return wait(QDeadlineTimer(1000));
    }
};

LibsecretStore::LibsecretStore() : m_worker(std::make_unique<Worker>())
{
}

LibsecretStore::~LibsecretStore()
{
    if (!m_worker->end()) {
        // libsecret waits until a prompt is taken back, and whoever shows it may not do that. The thread ends with the process.
        static_cast<void>(m_worker.release());
    }
}

void LibsecretStore::save(const QString &value, const QString &account)
{
    m_worker->enqueue([value = value.toUtf8(), account = account.toUtf8()](GCancellable *cancellable) {
        secret_password_clear_sync(schema(), cancellable, nullptr, "account", account.constData(), nullptr);
        // With its length, as it may hold a NUL.
        SecretValue *secret = secret_value_new(value.constData(), value.size(), "text/plain");
        secret_password_store_binary_sync(schema(), SECRET_COLLECTION_DEFAULT, account.constData(), secret, cancellable,
            nullptr, "account", account.constData(), nullptr);
        secret_value_unref(secret);
    });
}

QCoro::Task<std::optional<QString>> LibsecretStore::read(const QString &account)
{
    auto promise = std::make_shared<QPromise<std::optional<QString>>>();
    promise->start();
    const QFuture<std::optional<QString>> answer = promise->future();
    m_worker->enqueue([promise, account = account.toUtf8()](GCancellable *cancellable) {
        std::optional<QString> secret;
        SecretValue *value =
            secret_password_lookup_binary_sync(schema(), cancellable, nullptr, "account", account.constData(), nullptr);
        if (value) {
            gsize length = 0;
            const char *bytes = secret_value_get(value, &length);
            const auto view = QByteArrayView(bytes, qsizetype(length));
            if (view.isValidUtf8()) {
                secret = QString::fromUtf8(view);
            }
            secret_value_unref(value);
        }
        promise->addResult(secret);
        promise->finish();
    });
    co_return co_await answer;
}

void LibsecretStore::remove(const QString &account)
{
    m_worker->enqueue([account = account.toUtf8()](GCancellable *cancellable) {
        secret_password_clear_sync(schema(), cancellable, nullptr, "account", account.constData(), nullptr);
    });
}

} // namespace quillmere
