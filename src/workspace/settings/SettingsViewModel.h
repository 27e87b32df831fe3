#pragma once

#include "identity/AuthManager.h"
#include "platform/Observable.h"
#include "service/QuillmereAPIClient.h"

#include <QCoroTask>

#include <QColor>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace quillmere {

// The vocabulary of SettingsView.
namespace SettingsVocabulary {
Q_NAMESPACE
QML_NAMED_ELEMENT(SettingsVocabulary)

enum class SettingsSection { Account, Subscription, Preferences, About };
Q_ENUM_NS(SettingsSection)

// "Account", "Subscription", "Preferences", "About".
QString rawValue(SettingsSection section);

// The name of the symbol on the section's row.
QString icon(SettingsSection section);

} // namespace SettingsVocabulary

// The account as the settings show it: who is signed in, what is booked, and a masked form of the access token. The record of
// the user is asked for anew at each load; where that fails the last known one stays. The token itself is read from the
// secret store when it is masked, and never becomes a property.
class SettingsViewModel : public quillmere::Observable {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(bool isLoading READ isLoading NOTIFY isLoadingChanged)

    Q_PROPERTY(bool hasUser READ hasUser NOTIFY userChanged)
    Q_PROPERTY(QString userName READ userName NOTIFY userChanged)
    Q_PROPERTY(QString userEmail READ userEmail NOTIFY userChanged)
    Q_PROPERTY(QString userInitial READ userInitial NOTIFY userChanged)
    Q_PROPERTY(QString maskedToken READ maskedToken NOTIFY maskedTokenChanged)

    Q_PROPERTY(QString planBadge READ planBadge NOTIFY subscriptionChanged)
    Q_PROPERTY(QColor planColor READ planColor NOTIFY subscriptionChanged)
    Q_PROPERTY(bool isSubscriptionActive READ isSubscriptionActive NOTIFY subscriptionChanged)
    Q_PROPERTY(QStringList features READ features NOTIFY subscriptionChanged)
    Q_PROPERTY(int modelLimit READ modelLimit NOTIFY subscriptionChanged)

public:
    using SettingsSection = SettingsVocabulary::SettingsSection;

    explicit SettingsViewModel(QObject *parent = nullptr);

    const std::optional<UserProfile> &user() const { return m_user; }
    bool isLoading() const { return m_isLoading; }

    bool hasUser() const { return m_user.has_value(); }
    // "User" where the user has no name.
    QString userName() const;
    QString userEmail() const;
    // What the avatar shows: the first character, in capitals, of the name, or of the address where there is no name.
    QString userInitial() const;

    // Of the token that updateMaskedToken() last found.
    const QString &maskedToken() const { return m_maskedToken; }
    // The first four characters, eight bullets and the last four; of a token of up to eight characters nothing is shown.
    static QString masked(const std::optional<QString> &token);

    const std::optional<SubscriptionInfo> &subscription() const { return m_subscription; }
    // No operation of the service tells a subscription, so the program never calls this; pictures and tests of the plans do.
    void setSubscription(std::optional<SubscriptionInfo> subscription);

    // The plan in capitals.
    QString planBadge() const;
    QColor planColor() const;
    bool isSubscriptionActive() const { return m_subscription && m_subscription->isActive; }
    QStringList features() const;
    // How many models the usage shows as allowed. Nothing holds the user to it.
    int modelLimit() const;

    Q_INVOKABLE static QString sectionTitle(quillmere::SettingsVocabulary::SettingsSection section);
    Q_INVOKABLE static QString sectionIcon(quillmere::SettingsVocabulary::SettingsSection section);

    // Shows what the session knows of the user, then asks the service. Signed out nothing is asked and isLoading stays true,
    // which nobody reads.
    Q_INVOKABLE void loadUserData();
    // Reads the token from the secret store, which may take its time.
    Q_INVOKABLE void updateMaskedToken();
    Q_INVOKABLE void logout();

    QuillmereAPIClient &api = QuillmereAPIClient::shared();
    AuthManager &authManager = AuthManager::shared();

signals:
    void userChanged();
    void subscriptionChanged();
    void isLoadingChanged();
    void maskedTokenChanged();

private:
    QCoro::Task<> fetchUser();
    QCoro::Task<> readToken();

    void setUser(std::optional<UserProfile> user);
    void setIsLoading(bool isLoading);

    std::optional<UserProfile> m_user;
    std::optional<SubscriptionInfo> m_subscription;
    bool m_isLoading = false;
    QString m_maskedToken;
};

} // namespace quillmere
