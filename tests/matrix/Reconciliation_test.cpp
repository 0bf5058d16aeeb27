#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <set>

#include "coordsys/ZORGeoCoordSys.h"
#include "database/ZorGeoDatabase.h"
#include "datum/CDatumTransform.h"
#include "datum/Ellipsoid.h"
#include "frame/Creators.h"
#include "frame/ZorGeoUtility.h"
#include "tests/matrix/Cases.h"
#include "tests/support/ModuleTexts.h"
#include "tests/support/ScriptedDesk.h"
#include "tests/support/TempDirectory.h"

// What Init does with a project's backup and the database, in every combination, against the rules
// as Rules.h tells them.

namespace matrix {

namespace {

namespace fs = std::filesystem;

const CString kModule = L"ZORCoordSys";
constexpr const char* kMainFile = "main/zorgeodatabase.geo";
constexpr const char* kUserFile = "user/zorusergeobase.geo";
constexpr const char* kProjectFile = "project/project.prj";

CString Wide(const std::string& text)
{
    return CString::FromUtf8(text);
}

/// The directories in which all cases meet the module.
class Bench {
public:
    Bench()
    {
        m_directory.Write("main/ZorProjectionStatic.dat", MachineOf({}).catalogue.Text());
        DataSearch& search = DataSearch::GetDataSearch();
        m_directory.Write(kUserFile, "");
        m_directory.Write(kProjectFile, "");
        search.SetDataPath(DataSearch::deliveredDatabase, m_directory.File("main"));
        search.SetDataPath(DataSearch::userDatabase, m_directory.File("user"));
        search.SetDataPath(DataSearch::currentProject, m_directory.File("project"));
        search.SetDataPath(DataSearch::projectsRoot, m_directory.Directory());
        ZorGeoUtility::Get() = ZorGeoUtility();
        ZorGeoUtility::Get().Fill();
    }
    ~Bench()
    {
        DataSearch::GetDataSearch().Reset();
        ZorGeoUtility::Get() = ZorGeoUtility();
        Ellipsoid::SetUnitFactor(1.0);
        CDatumTransform::SetUnitCnv(1.0);
    }
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    void LayOut(const rules::Machine& machine)
    {
        Put(kMainFile, machine.main.Text());
        Put(kUserFile, machine.user.Text());
        Put(kProjectFile, machine.project.Text());
    }
    /// From now on WasWritten tells of what follows.
    void LookUnwritten()
    {
        for (const char* file : {kMainFile, kUserFile, kProjectFile}) {
            if (WasWritten(file)) {
                fs::last_write_time(m_directory.Path() / file, m_longAgo);
            }
        }
    }
    bool WasWritten(const char* file) const { return fs::last_write_time(m_directory.Path() / file) != m_longAgo; }

    std::string Contents(const char* file) const { return m_directory.Read(file); }
    CString FullName(const char* file) const { return m_directory.File(file); }
    /// Files of the three directories, which no case adds to.
    int FileCount() const
    {
        int count = 0;
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(m_directory.Path())) {
            count += entry.is_regular_file();
        }
        return count;
    }

private:
    void Put(const char* file, const std::string& text)
    {
        if (Contents(file) != text) {
            m_directory.Write(file, text);
        }
    }

    TempDirectory m_directory;
    // The methods of datum transformations are known by these.
    ModuleTexts m_texts;
    const fs::file_time_type m_longAgo =
        std::chrono::floor<std::chrono::seconds>(fs::file_time_type::clock::now()) - std::chrono::hours(1);
};

std::string TextOf(const FileObject& file)
{
    SectionFile plain;
    FobjSection sections;
    CString section;
    for (bool more = file.GetFirstSectionEntry(sections, section); more;
         more = file.GetNextSectionEntry(sections, section)) {
        plain.Create(section.ToUtf8());
        FobjSection items;
        CString key, value;
        for (bool item = file.GetFirstMapEntry(items, section, key, value); item;
             item = file.GetNextMapEntry(items, key, value)) {
            plain.Set(section.ToUtf8(), key.ToUtf8(), value.ToUtf8());
        }
    }
    return plain.Text();
}

/// Lets the name dialog find the module's database, or not, for its lifetime.
class DialogDatabase {
public:
    explicit DialogDatabase(bool found)
    {
        if (found) {
            ZorGeoDatabaseBaseList::GetGeoDatabaseList().RegisterGeoDatabase(kModule,
                                                                             new ZorGeoDatabaseCreator<ZorGeoDatabase>);
        }
    }
    ~DialogDatabase() { ZorGeoDatabaseBaseList::GetGeoDatabaseList().UnRegisterGeoDatabase(kModule); }
    DialogDatabase(const DialogDatabase&) = delete;
    DialogDatabase& operator=(const DialogDatabase&) = delete;
};

std::string Told(NameKind kind, const std::string& name)
{
    return (kind == NameKind::system ? "system " : kind == NameKind::projection ? "projection " : "datum ") + name;
}

void ExpectDialogs(const ScriptedDesk& desk, const rules::Outcome& expected)
{
    std::vector<std::string> shown, foreseen, messages;
    for (const ScriptedDesk::Question& question : desk.questions) {
        shown.push_back(Told(question.kind, question.presentName.ToUtf8()));
        EXPECT_EQ(question.dllType, kModule);
    }
    for (const rules::Asked& asked : expected.asked) {
        foreseen.push_back(Told(asked.question.kind, asked.question.presentName));
    }
    EXPECT_EQ(shown, foreseen);
    for (const ScriptedDesk::Message& message : desk.messages) {
        messages.push_back(message.text.ToUtf8());
    }
    EXPECT_EQ(messages, expected.messages);
    EXPECT_TRUE(desk.ScriptUsedUp());
}

void ExpectObject(ZORGeoCoordSys& real, const rules::Object& expected)
{
    CString system, projection, datum;
    real.GetSysName(system);
    real.GetProjectionName(projection);
    real.GetDtfName(datum);
    EXPECT_EQ(system.ToUtf8(), expected.system);
    EXPECT_EQ(projection.ToUtf8(), expected.projection);
    EXPECT_EQ(datum.ToUtf8(), expected.datum);
    EXPECT_EQ(real.IsInit(), expected.isInit);
}

} // namespace

class Reconciliation : public testing::TestWithParam<Case> {
protected:
    static void SetUpTestSuite() { bench = std::make_unique<Bench>(); }
    static void TearDownTestSuite() { bench.reset(); }

    /// Runs one Init against the rules and gives what the rules say.
    rules::Outcome ExpectAsTheRulesSay(const rules::User& user)
    {
        const Case& each = GetParam();
        const rules::Call call = CallOf(each, OpenedProject());
        const std::string mainBefore = bench->Contents(kMainFile);
        bench->LookUnwritten();
        const rules::Outcome expected = rules::Init(m_machine, m_expectedObject, call, user);

        ScriptedDesk desk;
        for (const rules::Asked& asked : expected.asked) {
            asked.answer ? desk.Answer(Wide(*asked.answer)) : desk.Cancel();
        }
        EXPECT_EQ(RealInit(call), expected.result);
        ExpectDialogs(desk, expected);
        ExpectObject(*m_object, m_expectedObject);

        EXPECT_EQ(bench->Contents(kProjectFile), m_machine.project.Text());
        EXPECT_EQ(bench->Contents(kUserFile), m_machine.user.Text());
        EXPECT_EQ(bench->Contents(kMainFile), mainBefore);
        EXPECT_EQ(bench->WasWritten(kProjectFile), expected.projectSaved);
        EXPECT_EQ(bench->WasWritten(kUserFile), expected.userSaved);
        EXPECT_FALSE(bench->WasWritten(kMainFile));
        EXPECT_EQ(bench->FileCount(), 4);
        if (each.form != Form::byName) {
            EXPECT_EQ(TextOf(m_project), m_machine.open.Text());
        }
        return expected;
    }

    const SectionFile& OpenedProject() const
    {
        return GetParam().form == Form::byName ? m_machine.project : m_machine.open;
    }

    /// Whether the rules let a second Init of this case show or write something.
    bool MayAskAgain(const rules::Outcome& second) const
    {
        const Case& each = GetParam();
        const auto tweaked = [&](std::string_view name) { return each.tweak && each.tweak->name == name; };
        // What is compared are the current sections; what is restored may be the older ones.
        const bool comparedOtherThanRestored = each.sections == Sections::older ||
                                               tweaked("ValuesMoveUpBehindAMissingKey") ||
                                               tweaked("DatumBackupLacksAShiftOlderOneIsWhole");
        // A restored UTM projection has numbers for zone and hemisphere.
        const bool utm = each.projectionType == 1;
        // A restored record without a transformation has no fixed height.
        const bool fixedHeightLost = tweaked("NoTransformationWithFixedHeight");
        // A dialog that looks nothing up lets a taken name through.
        const bool takenName = !m_machine.dialogKnowsDatabase;
        // A known system that is written again loses its geoid method, and each Init says so.
        const bool onlyGeoidMessage = second.asked.empty() && !second.projectSaved && !second.userSaved;
        return comparedOtherThanRestored || utm || fixedHeightLost || takenName || onlyGeoidMessage || m_projectNotTold;
    }

    bool RealInit(const rules::Call& call)
    {
        const CString group = Wide(call.group), system = Wide(call.system), unit = Wide(call.unit);
        if (call.byName) {
            return m_object->Init(group, system, L"", L"", L"", L"", L"", bench->FullName(kProjectFile), unit);
        }
        return m_object->Init(group, system, L"", L"", L"", L"", L"", m_project, unit, call.silent);
    }

    void LayOut()
    {
        m_machine = MachineOf(GetParam());
        m_machine.open = m_machine.project;
        bench->LayOut(m_machine);
        ASSERT_TRUE(m_project.FileOpen(bench->FullName(kProjectFile), FileMode::openForReading));
    }
    void NewObject()
    {
        m_object = std::make_unique<ZORGeoCoordSys>();
        m_expectedObject = {};
    }

    static inline std::unique_ptr<Bench> bench;
    rules::Machine m_machine;
    rules::Object m_expectedObject;
    bool m_projectNotTold = false;
    FileObject m_project;
    std::unique_ptr<ZORGeoCoordSys> m_object = std::make_unique<ZORGeoCoordSys>();
};

TEST_P(Reconciliation, FollowsTheRulesInAFirstAndASecondInit)
{
    LayOut();
    const DialogDatabase dialogDatabase(m_machine.dialogKnowsDatabase);
    const rules::Outcome first = [&] {
        SCOPED_TRACE("first Init");
        return ExpectAsTheRulesSay(UserOf(GetParam(), 1));
    }();
    // The road of a system in neither file does not tell the project of the system's new name.
    m_projectNotTold = m_expectedObject.system != CallOf(GetParam(), OpenedProject()).system;
    if (!GetParam().sameObject) {
        NewObject();
    }
    SCOPED_TRACE("second Init");
    const rules::Outcome second = ExpectAsTheRulesSay(WillingUser(2));
    // What a first Init settled is settled, except where the rules themselves say otherwise.
    EXPECT_TRUE(!first.result || second.Quiet() || MayAskAgain(second));
}

namespace {

std::string ParameterName(const testing::TestParamInfo<Case>& info)
{
    return NameOf(info.param);
}

} // namespace

/// The combinations are not vacuous: each number of dialogs comes, and ends both well and in a cancel.
TEST(EveryCombination, HasEveryCourseOfDialogs)
{
    const std::vector<Case> cases = EveryCombination();
    EXPECT_GE(cases.size(), 300U);
    std::set<std::pair<int, bool>> courses; // dialogs of the first Init, its result
    std::set<int> cancelled;
    for (const Case& each : cases) {
        rules::Machine machine = MachineOf(each);
        machine.open = machine.project;
        rules::Object object;
        const rules::Outcome outcome = rules::Init(machine, object, CallOf(each, machine.project), UserOf(each, 1));
        courses.emplace(outcome.Dialogs(), outcome.result);
        cancelled.insert(each.cancelAt);
    }
    // Four: the road of an absent system asks for all three, and the last comparison for the system again.
    for (int dialogs = 0; dialogs <= 4; ++dialogs) {
        EXPECT_TRUE(courses.contains({dialogs, true})) << dialogs;
        EXPECT_TRUE(courses.contains({dialogs, false})) << dialogs;
    }
    EXPECT_TRUE(cancelled.contains(1) && cancelled.contains(2) && cancelled.contains(3));
}

INSTANTIATE_TEST_SUITE_P(EveryCombination, Reconciliation, testing::ValuesIn(EveryCombination()), ParameterName);
INSTANTIATE_TEST_SUITE_P(EveryPlace, Reconciliation, testing::ValuesIn(EveryPlace()), ParameterName);
INSTANTIATE_TEST_SUITE_P(EveryKind, Reconciliation, testing::ValuesIn(EveryKind()), ParameterName);
INSTANTIATE_TEST_SUITE_P(EveryTweak, Reconciliation, testing::ValuesIn(EveryTweak()), ParameterName);

} // namespace matrix
