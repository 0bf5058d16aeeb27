#pragma once

#include <array>
#include <optional>
#include <string>

#include "Session.h"
#include "show/SystemParameters.h"

// Records of the database by name, with the digits of the files.

/// The catalogue's kinds of a parameter that need a treatment of their own.
constexpr unsigned kLongitudeParameter = 1;
constexpr unsigned kLatitudeParameter = 2;
constexpr unsigned kTextParameter = 6;

/// The methods of datum transformations, as records name them.
inline constexpr std::array kDatumMethods = {"No Transformation", "Bursa/Wolfe(7 Parameters)", "Helmert(7 Parameters)",
                                             "Bursa/Wolfe(14 Parameters)", "Helmert(14 Parameters)"};

struct UnitParameters {
    std::string name;
    std::string suffix;
    double metres = 0.0;
};

struct KnownProjection {
    ProjectionParameters parameters;
    std::string unit;
};

/// Each is nothing when neither file has the record, or, where that is needed, no usable one.
std::optional<UnitParameters> UnitInDatabase(Session& session, const std::string& name);
std::optional<EllipsoidParameters> EllipsoidInDatabase(Session& session, const std::string& name);
std::optional<DatumParameters> DatumInDatabase(Session& session, const std::string& name);
std::optional<KnownProjection> ProjectionInDatabase(Session& session, const std::string& name);

/// The parameters of a projection type in the order of the catalogue, values 0.
ProjectionParameters ParametersOfType(Session& session, int type);

/// Whether either file has the section `prefix` + `name`, and which does: "the user database".
bool HasRecord(const DatabaseFiles& files, const CString& prefix, const std::string& name);
std::string FileOfRecord(const DatabaseFiles& files, const CString& prefix, const std::string& name);

/// The name of another record of this kind that differs from `name` in the case of letters alone;
/// nothing when there is none. Some look-ups do not tell the two apart.
std::optional<std::string> NameInOtherCase(const DatabaseFiles& files, const CString& prefix, const std::string& name);
