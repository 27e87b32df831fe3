#include "analytics/systemmonitor/SystemPerformanceMonitorState.h"

#include "platform/Environment.h"

using namespace Qt::StringLiterals;

namespace quillmere {

SystemPerformanceMonitorState::SystemPerformanceMonitorState(QObject *parent)
    : Observable(parent), m_random(Environment::current().makeRandomSource())
{
    drawThroughput();
}

void SystemPerformanceMonitorState::setSelectedDevice(int device)
{
    publish(m_selectedDevice, device, u"selectedDevice"_s, &SystemPerformanceMonitorState::selectedDeviceChanged);
    drawThroughput();
}

void SystemPerformanceMonitorState::drawThroughput()
{
    constexpr int last = 20;
    m_throughput = {{0, 0.5}};
    for (int i = 1; i <= last; ++i) {
        m_throughput.append({i / double(last), 0.5 + m_random->uniform(-0.3, 0.3)});
    }
    emit throughputChanged();
}

} // namespace quillmere
