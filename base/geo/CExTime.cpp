#include "base/geo/CExTime.h"

#include <atomic>
#include <chrono>

namespace {

std::atomic<CExTime::Source> installedSource{nullptr};

double SystemTime()
{
    // The epoch of this clock is 1970 January 1, 0 h UTC.
    const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(sinceEpoch).count();
}

} // namespace

double CExTime::GetCurTime()
{
    const Source source = installedSource.load();
    return source != nullptr ? source() : SystemTime();
}

void CExTime::SetSource(Source source)
{
    installedSource.store(source);
}
