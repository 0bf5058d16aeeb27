#pragma once

#include <iosfwd>
#include <list>
#include <span>
#include <string>
#include <utility>

#include "frame/XmlLines.h"
#include "projections/CProjection.h"
#include "projections/ProjectionCatalogue.h"

// What the projection classes read, save, show and hand to GeoTIFF differs by parameter alone. Each
// class states it once, as a form of four short lists, and these functions are the one body that
// all classes use. The four lists have orders of their own: the order is part of the formats.

/// A field of class C that holds a parameter: a number or a text.
template <class C>
struct ParameterField {
    constexpr ParameterField(double C::*field) : number(field) {}
    constexpr ParameterField(CString C::*field) : text(field) {}

    double C::*number = nullptr;
    CString C::*text = nullptr;
};

enum class Need {
    required, ///< a missing key makes the load fail
    optional  ///< a missing key gives the row's default
};

/// One parameter to read and to list among the constants; `index` counts in projectionParamKeys.
template <class C>
struct LoadedParameter {
    int index;
    ParameterField<C> field;
    Need need = Need::required;
    double missingNumber = 0.0;
};

/// One parameter to save.
template <class C>
struct SavedParameter {
    int index;
    ParameterField<C> field;
};

/// How a parameter is written in XML.
enum class Shown {
    latitude,  ///< degrees, minutes, seconds, hemisphere
    longitude, ///< the same
    length2,   ///< two decimals
    length3,   ///< three decimals
    ratio,     ///< "%f"
    streamed,  ///< with the stream's own precision and flags
    text       ///< as it stands
};

/// One XML element. The name is part of the format.
template <class C>
struct XmlElement {
    const wchar_t* name;
    ParameterField<C> field;
    Shown shown;
};

/// One GeoTIFF key of a double. The numbers are part of the format.
template <class C>
struct GeoKey {
    int key;
    double C::*field;
};

/// The parameters of a projection class.
template <class C>
struct ParameterForm {
    std::span<const LoadedParameter<C>> load;
    std::span<const SavedParameter<C>> save;
    std::span<const XmlElement<C>> xml;
    std::span<const GeoKey<C>> geoKeys;
    /// Called behind the reads, whether or not they succeeded; may be null.
    void (C::*afterReading)() = nullptr;
};

/// Reads every parameter; one that cannot be read does not stop the others. False when a required
/// one could not be read; its field then keeps its value.
template <class C>
bool ReadByForm(C& projection, const ParameterForm<C>& form, const FileObject& file, const CString& section)
{
    bool complete = true;
    for (const LoadedParameter<C>& row : form.load) {
        const CString& key = projectionParamKeys[static_cast<std::size_t>(row.index)];
        if (row.need == Need::optional && row.field.number) {
            projection.*row.field.number = row.missingNumber;
        }
        const bool found = row.field.number ? file.GetItem(section, key, projection.*row.field.number)
                                            : file.GetItem(section, key, projection.*row.field.text);
        complete = complete && (found || row.need == Need::optional);
    }
    if (form.afterReading) {
        (projection.*form.afterReading)();
    }
    return complete;
}

/// Lists every parameter among the constants, in loading order. False when one has no place.
template <class C>
bool StoreConstantsByForm(C& projection, const ParameterForm<C>& form)
{
    bool complete = true;
    for (const LoadedParameter<C>& row : form.load) {
        const bool stored = row.field.number ? projection.SetConstantValue(row.index, projection.*row.field.number)
                                             : projection.SetConstantText(row.index, projection.*row.field.text);
        complete = complete && stored;
    }
    return complete;
}

enum class Sizing {
    fromCatalogue, ///< the load sizes the constants
    done           ///< the class has sized them
};

/// The loading rule; the result is that of CProjection::LoadParameters. The ellipsoid is asked for
/// last, so that the constants of a projection without one can be shown.
template <class C>
bool LoadByForm(C& projection, const ParameterForm<C>& form, const FileObject& file, const CString& section,
                Sizing sizing = Sizing::fromCatalogue)
{
    if (!projection.TakeSection(file, section)) {
        return false;
    }
    const bool read = ReadByForm(projection, form, file, section);
    const int count = ProjectionCatalogue().FindStaticDataSize(projection.GetType());
    if (count == 0) {
        return false;
    }
    if (sizing == Sizing::fromCatalogue) {
        projection.SetConstantsSize(count);
    }
    const bool stored = StoreConstantsByForm(projection, form);
    const bool usable = projection.InitConstants() == ProjectionStatus::usable;
    return read && stored && usable;
}

/// Writes the parameters, without the type.
template <class C>
void WriteByForm(const C& projection, const ParameterForm<C>& form, FileObject& file, const CString& section)
{
    for (const SavedParameter<C>& row : form.save) {
        const CString& key = projectionParamKeys[static_cast<std::size_t>(row.index)];
        if (row.field.number) {
            file.SetItem(section, key, projection.*row.field.number, true);
        } else {
            file.SetItem(section, key, projection.*row.field.text, true);
        }
    }
}

/// Writes the type number.
bool WriteType(const CProjection& projection, FileObject& file, const CString& section);

/// The saving rule: the parameters, then the type. True.
template <class C>
bool SaveByForm(const C& projection, const ParameterForm<C>& form, FileObject& file, const CString& section)
{
    WriteByForm(projection, form, file, section);
    WriteType(projection, file, section);
    return true;
}

void WriteXmlElement(std::wostream& stream, const std::wstring& indent, const wchar_t* name, Shown shown, double value);

/// The XML rule: one line per element.
template <class C>
void DumpXmlByForm(const C& projection, const ParameterForm<C>& form, std::wostream& stream, const std::wstring& indent)
{
    for (const XmlElement<C>& row : form.xml) {
        if (row.field.number) {
            WriteXmlElement(stream, indent, row.name, row.shown, projection.*row.field.number);
        } else {
            XmlLines(stream, indent).Element(row.name, projection.*row.field.text);
        }
    }
}

/// Appends the keys that tell GeoTIFF of a user-defined projection with the type's code.
void AppendGeoCodes(int type, std::list<std::pair<int, short>>& codes);

/// The GeoTIFF rule: the codes, then the class's keys.
template <class C>
void GeoKeysByForm(const C& projection, const ParameterForm<C>& form, std::list<std::pair<int, short>>& codes,
                   std::list<std::pair<int, double>>& parameters)
{
    AppendGeoCodes(projection.GetType(), codes);
    for (const GeoKey<C>& row : form.geoKeys) {
        parameters.emplace_back(row.key, projection.*row.field);
    }
}
