#include "system/SavedSystem.h"

#include <cmath>

#include <fmt/format.h>

#include "DatabaseText.h"
#include "SystemOpener.h"
#include "ToolDesk.h"
#include "ToolError.h"
#include "base/files/CFile.h"
#include "show/SystemJson.h"
#include "show/TextSheet.h"
#include "system/JsonFile.h"
#include "system/JsonPointer.h"

namespace {

using Json = nlohmann::ordered_json;

constexpr double kSameNumber = 1e-12; // of the number; a squared eccentricity was a root in between
constexpr double kPole = 90.0;
constexpr double kOffPole = 1e-10; // degrees; a pole is stored so far from it
constexpr double kAnyTime = 1.0;   // milliseconds since 1970; 0 would be the present moment
constexpr int kEqual = 1;

[[noreturn]] void NotSaved(const std::string& why)
{
    throw ToolError(ExitStatus::inputOutput,
                    fmt::format("the system was not saved: {}; see that the directory of the user database can be "
                                "written and has room",
                                why));
}

bool SameNumber(double wanted, double found)
{
    const double tolerance =
        std::max(kSameNumber * std::fabs(wanted), std::fabs(wanted) == kPole ? 2.0 * kOffPole : 0.0);
    return std::fabs(wanted - found) <= tolerance;
}

/// The first place where two values differ; nothing when they do not.
std::optional<std::string> Difference(const Json& wanted, const Json& found, const std::string& pointer)
{
    if (wanted.is_number() && found.is_number()) {
        return SameNumber(wanted.get<double>(), found.get<double>()) ? std::nullopt : std::optional(pointer);
    }
    if (wanted.type() != found.type() || (wanted.is_structured() && wanted.size() != found.size())) {
        return pointer;
    }
    if (!wanted.is_structured()) {
        return wanted == found ? std::nullopt : std::optional(pointer);
    }
    auto other = found.begin();
    std::size_t index = 0;
    for (auto it = wanted.begin(); it != wanted.end(); ++it, ++other, ++index) {
        const std::string step = wanted.is_object() ? PointerTo(it.key()) : PointerTo(index);
        if (auto difference = Difference(*it, *other, pointer + step)) {
            return difference;
        }
    }
    return std::nullopt;
}

/// The settings whose files need not be here.
Json WithoutModels(Json json)
{
    json.erase("geoid");
    json["postCorrections"].erase("model");
    return json;
}

void CompareModels(ZorGeoDatabaseBase& database, const SystemParameters& wanted)
{
    const CString group = CString::FromUtf8(wanted.group);
    const CString system = CString::FromUtf8(wanted.system);
    const GeoidParameters& geoid = wanted.geoid;
    const bool same = database.HasGeoidModel(group, system) == !geoid.method.empty() &&
                      database.GetDefaultGeoidModelMd(group, system).ToUtf8() == geoid.method &&
                      database.GetDefaultGeoidGrid(group, system).ToUtf8() == geoid.grid &&
                      database.GetGeoidManualSeparation(group, system) == geoid.separation.value_or(0.0) &&
                      database.GetDefaultGridCorrectionModel(group, system).ToUtf8() == wanted.post.model &&
                      database.GetDefaultGridCorrectionFile(group, system).ToUtf8() == wanted.post.file;
    if (!same) {
        NotSaved("its geoid or post model is not the same in the database");
    }
}

/// The module's three tests of equality. That of a transformation with 7 parameters takes one with
/// a description for another one, always; the comparison of every part stands in for it.
void CompareByModule(ZorGeoDatabaseBase& database, ZorGeoStaticDataBase& record, const DatumParameters& datum)
{
    if (!database.IsSystemCustom(record.GetGroupName(), record.GetSysName())) {
        NotSaved("its group does not list it");
    }
    if (record.CheckSystemIsEqual(&database) != kEqual) {
        NotSaved("its record is not the same in the database");
    }
    if (record.CheckProjectionIsEqual(&database) != kEqual) {
        NotSaved("its projection is not the same in the database");
    }
    const bool described = datum.on && !datum.description.empty();
    if (!described && record.CheckDtfIsEqual(&database) != kEqual) {
        NotSaved("its datum transformation is not the same in the database");
    }
}

void Convert(const SystemParameters& system, const OpenedSystem& opened)
{
    for (const Place& place : ExamplePlaces(system)) {
        double east = std::nan("");
        double north = std::nan("");
        opened.coordSys->SatGeoToGrid(place.latitude, place.longitude, east, north, kAnyTime);
        double latitude = std::nan("");
        double longitude = std::nan("");
        opened.coordSys->GridToSatGeo(east, north, latitude, longitude, kAnyTime);
        if (!std::isfinite(east) || !std::isfinite(north) || !std::isfinite(latitude) || !std::isfinite(longitude)) {
            throw ToolError(ExitStatus::unusable,
                            fmt::format("with these parameters the system converts {}, {} to no numbers; look at the "
                                        "projection's parameters",
                                        place.latitude, place.longitude));
        }
    }
}

void Verify(Session& session, const NewSystem& wanted, ZorGeoStaticDataBase& record)
{
    session.Reopen();
    ZorGeoDatabaseBase& database = session.Database();
    CompareByModule(database, record, wanted.parameters.datum);
    CompareModels(database, wanted.parameters);
    SystemRequest request;
    request.group = wanted.parameters.group;
    request.system = wanted.parameters.system;
    request.geoidModel = kNoModel.ToUtf8();
    request.postModel = kNoModel.ToUtf8();
    const OpenedSystem opened = OpenSystem(session, request);
    SystemParameters plain = wanted.parameters;
    plain.description.clear();
    const auto difference =
        Difference(WithoutModels(SystemJson(plain)), WithoutModels(SystemJson(ReadSystem(session, opened))), "");
    if (difference) {
        NotSaved(fmt::format("{} is not the same in the database", *difference));
    }
    Convert(wanted.parameters, opened);
}

} // namespace

UserDatabaseCopy::UserDatabaseCopy(const Session& session)
    : m_file(session.Files().User()), m_text(ReadWholeFile(m_file.GetFileName().ToUtf8()))
{
}

bool UserDatabaseCopy::PutBack() const
{
    const CString name = m_file.GetFileName();
    if (ReadWholeFile(name.ToUtf8()) == m_text) {
        return true;
    }
    CFileStatus status;
    const bool readOnly = CFile::GetStatus(name, status) && (status.attribute & CFileStatus::readOnly) != 0;
    try {
        if (readOnly) {
            status.attribute &= ~CFileStatus::readOnly;
            CFile::SetStatus(name, status);
        }
        const bool saved = m_file.FileSave(name, FileMode::saveExclusive);
        if (readOnly) {
            status.attribute |= CFileStatus::readOnly;
            CFile::SetStatus(name, status);
        }
        return saved;
    } catch (const CFileException&) {
        return false;
    }
}

void SaveAndVerify(Session& session, const NewSystem& system)
{
    session.Reopen(); // the user file exists from here on
    const UserDatabaseCopy before(session);
    const ToolDesk desk;
    const auto record = AuthoringRecordOf(session, system.parameters);
    try {
        if (!record->SaveDataToDB()) {
            NotSaved("the user database cannot be written");
        }
        Verify(session, system, *record);
    } catch (const ToolError& error) {
        if (!before.PutBack()) {
            throw ToolError(error.Status(),
                            fmt::format("{}; the user database could not be put back as it was either", error.what()));
        }
        throw;
    }
}
