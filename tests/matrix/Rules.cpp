#include "tests/matrix/Rules.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>

#include "base/keys/KeyTables.h"

namespace rules {

namespace {

using Text = std::string;

// The suite's tables, which other modules share.
template <std::size_t size>
std::array<Text, size> Utf8(const std::array<CString, size>& table)
{
    std::array<Text, size> texts;
    std::transform(table.begin(), table.end(), texts.begin(), [](const CString& text) { return text.ToUtf8(); });
    return texts;
}
const auto datumKeys = Utf8(transParamKeys);
const auto projectionKeys = Utf8(projectionParamKeys);
const auto systemKeys = Utf8(coordsystemKeys);
const auto ellipsoidKeys = Utf8(spheroidKeys);

const Text backupSection = CString(COORDSYSTEM_BACKUP_SECTION).ToUtf8();
const Text referenceSection = CString(COORDSYSTEM_SECTION).ToUtf8();
const Text formatsSection = CString(FORMATS_SECTION).ToUtf8();
const Text noTransformation = "No Transformation";
const Text sevenParameters = "Bursa/Wolfe(7 Parameters)";

const std::array<Text, 3> postKeys = {"Post X coorection", "Post Y coorection", "Post Z coorection"};
const std::array<Text, 4> horizontalKeys = {"Post horizonal origin X", "Post horizonal origin Y",
                                            "Post horizonal rotation", "Post horizonal scale"};
const std::array<Text, 4> verticalKeys = {"Post vertical origin X", "Post vertical origin Y", "Post vertical slope X",
                                          "Post vertical slope Y"};

bool IsOn(const Text& text)
{
    return text == "1";
}
Text Switch(bool on)
{
    return on ? "1" : "0";
}

/// The value of a key; `missing` when there is none.
Text Value(const SectionFile& file, const Text& section, const Text& key, const Text& missing = {})
{
    const Text* const found = file.Find(section, key);
    return found ? *found : missing;
}
Text Number(const SectionFile& file, const Text& section, const Text& key, const Text& missing = "0")
{
    const Text* const found = file.Find(section, key);
    return found && NumberIn<double>(*found) ? *found : missing;
}
/// A missing key leaves `out`.
void Read(const SectionFile& file, const Text& section, const Text& key, Text& out)
{
    out = Value(file, section, key, out);
}
void ReadNumber(const SectionFile& file, const Text& section, const Text& key, Text& out)
{
    out = Number(file, section, key, out);
}
void ReadSwitch(const SectionFile& file, const Text& section, const Text& key, bool& out)
{
    out = IsOn(Value(file, section, key, Switch(out)));
}

double Double(const Text& text)
{
    return NumberIn<double>(text).value();
}
bool SameNumber(const Text& a, const Text& b)
{
    return Double(a) == Double(b);
}
/// The tolerance of projection parameters: 1e-13 of a hundred times the value, at least 1e-13.
bool SameParameter(const Text& record, const Text& database)
{
    const double value = Double(record);
    return !(std::abs(value - Double(database)) > 1e-13 * std::max(1.0, std::abs(value * 100.0)));
}

bool SoundEllipsoid(const Text& a, const Text& e2)
{
    return Double(a) >= 6000000.0 && Double(e2) <= 1.0;
}

/// The keys, by their place in the suite's table, without which a projection of a type does not load.
const std::map<int, std::vector<std::size_t>> requiredParameters = {
    {0, {3, 4, 5, 6, 7}},
    {1, {3, 4, 5, 6, 7}},
    {3, {3, 4, 5, 6, 8, 9}},
};

enum class Verdict { differs, equal, unknown };

/// A datum transformation that was loaded.
struct Datum {
    Text method, source;
    Text sourceAxis = "0", sourceE2 = "0";
    std::array<Text, 7> parameters = {"0", "0", "0", "0", "0", "0", "0"};
    std::array<Text, 8> rates = {"0", "0", "0", "0", "0", "0", "0", "0"};
    bool fixedHeight = false;
    Text fixedForward = "43", fixedReverse = "0";
};
bool HasRates(const Text& method)
{
    return method == "Bursa/Wolfe(14 Parameters)" || method == "Helmert(14 Parameters)";
}

/// The projection parameters as they are written: in the catalogue's order, the texts as 0.
using Constants = std::vector<SectionFile::Item>;

/// The backup as it is compared.
struct Record {
    Text system, ellipsoid, unit;
    Text datum, datumMethod, source, description;
    std::array<Text, 7> parameters = {"0", "0", "0", "0", "0", "0", "0"};
    std::array<Text, 8> rates = {"0", "0", "0", "0", "0", "0", "0", "0"};
    bool fixedHeight = false;
    Text fixedForward, fixedReverse;
    Text projection, projectionMethod;
    int projectionType = 0;
    std::vector<Text> parameterKeys, parameterValues;
    bool isUtm = false;
    Text utmZone, hemisphere;
    bool postUsed = false, horizontalUsed = false, verticalUsed = false;
    std::array<Text, 3> post = {"0", "0", "0"};
    std::array<Text, 4> horizontal = {"0", "0", "0", "1"};
    std::array<Text, 4> vertical = {"0", "0", "0", "0"};
};

class Run {
public:
    Run(Machine& machine, Object& object, const Call& call, const User& user)
        : m(machine), o(object), m_call(call), m_user(user)
    {
    }

    Outcome Init()
    {
        m_outcome.result = Decide();
        return m_outcome;
    }

private:
    Machine& m;
    Object& o;
    const Call& m_call;
    const User& m_user;
    Outcome m_outcome;

    bool Decide()
    {
        // Once silent by an open project, silent in later calls by name.
        o.silent = m_call.byName ? o.silent : m_call.silent;
        Open();
        o.group = m_call.group;
        o.system = m_call.system;
        if (!FindSystem(m.user) && !FindSystem(m.main)) {
            if (!RestoreAbsentSystem()) {
                return false;
            }
            Open();
            if (!FindSystem(m.user)) {
                return false;
            }
        }
        if (!Build() || !SetUnit()) {
            return false;
        }
        ReadCorrections();
        return m_call.silent || CompareWithBackup();
    }

    /// A project given by its name is read anew; an open one stays as it is in memory.
    void Open()
    {
        if (m_call.byName) {
            m.open = m.project;
        }
    }
    void SaveProject()
    {
        m.project = m.open;
        m_outcome.projectSaved = true;
    }

    // --- Building a system from the database ---

    bool FindSystem(const SectionFile& file)
    {
        const Text section = "Sys-" + o.system;
        if (!file.Has("Gp-" + o.group) || !file.Has(section)) {
            return false;
        }
        Read(file, section, "Datumtransform name", o.datum);
        Read(file, section, "Unit name", o.unit);
        Read(file, section, "Ellipsoid name", o.ellipsoid);
        Read(file, section, "Projection name", o.projection);
        return m.open.Has(formatsSection) &&
               (m.main.Find("Units section", o.unit) || m.user.Find("Units section", o.unit));
    }

    bool InUserThenMain(const std::function<bool(const SectionFile&)>& made) { return made(m.user) || made(m.main); }
    bool InMainThenUser(const std::function<bool(const SectionFile&)>& made) { return made(m.main) || made(m.user); }

    bool Build()
    {
        bool sound = false;
        const auto ellipsoid = [&](const SectionFile& file) {
            const Text section = "Elp-" + o.ellipsoid;
            sound = SoundEllipsoid(Number(file, section, ellipsoidKeys[2]), Number(file, section, ellipsoidKeys[3]));
            return file.Has(section);
        };
        const auto projection = [&](const SectionFile& file) { return sound && MakeProjection(file); };
        const auto datum = [&](const SectionFile& file) { return LoadDatum(file, DatumSection(file)).has_value(); };
        const bool built = InUserThenMain(ellipsoid) && InUserThenMain(projection) && InUserThenMain(datum);
        o.isInit |= built; // an object that was ready once stays so
        return built;
    }

    bool MakeProjection(const SectionFile& file)
    {
        const Text section = "Prj-" + o.projection;
        if (!file.Has(section)) {
            return false;
        }
        Read(file, section, "Projection method", o.projectionMethod);
        const auto type = NumberIn<int>(Value(file, section, projectionKeys[1]));
        return type && LoadProjection(file, section, *type);
    }

    /// The section of the datum transformation; an old style name "A - B:C" also stands for "A - C".
    Text DatumSection(const SectionFile& file) const
    {
        Text section = "Dtf-" + o.datum;
        const std::size_t dash = section.find(" - "), colon = section.find(':');
        if (!file.Has(section) && dash != Text::npos && dash > 0 && colon != Text::npos && colon > dash + 3) {
            section.erase(dash + 3, colon - dash - 2);
        }
        return section;
    }

    std::optional<Constants> LoadProjection(const SectionFile& file, const Text& section, int type) const
    {
        const auto known = requiredParameters.find(type);
        if (!file.Has(section) || known == requiredParameters.end()) {
            return std::nullopt;
        }
        for (const std::size_t key : known->second) {
            if (!NumberIn<double>(Value(file, section, projectionKeys[key]))) {
                return std::nullopt;
            }
            if (key == ProjectionKey::scaleFactor && Double(Value(file, section, projectionKeys[key])) < 0.8) {
                return std::nullopt;
            }
        }
        Constants constants;
        for (const Text& key : CatalogueKeys(type)) {
            const bool isText = key == projectionKeys[11] || key == projectionKeys[12];
            constants.emplace_back(key, isText ? "0" : Number(file, section, key));
        }
        return constants;
    }

    /// Keys of a type's parameters, in the catalogue's order. No two labels of the catalogue are the
    /// same, so the way from key to label and back ends where it began.
    std::vector<Text> CatalogueKeys(int type) const
    {
        std::vector<Text> keys;
        const Text method = Value(m.catalogue, "Projections-Section", std::to_string(type));
        while (const Text* const key = m.catalogue.Find(method, std::to_string(keys.size()))) {
            keys.push_back(*key);
        }
        return keys;
    }

    std::optional<Datum> LoadDatum(const SectionFile& file, const Text& section)
    {
        if (!file.Has(section)) {
            return std::nullopt;
        }
        Datum datum;
        datum.method = Value(file, section, "Method name", sevenParameters);
        if (datum.method == noTransformation) {
            return datum;
        }
        const std::size_t read = HasRates(datum.method) ? 15 : 7;
        for (std::size_t i = 0; i < read; ++i) {
            // Entry 11 of the table has no use; the rates follow it.
            const Text text = Value(file, section, datumKeys[i < 7 ? 4 + i : 5 + i]);
            if (!NumberIn<double>(text)) {
                return std::nullopt;
            }
            (i < 7 ? datum.parameters[i] : datum.rates[i - 7]) = text;
        }
        ReadSwitch(file, section, datumKeys[20], datum.fixedHeight);
        ReadNumber(file, section, datumKeys[21], datum.fixedForward);
        ReadNumber(file, section, datumKeys[22], datum.fixedReverse);
        const Text* const source = file.Find(section, datumKeys[2]);
        const Text* const target = file.Find(section, datumKeys[3]);
        Text axis, e2;
        if (!source || !target || !DatumEllipsoid(file, section, *source, "Src", datum.sourceAxis, datum.sourceE2) ||
            !DatumEllipsoid(file, section, *target, "Dst", axis, e2)) {
            return std::nullopt;
        }
        datum.source = *source;
        return datum;
    }

    /// The ellipsoid's record, or the numbers that the transformation keeps for its loss.
    bool DatumEllipsoid(const SectionFile& file, const Text& section, const Text& name, const Text& side, Text& axis,
                        Text& e2)
    {
        const auto record = [&](const SectionFile& database) {
            axis = Number(database, "Elp-" + name, ellipsoidKeys[2]);
            e2 = Number(database, "Elp-" + name, ellipsoidKeys[3]);
            return database.Has("Elp-" + name) && SoundEllipsoid(axis, e2);
        };
        if (InMainThenUser(record)) {
            return true;
        }
        axis = Value(file, section, side + "Sma");
        e2 = Value(file, section, side + "Se");
        return NumberIn<double>(axis) && NumberIn<double>(e2);
    }

    bool SetUnit()
    {
        if (CString::FromUtf8(m_call.unit).CompareNoCase(L"none") == 0) {
            return true;
        }
        return m.open.Has(formatsSection) &&
               (m.main.Find("Units section", m_call.unit) || m.user.Find("Units section", m_call.unit)) &&
               InMainThenUser([&](const SectionFile& file) { return MakeProjection(file); });
    }

    /// The settings of the system's record, of the file whose group lists the system, main first.
    void ReadCorrections()
    {
        const Text section = "Sys-" + o.system;
        const auto lists = [&](const SectionFile& file) {
            const SectionFile::Section* const group = file.Find("Gp-" + o.group);
            return group && std::any_of(group->items.begin(), group->items.end(),
                                        [&](const SectionFile::Item& item) { return item.second == o.system; });
        };
        const SectionFile nowhere;
        const SectionFile& file = lists(m.main) ? m.main : lists(m.user) ? m.user : nowhere;
        const auto isOn = [&](const char* key) { return IsOn(Value(file, section, key)); };

        o.geoidUsed = isOn("Geoid model use statu");
        o.geoidMethod = o.geoidUsed ? Value(file, section, "Geoid model method") : "";
        o.geoidGrid = o.geoidUsed ? Value(file, section, "Geoid model grid") : "";
        if (o.geoidUsed && o.geoidMethod == "Manual") {
            o.geoidManual = Number(file, section, "Manual input value");
        } else if (o.geoidUsed && !o.silent) {
            // No case names another method that there is.
            m_outcome.messages.emplace_back("Error in geoid model settings - check coordinate system geoid model "
                                            "setting and select proper geoid model");
        }
        ReadAll(file, section, postKeys, o.postUsed = isOn("Post coorection statu"), o.post);
        ReadAll(file, section, horizontalKeys, o.horizontalUsed = isOn("Post horizontal adjust statu"), o.horizontal);
        ReadAll(file, section, verticalKeys, o.verticalUsed = isOn("Post vertical adjust statu"), o.vertical);
        o.postFile = Value(file, section, "Post coorection file");
        o.postModel = Value(file, section, "Post coorection model");
    }

    template <std::size_t size>
    static void ReadAll(const SectionFile& file, const Text& section, const std::array<Text, size>& keys, bool wanted,
                        std::array<Text, size>& out)
    {
        for (std::size_t i = 0; wanted && i < size; ++i) {
            ReadNumber(file, section, keys[i], out[i]);
        }
    }

    // --- The backup as a record, and the three comparisons ---

    std::optional<Record> BackupRecord() const
    {
        const SectionFile& p = m.open;
        if (!p.Has(backupSection)) {
            return std::nullopt;
        }
        const auto text = [&](const char* key) { return Value(p, backupSection, key); };
        Record r;
        r.system = text("CoordSystem");
        r.ellipsoid = text("Ellipsoid name");
        r.unit = text("Unit name");
        r.datum = text("Datumtransform name");
        r.projection = text("Projection name");
        r.projectionMethod = text("Projection medthod");
        r.projectionType = NumberIn<int>(text("Projection type")).value_or(0);
        ReadDatumOfBackup(r);
        ReadProjectionOfBackup(r);
        r.postUsed = IsOn(text("Post coorection statu"));
        ReadAll(p, backupSection, postKeys, r.postUsed, r.post);
        r.horizontalUsed = IsOn(text("Post horizontal adjust statu"));
        ReadAll(p, backupSection, horizontalKeys, r.horizontalUsed, r.horizontal);
        r.verticalUsed = IsOn(text("Post vertical adjust statu"));
        // Uneven: it is the object's own switch that decides whether the plane is read.
        ReadAll(p, backupSection, verticalKeys, o.verticalUsed, r.vertical);
        return r;
    }

    /// The current section alone is compared, whatever an older one holds.
    void ReadDatumOfBackup(Record& r) const
    {
        const SectionFile& p = m.open;
        const Text section = "GEODESY_DTF_BACKUP";
        r.source = Value(p, section, datumKeys[2]);
        r.datumMethod = Value(p, section, "Method name", sevenParameters);
        for (std::size_t i = 0; i < 7 && r.datumMethod != noTransformation; ++i) {
            r.parameters[i] = Number(p, section, datumKeys[4 + i]);
        }
        for (std::size_t i = 0; i < 8 && HasRates(r.datumMethod); ++i) {
            r.rates[i] = Number(p, section, datumKeys[12 + i]);
        }
        r.fixedHeight = IsOn(Value(p, section, datumKeys[20]));
        r.fixedForward = Number(p, section, datumKeys[21]);
        r.fixedReverse = Number(p, section, datumKeys[22]);
    }

    void ReadProjectionOfBackup(Record& r) const
    {
        const SectionFile& p = m.open;
        const Text section = "GEODESY_PROJECTION_BACKUP";
        r.parameterKeys = CatalogueKeys(r.projectionType);
        for (const Text& key : r.parameterKeys) {
            // What cannot be read is left out, so that the values behind it move up.
            if (const Text text = Value(p, section, key); NumberIn<double>(text)) {
                r.parameterValues.push_back(text);
            }
        }
        r.isUtm = r.projectionType == 1;
        if (r.isUtm) {
            r.utmZone = Value(p, section, projectionKeys[11]);
            r.hemisphere = Value(p, section, projectionKeys[12]);
        }
    }

    /// The file whose record counts: the user's hides the main one's.
    const SectionFile* Holder(const Text& section) const
    {
        return m.user.Has(section) ? &m.user : m.main.Has(section) ? &m.main : nullptr;
    }
    static Verdict Equal(bool equal) { return equal ? Verdict::equal : Verdict::differs; }

    template <std::size_t size>
    static bool SameNumbers(const SectionFile& file, const Text& section, const std::array<Text, size>& keys,
                            const std::array<Text, size>& values, const Text& lastMissing = "0")
    {
        for (std::size_t i = 0; i < size; ++i) {
            if (!SameNumber(values[i], Number(file, section, keys[i], i + 1 == size ? lastMissing : "0"))) {
                return false;
            }
        }
        return true;
    }

    Verdict CompareProjection(const Record& r) const
    {
        const Text section = "Prj-" + r.projection;
        const SectionFile* const file = Holder(section);
        if (!file) {
            return Verdict::unknown;
        }
        bool same = NumberIn<int>(Value(*file, section, projectionKeys[1])).value_or(0) == r.projectionType &&
                    Value(*file, section, "Projection method") == r.projectionMethod &&
                    Value(*file, section, "Unit name") == r.unit;
        for (std::size_t i = 0; i < r.parameterValues.size(); ++i) {
            same = same && SameParameter(r.parameterValues[i], Number(*file, section, r.parameterKeys[i]));
        }
        if (r.isUtm) {
            same = same && Value(*file, section, projectionKeys[11]) == r.utmZone &&
                   Value(*file, section, projectionKeys[12]) == r.hemisphere;
        }
        return Equal(same);
    }

    Verdict CompareDatum(const Record& r) const
    {
        const Text section = "Dtf-" + r.datum;
        const SectionFile* const file = Holder(section);
        if (!file) {
            return Verdict::unknown;
        }
        if (Value(*file, section, "Method name") != r.datumMethod) {
            return Verdict::differs;
        }
        const bool hasSeven = r.datumMethod == sevenParameters || r.datumMethod == "Helmert(7 Parameters)";
        bool same = true;
        if (hasSeven || HasRates(r.datumMethod)) {
            // A backup has no description, so that a described transformation is never equal.
            same = Value(*file, section, datumKeys[2]) == r.source &&
                   Value(*file, section, datumKeys[3]) == r.ellipsoid && Value(*file, section, datumKeys[1]).empty();
            for (std::size_t i = 0; i < 7; ++i) {
                same = same && SameNumber(r.parameters[i], Number(*file, section, datumKeys[4 + i]));
            }
            for (std::size_t i = 0; i < 8 && HasRates(r.datumMethod); ++i) {
                same = same && SameNumber(r.rates[i], Number(*file, section, datumKeys[12 + i]));
            }
        }
        same = same && IsOn(Value(*file, section, datumKeys[20])) == r.fixedHeight;
        if (r.fixedHeight) {
            same = same && SameNumber(r.fixedForward, Number(*file, section, datumKeys[21])) &&
                   SameNumber(r.fixedReverse, Number(*file, section, datumKeys[22]));
        }
        return Equal(same);
    }

    Verdict CompareSystem(const Record& r) const
    {
        const Text section = "Sys-" + r.system;
        const SectionFile* const file = Holder(section);
        if (!file) {
            return Verdict::unknown;
        }
        bool same = Value(*file, section, "Datumtransform name") == r.datum &&
                    Value(*file, section, "Unit name") == r.unit &&
                    Value(*file, section, "Ellipsoid name") == r.ellipsoid &&
                    Value(*file, section, "Projection name") == r.projection;
        if (r.postUsed) {
            const bool off = !IsOn(Value(*file, section, "Post coorection statu"));
            const bool allSet = std::all_of(r.post.begin(), r.post.end(), [](const Text& v) { return Double(v) != 0; });
            same = same && !(off && allSet) && SameNumbers(*file, section, postKeys, r.post);
        }
        same = same && IsOn(Value(*file, section, "Post horizontal adjust statu")) == r.horizontalUsed &&
               IsOn(Value(*file, section, "Post vertical adjust statu")) == r.verticalUsed;
        if (r.horizontalUsed) {
            same = same && SameNumbers(*file, section, horizontalKeys, r.horizontal, "1");
        }
        if (r.verticalUsed) {
            same = same && SameNumbers(*file, section, verticalKeys, r.vertical);
        }
        return Equal(same);
    }

    // --- The dialog ---

    static Text Prefix(NameKind kind)
    {
        return kind == NameKind::system ? "Sys-" : kind == NameKind::projection ? "Prj-" : "Dtf-";
    }

    /// The new name, or nothing when the user cancels or ten answers were no free name.
    std::optional<Text> AskName(NameKind kind, const Text& present)
    {
        Text shown = present;
        const int dialog = m_outcome.Dialogs() + 1;
        for (int attempt = 1; attempt <= 10; ++attempt) {
            const Question question{kind, shown, dialog, attempt};
            const std::optional<Text> answer = m_user(question);
            m_outcome.asked.push_back({question, answer});
            if (!answer) {
                return std::nullopt;
            }
            const bool taken = m.dialogKnowsDatabase && Holder(Prefix(kind) + *answer);
            if (!answer->empty() && !taken) {
                return answer;
            }
            m_outcome.messages.push_back("The name \"" + *answer + "\" is already in use or empty.");
            shown = *answer;
        }
        return std::nullopt;
    }

    /// A new name for a part of the system, which goes into the open project.
    bool RenamePart(NameKind kind, Text& name, const char* key)
    {
        const std::optional<Text> answer = AskName(kind, name);
        if (answer) {
            name = *answer;
            m.open.Set(backupSection, key, name);
        }
        return answer.has_value();
    }
    bool RenameSystem()
    {
        const std::optional<Text> answer = AskName(NameKind::system, o.system);
        o.system = answer.value_or(o.system);
        return answer.has_value();
    }

    // --- The two ways to a new record ---

    /// The system is in neither file.
    bool RestoreAbsentSystem()
    {
        std::optional<Record> r = BackupRecord();
        if (!r) {
            return false;
        }
        bool renamed = false;
        if (CompareProjection(*r) == Verdict::differs) {
            if (!RenamePart(NameKind::projection, r->projection, "Projection name")) {
                return false;
            }
            renamed = true;
        }
        if (CompareDatum(*r) == Verdict::differs) {
            if (!RenamePart(NameKind::datumTransformation, r->datum, "Datumtransform name")) {
                return false;
            }
            renamed = true;
        }
        const bool conflict = CompareSystem(*r) == Verdict::differs;
        if (conflict && !RenameSystem()) {
            return false;
        }
        if (conflict || renamed) {
            // The project is not told of the system's new name.
            SaveProject();
        }
        return Restore();
    }

    /// The last step of an Init that is not silent.
    bool CompareWithBackup()
    {
        std::optional<Record> r = BackupRecord();
        if (!r) {
            return false;
        }
        const Verdict projection = CompareProjection(*r);
        if (projection == Verdict::differs && !RenamePart(NameKind::projection, r->projection, "Projection name")) {
            return false;
        }
        const Verdict datum = CompareDatum(*r);
        if (datum == Verdict::differs && !RenamePart(NameKind::datumTransformation, r->datum, "Datumtransform name")) {
            return false;
        }
        const Verdict system = CompareSystem(*r);
        if (projection == Verdict::equal && datum == Verdict::equal && system == Verdict::equal) {
            return true;
        }
        if (system == Verdict::differs) {
            if (!RenameSystem()) {
                return false;
            }
            m.open.Set(backupSection, "CoordSystem", o.system);
            m.open.Set(referenceSection, systemKeys[8], o.system);
        }
        SaveProject();
        Restore();
        Open();
        if (!FindSystem(m.user) || !Build() || !SetUnit()) {
            return false;
        }
        ReadCorrections();
        return true;
    }

    /// Takes the object's values from the backup and writes them as records of the user file.
    bool Restore()
    {
        const SectionFile& p = m.open;
        if (!p.Has(backupSection)) {
            return false;
        }
        Read(p, backupSection, "Datumtransform name", o.datum);
        Read(p, backupSection, "Projection name", o.projection);
        Read(p, backupSection, "Projection medthod", o.projectionMethod);
        Read(p, backupSection, "Ellipsoid name", o.ellipsoid);
        Read(p, backupSection, "Unit name", o.unit);
        ReadCorrectionsOfBackup();
        const Text* const unitRecord = p.Find("UINT_BACKUP", "Unit name");
        if (!unitRecord) {
            return false;
        }
        const Text axis = Number(p, "ELLIPSOID_BACKUP", ellipsoidKeys[2]);
        const Text e2 = Number(p, "ELLIPSOID_BACKUP", ellipsoidKeys[3]);
        if (!p.Has("ELLIPSOID_BACKUP") || !SoundEllipsoid(axis, e2)) {
            return false;
        }
        const int type = NumberIn<int>(Value(p, backupSection, "Projection type")).value_or(0);
        std::optional<Constants> constants = LoadProjection(p, "GEODESY_PROJECTION_BACKUP", type);
        constants = constants ? constants : LoadProjection(p, "PROJECTION_BACKUP", type);
        if (!constants) {
            return false;
        }
        std::optional<Datum> datum = LoadDatum(p, "GEODESY_DTF_BACKUP");
        datum = datum ? datum : LoadDatum(p, "DTF_BACKUP");
        return datum && WriteRecords({axis, e2, type, *constants, *datum, *unitRecord});
    }

    void ReadCorrectionsOfBackup()
    {
        const SectionFile& p = m.open;
        ReadSwitch(p, backupSection, "Post coorection statu", o.postUsed);
        ReadSwitch(p, backupSection, "Geoid model use statu", o.geoidUsed);
        if (o.geoidUsed) {
            Read(p, backupSection, "Geoid model method", o.geoidMethod);
            Read(p, backupSection, "Geoid model grid", o.geoidGrid);
            if (o.geoidMethod == "Manual") {
                ReadNumber(p, backupSection, "Manual input value", o.geoidManual);
            }
        }
        ReadAll(p, backupSection, postKeys, o.postUsed, o.post);
        Read(p, backupSection, "Post coorection file", o.postFile);
        Read(p, backupSection, "Post coorection model", o.postModel);
        o.horizontalUsed = false;
        o.horizontal = {"0", "0", "0", "1"};
        ReadSwitch(p, backupSection, "Post horizontal adjust statu", o.horizontalUsed);
        ReadAll(p, backupSection, horizontalKeys, true, o.horizontal);
        o.verticalUsed = false;
        o.vertical = {"0", "0", "0", "0"};
        ReadSwitch(p, backupSection, "Post vertical adjust statu", o.verticalUsed);
        ReadAll(p, backupSection, verticalKeys, true, o.vertical);
    }

    // --- Writing ---

    /// The parts of a system beside what the object keeps.
    struct Parts {
        Text axis, e2;
        int projectionType;
        Constants constants;
        Datum datum;
        Text unitRecord;
    };

    /// Each record only as far as neither file has it; parts that the user file has are rewritten.
    /// All questions are about the files as they stood before.
    bool WriteRecords(const Parts& parts)
    {
        if (o.group.empty()) {
            return false;
        }
        SectionFile file = m.user;
        std::map<Text, int> count;
        const std::array<Text, 6> counters = {"Group count",       "System count", "Ellipsoid count",
                                              "Datumtransf count", "Unit count",   "Projection count"};
        for (const Text& counter : counters) {
            count[counter] = NumberIn<int>(Value(file, "General", counter)).value_or(0);
        }
        const auto serial = [&](const Text& counter) { return std::to_string(count[counter] + 1); };
        const auto known = [&](const Text& section) { return Holder(section) != nullptr; };
        std::vector<Text> added;

        const bool isNew = !known("Sys-" + o.system);
        WriteGroup(file, serial("Group count"), isNew);
        if (!known("Gp-" + o.group)) {
            added.push_back("Group count");
        }
        if (isNew) {
            added.push_back("System count");
        }
        WriteSystem(file, isNew);
        if (!known("Dtf-" + o.datum)) {
            file.Set("DatumTransform Section", serial("Datumtransf count"), o.datum);
            added.push_back("Datumtransf count");
        }
        if (!known("Dtf-" + o.datum) || m.user.Has("Dtf-" + o.datum)) {
            WriteDatum(file, parts.datum);
        }
        if (!known("Prj-" + o.projection)) {
            file.Set("Projections section", serial("Projection count"), o.projection);
            added.push_back("Projection count");
        }
        if (!known("Prj-" + o.projection) || m.user.Has("Prj-" + o.projection)) {
            WriteProjection(file, parts);
        }
        // Ellipsoids come without a line in their index.
        WriteEllipsoid(file, o.ellipsoid, parts.axis, parts.e2);
        WriteEllipsoid(file, parts.datum.source, parts.datum.sourceAxis, parts.datum.sourceE2);
        if (!m.user.Find("Units section", o.unit) && !m.main.Find("Units section", o.unit)) {
            file.Set("Units section", o.unit, UnitText(parts.unitRecord));
            added.push_back("Unit count");
        }
        for (const Text& counter : added) {
            ++count[counter];
        }
        for (const Text& counter : counters) {
            file.Set("General", counter, std::to_string(count[counter]));
        }
        m.user = file;
        m_outcome.userSaved = true;
        return true;
    }

    void WriteGroup(SectionFile& file, const Text& serial, bool isNew) const
    {
        const Text section = "Gp-" + o.group;
        if (!Holder(section)) {
            file.Set("Groups Section", serial, o.group);
            file.Set(section, "1", o.system);
            file.Set(section, "System count", "1");
            return;
        }
        if (!file.Has(section)) {
            file.Set("Groups Section", serial, o.group);
            file.Create(section);
        }
        const Text next = std::to_string(NumberIn<int>(Value(file, section, "System count")).value_or(0) + 1);
        if (isNew) {
            file.Set(section, next, o.system);
        }
        file.Set(section, "System count", next);
    }

    void WriteSystem(SectionFile& file, bool isNew) const
    {
        const Text section = "Sys-" + o.system;
        file.Set(section, "Datumtransform name", o.datum);
        file.Set(section, "Unit name", o.unit);
        file.Set(section, "Ellipsoid name", o.ellipsoid);
        file.Set(section, "Projection name", o.projection);
        file.Set(section, "Geoid model use statu", Switch(o.geoidUsed));
        if (o.geoidMethod == "Manual") {
            file.Set(section, "Manual input value", o.geoidManual);
        }
        // A known system gets the record's default geoid, which a restored record has not.
        file.Set(section, "Geoid model grid", isNew ? o.geoidGrid : "");
        file.Set(section, "Geoid model method", isNew ? o.geoidMethod : "");
        file.Set(section, systemKeys[15], "");
        file.Set(section, "Post coorection statu", Switch(o.postUsed));
        SetAll(file, section, postKeys, o.post);
        file.Set(section, "Post coorection file", o.postFile);
        file.Set(section, "Post coorection model", o.postModel);
        file.Set(section, "Post horizontal adjust statu", Switch(o.horizontalUsed));
        SetAll(file, section, horizontalKeys,
               o.horizontalUsed ? o.horizontal : std::array<Text, 4>{"0", "0", "0", "1"});
        file.Set(section, "Post vertical adjust statu", Switch(o.verticalUsed));
        SetAll(file, section, verticalKeys, o.verticalUsed ? o.vertical : std::array<Text, 4>{"0", "0", "0", "0"});
    }

    template <std::size_t size>
    static void SetAll(SectionFile& file, const Text& section, const std::array<Text, size>& keys,
                       const std::array<Text, size>& values)
    {
        for (std::size_t i = 0; i < size; ++i) {
            file.Set(section, keys[i], values[i]);
        }
    }

    void WriteDatum(SectionFile& file, const Datum& datum) const
    {
        const Text section = "Dtf-" + o.datum;
        const bool hasParameters =
            datum.method == sevenParameters || datum.method == "Helmert(7 Parameters)" || HasRates(datum.method);
        file.Set(section, "Method name", datum.method);
        if (hasParameters) {
            file.Set(section, datumKeys[2], datum.source);
            file.Set(section, datumKeys[3], o.ellipsoid);
            for (std::size_t i = 0; i < 7; ++i) {
                file.Set(section, datumKeys[4 + i], datum.parameters[i]);
            }
            file.Set(section, datumKeys[1], "");
            for (std::size_t i = 0; i < 8; ++i) {
                file.Set(section, datumKeys[12 + i], datum.rates[i]);
            }
        }
        file.Set(section, datumKeys[20], Switch(datum.fixedHeight));
        file.Set(section, datumKeys[21], datum.fixedForward);
        file.Set(section, datumKeys[22], datum.fixedReverse);
    }

    void WriteProjection(SectionFile& file, const Parts& parts) const
    {
        const Text section = "Prj-" + o.projection;
        file.Set(section, projectionKeys[1], std::to_string(parts.projectionType));
        file.Set(section, "Projection method", o.projectionMethod);
        file.Set(section, "Unit name", o.unit);
        for (const auto& [key, value] : parts.constants) {
            const bool isLatitude = key == "LatOrigin" || key == "1stParallel" || key == "2ndParallel";
            const bool isPole = isLatitude && std::abs(Double(value)) == 90.0;
            file.Set(section, key, isPole ? NumberText(std::copysign(89.9999999999, Double(value))) : value);
        }
    }

    /// The eccentricity's square goes through the eccentricity.
    void WriteEllipsoid(SectionFile& file, const Text& name, const Text& axis, const Text& e2) const
    {
        if (!Holder("Elp-" + name)) {
            const double eccentricity = std::sqrt(Double(e2));
            file.Set("Elp-" + name, "SemiMajor", axis);
            file.Set("Elp-" + name, "EccSqrd", NumberText(eccentricity * eccentricity));
        }
    }

    /// Factor with six decimals, comma, suffix.
    static Text UnitText(const Text& record)
    {
        const std::size_t comma = record.find(',');
        char factor[40];
        std::snprintf(factor, sizeof factor, "%f", Double(record.substr(0, comma)));
        return Text(factor) + "," + record.substr(comma + 1);
    }
};

} // namespace

Outcome Init(Machine& machine, Object& object, const Call& call, const User& user)
{
    return Run(machine, object, call, user).Init();
}

} // namespace rules
