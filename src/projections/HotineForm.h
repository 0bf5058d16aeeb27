#pragma once

#include "projections/ParameterForm.h"

/// What the parameters of the two oblique Mercator classes differ by: where the false origin lies.
struct HotineOrigin {
    int easting, northing; ///< indices in projectionParamKeys
    const wchar_t* eastingElement;
    const wchar_t* northingElement;
    int eastingGeoKey, northingGeoKey;
};

/// The parameters of an oblique Mercator class C, which states C::kOrigin and is the friend of this.
template <class C>
struct HotineForm {
    static const ParameterForm<C>& Get()
    {
        static constexpr LoadedParameter<C> load[] = {
            {ProjectionKey::latOrigin, &C::m_latCentre},     {ProjectionKey::lonOrigin, &C::m_lonCentre},
            {C::kOrigin.easting, &C::m_falseEasting},        {C::kOrigin.northing, &C::m_falseNorthing},
            {ProjectionKey::scaleFactor, &C::m_scaleFactor}, {ProjectionKey::hotineGridSkew, &C::m_gridSkew},
            {ProjectionKey::initialAzimuth, &C::m_azimuth}};
        static constexpr SavedParameter<C> save[] = {
            {ProjectionKey::latOrigin, &C::m_latCentre},     {ProjectionKey::lonOrigin, &C::m_lonCentre},
            {C::kOrigin.easting, &C::m_falseEasting},        {C::kOrigin.northing, &C::m_falseNorthing},
            {ProjectionKey::scaleFactor, &C::m_scaleFactor}, {ProjectionKey::hotineGridSkew, &C::m_gridSkew},
            {ProjectionKey::initialAzimuth, &C::m_azimuth}};
        static constexpr XmlElement<C> xml[] = {{L"latitude_origin", &C::m_latCentre, Shown::latitude},
                                                {L"longitude_origin", &C::m_lonCentre, Shown::longitude},
                                                {C::kOrigin.eastingElement, &C::m_falseEasting, Shown::length3},
                                                {C::kOrigin.northingElement, &C::m_falseNorthing, Shown::length3},
                                                {L"scale_factor", &C::m_scaleFactor, Shown::ratio},
                                                {L"initial_azimuth", &C::m_azimuth, Shown::ratio},
                                                // Kept: the scale factor under the name of the skew; readers of these
                                                // descriptions compare them as text.
                                                {L"grid_skew", &C::m_scaleFactor, Shown::ratio}};
        // Kept: 3094 for the azimuth and again for the skew, where GeoTIFF has 3096 for the skew,
        // and 3088 for the longitude of the centre; readers of these files know them so.
        static constexpr GeoKey<C> geoKeys[] = {{C::kOrigin.eastingGeoKey, &C::m_falseEasting},
                                                {C::kOrigin.northingGeoKey, &C::m_falseNorthing},
                                                {3093, &C::m_scaleFactor},
                                                {3088, &C::m_lonCentre},
                                                {3081, &C::m_latCentre},
                                                {3094, &C::m_azimuth},
                                                {3094, &C::m_gridSkew}};
        static constexpr ParameterForm<C> form = {load, save, xml, geoKeys};
        return form;
    }
};
