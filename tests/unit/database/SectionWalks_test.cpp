#include "database/SectionWalks.h"

#include "tests/unit/database/DatabaseFixture.h"

namespace {

FileObject GroupFile()
{
    FileObject file;
    file.SetItem(L"Gp-A", L"1", L"North", true);
    file.SetItem(L"Gp-A", L"System COUNT", L"7", true);
    file.SetItem(L"Gp-A", L"2", L"", true);
    file.SetItem(L"Gp-A", L"supported Geoid model methods", L"OSGM", true);
    file.SetItem(L"Gp-A", L"9", L"South", true);
    return file;
}

} // namespace

TEST(SectionWalks, ValuesLeaveOutTheSettingsOfAGroupAndEmptyValues)
{
    CStringArray out;
    out.Add(L"old");
    GetValuesInSection(GroupFile(), L"Gp-A", out);
    EXPECT_EQ(Names(out), (NameList{"North", "South"}));
}

TEST(SectionWalks, KeysLeaveOutTheSettingsOfAGroupAndCountEmptyValues)
{
    CStringArray out;
    out.Add(L"old");
    GetKeysInSection(GroupFile(), L"Gp-A", out);
    EXPECT_EQ(Names(out), (NameList{"1", "2", "9"}));
}

TEST(SectionWalks, MissingSectionGivesEmptyLists)
{
    CStringArray out;
    out.Add(L"old");
    GetValuesInSection(GroupFile(), L"Gp-B", out);
    EXPECT_TRUE(out.IsEmpty());
    out.Add(L"old");
    GetKeysInSection(GroupFile(), L"Gp-B", out);
    EXPECT_TRUE(out.IsEmpty());
}

TEST(SectionWalks, KeyOfAValueIsTheFirstInAnyCaseOfLetters)
{
    FileObject file = GroupFile();
    file.SetItem(L"Gp-A", L"10", L"north", true);
    CString key;
    EXPECT_TRUE(FindKeyInSection(file, L"Gp-A", L"NORTH", key));
    EXPECT_EQ(key, L"1");
}

TEST(SectionWalks, KeyOfAMissingValueStaysUntouched)
{
    CString key = L"before";
    EXPECT_FALSE(FindKeyInSection(GroupFile(), L"Gp-A", L"East", key));
    EXPECT_FALSE(FindKeyInSection(GroupFile(), L"Gp-B", L"North", key));
    EXPECT_EQ(key, L"before");
}
