#include "resources/StringTable.h"

namespace {

// 15351 has no text on purpose: the title of an ellipsoid is empty. 15353, 15354, 15356 and 15376
// are reserved and nothing shows them. 15393 is also the format by which a zone is scanned.
constexpr StringTableEntry kTexts[] = {
    {15352, L"Semi-Major Axis"},
    {15355, L"Inv. Flattening"},
    {15357, L"SYSTEM: "},
    {15358, L"UNIT:  "},
    {15359, L"Metric Conversion Factor:"},
    {15360, L"Suffix: "},
    {15361, L"PROJECTION: "},
    {15362, L"Method:  "},
    {15363, L"Squared eccentricity"},
    {15364, L"Cassini projection scale factor value is smaller than 0.8. The coordinate system operation is failed."},
    {15365, L"Could not open geoid model file:\n\n%s\n\nCheck the coordinate system in the project configuration."},
    {15366, L"Description: "},
    {15367, L"DATUMTRANSFORMATION : "},
    {15368, L"Datum Transformation from "},
    {15369, L"Shift X(m):   "},
    {15370, L"Shift Y(m):   "},
    {15371, L"Shift Z(m):   "},
    {15372, L"Rotation X(sec):   "},
    {15373, L"Rotation Y(sec):   "},
    {15374, L"Rotation Z(sec):   "},
    {15375, L"Scale factor[ppm]:   "},
    {15377, L"Satellite ellipsoid:   "},
    {15378, L"Local ellipsoid:   "},
    {15379, L"Unit: "},
    {15380, L"PROJECTION: "},
    {15381, L"GEOID MODEL: "},
    {15382, L"Geoid Model Method: "},
    {15383, L"Geo Grid: "},
    {15384, L"POST CORRECTIONS: "},
    {15385, L"X Correction: "},
    {15386, L"Y Correction: "},
    {15387, L"Z Correction: "},
    {15388, L"Correction model: "},
    {15389, L"Correction file: "},
    {15390, L"UTM Zone: "},
    {15391, L"Hemisphere: "},
    {15392, L"Bursa/Wolfe(7 Parameters) - Position vector rotation"},
    {15393, L"Zone %2d     (%3d %c)"},
    {15394, L"Invalid Hotine Oblique Mercator projection parameters: initial azimuth or grid skew angle."},
    {15395, L"Error: The defined ellipsoid semi-major axis value is less than 6000000."},
    {15396, L"Cannot open coordinate system database!"},
    {15397, L"Cannot open the project!"},
    {15398,
     L"Error in geoid model settings - check coordinate system geoid model setting and select proper geoid model"},
    {15399, L"Chart Datum: "},
    {15400, L"Bursa/Wolfe(14 Parameters) - Position vector rotation"},
    {15401, L"Datum Epoch: "},
    {15402, L"Rate of change per Year"},
    {15403, L"Hor. adjust origin easting: "},
    {15404, L"Hor. adjust origin northing: "},
    {15405, L"Hor. adjust rotation(sec): "},
    {15406, L"Hor. adjust scale: "},
    {15407, L"Vert. adjust origin easting: "},
    {15408, L"Vert. adjust origin northing: "},
    {15409, L"Vert. adjust slope easting(ppm): "},
    {15410, L"Vert. adjust slope northing(ppm): "},
    {15411, L"No Transformation"},
    {15412, L"Helmert(7 Parameters) - Coordinate frame rotation"},
    {15413, L"Helmert(14 Parameters) - Coordinate frame rotation"},
    {0, nullptr},
};

} // namespace

const StringTableEntry* ModuleStringTable()
{
    return kTexts;
}
