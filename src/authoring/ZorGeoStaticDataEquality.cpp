// The record against what the database holds under the same name: what the conversions use.
//
// Of a system the group, the geoid settings, model and file of the post corrections and the
// descriptions do not count; of a projection, what the database has beside the record's parameters.

#include <cmath>

#include "authoring/RecordEquality.h"
#include "authoring/ZorGeoStaticDataFields.h"
#include "database/ZorGeoDatabase.h"

namespace {

/// The user file, else the main file, that has the section; null when neither does.
const FileObject* FileWith(ZorGeoDatabaseBase* database, const CString& section)
{
    auto* const own = dynamic_cast<ZorGeoDatabase*>(database);
    if (!own) {
        return nullptr;
    }
    for (const FileObject* file : {&own->GetUserFile(), &own->GetMainFile()}) {
        if (file->HasSection(section)) {
            return file;
        }
    }
    return nullptr;
}

CString TextOf(const FileObject& file, const CString& section, const CString& key)
{
    return ItemOr(file, section, key, CString());
}

} // namespace

/// One record of the database beside the authoring record.
struct ZorGeoStaticData::Comparison {
    const ZorGeoStaticData& record;
    const FileObject& file;
    const CString& section;

    /// Whether a value is that of the database; NaN never is.
    template <typename Key, typename Value>
    bool Same(const FieldRow<Key, Value>& row) const
    {
        const CString& key = Fields::KeyText(row.key);
        if constexpr (std::is_same_v<Value, CString>) {
            return record.*row.field == TextOf(file, section, key);
        } else {
            return record.*row.field == ItemOr(file, section, key, static_cast<Value>(row.missing));
        }
    }

    template <typename Row, std::size_t count>
    bool Same(const Row (&rows)[count]) const
    {
        for (const Row& row : rows) {
            if (!Same(row)) {
                return false;
            }
        }
        return true;
    }

    /// A flag, and what counts only while it is on.
    template <typename Flag, typename Rows>
    bool SameSwitched(const Flag& flag, const Rows& rows) const
    {
        return Same(flag) && (!(record.*flag.field) || Same(rows));
    }

    bool SamePostCorrection() const
    {
        // Kept: a record whose corrections are off equals a system that has them on; a project that
        // does not use them can live beside it.
        if (!record.m_usePost) {
            return true;
        }
        // Kept: corrections that the database has switched off differ only when none of the three is
        // 0; otherwise their values decide, and zeros beside zeros are the same corrections.
        const bool on = ItemOr(file, section, kPostUse, false);
        const bool allSet = record.m_postX != 0.0 && record.m_postY != 0.0 && record.m_postZ != 0.0;
        return (on || !allSet) && Same(Fields::postCorrection);
    }

    /// v, the record's value, beside d, the database's. The one tolerance of the comparisons: the
    /// writer moves a latitude of 90 degrees off the pole by 1e-10, 11 micrometres on the ground.
    bool SameParameter(const CString& key, double v) const
    {
        const double d = ItemOr(file, section, key, 0.0);
        return !std::isnan(v) && !std::isnan(d) && !(std::abs(v - d) > Epsilon(v * 100.0));
    }
};

int ZorGeoStaticData::CheckSystemIsEqual(ZorGeoDatabaseBase* database)
{
    const CString section = kSystemPrefix + m_sysName;
    const FileObject* const file = FileWith(database, section);
    if (!file) {
        return RecordEquality::noRecord;
    }
    const Comparison with{*this, *file, section};
    const bool equal = with.Same(Fields::systemNames) && with.SamePostCorrection() &&
                       with.SameSwitched(Fields::horAdjustUse, Fields::horAdjust) &&
                       with.SameSwitched(Fields::vertAdjustUse, Fields::vertAdjust);
    return equal ? RecordEquality::equal : RecordEquality::differs;
}

int ZorGeoStaticData::CheckProjectionIsEqual(ZorGeoDatabaseBase* database)
{
    const CString section = kProjectionPrefix + m_prjName;
    const FileObject* const file = FileWith(database, section);
    if (!file) {
        return RecordEquality::noRecord;
    }
    const int type = ItemOr(*file, section, projectionParamKeys[ProjectionKey::type], 0);
    if (static_cast<short>(type) != m_prjType || m_prjMdName != TextOf(*file, section, kProjectionMethod) ||
        m_unitName != TextOf(*file, section, kProjectionUnit)) {
        return RecordEquality::differs;
    }
    // Kept: the record's parameters count, so that what the database has beside them goes
    // unnoticed; a record without any is compared by type, method and unit.
    const Comparison with{*this, *file, section};
    for (int i = 0; i < m_prjParaValues.GetSize(); ++i) {
        if (!with.SameParameter(m_catalogue.FindParamKey(m_prjParaNames[i]), m_prjParaValues[i])) {
            return RecordEquality::differs;
        }
    }
    if (m_utmStatu) {
        for (const Fields::UtmText& row : Fields::utm) {
            if (this->*row.field != TextOf(*file, section, Fields::UtmKeyText(row.key))) {
                return RecordEquality::differs;
            }
        }
    }
    return RecordEquality::equal;
}

int ZorGeoStaticData::CheckDtfIsEqual(ZorGeoDatabaseBase* database)
{
    const CString section = kDatumPrefix + m_dtName;
    const FileObject* const file = FileWith(database, section);
    if (!file) {
        return RecordEquality::noRecord;
    }
    if (m_dtMdName != TextOf(*file, section, kDatumMethod)) {
        return RecordEquality::differs;
    }
    const Comparison with{*this, *file, section};
    const bool equal =
        SameDatumParameters(*file, section) && with.SameSwitched(Fields::fixedHeightUse, Fields::fixedHeight);
    return equal ? RecordEquality::equal : RecordEquality::differs;
}

bool ZorGeoStaticData::SameDatumParameters(const FileObject& file, const CString& section)
{
    const Comparison with{*this, file, section};
    const CString& descriptionKey = transParamKeys[TransKey::description];
    const auto sameParameters = [&] {
        return with.Same(Fields::datumEllipsoids) && with.Same(Fields::datumParameters);
    };
    switch (GetDtfType(m_dtMdName)) {
    case 1:
    case 2:
        // Kept: a transformation of seven parameters equals only one without a description, and
        // the database's description stays in the record, where an editor shows it. With 14
        // parameters the two descriptions are compared.
        ReadItem(file, section, descriptionKey, m_dtDescp);
        return sameParameters() && m_dtDescp.IsEmpty();
    case 3:
    case 4:
        return sameParameters() && m_dtDescp == TextOf(file, section, descriptionKey) && with.Same(Fields::datumRates);
    default:
        return true;
    }
}
