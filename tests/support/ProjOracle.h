#pragma once

#include <proj.h>

#include <cmath>
#include <memory>
#include <stdexcept>
#include <string>

/// PROJ as the judge of a conversion: one definition, forward and back.
class ProjOracle {
public:
    explicit ProjOracle(const std::string& definition)
        : m_context(proj_context_create(), proj_context_destroy),
          m_operation(proj_create(m_context.get(), definition.c_str()), proj_destroy)
    {
        if (!m_operation) {
            throw std::invalid_argument("PROJ does not accept: " + definition);
        }
    }

    struct Position {
        double x = 0.0;
        double y = 0.0;
        double z = 0.0;
    };

    /// Coordinates as the definition takes them; wrap angles in degrees with Degrees and
    /// Radians where PROJ wants radians.
    Position Forward(double x, double y, double z = 0.0, double t = HUGE_VAL) const
    {
        return Trans(PJ_FWD, x, y, z, t);
    }
    Position Inverse(double x, double y, double z = 0.0, double t = HUGE_VAL) const
    {
        return Trans(PJ_INV, x, y, z, t);
    }

    static double Radians(double degrees) { return proj_torad(degrees); }
    static double Degrees(double radians) { return proj_todeg(radians); }

private:
    Position Trans(PJ_DIRECTION direction, double x, double y, double z, double t) const
    {
        const PJ_COORD out = proj_trans(m_operation.get(), direction, proj_coord(x, y, z, t));
        return {out.xyz.x, out.xyz.y, out.xyz.z};
    }

    std::unique_ptr<PJ_CONTEXT, PJ_CONTEXT* (*)(PJ_CONTEXT*)> m_context;
    std::unique_ptr<PJ, PJ* (*)(PJ*)> m_operation;
};
