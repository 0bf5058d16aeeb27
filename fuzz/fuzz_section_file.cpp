// Property: a text that is a section file, written and read again, gives the same contents; and
// what is written is written the same again.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "base/files/SectionReader.h"
#include "base/files/SectionWriter.h"

namespace {

void Require(bool holds, const char* what)
{
    if (!holds) {
        std::fprintf(stderr, "fuzz_section_file: %s\n", what);
        std::abort();
    }
}

bool Read(const std::string& text, SectionContents& contents)
{
    TextFault fault;
    const bool read = SectionReader(std::make_shared<const std::string>(text)).Read(contents, fault);
    Require(read || (fault.line > 0 && !fault.reason.IsEmpty()), "a refusal without line or reason");
    return read;
}

bool Same(const Section& a, const Section& b)
{
    if (a.name.Get() != b.name.Get() || a.entries.Size() != b.entries.Size()) {
        return false;
    }
    for (std::size_t i = 0; i < a.entries.Size(); ++i) {
        if (a.entries[i].key.Get() != b.entries[i].key.Get() || a.entries[i].value.Get() != b.entries[i].value.Get() ||
            a.entries.Find(a.entries[i].key.Get()) != i) {
            return false;
        }
    }
    return true;
}

bool Same(const SectionContents& a, const SectionContents& b)
{
    if (a.SectionCount() != b.SectionCount()) {
        return false;
    }
    for (std::size_t i = 0; i < a.SectionCount(); ++i) {
        if (!Same(a.At(i), b.At(i)) || a.Find(a.At(i).name.Get()) != i) {
            return false;
        }
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    SectionContents first;
    if (!Read(std::string(data, data + size), first)) {
        return 0;
    }
    const std::string written = WriteSections(first);
    SectionContents second;
    Require(Read(written, second), "what was written cannot be read");
    Require(Same(first, second), "what was written reads back otherwise");
    Require(WriteSections(second) == written, "the second writing differs from the first");
    return 0;
}
