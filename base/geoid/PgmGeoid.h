#pragma once

#include <array>
#include <memory>
#include <string>

#include "base/geoid/CorrectionGrid.h"
#include "base/geoid/GridBytes.h"

/// Geoid heights of the world as a grey image, 16 bits a pixel: the PGM geoids that GeographicLib
/// publishes (Karney; EGM84, EGM96, EGM2008). The first row lies on the north pole, the first column on
/// longitude 0; height = offset + scale * pixel. Every pixel is data.
///
/// Between the pixels stands, in each cell, a cubic of ten terms fitted by least squares to twelve
/// pixels about it. It gives the pixels themselves only nearly, and cells meet nearly: to a step of a
/// pixel or two. At a pole the height does not depend on the longitude.
class ZORBASE_API PgmGeoid final : public CorrectionGrid {
public:
    /// Null with `reason` told when the bytes are no whole geoid of this kind.
    static std::unique_ptr<PgmGeoid> Load(const GridBytes& contents, CString& reason);

    bool HasHeights() const noexcept override { return true; }
    std::optional<double> HeightAt(const Place& place) const override;
    GridDescription Describe() const override;

private:
    class Loader;

    PgmGeoid() = default;
    double PixelAt(std::int64_t column, std::int64_t row) const;

    GridBytes m_contents;
    std::size_t m_pixels = 0; // place of the first
    std::int64_t m_width = 0;
    std::int64_t m_height = 0;
    double m_offset = 0.0;
    double m_scale = 0.0;
    std::string m_description;
    std::string m_dateTime;
};
