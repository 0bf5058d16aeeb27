#pragma once

#include <string>

#include "base/files/FileObject.h"

/// Names of the small database that the tests convert with. All systems are transverse Mercator
/// with the constants of UTM zone 31, in metres, on WGS84 without a datum transformation, where
/// the name does not say otherwise.
namespace test_names {
inline const char* const kGroup = "North Sea";
inline const char* const kPlain = "Plain UTM";
inline const char* const kMoved = "Moved datum";   // International 1924, shifts of ED50
inline const char* const kMoving = "Moving datum"; // 14 parameters, epoch 2020, 1 m a year in Z
inline const char* const kFeet = "Plain in feet";
inline const char* const kGeoid = "Fixed geoid";     // 45 m
inline const char* const kLost = "Lost geoid";       // a model file that is not there
inline const char* const kShift = "Post shifts";     // 10, 20, 1
inline const char* const kTwin = "Plain UTM - twin"; // contains the name of another
} // namespace test_names

/// Shift of the moved datum from WGS84, metres.
constexpr double kMovedShift[3] = {87.0, 98.0, 121.0};

/// Writes main database and catalogue into `directory`.
void WriteTestDatabase(const std::string& directory);

/// Opens a section file to change a record in it.
class EditedFile {
public:
    explicit EditedFile(const std::string& path);
    ~EditedFile(); ///< saves
    FileObject file;
};
