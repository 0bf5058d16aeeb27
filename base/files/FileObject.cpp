#include "base/files/FileObject.h"

#include <array>
#include <charconv>
#include <filesystem>
#include <iterator>
#include <limits>
#include <string_view>
#include <system_error>
#include <type_traits>

#include "base/files/SectionContents.h"
#include "base/files/SectionFileStore.h"
#include "base/files/SplitPath.h"
#include "base/files/WellFormed.h"
#include "base/platform/Platform.h"
#include "base/text/Numbers.h"

namespace {

// A cursor's section while it walks over the sections themselves.
constexpr std::size_t kAllSections = std::numeric_limits<std::size_t>::max();

// The text as UTF-8, valid until the next call in this thread. A look-up allocates nothing once
// the buffer has grown.
std::string_view Utf8(const CString& text)
{
    thread_local std::string buffer;
    buffer.clear();
    text.AppendUtf8To(buffer);
    return buffer;
}

bool FromText(std::string_view text, std::string& value)
{
    value = text;
    return true;
}

bool FromText(std::string_view text, CString& value)
{
    value = CString::FromUtf8(text);
    return true;
}

template <typename Number>
requires std::is_arithmetic_v<Number>
bool FromText(std::string_view text, Number& value)
{
    return numbers::Read(text, value);
}

// Absolute, so that a later change of the working directory does not lead a save elsewhere.
CString FullName(const CString& path)
{
    std::error_code error;
    const std::filesystem::path full = std::filesystem::absolute(platform::NativePath(path), error);
    return error ? path : platform::TextOf(full);
}

} // namespace

struct FileObject::Impl {
    CopyOnWrite<SectionContents> contents = CopyOnWrite<SectionContents>::Make();
    CString name;
    bool initialised = false;
    bool throwing = false;
    // Of the last FileOpen or FileSave.
    FileErrorCode error = FileErrorCode::none;
    CString errorText;
    int errorLine = 0;
    // The file that the last FileOpen could not read, unless for what stands in it.
    CString unread;

    template <typename Value>
    bool Get(const CString& section, const CString& key, Value& value) const;
    bool Set(const CString& section, const CString& key, std::string_view value, bool create);
    bool SetWide(const CString& section, const CString& key, const CString& value, bool create);
    template <typename Integer>
    bool SetInteger(const CString& section, const CString& key, Integer value, bool create);

    const StoredText* Find(const CString& section, const CString& key) const;
    std::size_t FindSection(const CString& section) const;
    CString Missed(const CString& section, const CString& key, const StoredText* text) const;

    bool Succeed();
    bool Fail(const CString& path, const SectionFileFailure& failure);
    bool CheckName(const CString& path, FileErrorCode code);
};

// An ill-formed name would be found under the one that the conversion makes of it.
std::size_t FileObject::Impl::FindSection(const CString& section) const
{
    return IsWellFormed(section.View()) ? contents->Find(Utf8(section)) : SectionContents::kNone;
}

const StoredText* FileObject::Impl::Find(const CString& section, const CString& key) const
{
    const std::size_t position = FindSection(section);
    return position == SectionContents::kNone || !IsWellFormed(key.View()) ? nullptr
                                                                           : contents->FindIn(position, Utf8(key));
}

template <typename Value>
bool FileObject::Impl::Get(const CString& section, const CString& key, Value& value) const
{
    const StoredText* text = Find(section, key);
    if (text != nullptr && FromText(text->Get(), value)) {
        return true;
    }
    if (throwing) {
        throw Missed(section, key, text);
    }
    return false;
}

CString FileObject::Impl::Missed(const CString& section, const CString& key, const StoredText* text) const
{
    CString message = name.IsEmpty() ? CString() : name + L": ";
    message += L"section \"" + section + L"\", key \"" + key + L"\": ";
    if (text == nullptr) {
        return message + L"not there";
    }
    return message + L"\"" + CString::FromUtf8(text->Get()) + L"\" is no value of the type that is read";
}

bool FileObject::Impl::Set(const CString& section, const CString& key, std::string_view value, bool create)
{
    const StoredText* present = Find(section, key);
    if (present == nullptr && !create) {
        return false;
    }
    if (present != nullptr && present->Get() == value) {
        return true;
    }
    const std::string sectionText = section.ToUtf8();
    const std::string keyText = key.ToUtf8();
    if (!IsWellFormed(value) || !IsWellFormed(section.View()) || !IsWellFormed(key.View()) ||
        sectionText.size() + keyText.size() + value.size() > kMaxSectionFile) {
        return false;
    }
    contents.Change().Set(sectionText, keyText, value);
    return true;
}

bool FileObject::Impl::SetWide(const CString& section, const CString& key, const CString& value, bool create)
{
    return IsWellFormed(value.View()) && Set(section, key, value.ToUtf8(), create);
}

template <typename Integer>
bool FileObject::Impl::SetInteger(const CString& section, const CString& key, Integer value, bool create)
{
    std::array<char, std::numeric_limits<Integer>::digits10 + 3> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value);
    return Set(section, key, {text.data(), end.ptr}, create);
}

bool FileObject::Impl::Succeed()
{
    error = FileErrorCode::none;
    errorText.Empty();
    errorLine = 0;
    return true;
}

bool FileObject::Impl::Fail(const CString& path, const SectionFileFailure& failure)
{
    error = failure.code;
    errorLine = failure.line;
    errorText = path + L": ";
    if (failure.line > 0) {
        errorText.AppendFormat(L"line %d: ", failure.line);
    }
    errorText += failure.reason;
    return false;
}

// The system would take a name with a zero in it for a shorter one.
bool FileObject::Impl::CheckName(const CString& path, FileErrorCode code)
{
    if (path.IsEmpty()) {
        return Fail(L"file", {{code, L"it has no name"}});
    }
    if (path.Find(L'\0') >= 0) {
        return Fail(path, {{code, L"a file name cannot hold a zero"}});
    }
    return true;
}

FileObject::FileObject() : m_impl(std::make_unique<Impl>()) {}

FileObject::FileObject(const FileObject& other) : m_impl(std::make_unique<Impl>(*other.m_impl)) {}

FileObject& FileObject::operator=(const FileObject& other)
{
    *m_impl = *other.m_impl;
    return *this;
}

FileObject::~FileObject() = default;

bool FileObject::GetItem(const CString& section, const CString& key, std::string& value) const
{
    return m_impl->Get(section, key, value);
}

bool FileObject::GetItem(const CString& section, const CString& key, unsigned long& value) const
{
    return m_impl->Get(section, key, value);
}

bool FileObject::GetItem(const CString& section, const CString& key, CString& value) const
{
    return m_impl->Get(section, key, value);
}

bool FileObject::GetItem(const CString& section, const CString& key, unsigned long long& value) const
{
    return m_impl->Get(section, key, value);
}

bool FileObject::GetItem(const CString& section, const CString& key, long long& value) const
{
    return m_impl->Get(section, key, value);
}

bool FileObject::GetItem(const CString& section, const CString& key, float& value) const
{
    return m_impl->Get(section, key, value);
}

bool FileObject::GetItem(const CString& section, const CString& key, double& value) const
{
    return m_impl->Get(section, key, value);
}

bool FileObject::GetItem(const CString& section, const CString& key, bool& value) const
{
    return m_impl->Get(section, key, value);
}

bool FileObject::GetItem(const CString& section, const CString& key, unsigned int& value) const
{
    return m_impl->Get(section, key, value);
}

bool FileObject::GetItem(const CString& section, const CString& key, int& value) const
{
    return m_impl->Get(section, key, value);
}

bool FileObject::GetItem(const CString& section, const CString& key, long& value) const
{
    return m_impl->Get(section, key, value);
}

bool FileObject::SetItem(const CString& section, const CString& key, const std::string& value, bool create)
{
    return m_impl->Set(section, key, value, create);
}

bool FileObject::SetItem(const CString& section, const CString& key, const CStringA& value, bool create)
{
    return m_impl->Set(section, key, value.View(), create);
}

bool FileObject::SetItem(const CString& section, const CString& key, const char* value, bool create)
{
    return m_impl->Set(section, key, value == nullptr ? "" : value, create);
}

bool FileObject::SetItem(const CString& section, const CString& key, const CString& value, bool create)
{
    return m_impl->SetWide(section, key, value, create);
}

bool FileObject::SetItem(const CString& section, const CString& key, const wchar_t* value, bool create)
{
    return m_impl->SetWide(section, key, value, create);
}

bool FileObject::SetItem(const CString& section, const CString& key, unsigned long value, bool create)
{
    return m_impl->SetInteger(section, key, value, create);
}

bool FileObject::SetItem(const CString& section, const CString& key, unsigned long long value, bool create)
{
    return m_impl->SetInteger(section, key, value, create);
}

bool FileObject::SetItem(const CString& section, const CString& key, long long value, bool create)
{
    return m_impl->SetInteger(section, key, value, create);
}

bool FileObject::SetItem(const CString& section, const CString& key, double value, bool create)
{
    return m_impl->Set(section, key, numbers::ToText(value), create);
}

bool FileObject::SetItem(const CString& section, const CString& key, bool value, bool create)
{
    return m_impl->Set(section, key, value ? "1" : "0", create);
}

bool FileObject::SetItem(const CString& section, const CString& key, unsigned int value, bool create)
{
    return m_impl->SetInteger(section, key, value, create);
}

bool FileObject::SetItem(const CString& section, const CString& key, int value, bool create)
{
    return m_impl->SetInteger(section, key, value, create);
}

bool FileObject::SetItem(const CString& section, const CString& key, long value, bool create)
{
    return m_impl->SetInteger(section, key, value, create);
}

int FileObject::GetErrorStatus() const
{
    return static_cast<int>(m_impl->error);
}

bool FileObject::ApplyDifference(const FileObject& difference)
{
    const std::shared_ptr<const SectionContents> changes = difference.m_impl->contents.Share();
    if (changes.get() == &*m_impl->contents) {
        return true;
    }
    SectionContents& contents = m_impl->contents.Change();
    for (std::size_t i = 0; i < changes->SectionCount(); ++i) {
        const Section& section = changes->At(i);
        if (contents.Find(section.name.Get()) == SectionContents::kNone) {
            contents.Add({StoredText::CopyOf(section.name.Get()), {}});
        }
        for (const SectionEntry& entry : section.entries) {
            contents.Set(section.name.Get(), entry.key.Get(), entry.value.Get());
        }
    }
    return true;
}

bool FileObject::AfterFileOpen()
{
    return true;
}

bool FileObject::FileOpen(const CString& path, unsigned mode)
{
    FileClose();
    const bool create = (mode & FileMode::create) != 0;
    if (!m_impl->CheckName(path, create ? FileErrorCode::notWritable : FileErrorCode::notFound)) {
        return false;
    }
    const CString name = FullName(path);
    const bool denyWrite = (mode & (FileMode::shareDenyWrite | FileMode::shareExclusive)) != 0;
    // What was missing or in use a moment ago and has contents now is somebody's work, not in the way.
    const bool setAside = m_impl->unread != name;
    m_impl->unread.Empty();
    SectionFileFailure failure;
    if (create ? !section_files::Create(name, setAside, failure)
               : !section_files::Load(name, denyWrite, m_impl->contents, failure)) {
        if (!create && failure.code != FileErrorCode::malformed) {
            m_impl->unread = name;
        }
        return m_impl->Fail(name, failure);
    }
    m_impl->name = name;
    m_impl->initialised = true;
    m_impl->Succeed();
    if (!create && !AfterFileOpen()) {
        FileClose();
        return m_impl->Fail(name, {{FileErrorCode::refused, L"its contents were refused"}});
    }
    return true;
}

bool FileObject::FileSave(const CString& path, unsigned mode) const
{
    const CString& asked = path.IsEmpty() ? m_impl->name : path;
    if (!m_impl->CheckName(asked, FileErrorCode::notWritable)) {
        return false;
    }
    const CString name = FullName(asked);
    SectionFileFailure failure;
    return section_files::Store(name, m_impl->contents, (mode & FileMode::shareExclusive) != 0, failure)
               ? m_impl->Succeed()
               : m_impl->Fail(name, failure);
}

void FileObject::FileClose()
{
    m_impl->contents = CopyOnWrite<SectionContents>::Make();
    m_impl->initialised = false;
    m_impl->name.Empty();
}

bool FileObject::FileInitialised() const
{
    return m_impl->initialised;
}

CString FileObject::GetFileName() const
{
    return m_impl->name;
}

CString FileObject::GetFileTitle() const
{
    CString directory;
    CString title;
    CString extension;
    SplitPath(m_impl->name, directory, title, extension);
    return title;
}

CString FileObject::GetErrorText() const
{
    return m_impl->errorText;
}

int FileObject::GetErrorLine() const
{
    return m_impl->errorLine;
}

bool FileObject::HasSection(const CString& section) const
{
    return m_impl->FindSection(section) != SectionContents::kNone;
}

bool FileObject::HasKey(const CString& section, const CString& key) const
{
    return m_impl->Find(section, key) != nullptr;
}

bool FileObject::CreateSection(const CString& section, bool keepExisting)
{
    if (HasSection(section)) {
        return keepExisting;
    }
    if (!IsWellFormed(section.View())) {
        return false;
    }
    m_impl->contents.Change().Add({StoredText::CopyOf(section.ToUtf8()), {}});
    return true;
}

bool FileObject::DeleteSection(const CString& section)
{
    const std::size_t position = m_impl->FindSection(section);
    if (position == SectionContents::kNone) {
        return false;
    }
    m_impl->contents.Change().Remove(position);
    return true;
}

bool FileObject::DeleteItem(const CString& section, const CString& key, bool deleteEmptySection)
{
    const std::size_t position = m_impl->FindSection(section);
    if (position == SectionContents::kNone || !HasKey(section, key)) {
        return false;
    }
    SectionContents& contents = m_impl->contents.Change();
    contents.Remove(position, key.ToUtf8());
    if (deleteEmptySection && contents.At(position).entries.Size() == 0) {
        contents.Remove(position);
    }
    return true;
}

bool FileObject::GetFirstSectionEntry(FobjSection& cursor, CString& name) const
{
    cursor.m_contents = m_impl->contents.Share();
    cursor.m_section = kAllSections;
    cursor.m_next = 0;
    return GetNextSectionEntry(cursor, name);
}

bool FileObject::GetNextSectionEntry(FobjSection& cursor, CString& name) const
{
    const auto* contents = static_cast<const SectionContents*>(cursor.m_contents.get());
    if (contents == nullptr || cursor.m_section != kAllSections) {
        return false;
    }
    if (cursor.m_next >= contents->SectionCount()) {
        cursor.m_contents.reset(); // the next change need not copy what nobody walks over
        return false;
    }
    name = CString::FromUtf8(contents->At(cursor.m_next++).name.Get());
    return true;
}

bool FileObject::GetFirstMapEntry(FobjSection& cursor, const CString& section, CString& key, CString& value) const
{
    cursor.m_contents.reset();
    const std::size_t position = m_impl->FindSection(section);
    if (position == SectionContents::kNone) {
        return false;
    }
    cursor.m_contents = m_impl->contents.Share();
    cursor.m_section = position;
    cursor.m_next = 0;
    return GetNextMapEntry(cursor, key, value);
}

bool FileObject::GetNextMapEntry(FobjSection& cursor, CString& key, CString& value) const
{
    const auto* contents = static_cast<const SectionContents*>(cursor.m_contents.get());
    if (contents == nullptr || cursor.m_section == kAllSections) {
        return false;
    }
    const NamedList<SectionEntry>& entries = contents->At(cursor.m_section).entries;
    if (cursor.m_next >= entries.Size()) {
        cursor.m_contents.reset();
        return false;
    }
    const SectionEntry& entry = entries[cursor.m_next++];
    key = CString::FromUtf8(entry.key.Get());
    value = CString::FromUtf8(entry.value.Get());
    return true;
}

void FileObject::ThrowExceptions(bool on)
{
    m_impl->throwing = on;
}
