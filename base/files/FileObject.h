#pragma once

#include <memory>
#include <string>
#include <utility>

#include "base/Export.h"
#include "base/files/FileMode.h"
#include "base/files/FobjSection.h"
#include "base/text/CString.h"
#include "base/text/CStringA.h"

/// A section file: named sections of keys and text values, in memory, read from a file whole
/// and written to a file whole. The text form is told in docs/section-files.md.
///
/// Names of sections and keys are exact, capitals included. Order is kept. A copy shares the
/// contents until one of the two changes. An unchanged file (same path, size, time, inode) is
/// parsed once per process. An object is used by one thread at a time; different objects, also
/// copies of each other and objects on the same file, by different threads.
/// The order of the virtual operations is part of the interface.
class ZORBASE_API FileObject {
public:
    FileObject();
    FileObject(const FileObject&);
    FileObject& operator=(const FileObject&);

    virtual ~FileObject();

    /// Reads a value. False when the section or key is missing or its text is no such value; the
    /// output then keeps its value. In the exceptions mode a read that fails throws a CString by
    /// value that names file, section and key.
    virtual bool GetItem(const CString& section, const CString& key, std::string& value) const;
    virtual bool GetItem(const CString& section, const CString& key, unsigned long& value) const;
    virtual bool GetItem(const CString& section, const CString& key, CString& value) const;
    virtual bool GetItem(const CString& section, const CString& key, unsigned long long& value) const;
    virtual bool GetItem(const CString& section, const CString& key, long long& value) const;
    virtual bool GetItem(const CString& section, const CString& key, float& value) const;
    virtual bool GetItem(const CString& section, const CString& key, double& value) const;
    virtual bool GetItem(const CString& section, const CString& key, bool& value) const;
    virtual bool GetItem(const CString& section, const CString& key, unsigned int& value) const;
    virtual bool GetItem(const CString& section, const CString& key, int& value) const;
    virtual bool GetItem(const CString& section, const CString& key, long& value) const;

    /// Writes a value in memory and creates the section and the key when they are missing. With
    /// `create` false a missing section or key is left missing and the result is false.
    /// Doubles are written as the shortest text that reads back to the same bits. Narrow text is
    /// UTF-8, wide text has its surrogates in pairs; with text that has not, the result is false
    /// and nothing changes.
    virtual bool SetItem(const CString& section, const CString& key, const std::string& value, bool create);
    virtual bool SetItem(const CString& section, const CString& key, const CStringA& value, bool create);
    virtual bool SetItem(const CString& section, const CString& key, const char* value, bool create);
    virtual bool SetItem(const CString& section, const CString& key, const CString& value, bool create);
    virtual bool SetItem(const CString& section, const CString& key, const wchar_t* value, bool create);
    virtual bool SetItem(const CString& section, const CString& key, unsigned long value, bool create);
    virtual bool SetItem(const CString& section, const CString& key, unsigned long long value, bool create);
    virtual bool SetItem(const CString& section, const CString& key, long long value, bool create);
    virtual bool SetItem(const CString& section, const CString& key, double value, bool create);
    virtual bool SetItem(const CString& section, const CString& key, bool value, bool create);
    virtual bool SetItem(const CString& section, const CString& key, unsigned int value, bool create);
    virtual bool SetItem(const CString& section, const CString& key, int value, bool create);
    virtual bool SetItem(const CString& section, const CString& key, long value, bool create);

    /// 0 when the last FileOpen or FileSave succeeded, else a FileErrorCode.
    virtual int GetErrorStatus() const;
    /// Takes over every section and key of `difference`; what it does not name stays. True.
    virtual bool ApplyDifference(const FileObject& difference);

protected:
    /// Called at the end of a FileOpen that read the file; false makes that FileOpen fail.
    virtual bool AfterFileOpen();

public:
    /// Opens a file. Without FileMode::create (32) the file is read whole. False when it does not
    /// exist, cannot be read, is no section file, or, with shareDenyWrite, while another process
    /// holds it for exclusive writing and does not let go within a quarter of a second; the
    /// object is then closed and GetErrorText tells why.
    /// With FileMode::create (4097) a new, empty file takes the place of what there was. Contents
    /// are set aside, never given up: they stand in the same directory under the name with
    /// ".old-1" behind it, or the next free number. False when that fails or another process
    /// holds the file. False too, with the contents left where they are, when this object's last
    /// FileOpen could not read the same file for another reason than what stands in it: who opens
    /// and on failure creates is then no danger to a file that was in use or just came to be.
    /// The file's handle is given back before the call returns. An open object is closed first.
    bool FileOpen(const CString& path, unsigned mode);
    /// Writes the contents; an empty path means the file's own name. Atomic: after a failure or
    /// a crash at any moment the old or the new content stands whole. With shareExclusive the old
    /// file is held for exclusive writing meanwhile; the other bits of `mode` change nothing.
    /// False with the old file untouched and no temporary left when it cannot be written, when it
    /// is read-only (for the superuser too), or while another process holds it.
    bool FileSave(const CString& path, unsigned mode) const;
    /// Forgets contents and name.
    void FileClose();
    bool FileInitialised() const;
    CString GetFileName() const;
    CString GetFileTitle() const;
    /// Why the last FileOpen or FileSave failed: the file, the line if one is at fault, what is
    /// wrong. Empty after a success.
    CString GetErrorText() const;
    /// Line at fault of the last failed FileOpen, counted from 1; 0 when no line is at fault.
    int GetErrorLine() const;

    bool HasSection(const CString& section) const;
    bool HasKey(const CString& section, const CString& key) const;
    /// Creates an empty section at the end. When it exists: with `keepExisting` true the result
    /// is true and it stays as it is, with false the result is false. False for an unpaired
    /// surrogate.
    bool CreateSection(const CString& section, bool keepExisting);
    /// False when there is no such section.
    bool DeleteSection(const CString& section);
    /// Removes a key; with `deleteEmptySection` also the section when that was its last key.
    /// False when there is no such key.
    bool DeleteItem(const CString& section, const CString& key, bool deleteEmptySection);

    /// Walks over all section names in file order. False at the end, `name` untouched.
    bool GetFirstSectionEntry(FobjSection& cursor, CString& name) const;
    bool GetNextSectionEntry(FobjSection& cursor, CString& name) const;
    /// Walks over the keys of one section in file order. False at the end or when there is no
    /// such section or it has no key; the outputs are then untouched.
    bool GetFirstMapEntry(FobjSection& cursor, const CString& section, CString& key, CString& value) const;
    bool GetNextMapEntry(FobjSection& cursor, CString& key, CString& value) const;

    /// Switches the mode in which a GetItem that fails throws.
    void ThrowExceptions(bool on);

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};
