// Descriptions of single records as text: ellipsoids, units, datum transformations, projections.

#include <array>
#include <span>

#include "database/RecordReaders.h"
#include "database/ZorGeoDatabase.h"
#include "datum/DatumMethod.h"
#include "frame/DescriptionText.h"
#include "frame/RecordNames.h"

namespace {

/// A line of label, colon and value for each value. Empties both arrays.
CString DumpText(CStringArray& labels, CStringArray& values)
{
    CString text;
    for (int i = 0; i < values.GetSize(); ++i) {
        text << BuildIndentString(1) << labels[i] << L":" << values[i] << kTextLineEnd;
    }
    labels.RemoveAll();
    values.RemoveAll();
    return text;
}

// Kept: rotations are stored with the sign of the position vector whatever the method, and shown with
// the sign that its publications have. What is set here stays in the converter that all parts of the
// process share, and a method that is not known leaves there what was shown last.
void SetRotationUnit(const DatumMethod* method)
{
    if (method) {
        StaticFormats::GetUnitCnv().SetUnit(CZorUnitCnv::datumRotation, method->rotationSign, 0.0,
                                            L"Datum Transformation Rotation Units", L"", L"\"");
    }
}

struct DatumLine {
    unsigned label;
    bool rotation;
};

/// In the order of the numbers of DatumRecordView.
constexpr std::array<DatumLine, 7> kDatumLines = {{
    {TextId::shiftX, false},
    {TextId::shiftY, false},
    {TextId::shiftZ, false},
    {TextId::rotationX, true},
    {TextId::rotationY, true},
    {TextId::rotationZ, true},
    {TextId::scale, false},
}};

using DatumNumbers = std::array<double, 15>;
constexpr std::size_t kEpoch = 14;

CString ParameterLines(int levels, std::span<const double, kDatumLines.size()> numbers)
{
    const CZorUnitCnv& units = StaticFormats::GetUnitCnv();
    CString text;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const double shown =
            kDatumLines[i].rotation ? units.ConvertUnit(CZorUnitCnv::datumRotation, numbers[i]) : numbers[i];
        text << TextLine(levels, kDatumLines[i].label, GeneralText(shown));
    }
    return text;
}

/// Parameters, and with a method that has them epoch and rates.
CString DatumNumberLines(const DatumMethod* method, const DatumNumbers& numbers)
{
    const std::span all(numbers);
    CString text = ParameterLines(1, all.first<kDatumLines.size()>());
    if (method && method->hasRates) {
        // Kept: the rates stand under the labels of the parameters, whose units are not per year; the
        // line above them tells.
        text << TextLine(1, TextId::datumEpoch, GeneralText(numbers[kEpoch])) << TextLine(1, TextId::ratesPerYear, L"")
             << ParameterLines(2, all.subspan<kDatumLines.size(), kDatumLines.size()>());
    }
    return text;
}

/// Unit and parameters of a projection; empty when the file lacks the record.
CString ParametersOfProjection(const FileObject& file, const CString& section)
{
    if (!file.HasSection(section)) {
        return {};
    }
    CString unit;
    ReadItem(file, section, kProjectionUnit, unit);
    CArray<double, double> values;
    CStringArray names;
    CStringArray texts;
    CArray<UINT, UINT> kinds;
    ReadProjectionConstants(file, section, values, names, texts, kinds);
    return TextLine(1, TextId::projectionUnit, unit) + DumpText(names, texts);
}

} // namespace

CString ZorGeoDatabase::DumpElpText(CString name)
{
    double a = 0.0;
    double b = 0.0;
    double e = 0.0;
    double spare = 0.0;
    double f = 0.0;
    double invF = 0.0;
    GetElpParamByElpName(name, a, b, e, spare, f, invF);
    double storedAxis = 0.0;
    double eccSquared = 0.0;
    FindElpsoidInFiles(name, storedAxis, eccSquared);

    CStringArray labels;
    CStringArray values;
    for (const unsigned label : {TextId::semiMajor, TextId::inverseFlattening, TextId::eccSquared}) {
        labels.Add(LabelText(label));
    }
    for (const double value : {a, invF, eccSquared}) {
        values.Add(GeneralText(value));
    }
    // Kept: the title has no text in the module's own table; a host can supply one.
    return TextLine(0, TextId::ellipsoidTitle, name) + DumpText(labels, values);
}

CString ZorGeoDatabase::DumpUnitText(CString name)
{
    CString key;
    CString suffix;
    double factor = 0.0;
    short digits = 0;
    GetUnitParametersByName(name, key, suffix, factor, digits);
    return TextLine(0, TextId::unit, name) + TextLine(1, TextId::unitFactor, GeneralText(factor)) +
           TextLine(1, TextId::unitSuffix, suffix);
}

CString ZorGeoDatabase::DumpDatumfText(CString name, bool title)
{
    CString target;
    if (!FindTargetElp(m_mainFile, name, target) && !FindTargetElp(m_userFile, name, target)) {
        return {};
    }
    CString methodName;
    CString source;
    DatumNumbers n{};
    bool fixedHeight = false;
    double forward = 0.0;
    double reverse = 0.0;
    GetDtfParamByName(name, methodName, n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], n[8], n[9], n[10], n[11], n[12],
                      n[13], n[14], source, target, fixedHeight, forward, reverse);
    const DatumMethod* method = FindDatumMethod(methodName);
    SetRotationUnit(method);

    CString text = title ? TextLine(0, TextId::datum, name) : CString();
    text << TextLine(1, TextId::datumFrom, source + L": ") << TextLine(1, TextId::method, methodName);
    if (!(methodName == kMethodNone)) {
        text << DatumNumberLines(method, n);
    }
    return text + TextLine(1, TextId::satelliteEllipsoid, source) + TextLine(1, TextId::localEllipsoid, target) +
           TextLine(1, TextId::description, GetDtfDescription(name));
}

CString ZorGeoDatabase::MethodAndParametersText(const CString& projection)
{
    // Kept: the method is that of the user's record and the parameters are those of the delivered one,
    // where both files have the projection.
    const CString section = kProjectionPrefix + projection;
    CString parameters = ParametersOfProjection(m_mainFile, section);
    if (parameters.IsEmpty()) {
        parameters = ParametersOfProjection(m_userFile, section);
    }
    return TextLine(0, TextId::method, GetPrjMdNameByPrjName(projection)) + parameters + kTextLineEnd;
}

CString ZorGeoDatabase::DumpPrjText(CString name)
{
    return TextLine(0, TextId::projection, name) + BuildIndentString(1) + MethodAndParametersText(name);
}

CString ZorGeoDatabase::DumpPrjText(CString group, CString system, bool title)
{
    const FileObject* file = FileOfSystem(group, system);
    if (!file) {
        return {};
    }
    SystemInfo info;
    LoadSystemInfo(*file, system, info);
    return title ? ZorGeoDatabase::DumpPrjText(info.projection) : MethodAndParametersText(info.projection);
}
