#include "base/geo/CZorUnitCnv.h"

#include <cmath>

bool CZorUnitCnv::SetUnit(int category, double factor, double offset, const CString& categoryName,
                          const CString& unitName, const CString& suffix)
{
    if (category < 0 || factor == 0.0 || !std::isfinite(factor) || !std::isfinite(offset)) {
        return false;
    }
    m_units[category] = {factor, offset, categoryName, unitName, suffix};
    return true;
}

double CZorUnitCnv::ConvertUnit(int category, double value) const
{
    const auto unit = m_units.find(category);
    return unit == m_units.end() ? value : value * unit->second.factor + unit->second.offset;
}

CZorUnitCnv& StaticFormats::GetUnitCnv()
{
    static CZorUnitCnv converter;
    return converter;
}
