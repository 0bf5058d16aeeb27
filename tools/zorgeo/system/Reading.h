#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Session.h"
#include "show/SystemParameters.h"
#include "system/JsonNode.h"

/// What the readers of the parts of a new system have in common. A part that is nothing has told
/// its faults, and what depends on it is not looked at.
struct Reading {
    Session& session;
    std::vector<std::string>& remarks;

    /// A name that every part of the program can hold: a fault for an empty one, for blanks at an
    /// end, for control characters, and for one that differs from a known name in capitals alone.
    std::optional<std::string> Name(const JsonNode& node, const CString& prefix) const;
    /// The same for names that are not names of sections.
    static std::optional<std::string> PlainName(const JsonNode& node);
};

struct UnitParameters;

std::optional<UnitParameters> ReadUnit(const Reading& reading, const JsonNode& node);
std::optional<EllipsoidParameters> ReadEllipsoid(const Reading& reading, const JsonNode& node);
/// `local` is the system's ellipsoid, which is the target of its transformation.
std::optional<DatumParameters> ReadDatum(const Reading& reading, const JsonNode& node,
                                         const std::optional<EllipsoidParameters>& local);
std::optional<ProjectionParameters> ReadProjection(const Reading& reading, const JsonNode& node,
                                                   const std::optional<UnitParameters>& unit,
                                                   const std::optional<EllipsoidParameters>& ellipsoid);
GeoidParameters ReadGeoid(const Reading& reading, const JsonNode& node);
PostParameters ReadPost(const Reading& reading, const JsonNode& node);

/// "shift x is 87 there", for messages about a name that is taken.
std::string Differs(const std::string& what, double there);
std::string Differs(const std::string& what, const std::string& there);
/// The fault of a name that is taken by other content.
void TakenFault(const JsonNode& node, const std::string& kind, const std::string& name, const std::string& file,
                const std::vector<std::string>& differences);
