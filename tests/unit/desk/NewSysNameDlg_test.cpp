#include "base/desk/NewSysNameDlg.h"

#include <gtest/gtest.h>

#include "base/registry/CreatorLists.h"
#include "tests/support/EmptyDatabase.h"
#include "tests/support/ScriptedDesk.h"

namespace {

/// Has one record of each kind, in the file that is asked for with both.
class OneOfEach final : public EmptyDatabase {
public:
    explicit OneOfEach(bool opens) : m_opens(opens) { ++alive; }
    ~OneOfEach() override { --alive; }
    OneOfEach(const OneOfEach&) = delete;
    OneOfEach& operator=(const OneOfEach&) = delete;

    bool Init() override { return m_opens; }
    bool HasSystem(CString name, unsigned which) override { return which == GeoDbBoth && name == L"Taken system"; }
    bool HasDtf(CString name, unsigned which) override { return which == GeoDbBoth && name == L"Taken datum"; }
    bool HasProjection(CString name, unsigned which) override
    {
        return which == GeoDbBoth && name == L"Taken projection";
    }

    static inline int alive = 0;

private:
    bool m_opens;
};

class OneOfEachCreator final : public GeoDatabaseICreator {
public:
    explicit OneOfEachCreator(bool opens) : m_opens(opens) {}
    ZorGeoDatabaseBase* Create() override { return new OneOfEach(m_opens); }

private:
    bool m_opens;
};

class NoDatabaseCreator final : public GeoDatabaseICreator {
public:
    ZorGeoDatabaseBase* Create() override { return nullptr; }
};

/// A module under the key "ZORCoordSys" for one test.
class ScopedModule {
public:
    explicit ScopedModule(GeoDatabaseICreator* creator)
    {
        ZorGeoDatabaseBaseList::GetGeoDatabaseList().RegisterGeoDatabase(L"ZORCoordSys", creator);
    }
    ~ScopedModule() { ZorGeoDatabaseBaseList::GetGeoDatabaseList().UnRegisterGeoDatabase(L"ZORCoordSys"); }
    ScopedModule(const ScopedModule&) = delete;
    ScopedModule& operator=(const ScopedModule&) = delete;
};

struct Kind {
    void (NewSysNameDlg::*set)(const CString&);
    NameKind kind;
    const wchar_t* taken;
};
constexpr Kind kKinds[] = {
    {&NewSysNameDlg::SetSystemName, NameKind::system, L"Taken system"},
    {&NewSysNameDlg::SetDtfName, NameKind::datumTransformation, L"Taken datum"},
    {&NewSysNameDlg::SetPrjName, NameKind::projection, L"Taken projection"},
};

} // namespace

TEST(NewSysNameDlg, AsksForTheKindThatWasSetAndGivesThePresentName)
{
    for (const Kind& row : kKinds) {
        ScriptedDesk desk;
        desk.Answer(L"New name");
        NewSysNameDlg dialog(nullptr);
        (dialog.*row.set)(L"Present name");
        dialog.SetDllType(L"ZORCoordSys");
        EXPECT_EQ(dialog.GetName(), L"Present name");
        EXPECT_EQ(dialog.DoModal(), 1);
        EXPECT_EQ(dialog.GetName(), L"New name");
        ASSERT_EQ(desk.questions.size(), 1u);
        EXPECT_EQ(desk.questions[0].kind, row.kind);
        EXPECT_EQ(desk.questions[0].dllType, L"ZORCoordSys");
        EXPECT_EQ(desk.questions[0].presentName, L"Present name");
        EXPECT_TRUE(desk.messages.empty());
    }
}

TEST(NewSysNameDlg, CancelKeepsThePresentName)
{
    ScriptedDesk desk;
    desk.Cancel();
    NewSysNameDlg dialog;
    dialog.SetSystemName(L"Present name");
    EXPECT_EQ(dialog.DoModal(), NewSysNameDlg::cancel);
    EXPECT_NE(NewSysNameDlg::cancel, 1);
    EXPECT_EQ(dialog.GetName(), L"Present name");
    EXPECT_TRUE(desk.ScriptUsedUp());
}

TEST(NewSysNameDlg, IsCancelledWhereNobodyCanBeAsked)
{
    NewSysNameDlg dialog;
    dialog.SetPrjName(L"Present name");
    EXPECT_EQ(dialog.DoModal(), NewSysNameDlg::cancel);
    EXPECT_EQ(dialog.GetName(), L"Present name");
}

TEST(NewSysNameDlg, AsksAgainForANameThatTheModulesDatabaseHas)
{
    for (const Kind& row : kKinds) {
        const ScopedModule module(new OneOfEachCreator(true));
        ScriptedDesk desk;
        desk.Answer(row.taken).Answer(L"Free name");
        NewSysNameDlg dialog;
        (dialog.*row.set)(L"Present name");
        dialog.SetDllType(L"ZORCoordSys");
        EXPECT_EQ(dialog.DoModal(), NewSysNameDlg::ok);
        EXPECT_EQ(dialog.GetName(), L"Free name");
        ASSERT_EQ(desk.questions.size(), 2u);
        EXPECT_EQ(desk.questions[1].presentName, row.taken);
        ASSERT_EQ(desk.messages.size(), 1u);
        EXPECT_GE(desk.messages[0].text.Find(row.taken), 0);
        EXPECT_EQ(desk.messages[0].icon, MessageIcon::exclamation);
    }
    EXPECT_EQ(OneOfEach::alive, 0);
}

TEST(NewSysNameDlg, ANameTakenByAnotherKindIsFree)
{
    const ScopedModule module(new OneOfEachCreator(true));
    ScriptedDesk desk;
    desk.Answer(L"Taken datum");
    NewSysNameDlg dialog;
    dialog.SetSystemName(L"Present name");
    dialog.SetDllType(L"ZORCoordSys");
    EXPECT_EQ(dialog.DoModal(), NewSysNameDlg::ok);
    EXPECT_EQ(dialog.GetName(), L"Taken datum");
}

TEST(NewSysNameDlg, AsksAgainForAnEmptyName)
{
    ScriptedDesk desk;
    desk.Answer(L"").Answer(L"Name");
    NewSysNameDlg dialog;
    dialog.SetDtfName(L"Present name");
    EXPECT_EQ(dialog.DoModal(), NewSysNameDlg::ok);
    EXPECT_EQ(dialog.GetName(), L"Name");
    EXPECT_EQ(desk.messages.size(), 1u);
}

TEST(NewSysNameDlg, GivesUpOnAHostThatAlwaysGivesATakenName)
{
    const ScopedModule module(new OneOfEachCreator(true));
    ScriptedDesk desk;
    for (int i = 0; i < 100; ++i) {
        desk.Answer(L"Taken system");
    }
    NewSysNameDlg dialog;
    dialog.SetSystemName(L"Present name");
    dialog.SetDllType(L"ZORCoordSys");
    EXPECT_EQ(dialog.DoModal(), NewSysNameDlg::cancel);
    EXPECT_EQ(dialog.GetName(), L"Present name");
    EXPECT_EQ(desk.questions.size(), 10u);
}

TEST(NewSysNameDlg, TakesEveryNameWhereNoDatabaseCanTell)
{
    struct Row {
        GeoDatabaseICreator* creator;
        const wchar_t* dllType;
    };
    const Row rows[] = {
        {new OneOfEachCreator(true), L"Another module"},
        {new OneOfEachCreator(false), L"ZORCoordSys"},
        {new NoDatabaseCreator, L"ZORCoordSys"},
    };
    for (const Row& row : rows) {
        const ScopedModule module(row.creator);
        ScriptedDesk desk;
        desk.Answer(L"Taken system");
        NewSysNameDlg dialog;
        dialog.SetSystemName(L"Present name");
        dialog.SetDllType(row.dllType);
        EXPECT_EQ(dialog.DoModal(), NewSysNameDlg::ok);
        EXPECT_EQ(dialog.GetName(), L"Taken system");
    }
    EXPECT_EQ(OneOfEach::alive, 0);
}
