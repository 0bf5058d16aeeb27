#pragma once

#include "convert/Calculation.h"
#include "convert/PositionConverter.h"

/// How positions of a frame are called and written.
ResultForm PositionForm(Frame frame, int angleDecimals, int distanceDecimals);

/// The calculation of `convert`: the position in another frame.
class Conversion : public Calculation {
public:
    /// `system` must outlive the object.
    Conversion(const OpenedSystem& system, const ConversionRequest& request, int angleDecimals, int distanceDecimals);

    const ResultForm& Results() const override { return m_form; }
    bool NeedsTime() const override { return m_positions.NeedsTime(); }
    const char* Calculate(const LineValues& in, LineResults& out, std::string& detail) const override;

private:
    PositionConverter m_positions;
    ResultForm m_form;
};
