#include "projections/ProjectionType.h"

#include <array>
#include <cstddef>

namespace {

struct TypeRow {
    const wchar_t* text;
    short geoTiffCode;
};

// By type number. The texts are part of the format, "Transfer" included.
// Kept: the code of Polar Stereographic is that of Cassini; files that are out there bear it.
constexpr std::array<TypeRow, 16> kTypes = {{
    {L"Transfer Mercator", 1},
    {L"Universal Transfer Mercator", 1},
    {L"RD", 0},
    {L"Lambert2P", 8},
    {L"Mercator", 7},
    {L"Azimuthal", 0},
    {L"Gnomonic", 0},
    {L"Stereographic", 14},
    {L"Cassini", 18},
    {L"Hotine Oblique Mercator(A)", 3},
    {L"Laborde", 0},
    {L"Nzmg", 0},
    {L"Lambert1P", 9},
    {L"Hotine Oblique Mercator(B)", 3},
    {L"Polyconic", 22},
    {L"Universal Polar Stereographic", 18},
}};

// The spelling is part of the format.
constexpr TypeRow kUnknown = {L"Unknow type", 0};

const TypeRow& Row(int type)
{
    const bool known = type >= 0 && static_cast<std::size_t>(type) < kTypes.size();
    return known ? kTypes[static_cast<std::size_t>(type)] : kUnknown;
}

} // namespace

const wchar_t* ProjectionType::Text(int type)
{
    return Row(type).text;
}

short ProjectionType::GeoTiffCode(int type)
{
    return Row(type).geoTiffCode;
}
