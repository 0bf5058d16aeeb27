// The report that a user reads before confirming a new system.

#include "authoring/ZorGeoStaticData.h"
#include "datum/DatumMethod.h"
#include "frame/DescriptionText.h"

namespace {

using R = ZorGeoStaticData;

/// How a number is shown.
enum class Shown {
    general,  ///< up to 14 digits
    squared,  ///< the same of the square
    rotation, ///< the same in the display unit of datum rotations
    fixed     ///< six decimals
};

/// A text or a number of the record, or nothing.
struct ReportValue {
    constexpr ReportValue() = default;
    constexpr ReportValue(CString R::*field) : text(field) {}
    constexpr ReportValue(double R::*field, Shown form) : number(field), shown(form) {}

    CString R::*text = nullptr;
    double R::*number = nullptr;
    Shown shown = Shown::general;
};

/// The label is a number of the string table; its text, blanks at the ends included, stands before
/// the value with nothing between them.
struct ReportLine {
    int indent;
    unsigned label;
    ReportValue value;
    const wchar_t* end = kTextLineEnd;
};

CString NumberText(double number, Shown shown)
{
    CString text;
    switch (shown) {
    case Shown::general:
        text = GeneralText(number);
        break;
    case Shown::squared:
        text = GeneralText(number * number);
        break;
    case Shown::rotation:
        text = GeneralText(StaticFormats::GetUnitCnv().ConvertUnit(CZorUnitCnv::datumRotation, number));
        break;
    case Shown::fixed:
        text.Format(L"%f", number);
        break;
    }
    return text;
}

} // namespace

/// The report: its lines as rows, and its text as it grows.
struct ZorGeoStaticData::Report {
    using enum Shown;

    static constexpr ReportLine head[] = {
        {0, TextId::system, &R::m_sysName, kTextBlockEnd},
        // Kept: the title of the ellipsoid has no text of its own; a host can supply one.
        {0, TextId::ellipsoidTitle, &R::m_elpName},
        {1, TextId::semiMajor, {&R::m_elpSemiMajor, general}},
        {1, TextId::inverseFlattening, {&R::m_elpInvFlat, general}},
        {1, TextId::eccSquared, {&R::m_elpEcc, squared}, kTextBlockEnd},
        {0, TextId::datum, &R::m_dtName},
        {1, TextId::datumFrom, &R::m_srcElpName, L": \r\n"},
    };

    static constexpr ReportLine datumParameters[] = {
        {1, TextId::method, &R::m_dtMdName},
        {1, TextId::shiftX, {&R::m_shiftX, general}},
        {1, TextId::shiftY, {&R::m_shiftY, general}},
        {1, TextId::shiftZ, {&R::m_shiftZ, general}},
        {1, TextId::rotationX, {&R::m_rotX, rotation}},
        {1, TextId::rotationY, {&R::m_rotY, rotation}},
        {1, TextId::rotationZ, {&R::m_rotZ, rotation}},
        {1, TextId::scale, {&R::m_scale, general}},
    };

    // Kept: the rates bear the labels of the parameters, and the epoch that of the scale: only the
    // order of the lines tells them apart.
    static constexpr ReportLine datumRates[] = {
        {1, TextId::shiftX, {&R::m_rateShiftX, general}},   {1, TextId::shiftY, {&R::m_rateShiftY, general}},
        {1, TextId::shiftZ, {&R::m_rateShiftZ, general}},   {1, TextId::rotationX, {&R::m_rateRotX, rotation}},
        {1, TextId::rotationY, {&R::m_rateRotY, rotation}}, {1, TextId::rotationZ, {&R::m_rateRotZ, rotation}},
        {1, TextId::scale, {&R::m_rateScale, general}},     {1, TextId::scale, {&R::m_datumEpoch, general}},
    };

    static constexpr ReportLine body[] = {
        {1, TextId::satelliteEllipsoid, &R::m_srcElpName},
        {1, TextId::localEllipsoid, &R::m_elpName},
        {1, TextId::description, &R::m_dtDescp, kTextBlockEnd},
        {0, TextId::geoidModel, {}},
        {1, TextId::geoidMethod, &R::m_geoidMethod},
        {1, TextId::geoidGrid, &R::m_geoidGrid},
        {1, TextId::chartDatum, &R::m_geoidChartDatum, kTextBlockEnd},
        {0, TextId::unit, &R::m_unitName},
        {1, TextId::unitFactor, {&R::m_unitCnv, fixed}},
        {1, TextId::description, &R::m_unitDescp, kTextBlockEnd},
        {0, TextId::systemProjection, &R::m_prjName},
        {1, TextId::method, &R::m_prjMdName},
    };

    static constexpr ReportLine utm[] = {
        {1, TextId::utmZone, &R::m_utmZone},
        {1, TextId::hemisphere, &R::m_utmHemisphere},
    };

    static constexpr ReportLine post[] = {
        {0, TextId::postCorrections, {}},
    };

    // The tab before the first of them stands in the report whether they follow or not.
    static constexpr ReportLine postCorrection[] = {
        {0, TextId::postX, {&R::m_postX, fixed}},
        {1, TextId::postY, {&R::m_postY, fixed}},
        {1, TextId::postZ, {&R::m_postZ, fixed}, kTextBlockEnd},
    };

    static constexpr ReportLine horAdjust[] = {
        {1, TextId::horOriginX, {&R::m_horOriginX, fixed}},
        {1, TextId::horOriginY, {&R::m_horOriginY, fixed}},
        {1, TextId::horRotation, {&R::m_horRotation, fixed}},
        {1, TextId::horScale, {&R::m_horScale, fixed}, kTextBlockEnd},
    };

    static constexpr ReportLine vertAdjust[] = {
        {1, TextId::vertOriginX, {&R::m_vertOriginX, fixed}},
        {1, TextId::vertOriginY, {&R::m_vertOriginY, fixed}},
        {1, TextId::vertSlopeX, {&R::m_vertSlopeX, fixed}},
        {1, TextId::vertSlopeY, {&R::m_vertSlopeY, fixed}, kTextBlockEnd},
    };

    static constexpr ReportLine correctionModel[] = {
        {1, TextId::correctionModel, &R::m_postModel},
        {1, TextId::correctionFile, &R::m_postFile},
    };

    explicit Report(const ZorGeoStaticData& owner) : record(owner) {}

    template <std::size_t count>
    void Add(const ReportLine (&lines)[count])
    {
        for (const ReportLine& line : lines) {
            text << TextLine(line.indent, line.label, TextOf(line.value), line.end);
        }
    }
    void AddParameters()
    {
        for (int i = 0; i < record.m_prjParaNames.GetSize(); ++i) {
            text << BuildIndentString(1) << record.m_prjParaNames[i] << L":" << record.m_prjParaTexts[i]
                 << kTextLineEnd;
        }
    }
    CString TextOf(const ReportValue& value) const
    {
        if (value.text) {
            return record.*value.text;
        }
        return value.number ? NumberText(record.*value.number, value.shown) : CString();
    }

    const ZorGeoStaticData& record;
    CString text;
};

CString ZorGeoStaticData::DumpSysinfoText()
{
    Report report(*this);
    report.Add(Report::head);
    if (m_dtMdType != 0) {
        report.Add(Report::datumParameters);
    }
    if (m_dtMdType > kLastOfSevenParameters) {
        report.Add(Report::datumRates);
    }
    report.Add(Report::body);
    report.AddParameters();
    if (m_utmStatu) {
        report.Add(Report::utm);
    }
    report.text << kTextLineEnd;
    report.Add(Report::post);
    // Kept: without post corrections this tab indents the next line twice.
    report.text << BuildIndentString(1);
    if (m_usePost) {
        report.Add(Report::postCorrection);
    }
    if (m_useHorAdjust) {
        report.Add(Report::horAdjust);
    }
    if (m_useVertAdjust) {
        report.Add(Report::vertAdjust);
    }
    report.Add(Report::correctionModel);
    return report.text;
}

CString ZorGeoStaticData::BuildIndentString(int count)
{
    return ::BuildIndentString(count);
}
