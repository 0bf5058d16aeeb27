#include "base/registry/ExecutablePath.h"

#include <atomic>

#include "base/platform/Directories.h"

namespace {

std::atomic<ExecutablePathSource> installedSource{nullptr};

bool PlatformExecutablePath(CString& path)
{
    const CString file = platform::ExecutableFile();
    if (file.IsEmpty()) {
        return false;
    }
    path = file;
    return true;
}

} // namespace

bool ExecutablePath(CString& path)
{
    const ExecutablePathSource source = installedSource.load();
    return source != nullptr ? source(path) : PlatformExecutablePath(path);
}

void SetExecutablePathSource(ExecutablePathSource source)
{
    installedSource.store(source);
}
