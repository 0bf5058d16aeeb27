#include "base/geoid/GridReader.h"

#include <algorithm>
#include <new>

#include "base/geoid/BritishTextGrid.h"
#include "base/geoid/GtxGrid.h"
#include "base/geoid/Ntv2Grid.h"
#include "base/geoid/PgmGeoid.h"

namespace {

bool IsNtv2(const GridBytes& contents)
{
    return contents.Text().starts_with("NUM_OREC");
}

bool IsPgm(const GridBytes& contents)
{
    return contents.Text().starts_with("P5\n");
}

/// The header of a GTX grid has zero bytes: its numbers of rows and columns are no thousand millions.
bool IsText(const GridBytes& contents)
{
    constexpr std::size_t kLooked = 40;
    const std::string_view beginning = contents.Text().substr(0, kLooked);
    return std::none_of(beginning.begin(), beginning.end(), [](char c) {
        return static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\r' && c != '\n';
    });
}

bool IsAny(const GridBytes&)
{
    return true;
}

template <typename Format>
std::unique_ptr<const CorrectionGrid> LoadAs(const GridBytes& contents, CString& reason)
{
    return Format::Load(contents, reason);
}

struct Format {
    const wchar_t* as; ///< how a refusal begins
    bool (*is)(const GridBytes& contents);
    std::unique_ptr<const CorrectionGrid> (*load)(const GridBytes& contents, CString& reason);
};
constexpr Format kFormats[] = {
    {L"as an NTv2 grid: ", IsNtv2, LoadAs<Ntv2Grid>},
    {L"as a PGM geoid: ", IsPgm, LoadAs<PgmGeoid>},
    {L"as a British text grid, as which any text is read: ", IsText, LoadAs<BritishTextGrid>},
    {L"as a GTX grid, as which is read what is no text and has no mark of NTv2 or PGM: ", IsAny, LoadAs<GtxGrid>}};

} // namespace

std::unique_ptr<const CorrectionGrid> ReadGrid(const GridBytes& contents, CString& reason)
try {
    if (contents.Size() == 0) {
        reason = L"it is empty";
        return nullptr;
    }
    const Format& format =
        *std::find_if(std::begin(kFormats), std::end(kFormats), [&](const Format& row) { return row.is(contents); });
    CString fault;
    auto grid = format.load(contents, fault);
    if (!grid) {
        reason = format.as + fault;
    }
    return grid;
} catch (const std::bad_alloc&) {
    reason = L"there is not enough memory for it";
    return nullptr;
}
