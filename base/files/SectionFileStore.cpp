#include "base/files/SectionFileStore.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <exception>
#include <memory>
#include <mutex>
#include <new>
#include <optional>
#include <shared_mutex>
#include <string>
#include <utility>

#include "base/files/FileMode.h"
#include "base/files/ParseCache.h"
#include "base/files/SectionReader.h"
#include "base/files/SectionWriter.h"

namespace section_files {

namespace {

using platform::FileIdentity;
using platform::InputFile;

constexpr int kAttempts = 4;
// The coarsest clock of a file system in use, FAT's, which counts in steps of two seconds.
constexpr std::int64_t kClockStep = 2'000'000'000; // nanoseconds

// An exclusive hold, which a save takes, also shuts out the other objects of this process.
std::shared_mutex& SaveMutex()
{
    static std::shared_mutex mutex;
    return mutex;
}

bool IsSettled(const FileIdentity& identity)
{
    using namespace std::chrono;
    const auto now = duration_cast<nanoseconds>(system_clock::now().time_since_epoch()).count();
    return now - std::max(identity.written, identity.changed) > kClockStep;
}

bool Refuse(FileErrorCode code, const CString& reason, SectionFileFailure& failure)
{
    failure.code = code;
    failure.reason = reason;
    return false;
}

// The result of `action`; false with `code` when it throws.
template <typename Action>
bool Guarded(FileErrorCode code, SectionFileFailure& failure, const Action& action)
{
    try {
        return action();
    } catch (const std::bad_alloc&) {
        return Refuse(code, L"out of memory", failure);
    } catch (const std::exception&) { // such as the source of random names that is not there
        return Refuse(code, L"the system refused a resource", failure);
    }
}

/// One reading of one file.
class Reading {
public:
    Reading(const CString& name, SectionFileFailure& failure) : m_name(name), m_failure(failure) {}

    bool Open(bool denyWrite);
    /// The contents that are kept of an earlier reading, when the file is still the same.
    bool TakeKept(CopyOnWrite<SectionContents>& contents);
    bool ReadText();
    /// False also when the file changed since it was opened.
    bool IsUnchanged();
    bool Parse(CopyOnWrite<SectionContents>& contents);

private:
    bool HasText(const std::string& text);

    const CString& m_name;
    SectionFileFailure& m_failure;
    InputFile m_file;
    FileIdentity m_identity;
    bool m_settled = false;
    std::shared_ptr<const std::string> m_text;
};

bool Reading::Open(bool denyWrite)
{
    if (!m_file.Open(m_name, denyWrite, m_failure) || !m_file.Identify(m_identity, m_failure)) {
        return false;
    }
    m_settled = IsSettled(m_identity);
    return m_identity.size <= kMaxSectionFile ||
           Refuse(FileErrorCode::notReadable, L"it is larger than 1 GiB", m_failure);
}

bool Reading::TakeKept(CopyOnWrite<SectionContents>& contents)
{
    std::optional<ParsedFile> kept = ParseCache::Get().Find(m_name);
    if (!kept || kept->identity.size != m_identity.size) {
        return false;
    }
    // Two changes within one step of the file system's clock look alike from outside, so a young
    // file is compared by its bytes; so is one that was copied back or had its attributes changed.
    const bool sameIdentity = kept->settled && kept->identity == m_identity;
    if (!sameIdentity) {
        if (!HasText(*kept->text) || !IsUnchanged()) {
            return false;
        }
        kept->identity = m_identity;
        kept->settled = m_settled;
    }
    contents = kept->contents;
    if (!sameIdentity) {
        ParseCache::Get().Keep(m_name, std::move(*kept));
    }
    return true;
}

bool Reading::HasText(const std::string& text)
{
    std::array<char, std::size_t{1} << 16> piece;

    std::size_t compared = 0;
    for (std::size_t count = 1; count > 0; compared += count) {
        if (!m_file.ReadAt(compared, piece.data(), piece.size(), count, m_failure) ||
            text.compare(compared, count, piece.data(), count) != 0) {
            return false;
        }
    }
    return compared == text.size();
}

bool Reading::ReadText()
{
    // One byte more than the file holds: a file that has grown is seen.
    auto text = std::make_shared<std::string>(static_cast<std::size_t>(m_identity.size) + 1, '\0');
    std::size_t size = 0;
    for (std::size_t count = 1; count > 0 && size < text->size(); size += count) {
        if (!m_file.ReadAt(size, text->data() + size, text->size() - size, count, m_failure)) {
            return false;
        }
    }
    text->resize(size);
    m_text = std::move(text);
    return true;
}

bool Reading::IsUnchanged()
{
    FileIdentity now;
    return m_file.Identify(now, m_failure) && now == m_identity;
}

bool Reading::Parse(CopyOnWrite<SectionContents>& contents)
{
    SectionContents read;
    TextFault fault;
    if (!SectionReader(m_text).Read(read, fault)) {
        m_failure.line = fault.line;
        return Refuse(FileErrorCode::malformed, fault.reason, m_failure);
    }
    contents = CopyOnWrite<SectionContents>::Make(std::move(read));
    ParseCache::Get().Keep(m_name, {m_identity, m_settled, m_text, contents});
    return true;
}

bool Read(const CString& name, bool denyWrite, CopyOnWrite<SectionContents>& contents, SectionFileFailure& failure)
{
    const std::shared_lock noSave(SaveMutex());
    for (int i = 0; i < kAttempts; ++i) {
        Reading reading(name, failure);
        if (!reading.Open(denyWrite)) {
            return false;
        }
        if (reading.TakeKept(contents)) {
            return true;
        }
        if (!reading.ReadText()) {
            return false;
        }
        if (reading.IsUnchanged()) {
            return reading.Parse(contents);
        }
    }
    return Refuse(FileErrorCode::inUse, L"it changes while it is read", failure);
}

bool Write(const CString& name, const CopyOnWrite<SectionContents>& contents, bool exclusive,
           SectionFileFailure& failure)
{
    const auto text = std::make_shared<const std::string>(WriteSections(*contents));
    if (text->size() > kMaxSectionFile) {
        return Refuse(FileErrorCode::notWritable, L"it would be larger than 1 GiB", failure);
    }
    const std::unique_lock alone(SaveMutex());
    if (!platform::ReplaceContents(name, *text, exclusive, failure)) {
        return false;
    }
    // The next reading compares the text and takes the file's identity over.
    FileIdentity identity;
    identity.size = text->size();
    ParseCache::Get().Keep(name, {identity, false, text, contents});
    return true;
}

} // namespace

bool Load(const CString& name, bool denyWrite, CopyOnWrite<SectionContents>& contents, SectionFileFailure& failure)
{
    return Guarded(FileErrorCode::notReadable, failure, [&] { return Read(name, denyWrite, contents, failure); });
}

bool Store(const CString& name, const CopyOnWrite<SectionContents>& contents, bool exclusive,
           SectionFileFailure& failure)
{
    return Guarded(FileErrorCode::notWritable, failure, [&] { return Write(name, contents, exclusive, failure); });
}

bool Create(const CString& name, bool setAside, SectionFileFailure& failure)
{
    return Guarded(FileErrorCode::notWritable, failure, [&] {
        const std::unique_lock alone(SaveMutex());
        return platform::CreateEmpty(name, setAside, failure);
    });
}

} // namespace section_files
