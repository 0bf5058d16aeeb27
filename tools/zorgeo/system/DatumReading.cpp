#include <algorithm>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "DatabaseText.h"
#include "system/KnownRecords.h"
#include "system/Reading.h"

namespace {

constexpr NumberRange kScale = {-1e5, 1e5, "parts per million, -100000 to 100000"};
constexpr NumberRange kScaleRate = {-1e5, 1e5, "parts per million a year, -100000 to 100000"};
constexpr NumberRange kEpoch = {1900.0, 2200.0, "a decimal year, 1900 to 2200"};
constexpr const char* kOfTransformation[] = {"source", "target", "shift", "rotation", "scale", "rates", "fixedHeight"};

bool Moves(const std::string& method)
{
    return CString::FromUtf8(method).Find(kFourteen) >= 0;
}

/// Name and description alone: the record of the database is meant.
bool OnlyNamed(const JsonNode& node)
{
    return !node["method"].Given() && std::none_of(std::begin(kOfTransformation), std::end(kOfTransformation),
                                                   [&node](const char* key) { return node[key].Given(); });
}

void ReadRates(const JsonNode& node, DatumParameters& datum)
{
    if (!Moves(datum.method)) {
        if (node.Given()) {
            node.Fault(
                fmt::format("\"{}\" has no rates; leave them out, or take a method of 14 parameters", datum.method));
        }
        return;
    }
    if (node.Complain("shift, rotation, scale and epoch: the method has 14 parameters") ||
        !node.IsObjectOf({"shift", "rotation", "scale", "epoch"})) {
        return;
    }
    datum.shiftRate = node["shift"].RequiredTriple("m/yr").value_or(datum.shiftRate);
    datum.rotationRate = node["rotation"].RequiredTriple("arcsec/yr").value_or(datum.rotationRate);
    datum.scaleRate = node["scale"].RequiredMeasure(kScaleRate, "ppm/yr").value_or(0.0);
    datum.epoch = node["epoch"].RequiredNumber(kEpoch).value_or(0.0);
}

void ReadFixedHeight(const JsonNode& node, DatumParameters& datum)
{
    if (!node.Given() || !node.IsObjectOf({"forward", "reverse"})) {
        return;
    }
    const NumberRange height = AnyNumber("a height in units of the system");
    datum.fixedHeight = true;
    datum.fixedHeightForward = node["forward"].RequiredNumber(height).value_or(0.0);
    datum.fixedHeightReverse = node["reverse"].RequiredNumber(height).value_or(0.0);
}

void ReadTarget(const Reading& reading, const JsonNode& node, const std::optional<EllipsoidParameters>& local)
{
    if (!node.Given() || !local) {
        return;
    }
    // Of a new ellipsoid the numbers stand at the system; a name is enough here.
    const auto name =
        node.IsObjectOf({"name", "semiMajorAxis", "semiMinorAxis", "squaredEccentricity", "inverseFlattening"})
            ? node["name"].RequiredText("a name")
            : std::nullopt;
    if (name && *name != local->name) {
        node["name"].Fault(fmt::format("the target of the transformation is \"{}\" and the system's ellipsoid \"{}\"; "
                                       "a new system has one local ellipsoid, name it in both places",
                                       *name, local->name));
    } else if (name && EllipsoidInDatabase(reading.session, *name)) {
        ReadEllipsoid(reading, node);
    }
}

void RefuseParameters(const JsonNode& node)
{
    for (const char* key : kOfTransformation) {
        if (node[key].Given()) {
            node[key].Fault(fmt::format("\"{}\" has no parameters; leave this out, or name another method",
                                        kNoTransformation.ToUtf8()));
        }
    }
}

void Compare(std::vector<std::string>& out, const std::string& what, const std::array<double, 3>& here,
             const std::array<double, 3>& there)
{
    for (std::size_t i = 0; i < here.size(); ++i) {
        if (here[i] != there[i]) {
            out.push_back(Differs(what + " " + "xyz"[i], there[i]));
        }
    }
}

void Compare(std::vector<std::string>& out, const std::string& what, double here, double there)
{
    if (here != there) {
        out.push_back(Differs(what, there));
    }
}

void Compare(std::vector<std::string>& out, const std::string& what, const std::string& here, const std::string& there)
{
    if (here != there) {
        out.push_back(Differs(what, there));
    }
}

std::vector<std::string> Differences(const DatumParameters& here, const DatumParameters& there)
{
    std::vector<std::string> out;
    Compare(out, "method", here.method, there.method);
    Compare(out, "description", here.description, there.description);
    if (here.method != there.method || !here.on) {
        return out;
    }
    Compare(out, "source", here.source.name, there.source.name);
    Compare(out, "target", here.target.name, there.target.name);
    Compare(out, "shift", here.shift, there.shift);
    Compare(out, "rotation", here.rotation, there.rotation);
    Compare(out, "scale", here.scale, there.scale);
    if (Moves(here.method)) {
        Compare(out, "rate of shift", here.shiftRate, there.shiftRate);
        Compare(out, "rate of rotation", here.rotationRate, there.rotationRate);
        Compare(out, "rate of scale", here.scaleRate, there.scaleRate);
        Compare(out, "epoch", here.epoch, there.epoch);
    }
    if (here.fixedHeight != there.fixedHeight) {
        out.push_back(there.fixedHeight ? "fixedHeight is on there" : "fixedHeight is off there");
    } else if (here.fixedHeight) {
        Compare(out, "fixedHeight forward", here.fixedHeightForward, there.fixedHeightForward);
        Compare(out, "fixedHeight reverse", here.fixedHeightReverse, there.fixedHeightReverse);
    }
    return out;
}

DatumParameters ReadContent(const Reading& reading, const JsonNode& node, const std::string& method,
                            const std::optional<EllipsoidParameters>& local,
                            const std::optional<DatumParameters>& known)
{
    DatumParameters datum;
    datum.method = method;
    // A description that is not given is that of the known record, if there is one.
    datum.description = node["description"].Text().value_or("");
    datum.description = datum.description.empty() && known ? known->description : datum.description;
    datum.on = CString::FromUtf8(method) != kNoTransformation;
    if (!datum.on) {
        RefuseParameters(node);
        return datum;
    }
    if (!node["source"].Complain("the satellite ellipsoid, {\"name\": \"WGS84\"} as a rule")) {
        datum.source = ReadEllipsoid(reading, node["source"]).value_or(datum.source);
    }
    ReadTarget(reading, node["target"], local);
    datum.target = local.value_or(datum.target);
    datum.shift = node["shift"].RequiredTriple("m").value_or(datum.shift);
    datum.rotation = node["rotation"].RequiredTriple("arcsec").value_or(datum.rotation);
    datum.scale = node["scale"].RequiredMeasure(kScale, "ppm").value_or(0.0);
    ReadFixedHeight(node["fixedHeight"], datum);
    if (known && Moves(method) && Moves(known->method) && !known->moves && !node["rates"].Given()) {
        datum.epoch = known->epoch; // of no effect without rates
    } else {
        ReadRates(node["rates"], datum);
    }
    datum.moves = datum.shiftRate != std::array<double, 3>{} || datum.rotationRate != std::array<double, 3>{} ||
                  datum.scaleRate != 0.0;
    return datum;
}

std::optional<DatumParameters> Reused(const Reading& reading, const JsonNode& node, const DatumParameters& known,
                                      const std::optional<EllipsoidParameters>& local)
{
    if (known.on && local && known.target.name != local->name) {
        node.Fault(fmt::format("\"{}\" leads to the ellipsoid \"{}\" and the system's is \"{}\"; name another "
                               "transformation, or that ellipsoid",
                               known.name, known.target.name, local->name));
        return std::nullopt;
    }
    reading.remarks.push_back(fmt::format("the datum transformation \"{}\" is that of {}", known.name,
                                          FileOfRecord(reading.session.Files(), kDatumPrefix, known.name)));
    return known;
}

} // namespace

std::optional<DatumParameters> ReadDatum(const Reading& reading, const JsonNode& node,
                                         const std::optional<EllipsoidParameters>& local)
{
    if (!node.IsObjectOf({"name", "method", "description", "source", "target", "shift", "rotation", "scale", "rates",
                          "fixedHeight"})) {
        return std::nullopt;
    }
    const auto name = reading.Name(node["name"], kDatumPrefix);
    const auto known = name ? DatumInDatabase(reading.session, *name) : std::nullopt;
    if (known && OnlyNamed(node)) {
        return Reused(reading, node, *known, local);
    }
    const std::string methods = fmt::format("one of {}", fmt::join(kDatumMethods, ", "));
    const auto method = node["method"].RequiredText(methods.c_str());
    if (!method) {
        return std::nullopt;
    }
    if (std::find(kDatumMethods.begin(), kDatumMethods.end(), *method) == kDatumMethods.end()) {
        node["method"].Fault(fmt::format("there is no method \"{}\"; right is {}", *method, methods));
        return std::nullopt;
    }
    DatumParameters datum = ReadContent(reading, node, *method, local, known);
    if (!name) {
        return std::nullopt;
    }
    datum.name = *name;
    if (!known) {
        reading.remarks.push_back(fmt::format("new datum transformation \"{}\"", *name));
        return datum;
    }
    if (const auto differences = Differences(datum, *known); !differences.empty()) {
        TakenFault(node, "datum transformation", *name, FileOfRecord(reading.session.Files(), kDatumPrefix, *name),
                   differences);
        return std::nullopt;
    }
    return Reused(reading, node, *known, local);
}
