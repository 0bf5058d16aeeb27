#pragma once

#include <string>
#include <vector>

#include "Session.h"
#include "SystemOpener.h"
#include "show/ProjPipeline.h"

/// What the module itself writes about an opened system.
class ModuleText {
public:
    ModuleText(Session& session, const OpenedSystem& opened) : m_session(session), m_opened(opened) {}

    /// The description of the system, with its name or without, byte for byte.
    std::string Description(bool named) const;
    /// The five XML fragments in one document.
    SystemExport Xml() const;
    /// The GeoTIFF keys, one to the line: number, name, value.
    std::string GeoKeys() const;
    /// Zone, hemisphere and false northing; throws ToolError (3) for what is no UTM system.
    std::string Utm() const;

private:
    Session& m_session;
    const OpenedSystem& m_opened;
};

/// Text of the module with its line ends, "\r\n" and "\r", as a terminal wants them.
std::string ForTerminal(const std::string& text);
