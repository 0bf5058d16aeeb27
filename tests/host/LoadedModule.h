#pragma once

#include <stdexcept>
#include <string>

#if defined(_WIN32)
#error "The loader of this platform is not written yet."
#else
#include <dlfcn.h>
#endif

/// The module, loaded as a host loads it, for the lifetime of the object.
class LoadedModule {
public:
    LoadedModule() : m_handle(dlopen(ZORGEO_MODULE, RTLD_NOW | RTLD_LOCAL))
    {
        if (!m_handle) {
            throw std::runtime_error(dlerror());
        }
    }
    ~LoadedModule() { dlclose(m_handle); }
    LoadedModule(const LoadedModule&) = delete;
    LoadedModule& operator=(const LoadedModule&) = delete;

    /// Whether the module's code is in the process, also after the last object of this class.
    static bool IsMapped()
    {
        void* const handle = dlopen(ZORGEO_MODULE, RTLD_NOW | RTLD_NOLOAD);
        if (handle) {
            dlclose(handle);
        }
        return handle != nullptr;
    }

    void RegisterCoordSys() const { Call("RegisterCoordSys"); }
    void UnRegisterCoordSys() const { Call("UnRegisterCoordSys"); }

private:
    void Call(const char* name) const
    {
        void* const symbol = dlsym(m_handle, name);
        if (!symbol) {
            throw std::runtime_error(std::string("not exported: ") + name);
        }
        reinterpret_cast<void (*)()>(symbol)();
    }

    void* m_handle;
};
