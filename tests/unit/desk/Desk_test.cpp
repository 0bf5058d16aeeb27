#include "base/desk/Desk.h"

#include <gtest/gtest.h>

#include "base/desk/StringTable.h"
#include "tests/support/ScriptedDesk.h"

TEST(Desk, ShowsMessagesThroughTheInstalledHost)
{
    ScriptedDesk desk;
    AfxMessageBox(L"Cannot open coordinate system database!");
    AfxMessageBox(L"Database file open for writing failed", MessageIcon::exclamation);
    ASSERT_EQ(desk.messages.size(), 2u);
    EXPECT_EQ(desk.messages[0].text, L"Cannot open coordinate system database!");
    EXPECT_EQ(desk.messages[0].icon, MessageIcon::standard);
    EXPECT_EQ(desk.messages[1].text, L"Database file open for writing failed");
    EXPECT_EQ(desk.messages[1].icon, MessageIcon::exclamation);
}

TEST(Desk, InstallGivesTheEarlierHostBack)
{
    {
        ScriptedDesk outer;
        {
            ScriptedDesk inner;
            EXPECT_EQ(&Desk::Host(), &inner);
            EXPECT_EQ(Desk::Install(&outer), &inner);
            EXPECT_EQ(Desk::Install(&inner), &outer);
        }
        EXPECT_EQ(&Desk::Host(), &outer);
    }
    EXPECT_EQ(Desk::Install(nullptr), nullptr);
}

TEST(Desk, DefaultHostCancelsTheQuestionForAName)
{
    CString name = L"Harbour Grid";
    EXPECT_FALSE(Desk::Host().AskName(NameKind::system, L"ZORCoordSys", name));
    EXPECT_EQ(name, L"Harbour Grid");
}

TEST(Desk, AnUnknownTextNumberShowsAnEmptyText)
{
    ScriptedDesk desk;
    AfxMessageBox(4000000000u, MessageIcon::exclamation);
    ASSERT_EQ(desk.messages.size(), 1u);
    EXPECT_TRUE(desk.messages[0].text.IsEmpty());
    EXPECT_EQ(desk.messages[0].icon, MessageIcon::exclamation);
}

#if !defined(_WIN32)

TEST(Desk, ShowsATextOfTheStringTableByNumber)
{
    static constexpr StringTableEntry kTable[] = {{7001, L"No such ellipsoid"}, {0, nullptr}};
    ASSERT_TRUE(ZORSUITE::LoadDLLResourceDLL(&kTable, kTable));
    ScriptedDesk desk;
    AfxMessageBox(7001u);
    ZORSUITE::UnloadDLLResourceDLL(&kTable);
    AfxMessageBox(7001u);
    ASSERT_EQ(desk.messages.size(), 2u);
    EXPECT_EQ(desk.messages[0].text, L"No such ellipsoid");
    EXPECT_TRUE(desk.messages[1].text.IsEmpty());
}

TEST(Desk, DefaultHostWritesUtf8ToStderr)
{
    testing::internal::CaptureStderr();
    AfxMessageBox(L"52\u00B009' \u2013 \U0001F30D");
    AfxMessageBox(L"", MessageIcon::exclamation);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "52\xC2\xB0"
                                                      "09' \xE2\x80\x93 \xF0\x9F\x8C\x8D\n\n");
}

#endif
