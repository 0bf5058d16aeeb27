#pragma once

#include "base/files/CopyOnWrite.h"
#include "base/files/SectionContents.h"
#include "base/platform/Platform.h"

/// Why a section file could not be read or written.
struct SectionFileFailure : platform::FileFailure {
    int line = 0; ///< counted from 1; 0 when no line is at fault
};

/// Section files on the disk. Names are full names. Serves several threads: within this process
/// nobody reads while somebody writes. Nothing throws: also a lack of memory makes them false.
namespace section_files {

/// Reads a file; one that is as it was read or written last is not parsed again. With `denyWrite`
/// refused while another process holds it for exclusive writing and does not let go soon.
/// False, `contents` untouched, when it cannot be read or is no section file.
bool Load(const CString& name, bool denyWrite, CopyOnWrite<SectionContents>& contents, SectionFileFailure& failure);

/// Writes a file, as platform::ReplaceContents tells.
bool Store(const CString& name, const CopyOnWrite<SectionContents>& contents, bool exclusive,
           SectionFileFailure& failure);

/// Makes an empty file, as platform::CreateEmpty tells.
bool Create(const CString& name, bool setAside, SectionFileFailure& failure);

} // namespace section_files
