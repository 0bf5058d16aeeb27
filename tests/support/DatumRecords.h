#pragma once

#include <gtest/gtest.h>

#include "database/ZorGeoDatabase.h"
#include "datum/CDatumTransform.h"
#include "frame/RecordNames.h"
#include "tests/support/PlainDatum.h"

// Datum records for tests: the parameters of a plain::Datum as a record of a file, and the object
// that loads it. The ellipsoids stand in the record's own numbers, so that no ellipsoid record is
// needed.

inline void WriteVectorTo(FileObject& file, const CString& section, std::size_t key, const plain::Cartesian& v)
{
    file.SetItem(section, transParamKeys[key], v.x, true);
    file.SetItem(section, transParamKeys[key + 1], v.y, true);
    file.SetItem(section, transParamKeys[key + 2], v.z, true);
}

inline void WriteDatumTo(FileObject& file, const CString& section, const plain::Datum& datum, const CString& method)
{
    file.SetItem(section, kDatumMethod, method, true);
    file.SetItem(section, transParamKeys[TransKey::source], L"Source", true);
    file.SetItem(section, transParamKeys[TransKey::target], L"Target", true);
    WriteVectorTo(file, section, TransKey::shiftX, datum.shift);
    WriteVectorTo(file, section, TransKey::rotX, datum.rotation);
    file.SetItem(section, transParamKeys[TransKey::scale], datum.scale, true);
    if (datum.has14) {
        WriteVectorTo(file, section, TransKey::shiftRateX, datum.shiftRate);
        WriteVectorTo(file, section, TransKey::rotRateX, datum.rotationRate);
        file.SetItem(section, transParamKeys[TransKey::scaleRate], datum.scaleRate, true);
        file.SetItem(section, transParamKeys[TransKey::epoch], datum.epoch, true);
    }
    file.SetItem(section, kDatumSourceAxis, datum.srcAxis, true);
    file.SetItem(section, kDatumSourceEcc, datum.srcEcc, true);
    file.SetItem(section, kDatumTargetAxis, datum.dstAxis, true);
    file.SetItem(section, kDatumTargetEcc, datum.dstEcc, true);
}

/// Fixed heights of a record, system units.
struct FixedHeights {
    double forward = 0.0;
    double reverse = 0.0;
};

inline CDatumTransform LoadedDatum(const plain::Datum& datum, const FixedHeights* fixedHeights = nullptr)
{
    const CString section = kDatumPrefix + L"Test";
    FileObject file;
    WriteDatumTo(file, section, datum, datum.has14 ? kMethodBursaWolfe14 : kMethodBursaWolfe7);
    if (fixedHeights) {
        file.SetItem(section, transParamKeys[TransKey::fixedHeight], true, true);
        file.SetItem(section, transParamKeys[TransKey::fixedHeightForward], fixedHeights->forward, true);
        file.SetItem(section, transParamKeys[TransKey::fixedHeightReverse], fixedHeights->reverse, true);
    }
    ZorGeoDatabase database;
    CDatumTransform loaded;
    EXPECT_TRUE(loaded.Load(database, file, section));
    return loaded;
}

/// Brings both process-wide unit factors back to the metre at the end of a test.
struct MetresAgain {
    MetresAgain() = default;
    ~MetresAgain()
    {
        Ellipsoid::SetUnitFactor(1.0);
        CDatumTransform::SetUnitCnv(1.0);
    }
    MetresAgain(const MetresAgain&) = delete;
    MetresAgain& operator=(const MetresAgain&) = delete;
};
