// Descriptions of whole systems as text, with their geoid model and post corrections.

#include <span>

#include "database/RecordReaders.h"
#include "database/ZorGeoDatabase.h"
#include "frame/DescriptionText.h"
#include "frame/RecordNames.h"

/// What a project shows in the place of a system's own corrections; an empty text leaves those.
/// A system has no chart datum of its own here.
struct ZorGeoDatabase::ShownCorrections {
    const CString& geoidMethod;
    const CString& geoidGrid;
    const CString& chartDatum;
    const CString& model;
    const CString& file;
};

namespace {

/// Kept: what divides the blocks of a system is a carriage return alone, though lines end with CR LF:
/// a reader that knows lines by LF alone finds it before the first line of the next block.
constexpr const wchar_t* kBlockDivider = L"\r";

/// A value of a system, shown as it stands in the file.
struct StoredLine {
    unsigned label;
    const CString& key;
    const wchar_t* missing; ///< shown when the record lacks it
};

constexpr StoredLine kPostShift[] = {
    {TextId::postX, kPostX, L"0"},
    {TextId::postY, kPostY, L"0"},
    {TextId::postZ, kPostZ, L"0"},
};

constexpr StoredLine kHorizontalAdjust[] = {
    {TextId::horOriginX, kHorAdjustOriginX, L"0"},
    {TextId::horOriginY, kHorAdjustOriginY, L"0"},
    {TextId::horRotation, kHorAdjustRotation, L"0"},
    {TextId::horScale, kHorAdjustScale, L"1"},
};

constexpr StoredLine kVerticalAdjust[] = {
    {TextId::vertOriginX, kVertAdjustOriginX, L"0"},
    {TextId::vertOriginY, kVertAdjustOriginY, L"0"},
    {TextId::vertSlopeX, kVertAdjustSlopeX, L"0"},
    {TextId::vertSlopeY, kVertAdjustSlopeY, L"0"},
};

/// Lines that are shown while a flag of the system is on.
struct CorrectionBlock {
    const CString& flag;
    std::span<const StoredLine> lines;
};

// Kept: the vertical adjust is shown by the flag of the horizontal one, and its own has no effect: a
// vertical adjust in use alone is not shown, and one that is off shows beside a horizontal one.
constexpr CorrectionBlock kCorrectionBlocks[] = {
    {kPostUse, kPostShift},
    {kHorAdjustUse, kHorizontalAdjust},
    {kHorAdjustUse, kVerticalAdjust},
};

CString BlockText(const FileObject& file, const CString& section, const CorrectionBlock& block)
{
    bool shown = false;
    ReadItem(file, section, block.flag, shown);
    CString text;
    if (!shown) {
        return text;
    }
    for (const StoredLine& line : block.lines) {
        CString value = line.missing;
        ReadItem(file, section, line.key, value);
        text << TextLine(1, line.label, value, &line == &block.lines.back() ? kTextBlockEnd : kTextLineEnd);
    }
    return text;
}

/// The keys of a model and of its file.
struct ModelKeys {
    const CString& model;
    const CString& file;
};
constexpr ModelKeys kGeoidKeys{kGeoidMethod, kGeoidGrid};
constexpr ModelKeys kCorrectionKeys{kPostModel, kPostFile};

CString StoredUnless(const CString& shown, const FileObject& file, const CString& section, const CString& key)
{
    CString value = shown;
    if (value.IsEmpty()) {
        ReadItem(file, section, key, value);
    }
    return value;
}

struct ModelTexts {
    CString model;
    CString file;
};

/// No file without a model, not even one that is to be shown.
ModelTexts ReadModel(const FileObject& file, const CString& section, const ModelKeys& keys, const CString& shownModel,
                     const CString& shownFile)
{
    ModelTexts texts;
    texts.model = StoredUnless(shownModel, file, section, keys.model);
    if (!texts.model.IsEmpty() && !(texts.model == kNoModel)) {
        texts.file = StoredUnless(shownFile, file, section, keys.file);
    }
    return texts;
}

} // namespace

CString ZorGeoDatabase::DumpGeoidModelText(const FileObject& file, const CString& system, const ShownCorrections& shown)
{
    const CString section = kSystemPrefix + system;
    const ModelTexts geoid = ReadModel(file, section, kGeoidKeys, shown.geoidMethod, shown.geoidGrid);
    CString text = TextLine(0, TextId::geoidModel, L"");
    text << TextLine(1, TextId::geoidMethod, geoid.model) << TextLine(1, TextId::geoidGrid, geoid.file)
         << TextLine(1, TextId::chartDatum, shown.chartDatum, kTextBlockEnd)
         << TextLine(0, TextId::postCorrections, L"");
    for (const CorrectionBlock& block : kCorrectionBlocks) {
        text << BlockText(file, section, block);
    }
    const ModelTexts correction = ReadModel(file, section, kCorrectionKeys, shown.model, shown.file);
    text << TextLine(1, TextId::correctionModel, correction.model)
         << TextLine(1, TextId::correctionFile, correction.file);
    return text;
}

CString ZorGeoDatabase::DescribeSystem(const CString& group, const CString& system, const ShownCorrections& shown,
                                       bool titles)
{
    const FileObject* file = FileOfSystem(group, system);
    if (!file) {
        return {};
    }
    SystemInfo info;
    LoadSystemInfo(*file, system, info);
    CString text;
    if (titles) {
        text << TextLine(0, TextId::system, system) << TextLine(0, TextId::description, info.description);
    }
    text << kTextLineEnd << DumpElpText(info.ellipsoid) << kBlockDivider << DumpDatumfText(info.datum, titles)
         << kBlockDivider << DumpUnitText(info.unit) << kBlockDivider << DumpPrjText(group, system, titles)
         << DumpGeoidModelText(*file, system, shown) << kBlockDivider;
    return text;
}

CString ZorGeoDatabase::DumpSystemText(CString group, CString system, CString geoidMethod, CString geoidGrid,
                                       CString chartDatum, CString correctionModel, CString correctionFile)
{
    return DescribeSystem(group, system, {geoidMethod, geoidGrid, chartDatum, correctionModel, correctionFile}, true);
}

CString ZorGeoDatabase::DumpSystemIDText(CString group, CString system, CString geoidMethod, CString geoidGrid,
                                         CString chartDatum, CString correctionModel, CString correctionFile)
{
    return DescribeSystem(group, system, {geoidMethod, geoidGrid, chartDatum, correctionModel, correctionFile}, false);
}
