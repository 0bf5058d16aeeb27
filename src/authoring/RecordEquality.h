#pragma once

/// What CheckSystemIsEqual, CheckProjectionIsEqual and CheckDtfIsEqual of an authoring record
/// answer. (The numbers are part of the interface.)
namespace RecordEquality {
enum Answer : int { differs = 0, equal = 1, noRecord = 2 };
}
