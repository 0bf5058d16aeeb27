#include "frame/ZorGeoUtility.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <vector>

#include "tests/support/ScriptedDesk.h"
#include "tests/support/TempDirectory.h"

#if !defined(_WIN32)
#include <unistd.h>
#endif

namespace {

/// Known directories and a known executable.
class ZorGeoUtilityTest : public testing::Test {
protected:
    ZorGeoUtilityTest()
    {
        DataSearch& search = DataSearch::GetDataSearch();
        for (const unsigned number : {1u, 2u, 4u, 10u, 26u}) {
            search.SetDataPath(number, CString::FromUtf8("/dir/" + std::to_string(number) + "/"));
        }
        search.SetCurrentProjectName(L"Harbour");
        SetExecutablePathSource([](CString& path) {
            path = L"/opt/suite/survey.exe";
            return true;
        });
    }
    ~ZorGeoUtilityTest() override
    {
        DataSearch::GetDataSearch().Reset();
        DataSearch::GetDataSearch().SetCurrentProjectName(L"");
        SetExecutablePathSource(nullptr);
    }

    TempDirectory directory;
};

bool IsReadOnly(const CString& file)
{
    CFileStatus status;
    return CFile::GetStatus(file, status) && (status.attribute & CFileStatus::readOnly) != 0;
}

void MakeReadOnly(const std::filesystem::path& file)
{
    using std::filesystem::perms;
    std::filesystem::permissions(file, perms::owner_read | perms::group_read | perms::others_read);
}

} // namespace

TEST_F(ZorGeoUtilityTest, IsEmptyBeforeTheFill)
{
    const ZorGeoUtility utility;
    for (const CString& text :
         {utility.mainDatabaseDir, utility.userDatabaseDir, utility.exeDirectory, utility.exeFileTitle,
          utility.currentProjectName, utility.projectDir, utility.path26Dir, utility.projectsRootDir}) {
        EXPECT_TRUE(text.IsEmpty());
    }
    EXPECT_FALSE(utility.initialised);
    EXPECT_FALSE(utility.scratchFile.FileInitialised());
}

TEST_F(ZorGeoUtilityTest, FillTakesEveryFieldFromItsSource)
{
    ZorGeoUtility utility;
    EXPECT_NE(utility.Fill(), 0);
    EXPECT_EQ(utility.mainDatabaseDir, L"/dir/1/");
    EXPECT_EQ(utility.projectDir, L"/dir/2/");
    EXPECT_EQ(utility.projectsRootDir, L"/dir/4/");
    EXPECT_EQ(utility.userDatabaseDir, L"/dir/10/");
    EXPECT_EQ(utility.path26Dir, L"/dir/26/");
    EXPECT_EQ(utility.currentProjectName, L"Harbour");
    EXPECT_EQ(utility.exeDirectory, L"/opt/suite/");
    EXPECT_EQ(utility.exeFileTitle, L"survey");
    EXPECT_TRUE(utility.initialised);
}

TEST_F(ZorGeoUtilityTest, UnknownExecutableLeavesEverything)
{
    for (const ExecutablePathSource source :
         {ExecutablePathSource([](CString&) { return false; }), ExecutablePathSource([](CString& path) {
              path.Empty();
              return true;
          })}) {
        SetExecutablePathSource(source);
        ZorGeoUtility utility;
        utility.exeFileTitle = L"before";
        EXPECT_EQ(utility.Fill(), 0);
        EXPECT_EQ(utility.exeFileTitle, L"before");
        EXPECT_TRUE(utility.projectDir.IsEmpty());
        EXPECT_FALSE(utility.initialised);
    }
}

TEST_F(ZorGeoUtilityTest, LongExecutableNameIsCutAt260)
{
    SetExecutablePathSource([](CString& path) {
        path = L"/opt/" + CString(L'x', 300) + L".exe";
        return true;
    });
    ZorGeoUtility utility;
    EXPECT_NE(utility.Fill(), 0);
    EXPECT_EQ(utility.exeDirectory, L"/opt/");
    EXPECT_EQ(utility.exeFileTitle, CString(L'x', 255));
}

TEST_F(ZorGeoUtilityTest, FirstMissingDirectoryEndsTheFill)
{
    struct Case {
        unsigned missing;
        std::vector<unsigned> filled;
    };
    // The order in which the directories are asked for.
    const Case cases[] = {{2, {}}, {4, {2}}, {1, {2, 4}}, {10, {2, 4, 1}}, {26, {2, 4, 1, 10}}};
    for (const Case& c : cases) {
        const CString path = CString::FromUtf8("/dir/" + std::to_string(c.missing) + "/");
        DataSearch::GetDataSearch().SetUnavailable(c.missing);
        ZorGeoUtility utility;
        EXPECT_EQ(utility.Fill(), 0);
        EXPECT_FALSE(utility.initialised);
        EXPECT_TRUE(utility.currentProjectName.IsEmpty());
        EXPECT_EQ(utility.exeDirectory, L"/opt/suite/");
        const std::pair<unsigned, const CString&> fields[] = {{2, utility.projectDir},
                                                              {4, utility.projectsRootDir},
                                                              {1, utility.mainDatabaseDir},
                                                              {10, utility.userDatabaseDir},
                                                              {26, utility.path26Dir}};
        for (const auto& [number, field] : fields) {
            const bool filled = std::find(c.filled.begin(), c.filled.end(), number) != c.filled.end();
            EXPECT_EQ(!field.IsEmpty(), filled) << "missing " << c.missing << ", field " << number;
        }
        DataSearch::GetDataSearch().SetDataPath(c.missing, path);
        EXPECT_NE(utility.Fill(), 0);
        EXPECT_TRUE(utility.initialised);
    }
}

TEST_F(ZorGeoUtilityTest, FillThatFailsLaterKeepsTheEarlierSuccess)
{
    ZorGeoUtility utility;
    ASSERT_NE(utility.Fill(), 0);
    DataSearch::GetDataSearch().SetUnavailable(2);
    EXPECT_EQ(utility.Fill(), 0);
    EXPECT_TRUE(utility.initialised);
    EXPECT_EQ(utility.projectDir, L"/dir/2/");
}

TEST_F(ZorGeoUtilityTest, EmptyDirectoryStaysEmpty)
{
    DataSearch::GetDataSearch().SetDataPath(1, L"");
    ZorGeoUtility utility;
    EXPECT_NE(utility.Fill(), 0);
    EXPECT_TRUE(utility.mainDatabaseDir.IsEmpty());
    EXPECT_TRUE(utility.initialised);
}

TEST_F(ZorGeoUtilityTest, GetGivesOneObject)
{
    EXPECT_EQ(&ZorGeoUtility::Get(), &ZorGeoUtility::Get());
}

TEST_F(ZorGeoUtilityTest, FilledFillsTheOneObjectUntilThatSucceeds)
{
    ZorGeoUtility::Get() = ZorGeoUtility();
    DataSearch::GetDataSearch().SetUnavailable(26);
    EXPECT_EQ(&ZorGeoUtility::Filled(), &ZorGeoUtility::Get());
    EXPECT_FALSE(ZorGeoUtility::Get().initialised);
    DataSearch::GetDataSearch().SetDataPath(26, L"/dir/26/");
    EXPECT_TRUE(ZorGeoUtility::Filled().initialised);
    DataSearch::GetDataSearch().SetDataPath(2, L"/dir/later/");
    EXPECT_EQ(ZorGeoUtility::Filled().projectDir, L"/dir/2/") << "a later change is not seen";
    ZorGeoUtility::Get() = ZorGeoUtility();
}

TEST_F(ZorGeoUtilityTest, CopyHoldsEveryField)
{
    ZorGeoUtility utility;
    ASSERT_NE(utility.Fill(), 0);
    utility.scratchFile.SetItem(L"A", L"k", L"v", true);
    const ZorGeoUtility copy(utility);
    EXPECT_EQ(copy.mainDatabaseDir, L"/dir/1/");
    EXPECT_EQ(copy.currentProjectName, L"Harbour");
    EXPECT_EQ(copy.projectsRootDir, L"/dir/4/");
    EXPECT_TRUE(copy.initialised);
    EXPECT_TRUE(copy.scratchFile.HasKey(L"A", L"k"));
}

TEST_F(ZorGeoUtilityTest, GuardedSaveWritesUnderTheOwnName)
{
    const CString name = directory.Write("user.geo", "[A]\nk=1\n");
    FileObject file;
    ASSERT_TRUE(file.FileOpen(name, FileMode::openForReading));
    file.SetItem(L"A", L"k", 2, true);
    EXPECT_TRUE(ZorGeoUtility().GuardedSave(file));
    EXPECT_EQ(directory.Read("user.geo"), "[A]\nk=2\n");
    EXPECT_FALSE(IsReadOnly(name));
}

TEST_F(ZorGeoUtilityTest, GuardedSaveWritesAReadOnlyFileAndLeavesItReadOnly)
{
    ScriptedDesk desk;
    const CString name = directory.Write("user.geo", "[A]\nk=1\n");
    MakeReadOnly(directory.Path() / "user.geo");
    ASSERT_TRUE(IsReadOnly(name));
    FileObject file;
    ASSERT_TRUE(file.FileOpen(name, FileMode::openForReading));
    file.SetItem(L"A", L"k", 2, true);
    EXPECT_TRUE(ZorGeoUtility().GuardedSave(file));
    EXPECT_EQ(directory.Read("user.geo"), "[A]\nk=2\n");
    EXPECT_TRUE(IsReadOnly(name));
    EXPECT_TRUE(desk.messages.empty());
}

TEST_F(ZorGeoUtilityTest, GuardedSaveDoesNotTellOfASaveThatFails)
{
    ScriptedDesk desk;
    const CString name = directory.Write("sub/user.geo", "[A]\nk=1\n");
    FileObject file;
    ASSERT_TRUE(file.FileOpen(name, FileMode::openForReading));
    std::filesystem::remove_all(directory.Path() / "sub");
    EXPECT_TRUE(ZorGeoUtility().GuardedSave(file));
    EXPECT_FALSE(CFile::Exists(name));
    EXPECT_TRUE(desk.messages.empty());
}

TEST_F(ZorGeoUtilityTest, QuietSaveWritesAReadOnlyFileAndLeavesItReadOnly)
{
    ScriptedDesk desk;
    const CString name = directory.Write("user.geo", "[A]\nk=1\n");
    MakeReadOnly(directory.Path() / "user.geo");
    FileObject file;
    ASSERT_TRUE(file.FileOpen(name, FileMode::openForReading));
    file.SetItem(L"A", L"k", 2, true);
    ZorGeoUtility::QuietSave(file);
    EXPECT_EQ(directory.Read("user.geo"), "[A]\nk=2\n");
    EXPECT_TRUE(IsReadOnly(name));
    std::filesystem::remove(directory.Path() / "user.geo");
    ZorGeoUtility::QuietSave(file);
    EXPECT_FALSE(IsReadOnly(name)) << "a file that is missing had no attribute";
    EXPECT_TRUE(desk.messages.empty());
}

TEST_F(ZorGeoUtilityTest, ProjectDirectoriesAreThoseOfTheRootInOrder)
{
    directory.Write("Wreck/project.prj", "");
    directory.Write("Dredge/deeper/project.prj", "");
    directory.Write("a file", "");
    DataSearch::GetDataSearch().SetDataPath(DataSearch::projectsRoot, directory.Directory());
    ZorGeoUtility utility;
    EXPECT_TRUE(utility.ProjectDirectories().empty()) << "not filled yet";
    ASSERT_NE(utility.Fill(), 0);
    EXPECT_EQ(utility.ProjectDirectories(), (std::vector<CString>{L"Dredge", L"Wreck"}));
    DataSearch::GetDataSearch().SetUnavailable(DataSearch::projectsRoot);
    EXPECT_TRUE(utility.ProjectDirectories().empty());
    DataSearch::GetDataSearch().SetDataPath(DataSearch::projectsRoot, directory.File("missing"));
    EXPECT_TRUE(utility.ProjectDirectories().empty());
}

/// A read-only file that is open and changed in memory, and what was asked of its attribute.
class ReadOnlySave : public ZorGeoUtilityTest {
protected:
    ReadOnlySave() : name(directory.Write("sub/user.geo", "[A]\nk=1\n"))
    {
        MakeReadOnly(directory.Path() / "sub/user.geo");
        EXPECT_TRUE(file.FileOpen(name, FileMode::openForReading));
        file.SetItem(L"A", L"k", 2, true);
    }
    /// Saves; `afterClearing` happens when the attribute has been taken away.
    bool Save(const std::function<void()>& afterClearing)
    {
        return ZorGeoUtility::GuardedSave(file, [&](const CString& path, const CFileStatus& status) {
            attributes.push_back(status.attribute & CFileStatus::readOnly);
            CFile::SetStatus(path, status);
            if (attributes.size() == 1) {
                afterClearing();
            }
        });
    }

    ScriptedDesk desk;
    CString name;
    FileObject file;
    std::vector<unsigned> attributes;
};

TEST_F(ReadOnlySave, ClearsTheAttributeAndPutsItBack)
{
    EXPECT_TRUE(Save([this] { EXPECT_FALSE(IsReadOnly(name)); }));
    EXPECT_EQ(attributes, (std::vector<unsigned>{0, CFileStatus::readOnly}));
    EXPECT_EQ(directory.Read("sub/user.geo"), "[A]\nk=2\n");
    EXPECT_TRUE(IsReadOnly(name));
}

TEST_F(ReadOnlySave, AttributeThatCannotBePutBackGivesFalseAndNoMessage)
{
    EXPECT_FALSE(Save([this] { std::filesystem::remove_all(directory.Path() / "sub"); }));
    EXPECT_EQ(attributes, (std::vector<unsigned>{0, CFileStatus::readOnly}));
    EXPECT_TRUE(desk.messages.empty());
}

// Somebody else protects the file again in between.
TEST_F(ReadOnlySave, AttributeIsPutBackAfterASaveThatFails)
{
    EXPECT_TRUE(Save([this] { MakeReadOnly(directory.Path() / "sub/user.geo"); }));
    EXPECT_EQ(attributes, (std::vector<unsigned>{0, CFileStatus::readOnly}));
    EXPECT_EQ(directory.Read("sub/user.geo"), "[A]\nk=1\n");
    EXPECT_TRUE(IsReadOnly(name));
    EXPECT_TRUE(desk.messages.empty());
}

TEST_F(ReadOnlySave, AttributeThatCannotBeClearedSavesNothingAndSaysSo)
{
    int calls = 0;
    EXPECT_FALSE(ZorGeoUtility::GuardedSave(file, [&](const CString& path, const CFileStatus&) {
        ++calls;
        throw CFileException(path, L"denied");
    }));
    EXPECT_EQ(calls, 1);
    ASSERT_EQ(desk.messages.size(), 1u);
    EXPECT_EQ(desk.messages[0].text, L"Database file open for writing failed");
    EXPECT_EQ(directory.Read("sub/user.geo"), "[A]\nk=1\n");
    EXPECT_TRUE(IsReadOnly(name));
}

#if !defined(_WIN32)
TEST_F(ZorGeoUtilityTest, GuardedSaveOfAFileThatCannotBeMadeWritableSaysSo)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "needs a file of another owner";
    }
    ScriptedDesk desk;
    const CString name = directory.Write("user.geo", "[A]\nk=1\n");
    MakeReadOnly(directory.Path() / "user.geo");
    FileObject file;
    ASSERT_TRUE(file.FileOpen(name, FileMode::openForReading));
    file.SetItem(L"A", L"k", 2, true);
    // As nobody, who may not change the attribute of a file of root.
    ASSERT_EQ(seteuid(65534), 0);
    const bool saved = ZorGeoUtility().GuardedSave(file);
    ASSERT_EQ(seteuid(0), 0);
    EXPECT_FALSE(saved);
    ASSERT_EQ(desk.messages.size(), 1u);
    EXPECT_EQ(desk.messages[0].text, L"Database file open for writing failed");
    EXPECT_EQ(directory.Read("user.geo"), "[A]\nk=1\n");
    EXPECT_TRUE(IsReadOnly(name));
}
#endif
