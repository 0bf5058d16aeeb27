#include "ModuleLoader.h"

#include <filesystem>
#include <vector>

#include <fmt/format.h>

#include "ToolError.h"
#include "platform/Platform.h"

namespace {

std::vector<std::filesystem::path> Candidates(const std::string& file)
{
    if (!file.empty()) {
        return {std::filesystem::absolute(host::PathOf(file))};
    }
    const auto program = host::ExecutableDirectory();
    return {program / ZORGEO_MODULE_NAME, program / ZORGEO_INSTALLED_LIBDIR / ZORGEO_MODULE_NAME,
            program / "../lib" / ZORGEO_MODULE_NAME, std::filesystem::path(ZORGEO_BUILT_MODULE)};
}

void* Load(const std::string& file)
{
    std::string tried;
    for (const auto& candidate : Candidates(file)) {
        std::string reason = "no such file";
        std::error_code ignored;
        if (std::filesystem::exists(candidate, ignored)) {
            if (void* const library = host::OpenLibrary(candidate, reason); library != nullptr) {
                return library;
            }
        }
        tried += fmt::format("\n  {}: {}", host::Utf8Of(candidate.lexically_normal()), reason);
    }
    throw ToolError(ExitStatus::unusable,
                    "the coordinate system module cannot be loaded; name it with --module. Tried:" + tried);
}

} // namespace

ModuleLoader::ModuleLoader(const std::string& file)
{
    void* const library = Load(file);
    const auto registerAll = reinterpret_cast<Entry>(host::FindSymbol(library, "RegisterCoordSys"));
    m_unregister = reinterpret_cast<Entry>(host::FindSymbol(library, "UnRegisterCoordSys"));
    if (registerAll == nullptr || m_unregister == nullptr) {
        throw ToolError(ExitStatus::unusable,
                        "the file given as module has no RegisterCoordSys; is it libzorcoordsys?");
    }
    registerAll();
}

ModuleLoader::~ModuleLoader()
{
    m_unregister();
}
