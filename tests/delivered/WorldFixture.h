#pragma once

#include <gtest/gtest.h>
#include <proj.h>

#include <memory>

#include "KnownDifferences.h"
#include "SystemDifferences.h"
#include "frame/RecordNames.h"
#include "frame/ZorGeoUtility.h"
#include "tests/support/TempDirectory.h"

/// The delivered database with an empty user database beside it, and PROJ.
class WorldFixture {
protected:
    static constexpr double kMillimetre = 1e-3;
    static constexpr double kConvergence = 0.01; // degrees; what the first order leaves within a zone is a tenth of it

    WorldFixture() : m_context(proj_context_create(), proj_context_destroy)
    {
        DataSearch& directories = DataSearch::GetDataSearch();
        directories.SetDataPath(DataSearch::deliveredDatabase, CString::FromUtf8(ZORGEO_DATA_DIR));
        directories.SetDataPath(DataSearch::userDatabase, m_user.Directory());
        ZorGeoUtility::Get().Fill();
        m_project.SetItem(FORMATS_SECTION, formatParamKeys[FormatKey::unitFormat], 0.0, true);
    }

    /// The system initialises, and agrees with PROJ to a millimetre (its convergence to a hundredth of a
    /// degree) or to what the list states. What
    /// the list states is needed, and is no more than a tenth above what is measured.
    void Check(const WorldSystem& system)
    {
        SCOPED_TRACE("EPSG " + std::to_string(system.published) + " " + system.name.ToUtf8());
        const Places places = m_known.Has(system.published) ? Places::everywhere : Places::random;
        const auto measured = Measure(system, places, m_context.get(), m_project);
        ASSERT_TRUE(measured.has_value()) << "does not initialise";
        SCOPED_TRACE(measured->where);
        CheckOne(system.published, "forward", measured->forward, kMillimetre);
        CheckOne(system.published, "inverse", measured->inverse, kMillimetre);
        CheckOne(system.published, "convergence", measured->convergence, kConvergence);
        // The road ends with the forward conversion, whose differences stand in it.
        CheckOne(system.published, "road", measured->road - m_known.Stated(system.published, "forward"), kMillimetre);
    }

    FileObject m_project;

private:
    void CheckOne(int code, const std::string& way, double measured, double allowed)
    {
        const double stated = m_known.Stated(code, way);
        EXPECT_LE(measured, std::max(stated, allowed)) << way;
        if (stated > 0.0) {
            EXPECT_GT(measured, allowed) << way << ": the entry is not needed any more";
            EXPECT_GE(measured * 1.12, stated) << way << ": the entry states too much";
        }
    }

    TempDirectory m_user;
    std::unique_ptr<PJ_CONTEXT, PJ_CONTEXT* (*)(PJ_CONTEXT*)> m_context;
    KnownDifferences m_known;
};
