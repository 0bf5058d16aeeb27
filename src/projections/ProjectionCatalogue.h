#pragma once

#include "frame/BaseContract.h"

/// Reader of the projection catalogue: which parameters a projection method has, in which order,
/// what they are called on the screen and under which key they are stored.
///
/// The catalogue is the section file ZorProjectionStatic.dat of the main database directory. Each
/// question opens it anew, so that an answer follows the file; a file that cannot be opened gives
/// the neutral answer that the operation names. Type numbers are those of ProjectionType.h, a
/// method is named by its section in the catalogue, names are compared without regard to case.
/// (The spelling of the operations is part of the interface.)
class ProjectionCatalogue {
public:
    /// What GetPrjType answers for a method that is not listed.
    static constexpr int kUnknownMethod = -1;

    /// Fills the directories of ZorGeoUtility unless that has been done.
    ProjectionCatalogue();

    /// Opens the file. False when it cannot be read.
    bool OpenPrjStaticFile();

    /// The method names in the file's order, without the hidden ones. The output is emptied first
    /// and stays empty when there is no list of methods.
    void GetAllPrjMdNames(CStringArray& out);
    /// The parameters of a type: labels, kinds and keys, in the order of the method. `names` and
    /// `numbers` are emptied first; `keys` is not, what it holds stays in front.
    void GetSelPrjMdResults(int type, CStringArray& names, CArray<UINT, UINT>& numbers, CStringArray& keys);
    /// The same, appending to `numbers` and `keys`. False when the type is not listed.
    bool GetParaStaticData(int type, CStringArray& names, CArray<UINT, UINT>& numbers, CStringArray& keys);
    /// The same, appending to all three; expects the file open. False when there is no such
    /// section.
    bool GetParaStaticData(const CString& method, CStringArray& names, CArray<UINT, UINT>& numbers, CStringArray& keys);
    /// The type number of a method; kUnknownMethod when it is not listed.
    int GetPrjType(const CString& method);
    /// The key of the parameter with this label; empty when there is none. A label that two keys
    /// bear gives the first.
    CString FindParamKey(const CString& name);
    /// The label and kind of the parameter `index` of projectionParamKeys. An empty text, and
    /// `number` as it was, when the catalogue does not describe it.
    CString FindStaticData(int index, UINT& number);
    /// How many parameters a type has: the entries of its section less one. 0 when the type is not
    /// listed or has no section.
    int FindStaticDataSize(int type);
    /// The same for a method; expects the file open.
    int FindStaticDataSize(const CString& method);
    /// Whether the linear unit of a type may be changed. False when the type is not listed.
    bool CanPrjUnitChange(int type);
    /// The same for a method; expects the file open. False when there is no such section, true
    /// when the section does not say.
    bool GetPrjUnitChangeStatu(const CString& method);

private:
    /// The section of a type's method; false, output untouched, when the type is not listed or the
    /// file cannot be opened.
    bool FindMethod(int type, CString& method);

    FileObject m_prjStaticFile;
    // Kept: never set, so that every question opens the file and sees the catalogue as it stands.
    bool m_prjStaticOpen = false;
};
