#include "coordsys/ZorGeoUnit.h"

ZorGeoUnit::ZorGeoUnit() = default;
ZorGeoUnit::ZorGeoUnit(const ZorGeoUnit&) = default;
ZorGeoUnit& ZorGeoUnit::operator=(const ZorGeoUnit&) = default;
ZorGeoUnit::~ZorGeoUnit() = default;

void ZorGeoUnit::Set(const CString& unitName, const CString& recordText, short formatNumber)
{
    name = unitName;
    text = recordText;
    const CZorString items(recordText, L',', true, false);
    items.GetItem(0, factor);
    items.GetItem(1, mnemonic);
    format = formatNumber;
}
