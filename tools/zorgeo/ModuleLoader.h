#pragma once

#include <string>

/// Holds the coordinate system module: loads it, registers its creators, and takes them out
/// again at the end. The library stays loaded, since objects of its classes may still be alive.
class ModuleLoader {
public:
    /// Loads `file`, or, when it is empty, the first that exists of: next to the program, the
    /// installed library directory, ../lib, the build tree. Throws ToolError (3) naming what was
    /// tried when none can be loaded.
    explicit ModuleLoader(const std::string& file);
    ~ModuleLoader();
    ModuleLoader(const ModuleLoader&) = delete;
    ModuleLoader& operator=(const ModuleLoader&) = delete;

private:
    using Entry = void (*)();
    Entry m_unregister = nullptr;
};
