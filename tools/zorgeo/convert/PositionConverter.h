#pragma once

#include "SystemOpener.h"
#include "convert/Calculation.h"
#include "convert/Frame.h"

/// What is asked of every position.
struct ConversionRequest {
    Frame from = Frame::sat;
    Frame to = Frame::grid;
    bool checkBack = false; ///< convert back and compare
    /// Else the height only serves the datum transformation, and no geoid height is asked for.
    bool heightIsResult = true;
};

/// Converts single positions between two frames of an opened system and refuses, with the reason,
/// what would come out wrong without a word. Const throughout, so that several threads may use
/// one object.
class PositionConverter {
public:
    /// `system` must outlive the object.
    PositionConverter(const OpenedSystem& system, const ConversionRequest& request);

    /// Converts `in` to `out`. Without `hasHeight` the third coordinate is neither read nor
    /// written and the two-dimensional operations are used. `time` in milliseconds since 1970.
    /// Null when it went well, else the reason; `detail`, put behind the reason, is written on
    /// failure alone.
    const char* Convert(const Position& in, bool hasHeight, double time, Position& out, std::string& detail) const;

    /// Whether the result depends on the time: the road leads through a datum transformation
    /// with rates.
    bool NeedsTime() const { return m_needsTime; }

private:
    bool FromCartesian(const Position& in, Frame frame, Position& out) const;
    bool ToCartesian(const Position& in, Frame frame, Position& out) const;
    bool Run(const Position& in, Frame from, Frame to, bool hasHeight, double time, Position& out) const;
    bool Core(const Position& in, Frame from, Frame to, bool hasHeight, double time, Position& out) const;
    bool GeoidAnswers(const Position& in, const Position& out, double time, std::string& message) const;
    bool PostModelAnswers(const Position& in, const Position& out, double time) const;
    double MissOfReturn(const Position& in, const Position& out, bool hasHeight, double time) const;
    Position WayBackFlat(const Position& in, const Position& out, double time) const;

    const ZorGeoCoordSysBase& m_coordSys;
    const GeoidModel* m_postModel;
    ConversionRequest m_request;
    Frame m_from; // the frames without their cartesian ends
    Frame m_to;
    bool m_hasGeoid;
    bool m_needsTime;
    bool m_oneEllipsoid;
    double m_metresPerUnit = 1.0;
};

/// Whether a system's datum transformation moves with time: a method of 14 parameters, a
/// reference epoch, and a rate that is not 0.
bool DatumMoves(ZorGeoCoordSysBase& coordSys);
