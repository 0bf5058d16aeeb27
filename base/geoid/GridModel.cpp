#include "base/geoid/GridModel.h"

#include <cmath>
#include <ostream>

#include "base/files/CFile.h"
#include "base/files/SplitPath.h"
#include "base/geoid/GridFile.h"
#include "base/keys/KeyTables.h"
#include "base/registry/DataSearch.h"
#include "base/registry/ZorGeoCoordSysBase.h"
#include "base/text/Xml.h"

namespace {

/// Databases name national grids by their file name alone.
CString FindFile(const CString& name)
{
    CString directory;
    CString title;
    CString extension;
    SplitPath(name, directory, title, extension);
    if (name.IsEmpty() || !directory.IsEmpty() || CFile::Exists(name)) {
        return name;
    }
    for (const unsigned number : {DataSearch::userDatabase, DataSearch::deliveredDatabase}) {
        CString path;
        if (DataSearch::GetDataSearch().GetDataPathInfo(number, path) && CFile::Exists(path + name)) {
            return path + name;
        }
    }
    return name;
}

void WriteElement(std::wostream& stream, const std::wstring& indent, const wchar_t* element, CString text)
{
    MakeXmlCompatible(text);
    stream << indent << L"  <" << element << L">" << text.GetString() << L"</" << element << L">" << std::endl;
}

/// The factor of a system's linear unit; 1 for a factor that is none.
double MetresPerUnit(ZorGeoCoordSysBase* coordSys)
{
    double factor = 1.0;
    const bool known = coordSys != nullptr && coordSys->GetLinearUnitCnv(factor);
    return known && factor > 0.0 && std::isfinite(factor) ? factor : 1.0;
}

} // namespace

GridModel::GridModel(unsigned short type) : m_type(type) {}

std::shared_ptr<GeoidModel> GridModel::InUnitOf(ZorGeoCoordSysBase* coordSys, std::shared_ptr<GeoidModel> model)
{
    const auto* const told = dynamic_cast<const GridModel*>(model.get());
    if (told == nullptr || told->m_metresPerUnit == MetresPerUnit(coordSys)) {
        return model;
    }
    const auto changed = std::make_shared<GridModel>(*told);
    changed->InitModel(coordSys);
    return changed;
}

bool GridModel::InitModel(ZorGeoCoordSysBase* coordSys)
{
    m_metresPerUnit = MetresPerUnit(coordSys);
    return true;
}

bool GridModel::CalGridShift(double x, double y, double& dx, double& dy, bool inverse) const
{
    const auto shift = m_grid ? m_grid->GridShiftAt(x * m_metresPerUnit, y * m_metresPerUnit, inverse) : std::nullopt;
    if (shift) {
        dx = shift->first / m_metresPerUnit;
        dy = shift->second / m_metresPerUnit;
    }
    return shift.has_value();
}

bool GridModel::CalGeoidHeight(double latitude, double longitude, double easting, double northing, double& height,
                               CString&) const
{
    const auto metres =
        m_grid ? m_grid->HeightAt({latitude, longitude, easting * m_metresPerUnit, northing * m_metresPerUnit})
               : std::nullopt;
    if (metres) {
        height = *metres / m_metresPerUnit;
    }
    return metres.has_value();
}

bool GridModel::CalGeoShift(double latitude, double longitude, double& dlat, double& dlon, bool inverse) const
{
    const auto shift = m_grid ? m_grid->GeoShiftAt(latitude, longitude, inverse) : std::nullopt;
    if (shift) {
        dlat = shift->first;
        dlon = shift->second;
    }
    return shift.has_value();
}

bool GridModel::SetModelFile(const CString& file)
{
    m_grid.reset();
    m_file.Empty();
    m_reason.Empty();
    if (file.IsEmpty()) {
        m_reason = L"no file is named";
        return false;
    }
    const CString found = FindFile(file);
    m_grid = OpenGrid(found, m_reason);
    if (!m_grid) {
        return false;
    }
    m_file = found;
    return true;
}

void GridModel::SetChartDatum(const CString& chartDatum)
{
    m_chartDatum = chartDatum;
}

CString GridModel::GetModelFile() const
{
    return m_file;
}

void GridModel::DumpXml(std::wostream& stream, const std::wstring indent) const
{
    stream << indent << L"<geoidmodel>" << std::endl;
    WriteElement(stream, indent, L"name", GeoidmodelTypeKeys.at(m_type));
    if (m_grid) {
        WriteElement(stream, indent, L"filename", m_file);
        WriteElement(stream, indent, L"format", m_grid->Describe().format);
    }
    if (!m_chartDatum.IsEmpty()) {
        WriteElement(stream, indent, L"chartdatum", m_chartDatum);
    }
    stream << indent << L"</geoidmodel>" << std::endl;
}
