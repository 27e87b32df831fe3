#include "workspace/settings/SettingsViewModel.h"

#include "app/theme/Theme.h"
#include "platform/Text.h"

#include <QPointer>
#include <QTextBoundaryFinder>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

constexpr int shownCharacters = 4; // of a token, at each end
constexpr int bullets = 8;         // whatever the token's length

QString firstCharacters(const QString &text, int count)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    while (count > 0 && finder.toNextBoundary() >= 0) {
        --count;
    }
    return count > 0 ? text : text.left(finder.position());
}

QString lastCharacters(const QString &text, int count)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    finder.toEnd();
    while (count > 0 && finder.toPreviousBoundary() >= 0) {
        --count;
    }
    return count > 0 ? text : text.mid(finder.position());
}

const char *nameOf(SettingsVocabulary::SettingsSection section)
{
    switch (section) {
    case SettingsVocabulary::SettingsSection::Account:
        return QT_TRANSLATE_NOOP("quillmere::SettingsViewModel", "Account");
    case SettingsVocabulary::SettingsSection::Subscription:
        return QT_TRANSLATE_NOOP("quillmere::SettingsViewModel", "Subscription");
    case SettingsVocabulary::SettingsSection::Preferences:
        return QT_TRANSLATE_NOOP("quillmere::SettingsViewModel", "Preferences");
    case SettingsVocabulary::SettingsSection::About:
        return QT_TRANSLATE_NOOP("quillmere::SettingsViewModel", "About");
    }
    Q_UNREACHABLE();
}

} // namespace

QString SettingsVocabulary::rawValue(SettingsSection section)
{
    return QString::fromLatin1(nameOf(section));
}

QString SettingsVocabulary::icon(SettingsSection section)
{
    switch (section) {
    case SettingsSection::Account:
        return u"person.circle"_s;
    case SettingsSection::Subscription:
        return u"creditcard"_s;
    case SettingsSection::Preferences:
        return u"gearshape"_s;
    case SettingsSection::About:
        return u"info.circle"_s;
    }
    Q_UNREACHABLE();
}

SettingsViewModel::SettingsViewModel(QObject *parent) : Observable(parent), m_maskedToken(masked({}))
{
}

QString SettingsViewModel::sectionTitle(SettingsSection section)
{
    return tr(nameOf(section));
}

QString SettingsViewModel::sectionIcon(SettingsSection section)
{
    return SettingsVocabulary::icon(section);
}

QString SettingsViewModel::userName() const
{
    return m_user && m_user->name ? *m_user->name : tr("User");
}

QString SettingsViewModel::userEmail() const
{
    return m_user ? m_user->email : QString();
}

QString SettingsViewModel::userInitial() const
{
    return m_user ? firstCharacters(m_user->name.value_or(m_user->email), 1).toUpper() : QString();
}

QString SettingsViewModel::masked(const std::optional<QString> &token)
{
    if (!token || text::characterCount(*token) <= 2 * shownCharacters) {
        return tr("Not authenticated");
    }
    return firstCharacters(*token, shownCharacters) + QString(bullets, u'\u2022')
        + lastCharacters(*token, shownCharacters);
}

QString SettingsViewModel::planBadge() const
{
    return m_subscription ? m_subscription->plan.toUpper() : tr("FREE");
}

QColor SettingsViewModel::planColor() const
{
    const QString plan = m_subscription ? m_subscription->plan : QString();
    if (plan == u"enterprise"_s) {
        return Theme::purple();
    }
    if (plan == u"pro"_s) {
        return Theme::accent();
    }
    return Theme::textSecondary();
}

QStringList SettingsViewModel::features() const
{
    if (m_subscription) {
        return m_subscription->features;
    }
    return {tr("Local fine-tuning"), tr("3 models max"), tr("Community support")};
}

int SettingsViewModel::modelLimit() const
{
    const QString plan = m_subscription ? m_subscription->plan : QString();
    if (plan == u"enterprise"_s) {
        return 100;
    }
    return plan == u"pro"_s ? 20 : 3;
}

void SettingsViewModel::setUser(std::optional<UserProfile> user)
{
    publish(m_user, std::move(user), u"user"_s, &SettingsViewModel::userChanged);
}

void SettingsViewModel::setSubscription(std::optional<SubscriptionInfo> subscription)
{
    publish(m_subscription, std::move(subscription), u"subscription"_s, &SettingsViewModel::subscriptionChanged);
}

void SettingsViewModel::setIsLoading(bool isLoading)
{
    publish(m_isLoading, isLoading, u"isLoading"_s, &SettingsViewModel::isLoadingChanged);
}

void SettingsViewModel::loadUserData()
{
    setIsLoading(true);
    if (authManager.currentUser()) {
        setUser(authManager.currentUser());
    }
    if (authManager.isAuthenticated()) {
        fetchUser();
    }
}

QCoro::Task<> SettingsViewModel::fetchUser()
{
    const QPointer<SettingsViewModel> self(this);
    const auto user = co_await authManager.fetchCurrentUser(u"Failed to fetch fresh user data: "_s);
    if (!self) {
        co_return;
    }
    if (user) {
        self->setUser(*user);
    }
    self->setIsLoading(false);
}

void SettingsViewModel::updateMaskedToken()
{
    readToken();
}

QCoro::Task<> SettingsViewModel::readToken()
{
    const QPointer<SettingsViewModel> self(this);
    const auto token = co_await authManager.keychain.read(authManager.tokenKey);
    if (!self) {
        co_return;
    }
    const QString next = masked(token);
    if (next != self->m_maskedToken) {
        self->m_maskedToken = next;
        emit self->maskedTokenChanged();
    }
}

void SettingsViewModel::logout()
{
    authManager.logout();
}

} // namespace quillmere
