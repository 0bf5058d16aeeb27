#include "database/ZorGeoDatabase.h"
#include "datum/CDatumTransform.h"

#include <cstddef>
#include <ostream>
#include <string>

#include "datum/DatumMethod.h"
#include "frame/RecordNames.h"
#include "frame/XmlLines.h"

namespace {

constexpr double kSecondsPerDegree = 3600.0;

// The working rotation has the opposite sign of the stored one: the plane rotations are
// clockwise, a position vector rotation is not.
double WorkingDegrees(double storedSeconds)
{
    return -storedSeconds / kSecondsPerDegree;
}

// The three keys of a vector follow each other in transParamKeys.
void ReadVector(const FileObject& file, const CString& section, std::size_t key, double& x, double& y, double& z)
{
    file.GetItem(section, transParamKeys[key], x);
    file.GetItem(section, transParamKeys[key + 1], y);
    file.GetItem(section, transParamKeys[key + 2], z);
}

void WriteVector(FileObject& file, const CString& section, std::size_t key, double x, double y, double z)
{
    file.SetItem(section, transParamKeys[key], x, true);
    file.SetItem(section, transParamKeys[key + 1], y, true);
    file.SetItem(section, transParamKeys[key + 2], z, true);
}

// The ellipsoid of the database, or the one of the record's own two numbers, with which a datum
// survives the loss of its ellipsoid record. False when the numbers are needed and missing.
bool LoadEllipsoid(Ellipsoid& ellipsoid, const CString& ellipsoidName, ZorGeoDatabase& database, const FileObject& file,
                   const CString& section, const CString& axisKey, const CString& eccKey)
{
    if (ellipsoid.LoadFromDatabase(database, kEllipsoidPrefix + ellipsoidName)) {
        return true;
    }
    double a = 0.0;
    double e2 = 0.0;
    if (!file.GetItem(section, axisKey, a) || !file.GetItem(section, eccKey, e2)) {
        return false;
    }
    // Kept: an axis that Set refuses does not fail the load; DoDtf then refuses.
    ellipsoid.Set(a, e2);
    return true;
}

} // namespace

bool CDatumTransform::Load(ZorGeoDatabase& database, const CString& section)
{
    return Load(database, database.GetMainFile(), section) || Load(database, database.GetUserFile(), section);
}

bool CDatumTransform::Load(ZorGeoDatabase& database, FileObject& file, const CString& section)
{
    m_name = section;
    m_dtfOn = false;
    m_init = false;
    m_shiftRateX = 0.0;
    m_shiftRateY = 0.0;
    m_shiftRateZ = 0.0;
    m_scaleRate = 0.0;
    m_t0 = 0.0;
    m_has14Parameters = false;
    if (!file.HasSection(m_name)) {
        CString capitals = section;
        capitals.MakeUpper();
        if (!file.HasSection(capitals)) {
            return false;
        }
        m_name = capitals;
    }
    try {
        file.ThrowExceptions(true);
        return LoadRecord(database, file);
    } catch (const CString&) {
        // Kept: the file stays in the mode that throws. A host that goes on reading it after a broken
        // datum record learns of every further gap; the module's own readings (ReadItem) do not care.
        return false;
    }
}

// The keys of the section m_name, from a file in the mode that throws.
bool CDatumTransform::LoadRecord(ZorGeoDatabase& database, FileObject& file)
{
    if (file.HasKey(m_name, kDatumMethod)) {
        file.GetItem(m_name, kDatumMethod, m_methodName);
        if (m_methodName == kMethodNone) {
            m_init = true;
            file.ThrowExceptions(false);
            return true;
        }
    } else {
        m_methodName = kMethodBursaWolfe7;
    }
    Point rotSec;
    Point rotRateSec;
    ReadVector(file, m_name, TransKey::shiftX, m_shiftX, m_shiftY, m_shiftZ);
    ReadVector(file, m_name, TransKey::rotX, rotSec.x, rotSec.y, rotSec.z);
    file.GetItem(m_name, transParamKeys[TransKey::scale], m_scale);
    if (HasRates(m_methodName)) {
        m_has14Parameters = true;
        ReadVector(file, m_name, TransKey::shiftRateX, m_shiftRateX, m_shiftRateY, m_shiftRateZ);
        ReadVector(file, m_name, TransKey::rotRateX, rotRateSec.x, rotRateSec.y, rotRateSec.z);
        file.GetItem(m_name, transParamKeys[TransKey::scaleRate], m_scaleRate);
        file.GetItem(m_name, transParamKeys[TransKey::epoch], m_t0);
    }
    m_fixedHeight = false;
    file.ThrowExceptions(false);
    // Records of older programs have none of these three.
    file.GetItem(m_name, transParamKeys[TransKey::fixedHeight], m_fixedHeight);
    file.GetItem(m_name, transParamKeys[TransKey::fixedHeightForward], m_fixedHeightForward);
    file.GetItem(m_name, transParamKeys[TransKey::fixedHeightReverse], m_fixedHeightReverse);
    if (!LoadEllipsoids(database, file)) {
        return false;
    }
    SetRotations(rotSec, rotRateSec);
    m_dtfOn = true;
    m_init = true;
    return true;
}

// Rotations and their rates as stored, arc seconds.
void CDatumTransform::SetRotations(const Point& seconds, const Point& secondsPerYear)
{
    m_rotSecX = seconds.x;
    m_rotSecY = seconds.y;
    m_rotSecZ = seconds.z;
    m_rotX = WorkingDegrees(seconds.x);
    m_rotY = WorkingDegrees(seconds.y);
    m_rotZ = WorkingDegrees(seconds.z);
    m_rotRateSecX = secondsPerYear.x;
    m_rotRateSecY = secondsPerYear.y;
    m_rotRateSecZ = secondsPerYear.z;
    m_rotRateX = WorkingDegrees(secondsPerYear.x);
    m_rotRateY = WorkingDegrees(secondsPerYear.y);
    m_rotRateZ = WorkingDegrees(secondsPerYear.z);
    m_rotations = PlaneRotations(RotationAt(0.0));
}

bool CDatumTransform::LoadEllipsoids(ZorGeoDatabase& database, FileObject& file)
{
    CString source;
    CString target;
    if (!file.GetItem(m_name, transParamKeys[TransKey::source], source) ||
        !file.GetItem(m_name, transParamKeys[TransKey::target], target)) {
        return false;
    }
    return LoadEllipsoid(m_srcEllipsoid, source, database, file, m_name, kDatumSourceAxis, kDatumSourceEcc) &&
           LoadEllipsoid(m_dstEllipsoid, target, database, file, m_name, kDatumTargetAxis, kDatumTargetEcc);
}

bool CDatumTransform::Save(const CString& fileName, CString section) const
{
    FileObject file;
    // A file that is not there yet starts empty.
    file.FileOpen(fileName, FileMode::openForReading);
    return Save(file, section) && file.FileSave(fileName, FileMode::saveExclusive);
}

bool CDatumTransform::Save(FileObject& file, CString section) const
{
    if (section.IsEmpty()) {
        section = m_name;
    }
    file.SetItem(section, kDatumMethod, m_methodName, true);
    file.SetItem(section, transParamKeys[TransKey::source], GetDftSourceEllipsName(), true);
    file.SetItem(section, transParamKeys[TransKey::target], GetDftDestEllipsName(), true);
    WriteVector(file, section, TransKey::shiftX, m_shiftX, m_shiftY, m_shiftZ);
    WriteVector(file, section, TransKey::rotX, m_rotSecX, m_rotSecY, m_rotSecZ);
    file.SetItem(section, transParamKeys[TransKey::scale], m_scale, true);
    // The rates are written for every method, zero when it has none.
    WriteVector(file, section, TransKey::shiftRateX, m_shiftRateX, m_shiftRateY, m_shiftRateZ);
    WriteVector(file, section, TransKey::rotRateX, m_rotRateSecX, m_rotRateSecY, m_rotRateSecZ);
    file.SetItem(section, transParamKeys[TransKey::scaleRate], m_scaleRate, true);
    file.SetItem(section, transParamKeys[TransKey::epoch], m_t0, true);
    file.SetItem(section, kDatumSourceAxis, m_srcEllipsoid.semiMajor, true);
    file.SetItem(section, kDatumSourceEcc, m_srcEllipsoid.eccSquared, true);
    file.SetItem(section, kDatumTargetAxis, m_dstEllipsoid.semiMajor, true);
    file.SetItem(section, kDatumTargetEcc, m_dstEllipsoid.eccSquared, true);
    file.SetItem(section, transParamKeys[TransKey::fixedHeight], m_fixedHeight, true);
    file.SetItem(section, transParamKeys[TransKey::fixedHeightForward], m_fixedHeightForward, true);
    file.SetItem(section, transParamKeys[TransKey::fixedHeightReverse], m_fixedHeightReverse, true);
    return true;
}

void CDatumTransform::DumpXml(std::wostream& stream, const wchar_t* indent) const
{
    const XmlLines outer(stream, indent);
    const XmlLines xml = outer.Inner();
    const std::wstring ellipsoidIndent = std::wstring(indent) + L"    ";
    outer.Tag(L"<datumtransform>");
    xml.Element(L"name", m_name);
    xml.Element(L"shiftx", m_shiftX);
    xml.Element(L"shifty", m_shiftY);
    xml.Element(L"shiftz", m_shiftZ);
    // Kept: the working rotations in degrees, of the opposite sign of the stored seconds.
    xml.Element(L"rotx", m_rotX);
    xml.Element(L"roty", m_rotY);
    xml.Element(L"rotz", m_rotZ);
    xml.Element(L"scale", m_scale);
    if (m_has14Parameters) {
        xml.Element(L"shiftx_dt", m_shiftRateX);
        xml.Element(L"shifty_dt", m_shiftRateY);
        xml.Element(L"shiftz_dt", m_shiftRateZ);
        xml.Element(L"rotx_dt", m_rotRateX);
        xml.Element(L"roty_dt", m_rotRateY);
        xml.Element(L"rotz_dt", m_rotRateZ);
        xml.Element(L"scale_dt", m_scaleRate);
        xml.Element(L"dtf_t0", m_t0);
    }
    xml.Tag(L"<source_ellipsoid>");
    m_srcEllipsoid.DumpXml(stream, ellipsoidIndent);
    xml.Tag(L"</source_ellipsoid>");
    xml.Tag(L"<target_ellipsoid>");
    m_dstEllipsoid.DumpXml(stream, ellipsoidIndent);
    xml.Tag(L"</target_ellipsoid>");
    if (m_fixedHeight) {
        xml.Tag(L"<fixedHeightTransformation>");
        xml.Element(L"fixedHeightForward", m_fixedHeightForward);
        xml.Element(L"fixedHeightReverse", m_fixedHeightReverse);
        xml.Tag(L"</fixedHeightTransformation>");
    }
    outer.Tag(L"</datumtransform>");
}
