#include "base/geoid/GridFile.h"

#include <new>

#include "base/files/FileMode.h"
#include "base/geoid/GridReader.h"
#include "base/platform/MappedFile.h"

namespace {

bool ReadWhole(const platform::InputFile& file, std::size_t size, GridBytes& contents, platform::FileFailure& failure)
{
    std::vector<unsigned char> bytes(size);
    for (std::size_t done = 0; done < size;) {
        std::size_t count = 0;
        char* const into = reinterpret_cast<char*>(bytes.data()) + done; // NOLINT: bytes as characters
        if (!file.ReadAt(done, into, size - done, count, failure)) {
            return false;
        }
        if (count == 0) {
            failure = {FileErrorCode::notReadable, L"it became shorter while it was read"};
            return false;
        }
        done += count;
    }
    contents = GridBytes::Of(std::move(bytes));
    return true;
}

bool MapWhole(const platform::InputFile& file, GridBytes& contents, platform::FileFailure& failure)
{
    const auto mapped = std::make_shared<platform::MappedFile>();
    if (!mapped->Map(file, failure)) {
        return false;
    }
    contents = {mapped, mapped->Bytes()};
    return true;
}

bool ReadContents(const CString& name, GridBytes& contents, platform::FileFailure& failure)
{
    platform::InputFile file;
    platform::FileIdentity identity;
    if (!file.Open(name, true, failure) || !file.Identify(identity, failure)) {
        return false;
    }
    return identity.size <= kReadWhole ? ReadWhole(file, static_cast<std::size_t>(identity.size), contents, failure)
                                       : MapWhole(file, contents, failure);
}

} // namespace

std::unique_ptr<const CorrectionGrid> OpenGrid(const CString& file, CString& reason)
try {
    GridBytes contents;
    platform::FileFailure failure;
    if (!ReadContents(file, contents, failure)) {
        reason = failure.reason;
        return nullptr;
    }
    return ReadGrid(contents, reason);
} catch (const std::bad_alloc&) {
    reason = L"there is not enough memory for it";
    return nullptr;
}
