#pragma once

#include <string>

/// String resources inside a loaded module, for platforms that have them (Windows). Elsewhere
/// both answer false.
namespace platform {

/// Whether `handle` is a loaded module, whose resources ReadStringResource can read.
bool IsResourceModule(const void* handle) noexcept;

/// Text number `id` of the module's string resources. False, `text` untouched, when it has none.
bool ReadStringResource(const void* module, unsigned id, std::wstring& text);

} // namespace platform
