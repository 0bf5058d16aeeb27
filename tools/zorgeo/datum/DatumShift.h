#pragma once

#include <mutex>

#include "convert/Calculation.h"
#include "datum/DatumRecord.h"

/// What is asked of every position.
struct ShiftRequest {
    bool inverse = false;   ///< from the target ellipsoid to the source
    bool cartesian = false; ///< positions are X Y Z of the two ellipsoids, metres
    bool checkBack = false; ///< transform back and compare
};

/// The calculation of `datum apply`: the position on the other ellipsoid.
class DatumShift : public Calculation {
public:
    /// `desk` must outlive the object.
    DatumShift(const DatabaseFiles& files, const DatumDesk& desk, const NamedDatum& datum, const ShiftRequest& request,
               ResultForm form);

    const ResultForm& Results() const override { return m_form; }
    bool NeedsTime() const override { return m_record.moves; }
    const char* Calculate(const LineValues& in, LineResults& out, std::string& detail) const override;

private:
    bool Transform(const Position& in, bool inverse, double time, Position& out) const;
    double MissOfReturn(const Position& start, const Position& end, double time) const;

    const DatumDesk& m_desk;
    CString m_name;
    DatumRecord m_record;
    CartesianForm m_from; // of the ellipsoid that the positions come from
    CartesianForm m_to;
    ShiftRequest m_request;
    ResultForm m_form;
    mutable std::mutex m_guard;
};
