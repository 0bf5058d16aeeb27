#pragma once

#include "authoring/ZorGeoStaticData.h"
#include "frame/ReadItem.h"

/// A key, by its text or by its place in transParamKeys, and the value of the record that stands
/// under it.
template <typename Key, typename Value>
struct FieldRow {
    Key key;
    Value ZorGeoStaticData::*field;
    double missing = 0.0; ///< what a number counts as when the database lacks the key
};

/// The rows of a system and of a datum transformation: one list for the writer and for the
/// comparison, in the order of the writer.
struct ZorGeoStaticData::Fields {
    using Record = ZorGeoStaticData;
    using SystemText = FieldRow<const CString&, CString>;
    using SystemNumber = FieldRow<const CString&, double>;
    using SystemFlag = FieldRow<const CString&, bool>;
    using DatumText = FieldRow<int, CString>;
    using DatumNumber = FieldRow<int, double>;
    using DatumFlag = FieldRow<int, bool>;

    // A system.

    static constexpr SystemText systemNames[] = {{kSystemDatum, &Record::m_dtName},
                                                 {kSystemUnit, &Record::m_unitName},
                                                 {kSystemEllipsoid, &Record::m_elpName},
                                                 {kSystemProjection, &Record::m_prjName}};
    static constexpr SystemFlag postUse = {kPostUse, &Record::m_usePost};
    static constexpr SystemNumber postCorrection[] = {
        {kPostX, &Record::m_postX}, {kPostY, &Record::m_postY}, {kPostZ, &Record::m_postZ}};
    static constexpr SystemText postModel[] = {{kPostFile, &Record::m_postFile}, {kPostModel, &Record::m_postModel}};
    static constexpr SystemFlag horAdjustUse = {kHorAdjustUse, &Record::m_useHorAdjust};
    static constexpr SystemNumber horAdjust[] = {{kHorAdjustOriginX, &Record::m_horOriginX},
                                                 {kHorAdjustOriginY, &Record::m_horOriginY},
                                                 {kHorAdjustRotation, &Record::m_horRotation},
                                                 {kHorAdjustScale, &Record::m_horScale, 1.0}};
    static constexpr SystemFlag vertAdjustUse = {kVertAdjustUse, &Record::m_useVertAdjust};
    static constexpr SystemNumber vertAdjust[] = {{kVertAdjustOriginX, &Record::m_vertOriginX},
                                                  {kVertAdjustOriginY, &Record::m_vertOriginY},
                                                  {kVertAdjustSlopeX, &Record::m_vertSlopeX},
                                                  {kVertAdjustSlopeY, &Record::m_vertSlopeY}};

    // A datum transformation.

    static constexpr DatumText datumEllipsoids[] = {{TransKey::source, &Record::m_srcElpName},
                                                    {TransKey::target, &Record::m_elpName}};
    static constexpr DatumNumber datumParameters[] = {
        {TransKey::shiftX, &Record::m_shiftX}, {TransKey::shiftY, &Record::m_shiftY},
        {TransKey::shiftZ, &Record::m_shiftZ}, {TransKey::rotX, &Record::m_rotX},
        {TransKey::rotY, &Record::m_rotY},     {TransKey::rotZ, &Record::m_rotZ},
        {TransKey::scale, &Record::m_scale}};
    static constexpr DatumNumber datumRates[] = {
        {TransKey::shiftRateX, &Record::m_rateShiftX}, {TransKey::shiftRateY, &Record::m_rateShiftY},
        {TransKey::shiftRateZ, &Record::m_rateShiftZ}, {TransKey::rotRateX, &Record::m_rateRotX},
        {TransKey::rotRateY, &Record::m_rateRotY},     {TransKey::rotRateZ, &Record::m_rateRotZ},
        {TransKey::scaleRate, &Record::m_rateScale},   {TransKey::epoch, &Record::m_datumEpoch}};
    static constexpr DatumFlag fixedHeightUse = {TransKey::fixedHeight, &Record::m_useFixedHeight};
    static constexpr DatumNumber fixedHeight[] = {{TransKey::fixedHeightForward, &Record::m_fixedHeightFwd},
                                                  {TransKey::fixedHeightReverse, &Record::m_fixedHeightRev}};

    // A UTM projection.

    struct UtmText {
        int key; ///< in projectionParamKeys
        CString Record::*field;
    };
    static constexpr UtmText utm[] = {{ProjectionKey::utmZone, &Record::m_utmZone},
                                      {ProjectionKey::hemisphere, &Record::m_utmHemisphere}};

    static const CString& KeyText(const CString& key) { return key; }
    static const CString& KeyText(int key) { return transParamKeys[static_cast<std::size_t>(key)]; }
    static const CString& UtmKeyText(int key) { return projectionParamKeys[static_cast<std::size_t>(key)]; }

    /// Writes what rows name.
    template <typename Key, typename Value>
    static void Write(const Record& record, FileObject& file, const CString& section, const FieldRow<Key, Value>& row)
    {
        file.SetItem(section, KeyText(row.key), record.*row.field, true);
    }
    template <typename Row, std::size_t count>
    static void Write(const Record& record, FileObject& file, const CString& section, const Row (&rows)[count])
    {
        for (const Row& row : rows) {
            Write(record, file, section, row);
        }
    }
};
