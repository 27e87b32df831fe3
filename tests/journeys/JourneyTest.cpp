#include "journeys/JourneyTest.h"

#include <QTest>

void JourneyTest::init()
{
    m_world = std::make_unique<JourneyWorld>(m_browser);
    QVERIFY(m_world->stands());
}

void JourneyTest::cleanup()
{
    QCOMPARE(m_world->service.unexpectedRequests(), QStringList());
    m_world.reset();
}
