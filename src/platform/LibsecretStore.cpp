// libsecret comes first: its headers use a name that Qt's keywords take.
#include <libsecret/secret.h>

#include "platform/LibsecretStore.h"

#include <QCoroFuture>

#include <QPromise>
#include <QThread>

#include <condition_variable>
#include <deque>
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

} // namespace

struct LibsecretStore::Worker : public QThread {
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<std::function<void(GCancellable *)>> operations;
    bool ending = false;
    GCancellable *cancellable = g_cancellable_new();

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
            operation(cancellable);
        }
        g_main_context_pop_thread_default(context);
        g_main_context_unref(context);
    }

    void end()
    {
        {
            const std::lock_guard lock(mutex);
            ending = true;
        }
        changed.notify_one();
        // A save or removal that was said just before the end gets its chance; a keyring that does not answer does not.
        if (!wait(QDeadlineTimer(2000))) {
            g_cancellable_cancel(cancellable);
            wait();
        }
    }
};

LibsecretStore::LibsecretStore() : m_worker(std::make_unique<Worker>())
{
}

LibsecretStore::~LibsecretStore()
{
    m_worker->end();
}

void LibsecretStore::save(const QString &value, const QString &account)
{
    m_worker->enqueue([value = value.toUtf8(), account = account.toUtf8()](GCancellable *cancellable) {
        secret_password_clear_sync(schema(), cancellable, nullptr, "account", account.constData(), nullptr);
        secret_password_store_sync(schema(), SECRET_COLLECTION_DEFAULT, account.constData(), value.constData(),
            cancellable, nullptr, "account", account.constData(), nullptr);
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
