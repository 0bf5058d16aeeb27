#include "projections/ConformalSphere.h"

#include <gtest/gtest.h>

namespace {

// IOGP guidance note 7-2 prints radii, radius and n of the Dutch grid (method 9809).
TEST(ConformalSphere, HasThePublishedNumbersOfTheDutchGrid)
{
    const ConformalSphere sphere(6377397.155, 0.0066743722318021447, 0.910296727);
    EXPECT_NEAR(sphere.rho, 6374588.71, 0.01);
    EXPECT_NEAR(sphere.nu, 6390710.613, 0.001);
    EXPECT_NEAR(sphere.R, 6382644.571, 0.001);
    EXPECT_NEAR(sphere.n, 1.000475857, 5e-10);
}

TEST(ConformalSphere, OfASphereIsTheSphere)
{
    const ConformalSphere sphere(6371000.0, 0.0, 0.7);
    EXPECT_EQ(sphere.R, 6371000.0);
    EXPECT_EQ(sphere.n, 1.0);
}

} // namespace
