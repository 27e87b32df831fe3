#pragma once

#include "journeys/JourneyWorld.h"

#include <QObject>

#include <memory>

// A test of journeys, each in a world of its own whose service is asked for nothing that it does not have.
class JourneyTest : public QObject {
    Q_OBJECT

protected:
    // `browser` is a program that takes a URL.
    explicit JourneyTest(const QString &browser = QStringLiteral(BROWSER)) : m_browser(browser) { }

    std::unique_ptr<JourneyWorld> m_world;

protected slots:
    void init();
    void cleanup();

private:
    const QString m_browser;
};
